// LocalMailTest: real folders of a local store, read through tables and through objects, give the same tree.
#include <map>

#include "localstores/RdoSession.h"
#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

class LocalMail : public ModeTest {
  protected:
    void LoadSample(enuInfoStoreAccessMode mode, int32_t level) {
        Prepare(mode, level);
        const automation::ObjectRef session = localstores::MakeRdoSession();
        session->Get("Open", "sample");
        control->SetRDOSessionRef(session);
        host.ClearTrace();
        control->RefreshList();
    }
    /// The folders by key, each with the cells in which the modes agree.
    std::map<std::string, Lines> Folders() {
        std::map<std::string, Lines> folders;
        for (int32_t row = 1; row < Grid().RowCount(); ++row) {
            if (Grid().CellText(row, colRowKind) != "Folder") continue;
            Lines cells{std::to_string(Grid().RowOutlineLevel(row)),
                        std::to_string(static_cast<int>(PictureOf(Grid(), row)))};
            for (const int col : {colName, colItemType, colStoreID, colEntryID, colPath})
                cells.push_back(Grid().CellText(row, col));
            folders[Grid().CellText(row, colKey)] = cells;
        }
        return folders;
    }
};

TEST_F(LocalMail, EachFolderThatTheTablesShowIsTheSameThroughObjects) {
    LoadSample(eISAccess_RDO_MAPITables, 0);
    const auto tables = Folders();
    ASSERT_GT(tables.size(), 50u);
    LoadSample(eISAccess_RDO_Objects, 0);
    const auto objects = Folders();
    EXPECT_GE(objects.size(), tables.size());
    for (const auto& [key, cells] : tables) {
        const auto found = objects.find(key);
        ASSERT_NE(found, objects.end()) << cells[2];
        EXPECT_EQ(found->second, cells);
    }
    EXPECT_EQ(host.ErrorLines(), Lines{});
}

TEST_F(LocalMail, OpeningEveryNodeShowsWhatReadingEverythingShows) {
    LoadSample(eISAccess_RDO_Objects, 0);
    const auto whole = Folders();
    LoadSample(eISAccess_RDO_Objects, 1);
    ASSERT_LT(Folders().size(), whole.size());
    for (int32_t row = 1; row < Grid().RowCount(); ++row)
        if (Grid().CellText(row, colIncomplete) == "-1") Open(row);
    EXPECT_EQ(Folders(), whole);
    EXPECT_EQ(host.ErrorLines(), Lines{});
}

}  // namespace
}  // namespace foldertree::testing
