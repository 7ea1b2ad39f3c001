// LiteralSelection: the literal control's picks: holders, ticks, numbers, bulk operations, collapse and lookup.
#include "reference/LiteralControl.h"
#include "reference/LiteralText.h"

namespace foldertree::reference {

using automation::ObjectRef;
using automation::Value;
using automation::VbError;

namespace {

/// Members of an item, which may be a stranger of the host.
const LiteralItem* Own(const ObjectRef& item) {
    return dynamic_cast<const LiteralItem*>(item.get());
}
LiteralItem* Own(ObjectRef& item) {
    return dynamic_cast<LiteralItem*>(item.get());
}
std::string KeyOf(const ObjectRef& item) {
    return Own(item) ? Own(item)->Key() : TextOf(item->Get("Key"));
}
std::string KeyShortOf(const ObjectRef& item) {
    return Own(item) ? Own(item)->KeyShortEntryID() : TextOf(item->Get("KeyShortEntryID"));
}
std::string KeyAlternateOf(const ObjectRef& item) {
    return Own(item) ? Own(item)->KeyAlternate() : TextOf(item->Get("KeyAlternate"));
}
int32_t IndexOf(const ObjectRef& item) {
    return Own(item) ? Own(item)->index : LongOf(item->Get("Index"));
}
void SetIndexOf(ObjectRef item, int32_t index) {
    if (LiteralItem* own = Own(item))
        own->index = index;
    else
        item->Put("Index", index);
}
bool IsSelected(const ObjectRef& item) {
    return Own(item) ? Own(item)->selected : BooleanOf(item->Get("Selected"));
}
bool IsIncomplete(const ObjectRef& item) {
    return Own(item) ? Own(item)->incomplete : BooleanOf(item->Get("Incomplete"));
}
/// A stranger's own affair.
void Select(ObjectRef item) {
    if (LiteralItem* own = Own(item)) own->selected = true;
}

int32_t Next(int32_t number) {
    if (number == INT32_MAX) throw VbError(automation::errors::overflow);
    return number + 1;
}

constexpr OleColor yellow = 0x0000FFFF;
constexpr OleColor window = 0x80000005;
constexpr OleColor buttonFace = 0x8000000F;
constexpr OleColor buttonShadow = 0x80000010;
constexpr int last = gridColumnCount - 1;

}  // namespace

LiteralCollection& LiteralControl::RequirePicks() {
    if (selection_ == nullptr) throw VbError(automation::errors::objectNotSet);
    return *Picks();
}

LiteralCollection& LiteralControl::EnsurePicks() {
    if (selection_ == nullptr) selection_ = NewCollection();
    return *Picks();
}

// The holders

ObjectRef LiteralControl::Selection() {
    Trap("Selection(", Detail::Bracket, [&] {
        if (dirty_) RefreshSelection();
    });
    return selection_;
}

void LiteralControl::SetSelection(ObjectRef collection) {
    Trap("Selection(", Detail::Bracket, [&] {
        selection_ = std::move(collection);
        dirty_ = true;
        ApplySelection();
    });
}

ObjectRef LiteralControl::SelectedItem() {
    if (!settings_.multiSelect && selectedRow_ >= 0) return singleItem_;
    return nullptr;
}

void LiteralControl::SetSelectedItem(ObjectRef item) {
    Trap("SelectedItem (", Detail::Bracket, [&] {
        singleItem_ = std::static_pointer_cast<LiteralItem>(item);
        if (singleItem_ == nullptr) {
            selectedRow_ = -1;
            ApplySelection();
            return;
        }
        const std::string key = singleItem_->isAddressList ? "L" + singleItem_->addressListID
                                                           : "S" + singleItem_->storeID + "|" + singleItem_->entryID;
        const int32_t row = FindRow(key);
        if (row == -1) return;
        selectedRow_ = row;
        ApplySelection();
    });
}

ObjectRef LiteralControl::CreateSelItem(int32_t recordID, const std::string& storeID, const std::string& entryID,
                                        const std::string& entryIDShort, const std::string& listID) {
    auto item = std::make_shared<LiteralItem>();
    if (!listID.empty()) {
        item->addressListID = listID;
        item->isAddressList = true;
    } else {
        item->storeID = storeID;
        item->entryID = entryID;
        item->SetEntryIDShort(entryIDShort);
    }
    item->folderRecID = recordID;
    item->selected = true;
    item->incomplete = true;
    return item;
}

LiteralControl::Item LiteralControl::CreateSelItemFromRow(int32_t row) {
    auto item = std::make_shared<LiteralItem>();
    Trap("CreateSelItemFromRow (", Detail::Bracket, [&] {
        item->name = grid.CellText(row, colName);
        item->index = WholeNumber(grid.CellValue(row, colIndex));
        item->storeID = grid.CellText(row, colStoreID);
        item->entryID = grid.CellText(row, colEntryID);
        item->SetEntryIDShort(grid.CellText(row, colEntryIDShort));
        item->addressListID = grid.CellText(row, colAddressListID);
        item->isAddressList = !item->addressListID.empty();
        item->itemType = WholeNumber(grid.CellValue(row, colItemType));
        item->path = grid.CellText(row, colPath);
        item->selected = grid.CellValue(row, colSel) != 0;
        item->folderRecID = WholeNumber(grid.CellValue(row, colFolderRecID));
    });
    return item;
}

ObjectRef LiteralControl::GetSelItemByKey(const std::string& key) {
    if (selection_ == nullptr || key.empty()) return nullptr;
    for (const auto& entry : Picks()->entries)
        if (SameText(entry.key, key)) return entry.item;
    return nullptr;
}

bool LiteralControl::RemoveSelItemByKey(const std::string& key) {
    bool removed = false;
    Trap("RemoveSelItemByKey(", Detail::Bracket, [&] {
        if (selection_ == nullptr) return;
        for (int32_t position = 1; position <= Picks()->Count(); ++position) {
            if (!SameText(KeyOf(Picks()->Item(position)), key)) continue;
            Picks()->Remove(position);
            removed = true;
            return;
        }
    });
    return removed;
}

int32_t LiteralControl::GetHighIndex() {
    int32_t high = 0;
    if (selection_ == nullptr) return high;
    for (const auto& entry : Picks()->entries)
        if (IndexOf(entry.item) > high) high = IndexOf(entry.item);
    return high;
}

void LiteralControl::KillCollection(ObjectRef& collection) {
    if (collection == nullptr) return;
    auto& picks = static_cast<LiteralCollection&>(*collection);
    while (picks.Count() >= 1) picks.Remove(1);
    collection = nullptr;
}

// Showing the picks and reading them back

void LiteralControl::MarkSelection(int32_t row) {
    Trap("MarkSelection (", Detail::Bracket, [&] {
        const bool ticked = grid.CellValue(row, colSel) != 0;
        grid.SetBackColor(row, colName, last, ticked ? yellow : window);
        if (ticked)
            grid.SetBold(row, 0, last, true);
        else if (!IsHighlighted(grid.CellValue(row, colItemType)))
            grid.SetBold(row, colName, last, false);
        if (settings_.multiSelect) {
            grid.SetBackColor(row, colIndex, colIndex, ticked ? window : buttonFace);
            if (!ticked) grid.SetCellText(row, colIndex, " ");
        }
    });
}

void LiteralControl::CompleteFromRow(LiteralItem& item, int32_t row) {
    item.itemType = WholeNumber(grid.CellValue(row, colItemType));
    item.isAddressList = !item.addressListID.empty();
    item.name = grid.CellText(row, colName);
    item.path = grid.CellText(row, colPath);
    item.incomplete = false;
    item.entryID = grid.CellText(row, colEntryID);
    item.SetEntryIDShort(grid.CellText(row, colEntryIDShort));
    item.storeID = grid.CellText(row, colStoreID);
    item.addressListID = grid.CellText(row, colAddressListID);
    grid.SetCellText(row, colFolderRecID, std::to_string(item.folderRecID));
}

void LiteralControl::ApplySelection() {
    const bool wasBusy = busy_;
    Trap("ApplySelection(", Detail::NoBracket, [&] {
        busy_ = true;
        if (settings_.multiSelect) {
            const int32_t count = selection_ == nullptr ? 0 : Picks()->Count();
            for (int32_t position = 1; position <= count; ++position) {
                ObjectRef item = Picks()->Item(position);
                int32_t row = FindRow(KeyOf(item));
                if (row == -1) row = FindRow(KeyShortOf(item));
                if (row == -1) row = FindRow(KeyAlternateOf(item));
                if (row == -1) row = FindRow(KeyOf(item));
                if (row <= 0) continue;
                if (LiteralItem* own = Own(item); own != nullptr && own->incomplete) CompleteFromRow(*own, row);
                grid.SetCellText(row, colIndex, std::to_string(IndexOf(item)));
                grid.SetCellText(row, colSel, "-1");
                MarkSelection(row);
            }
        } else {
            for (int32_t row = 1; row < grid.RowCount(); ++row) {
                if (grid.CellValue(row, colSel) == 0) continue;
                grid.SetCellText(row, colSel, "0");
                MarkSelection(row);
            }
            const int32_t row = singleItem_ == nullptr ? -1 : FindRow(singleItem_->Key());
            if (row != -1) {
                if (singleItem_->incomplete) CompleteFromRow(*singleItem_, row);
                grid.SetCellText(row, colSel, "-1");
                MarkSelection(row);
            }
        }
        dirty_ = true;
    });
    busy_ = wasBusy;
}

void LiteralControl::ReIndex() {
    Trap("ReIndex(", Detail::NoBracket, [&] {
        if (selection_ == nullptr) return;
        int32_t n = 1;
        for (int32_t position = 1; position <= Picks()->Count(); ++position) {
            const ObjectRef item = Picks()->Item(position);
            if (!IsSelected(item)) continue;
            SetIndexOf(item, n);
            const int32_t row = FindRow(KeyOf(item));
            if (row != -1) grid.SetCellText(row, colIndex, std::to_string(n));
            ++n;
        }
        ApplySelection();
    });
}

void LiteralControl::RefreshSelection() {
    Trap("RefreshSelection(", Detail::NoBracket, [&] {
        if (selection_ != nullptr) {
            for (int32_t position = 1; position <= Picks()->Count();) {
                if (IsIncomplete(Picks()->Item(position)))
                    ++position;
                else
                    Picks()->Remove(position);
            }
        }
        for (int32_t row = 1; settings_.multiSelect && row < grid.RowCount(); ++row) {
            if (grid.CellValue(row, colSel) == 0) continue;
            // A row that cannot be added is told and passed over.
            Trap("RefreshSelection(", Detail::NoBracket, [&] {
                const double number = grid.CellValue(row, colIndex);
                ObjectRef item = GetSelItemByKey(grid.CellText(row, colKey));
                // An item that stayed is moved to its place.
                if (item != nullptr && IsIncomplete(item)) RemoveSelItemByKey(grid.CellText(row, colKey));
                if (item == nullptr) item = CreateSelItemFromRow(row);
                LiteralCollection& picks = EnsurePicks();
                int32_t before = 0;
                for (int32_t position = 1; position <= picks.Count() && before == 0; ++position)
                    if (IndexOf(picks.Item(position)) >= number) before = position;
                picks.Add(item, KeyOf(item), before);
            });
        }
        dirty_ = false;
    });
}

// The grid's notifications

void LiteralControl::fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel) {
    Trap("fgd_BeforeEdit (", Detail::Bracket, [&] {
        if (busy_) return;
        if (col == colSel) {
            if (grid.BackColor(row, colSel) == buttonFace) cancel = true;
        } else if (col == colIndex && settings_.multiSelect && settings_.allowIndexing) {
            if (grid.BackColor(row, colIndex) == buttonFace) cancel = true;
        } else {
            cancel = true;
        }
    });
}

