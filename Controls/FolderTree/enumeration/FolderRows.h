// FolderRows: how store rows, folder rows and placeholder rows are written into the grid.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/ControlContext.h"
#include "common/Enumerations.h"

namespace foldertree {

/// Appends an empty row and returns its number.
int32_t AppendRow(TreeGrid& grid);

/// Shows the picture beside the row's name.
void SetRowPicture(TreeGrid& grid, int32_t row, Picture picture);

/// Appends a row and makes it a store's: its kind, name, level, colours and bold. Returns its number.
int32_t AppendStoreRow(ControlContext& context, std::string_view kind, std::string_view name);

/// What the store rows of all modes still get when the store has been asked for more.
void SetStorePicture(ControlContext& context, int32_t row, bool isDefaultStore);

/// The cells of a folder row. Views need only live during the call.
struct FolderCells {
    std::string_view name;
    std::string_view storeID;
    std::string_view entryID;
    std::string_view entryIDShort;
    std::string_view path;
    std::string_view key;
    std::string_view sel;
    std::string_view index;
    int32_t itemType = FTIMailItem;
};

/// Fills an empty row as a folder at the outline level: cells, picture, highlighting; it becomes a node.
void FillFolderRow(ControlContext& context, int32_t row, int16_t level, const FolderCells& cells);

/// Marks the folder row as not read: colIncomplete "-1", a placeholder child below it, both collapsed.
void MarkUnread(ControlContext& context, int32_t row);

/// Whether the row's kind is that kind, in any letter case.
bool IsRowKind(const TreeGrid& grid, int32_t row, std::string_view kind);

}  // namespace foldertree
