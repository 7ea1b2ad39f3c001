// StreamPropertyBag: the control's settings as they lie in a container's stream.
#include "win32/com/StreamPropertyBag.h"

#include <ole2.h>
#include <olectl.h>

#include "automation/Error.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"
#include "common/SavedValue.h"

namespace foldertree {

using automation::Check;
using automation::ComPtr;
using automation::Value;

namespace {

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

/// The container's stream. Where it ends early, it says so.
class ContainerStream final : public SettingsStream {
  public:
    explicit ContainerStream(IStream& stream) : stream_(stream) {}

    void Read(void* bytes, size_t size) override {
        ULONG read = 0;
        Check(stream_.Read(bytes, static_cast<ULONG>(size), &read));
        if (read != size) Check(STG_E_READFAULT);
    }
    void Write(const void* bytes, size_t size) override {
        ULONG written = 0;
        Check(stream_.Write(bytes, static_cast<ULONG>(size), &written));
        if (written != size) Check(STG_E_MEDIUMFULL);
    }
    Value ReadFont() override { return foldertree::ReadFont(stream_); }
    void WriteFont(const Value& font) override { Check(OleSaveToStream(SavableFont(font).Get(), &stream_)); }
    bool IsFont(const Value& value) override { return SavableFont(value) != nullptr; }

  private:
    IStream& stream_;
};

Value ReadValue(IStream& stream) {
    ContainerStream container(stream);
    return ReadSavedValue(container);
}

void WriteValue(IStream& stream, const Value& value) {
    ContainerStream container(stream);
    WriteSavedValue(container, value);
}

}  // namespace

uint32_t StreamPropertyBag::Version() const {
    return settings_.empty() ? 1 : settings_.back()->saving.sinceVersion;
}

void StreamPropertyBag::Load(IStream& stream) {
    const auto version = ReadNumber<uint32_t>(stream);
    if (version == 0) Check(STG_E_INVALIDHEADER);
    if (version > Version()) Check(STG_E_OLDDLL);
    decltype(values_) values;
    for (const MemberInfo* setting : settings_)
        if (setting->saving.sinceVersion <= version) values.emplace(setting->name, ReadValue(stream));
    values_ = std::move(values);
}

void StreamPropertyBag::Save(IStream& stream) const {
    WriteNumber(stream, Version());
    for (const MemberInfo* setting : settings_) {
        const auto found = values_.find(setting->name);
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
