// LiteralText: the literal control's own readings of texts and values, each the plainest way there is.
#include "reference/LiteralText.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "automation/Error.h"
#include "reference/LiteralLetters.h"

namespace foldertree::reference {

using automation::Value;
using automation::VbError;

namespace {

[[noreturn]] void ThrowMismatch() {
    throw VbError(automation::errors::typeMismatch);
}
[[noreturn]] void ThrowOverflow() {
    throw VbError(automation::errors::overflow);
}

// Letters

/// The bytes of the letter that starts there; a byte that begins no letter stands for itself.
std::string LetterAt(const std::string& text, size_t at) {
    const auto byte = [&](size_t place) { return static_cast<unsigned char>(text[place]); };
    const size_t length = byte(at) >= 0xF0 ? 4 : byte(at) >= 0xE0 ? 3 : byte(at) >= 0xC0 ? 2 : 1;
    for (size_t place = at + 1; place < at + length; ++place)
        if (place >= text.size() || byte(place) < 0x80 || byte(place) >= 0xC0) return text.substr(at, 1);
    return text.substr(at, length);
}

using LetterMap = std::map<std::string, std::string>;

struct Letters {
    LetterMap smallOf;
    LetterMap capitalOf;
};

const Letters& AllLetters() {
    static const Letters letters = [] {
        Letters all;
        const auto pair = [&all](const std::string& capital, const std::string& small) {
            all.smallOf[capital] = small;
            all.capitalOf[small] = capital;
        };
        for (char letter = 'A'; letter <= 'Z'; ++letter)
            pair(std::string(1, letter), std::string(1, static_cast<char>(letter - 'A' + 'a')));
        for (const LetterRow& row : letterRows) {
            const std::string capitals = row.capitals;
            const std::string smalls = row.smalls;
            for (size_t atCapital = 0, atSmall = 0; atCapital < capitals.size();) {
                const std::string capital = LetterAt(capitals, atCapital);
                const std::string small = LetterAt(smalls, atSmall);
                pair(capital, small);
                atCapital += capital.size();
                atSmall += small.size();
            }
        }
        return all;
    }();
    return letters;
}

template <class Change>
std::string EachLetter(const std::string& text, Change&& change) {
    std::string result;
    for (size_t at = 0; at < text.size();) {
        const std::string letter = LetterAt(text, at);
        result += change(letter);
        at += letter.size();
    }
    return result;
}

std::string Partner(const LetterMap& letters, const std::string& letter) {
    const auto found = letters.find(letter);
    return found == letters.end() ? letter : found->second;
}

std::string Small(const std::string& letter) {
    return Partner(AllLetters().smallOf, letter);
}

bool IsPlain(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}
char PlainLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Numbers

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsDigit(const std::string& text, size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

bool IsSign(const std::string& text, size_t at) {
    return at < text.size() && (text[at] == '+' || text[at] == '-');
}

/// How many characters from the start make a number.
size_t LengthOfNumber(const std::string& text) {
    size_t at = IsSign(text, 0) ? 1 : 0;
    int digits = 0;
    for (; IsDigit(text, at); ++at) ++digits;
    if (at < text.size() && text[at] == '.') {
        ++at;
        for (; IsDigit(text, at); ++at) ++digits;
    }
    if (digits == 0) return 0;
    if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) return at;
    size_t exponent = at + 1;
    if (IsSign(text, exponent)) ++exponent;
    if (!IsDigit(text, exponent)) return at;
    while (IsDigit(text, exponent)) ++exponent;
    return exponent;
}

/// The C library reads it: huge numbers are infinite, tiny ones 0.
double ReadNumber(const std::string& text) {
    return std::strtod(text.substr(0, LengthOfNumber(text)).c_str(), nullptr);
}

int DigitValue(char c) {
    c = PlainLower(c);
    if (c >= '0' && c <= '9') return c - '0';
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : 99;
}

/// Digits of another base, behind their "&H" or "&O". What fits into 16 bits is a number of 16 bits with a sign, unless
/// an "&" closes it; what fits into 32 bits has its sign there. More than 64 bits are no number.
double ReadBase(const std::string& digits, int base) {
    uint64_t number = 0;
    size_t at = 0;
    for (; at < digits.size() && DigitValue(digits[at]) < base; ++at) {
        const auto digit = static_cast<uint64_t>(DigitValue(digits[at]));
        if (number > (UINT64_MAX - digit) / static_cast<uint64_t>(base)) return 0;
        number = number * static_cast<uint64_t>(base) + digit;
    }
    const bool isLong = at < digits.size() && digits[at] == '&';
    const auto value = static_cast<double>(number);
    if (number < 65536 && !isLong) return number < 32768 ? value : value - 65536;
    if (number < 4294967296) return number < 2147483648 ? value : value - 4294967296.0;
    return value;
}

std::string WithoutBlanksAround(const std::string& text) {
    size_t first = 0;
    size_t end = text.size();
    while (first < end && IsBlank(text[first])) ++first;
    while (end > first && IsBlank(text[end - 1])) --end;
    return text.substr(first, end - first);
}

[[gnu::format(printf, 1, 2)]] std::string Print(const char* format, ...) {
    char text[400];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    return text;
}

// Values

template <class T>
const T* As(const Value& value) {
    return std::get_if<T>(&value.Raw());
}

std::string CurrencyText(int64_t tenThousandths) {
    std::string digits = std::to_string(tenThousandths);
    const bool negative = digits[0] == '-';
    if (negative) digits.erase(0, 1);
    while (digits.size() < 5) digits.insert(0, "0");
    std::string text = digits.substr(0, digits.size() - 4) + "." + digits.substr(digits.size() - 4);
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    return (negative ? "-" : "") + text;
}

bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

/// Counted on from the first day that a date can have.
std::string DateText(double days) {
    double whole = std::trunc(days);
    long second = std::lround(std::fabs(days - whole) * 86400);
    if (second == 86400) {
        second = 0;
        whole += 1;
    }
    constexpr double firstDay = -657434;  // 1 January 100
    if (!(days > firstDay - 1 && days < 2958466)) ThrowOverflow();
    long left = static_cast<long>(whole - firstDay);
    int year = 100;
    for (; left >= (IsLeapYear(year) ? 366 : 365); ++year) left -= IsLeapYear(year) ? 366 : 365;
    const int lengths[] = {31, IsLeapYear(year) ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int month = 0;
    for (; left >= lengths[month]; ++month) left -= lengths[month];
    const std::string date = Print("%04d-%02d-%02ld", year, month + 1, left + 1);
    if (second == 0) return date;
    return date + Print(" %02ld:%02ld:%02ld", second / 3600, second / 60 % 60, second % 60);
}

}  // namespace

double NumberAtStart(const std::string& text) {
    if (SameText(text, "true")) return -1;
    std::string compact;
    for (const char c : text) {
        if (IsBlank(c)) continue;
        if (!IsPlain(c) || c < ' ') break;
        compact += c;
    }
    const std::string start = Lower(compact.substr(0, 2));
    if (start == "&h") return ReadBase(compact.substr(2), 16);
    if (start == "&o") return ReadBase(compact.substr(2), 8);
    for (char& c : compact)
        if (c == 'd' || c == 'D') c = 'e';
    return ReadNumber(compact);
}

bool IsNumber(const std::string& text) {
    const std::string trimmed = WithoutBlanksAround(text);
    return !trimmed.empty() && LengthOfNumber(trimmed) == trimmed.size();
}

std::string NumberText(double number, int digits) {
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number < 0 ? "-Infinity" : "Infinity";
    if (number == 0) return "0";
    // What is to be seen, and with an exponent if need be.
    const std::string scientific = Print("%.*e", digits - 1, number);
    const double seen = std::strtod(scientific.c_str(), nullptr);
    const size_t mark = scientific.find('e');
    const int exponent = std::atoi(scientific.c_str() + mark + 1);
    if (exponent < digits)
        for (int places = 0; places <= digits; ++places)
            if (const std::string plain = Print("%.*f", places, seen); std::strtod(plain.c_str(), nullptr) == seen)
                return plain;
    std::string mantissa = scientific.substr(0, mark);
    while (mantissa.back() == '0') mantissa.pop_back();
    if (mantissa.back() == '.') mantissa.pop_back();
    return mantissa + Print("E%+03d", exponent);
}

std::string HexText(uint32_t value) {
    return Print("%X", value);
}

int32_t WholeNumber(double number) {
    double whole = std::floor(number);
    const double fraction = number - whole;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2) != 0)) whole += 1;
    if (!(whole >= -2147483648.0 && whole <= 2147483647.0)) ThrowOverflow();
    return static_cast<int32_t>(whole);
}

