// SiblingSets: the rows that lie side by side below one row of the outline.
#pragma once

#include <cstdint>
#include <vector>

#include "rows/TreeGrid.h"

namespace foldertree {

/// A row's parent is the nearest row above it that lies less deep; rows with the same parent are a set. Questions pass
/// over 256 rows in one step, and what lets them is kept as far as it is asked for, so a question about one of 100,000
/// siblings takes some 400 steps, and nothing is kept for a row. The grid must outlive it.
class SiblingSets {
  public:
    explicit SiblingSets(const TreeGrid& grid) : grid_(grid) {}

    /// Levels changed, or rows came or went, from the row on. Rows that are appended need no call.
    void Invalidate(int32_t row) noexcept;

    int32_t Parent(int32_t row);         ///< 0 when there is none
    int32_t PositionInSet(int32_t row);  ///< from 1 on
    int32_t SizeOfSet(int32_t row);

    size_t MemoryUse() const { return blocks_.capacity() * sizeof(Block); }

  private:
    static constexpr int32_t blockRows = 256;
    struct Block {
        int16_t least = 0;  ///< the lowest level in it
        int16_t rows = 0;   ///< how many have that level
    };

    const Block* BlockAt(int32_t row);
    int32_t CountSet(int32_t parent, int32_t end);
    int32_t EndBelow(int32_t row, int32_t parent);

    const TreeGrid& grid_;
    std::vector<Block> blocks_;  ///< of the rows 0 to 255, 256 to 511, …, as many as are known
};

}  // namespace foldertree
