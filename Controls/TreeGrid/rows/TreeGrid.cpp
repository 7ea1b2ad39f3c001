// TreeGrid: the grid's operations over its row store, its outline and its columns.
#include "rows/TreeGrid.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "automation/Error.h"
#include "rows/Outline.h"
#include "rows/RowStore.h"

namespace foldertree {

namespace {

[[noreturn]] void ThrowSubscript() {
    throw automation::VbError(automation::errors::subscript);
}
[[noreturn]] void ThrowInvalidCall() {
    throw automation::VbError(automation::errors::invalidCall);
}

void CheckSetting(const GridSchema& schema, CellSetting setting, uint32_t value) {
    switch (setting) {
        case CellSetting::Picture:
            if (value > schema.pictures) ThrowInvalidCall();
            return;
        case CellSetting::PictureAlignment:
            if (value > UINT8_MAX) ThrowInvalidCall();
            return;
        case CellSetting::BackColor:
        case CellSetting::ForeColor:
        case CellSetting::Bold:
            return;
    }
    ThrowInvalidCall();
}

/// What people are told of when a text of the column changes.
std::optional<NotedRows::Change> NotedChange(const GridSchema& schema, int col) {
    if (col == schema.box) return NotedRows::tick;
    if (col == schema.number) return NotedRows::number;
    return std::nullopt;
}

}  // namespace

class TreeGrid::Impl final : public OutlineRows {
  public:
    explicit Impl(const GridSchema& meaning) : schema(meaning) { store->Insert(0); }

    void CheckColumn(int col) const {
        if (col < 0 || col >= schema.columns) ThrowSubscript();
    }

    int32_t CurrentRow() const { return RowOf(cursor).value_or(0); }
    std::optional<int32_t> RowOf(RowHandle handle) const {
        const std::optional<RowId> row = store->RowOf(handle);
        if (!row) return std::nullopt;
        return store->NumberOf(*row);
    }
    void SetCurrentRow(int32_t row) {
        cursor = store->HandleOf(store->At(row));
        changes.cursor = true;
    }

    RowId Row(int32_t row) const {
        if (row < 0 || row >= store->Count()) ThrowSubscript();
        return store->At(row);
    }
    RowId Cell(int32_t row, int col) const {
        CheckColumn(col);
        return Row(row);
    }

    int32_t First() const override { return fixedRows; }
    int32_t Count() const override { return store->Count(); }
    OutlineRows::Row At(int32_t row) const override {
        const RowId id = store->At(row);
        return {store->Level(id), store->IsNode(id) && store->IsCollapsed(id)};
    }

    void OutlineChanged(int32_t row) {
        outline.Invalidate(row);
        changes.OutlineChangedFrom(row);
    }
    void LevelsChanged(int32_t row) {
        OutlineChanged(row);
        changes.levels = true;
    }

    void Append(int32_t count);
    void Truncate(int32_t count) noexcept;
    void KeepFixedRows() noexcept;
    void RemoveRowsFrom(int32_t count) noexcept;
    void CursorAfterRemoval(int32_t first) noexcept;

