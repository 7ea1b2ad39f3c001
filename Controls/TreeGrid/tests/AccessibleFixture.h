// AccessibleFixture: a small outline, and whoever owns and shows it, for the tests of the accessible tree.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "accessible/AccessibleTree.h"
#include "automation/Text.h"
#include "rows/TreeGrid.h"
#include "tests/SampleSchema.h"

namespace foldertree::testing {

/// Says what the test wants.
struct FakeHost final : AccessibleHost {
    std::string name;
    std::optional<int32_t> numbers;
    bool busy = false;
    bool enabled = true;

    std::string DisplayName() const override { return name; }
    std::optional<int32_t> Numbers() const override { return numbers; }
    bool Busy() const override { return busy; }
    bool Enabled() const override { return enabled; }
};

struct FakeView final : AccessibleView {
    bool focused = false;
    int32_t lastInView = 1'000'000'000;

    bool Focused() const override { return focused; }
    bool InView(int32_t row) const override { return row <= lastInView; }
};

/// Placeholders have no box.
inline bool HasTestBox(const TreeGrid& grid, int32_t row) {
    return !automation::EqualNoCase(grid.CellView(row, sample::colRowKind), sample::rowKind::dummy);
}

inline int32_t AddTestRow(TreeGrid& grid, int16_t level, std::string_view name,
                          std::string_view kind = sample::rowKind::folder) {
    const int32_t row = grid.AddRow("");
    grid.SetCellText(row, sample::colName, name);
    grid.SetCellText(row, sample::colRowKind, kind);
    grid.SetRowOutlineLevel(row, level);
    grid.SetIsNode(row, kind != sample::rowKind::dummy);
    if (kind == sample::rowKind::store)
        grid.SetCellFormat(CellSetting::BackColor, row, 0, row, sample::columnCount - 1, colors::buttonFace);
    return row;
}

/// Mailbox > Inbox > Customers, Tasks > (not read yet), Trash.
struct SmallTree {
    SmallTree() {
        grid.SetCellText(0, sample::colSel, "Select");
        grid.SetCellText(0, sample::colIndex, "No.");
        grid.SetCellText(0, sample::colName, "Folder");
        for (int col = sample::colReserved; col < sample::columnCount; ++col) grid.SetColHidden(col, true);
        AddTestRow(grid, 0, "Mailbox", sample::rowKind::store);
        AddTestRow(grid, 1, "Inbox");
        AddTestRow(grid, 2, "Customers");
        AddTestRow(grid, 1, "Tasks");
        AddTestRow(grid, 2, "", sample::rowKind::dummy);
        AddTestRow(grid, 1, "Trash");
        grid.SetNodeState(tasks, nodeCollapsed);
        grid.DeliverChanges();
    }

    static constexpr int32_t mailbox = 1, inbox = 2, customers = 3, tasks = 4, placeholder = 5, trash = 6;

    TreeGrid grid{sample::schema};
    RowHasBox hasBox = HasTestBox;
    FakeView view;
    FakeHost host;
    AccessibleTree tree{grid, hasBox, view, host};
};

}  // namespace foldertree::testing