void LiteralControl::fgd_ValidateEdit(int32_t, int32_t col, bool& cancel) {
    Trap("fgd_ValidateEdit(", Detail::Bracket, [&] {
        if (busy_ || col != colIndex) return;
        if (!(settings_.multiSelect && settings_.allowIndexing)) {
            cancel = true;
        } else if (!IsNumber(grid.editText) || NumberAtStart(grid.editText) <= 0) {
            cancel = true;
        }
    });
}

void LiteralControl::fgd_AfterEdit(int32_t row, int32_t col) {
    Trap("fgd_AfterEdit(", Detail::NoBracket, [&] {
        if (busy_) return;
        MarkSelection(row);
        if (col == colSel) {
            const bool ticked = grid.CellValue(row, colSel) != 0;
            selectedRow_ = -1;
            if (settings_.multiSelect) {
                if (ticked) {
                    ObjectRef item = GetSelItemByKey(grid.CellText(row, colKey));
                    if (item == nullptr) {
                        item = CreateSelItemFromRow(row);
                        Select(item);
                        EnsurePicks().Add(item, KeyOf(item));
                        SetIndexOf(item, Next(GetHighIndex()));
                    } else {
                        Select(item);
                    }
                    grid.SetCellText(row, colIndex, std::to_string(IndexOf(item)));
                } else {
                    grid.SetCellText(row, colIndex, " ");
                    RemoveSelItemByKey(grid.CellText(row, colKey));
                }
                dirty_ = true;
            } else if (ticked) {
                selectedRow_ = row;
                for (int32_t r = 1; r < grid.RowCount(); ++r) {
                    if (grid.CellValue(r, colSel) == 0 || r == row) continue;
                    grid.SetCellText(r, colSel, "0");
                    MarkSelection(r);
                }
                singleItem_ = CreateSelItemFromRow(row);
            }
            ReIndex();
            RaiseChanged();
            Trace("Selection changed on");
            Trace("  " + grid.CellText(row, colPath));
            Trace(" SID = " + grid.CellText(row, colStoreID));
            Trace(" EID = " + grid.CellText(row, colEntryID));
            Trace(" EIDShort = " + grid.CellText(row, colEntryIDShort));
            Trace(" AID = " + grid.CellText(row, colAddressListID));
        } else if (col == colIndex && settings_.multiSelect && settings_.allowIndexing) {
            const Item item = CreateSelItemFromRow(row);
            const std::string key = item->Key();
            RemoveSelItemByKey(key);
            LiteralCollection& picks = RequirePicks();
            int32_t before = 0;
            for (int32_t position = 1; position <= picks.Count() && before == 0; ++position)
                if (IndexOf(picks.Item(position)) > item->index) before = position;
            picks.Add(item, key, before);
            ReIndex();
            dirty_ = true;
            RaiseChanged();
        }
    });
}

