// Colors: colours of the grid, as OLE_COLOR values (0x00BBGGRR, or 0x80000000 | system colour).
#pragma once

#include <cstdint>

namespace foldertree {

using OleColor = uint32_t;

namespace colors {
inline constexpr OleColor window = 0x80000005;        // the back colour of a cell that was given none
inline constexpr OleColor buttonFace = 0x8000000F;    // of what cannot be edited
inline constexpr OleColor buttonShadow = 0x80000010;  // grey text
inline constexpr OleColor buttonText = 0x80000012;    // the text colour of a cell that was given none
}  // namespace colors

}  // namespace foldertree
