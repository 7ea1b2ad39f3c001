// Snapshot: taking it, and comparing one from the middle with those of the ends.
#include "attack/Snapshot.h"

#include <algorithm>
#include <map>

#include "automation/Collection.h"

namespace foldertree::attack {

namespace {

using Row = Snapshot::Row;

Row TakeRow(const TreeGrid& grid, int32_t number, const std::string& above) {
    Row row;
    for (int col = 0; col < grid.ColCount(); ++col) row.texts.push_back(grid.CellText(number, col));
    row.level = grid.RowOutlineLevel(number);
    row.isNode = grid.IsNode(number);
    row.state = grid.NodeState(number);
    const std::string& kind = row.texts[colRowKind];
    // A placeholder has nothing of its own.
    row.identity =
        kind == rowKind::dummy ? kind + " below " + above : kind + " " + row.texts[colName] + " " + row.texts[colPath];
    return row;
}

const Row* Find(const std::vector<Row>& rows, const std::string& identity) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.identity == identity; });
    return found == rows.end() ? nullptr : &*found;
}

std::string Detail(const Row& row) {
    std::string text = std::string(detailMark) + row.identity + " {";
    for (const std::string& each : row.texts) text += each + "|";
    return text + "} level " + std::to_string(row.level);
}

/// A tick and its number are written one after the other, and in a renumbering several times: any tick and any number
/// is one from the middle.
bool IsFromTheMiddle(size_t col, const std::string& text) {
    if (col == colSel) return text.empty() || text == "0" || text == "-1" || text == "False";
    if (col != colIndex) return false;
    return text.empty() || text == " " || text.find_first_not_of("0123456789") == std::string::npos;
}

/// What differs between a row and what it was or should become; empty when it is the same.
std::string Difference(const Row& row, const Row& other) {
    for (size_t col = 0; col < row.texts.size(); ++col)
        if (row.texts[col] != other.texts[col] && !IsFromTheMiddle(col, row.texts[col]))
            return "column " + std::to_string(col) + " is wrong";
    if (row.level != other.level) return "the level is wrong";
    return row.isNode == other.isNode ? "" : "it is wrong whether it is a node";
}

/// A row that some of its texts are still to be written to.
bool IsUnfinished(const Row& row, const Row& finished) {
    for (size_t col = 0; col < row.texts.size(); ++col)
        if (!row.texts[col].empty() && row.texts[col] != finished.texts[col] && !IsFromTheMiddle(col, row.texts[col]))
            return false;
    return (row.level == 0 || row.level == finished.level) && (!row.isNode || finished.isNode);
}

/// Unfinished, or marked as one whose folders are still to be read, with the placeholder below it.
bool IsOnTheWay(Row row, const std::vector<Row>& finished) {
    if (row.texts[colRowKind] == rowKind::dummy) return true;
    row.texts[colIncomplete].clear();
    row.isNode = false;
    return std::any_of(finished.begin(), finished.end(), [&](const Row& other) { return IsUnfinished(row, other); });
}

void CheckRow(const Row& row, const Expectations& expected, bool told, Findings& findings) {
    const Row* const before = Find(expected.before.rows, row.identity);
    const Row* const after = Find(expected.after.rows, row.identity);
    if ((before && Difference(row, *before).empty()) || (after && Difference(row, *after).empty())) return;
    if (told && (expected.rereads || !before) && IsOnTheWay(row, expected.after.rows)) return;
    if (!before && !after)
        findings.push_back("a row that is neither of before nor of after" + Detail(row));
    else
        findings.push_back("a row is neither as before nor as after: " + Difference(row, before ? *before : *after) +
                           Detail(row));
}

/// Those of `rows` that are in `order` come in that order.
bool InOrder(const std::vector<Row>& rows, const std::vector<Row>& order) {
    auto from = order.begin();
    for (const Row& row : rows) {
        if (!Find(order, row.identity)) continue;
        from = std::find_if(from, order.end(), [&](const Row& other) { return other.identity == row.identity; });
        if (from == order.end()) return false;
        ++from;
    }
    return true;
}

void CheckKeys(const Snapshot& now, const Expectations& expected, Findings& findings) {
    for (const std::string& key : now.keys)
        if (!expected.before.keys.contains(key) && !expected.after.keys.contains(key))
            findings.push_back("an item too many" + std::string(detailMark) + key);
    for (const std::string& key : expected.before.keys)
        if (expected.after.keys.contains(key) && !now.keys.contains(key))
            findings.push_back("an item is lost" + std::string(detailMark) + key);
}

}  // namespace

Snapshot Take(World& world) {
    Snapshot snapshot;
    if (world.selection.items)
        for (int32_t position = 1; position <= world.selection.items->Count(); ++position) {
            const automation::Value item = world.selection.items->Item(automation::Value(position));
            snapshot.keys.insert(item.RequireObject()->Get("Key").ToText());
        }
    if (!world.control || world.control->Closed()) return snapshot;
    ctlFolderTree& control = *world.control;
    const TreeGrid& grid = control.Grid();
    for (int32_t row = grid.FixedRowCount(); row < grid.RowCount(); ++row)
        snapshot.rows.push_back(TakeRow(grid, row, snapshot.rows.empty() ? "" : snapshot.rows.back().identity));
    snapshot.settings = {control.Enabled(),
                         control.HighlightContactFolders(),
                         control.HighlightJournalFolders(),
                         control.HighlightTaskFolders(),
                         control.MultiSelect(),
                         control.AllowIndexing(),
                         control.ShowAddressBook(),
                         control.ExtendToLevel(),
                         control.InfoStoreAccessMode()};
    return snapshot;
}

void CheckBetween(const Snapshot& now, const Expectations& expected, bool told, Findings& findings) {
    for (const Row& row : now.rows) CheckRow(row, expected, told, findings);
    if (!InOrder(now.rows, expected.after.rows) && !InOrder(now.rows, expected.before.rows))
        findings.push_back("the rows are in another order");
    if (!expected.rereads)
        for (const Row& row : expected.before.rows)
            if (Find(expected.after.rows, row.identity) && !Find(now.rows, row.identity))
                findings.push_back("a row is lost" + Detail(row));
    CheckKeys(now, expected, findings);
    if (expected.defaultsAllowed) return;
    for (size_t each = 0; each < now.settings.size() && each < expected.before.settings.size(); ++each) {
        const bool asBefore = now.settings[each] == expected.before.settings[each];
        const bool asAfter =
            each < expected.after.settings.size() && now.settings[each] == expected.after.settings[each];
        if (!asBefore && !asAfter) findings.push_back("setting " + std::to_string(each) + " is wrong");
    }
}

}  // namespace foldertree::attack
