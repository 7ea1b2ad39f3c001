// ExpectedTree: the rules of the tree, in the plainest words.
#include "conformance/ExpectedTree.h"

#include <algorithm>
#include <map>

#include "automation/Text.h"

namespace foldertree::testing {

namespace {

constexpr int32_t rowHeight = 19 * 15;

int32_t TypeOfClass(const std::string& containerClass) {
    static const std::map<std::string, int32_t> types{
        {"ipf.note", 0},        {"ipm.note", 0},        {"ipf.contact", 2}, {"ipm.contact", 2},
        {"ipf.appointment", 1}, {"ipm.appointment", 1}, {"ipf.journal", 4}, {"ipm.journal", 4},
        {"ipf.stickynote", 5},  {"ipm.stickynote", 5},  {"ipf.task", 3},    {"ipm.task", 3}};
    const auto found = types.find(automation::FoldCase(containerClass));
    return found == types.end() ? -1 : found->second;
}

void Paint(GridRow& row, const std::function<void(CellColors&)>& paint) {
    for (CellColors& cell : row.colors) paint(cell);
}

}  // namespace

ExpectedTree::ExpectedTree(const ModeMailbox& mailbox, const ModeDifferences& mode, TreeSettings settings)
    : mailbox_(mailbox), mode_(mode), settings_(settings) {
    Insert(0, GridRow(), {});
    const auto isDefault = [](const ModeStore& store) { return store.isDefault; };
    if (mode_.defaultStoreFirst) {
        // One store leads; another that calls itself the default one is not read at all.
        const auto first = std::find_if(mailbox_.stores.begin(), mailbox_.stores.end(), isDefault);
        if (first != mailbox_.stores.end()) AddStore(*first);
    }
    for (const ModeStore& store : mailbox_.stores)
        if (!mode_.defaultStoreFirst || !store.isDefault) AddStore(store);
    if (!settings_.showAddressBook || !mode_.showsAddressLists) return;
    GridRow heading = Band("Header", "<address lists>");
    heading.picture = Picture::AdList;
    Insert(rows_.size(), heading, {});
    AddAddressLists(mailbox_.addressLists, 1);
}

void ExpectedTree::AddStore(const ModeStore& store) {
    std::string name = store.name;
    if (mode_.showsProvider && !store.provider.empty()) name += " (" + store.provider + ")";
    GridRow row = Band(mode_.storeRowKind, name);
    row.cells[colStoreID] = store.id;
    row.picture = store.isDefault && mode_.showsHome ? Picture::Home : Picture::FolderOpen;
    Insert(rows_.size(), row, {});
    for (const ModeFolder* folder : ChildrenOf(store.folders)) WalkFolder(store, *folder, 1, store.name);
}

void ExpectedTree::WalkFolder(const ModeStore& store, const ModeFolder& folder, int level,
                              const std::string& parentPath) {
    if (IsPassedOver(folder)) return;
    const std::string path = parentPath + "\\" + folder.name;
    size_t row = 0;  // a folder without a row leaves its marks on the header row
    if (HasRowInWalk(folder)) {
        row = rows_.size();
        Insert(row, FolderRow(store, folder, level, path), {&store, &folder});
    }
    if (folder.children.empty()) return;
    if (!IsReadAt(level)) {
        MarkUnread(row);
        return;
    }
    for (const ModeFolder* child : ChildrenOf(folder.children)) WalkFolder(store, *child, level + 1, path);
}

void ExpectedTree::Expand(std::string_view name) {
    for (size_t row = 0; row < rows_.size(); ++row)
        if (rows_[row].cells[colName] == name && rows_[row].cells[colIncomplete] == "-1") return ExpandRow(row);
    ADD_FAILURE() << "There is nothing to expand at " << name;
}

void ExpectedTree::ExpandAll() {
    for (size_t row = 1; row < rows_.size(); ++row)
        if (rows_[row].cells[colIncomplete] == "-1") ExpandRow(row);
}

void ExpectedTree::ExpandRow(size_t row) {
    const Source source = sources_[row];
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row) + 1);
    sources_.erase(sources_.begin() + static_cast<std::ptrdiff_t>(row) + 1);
    rows_[row].cells[colIncomplete] = "";
    rows_[row].closed = false;
    size_t next = row + 1;
    for (const ModeFolder* child : ChildrenOf(source.folder->children)) {
        if (IsPassedOver(*child)) continue;
        if (mode_.classlessEndsExpansion && !child->containerClass) {
            // A node with nothing new to show stays as it was, but for being open.
            if (next == row + 1) MarkUnread(row);
            rows_[row].closed = false;
            return;
        }
        const std::string path = rows_[row].cells[colPath] + "\\" + child->name;
        Insert(next, FolderRow(*source.store, *child, rows_[row].level + 1, path), {source.store, child});
        if (!child->children.empty()) MarkUnread(next++);
        ++next;
    }
}

void ExpectedTree::AddAddressLists(const std::vector<ModeAddressList>& lists, int level) {
    for (const ModeAddressList& list : lists) {
        GridRow row;
        row.level = level;
        row.cells[colName] = list.name;
        row.cells[colRowKind] = "AdList";
        row.cells[colIndex] = " ";
        row.cells[colAddressListID] = list.id;
        row.cells[colKey] = "L" + list.id;
        row.picture = Picture::AdList;
        row.pictureAlignment = 1;
        row.node = true;
        Insert(rows_.size(), row, {});
        if (mode_.nestsAddressLists) AddAddressLists(list.lists, level + 1);
    }
}

