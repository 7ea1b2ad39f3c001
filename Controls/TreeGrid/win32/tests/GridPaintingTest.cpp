// GridPaintingTest: what the pixels of the grid show.
#include "WindowFixture.h"
#include "rows/Contrast.h"
#include "tests/SampleSchema.h"
#include "win32/GridPainter.h"
#include "win32/GridWindow.h"
#include "win32/OffscreenBitmap.h"

namespace foldertree {
namespace {

using namespace sample;

constexpr SIZE area{400, 300};

class GridPaintingTest : public testing::Test {
  protected:
    GridPaintingTest() {
        SetUpGrid(grid_);
        AddFolder(grid_, 0, "Mailbox", rowKind::store);
        AddFolder(grid_, 1, "Inbox");
        AddFolder(grid_, 2, "Customers");
        AddFolder(grid_, 1, "Notes");
    }

    Pixels Paint() {
        return Drawing(area.cx, area.cy, [this](HDC dc) {
            fonts_.Load(grid_.Font(), 96);
            layout_ = MeasureGrid(grid_, fonts_, 96, area, 0);
            PaintGrid(dc, {grid_, layout_, fonts_, pictures_, hasBox_, focused_, highContrast_});
        });
    }
    RECT Cell(int32_t row, int col) const { return layout_.Cell(grid_.VisiblePosition(row).value(), col); }
    POINT RightOfName(int32_t row) const {
        const RECT cell = Cell(row, colName);
        return {cell.right - 3, Middle(cell).y};
    }
    /// Pixels of the number cell that are text.
    int InkInNumber(const Pixels& pixels, int32_t row) const {
        RECT cell = Cell(row, colIndex);
        cell.bottom -= 1;
        return pixels.Drawn(cell);
    }
    static Rgb ToRgb(uint32_t pixel) {
        return {static_cast<uint8_t>(pixel >> 16), static_cast<uint8_t>(pixel >> 8), static_cast<uint8_t>(pixel)};
    }
    RECT NameText(int32_t row) const { return layout_.NameText(Cell(row, colName), grid_.RowOutlineLevel(row), true); }
    /// Of the row's name on its ground, where the ink is thickest.
    double BestContrast(const Pixels& pixels, int32_t row) const {
        const RECT text = NameText(row);
        const Rgb ground = ToRgb(pixels.At(RightOfName(row)));
        double best = 0;
        for (int x = text.left; x < text.right; ++x)
            for (int y = text.top; y < text.bottom - 1; ++y)
                best = std::max(best, Contrast(ground, ToRgb(pixels.At(x, y))));
        return best;
    }
    bool Contains(const Pixels& pixels, int32_t row, uint32_t pixel) const {
        const RECT text = NameText(row);
        for (int x = text.left; x < text.right; ++x)
            for (int y = text.top; y < text.bottom; ++y)
                if (pixels.At(x, y) == pixel) return true;
        return false;
    }
    RECT Box(int32_t row) const { return layout_.Box(Cell(row, colSel)); }

