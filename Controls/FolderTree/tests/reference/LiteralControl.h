// LiteralControl: the whole control written out word for word: rows and picks in vectors, every search from the front.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/ObjectFactory.h"
#include "common/ControlPlatform.h"
#include "reference/ControlFace.h"
#include "reference/LiteralGrid.h"
#include "reference/LiteralItems.h"

namespace foldertree::reference {

/// Slow on purpose: nothing is remembered that can be looked for. It shares no code with the control that ships, so
/// that what both agree on was thought out twice. Where nothing fixes the order of calls to a provider it keeps that of
/// the other one, since a host can act inside each. Collections handed to it must be LiteralCollections. Where an error
/// line names a source line it has a "?".
class LiteralControl : public ControlFace {
  public:
    /// Neither is owned.
    LiteralControl(ControlPlatform& platform, automation::ObjectFactory& factory);

    bool ToggleTick(int32_t row) override;
    bool MayEditIndex(int32_t row) override;
    bool CommitIndex(int32_t row, const std::string& text) override;
    void SetNode(int32_t row, bool open) override;
    void DoubleClick(int32_t row) override;
    void SetCurrentRow(int32_t row) override { grid.currentRow = row; }
    void cmdCancel_Click() override;

    void Close() override;
    void Load(const Settings& settings) override;
    void SetApplication(automation::ObjectRef application) override { application_ = std::move(application); }
    automation::ObjectRef CDOSession() override;
    automation::ObjectRef GetMsgItem(const std::string& storeID, const std::string& entryID) override;
    automation::ObjectRef GetAdListItem(const std::string& listID, const std::string& entryID) override;
    void KillCollection(automation::ObjectRef& collection) override;
    int32_t ListCount() override { return grid.RowCount() - 1; }
    void SetSelectedItem(automation::ObjectRef item) override;
    automation::ObjectRef SelectedItem() override;
    void SetSelection(automation::ObjectRef collection) override;
    automation::ObjectRef Selection() override;
    void SetEnabled(bool enabled) override;
    void SetHighlight(int32_t itemType, bool highlight) override;
    void SetExtendToLevel(int32_t level) override;
    void SetRDOSessionRef(automation::ObjectRef session) override;
    void SetMultiSelect(bool multiSelect) override;
    void SetAllowIndexing(bool allowIndexing) override;
    void SetShowAddressBook(bool show) override;
    void SelectNone() override;
    void SelectAll() override;
    void SelectByType(int32_t type, bool additional) override;
    void RefreshList() override;
    void Localize(const std::string& index, const std::string& selection, const std::string& name,
                  const std::string& addressLists, const std::string& pleaseWait, const std::string& cancel) override;
    automation::ObjectRef CreateSelItem(int32_t recordID, const std::string& storeID, const std::string& entryID,
                                        const std::string& entryIDShort, const std::string& listID) override;
    void SetInfoStoreAccessMode(int32_t mode) override;
    int32_t BufferedToLevel() override { return bufferedToLevel_; }
    void CollapseToSelection() override;
    void CollapseToType(int32_t type) override;

    int32_t RowCount() const override { return grid.RowCount(); }
    std::string CellText(int32_t row, int col) const override { return grid.CellText(row, col); }
    SeenRow SeeRow(int32_t row) const override;
    SeenFrame SeeFrame() override;
    Settings SeeSettings() override { return settings_; }
    bool Refreshing() const override { return refreshing_; }
    const SeenItem* SeeItem(const automation::ObjectRef& item, SeenItem& seen) const override;
    automation::ObjectRef NewCollection() override { return std::make_shared<LiteralCollection>(); }

    // The procedures behind the members, for comparisons of one operation alone.
    void ApplySelection();
    void RefreshSelection();
    virtual void ReIndex();
    void MarkSelection(int32_t row);
    void PerformHighlighting();
    int32_t FindRow(const std::string& text) const { return grid.FindRow(text, colKey); }
    LiteralGrid grid;

  private:
    enum class Detail { Bracket, NoBracket };
    using Item = std::shared_ptr<LiteralItem>;
    using ObjectRef = automation::ObjectRef;
    using Value = automation::Value;

    // Trace, yields and the wait panel
    void Trace(const std::string& line);
    void TraceError(const std::string& opening, Detail detail, const automation::Error& error);
    /// Runs a procedure's body; an error ends it in its one line. Whether it ran to its end.
    bool Trap(const std::string& opening, Detail detail, const std::function<void()>& body);
    // All three throw ControlGone when the control was closed inside.
    void Yield();
    void RaiseChanged();
    void PropertyChanged(const std::string& name);
    void AdvanceProgress(int32_t addToMax, int32_t addToValue);
    void ShowPath(const std::string& path);
    void StartLoad();
    void ResetProgress();
    void EndLoad(bool wasRefreshing, bool wasBusy);

    void SetupGrid();
    Picture GetIcon(int32_t type, const std::string& entryID);

    // Grid notifications
    void fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel);
    void fgd_ValidateEdit(int32_t row, int32_t col, bool& cancel);
    void fgd_AfterEdit(int32_t row, int32_t col);
    void fgd_BeforeCollapse(int32_t row, int32_t state);
    void fgd_DblClick();
    bool TakesGesture(int32_t row) const;

