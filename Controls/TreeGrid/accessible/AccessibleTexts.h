// AccessibleTexts: the words that assistive programs are told besides what stands in the grid.
#pragma once

#include <string_view>

namespace foldertree::accessibleTexts {

inline constexpr std::string_view grid = "Folders";  ///< of a grid that has no other name
inline constexpr std::string_view check = "Check";
inline constexpr std::string_view uncheck = "Uncheck";
inline constexpr std::string_view expand = "Expand";
inline constexpr std::string_view collapse = "Collapse";
inline constexpr std::string_view press = "Press";  ///< of a button
inline constexpr std::string_view number = "No. ";  ///< "No. 3 of 12"
inline constexpr std::string_view ofNumbers = " of ";

}  // namespace foldertree::accessibleTexts
