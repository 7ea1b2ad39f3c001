// ctlFolderTree: the control's public members, in interface order, its setters and its life.
#include "ctlFolderTree.h"

#include "addresslists/AddressListRows.h"
#include "automation/KeyedCollection.h"
#include "common/ControlContext.h"
#include "common/FolderKey.h"
#include "common/GridSetup.h"
#include "common/PersistedProperties.h"
#include "enumeration/RdoTabReader.h"
#include "enumeration/RefreshDriver.h"
#include "modes/CdoReader.h"
#include "modes/OutlookReader.h"
#include "modes/RdoObjReader.h"
#include "selection/BulkSelection.h"
#include "selection/Highlighting.h"
#include "selection/ItemLookup.h"
#include "selection/OutlineCollapse.h"
#include "selection/SelectionSet.h"
#include "selection/SelectionView.h"
#include "selection/TickEditing.h"

namespace foldertree {

using automation::ObjectRef;

/// The control's parts, wired together.
class ctlFolderTree::Impl {
  public:
    Impl(ctlFolderTree& control, ControlPlatform& platform, automation::ObjectFactory& factory)
        : context(platform, factory),
          selection(context),
          view(context, selection),
          editing(context, selection, view, control),
          bulk(context, selection, view),
          rdoTab(context, view),
          rdoObj(context, view),
          outlook(context, view),
          cdo(context, view),
          addressLists(context, [this] { return cdo.CDOSession(); }),
          driver(context, view),
          state(context.state) {
        // In the order of enuInfoStoreAccessMode.
        driver.SetReaders({.stores = {&rdoTab, &rdoObj, &outlook, &cdo}, .addressLists = &addressLists});
    }

    ControlContext context;
    SelectionSet selection;
    SelectionView view;
    TickEditing editing;
    BulkSelection bulk;
    RdoTabReader rdoTab;
    RdoObjReader rdoObj;
    OutlookReader outlook;
    CdoReader cdo;
    AddressListRows addressLists;
    RefreshDriver driver;
    ControlState& state;
    bool initialised = false;
    bool closing = false;  ///< public members do nothing any more, though the control still takes its leave

    void SetDefaults() {
        state.enabled = true;
        state.highlightContactFolders = false;
        state.highlightJournalFolders = false;
        state.highlightTaskFolders = false;
        state.multiSelect = true;
        state.allowIndexing = false;
        state.extendToLevel = 1;
        selection.KillCollection();
        context.ThrowIfClosed();
        state.rdoSession = nullptr;
        state.showAddressBook = false;
        state.infoStoreAccessMode = eISAccess_RDO_MAPITables;
    }

    void ReleaseObjects() {
        // The host's own collection is emptied, not only let go; it is let go also when it resists.
        selection.KillCollection();
        selection.collection = nullptr;
        state.rdoSession = nullptr;
        selection.singleItem = nullptr;
        state.application = nullptr;
        cdo.ReleaseSession();
    }

    /// Stores a changed value, runs its side effect and marks the property changed; an equal value does nothing.
    template <class T, class Effect>
    void Set(T& stored, T value, const ErrorLine& line, Member property, Effect&& effect) {
        Guarded(context, line, [&] {
            if (stored == value) return;
            stored = value;
            effect();
            context.PropertyChanged(property);
        });
    }

    void CollapseRows(auto&& isToCollapse) {
        TreeGrid& grid = context.grid;
        for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row)
            if (isToCollapse(grid.RowOutlineLevel(row))) grid.SetNodeState(row, nodeCollapsed);
    }

    void ExpandAllRows() {
        TreeGrid& grid = context.grid;
        for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) grid.SetNodeState(row, nodeExpanded);
    }

    void ExtendTo(int32_t level) {
        int32_t& buffered = state.bufferedToLevel;
        if (level == 0) {
            if (buffered == -1) {
                ExpandAllRows();
            } else {
                driver.RefreshList();
                buffered = -1;
            }
        } else if (buffered == -1) {
            CollapseRows([level](int32_t rowLevel) { return rowLevel >= level; });
        } else if (level > buffered) {
            driver.RefreshList();
            buffered = level;
        } else {
            // One level fewer than above, where every level is in the grid.
            CollapseRows([level](int32_t rowLevel) { return rowLevel > level; });
        }
    }
};

