// ControlTest: a control over a fake host and a fake mailbox, and how tests read its tree.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/KeyedCollection.h"
#include "ctlFolderTree.h"
#include "support/FakeBag.h"
#include "support/FakeMailbox.h"
#include "support/FakePlatform.h"

namespace foldertree::testing {

using Lines = std::vector<std::string>;

/// One line a data row: two blanks a level, the name, then in brackets what is special: store, dummy, unread, closed,
/// the tick and the number.
Lines TreeOf(const TreeGrid& grid);
/// The names of the data rows.
Lines NamesOf(const TreeGrid& grid);
/// The first row with that name; fails the test and gives the header row when there is none.
int32_t RowOf(const TreeGrid& grid, std::string_view name);
bool IsBold(const TreeGrid& grid, int32_t row, int col = colName);
OleColor BackColor(const TreeGrid& grid, int32_t row, int col = colName);
OleColor ForeColor(const TreeGrid& grid, int32_t row, int col = colName);
Picture PictureOf(const TreeGrid& grid, int32_t row);
bool IsTicked(const TreeGrid& grid, int32_t row);

/// What a host does with its own keyed collection.
std::shared_ptr<automation::KeyedCollection> NewCollection();
void AddItem(automation::KeyedCollection& collection, const ItemRef& item);
std::vector<ItemRef> ItemsOf(const automation::ObjectRef& collection);
Lines KeysOf(const automation::ObjectRef& collection);

class ControlTest : public ::testing::Test {
  protected:
    ControlTest();
    void TearDown() override;

    /// The session over `mailbox` as it is now; sets it and refreshes. ExtendToLevel is set before, without a refresh.
    void Load(int32_t extendToLevel = 0);
    /// The same with single-select.
    void LoadSingleSelect();
    /// Opens the node of that name as a user would.
    void Open(std::string_view name);
    void Open(int32_t row);
    /// Toggles the box of a row as the grid does: the text is written, then the notification comes.
    void Tick(std::string_view name);
    void Untick(std::string_view name);
    /// Types a number into colIndex.
    void Type(std::string_view name, std::string_view number);

    TreeGrid& Grid() { return control->Grid(); }
    int32_t Row(std::string_view name) { return RowOf(Grid(), name); }
    std::string Cell(std::string_view name, int col) { return Grid().CellText(Row(name), col); }
    Lines Tree() { return TreeOf(Grid()); }
    /// An item as a host makes it from what it saved.
    ItemRef HostItem(std::string_view storeID, std::string_view entryID, int32_t recordID = 0);
    /// The keys of the collection that `Selection` gives.
    Lines SelectedKeys() { return KeysOf(control->Selection()); }
    /// Nothing of a load is left over: no panel, no busy pointer, no flag.
    void ExpectIdle();

    int liveBefore = 0;  ///< scripted objects when the test began
    FakePlatform platform;
    FakeMailbox mailbox = SmallMailbox();
    automation::testing::ScriptedObjectFactory factory;
    std::shared_ptr<ctlFolderTree> control;
};

}  // namespace foldertree::testing
