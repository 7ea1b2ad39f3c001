// ProductControl: the control that ships, driven through its public members and the gestures on its grid.
#include "reference/ProductControl.h"

#include "automation/KeyedCollection.h"
#include "ctlFolderTree.h"
#include "reference/ListeningCopy.h"
#include "support/FakeBag.h"

namespace foldertree::reference {
namespace {

using automation::ObjectRef;

ItemRef ItemOf(const ObjectRef& object) {
    return std::dynamic_pointer_cast<clsFolderTreeItem>(object);
}

class ProductControl : public ControlFace {
  public:
    ProductControl(ControlPlatform& platform, automation::ObjectFactory& factory)
        : control_(ctlFolderTree::Create(platform, factory)),
          gestures_(control_->Grid(), *control_),
          listener_(control_->Grid()) {
        control_->UserControl_InitProperties();
    }

    bool ToggleTick(int32_t row) override { return gestures_.ToggleTick(row); }
    bool MayEditIndex(int32_t row) override { return gestures_.MayEditIndex(row); }
    bool CommitIndex(int32_t row, const std::string& text) override { return gestures_.CommitIndex(row, text); }
    void SetNode(int32_t row, bool open) override { gestures_.SetNode(row, open); }
    void DoubleClick(int32_t row) override { gestures_.DoubleClick(row); }
    void SetCurrentRow(int32_t row) override { control_->Grid().SetCurrentRow(row); }
    void cmdCancel_Click() override { control_->cmdCancel_Click(); }

    void Close() override { control_->Close(); }
    void Load(const Settings& settings) override {
        testing::FakeBag bag;
        bag.values = {{"Enabled", settings.enabled},
                      {"HighlightContactFolders", settings.highlightContacts},
                      {"HighlightJournalFolders", settings.highlightJournals},
                      {"HighlightTaskFolders", settings.highlightTasks},
                      {"MultiSelect", settings.multiSelect},
                      {"AllowIndexing", settings.allowIndexing},
                      {"ShowAddressBook", settings.showAddressBook},
                      {"ExtendToLevel", settings.extendToLevel},
                      {"InfoStoreAccessMode", settings.mode}};
        control_->UserControl_ReadProperties(bag);
    }
    void SetApplication(ObjectRef application) override { control_->SetApplication(std::move(application)); }
    ObjectRef CDOSession() override { return control_->CDOSession(); }
    ObjectRef GetMsgItem(const std::string& storeID, const std::string& entryID) override {
        return control_->GetMsgItem(storeID, entryID);
    }
    ObjectRef GetAdListItem(const std::string& listID, const std::string& entryID) override {
        return control_->GetAdListItem(listID, entryID);
    }
    void KillCollection(ObjectRef& collection) override { control_->KillCollection(collection); }
    int32_t ListCount() override { return control_->ListCount(); }
    void SetSelectedItem(ObjectRef item) override { control_->SetSelectedItem(ItemOf(item)); }
    ObjectRef SelectedItem() override { return control_->SelectedItem(); }
    void SetSelection(ObjectRef collection) override { control_->SetSelection(std::move(collection)); }
    ObjectRef Selection() override { return control_->Selection(); }
    void SetEnabled(bool enabled) override { control_->SetEnabled(enabled); }
    void SetHighlight(int32_t itemType, bool highlight) override {
        if (itemType == FTIContactItem) return control_->SetHighlightContactFolders(highlight);
        if (itemType == FTIjournalItem) return control_->SetHighlightJournalFolders(highlight);
        control_->SetHighlightTaskFolders(highlight);
    }
    void SetExtendToLevel(int32_t level) override { control_->SetExtendToLevel(level); }
    void SetRDOSessionRef(ObjectRef session) override { control_->SetRDOSessionRef(std::move(session)); }
    void SetMultiSelect(bool multiSelect) override { control_->SetMultiSelect(multiSelect); }
    void SetAllowIndexing(bool allowIndexing) override { control_->SetAllowIndexing(allowIndexing); }
    void SetShowAddressBook(bool show) override { control_->SetShowAddressBook(show); }
    void SelectNone() override { control_->SelectNone(); }
    void SelectAll() override { control_->SelectAll(); }
    void SelectByType(int32_t type, bool additional) override {
        control_->SelectByType(static_cast<enuFTIItemType>(type), additional);
    }
    void RefreshList() override { control_->RefreshList(); }
    void Localize(const std::string& index, const std::string& selection, const std::string& name,
                  const std::string& addressLists, const std::string& pleaseWait, const std::string& cancel) override {
        control_->Localize(index, selection, name, addressLists, pleaseWait, cancel);
    }
    ObjectRef CreateSelItem(int32_t recordID, const std::string& storeID, const std::string& entryID,
                            const std::string& entryIDShort, const std::string& listID) override {
        return control_->CreateSelItem(recordID, storeID, entryID, entryIDShort, listID);
    }
    void SetInfoStoreAccessMode(int32_t mode) override {
        control_->SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(mode));
    }
    int32_t BufferedToLevel() override { return control_->BufferedToLevel(); }
    void CollapseToSelection() override { control_->CollapseToSelection(); }
    void CollapseToType(int32_t type) override { control_->CollapseToType(static_cast<enuFTIItemType>(type)); }

    int32_t RowCount() const override { return control_->Grid().RowCount(); }
    std::string CellText(int32_t row, int col) const override { return control_->Grid().CellText(row, col); }
    SeenRow SeeRow(int32_t row) const override { return SeeGridRow(control_->Grid(), row); }
    SeenFrame SeeFrame() override;
    Settings SeeSettings() override;
    bool Refreshing() const override { return control_->Refreshing(); }
    const SeenItem* SeeItem(const ObjectRef& item, SeenItem& seen) const override;
    ObjectRef NewCollection() override { return std::make_shared<automation::KeyedCollection>(); }

  private:
    std::shared_ptr<ctlFolderTree> control_;
    GridInteraction gestures_;
    ListeningCopy listener_;
};

SeenFrame ProductControl::SeeFrame() {
    const TreeGrid& grid = control_->Grid();
    SeenFrame seen = SeeGridFrame(grid);
    seen.currentRow = grid.CurrentRow();
    for (int32_t position = 0; position < grid.VisibleCount(); ++position)
        seen.visibleRows.push_back(grid.VisibleRow(position));
    seen.untold = listener_.Untold();
    return seen;
}

Settings ProductControl::SeeSettings() {
    return {control_->Enabled(),
            control_->HighlightContactFolders(),
            control_->HighlightJournalFolders(),
            control_->HighlightTaskFolders(),
            control_->MultiSelect(),
            control_->AllowIndexing(),
            control_->ShowAddressBook(),
            control_->ExtendToLevel(),
            control_->InfoStoreAccessMode()};
}

const SeenItem* ProductControl::SeeItem(const ObjectRef& object, SeenItem& seen) const {
    const ItemRef item = ItemOf(object);
    if (item == nullptr) return nullptr;
    seen = {item->Key(),     item->KeyShortEntryID(), item->KeyAlternate(),  item->StoreID(),
            item->EntryID(), item->EntryIDShort(),    item->AddressListID(), item->Name(),
            item->Path(),    item->IsAddressList(),   item->Incomplete(),    item->Selected(),
            item->Index(),   item->ItemType(),        item->FolderRecID()};
    return &seen;
}

}  // namespace

std::unique_ptr<ControlFace> MakeProductControl(ControlPlatform& platform, automation::ObjectFactory& factory) {
    return std::make_unique<ProductControl>(platform, factory);
}

}  // namespace foldertree::reference
