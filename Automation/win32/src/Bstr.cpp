// Bstr: conversions at the edge.
#include "automation_win32/Bstr.h"

#include <new>

#include "automation/Text.h"

namespace automation {

BSTR ToBstr(std::string_view text) {
    const std::wstring wide = ToWide(text);
    BSTR result = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (result == nullptr) throw std::bad_alloc();
    return result;
}

std::string FromBstr(BSTR text) {
    return text == nullptr ? std::string() : FromWide(std::wstring_view(text, SysStringLen(text)));
}

std::wstring ToWide(std::string_view text) {
    const std::u16string utf16 = ToUtf16(text);
    return std::wstring(utf16.begin(), utf16.end());
}

std::string FromWide(std::wstring_view text) {
    return FromUtf16(std::u16string(text.begin(), text.end()));
}

}  // namespace automation
