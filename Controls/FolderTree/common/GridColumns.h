// GridColumns: the 14 columns of the tree, what they mean to the grid, and the texts that mark the kinds of rows.
#pragma once

#include <string_view>

#include "common/Pictures.h"
#include "rows/GridSchema.h"

namespace foldertree {

enum GridColumn : int {
    colSel = 0,             // selection check box
    colIndex = 1,           // position in the selection order
    colName = 2,            // display name, with the row's picture
    colReserved = 3,        // written by nobody
    colRowKind = 4,         // one of the row kinds below
    colIncomplete = 5,      // "-1" on a folder row whose sub-folders were not read yet
    colItemType = 6,        // enuFTIItemType as a number
    colStoreID = 7,         // store entry identifier (hex)
    colEntryID = 8,         // folder entry identifier, long form (hex)
    colEntryIDShort = 9,    // folder entry identifier, short form (hex)
    colFolderRecID = 10,    // host record number
    colAddressListID = 11,  // non-empty marks an address-list row
    colPath = 12,           // folder path
    colKey = 13,            // "S" & store & "|" & entry, or "L" & address list
    gridColumnCount = 14,
};

/// What a row says of itself is its own; what says where it belongs is the same for many rows.
inline constexpr GridSchema folderSchema{
    .columns = gridColumnCount,
    .box = colSel,
    .number = colIndex,
    .outline = colName,
    .key = colKey,
    .path = colPath,
    .ownTexts = ColumnBits(colName, colEntryID, colEntryIDShort, colPath, colKey),
    .keyParts = {.prefix = 'S', .start = colStoreID, .separator = '|', .end = colEntryID},
    .pictures = pictureCount - 1,
};

/// Writers use these spellings; readers compare without regard to case.
namespace rowKind {
inline constexpr std::string_view store = "Store";
inline constexpr std::string_view folder = "Folder";
inline constexpr std::string_view dummy = "Dummy";
inline constexpr std::string_view header = "Header";
inline constexpr std::string_view adList = "AdList";
}  // namespace rowKind

}  // namespace foldertree
