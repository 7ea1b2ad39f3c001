// CdoFields: the MAPI properties of an object, and one of them.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "models/cdo/CdoSessionObject.h"

namespace localstores {

/// The properties that the object had when the collection was made. Members: `Item(Index)` (default; numbers below
/// 65536 are 1-based positions, all others property tags), `Count`, `_NewEnum`, `Application`, `Session`, `Class`.
/// A property that the object lacks gives MAPI_E_NOT_FOUND.
class CdoFields : public automation::TabledObject<CdoFields>, public CdoItems {
  public:
    using Property = std::function<std::optional<automation::Value>(uint32_t tag)>;

    /// `property` must keep alive what it needs; `tags` are all that it may answer.
    CdoFields(CdoSessionRef session, const Property& property, std::span<const uint32_t> tags);

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<CdoFields>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override { return Walk(shared_from_this()); }

    automation::Value Item(const automation::Arguments& arguments) override;
    size_t Size() const override { return entries_.size(); }
    const std::string& NameAt(size_t position) const override;
    automation::Value ItemAt(size_t position) const override;
    const char* Application() const { return cdoApplication; }
    automation::Value SessionMember() const { return session_; }
    int32_t Class() const { return static_cast<int32_t>(CdoClass::Fields); }

  private:
    struct Entry {
        uint32_t tag;
        automation::Value value;
    };

    CdoSessionRef session_;
    std::vector<Entry> entries_;
};

/// Members: `Value` (default; binary values as hexadecimal text), `ID` (the tag), `Index`, `Name` ("", as for all
/// properties that MAPI itself defines), `Type` (8 text, 3 number, 11 yes or no, 65 binary), `Application`, `Session`,
/// `Class`.
class CdoField : public automation::TabledObject<CdoField> {
  public:
    CdoField(CdoSessionRef session, uint32_t tag, automation::Value value, int32_t index)
        : session_(std::move(session)), tag_(tag), value_(std::move(value)), index_(index) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<CdoField>> Members();

    const automation::Value& ValueMember() const { return value_; }
    void SetValue(const automation::Value& value);
    int32_t Id() const { return static_cast<int32_t>(tag_); }
    int32_t Index() const { return index_; }
    const char* Name() const { return ""; }
    int32_t Type() const;
    const char* Application() const { return cdoApplication; }
    automation::Value SessionMember() const { return session_; }
    int32_t Class() const { return static_cast<int32_t>(CdoClass::Field); }

  private:
    CdoSessionRef session_;
    uint32_t tag_;
    automation::Value value_;
    int32_t index_;
};

}  // namespace localstores
