// ModifiedUtf7: decoding.
#include "model/ModifiedUtf7.h"

#include <cstdint>

#include "automation/Text.h"

namespace localstores {
namespace {

int Base64Digit(char c) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+,";
    const size_t found = digits.find(c);
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

/// The UTF-16 units of one run between "&" and "-"; what is left over must be fewer than six zero bits.
std::optional<std::u16string> DecodeRun(std::string_view run) {
    std::u16string units;
    uint32_t bits = 0;
    int count = 0;
    for (const char c : run) {
        const int digit = Base64Digit(c);
        if (digit < 0) return std::nullopt;
        bits = (bits << 6 | static_cast<uint32_t>(digit)) & 0x3FFFFF;
        count += 6;
        if (count < 16) continue;
        count -= 16;
        units += static_cast<char16_t>(bits >> count & 0xFFFF);
    }
    const bool restIsZero = (bits & ((1u << count) - 1)) == 0;
    if (count >= 6 || !restIsZero) return std::nullopt;
    return units;
}

}  // namespace

std::optional<std::string> FromModifiedUtf7(std::string_view text) {
    std::string name;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c < 0x20 || c > 0x7E) return std::nullopt;
        if (c != '&') {
            name += c;
            continue;
        }
        const size_t end = text.find('-', i);
        if (end == std::string_view::npos) return std::nullopt;
        const std::string_view run = text.substr(i + 1, end - i - 1);
        const auto units = DecodeRun(run);
        if (!units) return std::nullopt;
        name += run.empty() ? "&" : automation::FromUtf16(*units);
        i = end;
    }
    return name;
}

}  // namespace localstores