    // Selection
    LiteralCollection* Picks() const { return static_cast<LiteralCollection*>(selection_.get()); }
    LiteralCollection& RequirePicks();
    LiteralCollection& EnsurePicks();
    ObjectRef GetSelItemByKey(const std::string& key);
    bool RemoveSelItemByKey(const std::string& key);
    int32_t GetHighIndex();
    Item CreateSelItemFromRow(int32_t row);
    void CompleteFromRow(LiteralItem& item, int32_t row);
    /// The item with that key of its own, wherever the host has filed it.
    ObjectRef FindPick(const std::string& key);
    bool IsPickRow(int32_t row) const;
    bool MayBePicked(int32_t row) const;
    void Untick(int32_t row);
    void AddPickOfRow(int32_t row, int32_t number);
    bool IsHighlighted(double type) const;
    void HighlightNewRow(int32_t row, int32_t type);
    void CollapseStores(const std::function<bool(int32_t row)>& keeps);
    void Collapse_Recurse(int32_t start, int32_t& finish, bool& folded, const std::function<bool(int32_t row)>& keeps);

    // Folders
    void GetFolders();
    void GetFolderIDs();
    void GetFolderIDs_CDO();
    bool IsDefaultStore(int32_t mode, const ObjectRef& store);
    bool IsDefaultStore_CDO(const ObjectRef& store);
    void ReadStores();
    void ReadStores_OOM();
    void ReadStore(int32_t mode, const ObjectRef& store);
    void AppendStoreRow(const std::string& kind, const std::string& name);
    void MarkUnread(int32_t row);

    // Folders from hierarchy tables
    struct Child;
    bool GetFolders_Store_RDOTab(const ObjectRef& store);
    bool GetFolders_Folder_RDOTab(const std::string& storeID, const std::vector<std::string>& ancestors,
                                  const ObjectRef& parent, int32_t level, const std::string& parentPath);
    bool WalkRow(const std::string& storeID, const std::vector<std::string>& ancestors, const Value& cells,
                 const std::string& indent, int32_t level, const std::string& parentPath);
    ObjectRef SetUpTable(const ObjectRef& folder, const std::string& indent);
    /// Shows every row of the folder's table to `visit` until that says to stop.
    void ReadTable(const ObjectRef& folder, const std::string& indent, const std::function<bool(const Value&)>& visit);
    bool ReadChild(const Value& cells, const std::string& indent, int32_t level, Child& child);
    void ReadIdentifiers(const Value& cells, const std::string& indent, Child& child);
    void FillRow_RDOTab(int32_t row, int32_t level, const std::string& storeID, const Child& child,
                        const std::string& path);
    std::string ProviderName(const ObjectRef& store);

    // Folders object by object, in modes 1 to 3
    struct Folder;
    struct Expansion {
        int32_t node = 0;
        int32_t last = 0;  ///< the row of the last child, or its placeholder's
        bool failed = false;
        bool childPending = false;
        bool placeholderRemoved = false;
    };
    void GetFolders_Store(int32_t mode, const ObjectRef& store);
    void GetFolders_Folder(int32_t mode, const std::string& storeID, const std::vector<std::string>& ancestors,
                           const ObjectRef& object, int32_t level, const std::string& parentPath);
    /// False leaves the folder and all below it out.
    bool ReadFolder(int32_t mode, Folder& folder, bool expanding);
    bool HasSubfolders(int32_t mode, Folder& folder);
    void ForEachSubfolder(int32_t mode, Folder& folder, const std::function<void(const ObjectRef&)>& visit);
    void FillRow_Objects(int32_t mode, int32_t row, int32_t level, const Folder& folder, const std::string& path);
    void ExpandNode_Objects(int32_t mode, int32_t row);
    void ExpandChild(int32_t mode, Expansion& expansion, const ObjectRef& object, const std::string& storeID);

    // Address lists
    void GetAddressBook();
    void GetAddressBook_RDOObj(const ObjectRef& list, int32_t level, const std::vector<std::string>& above,
                               bool& cancelled);
    void AppendList(const std::string& name, const std::string& id, int32_t level);

    // Expansion
    void RunExpansion(int32_t row, const std::string& opening, Detail detail,
                      const std::function<void(Expansion&)>& read, const std::function<void()>& finish);
    void RemovePlaceholder(Expansion& expansion);
    int32_t InsertChild(Expansion& expansion);
    int32_t ChildLevel(const Expansion& expansion) const;
    void ExpandNode(int32_t row);
    void ExpandRow(Expansion& expansion, const Value& cells);

    ControlPlatform* platform_;
    bool closed_ = false;
    automation::ObjectFactory& factory_;

    Settings settings_;
    int32_t bufferedToLevel_ = 0;
    ObjectRef session_, application_, cdoSession_;
    std::string headingName_ = "<address lists>";
    int32_t rowHeight_ = 0;
    std::string drafts_, inbox_, outbox_, sent_, deleted_, notes_, defaultStore_;
    bool cancel_ = false;
    bool refreshing_ = false;
    bool busy_ = false;
    double progressMaximum_ = 0;
    double progressValue_ = 0;

    ObjectRef selection_;
    Item singleItem_;
    int32_t selectedRow_ = -1;
    bool dirty_ = false;
};

}  // namespace foldertree::reference