void LiteralControl::fgd_DblClick() {
    Trap("fgd_DblClick(", Detail::NoBracket, [&] {
        const int32_t row = grid.currentRow;
        if (busy_ || row < 1) return;
        const int32_t state = grid.NodeState(row) == 2 ? 0 : 2;
        fgd_BeforeCollapse(row, state);
        grid.SetNodeState(row, state);
        if (row < grid.RowCount() - 1 && grid.RowOutlineLevel(row + 1) <= grid.RowOutlineLevel(row)) {
            grid.SetCellText(row, colSel, grid.CellValue(row, colSel) != 0 ? "0" : "-1");
            fgd_AfterEdit(row, colSel);
        }
    });
}

// Bulk operations

bool LiteralControl::IsPickRow(int32_t row) const {
    const std::string kind = Lower(grid.CellText(row, colRowKind));
    return kind != "dummy" && kind != "store" && kind != "header";
}

bool LiteralControl::MayBePicked(int32_t row) const {
    return grid.BackColor(row, colSel) != buttonFace;
}

ObjectRef LiteralControl::FindPick(const std::string& key) {
    if (selection_ == nullptr) return nullptr;
    for (const auto& entry : Picks()->entries)
        if (SameText(KeyOf(entry.item), key)) return entry.item;
    return nullptr;
}