    TreeGrid grid_{sample::schema};
    GridFonts fonts_;
    GridLayout layout_;
    SquarePictures pictures_;
    RowHasBox hasBox_ = HasBox;
    bool focused_ = false;
    bool highContrast_ = false;
};

TEST_F(GridPaintingTest, ATickedRowIsYellowFromTheNameOn) {
    TickRow(grid_, 2, "1");
    const Pixels pixels = Paint();
    EXPECT_EQ(pixels.At(RightOfName(2)), 0xFFFF00u);
    EXPECT_EQ(pixels.At(Cell(2, colSel).left + 1, Middle(Cell(2, colSel)).y), SystemPixel(COLOR_WINDOW));
    EXPECT_EQ(pixels.At(RightOfName(3)), SystemPixel(COLOR_WINDOW));
}

TEST_F(GridPaintingTest, TheCursorLeavesTheYellowOfATickedRowAsItIs) {
    TickRow(grid_, 2, "1");
    grid_.SetCurrentRow(2);
    focused_ = true;
    EXPECT_EQ(Paint().At(RightOfName(2)), 0xFFFF00u);
}

TEST_F(GridPaintingTest, TheCursorsRowIsFramedAndTintedWithTheFocus) {
    const Pixels without = Paint();
    grid_.SetCurrentRow(2);
    const Pixels unfocused = Paint();
    EXPECT_EQ(unfocused.At(RightOfName(2)), without.At(RightOfName(2)));
    EXPECT_EQ(unfocused.At(200, Cell(2, colName).top), SystemPixel(COLOR_BTNSHADOW));
    focused_ = true;
    const Pixels focused = Paint();
    EXPECT_NE(focused.At(RightOfName(2)), without.At(RightOfName(2)));
    EXPECT_EQ(focused.At(200, Cell(2, colName).top), SystemPixel(COLOR_HIGHLIGHT));
}

TEST_F(GridPaintingTest, TheFocusIsSeenWithoutACursorToo) {
    const Pixels without = Paint();
    focused_ = true;
    const Pixels with = Paint();
    const POINT edge{area.cx - 1, area.cy / 2};
    EXPECT_EQ(without.At(edge), SystemPixel(COLOR_WINDOW));
    EXPECT_EQ(with.At(edge), SystemPixel(COLOR_HIGHLIGHT));
    grid_.SetCurrentRow(2);
    EXPECT_EQ(Paint().At(edge), SystemPixel(COLOR_WINDOW)) << "the cursor's row tells now";
}

TEST_F(GridPaintingTest, ACursorInsideAClosedNodeIsSeenOnTheNode) {
    grid_.SetCurrentRow(3);
    grid_.SetNodeState(2, nodeCollapsed);
    focused_ = true;
    const Pixels pixels = Paint();
    EXPECT_EQ(pixels.At(200, Cell(2, colName).top), SystemPixel(COLOR_HIGHLIGHT));
    grid_.SetNodeState(1, nodeCollapsed);
    EXPECT_EQ(Paint().At(200, Cell(1, colName).top), SystemPixel(COLOR_HIGHLIGHT)) << "the outermost closed node";
}

TEST_F(GridPaintingTest, APictureIsDrawnByItsNumberWhereItsPlaceIs) {
    const POINT before = Middle((Paint(), layout_.Icon(Cell(2, colName), 1)));
    EXPECT_EQ(Paint().At(before), 0x28D780u) << "number 4 in the colour that the test gives it";
    grid_.SetCellFormat(CellSetting::Picture, 2, colName, 2);
    EXPECT_EQ(Paint().At(before), 0x14EB80u);
    grid_.SetCellFormat(CellSetting::Picture, 2, colName, 0);
    EXPECT_NE(Paint().At(before), 0x14EB80u);
}

TEST_F(GridPaintingTest, AStoreRowStandsOnButtonFace) {
    const Pixels pixels = Paint();
    EXPECT_EQ(pixels.At(RightOfName(1)), SystemPixel(COLOR_BTNFACE));
    EXPECT_EQ(pixels.At(Cell(1, colSel).left + 1, Middle(Cell(1, colSel)).y), SystemPixel(COLOR_BTNFACE));
}

TEST_F(GridPaintingTest, TheCaptionsStandInTheHeader) {
    const Pixels with = Paint();
    for (int col : {colSel, colIndex, colName}) grid_.SetCellText(0, col, "");
    const Pixels without = Paint();
    for (int col : {colSel, colName}) {
        const RECT cell = layout_.HeaderCell(col);
        int different = 0;
        for (int x = cell.left; x < cell.right; ++x)
            for (int y = 4; y < cell.bottom - 4; ++y) different += with.At(x, y) != without.At(x, y);
        EXPECT_GT(different, 20) << "column " << col;
    }
}

TEST_F(GridPaintingTest, ATickIsDrawnInTheBox) {
    const Pixels before = Paint();
    const RECT box = Box(2);
    EXPECT_EQ(before.At(Middle(box)), SystemPixel(COLOR_WINDOW));
    grid_.SetCellText(2, colSel, "-1");
    const Pixels after = Paint();
    int different = 0;
    for (int x = box.left; x < box.right; ++x)
        for (int y = box.top; y < box.bottom; ++y) different += before.At(x, y) != after.At(x, y);
    EXPECT_GT(different, 10);
    grid_.SetCellText(2, colSel, "0");
    EXPECT_EQ(Paint(), before);
}

TEST_F(GridPaintingTest, APlaceholderShowsNoBoxAndAStoreAGreyedOne) {
    AddFolder(grid_, 2, "", rowKind::dummy);
    const Pixels pixels = Paint();
    EXPECT_EQ(pixels.Drawn(Box(5)), 0);
    EXPECT_GT(pixels.Drawn(Box(2)), 0);
    EXPECT_NE(pixels.At(Middle(Box(1))), pixels.At(Middle(Box(2))));
    EXPECT_EQ(BoxOf(grid_, hasBox_, 5), BoxKind::None);
    EXPECT_EQ(BoxOf(grid_, hasBox_, 1), BoxKind::Greyed);
    EXPECT_EQ(BoxOf(grid_, hasBox_, 2), BoxKind::Plain);
}

TEST_F(GridPaintingTest, APlaceholderIsKnownWhateverItsLetters) {
    grid_.SetCellText(4, colRowKind, "DUMMY");
    EXPECT_EQ(BoxOf(grid_, hasBox_, 4), BoxKind::None);
}

TEST_F(GridPaintingTest, NumbersAreDrawnAndTheirColumnCanBeHidden) {
    TickRow(grid_, 2, "27");
    EXPECT_GT(InkInNumber(Paint(), 2), 10);
    EXPECT_EQ(InkInNumber(Paint(), 3), 0);
    const int nameLeft = layout_.HeaderCell(colName).left;
    grid_.SetColHidden(colIndex, true);
    Paint();
    EXPECT_LT(layout_.HeaderCell(colName).left, nameLeft);
}

TEST_F(GridPaintingTest, TheNumberColumnGrowsWithTheNumbersInView) {
    Paint();
    const int nameLeft = layout_.HeaderCell(colName).left;
    TickRow(grid_, 2, "1234567");
    Paint();
    EXPECT_GT(layout_.HeaderCell(colName).left, nameLeft);
}

TEST_F(GridPaintingTest, BoldAndForeColourShow) {
    const Pixels plain = Paint();
    grid_.SetCellFormat(CellSetting::Bold, 2, colName, 1);
    const Pixels bold = Paint();
    EXPECT_NE(plain, bold);
    grid_.SetCellFormat(CellSetting::Bold, 2, colName, 0);
    grid_.SetCellFormat(CellSetting::ForeColor, 2, colName, 0x00FF0000);
    const Pixels blue = Paint();
    const RECT text = layout_.NameText(Cell(2, colName), 1, true);
    bool found = false;
    for (int x = text.left; x < text.right; ++x)
        for (int y = text.top; y < text.bottom; ++y) found = found || (blue.At(x, y) & 0xFF00FF) == 0x0000FF;
    EXPECT_TRUE(found);
}

TEST_F(GridPaintingTest, TextCanBeReadOnItsGroundWhateverItsCellsColours) {
    struct Colours {
        OleColor text, back;
    };
    for (const Colours& colours :
         {Colours{0x00C0C0C0, 0x00FFFFFF}, Colours{0x0000FFFF, 0x0000FFFF}, Colours{0x00FFFFFF, 0x0000FFFF},
          Colours{0x00000000, 0x00800000}, Colours{colors::buttonShadow, colors::buttonFace}}) {
        grid_.SetCellFormat(CellSetting::ForeColor, 2, colName, colours.text);
        grid_.SetCellFormat(CellSetting::BackColor, 2, colName, colours.back);
        EXPECT_GE(BestContrast(Paint(), 2), readableContrast) << std::hex << colours.text << " on " << colours.back;
        EXPECT_EQ(grid_.CellFormat(CellSetting::ForeColor, 2, colName), colours.text) << "the cell keeps its colour";
        EXPECT_EQ(grid_.CellFormat(CellSetting::BackColor, 2, colName), colours.back);
    }
}

TEST_F(GridPaintingTest, InHighContrastTickedRowsHaveTheColoursOfWhatIsSelected) {
    TickRow(grid_, 2, "1");
    highContrast_ = true;
    const Pixels pixels = Paint();
    EXPECT_EQ(pixels.At(RightOfName(2)), SystemPixel(COLOR_HIGHLIGHT));
    EXPECT_EQ(pixels.At(Cell(2, colSel).left + 1, Middle(Cell(2, colSel)).y), SystemPixel(COLOR_HIGHLIGHT));
    EXPECT_TRUE(Contains(pixels, 2, SystemPixel(COLOR_HIGHLIGHTTEXT)));
    EXPECT_EQ(pixels.At(RightOfName(3)), SystemPixel(COLOR_WINDOW));
    grid_.SetCurrentRow(2);
    focused_ = true;
    EXPECT_EQ(Paint().At(200, Cell(2, colName).top), SystemPixel(COLOR_HIGHLIGHTTEXT)) << "the cursor is seen on it";
    EXPECT_EQ(grid_.CellFormat(CellSetting::BackColor, 2, colName), 0x0000FFFFu) << "the cell keeps its colour";
}

TEST_F(GridPaintingTest, ADisabledGridIsPaintedInItsOwnColours) {
    grid_.SetCellFormat(CellSetting::BackColor, 3, 0, 3, columnCount - 1, colors::window);
    grid_.SetEnabled(false);
    grid_.SetBackColor(colors::buttonFace);
    grid_.SetTextColor(colors::buttonShadow);
    const Pixels pixels = Paint();
    EXPECT_EQ(pixels.At(RightOfName(3)), SystemPixel(COLOR_BTNFACE));
    EXPECT_EQ(pixels.At(200, 290), SystemPixel(COLOR_BTNFACE));
}

TEST_F(GridPaintingTest, TheSignTellsAnOpenNodeFromAClosedOne) {
    const RECT sign = (Paint(), layout_.Glyph(Cell(2, colName), 1));
    const POINT upright{(sign.left + sign.right) / 2, sign.top + 3};
    const Pixels open = Paint();
    grid_.SetNodeState(2, nodeCollapsed);
    const Pixels closed = Paint();
    EXPECT_EQ(open.At(upright), SystemPixel(COLOR_WINDOW));
    EXPECT_NE(closed.At(upright), SystemPixel(COLOR_WINDOW));
    EXPECT_EQ(closed.Drawn(layout_.Glyph(layout_.Cell(2, colName), 1)), 0) << "a row with nothing below has no sign";
}

TEST_F(GridPaintingTest, HostileTextsArePainted) {
    for (const std::string& text :
         {std::string(65536, 'x'), std::string("a\0b\nc\td", 7), std::string("\xED\xA0\x80 lone \xED\xB0\x80"),
          std::string("\xFF\xFE\x80"), std::string("&Mail && %s %n \\"), std::string("\xF0\x9F\x93\xAC")}) {
        grid_.SetCellText(2, colName, text);
        grid_.SetCellText(2, colIndex, text);
        const Pixels pixels = Paint();
        EXPECT_GE(layout_.HeaderCell(colName).right, area.cx);
        EXPECT_EQ(pixels.At(RightOfName(4)), SystemPixel(COLOR_WINDOW));
    }
}

TEST_F(GridPaintingTest, AnAreaWithoutRoomIsPainted) {
    for (const SIZE size : {SIZE{1, 1}, SIZE{0, 0}, SIZE{3, 500}, SIZE{500, 3}}) {
        fonts_.Load(grid_.Font(), 96);
        const GridLayout layout = MeasureGrid(grid_, fonts_, 96, size, 0);
        const Pixels pixels = Drawing(500, 500, [&](HDC dc) {
            PaintGrid(dc, {grid_, layout, fonts_, pictures_, hasBox_, false});
        });
        EXPECT_EQ(pixels.At(499, 499), 0u);
    }
}

TEST_F(GridPaintingTest, AGridThatHoldsNothingYetIsPainted) {
    const TreeGrid empty{sample::schema};
    fonts_.Load(empty.Font(), 96);
    const GridLayout layout = MeasureGrid(empty, fonts_, 96, area, 0);
    const Pixels pixels = Drawing(area.cx, area.cy, [&](HDC dc) {
        PaintGrid(dc, {empty, layout, fonts_, pictures_, hasBox_, false});
    });
    EXPECT_EQ(pixels.At(200, 200), SystemPixel(COLOR_WINDOW));
}

TEST_F(GridPaintingTest, AGridOfNamesAloneIsAllOutline) {
    TreeGrid names(GridSchema{.columns = 1, .outline = 0, .keyParts = {}});
    names.SetRowCount(2);
    names.SetCellText(1, 0, "The only one");
    fonts_.Load(names.Font(), 96);
    const GridLayout layout = MeasureGrid(names, fonts_, 96, area, 0);
    EXPECT_EQ(layout.HeaderCell(shownName).left, 0);
    const Pixels pixels = Drawing(area.cx, area.cy, [&](HDC dc) {
        PaintGrid(dc, {names, layout, fonts_, pictures_, hasBox_, false});
    });
    EXPECT_GT(pixels.Drawn(layout.NameText(layout.Cell(0, shownName), 0, false)), 20);
}

/// A font object that knows its size and nothing else, or fails at it.
class SizeOnlyFont : public automation::Object {
  public:
    explicit SizeOnlyFont(double points) : points_(points) {}
    automation::Value Invoke(const automation::Invocation&) override {
        if (points_ < 0) throw automation::Error(automation::errors::unspecified, "No font.");
        return points_;
    }
    bool HasMember(std::string_view member) const override { return automation::SameMember(member, "Size"); }

