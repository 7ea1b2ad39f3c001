// ShownText: UTF-8 text of the core as the wide text that Windows draws.
#pragma once

#include <string>
#include <string_view>

#include "automation_win32/Bstr.h"

namespace foldertree {

/// Of a long text only the beginning: no window shows more, and a name may be as long as its store likes.
inline std::wstring ShownText(std::string_view text) {
    constexpr size_t longest = 4096;
    return automation::ToWide(text.substr(0, longest));
}

}  // namespace foldertree
