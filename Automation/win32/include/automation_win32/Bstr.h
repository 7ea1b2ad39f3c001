// Bstr: the text of automation, UTF-16 in a BSTR, to and from UTF-8. Lone surrogates and embedded NULs survive.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>

namespace automation {

/// A new BSTR that the caller frees with SysFreeString. Throws std::bad_alloc.
BSTR ToBstr(std::string_view text);
/// A null BSTR is the empty text.
std::string FromBstr(BSTR text);

/// A BSTR that frees itself.
class OwnedBstr {
  public:
    OwnedBstr() = default;
    explicit OwnedBstr(std::string_view text) : text_(ToBstr(text)) {}
    ~OwnedBstr() { SysFreeString(text_); }
    OwnedBstr(const OwnedBstr&) = delete;
    OwnedBstr& operator=(const OwnedBstr&) = delete;

    BSTR Get() const { return text_; }
    /// For a call that fills it, once.
    BSTR* Out() { return &text_; }
    std::wstring Wide() const { return std::wstring(text_ == nullptr ? L"" : text_, SysStringLen(text_)); }

  private:
    BSTR text_ = nullptr;
};

/// For the W functions of Windows, which end a text at its first NUL.
std::wstring ToWide(std::string_view text);
std::string FromWide(std::wstring_view text);

}  // namespace automation
