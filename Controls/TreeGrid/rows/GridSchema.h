// GridSchema: what a grid's columns mean, and how their texts are kept.
#pragma once

#include <cstdint>

namespace foldertree {

/// A picture is a number here; whoever paints knows what it looks like.
using PictureNumber = uint8_t;
inline constexpr PictureNumber noPicture = 0;

/// Told to a grid when it is made. A column is a number from 0 on; a meaning may be had by no column.
struct GridSchema {
    static constexpr int maxColumns = 14;  ///< a row is one cache line
    static constexpr int none = -1;

    int columns = 0;
    int box = none;      ///< boxes to tick
    int number = none;   ///< numbers that the user may change
    int outline = none;  ///< names, moved in by their level, with the rows' pictures
    int key = none;      ///< what rows are found by
    int path = none;     ///< where a row stands in the tree, its name included; may be empty

    /// Bit 1 << column: the texts differ from row to row and are kept with each; all others are shared among rows.
    uint32_t ownTexts = 0;

    /// A key that reads prefix, text of the column `start`, separator, text of the column `end` is not kept but put
    /// together when asked for. `start` has shared texts and `end` own ones.
    struct KeyParts {
        char prefix = 0;
        int start = none;
        char separator = 0;
        int end = none;
    } keyParts;

    PictureNumber pictures = 0;  ///< the highest picture

    constexpr bool IsOwn(int col) const { return (ownTexts >> col & 1) != 0; }
    constexpr bool IsKeyPart(int col) const { return col == keyParts.start || col == keyParts.end; }
};

/// The bits of ownTexts for some columns.
template <class... Columns>
constexpr uint32_t ColumnBits(Columns... columns) {
    return ((uint32_t{1} << columns) | ... | 0u);
}

}  // namespace foldertree
