// TreeGrid: the model behind the grid: rows of cells with formats and outline levels. It knows no pixel.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Object.h"
#include "rows/Colors.h"
#include "rows/GridChanges.h"
#include "rows/GridSchema.h"
#include "rows/RowHandle.h"

namespace foldertree {

/// The settings of CellFormat, by the numbers under which hosts of the grid know them.
enum class CellSetting : int {
    Picture = 3,           // a PictureNumber
    PictureAlignment = 4,  // the control always uses 1: left, centred
    BackColor = 6,         // an OleColor
    ForeColor = 7,         // an OleColor
    Bold = 13,             // 0 or 1
};

/// What one cell looks like. A colour of nothing is the grid's own.
struct CellLook {
    std::optional<OleColor> backColor;
    std::optional<OleColor> foreColor;
    bool bold = false;
    PictureNumber picture = noPicture;
    uint8_t pictureAlignment = 0;
    bool operator==(const CellLook&) const = default;
};

enum NodeStateValue : int32_t { nodeExpanded = 0, nodeCollapsed = 2 };

/// The grid. Row 0 is the header row; data rows run from FixedRowCount() to RowCount() - 1. Text is UTF-8.
/// A row or column out of range throws automation::Error 9. Cost, for n rows: reading or writing a cell, appending, a
/// FindRow by key and inserting in the middle take about O(1); no operation but those that name all rows is O(n).
/// Views returned by CellView are valid until the grid next changes.
/// A member that fails, for want of memory too, has changed nothing. Rows are removed without memory, and what only
/// writes a level, a state or the cursor needs none.
class TreeGrid {
  public:
    /// At most GridSchema::maxColumns columns.
    explicit TreeGrid(const GridSchema& schema);
    ~TreeGrid();
    TreeGrid(const TreeGrid&) = delete;
    TreeGrid& operator=(const TreeGrid&) = delete;

    const GridSchema& Schema() const;

    // Shape
    int32_t RowCount() const;
    /// Appends empty rows or removes rows from the end. Setting it to FixedRowCount() empties the tree and gives its
    /// memory back. Fewer rows than FixedRowCount() are Error 9, more than 33,554,432 are Error 0x8007000E.
    void SetRowCount(int32_t count);
    int32_t ColCount() const;
    /// The grid has the columns of its schema: any other number is Error 9.
    void SetColCount(int32_t count);
    int32_t FixedRowCount() const;
    void SetFixedRowCount(int32_t count);
    void SetFixedColCount(int32_t count);
    /// Appends a row whose first cell holds `text`, or inserts it before row `before`. Rows of the outline below it
    /// move down. Returns the row's number. No row can be put before or in place of a fixed one, nor be removed there.
    int32_t AddRow(std::string_view text, std::optional<int32_t> before = std::nullopt);
    void RemoveRow(int32_t row);

    // Identity
    RowHandle HandleOf(int32_t row) const;
    /// The row's number now; nothing once it has gone. Handles of fixed rows end when the tree is emptied.
    std::optional<int32_t> RowOf(RowHandle handle) const;
    /// The same, for who knows the number that it had: mostly no row has moved, and looking there first costs less.
    std::optional<int32_t> RowOf(RowHandle handle, int32_t lastSeenAt) const;

    // Cells
    std::string CellText(int32_t row, int col) const;
    void SetCellText(int32_t row, int col, std::string_view text);
    /// The leading number of the text as Visual Basic's Val reads it; -1 for "True", 0 for "False" and for no number.
    double CellValue(int32_t row, int col) const;
    /// How many rows are ticked; kept, not counted.
    int32_t TickedCount() const;
    /// The text without a copy, for every column but the key (whose text may be put together on the fly): Error 5.
    std::string_view CellView(int32_t row, int col) const;
    /// The first row from `startRow` on whose key equals `text` without regard to case; -1 when there is none. This is
    /// an index lookup, also when any number of rows share the key.
    int32_t FindRow(std::string_view text, int32_t startRow = 0) const;
    /// The same for any column; others are searched row by row.
    int32_t FindRow(std::string_view text, int32_t startRow, int col) const;

    // Looks. A setting or value that does not exist is Error 5; a block that is partly out of range changes nothing.
    void SetCellFormat(CellSetting setting, int32_t row, int col, uint32_t value);
    void SetCellFormat(CellSetting setting, int32_t row1, int col1, int32_t row2, int col2, uint32_t value);
    /// The setting's value; an unset back or fore colour reads as colors::window and colors::buttonText.
    uint32_t CellFormat(CellSetting setting, int32_t row, int col) const;
    const CellLook& Look(int32_t row, int col) const;
    void SetRowHeight(int32_t row, int32_t twips);  ///< a negative height is the default one
    int32_t RowHeight(int32_t row) const;           ///< 0 until set: the grid's default

    // Outline
    int16_t RowOutlineLevel(int32_t row) const;
    void SetRowOutlineLevel(int32_t row, int16_t level);
    bool IsNode(int32_t row) const;
    void SetIsNode(int32_t row, bool isNode);
    /// 0 or 2, any other is Error 5. On a row that is no node it is kept without effect. Writing it raises no
    /// notification.
    int32_t NodeState(int32_t row) const;
    void SetNodeState(int32_t row, int32_t state);
    /// Whether the next row lies deeper, that is, whether there is something to open.
    bool HasChildren(int32_t row) const;

    // The rows that are not inside a collapsed node, header left out. Worked out when asked for; appending rows at the
    // end extends it without starting anew.
    int32_t VisibleCount() const;
    int32_t VisibleRow(int32_t position) const;                 ///< row number of the visible row at 0-based position
    std::optional<int32_t> VisiblePosition(int32_t row) const;  ///< nothing for a hidden row
    int32_t VisibleAncestor(int32_t row) const;                 ///< the row itself, or the collapsed node that hides it

    // Cursor. It stays on its row when rows are inserted or removed above it. When its row is removed it goes to the
    // row above (of a node's placeholder that is the node), to the first data row when that is a fixed one; 0 (the
    // header) when there is none.
    int32_t CurrentRow() const;
    void SetCurrentRow(int32_t row);

    // Columns
    bool ColHidden(int col) const;
    void SetColHidden(int col, bool hidden);
    int32_t ColDataType(int col) const;
    void SetColDataType(int col, int32_t type);  ///< kept for whoever asks; the schema says which column has boxes
    void AutoSizeColumns(int firstCol, int lastCol);

    // Grid-wide
    const automation::ObjectRef& Font() const;
    void SetFont(automation::ObjectRef font);
    OleColor BackColor() const;
    void SetBackColor(OleColor color);
    OleColor TextColor() const;
    void SetTextColor(OleColor color);
    bool Enabled() const;
    void SetEnabled(bool enabled);
    /// The text of the cell editor while an edit is validated; whoever edits sets it.
    const std::string& EditText() const;
    void SetEditText(std::string_view text);

    /// Observers are not owned and must be removed before they die. They must not change the grid from inside a call.
    /// One that is added hears of what changes from then on.
    void AddObserver(TreeGridObserver* observer);
    void RemoveObserver(TreeGridObserver* observer);
    /// Tells the observers of all that changed since the last time; nothing when nothing did. Whoever is about to let
    /// other code run, to paint or to let a third party read calls this first; so does each gesture at its end.
    void DeliverChanges() noexcept;

    /// Bytes held for rows, cells and indexes, and of these the rows' own text (for benchmarks).
    struct Memory {
        size_t total = 0;
        size_t ownText = 0;
    };
    Memory MemoryUse() const;

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace foldertree
