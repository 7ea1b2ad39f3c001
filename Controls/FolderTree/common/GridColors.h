// GridColors: the colour that carries a meaning in the tree's rows, besides the grid's own colours.
#pragma once

#include "rows/Colors.h"

namespace foldertree::colors {

inline constexpr OleColor ticked = 0x0000FFFF;  // yellow: a ticked row

}  // namespace foldertree::colors
