// Checks: each rule by itself.
#include "attack/Checks.h"

#include "attack/ForeignItem.h"
#include "automation/Collection.h"
#include "support/ControlTest.h"

namespace foldertree::attack {

using automation::ObjectRef;
using automation::Value;

namespace {

std::vector<ObjectRef> ItemsNow(const automation::KeyedCollection& collection) {
    std::vector<ObjectRef> items;
    for (int32_t position = 1; position <= collection.Count(); ++position)
        items.push_back(collection.Item(Value(position)).ToObject());
    return items;
}

bool IsOpen(const World& world) {
    return world.control && !world.control->Closed();
}

/// A bystander is what the control selects by when nothing was assigned after it.
void CheckCurrent(World& world, const Bystander& current, Findings& findings) {
    const TreeGrid& grid = world.control->Grid();
    for (const ObjectRef& object : current.items) {
        const auto* item = dynamic_cast<const clsFolderTreeItem*>(object.get());
        const int32_t row = item ? grid.FindRow(item->Key()) : -1;
        if (row > 0 && !testing::IsTicked(grid, row))
            findings.push_back("the assigned collection is not shown, a tick is missing" + std::string(detailMark) +
                               grid.CellText(row, colName));
    }
    if (world.control->Selection() != current.collection.face)
        findings.push_back("the assigned collection is not the control's");
}

int32_t RowsToPick(const TreeGrid& grid) {
    int32_t rows = 0;
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) {
        const std::string kind = grid.CellText(row, colRowKind);
        const bool boxed = grid.CellFormat(CellSetting::BackColor, row, colSel) != colors::buttonFace;
        if (boxed && (kind == rowKind::folder || kind == rowKind::adList)) ++rows;
    }
    return rows;
}

}  // namespace

int LiveObjects() {
    return ForeignObjectCount() + ForeignItem::Count() + automation::testing::ScriptedObject::LiveCount();
}

void CheckIdle(World& world, Findings& findings) {
    if (world.platform.callsAfterClose > 0) findings.push_back("a closed control calls its platform");
    if (world.platform.panelVisible) findings.push_back("the wait panel is left");
    if (world.platform.busyPointer) findings.push_back("the busy pointer is left");
    if (!IsOpen(world)) return;
    if (world.control->Refreshing()) findings.push_back("the refreshing flag is left");
    // The grid-busy flag shows in what it does: while it is set no edit is refused.
    bool cancel = false;
    world.control->fgd_BeforeEdit(0, colName, cancel);
    if (!cancel) findings.push_back("the grid-busy flag is left");
}

void CheckBystanders(World& world, Findings& findings) {
    for (const Bystander& each : world.bystanders)
        if (ItemsNow(*each.collection.items) != each.items)
            findings.push_back("a collection that was assigned meanwhile is touched" + std::string(detailMark) +
                               std::to_string(each.collection.items->Count()) + " items of " +
                               std::to_string(each.items.size()));
    if (!IsOpen(world) || world.bystanders.empty()) return;
    const Bystander& last = world.bystanders.back();
    if (last.multiSelect && world.control->MultiSelect()) CheckCurrent(world, last, findings);
}

void CheckGrid(World& world, Findings& findings) {
    if (!IsOpen(world)) return;
    const TreeGrid& grid = world.control->Grid();
    for (int32_t row = 0; row < grid.RowCount(); ++row) {
        for (int col = 0; col < grid.ColCount(); ++col) grid.CellText(row, col);
        const std::string key = grid.CellText(row, colKey);
        const int32_t found = key.empty() ? row : grid.FindRow(key);
        if (found < 0 || found > row)
            findings.push_back("a row is not found by its key" + std::string(detailMark) + key);
    }
}

void CheckFreshStart(World& world, const std::vector<std::string>& expected, Findings& findings) {
    if (!IsOpen(world)) return;
    world.bystanders.clear();
    world.StartAnew();
    const std::vector<std::string> tree = testing::TreeOf(world.control->Grid());
    if (tree != expected) {
        std::string difference;
        for (size_t row = 0; row < std::max(tree.size(), expected.size()) && difference.empty(); ++row) {
            const std::string is = row < tree.size() ? tree[row] : "(none)";
            const std::string wanted = row < expected.size() ? expected[row] : "(none)";
            if (is != wanted) difference = "row " + std::to_string(row + 1) + " is " + is + ", not " + wanted;
        }
        findings.push_back("after a fresh start the tree is not as that of a new control" + std::string(detailMark) +
                           difference);
    }
    if (!world.setting.multiSelect) return;
    world.control->SelectAll();
    const int32_t selected = automation::Collection(world.control->Selection()).Count();
    if (selected != RowsToPick(world.control->Grid()))
        findings.push_back("after a fresh start not all can be selected");
    world.control->SelectNone();
    if (automation::Collection(world.control->Selection()).Count() != 0)
        findings.push_back("after a fresh start not all can be unselected");
}

void CheckEnd(World& world, Findings& findings) {
    world.control.reset();
    if (!world.life.expired()) findings.push_back("the control is kept by a reference to itself");
    // The host's variable and what it remembers are the only references left.
    const long own = world.variable == world.selection.face ? 2 : 1;
    const bool wrapped = world.selection.face && world.selection.face != world.selection.items;
    if (world.selection.face && world.selection.face.use_count() > own + (wrapped ? 0 : 1))
        findings.push_back("the control's end left a reference to the host's collection");
}

}  // namespace foldertree::attack
