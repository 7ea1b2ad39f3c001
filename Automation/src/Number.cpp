// Number: the numbers that Visual Basic reads in a text, and how it writes them. Never looks at the locale.
#include "Number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "automation/Error.h"
#include "automation/Text.h"

namespace automation {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view WithoutBlanksAround(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

size_t DigitsAt(std::string_view text, size_t position) {
    size_t count = 0;
    while (position + count < text.size() && IsDigit(text[position + count])) ++count;
    return count;
}

size_t SignAt(std::string_view text, size_t position) {
    return position < text.size() && (text[position] == '+' || text[position] == '-') ? 1 : 0;
}

/// The length of the number that the text starts with: sign, digits, one point, exponent; 0 when there is none.
size_t NumberLength(std::string_view text) {
    size_t end = SignAt(text, 0);
    size_t digits = DigitsAt(text, end);
    end += digits;
    if (end < text.size() && text[end] == '.') {
        const size_t fraction = DigitsAt(text, end + 1);
        digits += fraction;
        end += 1 + fraction;
    }
    if (digits == 0) return 0;
    if (end < text.size() && FoldAscii(text[end]) == 'e') {
        const size_t exponent = end + 1 + SignAt(text, end + 1);
        const size_t exponentDigits = DigitsAt(text, exponent);
        if (exponentDigits > 0) end = exponent + exponentDigits;
    }
    return end;
}

/// The exponent behind the mark, 0 without one; one of more digits than anybody counts is as good as that.
int64_t ExponentOf(std::string_view number) {
    const size_t mark = number.find_first_of("eE");
    if (mark == std::string_view::npos) return 0;
    const bool negative = number[mark + 1] == '-';
    number.remove_prefix(mark + 1 + SignAt(number, mark + 1));
    int64_t exponent = 0;
    constexpr int64_t limit = std::numeric_limits<int64_t>::max() / 2;
    if (std::from_chars(number.data(), number.data() + number.size(), exponent).ec != std::errc()) exponent = limit;
    exponent = std::min(exponent, limit);
    return negative ? -exponent : exponent;
}

/// Reads a text that NumberLength has measured. strtod looks at the locale for the decimal point, so it is handed a
/// whole number and an exponent; std::from_chars would bring a lot of code along.
double ReadNumber(std::string_view number) {
    const bool negative = number.front() == '-';
    number.remove_prefix(SignAt(number, 0));
    // More digits say no more of a double than that there are some.
    constexpr size_t mostDigits = 800;
    std::array<char, mostDigits + 32> text;
    size_t length = 0;
    int64_t exponent = ExponentOf(number);
    bool isFraction = false;
    bool hasMore = false;
    for (const char c : number.substr(0, number.find_first_of("eE"))) {
        if (c == '.') {
            isFraction = true;
            continue;
        }
        if (isFraction) --exponent;
        if (length == 0 && c == '0') continue;
        if (length < mostDigits) {
            text[length++] = c;
        } else {
            ++exponent;
            hasMore = hasMore || c != '0';
        }
    }
    if (hasMore) {
        text[length++] = '1';
        --exponent;
    }
    std::snprintf(text.data() + length, text.size() - length, "e%lld", static_cast<long long>(exponent));
    const double value = length > 0 ? std::strtod(text.data(), nullptr) : 0;
    return negative ? -value : value;
}

/// "&H…" or "&O…" behind the prefix, as Visual Basic reads it: up to 16 bits without a closing "&" it is an Integer, up
/// to 32 bits a Long, and so the highest bit is the sign.
double ReadRadix(std::string_view digits, int base) {
    uint64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    const bool isLong = result.ptr != digits.data() + digits.size() && *result.ptr == '&';
    if (value <= 0xFFFF && !isLong) return static_cast<int16_t>(static_cast<uint16_t>(value));
    if (value <= 0xFFFFFFFF) return static_cast<int32_t>(static_cast<uint32_t>(value));
    return static_cast<double>(value);
}

struct Digits {
    bool negative = false;
    std::string digits;  ///< significant ones, no zeros at the end, at least one
    int exponent = 0;    ///< of the first digit
};

Digits Significant(double number, int precision) {
    std::array<char, 64> buffer;
    // std::to_chars does the same with tables that take more room than all the rest of this library. Only the decimal
    // point depends on the locale here, and it is passed over.
    const int length = std::snprintf(buffer.data(), buffer.size(), "%.*e", precision - 1, std::fabs(number));
    const std::string_view text(buffer.data(), static_cast<size_t>(length));
    const size_t mark = text.find('e');
    Digits result;
    result.negative = number < 0;
    for (const char c : text.substr(0, mark))
        if (IsDigit(c)) result.digits.push_back(c);
    while (result.digits.size() > 1 && result.digits.back() == '0') result.digits.pop_back();
    const size_t exponent = mark + (text[mark + 1] == '+' ? 2 : 1);
    std::from_chars(text.data() + exponent, text.data() + text.size(), result.exponent);
    return result;
}

std::string Plain(const Digits& number) {
    std::string text = number.digits;
    if (number.exponent < 0) return "0." + std::string(static_cast<size_t>(-number.exponent) - 1, '0') + text;
    const size_t whole = static_cast<size_t>(number.exponent) + 1;
    if (text.size() <= whole) return text + std::string(whole - text.size(), '0');
    return text.insert(whole, ".");
}

std::string WithExponent(const Digits& number) {
    std::string text = number.digits;
    if (text.size() > 1) text.insert(1, ".");
    const std::string exponent = std::to_string(std::abs(number.exponent));
    return text + (number.exponent < 0 ? "E-" : "E+") + (exponent.size() < 2 ? "0" : "") + exponent;
}

}  // namespace

double Val(std::string_view text) {
    std::string compact;
    for (const char c : text) {
        if (IsBlank(c)) continue;
        if (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) >= 0x80) break;
        compact.push_back(FoldAscii(c) == 'd' && (compact.empty() || compact[0] != '&') ? 'E' : c);
    }
    if (compact.size() > 2 && compact[0] == '&' && FoldAscii(compact[1]) == 'h')
        return ReadRadix(std::string_view(compact).substr(2), 16);
    if (compact.size() > 2 && compact[0] == '&' && FoldAscii(compact[1]) == 'o')
        return ReadRadix(std::string_view(compact).substr(2), 8);
    const size_t length = NumberLength(compact);
    return length == 0 ? 0.0 : ReadNumber(std::string_view(compact).substr(0, length));
}

std::optional<double> ParseNumber(std::string_view text) {
    text = WithoutBlanksAround(text);
    if (text.empty() || NumberLength(text) != text.size()) return std::nullopt;
    return ReadNumber(text);
}

std::string NumberText(double number, int precision) {
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number < 0 ? "-Infinity" : "Infinity";
    if (number == 0) return "0";
    const Digits digits = Significant(number, precision);
    // A plain number needs no more places before or behind the point than there are significant digits.
    const int fraction = static_cast<int>(digits.digits.size()) - 1 - digits.exponent;
    const bool plain = digits.exponent < precision && fraction <= precision;
    return (digits.negative ? "-" : "") + (plain ? Plain(digits) : WithExponent(digits));
}

std::string NumberText(double number) {
    return NumberText(number, 15);
}

int32_t RoundToLong(double number) {
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<int32_t>::min() && rounded <= std::numeric_limits<int32_t>::max()))
        throw VbError(errors::overflow);
    return static_cast<int32_t>(rounded);
}

}  // namespace automation
