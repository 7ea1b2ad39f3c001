// WideText: UTF-8 text of the core as the wide text that Windows draws.
#include "win32/WideText.h"

#include "automation/Text.h"

namespace foldertree {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring ToWide(std::string_view text, size_t limit) {
    const std::u16string wide = automation::ToUtf16(text.substr(0, limit));
    return {wide.begin(), wide.end()};
}

std::string FromWide(std::wstring_view text) {
    return automation::FromUtf16(std::u16string(text.begin(), text.end()));
}

}  // namespace foldertree