namespace {

/// The grid's observers hear of what a member did before its caller goes on.
class ChangesTold {
  public:
    explicit ChangesTold(TreeGrid& grid) : grid_(grid) {}
    ~ChangesTold() { grid_.DeliverChanges(); }
    ChangesTold(const ChangesTold&) = delete;
    ChangesTold& operator=(const ChangesTold&) = delete;

  private:
    TreeGrid& grid_;
};

/// Keeps the control alive while a member runs, inside which its last owner may let go. A control that dies runs its
/// members without.
template <class Result, class Control, class Impl, class Body>
Result Alive(Control& control, Impl& impl, Result neutral, Body&& body) {
    const auto keepAlive = control.weak_from_this().lock();
    const ChangesTold told(impl.context.grid);
    return UntilClosed(std::move(neutral), std::forward<Body>(body));
}

/// Runs a public member: does nothing on a closed control, and gives one that was neither initialised nor loaded its
/// defaults first.
template <class Result, class Control, class Impl, class Body>
Result Enter(Control& control, Impl& impl, Result neutral, Body&& body) {
    if (impl.closing) return neutral;
    return Alive(control, impl, std::move(neutral), [&] {
        if (!impl.initialised) control.UserControl_InitProperties();
        impl.context.ThrowIfClosed();
        return std::forward<Body>(body)();
    });
}

struct Nothing {};

template <class Control, class Impl, class Body>
void AliveVoid(Control& control, Impl& impl, Body&& body) {
    Alive(control, impl, Nothing(), [&] {
        body();
        return Nothing();
    });
}

template <class Control, class Impl, class Body>
void EnterVoid(Control& control, Impl& impl, Body&& body) {
    Enter(control, impl, Nothing(), [&] {
        body();
        return Nothing();
    });
}

}  // namespace

std::shared_ptr<ctlFolderTree> ctlFolderTree::Create(ControlPlatform& platform, automation::ObjectFactory& factory) {
    return std::shared_ptr<ctlFolderTree>(new ctlFolderTree(platform, factory));
}

ctlFolderTree::ctlFolderTree(ControlPlatform& platform, automation::ObjectFactory& factory)
    : impl_(std::make_unique<Impl>(*this, platform, factory)) {
    // UserControl_Initialize
    ControlContext& context = impl_->context;
    Guarded(context, errorLines::initialize, [&] {
        constexpr int rowHeightPixels = 19;
        context.grid.SetFont(platform.CreateFont("Tahoma"));
        SetupGrid(context);
        context.state.addressListRowName = "<address lists>";
        context.state.rowHeight = rowHeightPixels * platform.TwipsPerPixel();
    });
}

ctlFolderTree::~ctlFolderTree() {
    Close();
}

void ctlFolderTree::UserControl_InitProperties() {
    if (impl_->closing) return;
    AliveVoid(*this, *impl_, [&] {
        impl_->initialised = true;
        Guarded(impl_->context, errorLines::initProperties, [&] { impl_->SetDefaults(); });
    });
}

void ctlFolderTree::UserControl_ReadProperties(PropertyBag& bag) {
    if (impl_->closing) return;
    AliveVoid(*this, *impl_, [&] {
        impl_->initialised = true;
        Guarded(impl_->context, errorLines::readProperties, [&] {
            ReadPersistedProperties(impl_->context, bag);
            SetupGrid(impl_->context);
        });
    });
}

void ctlFolderTree::UserControl_WriteProperties(PropertyBag& bag) {
    EnterVoid(*this, *impl_, [&] {
        Guarded(impl_->context, errorLines::writeProperties, [&] { WritePersistedProperties(impl_->context, bag); });
    });
}

void ctlFolderTree::Close() {
    if (impl_->closing) return;
    AliveVoid(*this, *impl_, [&] {
        impl_->closing = true;
        impl_->state.cancel = true;
        Guarded(impl_->context, errorLines::terminate, [&] { impl_->ReleaseObjects(); });
        impl_->context.Detach();
    });
}

bool ctlFolderTree::Closed() const {
    return impl_->context.Closed();
}

void ctlFolderTree::SetApplication(ObjectRef application) {
    EnterVoid(*this, *impl_, [&] { impl_->state.application = std::move(application); });
}

ObjectRef ctlFolderTree::Application() {
    return Enter(*this, *impl_, ObjectRef(), [&] { return impl_->state.application; });
}

