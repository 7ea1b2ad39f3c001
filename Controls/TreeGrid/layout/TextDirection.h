// TextDirection: which way a text is read.
#pragma once

#include <string_view>

namespace foldertree {

/// Whether a text (UTF-8) is read from right to left: its first letter decides, and `otherwise` where it has none.
bool ReadsRightToLeft(std::string_view text, bool otherwise);

}  // namespace foldertree
