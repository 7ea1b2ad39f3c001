// modApplication: small helpers that the store readers share.
#include "common/modApplication.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

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
    static constexpr auto pairs = [] {
        constexpr std::string_view digits = "0123456789ABCDEF";
        std::array<std::array<char, 2>, 256> all{};
        for (size_t byte = 0; byte < all.size(); ++byte) all[byte] = {digits[byte >> 4], digits[byte & 15]};
        return all;
    }();
    std::string hex(bytes.items.size() * 2, '0');
    char* at = hex.data();
    for (const uint8_t byte : bytes.items) at = std::copy_n(pairs[byte].data(), 2, at);
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