ObjectRef ctlFolderTree::CDOSession() {
    return Enter(*this, *impl_, ObjectRef(), [&] { return impl_->cdo.CDOSession(); });
}

void ctlFolderTree::SetFont(ObjectRef font) {
    EnterVoid(*this, *impl_, [&] {
        Guarded(impl_->context, errorLines::font, [&] { impl_->context.grid.SetFont(std::move(font)); });
    });
}

ObjectRef ctlFolderTree::Font() {
    return Enter(*this, *impl_, ObjectRef(), [&] { return impl_->context.grid.Font(); });
}

ItemRef ctlFolderTree::GetMsgItem(std::string_view sStoreID, std::string_view sEntryID) {
    return Enter(*this, *impl_, ItemRef(),
                 [&] { return foldertree::GetMsgItem(impl_->context, impl_->selection, sStoreID, sEntryID); });
}

ItemRef ctlFolderTree::GetAdListItem(std::string_view sAdListID, std::string_view sAdListEntryID) {
    return Enter(*this, *impl_, ItemRef(), [&] {
        return foldertree::GetAdListItem(impl_->context, impl_->selection, sAdListID, sAdListEntryID);
    });
}

void ctlFolderTree::KillCollection(ObjectRef& oColl) {
    EnterVoid(*this, *impl_, [&] { impl_->selection.KillCollection(oColl); });
}

int32_t ctlFolderTree::ListCount() {
    return Enter(*this, *impl_, 0,
                 [&] { return impl_->context.grid.RowCount() - impl_->context.grid.FixedRowCount(); });
}

void ctlFolderTree::SetSelectedItem(ItemRef item) {
    EnterVoid(*this, *impl_, [&] {
        Guarded(impl_->context, errorLines::selectedItemSet, [&] {
            SelectionSet& selection = impl_->selection;
            selection.singleItem = item;
            if (item == nullptr) {
                selection.pickedInTree = false;
                impl_->view.ApplySelection();
                return;
            }
            // Put together here and not taken from the item's Key: an item without a store is not found.
            const std::string key = item->IsAddressList() ? AddressListKey(item->AddressListID())
                                                          : FolderKey(item->StoreID(), item->EntryID());
            if (impl_->context.grid.FindRow(key) == -1) return;
            selection.pickedInTree = true;
            impl_->view.ApplySelection();
        });
    });
}

ItemRef ctlFolderTree::SelectedItem() {
    return Enter(*this, *impl_, ItemRef(), [&] {
        const bool picked = !impl_->state.multiSelect && impl_->selection.pickedInTree;
        return picked ? impl_->selection.singleItem : nullptr;
    });
}

void ctlFolderTree::SetSelection(ObjectRef collection) {
    EnterVoid(*this, *impl_, [&] {
        Guarded(impl_->context, errorLines::selection, [&] {
            impl_->selection.collection = std::move(collection);
            impl_->selection.dirty = true;
            impl_->view.ApplySelection();
        });
    });
}

ObjectRef ctlFolderTree::Selection() {
    return Enter(*this, *impl_, ObjectRef(), [&] {
        Guarded(impl_->context, errorLines::selection, [&] {
            if (impl_->selection.dirty) impl_->view.RefreshSelection();
        });
        return impl_->selection.collection;
    });
}

bool ctlFolderTree::Enabled() {
    return Enter(*this, *impl_, false, [&] { return impl_->state.enabled; });
}

void ctlFolderTree::SetEnabled(bool enabled) {
    EnterVoid(*this, *impl_, [&] {
        impl_->Set(impl_->state.enabled, enabled, errorLines::enabled, Member::enabled, [&] {
            TreeGrid& grid = impl_->context.grid;
            grid.SetBackColor(enabled ? colors::window : colors::buttonFace);
            grid.SetTextColor(enabled ? colors::buttonText : colors::buttonShadow);
            grid.SetEnabled(enabled);
        });
    });
}

bool ctlFolderTree::HighlightContactFolders() {
    return Enter(*this, *impl_, false, [&] { return impl_->state.highlightContactFolders; });
}

void ctlFolderTree::SetHighlightContactFolders(bool highlight) {
    EnterVoid(*this, *impl_, [&] {
        impl_->Set(impl_->state.highlightContactFolders, highlight, errorLines::highlightContactFolders,
                   Member::highlightContactFolders, [&] { PerformHighlighting(impl_->context); });
    });
}

