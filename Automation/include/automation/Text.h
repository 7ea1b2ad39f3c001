// Text: what the projects need of UTF-8: characters, case folding, and the numbers that Visual Basic reads in a text.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace automation {

/// Decodes the character that starts at `position` and moves `position` behind it. A byte that starts no well-formed
/// character counts as one character of its own (U+FFFD is returned). Three-byte lone surrogates are characters.
char32_t NextCharacter(std::string_view text, size_t& position);
void AppendCharacter(std::string& text, char32_t character);

/// Number of characters, not bytes.
size_t CharacterCount(std::string_view text);
/// The byte offset at which the character number `count` (0-based) starts; the text's size when it has fewer.
size_t OffsetOfCharacter(std::string_view text, size_t count);

/// The small letter for A-Z; any other byte as it is. For names and words that are ASCII alone.
constexpr char FoldAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
std::string FoldAscii(std::string_view text);

/// Simple case folding: A-Z, and the one-to-one pairs of the Latin, Greek, Cyrillic, Armenian and full-width letters.
char32_t FoldCharacter(char32_t character);
std::string FoldCase(std::string_view text);
/// Equal without regard to case, in the sense of FoldCase.
bool EqualNoCase(std::string_view a, std::string_view b);

/// The small letter without its accents: what FoldCharacter gives, and of the Latin, Greek and Cyrillic letters the one
/// that carries the accents or the stroke. 0 for an accent that is a character of its own.
char32_t BaseLetter(char32_t character);
/// Whether the text begins with the letters of `start`, without regard to case and accents. Reads no further than to
/// the first letter that differs.
bool StartsWithBaseLetters(std::string_view text, std::string_view start);

/// Calls `put(char16_t)` for each unit of the text's UTF-16.
template <class Put>
void ForEachUtf16Unit(std::string_view text, Put&& put) {
    for (size_t position = 0; position < text.size();) {
        const char32_t character = NextCharacter(text, position);
        if (character < 0x10000) {
            put(static_cast<char16_t>(character));
        } else {
            put(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
            put(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
        }
    }
}
/// UTF-16 and back. Lone surrogates survive both ways.
std::u16string ToUtf16(std::string_view text);
std::string FromUtf16(std::u16string_view text);

/// The leading number of a text as Visual Basic's Val reads it: blanks are passed over, "&H" is hexadecimal, no locale;
/// 0 when the text starts with no number.
double Val(std::string_view text);
/// The number that the whole text is: a sign, digits, one point, an exponent, blanks around; nothing when it is not
/// one.
std::optional<double> ParseNumber(std::string_view text);
/// A number as Visual Basic's CStr writes it (no exponent for whole numbers of up to 15 digits).
std::string NumberText(double number);
/// Rounds halves to even; throws Error 6 beyond 32 bits.
int32_t RoundToLong(double number);

}  // namespace automation
