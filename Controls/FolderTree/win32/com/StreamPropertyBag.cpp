// StreamPropertyBag: the control's settings as they lie in a container's stream.
#include "win32/com/StreamPropertyBag.h"

#include <ole2.h>
#include <olectl.h>

#include "automation/Error.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Variant.h"

namespace foldertree {

using automation::Check;
using automation::ComPtr;
using automation::Value;

namespace {

constexpr uint32_t streamVersion = 1;

// Streams that containers have saved depend on this order: add new settings at the end, with a new version.
constexpr const char* settings[] = {
    "Enabled",     "HighlightContactFolders", "HighlightJournalFolders", "HighlightTaskFolders",
    "MultiSelect", "AllowIndexing",           "ShowAddressBook",         "ExtendToLevel",
    "Font",        "InfoStoreAccessMode",
};

template <class Number>
Number ReadNumber(IStream& stream) {
    Number number = 0;
    ULONG read = 0;
    Check(stream.Read(&number, sizeof(number), &read));
    if (read != sizeof(number)) Check(STG_E_READFAULT);
    return number;
}

template <class Number>
void WriteNumber(IStream& stream, Number number) {
    ULONG written = 0;
    Check(stream.Write(&number, sizeof(number), &written));
    if (written != sizeof(number)) Check(STG_E_MEDIUMFULL);
}

/// Only the system's font class is made: a stream may come from anywhere and must not name the code that reads it.
Value ReadFont(IStream& stream) {
    CLSID clsid = {};
    Check(ReadClassStm(&stream, &clsid));
    if (clsid != CLSID_StdFont) Check(STG_E_INVALIDHEADER);
    ComPtr<IPersistStream> font;
    Check(CoCreateInstance(CLSID_StdFont, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(font.GetAddressOf())));
    Check(font->Load(&stream));
    return automation::FromCom(font.Get());
}

/// The font's own way of saving itself, or null for an object that is not the system's font.
ComPtr<IPersistStream> SavableFont(const Value& value) {
    ComPtr<IPersistStream> font;
    CLSID clsid = {};
    const auto object = value.IsObject() ? automation::ToCom(value.ToObject()) : nullptr;
    if (object == nullptr || FAILED(object.As(&font)) || FAILED(font->GetClassID(&clsid)) || clsid != CLSID_StdFont)
        return nullptr;
    return font;
}

Value ReadValue(IStream& stream) {
    switch (ReadNumber<VARTYPE>(stream)) {
        case VT_EMPTY:
            return {};
        case VT_BOOL:
            return ReadNumber<int16_t>(stream) != 0;
        case VT_I2:
            return Value::Integer(ReadNumber<int16_t>(stream));
        case VT_I4:
            return ReadNumber<int32_t>(stream);
        case VT_DISPATCH:
            return ReadFont(stream);
        default:
            Check(STG_E_INVALIDHEADER);
            return {};
    }
}

void WriteValue(IStream& stream, const Value& value) {
    automation::Variant variant(value);
    const VARIANT& raw = variant.Raw();
    const ComPtr<IPersistStream> font = SavableFont(value);
    VARTYPE type = V_VT(&raw);
    if (font != nullptr)
        type = VT_DISPATCH;
    else if (type != VT_BOOL && type != VT_I2 && type != VT_I4)
        type = VT_EMPTY;
    WriteNumber(stream, type);
    if (type == VT_DISPATCH)
        Check(OleSaveToStream(font.Get(), &stream));
    else if (type == VT_I4)
        WriteNumber<int32_t>(stream, V_I4(&raw));
    else if (type != VT_EMPTY)
        WriteNumber<int16_t>(stream, V_I2(&raw));
}

}  // namespace

void StreamPropertyBag::Load(IStream& stream) {
    if (ReadNumber<uint32_t>(stream) != streamVersion) Check(STG_E_OLDDLL);
    decltype(values_) values;
    for (const char* name : settings) values.emplace(name, ReadValue(stream));
    values_ = std::move(values);
}

void StreamPropertyBag::Save(IStream& stream) const {
    WriteNumber(stream, streamVersion);
    for (const char* name : settings) {
        const auto found = values_.find(name);
        WriteValue(stream, found != values_.end() ? found->second : Value());
    }
}

Value StreamPropertyBag::Read(std::string_view name) {
    const auto found = values_.find(name);
    return found != values_.end() ? found->second : Value();
}

void StreamPropertyBag::Write(std::string_view name, const Value& value) {
    values_.insert_or_assign(std::string(name), value);
}

}  // namespace foldertree
