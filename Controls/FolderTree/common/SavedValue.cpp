// SavedValue: the types that a saved setting can have.
#include "common/SavedValue.h"

#include <cstdint>
#include <variant>

#include "automation/Error.h"

namespace foldertree {

using automation::Value;

namespace {

// The numbers of the VARIANT types.
constexpr uint16_t typeEmpty = 0;
constexpr uint16_t typeInteger = 2;
constexpr uint16_t typeLong = 3;
constexpr uint16_t typeObject = 9;
constexpr uint16_t typeBoolean = 11;

constexpr uint32_t invalidHeader = 0x800300FB;  // STG_E_INVALIDHEADER

template <class Number>
Number ReadNumber(SettingsStream& stream) {
    Number number = 0;
    stream.Read(&number, sizeof number);
    return number;
}

template <class Number>
void WriteNumber(SettingsStream& stream, Number number) {
    stream.Write(&number, sizeof number);
}

}  // namespace

Value ReadSavedValue(SettingsStream& stream) {
    switch (ReadNumber<uint16_t>(stream)) {
        case typeEmpty:
            return {};
        case typeBoolean:
            return ReadNumber<int16_t>(stream) != 0;
        case typeInteger:
            return Value::Integer(ReadNumber<int16_t>(stream));
        case typeLong:
            return ReadNumber<int32_t>(stream);
        case typeObject:
            return stream.ReadFont();
        default:
            throw automation::Error(invalidHeader, "A saved setting is of a type that no setting has");
    }
}

void WriteSavedValue(SettingsStream& stream, const Value& value) {
    if (stream.IsFont(value)) {
        WriteNumber(stream, typeObject);
        stream.WriteFont(value);
    } else if (const auto* boolean = std::get_if<bool>(&value.Raw())) {
        WriteNumber(stream, typeBoolean);
        WriteNumber<int16_t>(stream, *boolean ? -1 : 0);
    } else if (const auto* integer = std::get_if<int16_t>(&value.Raw())) {
        WriteNumber(stream, typeInteger);
        WriteNumber(stream, *integer);
    } else if (const auto* number = std::get_if<int32_t>(&value.Raw())) {
        WriteNumber(stream, typeLong);
        WriteNumber(stream, *number);
    } else {
        WriteNumber(stream, typeEmpty);
    }
}

}  // namespace foldertree