    const GridSchema schema;
    std::unique_ptr<RowStore> store = std::make_unique<RowStore>(schema, 1);
    mutable Outline outline{*this};
    int32_t fixedRows = 1;
    int32_t fixedCols = 0;
    RowHandle cursor;
    std::array<bool, GridSchema::maxColumns> hidden{};
    std::array<int32_t, GridSchema::maxColumns> dataTypes{};
    automation::ObjectRef font;
    OleColor backColor = colors::window;
    OleColor textColor = colors::buttonText;
    bool enabled = true;
    std::string editText;
    std::vector<TreeGridObserver*> observers;
    GridChanges changes;      ///< not yet told
    bool delivering = false;  ///< observers that leave are taken out of the list afterwards
};

void TreeGrid::Impl::Append(int32_t count) {
    const int32_t first = store->Count();
    if (count > RowStore::maxCount - first) throw automation::VbError(automation::errors::outOfMemory);
    NewRows rows(*store, first);
    for (int32_t added = 0; added < count; ++added) rows.Insert();
    rows.Keep();
    changes.RowsMovedFrom(first);
}

void TreeGrid::Impl::Truncate(int32_t count) noexcept {
    const bool hadCursor = CurrentRow() < count;
    outline.Invalidate(count);
    changes.RowsMovedFrom(count);
    if (count == fixedRows) {
        KeepFixedRows();
        changes.emptied = true;
    } else {
        RemoveRowsFrom(count);
    }
    if (!hadCursor) CursorAfterRemoval(count);
}

void TreeGrid::Impl::RemoveRowsFrom(int32_t count) noexcept {
    while (store->Count() > count) store->Remove(store->Count() - 1);
}

// Copying the few rows that stay is less work than removing all others, and gives all memory of those back. Without
// memory for the copies the others are removed where they stand.
void TreeGrid::Impl::KeepFixedRows() noexcept {
    try {
        auto kept = std::make_unique<RowStore>(schema, store->Number() + 1);
        for (int32_t row = 0; row < fixedRows; ++row) kept->AppendCopy(*store, store->At(row));
        store = std::move(kept);
    } catch (const std::bad_alloc&) {
        RemoveRowsFrom(fixedRows);
    }
}

// A removed cursor row hands the cursor to the row above it: of a node's placeholder that is the node.
void TreeGrid::Impl::CursorAfterRemoval(int32_t first) noexcept {
    const int32_t above = std::max(first - 1, fixedRows);
    if (above < store->Count()) {
        SetCurrentRow(above);
    } else {
        cursor = {};
        changes.cursor = true;
    }
}

TreeGrid::TreeGrid(const GridSchema& schema) : impl_(std::make_unique<Impl>(schema)) {}
TreeGrid::~TreeGrid() = default;

const GridSchema& TreeGrid::Schema() const {
    return impl_->schema;
}

// Shape

int32_t TreeGrid::RowCount() const {
    return impl_->store->Count();
}

void TreeGrid::SetRowCount(int32_t count) {
    if (count < impl_->fixedRows) ThrowSubscript();
    const int32_t now = RowCount();
    if (count > now) impl_->Append(count - now);
    if (count < now) impl_->Truncate(count);
}

int32_t TreeGrid::ColCount() const {
    return impl_->schema.columns;
}

void TreeGrid::SetColCount(int32_t count) {
    if (count != impl_->schema.columns) ThrowSubscript();
}

int32_t TreeGrid::FixedRowCount() const {
    return impl_->fixedRows;
}

void TreeGrid::SetFixedRowCount(int32_t count) {
    if (count < 0 || count > RowCount()) ThrowSubscript();
    if (count == impl_->fixedRows) return;
    impl_->fixedRows = count;
    impl_->LevelsChanged(0);
}

void TreeGrid::SetFixedColCount(int32_t count) {
    if (count < 0 || count > impl_->schema.columns) ThrowSubscript();
    impl_->fixedCols = count;
}

int32_t TreeGrid::AddRow(std::string_view text, std::optional<int32_t> before) {
    Impl& impl = *impl_;
    const int32_t row = before.value_or(RowCount());
    if (row < impl.fixedRows || row > RowCount()) ThrowSubscript();
    const std::string first(text);  // the view may be of a cell of this grid
    NewRows added(*impl.store, row);
    impl.store->SetText(added.Insert(), 0, first);
    added.Keep();
    impl.outline.Invalidate(row);
    impl.changes.RowsMovedFrom(row);
    return row;
}

void TreeGrid::RemoveRow(int32_t row) {
    if (row < impl_->fixedRows || row >= RowCount()) ThrowSubscript();
    const bool isCursor = HandleOf(row) == impl_->cursor;
    impl_->outline.Invalidate(row);
    impl_->store->Remove(row);
    impl_->changes.RowsMovedFrom(row);
    if (RowCount() == impl_->fixedRows) impl_->changes.emptied = true;
    if (isCursor) impl_->CursorAfterRemoval(row);
}

// Identity

RowHandle TreeGrid::HandleOf(int32_t row) const {
    return impl_->store->HandleOf(impl_->Row(row));
}

std::optional<int32_t> TreeGrid::RowOf(RowHandle handle) const {
    return impl_->RowOf(handle);
}

std::optional<int32_t> TreeGrid::RowOf(RowHandle handle, int32_t lastSeenAt) const {
    if (lastSeenAt >= 0 && lastSeenAt < RowCount() && HandleOf(lastSeenAt) == handle) return lastSeenAt;
    return impl_->RowOf(handle);
}

// Cells

std::string TreeGrid::CellText(int32_t row, int col) const {
    return impl_->store->Text(impl_->Cell(row, col), col);
}

void TreeGrid::SetCellText(int32_t row, int col, std::string_view text) {
    Impl& impl = *impl_;
    const RowId id = impl.Cell(row, col);
    const std::optional<NotedRows::Change> kind = NotedChange(impl.schema, col);
    const double before = kind ? impl.store->Number(id, col) : 0;
    if (!impl.store->SetText(id, col, text)) return;
    impl.changes.RowsChanged(row, row);
    if (!kind) return;
    const double now = impl.store->Number(id, col);
    const bool same = *kind == NotedRows::tick ? (now != 0) == (before != 0) : now == before;
    if (!same) impl.changes.noted.Add(impl.store->HandleOf(id), *kind);
}

int32_t TreeGrid::TickedCount() const {
    return impl_->store->TickedCount();
}

double TreeGrid::CellValue(int32_t row, int col) const {
    return impl_->store->Number(impl_->Cell(row, col), col);
}

std::string_view TreeGrid::CellView(int32_t row, int col) const {
    if (col == impl_->schema.key) ThrowInvalidCall();
    return impl_->store->View(impl_->Cell(row, col), col);
}

int32_t TreeGrid::FindRow(std::string_view text, int32_t startRow) const {
    return FindRow(text, startRow, impl_->schema.key);
}

int32_t TreeGrid::FindRow(std::string_view text, int32_t startRow, int col) const {
    impl_->CheckColumn(col);
    if (startRow < 0 || startRow > RowCount()) ThrowSubscript();
    return impl_->store->Find(text, startRow, col);
}

// Looks

void TreeGrid::SetCellFormat(CellSetting setting, int32_t row, int col, uint32_t value) {
    SetCellFormat(setting, row, col, row, col, value);
}

void TreeGrid::SetCellFormat(CellSetting setting, int32_t row1, int col1, int32_t row2, int col2, uint32_t value) {
    impl_->CheckColumn(col1);
    impl_->CheckColumn(col2);
    if (row1 < 0 || row2 >= RowCount() || row1 > row2 || col1 > col2) ThrowSubscript();
    CheckSetting(impl_->schema, setting, value);
    const StyleChange change{static_cast<int>(setting), col1, col2, value};
    if (impl_->store->ChangeStyles(row1, row2, change)) impl_->changes.RowsChanged(row1, row2);
}

uint32_t TreeGrid::CellFormat(CellSetting setting, int32_t row, int col) const {
    const CellLook& look = Look(row, col);
    switch (setting) {
        case CellSetting::Picture:
            return static_cast<uint32_t>(look.picture);
        case CellSetting::PictureAlignment:
            return look.pictureAlignment;
        case CellSetting::BackColor:
            return look.backColor.value_or(colors::window);
        case CellSetting::ForeColor:
            return look.foreColor.value_or(colors::buttonText);
        case CellSetting::Bold:
            return look.bold ? 1 : 0;
    }
    ThrowInvalidCall();
}

const CellLook& TreeGrid::Look(int32_t row, int col) const {
    return impl_->store->Style(impl_->Cell(row, col)).cells[static_cast<size_t>(col)];
}

void TreeGrid::SetRowHeight(int32_t row, int32_t twips) {
    const StyleChange change{StyleChange::rowHeight, 0, 0, static_cast<uint32_t>(std::max(twips, 0))};
    if (impl_->store->ChangeStyle(impl_->Row(row), change)) impl_->changes.RowsChanged(row, row);
}

int32_t TreeGrid::RowHeight(int32_t row) const {
    return impl_->store->Style(impl_->Row(row)).height;
}

// Outline

int16_t TreeGrid::RowOutlineLevel(int32_t row) const {
    return impl_->store->Level(impl_->Row(row));
}

void TreeGrid::SetRowOutlineLevel(int32_t row, int16_t level) {
    const RowId id = impl_->Row(row);
    if (impl_->store->Level(id) == level) return;
    impl_->store->SetLevel(id, level);
    impl_->LevelsChanged(row);
}

bool TreeGrid::IsNode(int32_t row) const {
    return impl_->store->IsNode(impl_->Row(row));
}

void TreeGrid::SetIsNode(int32_t row, bool isNode) {
    const RowId id = impl_->Row(row);
    if (impl_->store->IsNode(id) == isNode) return;
    impl_->store->SetIsNode(id, isNode);
    impl_->LevelsChanged(row);
}

int32_t TreeGrid::NodeState(int32_t row) const {
    return impl_->store->IsCollapsed(impl_->Row(row)) ? nodeCollapsed : nodeExpanded;
}

void TreeGrid::SetNodeState(int32_t row, int32_t state) {
    const RowId id = impl_->Row(row);
    if (state != nodeExpanded && state != nodeCollapsed) ThrowInvalidCall();
    if (NodeState(row) == state) return;
    impl_->store->SetIsCollapsed(id, state == nodeCollapsed);
    impl_->changes.noted.Add(impl_->store->HandleOf(id), NotedRows::node);
    impl_->OutlineChanged(row);
}

bool TreeGrid::HasChildren(int32_t row) const {
    const int16_t level = RowOutlineLevel(row);
    return row + 1 < RowCount() && RowOutlineLevel(row + 1) > level;
}

int32_t TreeGrid::VisibleCount() const {
    return impl_->outline.VisibleCount();
}

int32_t TreeGrid::VisibleRow(int32_t position) const {
    const std::optional<int32_t> row = impl_->outline.VisibleRow(position);
    if (!row) ThrowSubscript();
    return *row;
}

std::optional<int32_t> TreeGrid::VisiblePosition(int32_t row) const {
    impl_->Row(row);
    return impl_->outline.VisiblePosition(row);
}

int32_t TreeGrid::VisibleAncestor(int32_t row) const {
    impl_->Row(row);
    return impl_->outline.VisibleAncestor(row);
}

// Cursor

int32_t TreeGrid::CurrentRow() const {
    return impl_->CurrentRow();
}

void TreeGrid::SetCurrentRow(int32_t row) {
    impl_->Row(row);
    if (CurrentRow() != row) impl_->SetCurrentRow(row);
}

// Columns

bool TreeGrid::ColHidden(int col) const {
    impl_->CheckColumn(col);
    return impl_->hidden[static_cast<size_t>(col)];
}

void TreeGrid::SetColHidden(int col, bool hidden) {
    impl_->CheckColumn(col);
    bool& now = impl_->hidden[static_cast<size_t>(col)];
    if (now == hidden) return;
    now = hidden;
    impl_->changes.columns = true;
}

int32_t TreeGrid::ColDataType(int col) const {
    impl_->CheckColumn(col);
    return impl_->dataTypes[static_cast<size_t>(col)];
}

void TreeGrid::SetColDataType(int col, int32_t type) {
    impl_->CheckColumn(col);
    int32_t& now = impl_->dataTypes[static_cast<size_t>(col)];
    if (now == type) return;
    now = type;
    impl_->changes.columns = true;
}

void TreeGrid::AutoSizeColumns(int firstCol, int lastCol) {
    impl_->CheckColumn(firstCol);
    impl_->CheckColumn(lastCol);
    impl_->changes.columns = true;
}

// Grid-wide

const automation::ObjectRef& TreeGrid::Font() const {
    return impl_->font;
}

void TreeGrid::SetFont(automation::ObjectRef font) {
    std::swap(impl_->font, font);  // the end of the old one, which may run other code, comes last
    impl_->changes.appearance = true;
}

OleColor TreeGrid::BackColor() const {
    return impl_->backColor;
}

void TreeGrid::SetBackColor(OleColor color) {
    impl_->backColor = color;
    impl_->changes.appearance = true;
}

OleColor TreeGrid::TextColor() const {
    return impl_->textColor;
}

void TreeGrid::SetTextColor(OleColor color) {
    impl_->textColor = color;
    impl_->changes.appearance = true;
}

bool TreeGrid::Enabled() const {
    return impl_->enabled;
}

void TreeGrid::SetEnabled(bool enabled) {
    impl_->enabled = enabled;
    impl_->changes.appearance = true;
}

const std::string& TreeGrid::EditText() const {
    return impl_->editText;
}

void TreeGrid::SetEditText(std::string_view text) {
    impl_->editText = text;
}

void TreeGrid::AddObserver(TreeGridObserver* observer) {
    DeliverChanges();
    impl_->observers.push_back(observer);
}

void TreeGrid::RemoveObserver(TreeGridObserver* observer) {
    if (impl_->delivering)
        std::ranges::replace(impl_->observers, observer, nullptr);
    else
        std::erase(impl_->observers, observer);
}

void TreeGrid::DeliverChanges() noexcept {
    if (!impl_->changes.Any()) return;
    static constexpr GridChanges none;
    const GridChanges changes = std::exchange(impl_->changes, none);
    // By position and not by iterator: an observer may leave, or take another along, when it hears of a change.
    const bool outermost = !std::exchange(impl_->delivering, true);
    size_t next = 0;
    while (next < impl_->observers.size())
        if (TreeGridObserver* const observer = impl_->observers[next++]) observer->GridChanged(changes);
    if (!outermost) return;
    impl_->delivering = false;
    std::erase(impl_->observers, nullptr);
}

TreeGrid::Memory TreeGrid::MemoryUse() const {
    return {impl_->store->MemoryUse() + impl_->outline.MemoryUse(), impl_->store->OwnTextBytes()};
}

}  // namespace foldertree
