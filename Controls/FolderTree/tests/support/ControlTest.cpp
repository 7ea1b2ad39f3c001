// ControlTest: the gestures of hosts and users, and the short form of a tree.
#include "support/ControlTest.h"

#include "automation/Collection.h"

namespace foldertree::testing {

using automation::ObjectRef;
using automation::Value;
using automation::testing::ScriptedObject;

namespace {

std::string LineOf(const TreeGrid& grid, int32_t row) {
    std::string line(static_cast<size_t>(grid.RowOutlineLevel(row)) * 2, ' ');
    line += grid.CellText(row, colName);
    const std::string kind = grid.CellText(row, colRowKind);
    if (kind != "Folder") line += "[" + kind + "]";
    if (grid.CellText(row, colIncomplete) == "-1") line += "[unread]";
    if (grid.IsNode(row) && grid.NodeState(row) == nodeCollapsed) line += "[closed]";
    if (IsTicked(grid, row)) line += "[" + grid.CellText(row, colIndex) + "]";
    return line;
}

}  // namespace

Lines TreeOf(const TreeGrid& grid) {
    Lines lines;
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) lines.push_back(LineOf(grid, row));
    return lines;
}

Lines NamesOf(const TreeGrid& grid) {
    Lines names;
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row) names.push_back(grid.CellText(row, colName));
    return names;
}

int32_t RowOf(const TreeGrid& grid, std::string_view name) {
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row)
        if (grid.CellText(row, colName) == name) return row;
    ADD_FAILURE() << "There is no row named " << name;
    return 0;
}

bool IsBold(const TreeGrid& grid, int32_t row, int col) {
    return grid.CellFormat(CellSetting::Bold, row, col) != 0;
}

OleColor BackColor(const TreeGrid& grid, int32_t row, int col) {
    return grid.CellFormat(CellSetting::BackColor, row, col);
}

OleColor ForeColor(const TreeGrid& grid, int32_t row, int col) {
    return grid.CellFormat(CellSetting::ForeColor, row, col);
}

Picture PictureOf(const TreeGrid& grid, int32_t row) {
    return static_cast<Picture>(grid.CellFormat(CellSetting::Picture, row, colName));
}

bool IsTicked(const TreeGrid& grid, int32_t row) {
    return grid.CellValue(row, colSel) != 0;
}

std::shared_ptr<automation::KeyedCollection> NewCollection() {
    return std::make_shared<automation::KeyedCollection>();
}

void AddItem(automation::KeyedCollection& collection, const ItemRef& item) {
    collection.Add(Value(item), Value(item->Key()), Value(automation::Missing()), Value(automation::Missing()));
}

std::vector<ItemRef> ItemsOf(const ObjectRef& collection) {
    std::vector<ItemRef> items;
    if (!collection) return items;
    const automation::Collection view(collection);
    for (int32_t position = 1; position <= view.Count(); ++position)
        items.push_back(std::dynamic_pointer_cast<clsFolderTreeItem>(view.Item(position).ToObject()));
    return items;
}

Lines KeysOf(const ObjectRef& collection) {
    Lines keys;
    for (const ItemRef& item : ItemsOf(collection)) keys.push_back(item ? item->Key() : "<foreign>");
    return keys;
}

ControlTest::ControlTest() : liveBefore(ScriptedObject::LiveCount()) {
    factory.On("NOXMAPI.NOXMAPIUtils", [this] { return mailbox.Utilities(); });
    control = ctlFolderTree::Create(platform, factory);
    control->UserControl_InitProperties();
}

void ControlTest::TearDown() {
    control.reset();
    platform.ambientFont = nullptr;
    factory = automation::testing::ScriptedObjectFactory();  // makers may hold objects
    EXPECT_EQ(ScriptedObject::LiveCount(), liveBefore) << "an outside object was not released";
}

void ControlTest::Load(int32_t extendToLevel) {
    // A container loads the level with the other settings; the setter would refresh.
    FakeBag bag;
    control->UserControl_WriteProperties(bag);
    bag.values["ExtendToLevel"] = Value(extendToLevel);
    control->UserControl_ReadProperties(bag);
    control->SetRDOSessionRef(mailbox.Session());
    platform.ClearTrace();
    control->RefreshList();
}

void ControlTest::LoadSingleSelect() {
    control->SetMultiSelect(false);
    Load();
}

void ControlTest::Open(std::string_view name) {
    Open(Row(name));
}

void ControlTest::Open(int32_t row) {
    GridInteraction(Grid(), *control).SetNode(row, true);
}

void ControlTest::Tick(std::string_view name) {
    const int32_t row = Row(name);
    Grid().SetCellText(row, colSel, "-1");
    control->fgd_AfterEdit(row, colSel);
}

void ControlTest::Untick(std::string_view name) {
    const int32_t row = Row(name);
    Grid().SetCellText(row, colSel, "0");
    control->fgd_AfterEdit(row, colSel);
}

void ControlTest::Type(std::string_view name, std::string_view number) {
    const int32_t row = Row(name);
    Grid().SetCellText(row, colIndex, number);
    control->fgd_AfterEdit(row, colIndex);
}

ItemRef ControlTest::HostItem(std::string_view storeID, std::string_view entryID, int32_t recordID) {
    return control->CreateSelItem(recordID, storeID, entryID, "", "");
}

void ControlTest::ExpectIdle() {
    EXPECT_FALSE(platform.panelVisible);
    EXPECT_FALSE(platform.busyPointer);
    EXPECT_FALSE(control->Refreshing());
    // The grid-busy flag shows in what it does: while it is set no edit is refused.
    bool cancel = false;
    control->fgd_BeforeEdit(0, colName, cancel);
    EXPECT_TRUE(cancel) << "the grid-busy flag is still set";
}

}  // namespace foldertree::testing
