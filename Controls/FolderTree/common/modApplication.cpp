// modApplication: small helpers that the store readers share.
#include "common/modApplication.h"

#include <charconv>

#include "automation/Text.h"
#include "common/ErrorEdges.h"

namespace foldertree {

automation::Value GetFieldValue(const automation::ObjectRef& source, int32_t propertyTag) {
    automation::Value result;
    Attempt([&] {
        const automation::ObjectRef field = automation::Deref(source).Get("Fields", propertyTag).ToObject();
        if (field != nullptr) result = field->Get("Value");
    });
    return result;
}

std::string BytesToHex(const automation::Bytes& bytes) {
    // The same digits as HexPadded of width 2, without a text for each byte: identifiers are read by the hundred
    // thousand.
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string hex(bytes.items.size() * 2, '0');
    size_t at = 0;
    for (const uint8_t byte : bytes.items) {
        hex[at++] = digits[byte >> 4];
        hex[at++] = digits[byte & 15];
    }
    return hex;
}

std::string HexPadded(size_t width, uint32_t value) {
    return PadLeft(Hex(value), width, "0");
}

std::string PadLeft(std::string_view text, size_t width, std::string_view pad) {
    const size_t count = automation::CharacterCount(text);
    if (count > width) return std::string(text.substr(automation::OffsetOfCharacter(text, count - width)));
    const std::string_view filler = pad.substr(0, automation::OffsetOfCharacter(pad, 1));
    std::string padded;
    for (size_t i = count; i < width; ++i) padded += filler;
    return padded.append(text);
}

std::string Hex(uint32_t value) {
    char digits[8];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, 16).ptr;
    std::string text(digits, end);
    for (char& digit : text)
        if (digit >= 'a') digit = static_cast<char>(digit - 'a' + 'A');
    return text;
}

}  // namespace foldertree