bool ctlFolderTree::HighlightJournalFolders() {
    return Enter(*this, *impl_, false, [&] { return impl_->state.highlightJournalFolders; });
}

void ctlFolderTree::SetHighlightJournalFolders(bool highlight) {
    EnterVoid(*this, *impl_, [&] {
        impl_->Set(impl_->state.highlightJournalFolders, highlight, errorLines::highlightJournalFolders,
                   Member::highlightJournalFolders, [&] { PerformHighlighting(impl_->context); });
    });
}

int32_t ctlFolderTree::ExtendToLevel() {
    return Enter(*this, *impl_, 0, [&] { return impl_->state.extendToLevel; });
}

void ctlFolderTree::SetExtendToLevel(int32_t level) {
    EnterVoid(*this, *impl_, [&] {
        Guarded(impl_->context, errorLines::extendToLevel, [&] {
            const FlagSet busy(impl_->state.gridBusy);
            impl_->state.extendToLevel = level;
            PerformHighlighting(impl_->context);
            impl_->context.PropertyChanged(Member::extendToLevel);
            impl_->ExtendTo(level);
        });
    });
}

ObjectRef ctlFolderTree::RDOSessionRef() {
    return Enter(*this, *impl_, ObjectRef(), [&] { return impl_->state.rdoSession; });
}

void ctlFolderTree::SetRDOSessionRef(ObjectRef session) {
    EnterVoid(*this, *impl_, [&] {
        Guarded(impl_->context, errorLines::rdoSessionRef, [&] {
            impl_->state.rdoSession = std::move(session);
            impl_->driver.GetFolderIDs();
        });
    });
}

bool ctlFolderTree::MultiSelect() {
    return Enter(*this, *impl_, false, [&] { return impl_->state.multiSelect; });
}

void ctlFolderTree::SetMultiSelect(bool multiSelect) {
    EnterVoid(*this, *impl_, [&] {
        impl_->Set(impl_->state.multiSelect, multiSelect, errorLines::multiSelect, Member::multiSelect,
                   [&] { ShowIndexColumn(impl_->context); });
    });
}

bool ctlFolderTree::AllowIndexing() {
    return Enter(*this, *impl_, false, [&] { return impl_->state.allowIndexing; });
}

void ctlFolderTree::SetAllowIndexing(bool allowIndexing) {
    EnterVoid(*this, *impl_, [&] {
        impl_->Set(impl_->state.allowIndexing, allowIndexing, errorLines::allowIndexing, Member::allowIndexing, [&] {
            ShowIndexColumn(impl_->context);
            // Containers have always been told twice of this one.
            impl_->context.PropertyChanged(Member::allowIndexing);
        });
    });
}

bool ctlFolderTree::ShowAddressBook() {
    return Enter(*this, *impl_, false, [&] { return impl_->state.showAddressBook; });
}

void ctlFolderTree::SetShowAddressBook(bool show) {
    EnterVoid(*this, *impl_, [&] {
        impl_->Set(impl_->state.showAddressBook, show, errorLines::showAddressBook, Member::showAddressBook,
                   [&] { SetupGrid(impl_->context); });
    });
}

void ctlFolderTree::SelectNone() {
    EnterVoid(*this, *impl_, [&] { impl_->bulk.SelectNone(); });
}

void ctlFolderTree::SelectAll() {
    EnterVoid(*this, *impl_, [&] { impl_->bulk.SelectAll(); });
}

void ctlFolderTree::SelectByType(enuFTIItemType eType, bool bAdditional) {
    EnterVoid(*this, *impl_, [&] { impl_->bulk.SelectByType(eType, bAdditional); });
}

void ctlFolderTree::RefreshList() {
    EnterVoid(*this, *impl_, [&] { impl_->driver.RefreshList(); });
}

void ctlFolderTree::Localize(std::string_view sIndexColName, std::string_view sSelectionColName,
                             std::string_view sNameColName, std::string_view sAddressListRowName,
                             std::string_view sPleaseWait, std::string_view sCancel) {
    EnterVoid(*this, *impl_, [&] {
        Guarded(impl_->context, errorLines::localize, [&] {
            TreeGrid& grid = impl_->context.grid;
            grid.SetCellText(0, colSel, sSelectionColName);
            grid.SetCellText(0, colIndex, sIndexColName);
            grid.SetCellText(0, colName, sNameColName);
            impl_->state.addressListRowName = sAddressListRowName;
            if (const auto heading = grid.RowOf(impl_->state.addressListHeading))
                grid.SetCellText(*heading, colName, sAddressListRowName);
            impl_->context.Platform().SetWaitCaptions(sPleaseWait, sCancel);
            for (const int col : {colSel, colIndex, colName}) grid.AutoSizeColumns(col, col);
        });
    });
}

