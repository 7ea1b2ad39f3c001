// LiteralText: the plain readings of texts that the literal control needs.
#include "reference/LiteralText.h"

#include <cmath>
#include <cstdio>

#include "automation/Error.h"

namespace foldertree::reference {
namespace {

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

}  // namespace

double NumberAtStart(const std::string& text) {
    if (Lower(text) == "true") return -1;
    std::string compact;
    for (const char c : text)
        if (c != ' ') compact += c;
    const size_t length = LengthOfNumber(compact);
    return length == 0 ? 0 : std::stod(compact.substr(0, length));
}

bool IsNumber(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return false;
    const std::string trimmed = text.substr(first, text.find_last_not_of(' ') - first + 1);
    return LengthOfNumber(trimmed) == trimmed.size();
}

std::string Lower(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

bool SameText(const std::string& a, const std::string& b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    if (a.size() != b.size()) return false;
    for (size_t at = 0; at < a.size(); ++at)
        if (lower(a[at]) != lower(b[at])) return false;
    return true;
}

std::string HexText(uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof text, "%X", value);
    return text;
}

int32_t WholeNumber(double number) {
    const double whole = std::nearbyint(number);
    if (!(whole >= -2147483648.0 && whole <= 2147483647.0)) throw automation::VbError(automation::errors::overflow);
    return static_cast<int32_t>(whole);
}

}  // namespace foldertree::reference
