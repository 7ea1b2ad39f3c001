// SelectionReferenceTest: the passes over a selection, against a plain and slow version of each, on random trees.
#include <random>

#include "automation/Collection.h"
#include "automation/Text.h"
#include "selection/SelectionView.h"
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Collection;
using automation::Value;

/// Tree, collection and passes; one is driven by the control's code, its twin by the plain versions below.
struct World {
    World() { shell.state.multiSelect = true; }

    void AddRow(const std::string& entryID, const std::string& key, const std::string& sel, const std::string& index) {
        const int32_t row = shell.grid.AddRow(sel);
        shell.grid.SetCellText(row, colIndex, index);
        shell.grid.SetCellText(row, colStoreID, "AB");
        shell.grid.SetCellText(row, colEntryID, entryID);
        shell.grid.SetCellText(row, colKey, key);
        shell.grid.SetCellText(row, colItemType, std::to_string(row % 6));
    }
    void AddItem(const std::string& entryID, bool incomplete, bool selected, int32_t index) {
        const ItemRef item = set.CreateSelItem(0, "AB", entryID, "", "");
        item->SetIncomplete(incomplete);
        item->SetSelected(selected);
        item->SetIndex(index);
        const Collection collection(set.EnsureCollection());
        if (!set.GetSelItemByKey(item->Key())) collection.Add(Value(item), item->Key());
    }
    /// What a host and a user can see.
    Lines Seen() {
        Lines lines;
        const TreeGrid& grid = shell.grid;
        for (int32_t row = 1; row < grid.RowCount(); ++row)
            lines.push_back(grid.CellText(row, colSel) + "|" + grid.CellText(row, colIndex) + "|" +
                            std::to_string(BackColor(grid, row)) + "|" + std::to_string(IsBold(grid, row)) +
                            std::to_string(IsBold(grid, row, colSel)));
        for (const ItemRef& item : ItemsOf(set.collection))
            lines.push_back(item->Key() + " " + std::to_string(item->Index()) +
                            (item->Incomplete() ? " incomplete" : "") + (item->Selected() ? " ticked" : ""));
        for (const std::string& line : host.ErrorLines()) lines.push_back(line.substr(0, line.find(']')));
        return lines;
    }

    FakeHost host;
    automation::testing::ScriptedObjectFactory factory;
    ControlShell shell{host, factory};
    SelectionSet set{shell};
    SelectionView view{shell, set};
};

/// The rebuild, word for word: out with the complete items, then each ticked row before the first item whose number is
/// not less than its own.
void PlainRefreshSelection(World& world) {
    SelectionSet& set = world.set;
    const TreeGrid& grid = world.shell.grid;
    std::vector<ItemRef> items;
    for (const ItemRef& item : ItemsOf(set.collection))
        if (item->Incomplete()) items.push_back(item);
    const auto find = [&](const std::string& key) {
        return std::find_if(items.begin(), items.end(), [&](const ItemRef& item) {
            return automation::FoldCase(item->Key()) == automation::FoldCase(key);
        });
    };
    int duplicates = 0;
    for (int32_t row = 1; row < grid.RowCount(); ++row) {
        if (grid.CellValue(row, colSel) == 0) continue;
        const auto number = static_cast<int32_t>(grid.CellValue(row, colIndex));
        ItemRef item;
        if (const auto known = find(grid.CellText(row, colKey)); known != items.end()) {
            item = *known;
            if (!item->Incomplete()) {
                ++duplicates;
                continue;
            }
            items.erase(known);
        } else {
            item = set.CreateSelItemFromRow(row);
            if (find(item->Key()) != items.end()) {
                ++duplicates;
                continue;
            }
        }
        auto place = items.begin();
        while (place != items.end() && (*place)->Index() < number) ++place;
        items.insert(place, item);
    }
    automation::ObjectRef old = set.collection;
    set.KillCollection(old);
    if (!items.empty()) set.EnsureCollection();
    for (const ItemRef& item : items) Collection(set.collection).Add(Value(item), item->Key());
    for (int i = 0; i < duplicates; ++i)
        world.shell.TraceError(errorLines::refreshSelection, automation::VbError(automation::errors::duplicateKey));
}

/// The renumbering, word for word, without the pass that follows it.
void PlainReIndex(World& world) {
    if (!world.set.collection) return;
    int32_t next = 1;
    for (const ItemRef& item : ItemsOf(world.set.collection)) {
        if (!item->Selected()) continue;
        item->SetIndex(next++);
        for (int32_t row = 1; row < world.shell.grid.RowCount(); ++row) {
            if (automation::FoldCase(world.shell.grid.CellText(row, colKey)) != automation::FoldCase(item->Key()))
                continue;
            world.shell.grid.SetCellText(row, colIndex, std::to_string(item->Index()));
            break;
        }
    }
    world.view.ApplySelection();
}

class Reference : public ::testing::TestWithParam<int> {
  protected:
    void Fill(World& world, int seed) {
        std::mt19937 random(static_cast<uint32_t>(seed));
        const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<uint32_t>(limit)); };
        const int rows = below(25);
        for (int i = 0; i < rows; ++i) {
            const std::string entryID = "00" + std::to_string(10 + below(40));
            const std::string sel =
                std::vector<std::string>{"", "0", "-1", "-1", "True"}[static_cast<size_t>(below(5))];
            world.AddRow(entryID, "SAB|" + entryID, sel, below(4) ? std::to_string(below(9)) : " ");
        }
        const int items = below(12);
        for (int i = 0; i < items; ++i)
            world.AddItem("00" + std::to_string(10 + below(40)), below(2) == 0, below(3) > 0, below(9));
    }
};

TEST_P(Reference, TheRebuildGivesTheSameCollection) {
    World fast;
    World plain;
    Fill(fast, GetParam());
    Fill(plain, GetParam());
    fast.view.RefreshSelection();
    PlainRefreshSelection(plain);
    EXPECT_EQ(fast.Seen(), plain.Seen());
}

TEST_P(Reference, TheRenumberingGivesTheSameTree) {
    World fast;
    World plain;
    Fill(fast, GetParam());
    Fill(plain, GetParam());
    fast.view.ReIndex();
    PlainReIndex(plain);
    EXPECT_EQ(fast.Seen(), plain.Seen());
}

INSTANTIATE_TEST_SUITE_P(Seeds, Reference, ::testing::Range(0, 60));

}  // namespace
}  // namespace foldertree::testing
