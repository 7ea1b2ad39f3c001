// Members: the table.
#include "attack/Members.h"

#include "attack/ForeignObject.h"
#include "automation_testing/ScriptedObject.h"

namespace foldertree::attack {

using automation::ObjectRef;

namespace {

using Control = ctlFolderTree;

ObjectRef NewFont(World& world) {
    const Abroad abroad(world.border);
    return MakeForeign(std::make_shared<automation::testing::ScriptedObject>("Font"), fontPlaces, world.border);
}

void LookUp(World& world, Control& control) {
    std::string storeID;
    std::string entryID;
    {
        const Abroad abroad(world.border);
        storeID = StoreID();
        entryID = EntryID("0001");
    }
    control.GetMsgItem(storeID, entryID);
}

void MakeAnother(World& world) {
    std::unique_ptr<ForeignPlatform> platform;
    {
        const Abroad abroad(world.border);
        platform = std::make_unique<ForeignPlatform>(world.border);
    }
    const auto another = Control::Create(*platform, world.factory);
}

/// What the grid does with an edit: the text is written, then the notification comes.
void Edit(World& world, Control& control, std::string_view name, int col, std::string_view text) {
    const int32_t row = world.RowNamed(name);
    if (row == -1) return;
    control.Grid().SetCellText(row, col, text);
    control.fgd_AfterEdit(row, col);
}

/// A gesture of the user comes through the window, which keeps the control.
template <class Gesture>
void ByWindow(World& world, std::string_view name, Gesture&& gesture) {
    const std::shared_ptr<Control> kept = world.control;
    const int32_t row = world.RowNamed(name);
    if (row == -1) return;
    GridInteraction user(kept->Grid(), *kept);
    gesture(user, row);
}

std::vector<Member> ReadingMembers() {
    const auto extend = [](int32_t level) { return [level](World&, Control& c) { c.SetExtendToLevel(level); }; };
    return {
        {"RefreshList", "RefreshList", [](World&, Control& c) { c.RefreshList(); }, true},
        {"ExtendToLevel = 0", "SetExtendToLevel", extend(0), true},
        {"ExtendToLevel = 1", "SetExtendToLevel", extend(1), true},
        {"ExtendToLevel = 3", "SetExtendToLevel", extend(3), true},
        {"BeforeCollapse of an unread node", "fgd_BeforeCollapse",
         [](World& w, Control& c) {
             bool cancel = false;
             const int32_t row = w.UnreadRow();
             if (row != -1) c.fgd_BeforeCollapse(row, nodeExpanded, cancel);
         },
         true},
        {"the user opens a node", "fgd_BeforeCollapse",
         [](World& w, Control&) {
             const auto kept = w.control;
             const int32_t row = w.UnreadRow();
             if (row != -1) GridInteraction(kept->Grid(), *kept).SetNode(row, true);
         },
         true},
        {"the user double-clicks an unread node", "fgd_DblClick",
         [](World& w, Control& c) {
             const int32_t row = w.UnreadRow();
             if (row == -1) return;
             c.Grid().SetCurrentRow(row);
             c.fgd_DblClick();
         },
         true},
    };
}

std::vector<Member> SelectionMembers() {
    return {
        {"SelectNone", "SelectNone", [](World&, Control& c) { c.SelectNone(); }},
        {"SelectAll", "SelectAll", [](World&, Control& c) { c.SelectAll(); }},
        {"SelectByType mail", "SelectByType", [](World&, Control& c) { c.SelectByType(FTIMailItem, false); }},
        {"SelectByType tasks", "SelectByType", [](World&, Control& c) { c.SelectByType(FTITaskItem, false); }},
        {"SelectByType mail, additional", "SelectByType",
         [](World&, Control& c) { c.SelectByType(FTIMailItem, true); }},
        {"Selection", "Selection", [](World&, Control& c) { c.Selection(); }},
        {"Selection = the same", "SetSelection", [](World& w, Control& c) { c.SetSelection(w.selection.face); }},
        {"Selection = another", "SetSelection",
         [](World& w, Control& c) { c.SetSelection(w.NewCollection(Holder::HostsOwn).face); }},
        {"Selection = Nothing", "SetSelection", [](World&, Control& c) { c.SetSelection(nullptr); }},
        {"KillCollection", "KillCollection", [](World& w, Control& c) { c.KillCollection(w.variable); }},
        {"SelectedItem", "SelectedItem", [](World&, Control& c) { c.SelectedItem(); }},
        {"SelectedItem = an item", "SetSelectedItem",
         [](World& w, Control& c) { c.SetSelectedItem(w.OwnItem("0001")); }},
        {"SelectedItem = Nothing", "SetSelectedItem", [](World&, Control& c) { c.SetSelectedItem(nullptr); }},
        {"CollapseToSelection", "CollapseToSelection", [](World&, Control& c) { c.CollapseToSelection(); }},
        {"CollapseToType", "CollapseToType", [](World&, Control& c) { c.CollapseToType(FTITaskItem); }},
        {"GetMsgItem", "GetMsgItem", [](World& w, Control& c) { LookUp(w, c); }},
        {"GetAdListItem", "GetAdListItem", [](World&, Control& c) { c.GetAdListItem("G1", "G1"); }},
        {"CreateSelItem", "CreateSelItem", [](World& w, Control&) { w.OwnItem("0001"); }},
        {"AfterEdit of a tick", "fgd_AfterEdit", [](World& w, Control& c) { Edit(w, c, "Zoo", colSel, "-1"); }},
        {"AfterEdit of a tick without an item", "fgd_AfterEdit",
         [](World& w, Control& c) { Edit(w, c, "Old mail", colSel, "-1"); }},
        {"AfterEdit of an untick", "fgd_AfterEdit", [](World& w, Control& c) { Edit(w, c, "Inbox", colSel, "0"); }},
        {"AfterEdit of a number", "fgd_AfterEdit", [](World& w, Control& c) { Edit(w, c, "To do", colIndex, "1"); }},
        {"DblClick", "fgd_DblClick",
         [](World& w, Control& c) {
             const int32_t row = w.RowNamed("To do");
             if (row == -1) return;
             c.Grid().SetCurrentRow(row);
             c.fgd_DblClick();
         }},
        {"the user ticks", "fgd_AfterEdit",
         [](World& w, Control&) {
             ByWindow(w, "Zoo", [](GridInteraction& user, int32_t row) { user.ToggleTick(row); });
         }},
        {"the user types a number", "fgd_ValidateEdit",
         [](World& w, Control&) {
             ByWindow(w, "To do", [](GridInteraction& user, int32_t row) { user.CommitIndex(row, "1"); });
         }},
        {"the user closes a node", "fgd_BeforeCollapse",
         [](World& w, Control&) {
             ByWindow(w, "Inbox", [](GridInteraction& user, int32_t row) { user.ToggleNode(row); });
         }},
    };
}

std::vector<Member> SettingMembers() {
    return {
        {"Application", "Application", [](World&, Control& c) { c.Application(); }},
        {"Application = another", "SetApplication", [](World& w, Control& c) { c.SetApplication(w.NewSession()); }},
        {"Application = Nothing", "SetApplication", [](World&, Control& c) { c.SetApplication(nullptr); }},
        {"CDOSession", "CDOSession", [](World&, Control& c) { c.CDOSession(); }},
        {"Font", "Font", [](World&, Control& c) { c.Font(); }},
        {"Font = another", "SetFont", [](World& w, Control& c) { c.SetFont(NewFont(w)); }},
        {"Font = Nothing", "SetFont", [](World&, Control& c) { c.SetFont(nullptr); }},
        {"Enabled", "Enabled", [](World&, Control& c) { c.Enabled(); }},
        {"Enabled is changed", "SetEnabled", [](World&, Control& c) { c.SetEnabled(!c.Enabled()); }},
        {"HighlightContactFolders", "HighlightContactFolders", [](World&, Control& c) { c.HighlightContactFolders(); }},
        {"HighlightContactFolders is changed", "SetHighlightContactFolders",
         [](World&, Control& c) { c.SetHighlightContactFolders(!c.HighlightContactFolders()); }},
        {"HighlightJournalFolders", "HighlightJournalFolders", [](World&, Control& c) { c.HighlightJournalFolders(); }},
        {"HighlightJournalFolders is changed", "SetHighlightJournalFolders",
         [](World&, Control& c) { c.SetHighlightJournalFolders(!c.HighlightJournalFolders()); }},
        {"HighlightTaskFolders", "HighlightTaskFolders", [](World&, Control& c) { c.HighlightTaskFolders(); }},
        {"HighlightTaskFolders is changed", "SetHighlightTaskFolders",
         [](World&, Control& c) { c.SetHighlightTaskFolders(!c.HighlightTaskFolders()); }},
        {"ExtendToLevel", "ExtendToLevel", [](World&, Control& c) { c.ExtendToLevel(); }},
        {"RDOSessionRef", "RDOSessionRef", [](World&, Control& c) { c.RDOSessionRef(); }},
        {"RDOSessionRef = another", "SetRDOSessionRef",
         [](World& w, Control& c) { c.SetRDOSessionRef(w.NewSession()); }},
        {"RDOSessionRef = Nothing", "SetRDOSessionRef", [](World&, Control& c) { c.SetRDOSessionRef(nullptr); }},
        {"MultiSelect", "MultiSelect", [](World&, Control& c) { c.MultiSelect(); }},
        {"MultiSelect is changed", "SetMultiSelect", [](World&, Control& c) { c.SetMultiSelect(!c.MultiSelect()); }},
        {"AllowIndexing", "AllowIndexing", [](World&, Control& c) { c.AllowIndexing(); }},
        {"AllowIndexing is changed", "SetAllowIndexing",
         [](World&, Control& c) { c.SetAllowIndexing(!c.AllowIndexing()); }},
        {"ShowAddressBook", "ShowAddressBook", [](World&, Control& c) { c.ShowAddressBook(); }},
        {"ShowAddressBook is changed", "SetShowAddressBook",
         [](World&, Control& c) { c.SetShowAddressBook(!c.ShowAddressBook()); }},
        {"InfoStoreAccessMode", "InfoStoreAccessMode", [](World&, Control& c) { c.InfoStoreAccessMode(); }},
        {"InfoStoreAccessMode is changed", "SetInfoStoreAccessMode",
         [](World&, Control& c) {
             const int32_t next = (static_cast<int32_t>(c.InfoStoreAccessMode()) + 1) % 5;
             c.SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(next));
         }},
        {"BufferedToLevel", "BufferedToLevel", [](World&, Control& c) { c.BufferedToLevel(); }},
        {"ListCount", "ListCount", [](World&, Control& c) { c.ListCount(); }},
        {"Numbers", "Numbers", [](World&, Control& c) { c.Numbers(); }},
        {"Localize", "Localize", [](World&, Control& c) { c.Localize("1", "2", "3", "4", "5", "6"); }},
    };
}

std::vector<Member> LifeMembers() {
    return {
        {"another control is made", "Create", [](World& w, Control&) { MakeAnother(w); }},
        {"InitProperties", "UserControl_InitProperties", [](World&, Control& c) { c.UserControl_InitProperties(); }},
        {"ReadProperties", "UserControl_ReadProperties",
         [](World& w, Control& c) { c.UserControl_ReadProperties(w.bag); }},
        {"WriteProperties", "UserControl_WriteProperties",
         [](World& w, Control& c) { c.UserControl_WriteProperties(w.savedBag); }},
        {"Close", "Close",
         [](World& w, Control& c) {
             // The platform must not be called once the control says that it is closed.
             const std::weak_ptr<Control> life = w.life;
             c.Close();
             const auto still = life.lock();
             w.platform.closed = still == nullptr || still->Closed();
         }},
        {"Closed", "Closed", [](World&, Control& c) { c.Closed(); }},
        {"Grid", "Grid", [](World&, Control& c) { c.Grid().RowCount(); }},
        {"Refreshing", "Refreshing", [](World&, Control& c) { c.Refreshing(); }},
        {"CancelLoad", "CancelLoad", [](World&, Control& c) { c.CancelLoad(); }},
        {"Cancel is pressed", "cmdCancel_Click", [](World&, Control& c) { c.cmdCancel_Click(); }},
        {"BeforeEdit", "fgd_BeforeEdit",
         [](World&, Control& c) {
             bool cancel = false;
             c.fgd_BeforeEdit(0, colSel, cancel);
         }},
    };
}

}  // namespace

const std::vector<Member>& Members() {
    static const std::vector<Member> members = [] {
        std::vector<Member> all;
        for (auto&& part : {ReadingMembers(), SelectionMembers(), SettingMembers(), LifeMembers()})
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }();
    return members;
}

}  // namespace foldertree::attack