std::vector<const ModeFolder*> ExpectedTree::ChildrenOf(const std::vector<ModeFolder>& children) const {
    std::vector<const ModeFolder*> result;
    for (const ModeFolder& child : children) result.push_back(&child);
    if (mode_.sortsByName)
        std::stable_sort(result.begin(), result.end(), [](const ModeFolder* a, const ModeFolder* b) {
            return automation::FoldCase(a->name) < automation::FoldCase(b->name);
        });
    return result;
}

int32_t ExpectedTree::TypeOf(const ModeFolder& folder) const {
    if (!mode_.typeFromContainerClass) return folder.itemType;
    return folder.containerClass ? TypeOfClass(*folder.containerClass) : 0;
}

bool ExpectedTree::IsPassedOver(const ModeFolder& folder) const {
    if (mode_.passesOverSearchFolders && folder.kind != 1) return true;
    return mode_.unknownType == UnknownType::LeavesFolderOut && TypeOf(folder) == -1;
}

bool ExpectedTree::HasRowInWalk(const ModeFolder& folder) const {
    const bool configuration = automation::FoldCase(folder.messageClass).ends_with("configuration");
    if (mode_.hidesConfigurationFolders && configuration) return false;
    return mode_.unknownType != UnknownType::HidesRow || TypeOf(folder) != -1;
}

bool ExpectedTree::IsReadAt(int level) const {
    const int32_t limit = settings_.extendToLevel;
    return limit == 0 || level < limit || (mode_.readsAtLimit && level == limit);
}

GridRow ExpectedTree::Band(std::string_view kind, std::string_view name) const {
    GridRow row;
    row.cells[colName] = name;
    row.cells[colRowKind] = kind;
    Paint(row, [](CellColors& cell) { cell = {.bold = true, .back = colors::buttonFace}; });
    row.pictureAlignment = 1;
    row.height = rowHeight;
    row.node = true;
    return row;
}

GridRow ExpectedTree::FolderRow(const ModeStore& store, const ModeFolder& folder, int level,
                                const std::string& path) const {
    GridRow row;
    row.level = level;
    row.cells[colName] = folder.name;
    row.cells[colRowKind] = "Folder";
    row.cells[colSel] = mode_.unticked;
    row.cells[colIndex] = mode_.noNumber;
    row.cells[colItemType] = std::to_string(TypeOf(folder));
    row.cells[colStoreID] = mode_.tellsStore ? store.id : "";
    row.cells[colEntryID] = folder.id;
    row.cells[colEntryIDShort] = mode_.tellsShortForm ? ShortForm(folder.id) : "";
    row.cells[colPath] = path;
    row.cells[colKey] = mode_.tellsStore ? "S" + store.id + "|" + folder.id : folder.id;
    row.picture = PictureFor(folder);
    row.pictureAlignment = 1;
    row.height = rowHeight;
    row.node = true;
    const std::pair<bool, int32_t> highlights[] = {
        {settings_.highlightContacts, 2}, {settings_.highlightJournals, 4}, {settings_.highlightTasks, 3}};
    for (const auto& [wanted, type] : highlights) {
        if (!wanted) continue;
        if (TypeOf(folder) == type)
            Paint(row, [](CellColors& cell) { cell.bold = true; });
        else
            Paint(row, [](CellColors& cell) { cell.fore = colors::buttonShadow; });
    }
    if (mode_.greyNumberCell) row.colors[colIndex].back = colors::buttonFace;
    return row;
}

Picture ExpectedTree::PictureFor(const ModeFolder& folder) const {
    const std::pair<int32_t, Picture> defaults[] = {{16, Picture::Draft}, {6, Picture::Inbox}, {4, Picture::Outbox},
                                                    {5, Picture::Sent},   {3, Picture::Trash}, {12, Picture::Note}};
    for (const auto& [number, picture] : defaults)
        if (folder.id == mailbox_.DefaultFolderID(number)) return picture;
    static const std::map<int32_t, Picture> pictures{
        {0, Picture::Mail},         {1, Picture::Calendar},     {2, Picture::Contact},
        {3, Picture::Task},         {4, Picture::Journal},      {5, Picture::Note},
        {6, Picture::FolderClosed}, {7, Picture::FolderClosed}, {8, Picture::Trash}};
    const auto found = pictures.find(TypeOf(folder));
    return found == pictures.end() ? Picture::None : found->second;
}

void ExpectedTree::MarkUnread(size_t row) {
    rows_[row].cells[colIncomplete] = "-1";
    rows_[row].closed = true;
    GridRow placeholder;
    placeholder.level = rows_[row].level + 1;
    placeholder.cells[colRowKind] = "Dummy";
    placeholder.closed = true;
    Insert(row + 1, placeholder, {});
}

void ExpectedTree::Insert(size_t row, GridRow gridRow, Source source) {
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row), std::move(gridRow));
    sources_.insert(sources_.begin() + static_cast<std::ptrdiff_t>(row), source);
}

}  // namespace foldertree::testing