std::string Lower(const std::string& text) {
    return EachLetter(text, Small);
}

std::string OtherCase(const std::string& text) {
    return EachLetter(text, [](const std::string& letter) {
        const std::string small = Small(letter);
        return small != letter ? small : Partner(AllLetters().capitalOf, letter);
    });
}

std::string WithoutFirst(const std::string& text, int letters) {
    size_t at = 0;
    for (; letters > 0 && at < text.size(); --letters) at += LetterAt(text, at).size();
    return text.substr(at);
}

bool SameText(const std::string& a, const std::string& b) {
    size_t atA = 0;
    size_t atB = 0;
    while (atA < a.size() && atB < b.size()) {
        if (IsPlain(a[atA]) && IsPlain(b[atB])) {
            if (PlainLower(a[atA++]) != PlainLower(b[atB++])) return false;
            continue;
        }
        const std::string letterA = LetterAt(a, atA);
        const std::string letterB = LetterAt(b, atB);
        if (letterA != letterB && Small(letterA) != Small(letterB)) return false;
        atA += letterA.size();
        atB += letterB.size();
    }
    return atA == a.size() && atB == b.size();
}

std::string TextOf(const Value& value) {
    if (value.IsEmpty()) return "";
    if (const auto* text = As<std::string>(value)) return *text;
    if (const auto* flag = As<bool>(value)) return *flag ? "True" : "False";
    if (const auto* number = As<uint8_t>(value)) return std::to_string(*number);
    if (const auto* number = As<int16_t>(value)) return std::to_string(*number);
    if (const auto* number = As<int32_t>(value)) return std::to_string(*number);
    if (const auto* number = As<int64_t>(value)) return std::to_string(*number);
    if (const auto* number = As<float>(value)) return NumberText(static_cast<double>(*number), 7);
    if (const auto* number = As<double>(value)) return NumberText(*number, 15);
    if (const auto* number = As<automation::Currency>(value)) return CurrencyText(number->tenThousandths);
    if (const auto* date = As<automation::Date>(value)) return DateText(date->days);
    ThrowMismatch();
}

