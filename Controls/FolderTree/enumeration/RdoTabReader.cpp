// RdoTabReader: the access mode that reads folders from the MAPI hierarchy tables of an RDO session.
#include "enumeration/RdoTabReader.h"

#include <algorithm>

#include "common/FolderKey.h"
#include "common/RowWalk.h"
#include "enumeration/DefaultFolders.h"
#include "enumeration/FolderRows.h"
#include "enumeration/WalkLimits.h"
#include "enumeration/modCDODefs.h"

namespace foldertree {

using automation::Deref;
using automation::ObjectRef;
using automation::Value;

void RdoTabReader::ReadDefaultFolders(DefaultFolderIDs& ids) {
    foldertree::ReadDefaultFolders(context_.state.rdoSession, ids);
}

ObjectRef RdoTabReader::Stores() {
    return Deref(context_.state.rdoSession).Get("Stores").RequireObject();
}

bool RdoTabReader::IsDefaultStore(const ObjectRef& store) {
    return Deref(store).Get("Default").ToBoolean();
}

bool RdoTabReader::GetFolders_Store_RDOTab(const ObjectRef& store) {
    bool complete = false;
    Guarded(context_, errorLines::storeRDOTab, [&] {
        context_.AdvanceProgress(1, -1);
        const std::string storeName = Deref(store).Get("Name").ToText();
        const std::string provider = ProviderName(store);
        const TreeGrid& grid = context_.grid;
        const RowHandle row = grid.HandleOf(
            AppendStoreRow(context_, rowKind::store, provider.empty() ? storeName : storeName + " (" + provider + ")"));
        StoreWalk walk;
        walk.storeID = Deref(store).Get("EntryID").ToText();
        context_.grid.SetCellText(RequireRow(grid, row), colStoreID, walk.storeID);
        const bool isDefault = IsDefaultStore(store);
        SetStorePicture(context_, RequireRow(grid, row), isDefault);
        const ObjectRef root = Deref(store).Get("IPMRootFolder").RequireObject();
        context_.AdvanceProgress(Deref(Deref(root).Get("Folders").ToObject()).Get("Count").ToLong(), -1);
        complete = GetFolders_Folder_RDOTab(walk, root, 1, storeName);
        // A failed walk leaves the step of this store open.
        if (complete) context_.AdvanceProgress(-1, 1);
    });
    return complete;
}

std::string RdoTabReader::ProviderName(const ObjectRef& store) {
    std::string provider;
    // Without the utility library, or when the store has no such property, the plain name does.
    Attempt([&] {
        const ObjectRef utilities = context_.Factory().Create("NOXMAPI.NOXMAPIUtils");
        provider = Deref(utilities).Get("GetProperty", store, propertyTag::PR_PROVIDER_DISPLAY).ToText();
    });
    return provider;
}

bool RdoTabReader::GetFolders_Folder_RDOTab(StoreWalk& walk, const ObjectRef& parent, int32_t level,
                                            const std::string& parentPath) {
    bool complete = true;
    const bool ended = Guarded(context_, errorLines::folderRDOTab, [&] {
        const std::string indent(static_cast<size_t>(level) * 2, ' ');
        context_.Trace(indent, "Enumerating folders on level ", level, " (", parentPath, ")");
        context_.Trace(indent, "Current StoreID is ", walk.storeID);
        HierarchyTable table(context_, indent);
        table.Open(parent);
        while (const Value* row = table.NextRow()) {
            if (!WalkRow(walk, table, *row, indent, level, parentPath)) complete = false;
            context_.AdvanceProgress(-1, 1);
            if (context_.state.cancel) break;
        }
        context_.Trace(indent, "Done.");
    });
    return ended && complete;
}

bool RdoTabReader::WalkRow(StoreWalk& walk, HierarchyTable& table, const Value& tableRow, std::string_view indent,
                           int32_t level, const std::string& parentPath) {
    bool complete = true;
    const bool ended = Guarded(context_, errorLines::folderRDOTab, [&] {
        ChildFolder child;
        if (!table.ReadChild(tableRow, level, child)) return;
        if (child.folderType != fkGeneric) {
            context_.Trace(indent, "      Skipping folder, type is not fkGeneric");
            return;
        }
        const std::string path = parentPath + "\\" + child.name;
        context_.ShowPath(path);
        table.ReadIdentifiers(tableRow, child);
        const int32_t row = context_.grid.RowCount();
        context_.grid.SetRowCount(row + 1);
        FillRow(row, level, walk.storeID, child, path);
        if (!child.hasChildren) return;

        context_.Trace(indent, "      Browsing child folders");
        if (MayDescend(level)) {
            context_.Trace(indent, "      Extending next level");
            complete = WalkChildren(walk, child, context_.grid.HandleOf(row), level, path);
        } else {
            context_.Trace(indent, "      Next level too deep (current limit = ", context_.state.extendToLevel,
                           "), inserting 'expand' indicator");
            MarkUnread(context_, row);
        }
    });
    return ended && complete;
}

bool RdoTabReader::MayDescend(int32_t level) const {
    const int32_t limit = context_.state.extendToLevel;
    return (level < limit || limit == 0) && level < deepestWalkLevel;
}

bool RdoTabReader::WalkChildren(StoreWalk& walk, const ChildFolder& child, RowHandle row, int32_t level,
                                const std::string& path) {
    const std::string& id = child.OpeningID();
    // A folder below itself would never end.
    if (std::find(walk.ancestors.begin(), walk.ancestors.end(), id) != walk.ancestors.end()) return true;

    ObjectRef folder;
    const bool opened = Guarded(context_, errorLines::folderRDOTab, [&] { folder = OpenFolder(id); });
    // The row keeps an expand indicator, so that the user can try again.
    if (!opened) {
        MarkUnread(context_, RequireRow(context_.grid, row));
        return false;
    }
    walk.ancestors.push_back(id);
    const bool complete = GetFolders_Folder_RDOTab(walk, folder, level + 1, path);
    walk.ancestors.pop_back();
    const bool isLast = context_.grid.RowOf(row) == context_.grid.RowCount() - 1;
    if (!complete && isLast) MarkUnread(context_, context_.grid.RowCount() - 1);
    return true;
}

ObjectRef RdoTabReader::OpenFolder(const std::string& entryID) {
    return Deref(context_.state.rdoSession).Get("GetFolderFromID", entryID).RequireObject();
}

void RdoTabReader::FillRow(int32_t row, int32_t level, const std::string& storeID, const ChildFolder& child,
                           const std::string& path) {
    const std::string key = FolderKey(storeID, child.entryID);
    FillFolderRow(context_, row, static_cast<int16_t>(level),
                  {.name = child.name,
                   .storeID = storeID,
                   .entryID = child.entryID,
                   .entryIDShort = child.entryIDShort,
                   .path = path,
                   .key = key,
                   .sel = "",
                   .index = "",
                   .itemType = child.itemType});
}

void RdoTabReader::ExpandNode(int32_t row) {
    RunExpansion(
        context_, view_, row, errorLines::expandNode, [&](ExpandedRows& rows) { ReadChildren(rows); },
        [&] { context_.Trace("Done."); });
}

void RdoTabReader::ReadChildren(ExpandedRows& rows) {
    const TreeGrid& grid = context_.grid;
    const int32_t node = rows.Node();
    TraceNode(node);
    context_.Trace("  Getting folder reference");
    std::string entryID = grid.CellText(node, colEntryID);
    if (entryID.empty()) entryID = grid.CellText(node, colEntryIDShort);
    const ObjectRef folder = Deref(context_.state.rdoSession)
                                 .Get("GetFolderFromID", entryID, grid.CellText(node, colStoreID))
                                 .RequireObject();
    context_.Trace("  Removing 'expand' indicator");
    rows.RemovePlaceholder();
    context_.Trace("  Insertion row is ", rows.Node());
    HierarchyTable table(context_, "");
    table.Open(folder);
    while (const Value* row = table.NextRow()) {
        ExpandRow(rows, table, *row);
        context_.AdvanceProgress(-1, 1);
        if (context_.state.cancel) break;
    }
}

void RdoTabReader::TraceNode(int32_t row) {
    const TreeGrid& grid = context_.grid;
    context_.Trace("Enumerating folders on level ", grid.RowOutlineLevel(row));
    context_.Trace("  Row number: ", row);
    context_.Trace("  Rows total: ", grid.RowCount());
    context_.Trace("  Root folder name: ", grid.CellText(row, colName));
    context_.Trace("  EntryID: ", grid.CellText(row, colEntryID));
    context_.Trace("  Short EntryID: ", grid.CellText(row, colEntryIDShort));
    context_.Trace("  StoreID: ", grid.CellText(row, colStoreID));
    context_.Trace("  RecID: ", grid.CellText(row, colFolderRecID));
    context_.Trace("  Path: ", grid.CellText(row, colPath));
    context_.Trace("  Item type: ", grid.CellText(row, colItemType));
    context_.Trace("  Row type: ", grid.CellText(row, colRowKind));
}

void RdoTabReader::ExpandRow(ExpandedRows& rows, HierarchyTable& table, const Value& tableRow) {
    const TreeGrid& grid = context_.grid;
    const int16_t level = rows.ChildLevel();
    ChildFolder child;
    bool shown = false;
    const bool read =
        Guarded(context_, errorLines::expandNode, [&] { shown = table.ReadChild(tableRow, level, child); });
    // As in the walk, a row that makes no sense does not cost its siblings.
    if (!read) rows.ChildFailed();
    if (!shown) return;
    if (child.folderType != fkGeneric) {
        context_.Trace("      Skipping folder, type is not fkGeneric");
        return;
    }
    const std::string path = grid.CellText(rows.Node(), colPath) + "\\" + child.name;
    context_.ShowPath(path);
    table.ReadIdentifiers(tableRow, child);
    const int32_t row = rows.InsertChild();
    FillRow(row, level, grid.CellText(rows.Node(), colStoreID), child, path);
    rows.KeepChild();
    if (!child.hasChildren) return;
    context_.Trace("      Child folders present, inserting 'expand' indicator");
    rows.MarkChildUnread();
}

}  // namespace foldertree
