// GivenText: a text that the caller of a COM method receives and frees.
#pragma once

#include <objbase.h>

#include <string_view>

namespace foldertree {

/// `to` is not null; the caller frees the text with CoTaskMemFree.
inline HRESULT GiveText(std::wstring_view text, LPOLESTR* to) noexcept {
    *to = static_cast<LPOLESTR>(CoTaskMemAlloc((text.size() + 1) * sizeof(wchar_t)));
    if (*to == nullptr) return E_OUTOFMEMORY;
    (*to)[text.copy(*to, text.size())] = L'\0';
    return S_OK;
}

}  // namespace foldertree
