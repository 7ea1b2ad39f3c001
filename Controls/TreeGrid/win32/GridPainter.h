// GridPainter: draws the grid's header and the rows that are in view.
#pragma once

#include <windows.h>

#include "interaction/GridView.h"
#include "layout/GridLayout.h"
#include "rows/TreeGrid.h"
#include "win32/GridFonts.h"
#include "win32/GridPictures.h"

namespace foldertree {

/// Everything that a picture of the grid depends on. Holds references only.
struct GridPicture {
    const TreeGrid& grid;
    const GridLayout& layout;
    const GridFonts& fonts;
    const GridPictures& pictures;
    const RowHasBox& hasBox;
    bool focused = false;
    /// Ticked rows are drawn with the system's colours for what is selected, instead of their own.
    bool highContrast = false;
    int32_t hoveredRow = 0;  ///< the row under the pointer, or 0
};

/// Draws header, rows and the empty rest into the layout's client area. Costs by the rows in view only. A text whose
/// colour would be hard to read on its ground is drawn in one that can be read (see ReadableOn); the cells keep theirs.
void PaintGrid(HDC dc, const GridPicture& picture);

/// The layout for a client area: the tick and number columns fit their captions and what is in view, the name takes the
/// rest.
GridLayout MeasureGrid(const TreeGrid& grid, const GridFonts& fonts, int dpi, SIZE client, int32_t topPosition);

/// The width that the names of the rows in view want (see GridLayout::NameWidth).
int WidestName(const TreeGrid& grid, const GridFonts& fonts, const GridLayout& layout);

/// Whether a row's name, in view at that position, is seen in full.
bool ShowsWholeName(const TreeGrid& grid, const GridFonts& fonts, const GridLayout& layout, int32_t position);

/// An OLE colour as GDI wants it.
COLORREF ToColorRef(OleColor color);

}  // namespace foldertree