  private:
    double points_;
};

TEST_F(GridPaintingTest, RowsGrowWithTheirFont) {
    Paint();
    const int before = layout_.Metrics().rowHeight;
    grid_.SetFont(std::make_shared<SizeOnlyFont>(24));
    Paint();
    EXPECT_GE(layout_.Metrics().rowHeight, 32);
    EXPECT_EQ(before, 19);
}

TEST_F(GridPaintingTest, AFontThatFailsLeavesTheDefaultOne) {
    const Pixels before = Paint();
    grid_.SetFont(std::make_shared<SizeOnlyFont>(-1));
    EXPECT_EQ(Paint(), before);
}

TEST(GridWindowPicture, IsTheSameOnTheScreenAndDrawnWithoutAWindow) {
    HostWindow host;
    TreeGrid grid{sample::schema};
    SetUpGrid(grid);
    AddFolder(grid, 0, "Mailbox", rowKind::store);
    TickRow(grid, AddFolder(grid, 1, "Inbox"), "1");
    RecordingEvents events(grid);
    TestKeeper keeper;
    const SquarePictures pictures;
    GridWindow seen({grid, events, pictures, HasBox, L"TestGrid"}, keeper, [] {});
    seen.Create(host.Handle(), {0, 0, 300, 200});
    UpdateWindow(seen.Handle());
    HostWindow::Pump();
    GridWindow unseen({grid, events, pictures, HasBox, L"TestGrid"}, keeper, [] {});
    const Pixels drawn = Drawing(300, 200, [&](HDC dc) {
        GridWindow::Picture(unseen, {300, 200}, DpiOf(nullptr)).Paint(dc);
    });
    EXPECT_EQ(OnScreen(seen.Handle()), drawn);
}

TEST(GridWindowPicture, FollowsTheUsersChoiceOfHighContrast) {
    TreeGrid grid{sample::schema};
    SetUpGrid(grid);
    TickRow(grid, AddFolder(grid, 0, "Inbox"), "1");
    RecordingEvents events(grid);
    TestKeeper keeper;
    const SquarePictures pictures;
    bool chosen = false;
    GridWindowParts parts{grid, events, pictures, HasBox, L"TestGrid"};
    parts.highContrast = [&] { return chosen; };
    GridWindow window(parts, keeper, [] {});
    const auto colour = [&] {
        const Pixels pixels = Drawing(300, 200, [&](HDC dc) {
            GridWindow::Picture(window, {300, 200}, DpiOf(nullptr)).Paint(dc);
        });
        return pixels.At(290, window.Layout().Metrics().headerHeight + 5);
    };
    EXPECT_EQ(colour(), 0xFFFF00u);
    chosen = true;
    EXPECT_EQ(colour(), SystemPixel(COLOR_HIGHLIGHT));
}

TEST(OffscreenBitmapTest, OneThatIsTooLargeLeavesTheTargetToDrawOn) {
    const Pixels pixels = Drawing(10, 10, [](HDC dc) {
        const OffscreenBitmap bitmap(dc, {1000000, 1000000});
        EXPECT_FALSE(bitmap.Made());
        const RECT middle{2, 2, 8, 8};
        FillRect(bitmap.Dc(), &middle, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        bitmap.Show();
    });
    EXPECT_EQ(pixels.At(5, 5), 0xFFFFFFu);
    EXPECT_EQ(pixels.At(9, 9), 0u);
}

TEST(OffscreenBitmapTest, WhatIsDrawnComesToTheTargetWhenItIsShown) {
    const Pixels pixels = Drawing(10, 10, [](HDC dc) {
        const OffscreenBitmap bitmap(dc, {10, 10});
        ASSERT_TRUE(bitmap.Made());
        const RECT middle{2, 2, 8, 8};
        FillRect(bitmap.Dc(), &middle, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        EXPECT_EQ(GetPixel(dc, 5, 5), RGB(0, 0, 0));
        bitmap.Show();
    });
    EXPECT_EQ(pixels.At(5, 5), 0xFFFFFFu);
}

TEST_F(GridPaintingTest, AGridThatIsSwitchedOffHasNoGlaringColour) {
    TickRow(grid_, 2, "1");
    grid_.SetEnabled(false);
    const Rgb ground = ToRgb(Paint().At(RightOfName(2)));
    EXPECT_LT(std::max({ground.red, ground.green, ground.blue}) - std::min({ground.red, ground.green, ground.blue}),
              20);
    EXPECT_NE(Paint().At(RightOfName(2)), Paint().At(RightOfName(3))) << "a ticked row is told from others";
    grid_.SetEnabled(true);
    EXPECT_EQ(Paint().At(RightOfName(2)), 0xFFFF00u);
}

TEST_F(GridPaintingTest, NamesOfBothDirectionsStandWhereTheirColumnBegins) {
    for (const bool mirrored : {false, true}) {
        for (const char* name : {"Inbox", "\u05D3\u05D5\u05D0\u05E8 \u05E0\u05DB\u05E0\u05E1"}) {
            grid_.SetCellText(2, colName, name);
            const Pixels pixels = Drawing(area.cx, area.cy, [&](HDC dc) {
                fonts_.Load(grid_.Font(), 96);
                layout_ = MeasureGrid(grid_, fonts_, 96, area, 0);
                layout_.SetMirrored(mirrored);
                PaintGrid(dc, {grid_, layout_, fonts_, pictures_, hasBox_, false, false});
            });
            Rect begin = NameText(2);
            Rect end = begin;
            begin = mirrored ? Rect{begin.right - 40, begin.top, begin.right, begin.bottom - 1}
                             : Rect{begin.left, begin.top, begin.left + 40, begin.bottom - 1};
            end = mirrored ? Rect{end.left, end.top, end.left + 40, end.bottom - 1}
                           : Rect{end.right - 40, end.top, end.right, end.bottom - 1};
            EXPECT_GT(pixels.Drawn(begin), 20) << name;
            EXPECT_EQ(pixels.Drawn(end), 0) << name;
        }
    }
}

}  // namespace
}  // namespace foldertree
