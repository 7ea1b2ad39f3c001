// Bstr: conversions at the edge.
#include "automation_win32/Bstr.h"

#include <algorithm>
#include <new>

#include "automation/Text.h"
#include "automation/TextHash.h"

namespace automation {

namespace {

/// Without contents when `units` is null.
BSTR NewBstr(const wchar_t* units, size_t count) {
    BSTR result = SysAllocStringLen(units, static_cast<UINT>(count));
    if (result == nullptr) throw std::bad_alloc();
    return result;
}

}  // namespace

// Most texts that cross are identifiers and paths of ASCII: they are widened in place.
BSTR ToBstr(std::string_view text) {
    if (!IsAscii(text)) {
        const std::wstring wide = ToWide(text);
        return NewBstr(wide.data(), wide.size());
    }
    BSTR result = NewBstr(nullptr, text.size());
    std::copy(text.begin(), text.end(), result);
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
    const auto isAscii = [](wchar_t unit) { return unit < 0x80; };
    if (std::all_of(text.begin(), text.end(), isAscii)) {
        std::string result(text.size(), '\0');
        std::transform(text.begin(), text.end(), result.begin(), [](wchar_t unit) { return static_cast<char>(unit); });
        return result;
    }
    return FromUtf16(std::u16string(text.begin(), text.end()));
}

}  // namespace automation