void LiteralControl::Untick(int32_t row) {
    grid.SetCellText(row, colSel, "0");
    grid.SetCellText(row, colIndex, " ");
    MarkSelection(row);
}

void LiteralControl::AddPickOfRow(int32_t row, int32_t number) {
    grid.SetCellText(row, colIndex, std::to_string(number));
    const Item item = CreateSelItemFromRow(row);
    item->selected = true;
    EnsurePicks().Add(item, item->Key());
}

void LiteralControl::SelectNone() {
    Trap("SelectNone(", Detail::NoBracket, [&] {
        for (int32_t row = 1; row < grid.RowCount(); ++row) {
            if (!IsPickRow(row) || grid.CellValue(row, colSel) == 0) continue;
            Untick(row);
            RemoveSelItemByKey(grid.CellText(row, colKey));
        }
        if (!settings_.multiSelect) {
            singleItem_ = nullptr;
            selectedRow_ = -1;
        }
        dirty_ = true;
    });
}

void LiteralControl::SelectAll() {
    Trap("SelectAll(", Detail::NoBracket, [&] {
        if (!settings_.multiSelect) return;
        int32_t high = GetHighIndex();
        for (int32_t row = 1; row < grid.RowCount(); ++row) {
            if (!IsPickRow(row) || !MayBePicked(row)) continue;
            grid.SetCellText(row, colSel, "-1");
            const ObjectRef item = FindPick(grid.CellText(row, colKey));
            if (item == nullptr) {
                high = Next(high);
                AddPickOfRow(row, high);
            } else {
                Select(item);
            }
        }
        ReIndex();
        dirty_ = true;
    });
}

