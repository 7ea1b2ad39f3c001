// LiteralControl: properties, grid set-up, trace, yields and what is seen.
#include "reference/LiteralControl.h"

#include "common/Enumerations.h"
#include "common/QuietPlatform.h"
#include "reference/LiteralText.h"

namespace foldertree::reference {

using automation::Error;
using automation::ObjectRef;

LiteralControl::LiteralControl(ControlPlatform& platform, automation::ObjectFactory& factory)
    : platform_(&platform), factory_(factory) {
    SetupGrid();
    rowHeight_ = 19 * platform.TwipsPerPixel();
    settings_.extendToLevel = 1;
}

void LiteralControl::Trace(const std::string& line) {
    platform_->TraceLine("ctlFolderTree: " + line);
}

void LiteralControl::TraceError(const std::string& opening, Detail detail, const Error& error) {
    Trace("Error in ctlFolderTree." + opening + "?" + (detail == Detail::Bracket ? "): [0x" : "): 0x") +
          HexText(error.Number()) + "] " + error.Text());
}

bool LiteralControl::Trap(const std::string& opening, Detail detail, const std::function<void()>& body) {
    try {
        body();
        return true;
    } catch (const Error& error) {
        TraceError(opening, detail, error);
        return false;
    }
}

void LiteralControl::Yield() {
    platform_->Yield();
    if (closed_) throw ControlGone();
}

void LiteralControl::RaiseChanged() {
    platform_->RaiseChanged();
    if (closed_) throw ControlGone();
}

void LiteralControl::PropertyChanged(const std::string& name) {
    platform_->PropertyChanged(name);
    if (closed_) throw ControlGone();
}

void LiteralControl::Close() {
    static QuietPlatform nobody;
    closed_ = true;
    cancel_ = true;
    KillCollection(selection_);
    session_ = nullptr;
    singleItem_ = nullptr;
    cdoSession_ = nullptr;
    application_ = nullptr;
    platform_ = &nobody;
}

void LiteralControl::AdvanceProgress(int32_t addToMax, int32_t addToValue) {
    if (addToMax > -1) progressMaximum_ += addToMax;
    if (addToValue > -1) progressValue_ += addToValue;
    platform_->SetProgress(progressMaximum_, progressValue_);
    Yield();
}

void LiteralControl::ShowPath(const std::string& path) {
    platform_->SetProgressText(path);
    Yield();
}

void LiteralControl::StartLoad() {
    cancel_ = false;
    refreshing_ = true;
    busy_ = true;
    platform_->ShowWaitPanel(true);
    platform_->SetProgressText("");
    platform_->SetBusyPointer(true);
}

void LiteralControl::ResetProgress() {
    progressMaximum_ = 1;
    progressValue_ = 0;
    platform_->SetProgress(1, 0);
}

void LiteralControl::EndLoad(bool wasRefreshing, bool wasBusy) {
    platform_->SetBusyPointer(false);
    platform_->ShowWaitPanel(false);
    busy_ = wasBusy;
    refreshing_ = wasRefreshing;
}

// The grid's set-up

void LiteralControl::SetupGrid() {
    Trap("SetupGrid (", Detail::Bracket, [&] {
        grid.SetRowCount(1);
        grid.hidden[colIndex] = !(settings_.multiSelect && settings_.allowIndexing);
        const auto toggle = [&](int col, const char* placeholder) {
            grid.SetCellText(0, col, grid.CellText(0, col).empty() ? placeholder : "");
        };
        toggle(colIndex, "<index>");
        toggle(colSel, "<sel>");
        toggle(colName, "<name>");
        grid.dataTypes[colSel] = 11;
        for (int col = 3; col < gridColumnCount; ++col) grid.hidden[static_cast<size_t>(col)] = true;
    });
}

Picture LiteralControl::GetIcon(int32_t type, const std::string& entryID) {
    if (!entryID.empty()) {
        if (entryID == drafts_)
            type = FTIDraft;
        else if (entryID == inbox_)
            type = FTIInbox;
        else if (entryID == outbox_)
            type = FTIOutbox;
        else if (entryID == sent_)
            type = FTISent;
        else if (entryID == deleted_)
            type = FTITrashcan;
        else if (entryID == notes_)
            type = FTINoteItem;
    }
    switch (type) {
        case FTIMailItem:
            return Picture::Mail;
        case FTIAppointmentItem:
            return Picture::Calendar;
        case FTIContactItem:
            return Picture::Contact;
        case FTITaskItem:
            return Picture::Task;
        case FTIjournalItem:
            return Picture::Journal;
        case FTINoteItem:
            return Picture::Note;
        case FTIPostItem:
        case FTIDistributionList:
            return Picture::FolderClosed;
        case FTITrashcan:
            return Picture::Trash;
        case FTIInbox:
            return Picture::Inbox;
        case FTIOutbox:
            return Picture::Outbox;
        case FTISent:
            return Picture::Sent;
        case FTIDraft:
            return Picture::Draft;
        case FTIHome:
            return Picture::Home;
        default:
            return Picture::None;
    }
}

// Properties

void LiteralControl::Load(const Settings& settings) {
    settings_ = settings;
    SetupGrid();
}

void LiteralControl::SetEnabled(bool enabled) {
    Trap("Enabled (", Detail::Bracket, [&] {
        if (settings_.enabled == enabled) return;
        settings_.enabled = enabled;
        grid.backColor = enabled ? 0x80000005 : 0x8000000F;
        grid.textColor = enabled ? 0x80000012 : 0x80000010;
        grid.enabled = enabled;
        PropertyChanged("Enabled");
    });
}

void LiteralControl::SetHighlight(int32_t itemType, bool highlight) {
    bool& flag = itemType == 2   ? settings_.highlightContacts
                 : itemType == 4 ? settings_.highlightJournals
                                 : settings_.highlightTasks;
    const std::string name = itemType == 2   ? "HighlightContactFolders"
                             : itemType == 4 ? "HighlightJournalFolders"
                                             : "HighlightTaskFolders";
    Trap(name + " (", Detail::Bracket, [&] {
        if (flag == highlight) return;
        flag = highlight;
        PerformHighlighting();
        PropertyChanged(name);
    });
}

void LiteralControl::SetMultiSelect(bool multiSelect) {
    Trap("MultiSelect (", Detail::Bracket, [&] {
        if (settings_.multiSelect == multiSelect) return;
        settings_.multiSelect = multiSelect;
        grid.hidden[colIndex] = !(settings_.allowIndexing && settings_.multiSelect);
        PropertyChanged("MultiSelect");
    });
}

void LiteralControl::SetAllowIndexing(bool allowIndexing) {
    Trap("AllowIndexing (", Detail::Bracket, [&] {
        if (settings_.allowIndexing == allowIndexing) return;
        settings_.allowIndexing = allowIndexing;
        grid.hidden[colIndex] = !(settings_.allowIndexing && settings_.multiSelect);
        PropertyChanged("AllowIndexing");
        PropertyChanged("AllowIndexing");
    });
}

void LiteralControl::SetShowAddressBook(bool show) {
    Trap("ShowAddressBook (", Detail::Bracket, [&] {
        if (settings_.showAddressBook == show) return;
        settings_.showAddressBook = show;
        SetupGrid();
        PropertyChanged("ShowAddressBook");
    });
}

void LiteralControl::SetInfoStoreAccessMode(int32_t mode) {
    Trap("InfoStoreAccessMode (", Detail::Bracket, [&] {
        if (settings_.mode == mode) return;
        settings_.mode = mode;
        PropertyChanged("InfoStoreAccessMode");
        GetFolderIDs();
    });
}

void LiteralControl::SetRDOSessionRef(ObjectRef session) {
    Trap("RDOSessionRef (", Detail::Bracket, [&] {
        session_ = std::move(session);
        GetFolderIDs();
    });
}

void LiteralControl::SetExtendToLevel(int32_t level) {
    const bool wasBusy = busy_;
    Trap("ExtendToLevel(", Detail::Bracket, [&] {
        busy_ = true;
        settings_.extendToLevel = level;
        PerformHighlighting();
        PropertyChanged("ExtendToLevel");
        if (level != 0) {
            if (bufferedToLevel_ == -1) {
                for (int32_t row = 1; row < grid.RowCount(); ++row)
                    if (grid.RowOutlineLevel(row) >= level) grid.SetNodeState(row, 2);
            } else if (level > bufferedToLevel_) {
                RefreshList();
                bufferedToLevel_ = level;
            } else {
                for (int32_t row = 1; row < grid.RowCount(); ++row)
                    if (grid.RowOutlineLevel(row) > level) grid.SetNodeState(row, 2);
            }
        } else if (bufferedToLevel_ == -1) {
            for (int32_t row = 1; row < grid.RowCount(); ++row) grid.SetNodeState(row, 0);
        } else {
            RefreshList();
            bufferedToLevel_ = -1;
        }
    });
    busy_ = wasBusy;
}

void LiteralControl::Localize(const std::string& index, const std::string& selection, const std::string& name,
                              const std::string& addressLists, const std::string& pleaseWait,
                              const std::string& cancel) {
    Trap("Localize(", Detail::Bracket, [&] {
        grid.SetCellText(0, colSel, selection);
        grid.SetCellText(0, colIndex, index);
        grid.SetCellText(0, colName, name);
        headingName_ = addressLists;
        if (grid.headingRow > 0) grid.SetCellText(grid.headingRow, colName, addressLists);
        platform_->SetWaitCaptions(pleaseWait, cancel);
    });
}

// The user

bool LiteralControl::TakesGesture(int32_t row) const {
    return grid.enabled && row >= 1 && row < grid.RowCount();
}

bool LiteralControl::ToggleTick(int32_t row) {
    if (!TakesGesture(row)) return false;
    bool cancel = false;
    fgd_BeforeEdit(row, colSel, cancel);
    if (cancel || !TakesGesture(row)) return false;
    grid.SetCellText(row, colSel, grid.CellValue(row, colSel) != 0 ? "0" : "-1");
    fgd_AfterEdit(row, colSel);
    return true;
}

bool LiteralControl::MayEditIndex(int32_t row) {
    if (!TakesGesture(row)) return false;
    bool cancel = false;
    fgd_BeforeEdit(row, colIndex, cancel);
    return !cancel;
}

bool LiteralControl::CommitIndex(int32_t row, const std::string& text) {
    if (!TakesGesture(row)) return false;
    grid.editText = text;
    bool cancel = false;
    fgd_ValidateEdit(row, colIndex, cancel);
    if (cancel || !TakesGesture(row)) return false;
    grid.SetCellText(row, colIndex, text);
    fgd_AfterEdit(row, colIndex);
    return true;
}

void LiteralControl::SetNode(int32_t row, bool open) {
    if (!TakesGesture(row) || !grid.At(row).isNode) return;
    if (row + 1 >= grid.RowCount() || grid.RowOutlineLevel(row + 1) <= grid.RowOutlineLevel(row)) return;
    const int32_t state = open ? 0 : 2;
    if (grid.NodeState(row) == state) return;
    fgd_BeforeCollapse(row, state);
    // The tree may be another one by now.
    if (row < grid.RowCount() && grid.At(row).isNode) grid.SetNodeState(row, state);
}

void LiteralControl::DoubleClick(int32_t row) {
    if (!TakesGesture(row)) return;
    grid.currentRow = row;
    fgd_DblClick();
}

void LiteralControl::cmdCancel_Click() {
    Trap("cmdCancel_Click (", Detail::Bracket, [&] {
        cancel_ = true;
        Yield();
    });
}

// What is seen

SeenRow LiteralControl::SeeRow(int32_t row) const {
    const LiteralRow& from = grid.At(row);
    SeenRow seen;
    for (size_t col = 0; col < from.cells.size(); ++col) {
        const LiteralCell& cell = from.cells[col];
        seen.cells[col] = {cell.text,
                           cell.backColor ? int64_t{*cell.backColor} : -1,
                           cell.foreColor ? int64_t{*cell.foreColor} : -1,
                           cell.bold,
                           static_cast<int>(cell.picture),
                           cell.pictureAlignment};
    }
    seen.level = from.level;
    seen.isNode = from.isNode;
    seen.state = from.state;
    seen.height = from.height;
    return seen;
}

SeenFrame LiteralControl::SeeFrame() {
    return {grid.currentRow, grid.hidden,  grid.dataTypes,     grid.backColor,
            grid.textColor,  grid.enabled, grid.VisibleRows(), {}};
}

const SeenItem* LiteralControl::SeeItem(const ObjectRef& object, SeenItem& seen) const {
    const auto* item = dynamic_cast<const LiteralItem*>(object.get());
    if (item == nullptr) return nullptr;
    seen = {item->Key(),        item->KeyShortEntryID(), item->KeyAlternate(), item->storeID,  item->entryID,
            item->entryIDShort, item->addressListID,     item->name,           item->path,     item->isAddressList,
            item->incomplete,   item->selected,          item->index,          item->itemType, item->folderRecID};
    return &seen;
}

}  // namespace foldertree::reference
