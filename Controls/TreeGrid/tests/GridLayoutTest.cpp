// GridLayoutTest: where things stand in the grid and what a point hits.
#include "layout/GridLayout.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

#include "SampleSchema.h"
#include "layout/FrameClock.h"

namespace foldertree {
namespace {

using namespace sample;

constexpr Size client{400, 300};

int Width(const Rect& area) {
    return area.right - area.left;
}
int Height(const Rect& area) {
    return area.bottom - area.top;
}

TEST(GridLayout, TheNameTakesTheWidthThatTickAndNumberLeave) {
    const GridLayout layout({}, client, 50, 40, 0);
    EXPECT_EQ(Width(layout.HeaderCell(colSel)), 50);
    EXPECT_EQ(Width(layout.HeaderCell(colIndex)), 40);
    EXPECT_EQ(layout.HeaderCell(colName).left, 90);
    EXPECT_EQ(layout.HeaderCell(colName).right, 400);
}

TEST(GridLayout, AHiddenNumberColumnLeavesItsWidthToTheName) {
    const GridLayout layout({}, client, 50, 0, 0);
    EXPECT_EQ(Width(layout.HeaderCell(colIndex)), 0);
    EXPECT_EQ(layout.Cell(0, colName).left, 50);
    EXPECT_EQ(layout.PartAt({51, 30}, 5), GridPart::Row);
}

TEST(GridLayout, ARowIsNineteenPixelsHighAt96DotsPerInch) {
    EXPECT_EQ(GridMetrics::For(96, 19 * 15, 13).rowHeight, 19);
    EXPECT_EQ(GridMetrics::For(96, 0, 13).rowHeight, 19);
    EXPECT_EQ(GridMetrics::For(96, 30 * 15, 13).rowHeight, 30);
}

TEST(GridLayout, ARowIsNeverLowerThanItsText) {
    EXPECT_GE(GridMetrics::For(96, 19 * 15, 40).rowHeight, 40);
}

TEST(GridLayout, EverythingGrowsWithTheScreensResolution) {
    const GridMetrics coarse = GridMetrics::For(96, 0, 13);
    const GridMetrics fine = GridMetrics::For(192, 0, 26);
    EXPECT_EQ(fine.rowHeight, 2 * coarse.rowHeight);
    EXPECT_EQ(fine.iconSize, 2 * coarse.iconSize);
    EXPECT_EQ(fine.boxSize, 2 * coarse.boxSize);
    EXPECT_EQ(fine.indent, 2 * coarse.indent);
}

TEST(GridLayout, BoxesSignsAndPicturesGrowWithAnUnusualFontToo) {
    const GridMetrics usual = GridMetrics::For(96, 0, 13);
    EXPECT_EQ(GridMetrics::For(96, 0, 16).boxSize, usual.boxSize);
    EXPECT_EQ(GridMetrics::For(96, 0, 8).boxSize, usual.boxSize);
    const GridMetrics large = GridMetrics::For(96, 0, 39);  // 24 points
    EXPECT_EQ(large.iconSize, 32);
    EXPECT_GE(large.boxSize, 26);
    EXPECT_GE(large.glyphSize, 19);
    EXPECT_GE(large.indent, large.glyphSize + 8);
    EXPECT_LE(large.iconSize, large.rowHeight);
    EXPECT_LE(large.boxSize, large.rowHeight);
    EXPECT_EQ(large.line, usual.line) << "hairlines are a matter of the screen";
}

TEST(GridLayout, PicturesHaveASizeThatTheyAreDrawnFor) {
    const std::pair<int, int> sizes[] = {{96, 16},  {110, 16}, {120, 20}, {144, 24},
                                         {192, 32}, {240, 32}, {288, 48}, {384, 64}};
    for (const auto& [dpi, size] : sizes) EXPECT_EQ(GridMetrics::For(dpi, 0, 0).iconSize, size) << dpi;
    EXPECT_EQ(GridMetrics::For(600, 0, 0).iconSize, 100) << "on paper any size";
}

TEST(GridLayout, HairlinesAreAsThickAsOneAt96DotsPerInch) {
    const std::pair<int, int> lines[] = {{96, 1}, {120, 1}, {144, 1}, {192, 2}, {288, 3}};
    for (const auto& [dpi, line] : lines) EXPECT_EQ(GridMetrics::For(dpi, 0, 0).line, line) << dpi;
}

TEST(GridLayout, NoResolutionFontOrSizeIsTooMuch) {
    constexpr int lots = std::numeric_limits<int>::max();
    for (const int dpi : {lots, 10000, 0, -1, std::numeric_limits<int>::min(), 1})
        for (const int font : {0, 1, 13, 32767, lots, -5})
            for (const int twips : {0, 1, 285, lots}) {
                const GridMetrics metrics = GridMetrics::For(dpi, twips, font);
                EXPECT_GT(metrics.rowHeight, 0);
                EXPECT_GT(metrics.headerHeight, 0);
                EXPECT_GT(metrics.indent, 0);
                for (const int length : {-1, 0, 1, 400, 32767})
                    for (const bool mirrored : {false, true}) {
                        GridLayout layout(metrics, {length, length}, metrics.boxSize, 40, 0);
                        layout.ScrollSideways(layout.NameWidth(3, 100), length);
                        layout.SetMirrored(mirrored);
                        EXPECT_GE(layout.ShownRows(), 0);
                        EXPECT_GE(layout.FullRows(), 1);
                        const Rect text = layout.NameText(layout.Cell(0, colName), 3, true);
                        EXPECT_GE(text.Width(), 0);
                        layout.PartAt({length, length}, 3);
                    }
            }
}

TEST(GridLayout, MirroredItIsTheSameTheOtherWayRound) {
    GridLayout plain({}, client, 50, 40, 0);
    plain.ScrollSideways(1000, 70);
    GridLayout mirrored = plain;
    mirrored.SetMirrored(true);
    const auto turned = [](const Rect& place) {
        return Rect{client.cx - place.right, place.top, client.cx - place.left, place.bottom};
    };
    EXPECT_EQ(mirrored.Row(1), turned(plain.Row(1)));
    for (const int col : {colSel, colIndex, colName}) {
        EXPECT_EQ(mirrored.HeaderCell(col), turned(plain.HeaderCell(col)));
        EXPECT_EQ(mirrored.Cell(2, col), turned(plain.Cell(2, col)));
    }
    const Rect name = plain.Cell(2, colName);
    const Rect mirroredName = mirrored.Cell(2, colName);
    EXPECT_EQ(mirrored.Box(mirrored.Cell(2, colSel)), turned(plain.Box(plain.Cell(2, colSel))));
    for (const int level : {0, 1, 5}) {
        EXPECT_EQ(mirrored.Glyph(mirroredName, level), turned(plain.Glyph(name, level)));
        EXPECT_EQ(mirrored.Icon(mirroredName, level), turned(plain.Icon(name, level)));
        EXPECT_EQ(mirrored.NameText(mirroredName, level, true), turned(plain.NameText(name, level, true)));
        for (int x = 0; x < client.cx; ++x)
            EXPECT_EQ(mirrored.PartAt({client.cx - 1 - x, 70}, level), plain.PartAt({x, 70}, level)) << x;
    }
}

TEST(GridLayout, RowsStartBelowTheHeaderWithTheOneAtTheTop) {
    const GridLayout layout({}, client, 50, 40, 1000);
    EXPECT_EQ(layout.Row(1000).top, layout.HeaderCell(colSel).bottom);
    EXPECT_EQ(Height(layout.Row(1000)), 19);
    EXPECT_EQ(layout.PositionAt(layout.Row(1003).top), 1003);
    EXPECT_EQ(layout.PositionAt(layout.Row(1003).bottom - 1), 1003);
    EXPECT_EQ(layout.PositionAt(0), std::nullopt);
}

TEST(GridLayout, AWindowThatIsTooLowStillScrollsByOneRow) {
    const GridLayout layout({}, {400, 5}, 50, 40, 0);
    EXPECT_EQ(layout.FullRows(), 1);
    EXPECT_EQ(layout.ShownRows(), 0);
}

TEST(GridLayout, APointHitsTheBoxTheNumberTheSignOrTheRow) {
    const GridLayout layout({}, client, 50, 40, 0);
    const Rect box = layout.Box(layout.Cell(2, colSel));
    const Rect sign = layout.Glyph(layout.Cell(2, colName), 1);
    const Rect icon = layout.Icon(layout.Cell(2, colName), 1);
    EXPECT_EQ(layout.PartAt({box.left, box.top}, 1), GridPart::Box);
    EXPECT_EQ(layout.PartAt({box.right - 1, box.bottom - 1}, 1), GridPart::Box);
    EXPECT_EQ(layout.PartAt({1, box.top}, 1), GridPart::Row);
    EXPECT_EQ(layout.PartAt({60, box.top}, 1), GridPart::Index);
    EXPECT_EQ(layout.PartAt({sign.left, sign.top}, 1), GridPart::Glyph);
    EXPECT_EQ(layout.PartAt({sign.left, sign.top}, 0), GridPart::Row);
    EXPECT_EQ(layout.PartAt({icon.left, icon.top}, 1), GridPart::Row);
    EXPECT_EQ(layout.PartAt({box.left, 5}, 1), GridPart::Header);
}

TEST(GridLayout, SignIconAndTextFollowEachOther) {
    const GridLayout layout({}, client, 50, 40, 0);
    const Rect cell = layout.Cell(0, colName);
    for (int level = 0; level < 4; ++level) {
        EXPECT_LE(layout.Glyph(cell, level).right, layout.Icon(cell, level).left);
        EXPECT_LE(layout.Icon(cell, level).right, layout.NameText(cell, level, true).left);
        EXPECT_EQ(layout.NameText(cell, level, false).left, layout.Icon(cell, level).left);
        EXPECT_EQ(layout.Icon(cell, level + 1).left - layout.Icon(cell, level).left, layout.Metrics().indent);
    }
}

TEST(GridLayout, AVeryDeepRowStillShowsItsIconAndPartOfItsName) {
    const GridLayout layout({}, client, 50, 40, 0);
    const Rect cell = layout.Cell(0, colName);
    const Rect text = layout.NameText(cell, 32767, true);
    EXPECT_LT(layout.Icon(cell, 32767).right, cell.right);
    EXPECT_GE(Width(text), 50);
}

TEST(GridLayout, NamesThatFitLeaveNothingToScroll) {
    GridLayout layout({}, client, 50, 40, 0);
    layout.ScrollSideways(300, 100);
    EXPECT_EQ(layout.ContentWidth(), 400);
    EXPECT_EQ(layout.Left(), 0);
    EXPECT_EQ(layout.HeaderCell(colName).right, 400);
}

TEST(GridLayout, NamesThatAreWiderMoveToTheLeftUnderBoxAndNumber) {
    GridLayout layout({}, client, 50, 40, 0);
    layout.ScrollSideways(1000, 70);
    EXPECT_EQ(layout.ContentWidth(), 1090);
    EXPECT_EQ(layout.Left(), 70);
    EXPECT_EQ(layout.MostLeft(), 690);
    EXPECT_EQ(layout.Cell(0, colSel).left, 0);
    EXPECT_EQ(layout.Cell(0, colIndex).right, 90);
    EXPECT_EQ(layout.Cell(0, colName).left, 20);
    EXPECT_EQ(layout.Row(0).left, 0);
    EXPECT_EQ(layout.Row(0).right, 1020);
    const Rect box = layout.Box(layout.Cell(2, colSel));
    EXPECT_EQ(layout.PartAt({box.left, box.top}, 1), GridPart::Box);
    EXPECT_EQ(layout.PartAt({60, box.top}, 1), GridPart::Index) << "also where a sign is under it";
    layout.ScrollSideways(1000, 30);
    const Rect sign = layout.Glyph(layout.Cell(2, colName), 2);
    EXPECT_EQ(layout.PartAt({sign.left, sign.top}, 2), GridPart::Glyph);
}

TEST(GridLayout, ANameIsSeenWholeUnlessItIsCutOrUnderAnotherColumn) {
    for (const bool mirrored : {false, true}) {
        GridLayout layout({}, client, 50, 40, 0);
        layout.SetMirrored(mirrored);
        const auto whole = [&](int textWidth) {
            return layout.ShowsWhole(layout.Cell(0, colName), 1, true, textWidth);
        };
        const int room = layout.NameText(layout.Cell(0, colName), 1, true).Width();
        EXPECT_TRUE(whole(room));
        EXPECT_FALSE(whole(room + 1));
        layout.ScrollSideways(1000, 0);
        EXPECT_TRUE(whole(200));
        EXPECT_FALSE(whole(500)) << "it goes on outside the window";
        layout.ScrollSideways(1000, 100);
        EXPECT_FALSE(whole(200)) << "it begins under the number";
    }
}

TEST(GridLayout, InANarrowWindowAllColumnsMove) {
    GridLayout layout({}, {170, 300}, 50, 40, 0);
    layout.ScrollSideways(1000, 70);
    EXPECT_FALSE(layout.Stays());
    EXPECT_EQ(layout.Cell(0, colSel).left, -70);
    EXPECT_EQ(layout.Cell(0, colIndex).left, -20);
    EXPECT_EQ(layout.Cell(0, colName).left, 20);
    EXPECT_EQ(layout.Row(0).left, -70);
    EXPECT_EQ(layout.PartAt({10, 50}, 1), GridPart::Index);
}

TEST(GridLayout, ScrollingSidewaysEndsAtTheLastColumnsEdge) {
    GridLayout layout({}, client, 50, 40, 0);
    layout.ScrollSideways(1000, 5000);
    EXPECT_EQ(layout.Left(), 690);
    EXPECT_EQ(layout.Cell(0, colName).right, 400);
    layout.ScrollSideways(1000, -5);
    EXPECT_EQ(layout.Left(), 0);
}

TEST(GridLayout, AColumnOfTheWantedWidthShowsIndentationAndTextInFull) {
    for (const int level : {0, 1, 7, 60}) {
        for (const int text : {0, 30, 200, 900}) {
            GridLayout layout({}, client, 50, 40, 0);
            layout.ScrollSideways(layout.NameWidth(level, text), 0);
            const Rect cell = layout.Cell(0, colName);
            EXPECT_GE(Width(layout.NameText(cell, level, true)), text);
            EXPECT_EQ(layout.Icon(cell, level).left - layout.Icon(cell, 0).left, level * layout.Metrics().indent);
        }
    }
}

TEST(GridLayout, AColumnForNonsenseStaysWithinReason) {
    const GridLayout layout({}, client, 50, 40, 0);
    EXPECT_EQ(layout.NameWidth(32767, 1000000), 4000);
    EXPECT_EQ(layout.NameWidth(-32768, 10), layout.NameWidth(0, 10));
}

TEST(FrameClock, LetsAtMostSixtyTwoFramesThroughInASecond) {
    FrameClock clock;
    FrameClock::Clock::time_point now{std::chrono::seconds(100)};
    int frames = 0;
    for (int step = 0; step < 100000; ++step, now += std::chrono::microseconds(10)) {
        if (!clock.Due(now)) continue;
        clock.Drawn(now);
        ++frames;
    }
    EXPECT_LE(frames, 63);
    EXPECT_GE(frames, 60);
}

}  // namespace
}  // namespace foldertree
