// FilePropertyBag: variants in and out of text.
#include "FilePropertyBag.h"

#include "FontText.h"
#include "LateBound.h"
#include "Text.h"

namespace demo {
namespace {

constexpr char boolKind[] = "bool:";
constexpr char numberKind[] = "number:";
constexpr char textKind[] = "text:";
constexpr char fontKind[] = "font:";

/// Takes `prefix` off the front of `text`; false when it is not there.
bool Strip(std::string& text, std::string_view prefix) {
    if (text.compare(0, prefix.size(), prefix) != 0) return false;
    text.erase(0, prefix.size());
    return true;
}

Variant Decoded(std::string text) {
    if (Strip(text, boolKind)) return text == "True";
    if (Strip(text, numberKind)) return Variant(FromUtf8(text)).AsLong();
    if (Strip(text, textKind)) return FromUtf8(text);
    if (Strip(text, fontKind)) {
        ComPtr<IDispatch> object;
        if (const ComPtr<IFont> font = FontFromText(text)) font.As(&object);
        if (object) return object.Get();
    }
    return {};
}

/// Empty for a kind that the bag does not keep.
std::string Encoded(const Variant& value) {
    switch (value.vt) {
        case VT_BOOL:
            return boolKind + std::string(value.AsBool() ? "True" : "False");
        case VT_I2:
        case VT_I4:
            return numberKind + std::to_string(value.AsLong());
        case VT_BSTR:
            return textKind + ToUtf8(value.AsText());
        default:
            break;
    }
    ComPtr<IFont> font;
    const ComPtr<IDispatch> object = value.AsObject();
    if (object && SUCCEEDED(object.As(&font))) return fontKind + FontToText(font.Get());
    return {};
}

}  // namespace

HRESULT FilePropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) {
    if (name == nullptr || value == nullptr) return E_POINTER;
    const auto found = properties_.find(ToUtf8(name));
    if (found == properties_.end()) return E_INVALIDARG;
    const Variant decoded = Decoded(found->second);
    if (decoded.vt == VT_EMPTY) return E_FAIL;
    const VARTYPE wanted = value->vt;
    VariantClear(value);
    return ConvertValue(*value, decoded, wanted == VT_EMPTY ? decoded.vt : wanted);
}

HRESULT FilePropertyBag::Write(LPCOLESTR name, VARIANT* value) {
    if (name == nullptr || value == nullptr) return E_POINTER;
    const std::string encoded = Encoded(*value);
    if (encoded.empty()) return E_INVALIDARG;
    properties_[ToUtf8(name)] = encoded;
    return S_OK;
}

}  // namespace demo
