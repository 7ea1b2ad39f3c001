// ShownTexts: the words that the control shows besides those that a host translates with Localize.
#pragma once

#include <string_view>

namespace foldertree::shownTexts {

inline constexpr std::string_view cancelling = "Cancelling\u2026";  ///< after Cancel, until the load has ended

inline constexpr std::string_view numberRule = "Type a number greater than 0.";  ///< with a position that is refused

}  // namespace foldertree::shownTexts
