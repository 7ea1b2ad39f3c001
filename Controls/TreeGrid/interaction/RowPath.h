// RowPath: a row's name, and its place in the tree as one text.
#pragma once

#include <cstdint>
#include <string>

#include "rows/TreeGrid.h"

namespace foldertree {

/// Empty where the grid has no names.
std::string RowName(const TreeGrid& grid, int32_t row);

/// The names from the outermost row down to this one, joined by backslashes. A row that has a path text of its own (see
/// GridSchema::path) begins with that.
std::string RowPath(const TreeGrid& grid, int32_t row);

}  // namespace foldertree
