// ErrorLinesTest: the openings of the error lines, typed a second time.
#include "common/ErrorLines.h"

#include <gtest/gtest.h>

#include <vector>

namespace foldertree {
namespace {

struct Expected {
    ErrorLine line;
    std::string_view opening;
};

const std::vector<Expected> withBracket{
    {errorLines::enabled, "Error in ctlFolderTree.Enabled ("},
    {errorLines::extendToLevel, "Error in ctlFolderTree.ExtendToLevel("},
    {errorLines::initialize, "Error in ctlFolderTree.UserControl_Initialize ("},
    {errorLines::readProperties, "Error in ctlFolderTree.UserControl_ReadProperties ("},
    {errorLines::terminate, "Error in ctlFolderTree.UserControl_Terminate ("},
    {errorLines::writeProperties, "Error in ctlFolderTree.UserControl_WriteProperties ("},
    {errorLines::localize, "Error in ctlFolderTree.Localize("},
    {errorLines::multiSelect, "Error in ctlFolderTree.MultiSelect ("},
    {errorLines::allowIndexing, "Error in ctlFolderTree.AllowIndexing ("},
    {errorLines::showAddressBook, "Error in ctlFolderTree.ShowAddressBook ("},
    {errorLines::infoStoreAccessMode, "Error in ctlFolderTree.InfoStoreAccessMode ("},
    {errorLines::rdoSessionRef, "Error in ctlFolderTree.RDOSessionRef ("},
    {errorLines::highlightContactFolders, "Error in ctlFolderTree.HighlightContactFolders ("},
    {errorLines::highlightJournalFolders, "Error in ctlFolderTree.HighlightJournalFolders ("},
    {errorLines::highlightTaskFolders, "Error in ctlFolderTree.HighlightTaskFolders ("},
    {errorLines::initProperties, "Error in ctlFolderTree.UserControl_InitProperties ("},
    {errorLines::setupGrid, "Error in ctlFolderTree.SetupGrid ("},
    {errorLines::getIcon, "Error in ctlFolderTree.GetIcon("},
    {errorLines::getFolders, "Error in ctlFolderTree.GetFolders ("},
    {errorLines::refreshList, "Error in ctlFolderTree.RefreshList ("},
    {errorLines::cmdCancelClick, "Error in ctlFolderTree.cmdCancel_Click ("},
    {errorLines::storeRDOTab, "Error in ctlFolderTree.GetFolders_Store_RDOTab ("},
    {errorLines::folderRDOTab, "Error in ctlFolderTree.GetFolders_Folder_RDOTab ("},
    {errorLines::expandNode, "Error in ctlFolderTree.ExpandNode ("},
    {errorLines::storeRDOObj, "Error in ctlFolderTree.GetFolders_Store_RDOObj ("},
    {errorLines::folderRDOObj, "Error in ctlFolderTree.GetFolders_Folder_RDOObj ("},
    {errorLines::storeOOM, "Error in ctlFolderTree.GetFolders_Store_OOM ("},
    {errorLines::folderOOM, "Error in ctlFolderTree.GetFolders_Folder_OOM ("},
    {errorLines::cdoSession, "Error in ctlFolderTree.CDOSession("},
    {errorLines::storeCDO, "Error in ctlFolderTree.GetFolders_Store_CDO ("},
    {errorLines::folderCDO, "Error in ctlFolderTree.GetFolders_Folder_CDO ("},
    {errorLines::getAddressBook, "Error in ctlFolderTree.GetAddressBook ("},
    {errorLines::getAddressBookRDOObj, "Error in ctlFolderTree.GetAddressBook_RDOObj ("},
    {errorLines::getAddressBookCDO, "Error in ctlFolderTree.GetAddressBook_CDO ("},
    {errorLines::selection, "Error in ctlFolderTree.Selection("},
    {errorLines::selectedItemGet, "Error in ctlFolderTree.SelectedItem("},
    {errorLines::selectedItemSet, "Error in ctlFolderTree.SelectedItem ("},
    {errorLines::createSelItem, "Error in ctlFolderTree.CreateSelItem ("},
    {errorLines::createSelItemFromRow, "Error in ctlFolderTree.CreateSelItemFromRow ("},
    {errorLines::getSelItemByKey, "Error in ctlFolderTree.GetSelItemByKey ("},
    {errorLines::removeSelItemByKey, "Error in ctlFolderTree.RemoveSelItemByKey("},
    {errorLines::getHighIndex, "Error in ctlFolderTree.GetHighIndex("},
    {errorLines::killCollection, "Error in ctlFolderTree.KillCollection ("},
    {errorLines::markSelection, "Error in ctlFolderTree.MarkSelection ("},
    {errorLines::beforeEdit, "Error in ctlFolderTree.fgd_BeforeEdit ("},
    {errorLines::validateEdit, "Error in ctlFolderTree.fgd_ValidateEdit("},
    {errorLines::performHighlighting, "Error in ctlFolderTree.PerformHighlighting("},
    {errorLines::getMsgItem, "Error in ctlFolderTree.GetMsgItem ("},
    {errorLines::getAdListItem, "Error in ctlFolderTree.GetAdListItem ("},
    {errorLines::font, "Error in ctlFolderTree.Font ("},
    {errorLines::beforeCollapse, "Error in ctlFolderTree.fgd_BeforeCollapse ("},
};

const std::vector<Expected> withoutBracket{
    {errorLines::getFolderIDs, "Error in ctlFolderTree.GetFolderIDs("},
    {errorLines::applySelection, "Error in ctlFolderTree.ApplySelection("},
    {errorLines::refreshSelection, "Error in ctlFolderTree.RefreshSelection("},
    {errorLines::reIndex, "Error in ctlFolderTree.ReIndex("},
    {errorLines::afterEdit, "Error in ctlFolderTree.fgd_AfterEdit("},
    {errorLines::dblClick, "Error in ctlFolderTree.fgd_DblClick("},
    {errorLines::expandNodeRDOObj, "Error in ctlFolderTree.ExpandNode_RDOObj("},
    {errorLines::expandNodeOOM, "Error in ctlFolderTree.ExpandNode_OOM("},
    {errorLines::expandNodeCDO, "Error in ctlFolderTree.ExpandNode_CDO("},
    {errorLines::selectNone, "Error in ctlFolderTree.SelectNone("},
    {errorLines::selectAll, "Error in ctlFolderTree.SelectAll("},
    {errorLines::selectByType, "Error in ctlFolderTree.SelectByType("},
    {errorLines::collapseToSelection, "Error in ctlFolderTree.CollapseToSelection("},
    {errorLines::collapseToSelectionRecurse, "Error in ctlFolderTree.CollapseToSelection_Recurse("},
    {errorLines::collapseToTypeRecurse, "Error in ctlFolderTree.CollapseToType_Recurse("},
};

TEST(ErrorLines, OpenAsSupportEngineersKnowThem) {
    for (const auto& [line, opening] : withBracket) {
        EXPECT_EQ(line.opening, opening);
        EXPECT_EQ(line.detail, ErrorDetail::Bracket) << opening;
    }
}

TEST(ErrorLines, SomeHaveNoBracketBeforeTheNumber) {
    for (const auto& [line, opening] : withoutBracket) {
        EXPECT_EQ(line.opening, opening);
        EXPECT_EQ(line.detail, ErrorDetail::NoBracket) << opening;
    }
}

}  // namespace
}  // namespace foldertree
