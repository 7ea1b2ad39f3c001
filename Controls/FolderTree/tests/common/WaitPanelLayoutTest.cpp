// WaitPanelLayoutTest: where the wait panel stands, and that it can be read in controls of all sizes.
#include "common/WaitPanelLayout.h"

#include <gtest/gtest.h>

#include <vector>

namespace foldertree {
namespace {

constexpr int tahomaLine = 13;
constexpr int cancelWidth = 36;

WaitPanelMetrics At(int dpi) {
    return {dpi, Scale(tahomaLine, dpi), Scale(cancelWidth, dpi)};
}

std::vector<Rect> PartsOf(const WaitPanelLayout& layout) {
    return {layout.label, layout.path, layout.bar, layout.button};
}

bool Overlap(const Rect& a, const Rect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

void ExpectSound(const WaitPanelLayout& layout, Size area) {
    EXPECT_GE(layout.panel.left, 0);
    EXPECT_GE(layout.panel.top, 0);
    EXPECT_LE(layout.panel.right, area.cx);
    EXPECT_LE(layout.panel.bottom, area.cy);
    EXPECT_EQ(layout.panel.left, (area.cx - layout.panel.Width()) / 2);
    EXPECT_EQ(layout.panel.top, (area.cy - layout.panel.Height()) / 2);
    const std::vector<Rect> parts = PartsOf(layout);
    for (size_t i = 0; i < parts.size(); ++i) {
        EXPECT_GE(parts[i].left, 0);
        EXPECT_GE(parts[i].top, 0);
        EXPECT_LE(parts[i].right, layout.panel.Width());
        EXPECT_LE(parts[i].bottom, layout.panel.Height());
        EXPECT_GE(parts[i].Width(), 0);
        EXPECT_GE(parts[i].Height(), 0);
        for (size_t j = 0; j < i; ++j) EXPECT_FALSE(Overlap(parts[i], parts[j])) << "parts " << i << " and " << j;
    }
}

TEST(WaitPanelLayout, ASmallControlShowsAllPartsAndSomeOfTheTree) {
    const WaitPanelLayout layout = WaitPanelLayout::For({198, 78}, At(96));
    ExpectSound(layout, {198, 78});
    EXPECT_LE(layout.panel.Height(), 50) << "more than a row's height of the tree is in sight";
    EXPECT_GE(layout.label.Height(), tahomaLine);
    EXPECT_GE(layout.label.Width(), 80);
    EXPECT_GE(layout.path.Height(), tahomaLine);
    EXPECT_GE(layout.path.Width(), 150);
    EXPECT_GE(layout.bar.Height(), 5);
    EXPECT_GE(layout.button.Width(), cancelWidth + 10);
    EXPECT_GE(layout.button.Height(), tahomaLine + 4);
}

TEST(WaitPanelLayout, AWideControlGivesThePathMoreRoomButNotAllOfItself) {
    EXPECT_EQ(WaitPanelLayout::For({400, 300}, At(96)).panel.Width(), 320);
    EXPECT_EQ(WaitPanelLayout::For({1000, 300}, At(96)).panel.Width(), 500);
    EXPECT_EQ(WaitPanelLayout::For({3000, 300}, At(96)).panel.Width(), 560);
}

TEST(WaitPanelLayout, ItGrowsWithTheDisplayAndWithTheFont) {
    const WaitPanelLayout usual = WaitPanelLayout::For({4000, 4000}, At(96));
    for (const int dpi : {120, 144, 192, 288}) {
        const WaitPanelLayout fine = WaitPanelLayout::For({4000, 4000}, At(dpi));
        ExpectSound(fine, {4000, 4000});
        EXPECT_NEAR(fine.panel.Height(), Scale(usual.panel.Height(), dpi), 8) << dpi;
        EXPECT_NEAR(fine.button.Width(), Scale(usual.button.Width(), dpi), 2) << dpi;
    }
    const WaitPanelLayout large = WaitPanelLayout::For({1000, 1000}, {96, 58, 160});
    ExpectSound(large, {1000, 1000});
    EXPECT_GE(large.label.Height(), 58);
    EXPECT_GE(large.path.Height(), 58);
    EXPECT_GE(large.button.Height(), 58);
    EXPECT_GE(large.button.Width(), 160);
}

TEST(WaitPanelLayout, SomeOfTheTreeIsInSightWhereverTheAreaIsHigherThanThePanel) {
    for (int height = 70; height < 700; ++height) {
        const WaitPanelLayout layout = WaitPanelLayout::For({300, height}, At(96));
        EXPECT_GE(height - layout.panel.Height(), 20) << height;
    }
}

TEST(WaitPanelLayout, NoSizeResolutionOrFontPutsAnythingOutside) {
    const int lengths[] = {-5, 0, 1, 3, 17, 40, 90, 200, 1000, 32767};
    for (const int width : lengths)
        for (const int height : lengths)
            for (const int dpi : {-1, 0, 1, 96, 288, 10000, 2147483647})
                for (const int font : {-1, 0, 13, 58, 32767, 2147483647}) {
                    const Size area{width, height};
                    ExpectSound(WaitPanelLayout::For(area, {dpi, font, font}),
                                {std::max(0, area.cx), std::max(0, area.cy)});
                    if (testing::Test::HasFailure())
                        return void(ADD_FAILURE() << width << "x" << height << " at " << dpi);
                }
}

}  // namespace
}  // namespace foldertree
