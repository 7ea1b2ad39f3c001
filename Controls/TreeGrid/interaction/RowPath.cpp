// RowPath: a row's name, and its place in the tree as one text.
#include "interaction/RowPath.h"

#include <vector>

#include "interaction/CursorMoves.h"

namespace foldertree {
namespace {

std::string TextIn(const TreeGrid& grid, int32_t row, int col) {
    return col == GridSchema::none ? std::string() : grid.CellText(row, col);
}

}  // namespace

std::string RowName(const TreeGrid& grid, int32_t row) {
    return TextIn(grid, row, grid.Schema().outline);
}

std::string RowPath(const TreeGrid& grid, int32_t row) {
    std::vector<std::string> names;
    std::string path;
    for (; row != 0; row = ParentRow(grid, row)) {
        path = TextIn(grid, row, grid.Schema().path);
        if (!path.empty()) break;
        names.push_back(RowName(grid, row));
    }
    for (; !names.empty(); names.pop_back()) {
        if (!path.empty()) path += '\\';
        path += names.back();
    }
    return path;
}

}  // namespace foldertree
