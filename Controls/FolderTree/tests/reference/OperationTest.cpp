// OperationTest: single operations of grid and selection against their literal versions, on trees that no mailbox has.
#include <gtest/gtest.h>

#include <random>

#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "reference/LiteralControl.h"
#include "reference/LiteralText.h"
#include "selection/BulkSelection.h"
#include "selection/Highlighting.h"
#include "selection/OutlineCollapse.h"
#include "selection/SelectionView.h"
#include "support/FakePlatform.h"

namespace foldertree::reference {
namespace {

using automation::Collection;
using automation::ObjectRef;
using automation::Value;

class NoFactory : public automation::ObjectFactory {
  public:
    ObjectRef Create(std::string_view) override { throw automation::VbError(automation::errors::cannotCreate); }
};

/// The parts of the control that ships, without the control around them.
struct Parts {
    testing::FakePlatform platform;
    NoFactory factory;
    ControlContext context{platform, factory};
    SelectionSet set{context};
    SelectionView view{context, set};
    BulkSelection bulk{context, set, view};
};

struct Literal {
    testing::FakePlatform platform;
    NoFactory factory;
    LiteralControl control{platform, factory};
    std::shared_ptr<LiteralCollection> picks = std::make_shared<LiteralCollection>();
};

/// The same odd tree and the same odd picks for both.
class Twins {
  public:
    explicit Twins(uint32_t seed) : random_(seed) {
        settings_ = {.enabled = true,
                     .highlightContacts = Flag(),
                     .highlightJournals = Flag(),
                     .highlightTasks = Flag(),
                     .multiSelect = Below(5) > 0,
                     .allowIndexing = Flag()};
        ControlState& state = parts.context.state;
        state.highlightContactFolders = settings_.highlightContacts;
        state.highlightJournalFolders = settings_.highlightJournals;
        state.highlightTaskFolders = settings_.highlightTasks;
        state.multiSelect = settings_.multiSelect;
        state.allowIndexing = settings_.allowIndexing;
        literal.control.Load(settings_);
        parts.set.collection = std::make_shared<automation::KeyedCollection>();
        literal.control.SetSelection(literal.picks);
        literal.control.grid.SetCellText(0, colIndex, "");
        literal.control.grid.SetCellText(0, colSel, "");
        literal.control.grid.SetCellText(0, colName, "");
        for (int rows = Below(40); rows > 0; --rows) AddRow();
        for (int items = Below(14); items > 0; --items) AddItem();
    }

    void Compare() {
        const TreeGrid& grid = parts.context.grid;
        for (int32_t row = 0; row < grid.RowCount(); ++row) {
            const SeenRow seen = literal.control.SeeRow(row);
            EXPECT_EQ(grid.NodeState(row), seen.state) << row;
            for (int col = 0; col < gridColumnCount; ++col) {
                const SeenCell& cell = seen.cells[static_cast<size_t>(col)];
                const CellLook& look = grid.Look(row, col);
                EXPECT_EQ(grid.CellText(row, col), cell.text) << row << ", " << col;
                EXPECT_EQ(look.bold, cell.bold) << row << ", " << col;
                EXPECT_EQ(look.backColor ? int64_t{*look.backColor} : -1, cell.backColor) << row << ", " << col;
            }
        }
        const Collection items(parts.set.collection);
        ASSERT_EQ(items.Count(), literal.picks->Count());
        for (int32_t position = 1; position <= items.Count(); ++position) {
            const auto item = std::dynamic_pointer_cast<clsFolderTreeItem>(items.Item(position).ToObject());
            const auto plain = std::static_pointer_cast<LiteralItem>(literal.picks->Item(position));
            EXPECT_EQ(item->Key(), plain->Key()) << position;
            EXPECT_EQ(item->Name(), plain->name) << position;
            EXPECT_EQ(item->Index(), plain->index) << position;
            EXPECT_EQ(item->Selected(), plain->selected) << position;
            EXPECT_EQ(item->Incomplete(), plain->incomplete) << position;
        }
        EXPECT_EQ(parts.platform.Trace(), literal.platform.Trace());
    }

    Parts parts;
    Literal literal;

  private:
    int Below(int limit) { return static_cast<int>(random_() % static_cast<uint32_t>(limit)); }
    bool Flag() { return Below(2) == 0; }
    const char* Any(std::initializer_list<const char*> choices) {
        return choices.begin()[Below(static_cast<int>(choices.size()))];
    }
    std::string EntryID() { return Any({"00", "EF", "ef", "\xC3\x89", "\xC3\xA9"}) + std::to_string(10 + Below(30)); }

