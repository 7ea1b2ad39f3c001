// SampleSchema: the columns of the grids that the tests make.
#pragma once

#include <string_view>

#include "rows/GridSchema.h"

namespace foldertree::sample {

enum Column : int {
    colSel = 0,
    colIndex = 1,
    colName = 2,
    colReserved = 3,
    colRowKind = 4,
    colIncomplete = 5,
    colItemType = 6,
    colStoreID = 7,
    colEntryID = 8,
    colEntryIDShort = 9,
    colFolderRecID = 10,
    colAddressListID = 11,
    colPath = 12,
    colKey = 13,
    columnCount = 14,
};

inline constexpr PictureNumber mailPicture = 4;
inline constexpr PictureNumber lastPicture = 15;

/// What colRowKind holds in the grids of the window tests.
namespace rowKind {
inline constexpr std::string_view store = "Store";
inline constexpr std::string_view folder = "Folder";
inline constexpr std::string_view dummy = "Dummy";
}  // namespace rowKind

inline constexpr GridSchema schema{
    .columns = columnCount,
    .box = colSel,
    .number = colIndex,
    .outline = colName,
    .key = colKey,
    .path = colPath,
    .ownTexts = ColumnBits(colName, colEntryID, colEntryIDShort, colPath, colKey),
    .keyParts = {.prefix = 'S', .start = colStoreID, .separator = '|', .end = colEntryID},
    .pictures = lastPicture,
};

}  // namespace foldertree::sample
