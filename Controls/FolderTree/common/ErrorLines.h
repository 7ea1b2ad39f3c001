// ErrorLines: the openings of the control's error lines. The texts are fixed: support engineers search for them.
#pragma once

#include <string_view>

namespace foldertree {

/// What stands between the line number and the error number. Both forms close with "] " before the description.
enum class ErrorDetail { Bracket, NoBracket };  // "): [0x" and "): 0x"

struct ErrorLine {
    std::string_view opening;
    ErrorDetail detail = ErrorDetail::Bracket;
};

// The blanks before the parentheses, and where they are missing, are part of the texts.
namespace errorLines {
// The control's properties and life
inline constexpr ErrorLine initialize{"Error in ctlFolderTree.UserControl_Initialize ("};
inline constexpr ErrorLine trace{"Error in ctlFolderTree.Trace ("};
inline constexpr ErrorLine initProperties{"Error in ctlFolderTree.UserControl_InitProperties ("};
inline constexpr ErrorLine readProperties{"Error in ctlFolderTree.UserControl_ReadProperties ("};
inline constexpr ErrorLine writeProperties{"Error in ctlFolderTree.UserControl_WriteProperties ("};
inline constexpr ErrorLine terminate{"Error in ctlFolderTree.UserControl_Terminate ("};
inline constexpr ErrorLine enabled{"Error in ctlFolderTree.Enabled ("};
inline constexpr ErrorLine extendToLevel{"Error in ctlFolderTree.ExtendToLevel("};
inline constexpr ErrorLine localize{"Error in ctlFolderTree.Localize("};
inline constexpr ErrorLine multiSelect{"Error in ctlFolderTree.MultiSelect ("};
inline constexpr ErrorLine allowIndexing{"Error in ctlFolderTree.AllowIndexing ("};
inline constexpr ErrorLine showAddressBook{"Error in ctlFolderTree.ShowAddressBook ("};
inline constexpr ErrorLine infoStoreAccessMode{"Error in ctlFolderTree.InfoStoreAccessMode ("};
inline constexpr ErrorLine rdoSessionRef{"Error in ctlFolderTree.RDOSessionRef ("};
inline constexpr ErrorLine highlightContactFolders{"Error in ctlFolderTree.HighlightContactFolders ("};
inline constexpr ErrorLine highlightJournalFolders{"Error in ctlFolderTree.HighlightJournalFolders ("};
inline constexpr ErrorLine highlightTaskFolders{"Error in ctlFolderTree.HighlightTaskFolders ("};
inline constexpr ErrorLine font{"Error in ctlFolderTree.Font ("};

// The grid
inline constexpr ErrorLine setupGrid{"Error in ctlFolderTree.SetupGrid ("};
inline constexpr ErrorLine getIcon{"Error in ctlFolderTree.GetIcon("};

// Reading the stores
inline constexpr ErrorLine getFolders{"Error in ctlFolderTree.GetFolders ("};
inline constexpr ErrorLine refreshList{"Error in ctlFolderTree.RefreshList ("};
inline constexpr ErrorLine cmdCancelClick{"Error in ctlFolderTree.cmdCancel_Click ("};
inline constexpr ErrorLine getFolderIDs{"Error in ctlFolderTree.GetFolderIDs(", ErrorDetail::NoBracket};
inline constexpr ErrorLine storeRDOTab{"Error in ctlFolderTree.GetFolders_Store_RDOTab ("};
inline constexpr ErrorLine folderRDOTab{"Error in ctlFolderTree.GetFolders_Folder_RDOTab ("};
inline constexpr ErrorLine expandNode{"Error in ctlFolderTree.ExpandNode ("};
inline constexpr ErrorLine storeRDOObj{"Error in ctlFolderTree.GetFolders_Store_RDOObj ("};
inline constexpr ErrorLine folderRDOObj{"Error in ctlFolderTree.GetFolders_Folder_RDOObj ("};
inline constexpr ErrorLine expandNodeRDOObj{"Error in ctlFolderTree.ExpandNode_RDOObj(", ErrorDetail::NoBracket};
inline constexpr ErrorLine storeOOM{"Error in ctlFolderTree.GetFolders_Store_OOM ("};
inline constexpr ErrorLine folderOOM{"Error in ctlFolderTree.GetFolders_Folder_OOM ("};
inline constexpr ErrorLine expandNodeOOM{"Error in ctlFolderTree.ExpandNode_OOM(", ErrorDetail::NoBracket};
inline constexpr ErrorLine cdoSession{"Error in ctlFolderTree.CDOSession("};
inline constexpr ErrorLine storeCDO{"Error in ctlFolderTree.GetFolders_Store_CDO ("};
inline constexpr ErrorLine folderCDO{"Error in ctlFolderTree.GetFolders_Folder_CDO ("};
inline constexpr ErrorLine expandNodeCDO{"Error in ctlFolderTree.ExpandNode_CDO(", ErrorDetail::NoBracket};
inline constexpr ErrorLine getAddressBook{"Error in ctlFolderTree.GetAddressBook ("};
inline constexpr ErrorLine getAddressBookRDOObj{"Error in ctlFolderTree.GetAddressBook_RDOObj ("};
inline constexpr ErrorLine getAddressBookCDO{"Error in ctlFolderTree.GetAddressBook_CDO ("};
inline constexpr ErrorLine beforeCollapse{"Error in ctlFolderTree.fgd_BeforeCollapse ("};

// The selection
inline constexpr ErrorLine selection{"Error in ctlFolderTree.Selection("};
inline constexpr ErrorLine selectedItemGet{"Error in ctlFolderTree.SelectedItem("};
inline constexpr ErrorLine selectedItemSet{"Error in ctlFolderTree.SelectedItem ("};
inline constexpr ErrorLine createSelItem{"Error in ctlFolderTree.CreateSelItem ("};
inline constexpr ErrorLine createSelItemFromRow{"Error in ctlFolderTree.CreateSelItemFromRow ("};
inline constexpr ErrorLine getSelItemByKey{"Error in ctlFolderTree.GetSelItemByKey ("};
inline constexpr ErrorLine removeSelItemByKey{"Error in ctlFolderTree.RemoveSelItemByKey("};
inline constexpr ErrorLine getHighIndex{"Error in ctlFolderTree.GetHighIndex("};
inline constexpr ErrorLine killCollection{"Error in ctlFolderTree.KillCollection ("};
inline constexpr ErrorLine applySelection{"Error in ctlFolderTree.ApplySelection(", ErrorDetail::NoBracket};
inline constexpr ErrorLine refreshSelection{"Error in ctlFolderTree.RefreshSelection(", ErrorDetail::NoBracket};
inline constexpr ErrorLine markSelection{"Error in ctlFolderTree.MarkSelection ("};
inline constexpr ErrorLine reIndex{"Error in ctlFolderTree.ReIndex(", ErrorDetail::NoBracket};
inline constexpr ErrorLine beforeEdit{"Error in ctlFolderTree.fgd_BeforeEdit ("};
inline constexpr ErrorLine validateEdit{"Error in ctlFolderTree.fgd_ValidateEdit("};
inline constexpr ErrorLine afterEdit{"Error in ctlFolderTree.fgd_AfterEdit(", ErrorDetail::NoBracket};
inline constexpr ErrorLine dblClick{"Error in ctlFolderTree.fgd_DblClick(", ErrorDetail::NoBracket};
inline constexpr ErrorLine performHighlighting{"Error in ctlFolderTree.PerformHighlighting("};
inline constexpr ErrorLine selectNone{"Error in ctlFolderTree.SelectNone(", ErrorDetail::NoBracket};
inline constexpr ErrorLine selectAll{"Error in ctlFolderTree.SelectAll(", ErrorDetail::NoBracket};
inline constexpr ErrorLine selectByType{"Error in ctlFolderTree.SelectByType(", ErrorDetail::NoBracket};
inline constexpr ErrorLine collapseToSelection{"Error in ctlFolderTree.CollapseToSelection(", ErrorDetail::NoBracket};
inline constexpr ErrorLine collapseToSelectionRecurse{"Error in ctlFolderTree.CollapseToSelection_Recurse(",
                                                      ErrorDetail::NoBracket};
inline constexpr ErrorLine collapseToTypeRecurse{"Error in ctlFolderTree.CollapseToType_Recurse(",
                                                 ErrorDetail::NoBracket};
inline constexpr ErrorLine getMsgItem{"Error in ctlFolderTree.GetMsgItem ("};
inline constexpr ErrorLine getAdListItem{"Error in ctlFolderTree.GetAdListItem ("};
}  // namespace errorLines

}  // namespace foldertree
