// Number: reading and writing of numbers as text.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "automation/Error.h"
#include "automation/Text.h"

namespace automation {
namespace {

TEST(Number, ValReadsTheLeadingNumber) {
    EXPECT_EQ(Val("12 apples"), 12);
    EXPECT_EQ(Val("-1"), -1);
    EXPECT_EQ(Val(" +3.5e2x"), 350);
    EXPECT_EQ(Val(".25."), 0.25);
    EXPECT_EQ(Val("1e"), 1);
    EXPECT_EQ(Val("1d3"), 1000);
    EXPECT_EQ(Val("1,5"), 1);
}

TEST(Number, ValPassesOverBlanks) {
    EXPECT_EQ(Val("  1 6 \t1\n5"), 1615);
    EXPECT_EQ(Val("- 7"), -7);
}

TEST(Number, ValOfATextThatStartsWithNoNumberIsZero) {
    for (const char* text : {"", " ", "True", "x1", "-", ".", "e5", "&", "&H", "&Hxyz", "٣"})
        EXPECT_EQ(Val(text), 0) << text;
}

TEST(Number, ValReadsHexadecimalAndOctal) {
    EXPECT_EQ(Val("&H1f"), 31);
    EXPECT_EQ(Val("&O17"), 15);
    EXPECT_EQ(Val("&HFFFF"), -1);
    EXPECT_EQ(Val("&HFFFF&"), 65535);
    EXPECT_EQ(Val("&H80000005"), -2147483643.0);
    EXPECT_EQ(Val("&HDE"), 222);
}

TEST(Number, AWholeTextIsANumberOrNothing) {
    EXPECT_EQ(ParseNumber(" -12.50 "), -12.5);
    EXPECT_EQ(ParseNumber("+1e-2"), 0.01);
    EXPECT_EQ(ParseNumber("5."), 5);
    EXPECT_EQ(ParseNumber(".5"), 0.5);
    for (const char* text : {"", "  ", "1x", "1 2", "1,5", "1e", "--1", ".", "+", "&H10", "inf", "nan", "0x10", "1..2"})
        EXPECT_FALSE(ParseNumber(text).has_value()) << text;
}

TEST(Number, NumbersBeyondTheRangeOfADoubleAreInfiniteOrZero) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(ParseNumber("1e999"), infinity);
    EXPECT_EQ(ParseNumber("-0.001e999"), -infinity);
    EXPECT_EQ(ParseNumber(std::string(400, '9')), infinity);
    EXPECT_EQ(ParseNumber("1e-999"), 0);
    EXPECT_EQ(ParseNumber("0." + std::string(400, '0') + "1"), 0);
}

TEST(Number, DigitsAndExponentTogetherDecideWhatIsBeyondTheRange) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::string zeros(500, '0');
    EXPECT_EQ(ParseNumber("1" + zeros + "e-1"), infinity);
    EXPECT_EQ(ParseNumber("0." + zeros + "1e+1"), 0);
    EXPECT_EQ(ParseNumber("." + zeros + "1"), 0);
    EXPECT_EQ(ParseNumber("1e-99999999999999999999"), 0);
    EXPECT_EQ(ParseNumber("1e+99999999999999999999"), infinity);
}

TEST(Number, NumbersAreWrittenWithFifteenDigits) {
    EXPECT_EQ(NumberText(0), "0");
    EXPECT_EQ(NumberText(-0.0), "0");
    EXPECT_EQ(NumberText(0.1 + 0.2), "0.3");
    EXPECT_EQ(NumberText(-2.5), "-2.5");
    EXPECT_EQ(NumberText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(NumberText(123456789012345), "123456789012345");
    EXPECT_EQ(NumberText(100), "100");
}

TEST(Number, LongNumbersAreWrittenWithAnExponent) {
    EXPECT_EQ(NumberText(1e15), "1E+15");
    EXPECT_EQ(NumberText(-1.5e300), "-1.5E+300");
    EXPECT_EQ(NumberText(1.0 / 30), "3.33333333333333E-02");
    EXPECT_EQ(NumberText(0.00001), "0.00001");
    EXPECT_EQ(NumberText(1e-20), "1E-20");
}

TEST(Number, HalvesAreRoundedToEven) {
    EXPECT_EQ(RoundToLong(0.5), 0);
    EXPECT_EQ(RoundToLong(1.5), 2);
    EXPECT_EQ(RoundToLong(2.5), 2);
    EXPECT_EQ(RoundToLong(-2.5), -2);
    EXPECT_EQ(RoundToLong(2147483647.4), 2147483647);
    EXPECT_EQ(RoundToLong(-2147483648.5), std::numeric_limits<int32_t>::min());
}

TEST(Number, RoundingBeyond32BitsIsAnOverflow) {
    for (const double number : {2147483647.5, -2147483649.0, 1e300, std::nan("")}) {
        try {
            RoundToLong(number);
            FAIL() << number;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), errors::overflow);
        }
    }
}

}  // namespace
}  // namespace automation
