// Text: characters, folding and UTF-16.
#include "automation/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace automation {
namespace {

const std::string loneHigh = "\xED\xA0\xBD";  // U+D83D
const std::string loneLow = "\xED\xB8\x80";   // U+DE00
const std::string smiley = "\xF0\x9F\x98\x80";

TEST(Text, CharactersOfEveryLengthAreDecodedAndAppended) {
    const std::string text = "a\xC3\xA9\xE2\x82\xAC" + smiley + loneHigh;
    std::string copy;
    std::u32string characters;
    for (size_t position = 0; position < text.size();) {
        characters.push_back(NextCharacter(text, position));
        AppendCharacter(copy, characters.back());
    }
    EXPECT_EQ(characters, (std::u32string{'a', 0xE9, 0x20AC, 0x1F600, 0xD83D}));
    EXPECT_EQ(copy, text);
}

TEST(Text, ABadByteIsOneCharacterOfItsOwn) {
    const std::string bad[] = {"\x80",         "\xC3", "\xC0\xAF", "\xE2\x82", "\xF8", "\xF4\x90\x80\x80",
                               "\xE0\x80\x80", "\xFF"};
    for (const std::string& text : bad) {
        size_t position = 0;
        EXPECT_EQ(NextCharacter(text, position), 0xFFFDu);
        EXPECT_EQ(position, 1u);
    }
    EXPECT_EQ(CharacterCount("\xE2\x82"
                             "x"),
              3u);
}

TEST(Text, ACharacterBeyondUnicodeIsAppendedAsTheReplacement) {
    std::string text;
    AppendCharacter(text, 0x110000);
    EXPECT_EQ(text, "\xEF\xBF\xBD");
}

TEST(Text, CharactersAreCountedNotBytes) {
    EXPECT_EQ(CharacterCount(""), 0u);
    EXPECT_EQ(CharacterCount("\xC3\xA4" + smiley + "b"), 3u);
    EXPECT_EQ(CharacterCount(std::string("a\0b", 3)), 3u);
}

TEST(Text, TheOffsetOfACharacterStopsAtTheEnd) {
    const std::string text = "\xC3\xA4" + smiley + "b";
    EXPECT_EQ(OffsetOfCharacter(text, 0), 0u);
    EXPECT_EQ(OffsetOfCharacter(text, 1), 2u);
    EXPECT_EQ(OffsetOfCharacter(text, 2), 6u);
    EXPECT_EQ(OffsetOfCharacter(text, 3), 7u);
    EXPECT_EQ(OffsetOfCharacter(text, 99), 7u);
}

TEST(Text, AlphabetsFoldToTheirSmallLetters) {
    EXPECT_EQ(FoldCase("ABCXYZ [\\]^_ 0"), "abcxyz [\\]^_ 0");
    EXPECT_EQ(FoldCase("ÀÉÎÕÜÞŸŠŽĞŁ"), "àéîõüþÿšžğł");
    EXPECT_EQ(FoldCase("ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΆΈΉΊΌΎΏΪΫ"), "αβγδεζηθικλμνξοπρστυφχψωάέήίόύώϊϋ");
    EXPECT_EQ(FoldCase("АБВГДЕЁЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЂЃЄЇЉЎҐӘ"), "абвгдеёжзийклмнопрстуфхцчшщъыьэюяђѓєїљўґә");
    EXPECT_EQ(FoldCase("ԱԲԳՖ"), "աբգֆ");
    EXPECT_EQ(FoldCase("ＡＭＺ"), "ａｍｚ");
    EXPECT_EQ(FoldCase("ẠẾỲỸ"), "ạếỳỹ");
}

TEST(Text, FoldingOfAsciiLeavesOtherScriptsAlone) {
    EXPECT_EQ(FoldAscii("AZ[az@ ÄЯ"), "az[az@ ÄЯ");
    for (int byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        EXPECT_EQ(FoldAscii(character), byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : character);
    }
}

TEST(Text, LettersOfTheLaterBlocksFoldAsWell) {
    EXPECT_EQ(FoldCase("ⱠⱢⱯⱾ ꜢꝨꝽꞤꞪꞳꟄ"), "ⱡɫɐȿ ꜣꝩᵹꞥɦꭓꞔ");
    EXPECT_EQ(FoldCase("ꙀꙊꙬꚀꚚ"), "ꙁꙋꙭꚁꚛ");
    EXPECT_TRUE(EqualNoCase("\xE2\xB1\xAF", "\xC9\x90"));
}

TEST(Text, LettersWithoutAPartnerStayAsTheyAre) {
    const std::string others = "ßſςµ×÷ıİ日本אב" + smiley + loneHigh + loneLow + "\xFF\x80";
    EXPECT_EQ(FoldCase(others), others);
}

TEST(Text, FoldingTwiceChangesNothingMoreAndJoinsNoTwoCapitals) {
    std::u32string capitalOf(0x10000, 0);
    for (char32_t c = 0; c < 0x10000; ++c) {
        const char32_t folded = FoldCharacter(c);
        ASSERT_EQ(FoldCharacter(folded), folded) << std::hex << static_cast<uint32_t>(c);
        if (folded == c) continue;
        ASSERT_EQ(capitalOf[folded], 0u) << std::hex << static_cast<uint32_t>(c);
        capitalOf[folded] = c;
    }
}

std::string BaseLetters(std::string_view text) {
    std::string letters;
    for (size_t position = 0; position < text.size();)
        if (const char32_t letter = BaseLetter(NextCharacter(text, position))) AppendCharacter(letters, letter);
    return letters;
}

TEST(Text, ALetterWithoutItsAccentIsTheOneThatCarriesIt) {
    EXPECT_EQ(BaseLetters("ÀÉÎÕÜŸŠŽĞŁØĐ çñåőțấằ"), "aeiouyszglod cnaotaa");
    EXPECT_EQ(BaseLetters("ΆΈΐΰς ᾳἈὖ"), "αειυσ ααυ");
    EXPECT_EQ(BaseLetters("ЁЙЇЎ"), "еиіу");
    EXPECT_EQ(BaseLetters("İıI"), "iii");
    EXPECT_EQ(BaseLetters("e\xCC\x81x"), "ex") << "an accent that follows its letter";
}

TEST(Text, CharactersThatCarryNoAccentAreTheirSmallLetters) {
    const std::string others = "ßæœþð 日本がא" + smiley + loneHigh;
    EXPECT_EQ(BaseLetters(others), others);
    EXPECT_EQ(BaseLetters("AZ az 09_[#"), "az az 09_[#");
}

TEST(Text, ABaseLetterHasNoFurtherOne) {
    for (char32_t c = 1; c < 0x10000; ++c) {
        const char32_t letter = BaseLetter(c);
        ASSERT_EQ(BaseLetter(letter), letter) << std::hex << static_cast<uint32_t>(c);
        ASSERT_EQ(BaseLetter(FoldCharacter(c)), letter) << std::hex << static_cast<uint32_t>(c);
    }
}

TEST(Text, AStartIsFoundWithoutRegardToCaseAndAccents) {
    EXPECT_TRUE(StartsWithBaseLetters("Élèves", "ele"));
    EXPECT_TRUE(StartsWithBaseLetters("eleves", "ÉLÈ"));
    EXPECT_TRUE(StartsWithBaseLetters("E\xCC\x81lan", "él"));
    EXPECT_TRUE(StartsWithBaseLetters("Inbox", "inbox"));
    EXPECT_TRUE(StartsWithBaseLetters("Inbox", ""));
    EXPECT_FALSE(StartsWithBaseLetters("Inbo", "inbox"));
    EXPECT_FALSE(StartsWithBaseLetters("", "i"));
    EXPECT_FALSE(StartsWithBaseLetters("An Inbox", "inbox"));
}

TEST(Text, CaseIsPassedOverWhenTextsAreCompared) {
    EXPECT_TRUE(EqualNoCase("", ""));
    EXPECT_TRUE(EqualNoCase("Straße ÄÖ", "sTRAßE äö"));
    EXPECT_TRUE(EqualNoCase("\xC8\xBA", "\xE2\xB1\xA5"));  // a pair whose forms differ in length
    EXPECT_TRUE(EqualNoCase(loneHigh + "\xFF", loneHigh + "\xFF"));
    EXPECT_FALSE(EqualNoCase("a", "ab"));
    EXPECT_FALSE(EqualNoCase("ab", "a"));
    EXPECT_FALSE(EqualNoCase("\xFE", "\xFF"));
    EXPECT_FALSE(EqualNoCase("\xFF", "\xEF\xBF\xBD"));
    EXPECT_FALSE(EqualNoCase("a", "ä"));
    EXPECT_FALSE(EqualNoCase("[", "{"));
}

TEST(Text, Utf16ComesBackUnchanged) {
    const std::string texts[] = {
        "", "plain", "é€" + smiley, loneHigh, loneLow + "x" + loneHigh, std::string("a\0b", 3)};
    for (const std::string& text : texts) EXPECT_EQ(FromUtf16(ToUtf16(text)), text);
    std::u16string every;
    for (uint32_t unit = 0; unit < 0x10000; ++unit) every.push_back(static_cast<char16_t>(unit));
    EXPECT_EQ(ToUtf16(FromUtf16(every)), every);
    const std::u16string backwards(every.rbegin(), every.rend());
    EXPECT_EQ(ToUtf16(FromUtf16(backwards)), backwards);
}

TEST(Text, APairOfSurrogatesIsOneCharacter) {
    EXPECT_EQ(ToUtf16(smiley), (std::u16string{0xD83D, 0xDE00}));
    EXPECT_EQ(FromUtf16(std::u16string{0xD83D, 0xDE00}), smiley);
    EXPECT_EQ(FromUtf16(std::u16string{0xDE00, 0xD83D}), loneLow + loneHigh);
}

TEST(Text, BadBytesBecomeReplacementsInUtf16) {
    EXPECT_EQ(ToUtf16("a\xFF"), (std::u16string{'a', 0xFFFD}));
}

}  // namespace
}  // namespace automation
