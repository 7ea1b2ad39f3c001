// GridPainter: draws the grid's header and the rows that are in view.
#include "win32/GridPainter.h"

#include <olectl.h>

#include <algorithm>
#include <array>
#include <string>

#include "interaction/CursorMoves.h"
#include "layout/TextDirection.h"
#include "rows/Contrast.h"
#include "win32/ShownText.h"

namespace foldertree {
namespace {

COLORREF Mix(COLORREF a, COLORREF b, int percentOfA) {
    const auto channel = [percentOfA](int x, int y) { return (x * percentOfA + y * (100 - percentOfA)) / 100; };
    return RGB(channel(GetRValue(a), GetRValue(b)), channel(GetGValue(a), GetGValue(b)),
               channel(GetBValue(a), GetBValue(b)));
}

Rgb ToRgb(COLORREF color) {
    return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

COLORREF Readable(COLORREF text, COLORREF ground) {
    const Rgb chosen = ReadableOn(ToRgb(ground), ToRgb(text));
    return RGB(chosen.red, chosen.green, chosen.blue);
}

void Fill(HDC dc, const RECT& area, COLORREF color) {
    SetBkColor(dc, color);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

void Frame(HDC dc, const RECT& area, COLORREF color, int thickness) {
    Fill(dc, {area.left, area.top, area.right, area.top + thickness}, color);
    Fill(dc, {area.left, area.bottom - thickness, area.right, area.bottom}, color);
    Fill(dc, {area.left, area.top, area.left + thickness, area.bottom}, color);
    Fill(dc, {area.right - thickness, area.top, area.right, area.bottom}, color);
}

/// Where a text stands in its cell: at the side where the columns begin, in the middle, or at the other side.
enum class Side { Near, Middle, Far };

UINT FormatFor(Side side, bool mirrored, bool rightToLeft) {
    const UINT reading = rightToLeft ? DT_RTLREADING : 0;
    if (side == Side::Middle) return reading | DT_CENTER;
    return reading | ((side == Side::Near) != mirrored ? DT_LEFT : DT_RIGHT);
}

void Text(HDC dc, RECT area, std::string_view text, Side side, bool mirrored) {
    const std::wstring wide = ShownText(text);
    const UINT format = FormatFor(side, mirrored, ReadsRightToLeft(text, mirrored));
    DrawTextW(dc, wide.c_str(), static_cast<int>(wide.size()), &area,
              format | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

int TextWidth(HDC dc, std::string_view text) {
    const std::wstring wide = ShownText(text);
    SIZE size{};
    GetTextExtentPoint32W(dc, wide.c_str(), static_cast<int>(wide.size()), &size);
    return size.cx;
}

class Painter {
  public:
    Painter(HDC dc, const GridPicture& picture)
        : dc_(dc),
          grid_(picture.grid),
          schema_(grid_.Schema()),
          shown_{{{shownName, schema_.outline}, {shownBox, schema_.box}, {shownNumber, schema_.number}}},
          layout_(picture.layout),
          fonts_(picture.fonts),
          pictures_(picture.pictures),
          hasBox_(picture.hasBox),
          metrics_(layout_.Metrics()),
          mirrored_(layout_.Mirrored()),
          focused_(picture.focused),
          highContrast_(picture.highContrast),
          hoveredRow_(picture.hoveredRow),
          enabled_(grid_.Enabled()),
          back_(ToColorRef(grid_.BackColor())),
          text_(ToColorRef(grid_.TextColor())),
          face_(GetSysColor(COLOR_BTNFACE)),
          shadow_(GetSysColor(COLOR_BTNSHADOW)),
          line_(Mix(shadow_, back_, 22)) {
        SetBkMode(dc_, TRANSPARENT);
    }

    void Paint() {
        const HGDIOBJ before = SelectObject(dc_, fonts_.Plain());
        const SIZE client = layout_.Client();
        Fill(dc_, {0, 0, client.cx, client.cy}, back_);
        const int32_t first = layout_.TopPosition();
        const int32_t end = std::min(grid_.VisibleCount(), first + layout_.ShownRows());
        const int32_t cursor = CursorRow(grid_);
        for (int32_t position = first; position < end; ++position) {
            const int32_t row = grid_.VisibleRow(position);
            PaintRow(position, row, row == cursor);
        }
        // Whoever comes in by Tab sees where the keys go, before there is a cursor.
        if (focused_ && cursor == 0)
            Frame(dc_, {0, metrics_.headerHeight, client.cx, client.cy}, GetSysColor(COLOR_HIGHLIGHT), metrics_.line);
        PaintHeader();
        SelectObject(dc_, before);
    }

  private:
    void PaintHeader() {
        SelectObject(dc_, fonts_.Plain());  // the last row painted may have been a bold one
        for (const auto& [place, col] : shown_) {
            RECT cell = layout_.HeaderCell(place);
            if (cell.left == cell.right) continue;
            Fill(dc_, cell, face_);
            Fill(dc_, {cell.left, cell.bottom - metrics_.line, cell.right, cell.bottom}, shadow_);
            const LONG edgeLeft = mirrored_ ? cell.left : cell.right - metrics_.line;
            const RECT edge{edgeLeft, cell.top + metrics_.margin, edgeLeft + metrics_.line,
                            cell.bottom - metrics_.margin};
            if (place != shownName) Fill(dc_, edge, Mix(shadow_, face_, 50));
            if (grid_.RowCount() == 0) continue;
            InflateRect(&cell, -metrics_.margin, 0);
            SetTextColor(dc_, enabled_ ? GetSysColor(COLOR_BTNTEXT) : shadow_);
            Text(dc_, cell, grid_.CellText(0, col), place == shownName ? Side::Near : Side::Middle, mirrored_);
        }
    }

    void PaintRow(int32_t position, int32_t row, bool isCursor) {
        const int level = grid_.RowOutlineLevel(row);
        const bool marked = highContrast_ && enabled_ && IsTicked(row);
        for (const auto& [place, col] : shown_) {
            const RECT cell = layout_.Cell(position, place);
            if (cell.left == cell.right) continue;
            const CellLook& look = grid_.Look(row, col);
            const COLORREF back = marked ? GetSysColor(COLOR_HIGHLIGHT) : BackOf(look, isCursor, row == hoveredRow_);
            Fill(dc_, cell, back);
            Fill(dc_, {cell.left, cell.bottom - metrics_.line, cell.right, cell.bottom}, line_);
            SetTextColor(dc_, marked ? GetSysColor(COLOR_HIGHLIGHTTEXT) : TextOf(look, back));
            SelectObject(dc_, look.bold ? fonts_.Bold() : fonts_.Plain());
            if (place == shownBox)
                PaintBox(cell, row);
            else if (place == shownNumber)
                PaintNumber(cell, row);
            else
                PaintName(cell, row, level, look);
        }
        if (!isCursor) return;
        RECT frame = layout_.Row(position);
        const int edge = marked ? COLOR_HIGHLIGHTTEXT : COLOR_HIGHLIGHT;
        Frame(dc_, frame, focused_ ? GetSysColor(edge) : shadow_, metrics_.line);
    }

    bool IsTicked(int32_t row) const {
        return schema_.box != GridSchema::none && grid_.CellValue(row, schema_.box) != 0;
    }

    // What is switched off is to look so.
    COLORREF TextOf(const CellLook& look, COLORREF back) const {
        if (!enabled_) return text_;
        return Readable(look.foreColor ? ToColorRef(*look.foreColor) : text_, back);
    }

    // A row's own colour means something (ticked, not to be edited), so cursor and pointer tint the plain ones only.
    // The pointer's row is paler than the cursor's, and has no frame.
    COLORREF BackOf(const CellLook& look, bool isCursor, bool isHovered) const {
        const bool plain = !look.backColor || *look.backColor == colors::window;
        if (!plain) return enabled_ ? ToColorRef(*look.backColor) : Faded(ToColorRef(*look.backColor));
        if (isCursor && focused_) return Mix(GetSysColor(COLOR_HIGHLIGHT), back_, 14);
        return isHovered && enabled_ ? Mix(GetSysColor(COLOR_HIGHLIGHT), back_, 6) : back_;
    }

    // What is switched off is not to shine: as bright as the colour is dark, next to the ground.
    COLORREF Faded(COLORREF color) const {
        constexpr COLORREF everyChannel = 0x010101;
        const auto bright =
            static_cast<COLORREF>((GetRValue(color) * 30 + GetGValue(color) * 59 + GetBValue(color) * 11) / 100);
        return Mix(bright * everyChannel, Mix(shadow_, back_, 50), 50);
    }

    void PaintBox(const RECT& cell, int32_t row) {
        const BoxKind kind = BoxOf(grid_, hasBox_, row);
        if (kind == BoxKind::None) return;
        const bool greyed = kind == BoxKind::Greyed || !enabled_;
        const RECT box = layout_.Box(cell);
        Fill(dc_, box, greyed ? Mix(face_, GetSysColor(COLOR_WINDOW), 60) : GetSysColor(COLOR_WINDOW));
        const COLORREF edge = greyed ? Mix(shadow_, face_, 60) : Mix(shadow_, GetSysColor(COLOR_WINDOWTEXT), 70);
        Frame(dc_, box, edge, metrics_.line);
        if (grid_.CellValue(row, schema_.box) != 0)
            PaintTick(box, greyed ? shadow_ : Mix(GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_WINDOWTEXT), 70));
    }

    void PaintTick(const RECT& box, COLORREF color) {
        const int size = box.right - box.left;
        const auto at = [&](int x, int y) { return POINT{box.left + x * size / 13, box.top + y * size / 13}; };
        const POINT tick[] = {at(3, 5), at(5, 7), at(10, 2), at(10, 5), at(5, 10), at(3, 8)};
        const HGDIOBJ brush = SelectObject(dc_, GetStockObject(DC_BRUSH));
        const HGDIOBJ pen = SelectObject(dc_, GetStockObject(DC_PEN));
        SetDCBrushColor(dc_, color);
        SetDCPenColor(dc_, color);
        Polygon(dc_, tick, static_cast<int>(std::size(tick)));
        SelectObject(dc_, pen);
        SelectObject(dc_, brush);
    }

    void PaintNumber(RECT cell, int32_t row) {
        InflateRect(&cell, -metrics_.margin, 0);
        Text(dc_, cell, grid_.CellText(row, schema_.number), Side::Far, mirrored_);
    }

    void PaintName(const RECT& cell, int32_t row, int level, const CellLook& look) {
        if (HasSign(grid_, row)) PaintGlyph(layout_.Glyph(cell, level), grid_.NodeState(row) == nodeExpanded);
        pictures_.Draw(dc_, look.picture, layout_.Icon(cell, level), !enabled_);
        Text(dc_, layout_.NameText(cell, level, look.picture != noPicture), grid_.CellText(row, schema_.outline),
             Side::Near, mirrored_);
    }

    void PaintGlyph(const RECT& glyph, bool open) {
        Fill(dc_, glyph, GetSysColor(COLOR_WINDOW));
        const int line = metrics_.line;
        Frame(dc_, glyph, shadow_, line);
        const COLORREF sign = enabled_ ? GetSysColor(COLOR_WINDOWTEXT) : shadow_;
        const int x = (glyph.left + glyph.right) / 2 - line / 2;
        const int y = (glyph.top + glyph.bottom) / 2 - line / 2;
        Fill(dc_, {glyph.left + 2 * line, y, glyph.right - 2 * line, y + line}, sign);
        if (!open) Fill(dc_, {x, glyph.top + 2 * line, x + line, glyph.bottom - 2 * line}, sign);
    }

    struct Column {
        ShownColumn place;
        int column;  ///< of the grid; one that there is not has no width
    };

    const HDC dc_;
    const TreeGrid& grid_;
    const GridSchema& schema_;
    const std::array<Column, 3> shown_;  ///< the names first: the others cover what moves under them
    const GridLayout& layout_;
    const GridFonts& fonts_;
    const GridPictures& pictures_;
    const RowHasBox& hasBox_;
    const GridMetrics& metrics_;
    const bool mirrored_;
    const bool focused_;
    const bool highContrast_;
    const int32_t hoveredRow_;
    const bool enabled_;
    const COLORREF back_;
    const COLORREF text_;
    const COLORREF face_;
    const COLORREF shadow_;
    const COLORREF line_;
};

// Widths of the captions and of the numbers in view; three digits always have room, so that the first tick does not
// move the names.
class Measurer {
  public:
    Measurer(const TreeGrid& grid, const GridFonts& fonts, const GridMetrics& metrics)
        : grid_(grid),
          schema_(grid.Schema()),
          metrics_(metrics),
          dc_(CreateCompatibleDC(nullptr)),
          before_(SelectObject(dc_, fonts.Bold())) {}
    ~Measurer() {
        SelectObject(dc_, before_);
        DeleteDC(dc_);
    }
    Measurer(const Measurer&) = delete;
    Measurer& operator=(const Measurer&) = delete;

    int SelWidth() const {
        if (!IsShown(schema_.box)) return 0;
        return std::max(Caption(schema_.box), metrics_.boxSize + 2 * metrics_.margin) + 2 * metrics_.margin;
    }

    int IndexWidth(int32_t firstPosition, int32_t endPosition) const {
        if (!IsShown(schema_.number)) return 0;
        int width = std::max(Caption(schema_.number), TextWidth(dc_, "000"));
        for (int32_t position = firstPosition; position < endPosition; ++position)
            width = std::max(width, TextWidth(dc_, grid_.CellText(grid_.VisibleRow(position), schema_.number)));
        return width + 3 * metrics_.margin;
    }

    int WidestName(const GridFonts& fonts, const GridLayout& layout) const {
        const int32_t end = std::min(grid_.VisibleCount(), layout.TopPosition() + layout.ShownRows());
        int widest = 0;
        for (int32_t position = layout.TopPosition(); position < end; ++position) {
            const int32_t row = grid_.VisibleRow(position);
            SelectObject(dc_, grid_.Look(row, schema_.outline).bold ? fonts.Bold() : fonts.Plain());
            const int text = TextWidth(dc_, grid_.CellText(row, schema_.outline));
            widest = std::max(widest, layout.NameWidth(grid_.RowOutlineLevel(row), text));
        }
        return widest;
    }

    bool ShowsWholeName(const GridFonts& fonts, const GridLayout& layout, int32_t position) const {
        const int32_t row = grid_.VisibleRow(position);
        const CellLook& look = grid_.Look(row, schema_.outline);
        SelectObject(dc_, look.bold ? fonts.Bold() : fonts.Plain());
        return layout.ShowsWhole(layout.Cell(position, shownName), grid_.RowOutlineLevel(row),
                                 look.picture != noPicture, TextWidth(dc_, grid_.CellText(row, schema_.outline)));
    }

  private:
    bool IsShown(int col) const { return col != GridSchema::none && !grid_.ColHidden(col); }
    int Caption(int col) const { return grid_.RowCount() > 0 ? TextWidth(dc_, grid_.CellText(0, col)) : 0; }

    const TreeGrid& grid_;
    const GridSchema& schema_;
    const GridMetrics& metrics_;
    const HDC dc_;
    const HGDIOBJ before_;
};

}  // namespace

void PaintGrid(HDC dc, const GridPicture& picture) {
    Painter(dc, picture).Paint();
}

GridLayout MeasureGrid(const TreeGrid& grid, const GridFonts& fonts, int dpi, SIZE client, int32_t topPosition) {
    const int32_t firstRow = grid.FixedRowCount();
    const int rowTwips = grid.RowCount() > firstRow ? grid.RowHeight(firstRow) : 0;
    const GridMetrics metrics = GridMetrics::For(dpi, rowTwips, fonts.LineHeight());
    const Measurer measurer(grid, fonts, metrics);
    const int32_t shown = GridLayout(metrics, client, 0, 0, 0).ShownRows();
    const int32_t end = std::min(grid.VisibleCount(), topPosition + shown);
    return {metrics, client, measurer.SelWidth(), measurer.IndexWidth(topPosition, end), topPosition};
}

int WidestName(const TreeGrid& grid, const GridFonts& fonts, const GridLayout& layout) {
    return Measurer(grid, fonts, layout.Metrics()).WidestName(fonts, layout);
}

bool ShowsWholeName(const TreeGrid& grid, const GridFonts& fonts, const GridLayout& layout, int32_t position) {
    return Measurer(grid, fonts, layout.Metrics()).ShowsWholeName(fonts, layout, position);
}

COLORREF ToColorRef(OleColor color) {
    COLORREF translated = 0;
    OleTranslateColor(color, nullptr, &translated);
    return translated;
}

}  // namespace foldertree
