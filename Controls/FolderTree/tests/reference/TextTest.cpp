// TextTest: the literal control's own readings of texts and values, alone and against those of the control that ships.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "automation/Error.h"
#include "automation/Text.h"
#include "reference/LiteralLetters.h"
#include "reference/LiteralText.h"
#include "reference/Texts.h"
#include "rows/TextPool.h"

namespace foldertree::reference {
namespace {

using automation::Value;

const std::string loneHigh = "\xED\xA0\xBD";

/// What the reading gives, or the number of its error.
template <class Read>
std::string Told(Read&& read) {
    try {
        return read();
    } catch (const automation::Error& error) {
        return "Error " + std::to_string(error.Number());
    }
}

TEST(LiteralText, CapitalsAndSmallLettersStandInTheSameOrder) {
    EXPECT_EQ(Lower("ABCXYZ[\\]^_`09"), "abcxyz[\\]^_`09");
    EXPECT_EQ(Lower("ÀÖØÞŸŽ"), "àöøþÿž");
    EXPECT_EQ(Lower("ΑΣΩΆΏ"), "ασωάώ");
    EXPECT_EQ(Lower("АЯЁЎѢ"), "аяёўѣ");
    EXPECT_EQ(Lower("ԱՖ"), "աֆ");
    EXPECT_EQ(Lower("ＡＺ"), "ａｚ");
    size_t pairs = 0;
    for (const LetterRow& row : letterRows) {
        EXPECT_EQ(automation::CharacterCount(row.capitals), automation::CharacterCount(row.smalls)) << row.capitals;
        EXPECT_EQ(Lower(row.capitals), row.smalls);
        EXPECT_EQ(OtherCase(row.smalls), row.capitals);
        pairs += automation::CharacterCount(row.capitals);
    }
    EXPECT_EQ(pairs, 793u);
}

TEST(LiteralText, WhatHasNoPartnerKeepsItsForm) {
    const std::string others = "ßſςµ×÷ıİ日本אב😀" + loneHigh + "\xFF\xC3";
    EXPECT_EQ(Lower(others), others);
    EXPECT_EQ(OtherCase("Straße Ω"), "sTRAßE ω");
}

TEST(LiteralText, LettersAreTakenFromTheStartWhole) {
    EXPECT_EQ(WithoutFirst("00AB", 2), "AB");
    EXPECT_EQ(WithoutFirst("é😀z", 2), "z");
    EXPECT_EQ(WithoutFirst(loneHigh, 2), "");
}

TEST(LiteralText, TextsAreTheSameInAnyLetterCase) {
    EXPECT_TRUE(SameText("", ""));
    EXPECT_TRUE(SameText("ÄRGER|00ef", "ärger|00EF"));
    EXPECT_TRUE(SameText("ⱥ1", "Ⱥ1"));  // letters of different length
    EXPECT_FALSE(SameText("a", "aa"));
    EXPECT_FALSE(SameText("ä", "äa"));
    EXPECT_FALSE(SameText("a", "ä"));
    EXPECT_FALSE(SameText("Σίσυφος", "Σίσυφοσ"));
    EXPECT_FALSE(SameText("ISTANBUL", "ıstanbul"));
    EXPECT_FALSE(SameText("\xFF", "\xFE"));
}

TEST(LiteralText, EveryLetterFoldsAsInTheControl) {
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        std::string letter;
        automation::AppendCharacter(letter, c);
        ASSERT_EQ(Lower(letter), automation::FoldCase(letter)) << std::hex << static_cast<uint32_t>(c);
    }
}

TEST(LiteralText, TextsCompareAsInTheControl) {
    std::mt19937 random(1);
    for (int each = 0; each < 20000; ++each) {
        std::string a = AnyText(static_cast<int>(random() % 1000)).substr(0, random() % 12);
        std::string b = random() % 2 ? OtherCase(a) : Lower(a);
        if (random() % 3 == 0) b += static_cast<char>(random());
        if (random() % 3 == 0 && !b.empty()) b[random() % b.size()] = static_cast<char>(random());
        ASSERT_EQ(SameText(a, b), automation::EqualNoCase(a, b)) << a << " and " << b;
        ASSERT_EQ(SameText(a, b), Lower(a) == Lower(b)) << a << " and " << b;
    }
}

TEST(LiteralText, NumbersAreReadFromTheStartOfACell) {
    EXPECT_EQ(NumberAtStart(""), 0);
    EXPECT_EQ(NumberAtStart(" - 1 2 . 5 kg"), -12.5);
    EXPECT_EQ(NumberAtStart("True"), -1);
    EXPECT_EQ(NumberAtStart("TRUE"), -1);
    EXPECT_EQ(NumberAtStart("False"), 0);
    EXPECT_EQ(NumberAtStart("1e2"), 100);
    EXPECT_EQ(NumberAtStart("1d2"), 100);
    EXPECT_EQ(NumberAtStart("1e"), 1);
    EXPECT_EQ(NumberAtStart("&HFF"), 255);
    EXPECT_EQ(NumberAtStart("&hFFFF"), -1);
    EXPECT_EQ(NumberAtStart("&HFFFF&"), 65535);
    EXPECT_EQ(NumberAtStart("&O17"), 15);
    EXPECT_EQ(NumberAtStart("\t1\r\n2"), 12);
    EXPECT_EQ(NumberAtStart("３"), 0);
    EXPECT_EQ(NumberAtStart("1½"), 1);
    EXPECT_EQ(NumberAtStart("1e400"), std::numeric_limits<double>::infinity());
}

TEST(LiteralText, AWholeTextIsANumberOrIsNot) {
    for (const char* text : {"1", " 3 ", "+.5", "5.", "-2", "1e1", "1E+10", "\t4\n", "1e400"})
        EXPECT_TRUE(IsNumber(text)) << text;
    for (const char* text : {"", " ", ".", "e1", "1 2", "1,5", "&H10", "1d2", "True", "３", "٣", "½", "1\xC2\xA0"})
        EXPECT_FALSE(IsNumber(text)) << text;
}

TEST(LiteralText, NumbersAreReadAsInTheControl) {
    std::vector<std::string> texts;
    for (int choice = 0; choice < typedTextCount; ++choice) texts.push_back(TypedText(choice));
    for (const char* text :
         {"&HFFFFFFFF", "&H80000000", "&H7FFFFFFFFFFFFFFF", "&HFFFFFFFFFFFFFFFFF", "&H8000", "& h 1 0", "&O", "&HG",
          "1e308", "1e309", "1e-308", "1e-324", "1e-325", "2.2250738585072014e-308"})
        texts.emplace_back(text);
    // Numbers beyond what a double holds, and such that only look so.
    const std::string zeros(500, '0');
    for (const std::string& text :
         {"1" + zeros, "1" + zeros + "e-1", "1" + zeros + "e-500", "0." + zeros + "1", "0." + zeros + "1e+1",
          "0." + zeros + "1e501", "." + zeros + "1e400", zeros + "1", "-1" + zeros + ".5e-2", zeros + "e999"})
        texts.push_back(text);
    std::mt19937 random(2);
    for (int each = 0; each < 30000; ++each) {
        std::string text;
        for (size_t length = random() % 12; length > 0; --length) text += "0123456789+-..eEdD& \tHO\xC3"[random() % 25];
        texts.push_back(text);
    }
    for (const std::string& text : texts) {
        const auto number = automation::ParseNumber(text);
        ASSERT_EQ(IsNumber(text), number.has_value()) << text;
        ASSERT_EQ(NumberAtStart(text), NumberOfText(text)) << text;
        const Value value(text);
        ASSERT_EQ(Told([&] { return NumberText(DoubleOf(value), 15); }),
                  Told([&] { return automation::NumberText(value.ToDouble()); }))
            << text;
    }
}

TEST(LiteralText, NumbersAreWrittenAsVisualBasicDoes) {
    EXPECT_EQ(NumberText(0, 15), "0");
    EXPECT_EQ(NumberText(-2.5, 15), "-2.5");
    EXPECT_EQ(NumberText(0.1, 15), "0.1");
    EXPECT_EQ(NumberText(0.00001, 15), "0.00001");
    EXPECT_EQ(NumberText(1.0 / 3, 15), "0.333333333333333");
    EXPECT_EQ(NumberText(1.0 / 3000, 15), "3.33333333333333E-04");
    EXPECT_EQ(NumberText(1e14, 15), "100000000000000");
    EXPECT_EQ(NumberText(1e15, 15), "1E+15");
    EXPECT_EQ(NumberText(static_cast<double>(0.1F), 7), "0.1");
    std::mt19937_64 random(3);
    for (int each = 0; each < 20000; ++each) {
        const double number = std::bit_cast<double>(random());
        const double small = static_cast<double>(static_cast<int64_t>(random() >> 20)) / 1e6;
        ASSERT_EQ(NumberText(number, 15), automation::NumberText(number));
        ASSERT_EQ(NumberText(small, 15), automation::NumberText(small));
    }
}

TEST(LiteralText, HalvesAreRoundedToEvenNumbers) {
    const double numbers[] = {0.5, 1.5, 2.5, -0.5, -1.5, 2.4999, 2147483647.4, -2147483648.5, 7};
    const int32_t whole[] = {0, 2, 2, 0, -2, 2, 2147483647, INT32_MIN, 7};
    for (size_t at = 0; at < std::size(numbers); ++at) EXPECT_EQ(WholeNumber(numbers[at]), whole[at]) << numbers[at];
    EXPECT_THROW(WholeNumber(2147483647.5), automation::Error);
    EXPECT_THROW(WholeNumber(std::nan("")), automation::Error);
}

TEST(LiteralText, ValuesAreConvertedAsInTheControl) {
    for (int choice = 0; choice < oddValueCount; ++choice) {
        const Value value = OddValue(choice);
        SCOPED_TRACE(std::to_string(choice) + ": " + KindOf(value));
        EXPECT_EQ(KindOf(value), value.TypeName());
        EXPECT_EQ(Told([&] { return TextOf(value); }), Told([&] { return value.ToText(); }));
        EXPECT_EQ(Told([&] { return std::to_string(LongOf(value)); }),
                  Told([&] { return std::to_string(value.ToLong()); }));
        EXPECT_EQ(Told([&] { return std::to_string(BooleanOf(value)); }),
                  Told([&] { return std::to_string(value.ToBoolean()); }));
        EXPECT_EQ(Told([&] { return NumberText(DoubleOf(value), 15); }),
                  Told([&] { return automation::NumberText(value.ToDouble()); }));
    }
    EXPECT_EQ(TextOf(true), "True");
    EXPECT_EQ(TextOf(7.5), "7.5");
    EXPECT_EQ(LongOf(" 2.5 "), 2);
    EXPECT_EQ(TextOf(automation::Currency{-12500}), "-1.25");
    EXPECT_EQ(TextOf(automation::Date{0.5}), "1899-12-30 12:00:00");
    EXPECT_EQ(TextOf(automation::Date{36585}), "2000-02-29");
}

}  // namespace
}  // namespace foldertree::reference
