// ctlFolderTree: the control's public members, in interface order, its setters and its life.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "automation/ObjectFactory.h"
#include "common/ControlPlatform.h"
#include "common/Enumerations.h"
#include "common/GridColors.h"
#include "common/GridColumns.h"
#include "common/PropertyBag.h"
#include "common/clsFolderTreeItem.h"
#include "interaction/GridInteraction.h"
#include "rows/TreeGrid.h"

namespace foldertree {

/// The control. It works in full without a window. No public member throws: an error ends in one trace line and a
/// neutral result. Any member may be called from inside ControlPlatform::Yield(); the control keeps itself alive while
/// a member runs. One thread only.
class ctlFolderTree : public GridEvents, public std::enable_shared_from_this<ctlFolderTree> {
  public:
    /// A new control, after its UserControl_Initialize. `platform` and `factory` are not owned; see Close().
    static std::shared_ptr<ctlFolderTree> Create(ControlPlatform& platform, automation::ObjectFactory& factory);
    ~ctlFolderTree() override;

    // Life. A control that was neither initialised nor loaded initialises itself at its first public call.
    void UserControl_InitProperties();
    void UserControl_ReadProperties(PropertyBag& bag);
    void UserControl_WriteProperties(PropertyBag& bag);
    /// The control goes away: cancels a running load, empties the selection collection and releases the host's objects
    /// (UserControl_Terminate), and lets go of platform and factory, with wait panel and busy pointer taken down. A
    /// load that runs further up the stack ends at its next step and touches nothing. Further public calls do nothing.
    void Close();
    /// Whether the control has been closed.
    bool Closed() const;

    // Public members, in interface order
    void SetApplication(automation::ObjectRef application);
    automation::ObjectRef Application();
    automation::ObjectRef CDOSession();
    void SetFont(automation::ObjectRef font);
    automation::ObjectRef Font();
    ItemRef GetMsgItem(std::string_view sStoreID, std::string_view sEntryID);
    ItemRef GetAdListItem(std::string_view sAdListID, std::string_view sAdListEntryID);
    /// Empties the collection from the front and sets the caller's variable to Nothing.
    void KillCollection(automation::ObjectRef& oColl);
    int32_t ListCount();
    void SetSelectedItem(ItemRef item);
    ItemRef SelectedItem();
    void SetSelection(automation::ObjectRef collection);
    automation::ObjectRef Selection();
    bool Enabled();
    void SetEnabled(bool enabled);
    bool HighlightContactFolders();
    void SetHighlightContactFolders(bool highlight);
    bool HighlightJournalFolders();
    void SetHighlightJournalFolders(bool highlight);
    int32_t ExtendToLevel();
    void SetExtendToLevel(int32_t level);
    automation::ObjectRef RDOSessionRef();
    void SetRDOSessionRef(automation::ObjectRef session);
    bool MultiSelect();
    void SetMultiSelect(bool multiSelect);
    bool AllowIndexing();
    void SetAllowIndexing(bool allowIndexing);
    bool ShowAddressBook();
    void SetShowAddressBook(bool show);
    void SelectNone();
    void SelectAll();
    void SelectByType(enuFTIItemType eType, bool bAdditional);
    void RefreshList();
    void Localize(std::string_view sIndexColName, std::string_view sSelectionColName, std::string_view sNameColName,
                  std::string_view sAddressListRowName, std::string_view sPleaseWait, std::string_view sCancel);
    ItemRef CreateSelItem(int32_t lFolderRecID, std::string_view sStoreID, std::string_view sEntryID,
                          std::string_view sEntryIDShort, std::string_view sAdListID);
    enuInfoStoreAccessMode InfoStoreAccessMode();
    void SetInfoStoreAccessMode(enuInfoStoreAccessMode mode);
    int32_t BufferedToLevel();
    void CollapseToSelection();
    void CollapseToType(enuFTIItemType eType);
    bool HighlightTaskFolders();
    void SetHighlightTaskFolders(bool highlight);

    // What the window drives
    TreeGrid& Grid();
    void cmdCancel_Click();
    /// Sets the cancel flag without a yield: the program is ending (WM_QUIT) or the window closes.
    void CancelLoad();
    /// True while a load or an expansion runs further up the stack.
    bool Refreshing() const;
    /// How many numbers there are; nothing while positions are not numbered. Runs nobody's code.
    std::optional<int32_t> Numbers() const;
    void fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel) override;
    void fgd_ValidateEdit(int32_t row, int32_t col, bool& cancel) override;
    void fgd_AfterEdit(int32_t row, int32_t col) override;
    void fgd_BeforeCollapse(int32_t row, int16_t state, bool& cancel) override;
    void fgd_DblClick() override;

  private:
    class Impl;
    ctlFolderTree(ControlPlatform& platform, automation::ObjectFactory& factory);
    std::unique_ptr<Impl> impl_;
};

}  // namespace foldertree
