// ContrastTest: the contrast of colours, and text colours that can be read on any ground.
#include "rows/Contrast.h"

#include <gtest/gtest.h>

namespace foldertree {
namespace {

constexpr Rgb black{0, 0, 0};
constexpr Rgb white{255, 255, 255};

TEST(Contrast, IsThatOfTheWebsGuidelines) {
    // The ratios that accessibility checkers print for these well-known pairs.
    EXPECT_DOUBLE_EQ(Contrast(black, white), 21);
    EXPECT_DOUBLE_EQ(Contrast(white, white), 1);
    EXPECT_NEAR(Contrast({0x77, 0x77, 0x77}, white), 4.48, 0.005);
    EXPECT_NEAR(Contrast({0x76, 0x76, 0x76}, white), 4.54, 0.005);
    EXPECT_NEAR(Contrast({255, 0, 0}, white), 4.00, 0.005);
    EXPECT_NEAR(Contrast({0, 0, 255}, white), 8.59, 0.005);
    EXPECT_NEAR(Contrast(white, {255, 255, 0}), 1.07, 0.005);
}

TEST(Contrast, AColourThatCanBeReadStaysAsItIs) {
    EXPECT_EQ(ReadableOn({255, 255, 0}, black), black);
    EXPECT_EQ(ReadableOn(white, {0x76, 0x76, 0x76}), (Rgb{0x76, 0x76, 0x76}));
    EXPECT_EQ(ReadableOn(black, {0x80, 0x80, 0x80}), (Rgb{0x80, 0x80, 0x80}));
}

TEST(Contrast, AColourThatCannotBeReadComesNearerToBlackOrWhiteAndKeepsItsHue) {
    const Rgb red = ReadableOn(white, {255, 0, 0});
    EXPECT_LT(red.red, 255);
    EXPECT_GT(red.red, 200);
    EXPECT_EQ(red.green, 0);
    EXPECT_EQ(red.blue, 0);
    const Rgb onNavy = ReadableOn({0, 0, 128}, {0, 0, 255});
    EXPECT_EQ(onNavy.blue, 255);
    EXPECT_GT(onNavy.red, 100);
}

TEST(Contrast, TextCanBeReadOnEveryGround) {
    constexpr int step = 51;
    int changed = 0;
    for (int ground = 0; ground < 216; ++ground)
        for (int text = 0; text < 216; ++text) {
            const auto color = [](int number) {
                return Rgb{static_cast<uint8_t>(number / 36 * step), static_cast<uint8_t>(number / 6 % 6 * step),
                           static_cast<uint8_t>(number % 6 * step)};
            };
            const Rgb chosen = ReadableOn(color(ground), color(text));
            ASSERT_GE(Contrast(color(ground), chosen), readableContrast) << ground << " " << text;
            changed += chosen != color(text);
        }
    EXPECT_GT(changed, 10'000);
}

}  // namespace
}  // namespace foldertree
