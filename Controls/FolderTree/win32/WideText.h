// WideText: UTF-8 text of the core as the wide text that Windows draws.
#pragma once

#include <string>
#include <string_view>

namespace foldertree {

/// The text in UTF-16. Of a longer text only the first `limit` bytes are converted: no window shows more, and a name
/// may be as long as its store likes.
std::wstring ToWide(std::string_view text, size_t limit = 4096);
std::string FromWide(std::wstring_view text);

}  // namespace foldertree