void LiteralControl::SelectByType(int32_t type, bool additional) {
    Trap("SelectByType(", Detail::NoBracket, [&] {
        int32_t high = additional ? GetHighIndex() : -1;
        bool changed = false;
        for (int32_t row = 1; row < grid.RowCount(); ++row) {
            if (!IsPickRow(row)) continue;
            const std::string key = grid.CellText(row, colKey);
            const ObjectRef item = FindPick(key);
            const bool matches = grid.CellValue(row, colItemType) == type && MayBePicked(row);
            if (!matches) {
                if (additional) continue;
                RemoveSelItemByKey(key);
                changed = true;
            } else if (item == nullptr) {
                high = Next(high);
                AddPickOfRow(row, high);
                changed = true;
            } else if (!IsSelected(item)) {
                Select(item);
                high = Next(high);
                SetIndexOf(item, high);
                changed = true;
            }
        }
        if (changed) ReIndex();
        if (!additional)
            for (int32_t row = 1; row < grid.RowCount(); ++row)
                if (IsPickRow(row) && grid.CellValue(row, colSel) != 0 && MayBePicked(row) &&
                    FindPick(grid.CellText(row, colKey)) == nullptr)
                    Untick(row);
        ApplySelection();
        dirty_ = true;
    });
}

// Collapse

void LiteralControl::CollapseToSelection() {
    CollapseStores([&](int32_t row) { return grid.CellValue(row, colSel) != 0; });
}

void LiteralControl::CollapseToType(int32_t type) {
    CollapseStores([&, type](int32_t row) { return grid.CellValue(row, colItemType) == type; });
}

void LiteralControl::CollapseStores(const std::function<bool(int32_t row)>& keeps) {
    for (int32_t row = 1; row <= grid.RowCount() - 1; ++row) {
        if (grid.RowOutlineLevel(row) != 0) continue;
        int32_t finish = 0;
        bool folded = false;
        Collapse_Recurse(row, finish, folded, keeps);
    }
}

void LiteralControl::Collapse_Recurse(int32_t start, int32_t& finish, bool& folded,
                                      const std::function<bool(int32_t row)>& keeps) {
    bool fold = true;
    const int16_t base = grid.RowOutlineLevel(start);
    int32_t cur = start + 1;
    while (cur < grid.RowCount() - 1) {
        if (keeps(cur)) fold = false;
        if (grid.RowOutlineLevel(cur) <= base) break;
        int32_t f = 0;
        bool c = false;
        Collapse_Recurse(cur, f, c, keeps);
        if (!c) fold = false;
        cur = f == cur ? cur + 1 : f;
    }
    finish = cur;
    grid.SetNodeState(start, fold ? 2 : 0);
    folded = fold;
}

// Highlighting

bool LiteralControl::IsHighlighted(double type) const {
    return (type == 2 && settings_.highlightContacts) || (type == 4 && settings_.highlightJournals) ||
           (type == 3 && settings_.highlightTasks);
}

void LiteralControl::PerformHighlighting() {
    Trap("PerformHighlighting(", Detail::Bracket, [&] {
        for (int32_t row = 1; row < grid.RowCount(); ++row) {
            if (IsHighlighted(grid.CellValue(row, colItemType)))
                grid.SetBold(row, 0, last, true);
            else if (grid.BackColor(row, 0) != buttonFace)
                grid.SetBold(row, 0, last, false);
        }
    });
}

void LiteralControl::HighlightNewRow(int32_t row, int32_t type) {
    const auto apply = [&](bool flag, int32_t wanted) {
        if (!flag) return;
        if (type == wanted)
            grid.SetBold(row, 0, last, true);
        else
            grid.SetForeColor(row, 0, last, buttonShadow);
    };
    apply(settings_.highlightContacts, 2);
    apply(settings_.highlightJournals, 4);
    apply(settings_.highlightTasks, 3);
}

// Lookup

ObjectRef LiteralControl::GetMsgItem(const std::string& storeID, const std::string& entryID) {
    const int32_t row = FindRow("S" + storeID + "|" + entryID);
    return row > -1 ? CreateSelItemFromRow(row) : nullptr;
}

ObjectRef LiteralControl::GetAdListItem(const std::string& listID, const std::string& entryID) {
    const int32_t row = FindRow("L" + listID + "|" + entryID);
    return row > -1 ? CreateSelItemFromRow(row) : nullptr;
}

}  // namespace foldertree::reference