double DoubleOf(const Value& value) {
    if (value.IsEmpty()) return 0;
    if (const auto* flag = As<bool>(value)) return *flag ? -1 : 0;
    if (const auto* number = As<uint8_t>(value)) return *number;
    if (const auto* number = As<int16_t>(value)) return *number;
    if (const auto* number = As<int32_t>(value)) return *number;
    if (const auto* number = As<int64_t>(value)) return static_cast<double>(*number);
    if (const auto* number = As<float>(value)) return static_cast<double>(*number);
    if (const auto* number = As<double>(value)) return *number;
    if (const auto* number = As<automation::Currency>(value))
        return static_cast<double>(number->tenThousandths) / 10000;
    if (const auto* date = As<automation::Date>(value)) return date->days;
    const auto* text = As<std::string>(value);
    if (text == nullptr) ThrowMismatch();
    if (SameText(*text, "true")) return -1;
    if (SameText(*text, "false")) return 0;
    if (!IsNumber(*text)) ThrowMismatch();
    const double number = ReadNumber(WithoutBlanksAround(*text));
    if (std::isinf(number)) ThrowOverflow();
    return number;
}

int32_t LongOf(const Value& value) {
    return WholeNumber(DoubleOf(value));
}

bool BooleanOf(const Value& value) {
    return DoubleOf(value) != 0;
}

std::string KindOf(const Value& value) {
    if (value.IsEmpty()) return "Empty";
    if (value.IsNull()) return "Null";
    if (value.IsMissing() || value.IsError()) return "Error";
    if (value.IsText()) return "String";
    if (const auto* object = As<automation::ObjectRef>(value)) return *object == nullptr ? "Nothing" : "Object";
    if (value.AsArray() != nullptr) return "Variant()";
    if (value.AsBytes() != nullptr) return "Byte()";
    if (As<bool>(value)) return "Boolean";
    if (As<uint8_t>(value)) return "Byte";
    if (As<int16_t>(value)) return "Integer";
    if (As<int32_t>(value)) return "Long";
    if (As<int64_t>(value)) return "LongLong";
    if (As<float>(value)) return "Single";
    if (As<double>(value)) return "Double";
    return As<automation::Currency>(value) ? "Currency" : "Date";
}

}  // namespace foldertree::reference
