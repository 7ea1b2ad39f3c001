// AccentTest: letters without their accents, held against what the system knows of Unicode.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>

#include "automation/Text.h"

namespace automation {
namespace {

/// The character as a letter and its accents; itself where it has none.
std::wstring Decomposed(wchar_t character) {
    wchar_t parts[16];
    const int count = FoldStringW(MAP_COMPOSITE, &character, 1, parts, 16);
    return {parts, static_cast<size_t>(std::max(count, 0))};
}

bool IsAccent(wchar_t character) {
    return character >= 0x0300 && character <= 0x036F;
}

bool IsLetter(wchar_t character) {
    return IsCharAlphaW(character) != FALSE;
}

/// Blocks of the Latin, Greek and Cyrillic letters.
constexpr std::pair<wchar_t, wchar_t> blocks[] = {
    {0x00C0, 0x024F}, {0x0370, 0x0481}, {0x048A, 0x052F}, {0x1E00, 0x1FFF}};

TEST(Accents, AreTakenOffAsTheSystemTakesThemOff) {
    int withAccents = 0;
    for (const auto& [first, last] : blocks)
        for (wchar_t character = first; character <= last; ++character) {
            const std::wstring parts = Decomposed(character);
            if (parts.size() < 2 || !IsLetter(parts[0]) || !std::all_of(parts.begin() + 1, parts.end(), IsAccent))
                continue;
            EXPECT_EQ(BaseLetter(character), BaseLetter(parts[0])) << std::hex << static_cast<int>(character);
            ++withAccents;
        }
    EXPECT_GT(withAccents, 700);
}

TEST(Accents, LettersThatTheSystemLeavesWholeAreLeftButForTheStrokesThatPeopleDoNotType) {
    const std::u32string strokes = U"\u00F8\u0111\u0127\u0131\u0142\u0167\u03C2";
    for (const auto& [first, last] : blocks)
        for (wchar_t character = first; character <= last; ++character) {
            const char32_t folded = FoldCharacter(character);
            if (Decomposed(character).size() > 1 || strokes.find(folded) != std::u32string::npos) continue;
            EXPECT_EQ(BaseLetter(character), folded) << std::hex << static_cast<int>(character);
        }
    for (const char32_t stroke : strokes) EXPECT_NE(BaseLetter(stroke), stroke);
}

}  // namespace
}  // namespace automation
