// GridView: what gestures ask of whoever shows the grid.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "rows/TreeGrid.h"

namespace foldertree {

/// Which rows have a box to tick; with nothing in it every row has one.
using RowHasBox = std::function<bool(const TreeGrid& grid, int32_t row)>;

/// Whether what lies below a node is known, so that opening it reads nothing; with nothing in it all nodes are.
using NodeIsRead = std::function<bool(const TreeGrid& grid, int32_t row)>;

/// The check box of a row: greyed where the cell's colour says that it may not be edited.
enum class BoxKind { None, Greyed, Plain };
BoxKind BoxOf(const TreeGrid& grid, const RowHasBox& hasBox, int32_t row);

/// The parts of a shown grid that a pointer can be on.
enum class GridPart { Nothing, Header, Box, Index, Glyph, Row };

/// How far the view moves over the rows.
enum class GridScroll { Up, Down, PageUp, PageDown, Top, Bottom, Left, Right };

/// The small text box in which a number is typed. Text is UTF-8.
class NumberBox {
  public:
    virtual ~NumberBox() = default;
    virtual std::string Text() const = 0;
    /// Whether the user typed anything, be it the same number again.
    virtual bool Modified() const = 0;
    /// Puts text in as if it had been typed, with the caret at its end.
    virtual void Type(const std::string& text) = 0;
    virtual void SelectAll() = 0;
};

/// Shows the grid. It may be gone after any of these calls, since showing may call the host.
class GridView {
  public:
    virtual ~GridView() = default;
    virtual bool Shown() const = 0;
    /// Rows that are in view in full, at least 1.
    virtual int32_t PageRows() const = 0;
    virtual void BringIntoView(int32_t row) = 0;
    virtual void Scroll(GridScroll scroll) = 0;
    /// Hands the text to the user for other programs; nothing happens where that is not possible.
    virtual void Copy(const std::string& text) = 0;
    /// Opens the box over the number of a row, with that text; it may fail.
    virtual void OpenNumberBox(int32_t row, const std::string& text) = 0;
    /// The box that is open, or null. The view closes it by itself when it goes away.
    virtual NumberBox* OpenedNumberBox() = 0;
    virtual void CloseNumberBox() = 0;
    /// The text in the open box was refused; it stays there to be put right.
    virtual void TellRefusal() {}
};

/// Of a grid that nobody shows: gestures act on its rows all the same.
GridView& NoGridView();

}  // namespace foldertree