ItemRef ctlFolderTree::CreateSelItem(int32_t lFolderRecID, std::string_view sStoreID, std::string_view sEntryID,
                                     std::string_view sEntryIDShort, std::string_view sAdListID) {
    return Enter(*this, *impl_, ItemRef(), [&] {
        return impl_->selection.CreateSelItem(lFolderRecID, sStoreID, sEntryID, sEntryIDShort, sAdListID);
    });
}

enuInfoStoreAccessMode ctlFolderTree::InfoStoreAccessMode() {
    return Enter(*this, *impl_, eISAccess_RDO_MAPITables, [&] { return impl_->state.infoStoreAccessMode; });
}

void ctlFolderTree::SetInfoStoreAccessMode(enuInfoStoreAccessMode mode) {
    EnterVoid(*this, *impl_, [&] {
        Guarded(impl_->context, errorLines::infoStoreAccessMode, [&] {
            if (impl_->state.infoStoreAccessMode == mode) return;
            impl_->state.infoStoreAccessMode = mode;
            impl_->context.PropertyChanged(Member::infoStoreAccessMode);
            impl_->driver.GetFolderIDs();
        });
    });
}

int32_t ctlFolderTree::BufferedToLevel() {
    return Enter(*this, *impl_, 0, [&] { return impl_->state.bufferedToLevel; });
}

void ctlFolderTree::CollapseToSelection() {
    EnterVoid(*this, *impl_, [&] { foldertree::CollapseToSelection(impl_->context); });
}

void ctlFolderTree::CollapseToType(enuFTIItemType eType) {
    EnterVoid(*this, *impl_, [&] { foldertree::CollapseToType(impl_->context, eType); });
}

bool ctlFolderTree::HighlightTaskFolders() {
    return Enter(*this, *impl_, false, [&] { return impl_->state.highlightTaskFolders; });
}

void ctlFolderTree::SetHighlightTaskFolders(bool highlight) {
    EnterVoid(*this, *impl_, [&] {
        impl_->Set(impl_->state.highlightTaskFolders, highlight, errorLines::highlightTaskFolders,
                   Member::highlightTaskFolders, [&] { PerformHighlighting(impl_->context); });
    });
}

TreeGrid& ctlFolderTree::Grid() {
    return impl_->context.grid;
}

void ctlFolderTree::cmdCancel_Click() {
    EnterVoid(*this, *impl_, [&] { impl_->driver.cmdCancel_Click(); });
}

void ctlFolderTree::CancelLoad() {
    impl_->state.cancel = true;
}

bool ctlFolderTree::Refreshing() const {
    return impl_->state.refreshing;
}

// The host's own collection is not asked: that would run its code. What the tree shows of it is counted instead.
std::optional<int32_t> ctlFolderTree::Numbers() const {
    if (!impl_->state.Indexing()) return std::nullopt;
    const auto* const own = dynamic_cast<const automation::KeyedCollection*>(impl_->selection.collection.get());
    return own != nullptr ? own->Count() : impl_->context.grid.TickedCount();
}

void ctlFolderTree::fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel) {
    EnterVoid(*this, *impl_, [&] { impl_->editing.fgd_BeforeEdit(row, col, cancel); });
}

void ctlFolderTree::fgd_ValidateEdit(int32_t row, int32_t col, bool& cancel) {
    EnterVoid(*this, *impl_, [&] { impl_->editing.fgd_ValidateEdit(row, col, cancel); });
}

void ctlFolderTree::fgd_AfterEdit(int32_t row, int32_t col) {
    EnterVoid(*this, *impl_, [&] { impl_->editing.fgd_AfterEdit(row, col); });
}

void ctlFolderTree::fgd_BeforeCollapse(int32_t row, int16_t state, bool&) {
    EnterVoid(*this, *impl_, [&] { impl_->driver.fgd_BeforeCollapse(row, state); });
}

void ctlFolderTree::fgd_DblClick() {
    EnterVoid(*this, *impl_, [&] { impl_->editing.fgd_DblClick(); });
}

}  // namespace foldertree
