// CdoFields: the members of the collection and of a field.
#include "models/cdo/CdoFields.h"

#include <algorithm>

#include "models/cdo/CdoErrors.h"
#include "models/common/CallArguments.h"
#include "models/common/MapiErrors.h"
#include "models/common/MapiProperties.h"
#include "models/common/MemberFunctions.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

namespace {

constexpr uint32_t typeLong = 0x0003;
constexpr uint32_t typeBoolean = 0x000B;
constexpr uint32_t typeString8 = 0x001E;
constexpr uint32_t typeUnicode = 0x001F;
constexpr uint32_t typeBinary = 0x0102;

constexpr uint32_t TypeOf(uint32_t tag) {
    return tag & 0xFFFF;
}

/// The library dates from before Unicode and knows 8-bit text only.
constexpr uint32_t With8BitText(uint32_t tag) {
    return TypeOf(tag) == typeUnicode ? tag - (typeUnicode - typeString8) : tag;
}

Value Shown(const Value& value) {
    const auto* bytes = value.AsBytes();
    return bytes != nullptr ? Value(Hex(bytes->items)) : value;
}

}  // namespace

CdoFields::CdoFields(CdoSessionRef session, const Property& property, std::span<const uint32_t> tags)
    : session_(std::move(session)) {
    for (const uint32_t tag : tags)
        if (const auto value = property(tag)) entries_.push_back({With8BitText(tag), Shown(*value)});
}

std::span<const automation::MemberEntry<CdoFields>> CdoFields::Members() {
    using Self = CdoFields;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Item", Handler<&Self::Item>, nullptr, 1, "Index"},
        {"Count", Handler<&Self::Count>},
        {"Application", Handler<&Self::Application>},
        {"Session", Handler<&Self::SessionMember>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

Value CdoFields::Item(const Arguments& arguments) {
    const Value& index = Required(arguments, 0);
    // No object of ours has properties of its own making, which alone have names.
    if (index.IsText()) throw CdoNotFound();
    const auto number = static_cast<uint32_t>(index.ToLong());
    constexpr uint32_t firstTag = 65536;
    if (number < firstTag) return CdoItems::Item(arguments);
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.tag == With8BitText(number); });
    if (found == entries_.end()) throw CdoNotFound();
    return ItemAt(static_cast<size_t>(found - entries_.begin()));
}

const std::string& CdoFields::NameAt(size_t) const {
    static const std::string none;
    return none;
}

Value CdoFields::ItemAt(size_t position) const {
    const Entry& entry = entries_[position];
    return std::make_shared<CdoField>(session_, entry.tag, entry.value, static_cast<int32_t>(position) + 1);
}

std::span<const automation::MemberEntry<CdoField>> CdoField::Members() {
    using Self = CdoField;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Value", Handler<&Self::ValueMember>, Setter<&Self::SetValue>},
        {"ID", Handler<&Self::Id>},
        {"Index", Handler<&Self::Index>},
        {"Name", Handler<&Self::Name>},
        {"Type", Handler<&Self::Type>},
        {"Application", Handler<&Self::Application>},
        {"Session", Handler<&Self::SessionMember>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

void CdoField::SetValue(const Value&) {
    throw ReadOnly();
}

int32_t CdoField::Type() const {
    switch (TypeOf(tag_)) {
        case typeLong:
            return 3;
        case typeBoolean:
            return 11;
        case typeBinary:
            return 65;
        default:
            return 8;
    }
}

}  // namespace localstores
