// ObjectReader: reads folders object by object: the walk and the expansion that three access modes share.
#include "modes/ObjectReader.h"

#include "automation/Collection.h"
#include "common/FolderKey.h"
#include "common/RowWalk.h"
#include "enumeration/FolderRows.h"
#include "enumeration/WalkLimits.h"

namespace foldertree {

using automation::Collection;
using automation::Deref;
using automation::ObjectRef;
using automation::Value;

namespace {

constexpr int32_t headerRow = 0;

}  // namespace

std::string ObjectReader::ReadText(const ObjectRef& object, automation::Member member) {
    return Deref(object).Get(member).ToText();
}

bool ObjectReader::HasSubfolders(ObjectFolder& folder) {
    folder.subfolders = Deref(folder.object).Get("Folders").ToObject();
    if (folder.subfolders == nullptr) return false;
    folder.subfolderCount = Collection(folder.subfolders).Count();
    return folder.subfolderCount > 0;
}

void ObjectReader::ReadStore(const ObjectRef& store) {
    Guarded(context_, mode_.storeLine, [&] { GetFolders_Store(store); });
}

void ObjectReader::GetFolders_Store(const ObjectRef& store) {
    context_.AdvanceProgress(1, -1);
    const std::string name = ReadText(store, "Name");
    TreeGrid& grid = context_.grid;
    const RowHandle row = grid.HandleOf(AppendStoreRow(context_, mode_.storeRowKind, name));
    const std::string storeID = ReadText(store, mode_.idMember);
    grid.SetCellText(RequireRow(grid, row), colStoreID, storeID);
    const bool isHome = IsHomeStore(store, storeID);
    SetStorePicture(context_, RequireRow(grid, row), isHome);
    ObjectFolder root(RootFolder(store), storeID);
    const Parent parent{storeID, root.entryID, name};
    ForEachSubfolder(root, [&](const ObjectRef& child) { GetFolders_Folder(parent, child); });
    context_.AdvanceProgress(-1, 1);
}

bool ObjectReader::Parent::IsBelow(const std::string& id) const {
    return !id.empty() && (entryID == id || (above != nullptr && above->IsBelow(id)));
}

void ObjectReader::GetFolders_Folder(const Parent& parent, const ObjectRef& object) {
    // A failed call costs this folder only; its siblings are still read.
    Guarded(context_, mode_.folderLine, [&] {
        const int32_t level = parent.level + 1;
        ObjectFolder folder(object, parent.storeID);
        if (!ReadFolder(folder, Reading::Walk)) return;
        const std::string path = parent.path + "\\" + folder.name;
        RowHandle row;
        if (folder.hasRow) {
            row = context_.grid.HandleOf(AppendRow(context_.grid));
            context_.ShowPath(path);
            FillRow(RequireRow(context_.grid, row), level, folder, path);
        }
        if (!HasSubfolders(folder)) return;
        if (!MayDescend(level)) {
            // The marks of a folder without a row of its own fall on the header row, as they always have.
            MarkUnread(context_, folder.hasRow ? RequireRow(context_.grid, row) : headerRow);
            return;
        }
        // A folder below itself would never end.
        if (parent.IsBelow(folder.entryID)) return;
        const Parent self{parent.storeID, folder.entryID, path, level, &parent};
        ForEachSubfolder(folder, [&](const ObjectRef& child) { GetFolders_Folder(self, child); });
    });
}

bool ObjectReader::MayDescend(int32_t level) const {
    const int32_t limit = context_.state.extendToLevel;
    const bool within = mode_.readsAtLimit ? level <= limit : level < limit;
    return (within || limit == 0) && level < deepestWalkLevel;
}

void ObjectReader::ExpandNode(int32_t row) {
    RunExpansion(
        context_, view_, row, mode_.expandLine, [&](ExpandedRows& rows) { ReadChildren(rows); },
        [&] { context_.Yield(); });
}

void ObjectReader::ReadChildren(ExpandedRows& rows) {
    const std::string storeID = context_.grid.CellText(rows.Node(), colStoreID);
    ObjectFolder folder(OpenFolder(context_.grid.CellText(rows.Node(), colEntryID), storeID), storeID);
    rows.RemovePlaceholder();
    ForEachSubfolder(folder, [&](const ObjectRef& child) { ExpandChild(rows, child, storeID); });
}

void ObjectReader::ExpandChild(ExpandedRows& rows, const ObjectRef& object, const std::string& storeID) {
    ObjectFolder folder(object, storeID);
    if (!ReadFolder(folder, Reading::Expansion)) return;
    const std::string path = context_.grid.CellText(rows.Node(), colPath) + "\\" + folder.name;
    const int16_t level = rows.ChildLevel();
    rows.InsertChild();
    context_.ShowPath(path);
    FillRow(rows.LastChild(), level, folder, path);
    rows.KeepChild();
    if (HasSubfolders(folder)) rows.MarkChildUnread();
}

void ObjectReader::GetSubfolders(ObjectFolder& folder) {
    if (folder.subfolders != nullptr) return;
    folder.subfolders = Deref(folder.object).Get("Folders").RequireObject();
    folder.subfolderCount = Collection(folder.subfolders).Count();
}

template <class Visit>
void ObjectReader::ForEachSubfolder(ObjectFolder& folder, Visit&& visit) {
    GetSubfolders(folder);
    context_.AdvanceProgress(folder.subfolderCount, -1);
    const Collection subfolders(folder.subfolders);
    const auto walk = mode_.walksByPosition ? subfolders.WalkByPosition(folder.subfolderCount) : subfolders.Walk();
    Value child;
    while (walk->Next(child)) {
        visit(child.ToObject());
        context_.AdvanceProgress(-1, 1);
        context_.Yield();
        if (context_.state.cancel) return;
    }
}

void ObjectReader::FillRow(int32_t row, int32_t level, const ObjectFolder& folder, const std::string& path) {
    const std::string key = KeyOf(folder);
    FillFolderRow(context_, row, static_cast<int16_t>(level),
                  {.name = folder.name,
                   .storeID = mode_.rowsNameTheirStore ? std::string_view(folder.storeID) : std::string_view(),
                   .entryID = folder.entryID,
                   .entryIDShort = "",
                   .path = path,
                   .key = key,
                   .sel = "False",
                   .index = " ",
                   .itemType = folder.itemType});
    // A number can be typed only into a row that is ticked.
    context_.grid.SetCellFormat(CellSetting::BackColor, row, colIndex, colors::buttonFace);
}

std::string ObjectReader::KeyOf(const ObjectFolder& folder) const {
    return mode_.rowsNameTheirStore ? FolderKey(folder.storeID, folder.entryID) : folder.entryID;
}

}  // namespace foldertree