    void AddRow() {
        const std::string entryID = EntryID();
        std::array<std::string, gridColumnCount> cells{};
        cells[colSel] = Any({"", "0", "-1", "-1", "True", "TRUE", "False", "&HFFFF", "１"});
        cells[colIndex] = Below(4) ? std::to_string(Below(9))
                                   : Any({" ", "", "2.5", "99999999999", "x", "&H3", "1d1", "\t3", "３", "2é"});
        cells[colRowKind] = Any({"Folder", "Folder", "Folder", "STORE", "dummy", "Header", "AdList"});
        cells[colItemType] = Any({"0", "1", "2", "3", "4", "-1", ""});
        cells[colStoreID] = Any({"AB", "AB", "AB", "Ω", ""});
        cells[colEntryID] = entryID;
        cells[colFolderRecID] = Any({"", "7"});
        // Rows of a tree have the key that their item will have, at most in other letters.
        cells[colKey] = cells[colStoreID].empty() ? entryID : "S" + cells[colStoreID] + "|" + entryID;
        if (Below(8) == 0) cells[colKey] = OtherCase(cells[colKey]);
        const auto level = static_cast<int16_t>(Below(4));
        const bool grey = Below(6) == 0;

        TreeGrid& grid = parts.context.grid;
        const int32_t row = grid.AddRow("");
        LiteralGrid& plain = literal.control.grid;
        plain.AddRow();
        for (int col = 0; col < gridColumnCount; ++col) {
            grid.SetCellText(row, col, cells[static_cast<size_t>(col)]);
            plain.SetCellText(row, col, cells[static_cast<size_t>(col)]);
        }
        grid.SetRowOutlineLevel(row, level);
        plain.SetRowOutlineLevel(row, level);
        if (!grey) return;
        grid.SetCellFormat(CellSetting::BackColor, row, 0, row, gridColumnCount - 1, colors::buttonFace);
        plain.SetBackColor(row, 0, gridColumnCount - 1, colors::buttonFace);
    }

    void AddItem() {
        const std::string storeID = Any({"AB", "AB", "AB", "ω", ""});
        const std::string entryID = EntryID();
        const std::string listID = Below(8) == 0 ? "7" : "";
        const ItemRef item = parts.set.CreateSelItem(3, storeID, entryID, "EF", listID);
        const auto plain =
            std::static_pointer_cast<LiteralItem>(literal.control.CreateSelItem(3, storeID, entryID, "EF", listID));
        const bool incomplete = Flag();
        const bool selected = Below(4) > 0;
        const int32_t index = Below(12) ? Below(9) : INT32_MAX;
        item->SetIncomplete(incomplete);
        item->SetSelected(selected);
        item->SetIndex(index);
        plain->incomplete = incomplete;
        plain->selected = selected;
        plain->index = index;
        const std::string key = Below(6) ? plain->Key() : "own key " + std::to_string(Below(9));
        for (const auto& entry : literal.picks->entries)
            if (SameText(entry.key, key)) return;
        Collection(parts.set.collection).Add(Value(item), key);
        literal.picks->Add(plain, key);
    }

    std::mt19937 random_;
    Settings settings_;
};

/// Does the same to both, for many trees.
template <class Run>
void OnManyTrees(Run&& run) {
    for (uint32_t seed = 0; seed < 150 && !::testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Twins twins(seed);
        run(twins.parts, twins.literal.control);
        twins.Compare();
    }
}

TEST(Operation, ApplyingTheSelectionIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        parts.view.ApplySelection();
        literal.ApplySelection();
    });
}

TEST(Operation, RebuildingTheSelectionIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        parts.view.RefreshSelection();
        literal.RefreshSelection();
    });
}

TEST(Operation, RenumberingIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        parts.view.ReIndex();
        literal.ReIndex();
    });
}

TEST(Operation, PaintingRowsIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        for (int32_t row = 1; row < parts.context.grid.RowCount(); row += 3) {
            parts.view.MarkSelection(row);
            literal.MarkSelection(row);
        }
    });
}

TEST(Operation, HighlightingIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        PerformHighlighting(parts.context);
        literal.PerformHighlighting();
    });
}

TEST(Operation, SelectingAllIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        parts.bulk.SelectAll();
        literal.SelectAll();
    });
}

TEST(Operation, SelectingNoneIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        parts.bulk.SelectNone();
        literal.SelectNone();
    });
}

TEST(Operation, SelectingByTypeIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        for (const bool additional : {true, false}) {
            parts.bulk.SelectByType(FTIContactItem, additional);
            literal.SelectByType(FTIContactItem, additional);
        }
    });
}

TEST(Operation, CollapsingToTheSelectionIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        CollapseToSelection(parts.context);
        literal.CollapseToSelection();
    });
}

TEST(Operation, CollapsingToATypeIsTheSame) {
    OnManyTrees([](Parts& parts, LiteralControl& literal) {
        CollapseToType(parts.context, FTITaskItem);
        literal.CollapseToType(FTITaskItem);
    });
}

}  // namespace
}  // namespace foldertree::reference
