// LiteralLoad: the literal control's refresh and the folders that hierarchy tables tell of.
#include "automation/Collection.h"
#include "common/Enumerations.h"
#include "reference/LiteralControl.h"
#include "reference/LiteralText.h"

namespace foldertree::reference {

using automation::Array;
using automation::Bytes;
using automation::Deref;
using automation::Error;
using automation::ObjectRef;
using automation::Value;
using automation::VbError;

namespace {

constexpr int last = gridColumnCount - 1;
constexpr int32_t deepestLevel = 350;

constexpr int32_t PR_FOLDER_TYPE = 0x36010003;
constexpr int32_t PR_SUBFOLDERS = 0x360A000B;
constexpr int32_t PR_CONTAINER_CLASS = 0x3613001E;
constexpr int32_t PR_DISPLAY_NAME_W = 0x3001001F;
constexpr int32_t PR_LONGTERM_ENTRYID_FROM_TABLE = 0x66700102;
constexpr int32_t PR_ENTRYID = 0x0FFF0102;
constexpr int32_t PR_PROVIDER_DISPLAY = 0x3006001E;

int32_t GetItemTypeFromMessageClass(const std::string& messageClass) {
    const std::string lower = Lower(messageClass);
    if (lower == "ipf.note" || lower == "ipm.note") return 0;
    if (lower == "ipf.contact" || lower == "ipm.contact") return 2;
    if (lower == "ipf.appointment" || lower == "ipm.appointment") return 1;
    if (lower == "ipf.journal" || lower == "ipm.journal") return 4;
    if (lower == "ipf.stickynote" || lower == "ipm.stickynote") return 5;
    if (lower == "ipf.task" || lower == "ipm.task") return 3;
    return -1;
}

std::string BytesToHex(const Bytes& bytes) {
    std::string text;
    for (const uint8_t byte : bytes.items) {
        const std::string digits = HexText(byte);
        text += digits.size() < 2 ? "0" + digits : digits;
    }
    return text;
}

/// The cell, or an error cell where the row is too short.
Value CellAt(const Value& row, size_t column) {
    const Array* cells = row.AsArray();
    if (cells == nullptr) throw VbError(automation::errors::typeMismatch);
    if (column >= cells->items.size()) return automation::ErrorValue{automation::errors::mapiNotFound};
    return cells->items[column];
}

/// Leaves the default in place for an error cell and for one that makes no sense.
void TakeCell(const Value& cell, const std::function<void()>& take) {
    if (cell.IsError()) return;
    try {
        take();
    } catch (const Error&) {
    }
}

}  // namespace

/// One row of a hierarchy table.
struct LiteralControl::Child {
    int32_t folderType = 1;
    bool hasChildren = false;
    std::string messageClass = "IPM.Note";
    std::string name;
    int32_t itemType = 0;
    std::string longID;
    std::string shortID;
};

// The refresh

void LiteralControl::RefreshList() {
    Trap("RefreshList (", Detail::Bracket, [&] {
        if (refreshing_) return;
        GetFolders();
        ApplySelection();
    });
}

void LiteralControl::GetFolders() {
    const bool wasRefreshing = refreshing_;
    const bool wasBusy = busy_;
    StartLoad();
    Trap("GetFolders (", Detail::Bracket, [&] {
        Yield();
        grid.SetRowCount(1);
        ResetProgress();
        Trace("GetFolders: Refreshing view");
        if (inbox_.empty()) GetFolderIDs();
        ReadStores();
        if (bufferedToLevel_ != -1) bufferedToLevel_ = settings_.extendToLevel;
        if (!cancel_ && settings_.showAddressBook) {
            Trace("GetFolders: Adding address book(s)");
            AdvanceProgress(1, -1);
            GetAddressBook();
        }
    });
    Trace("GetFolders: Done");
    EndLoad(wasRefreshing, wasBusy);
}

void LiteralControl::GetFolderIDs() {
    Trap("GetFolderIDs(", Detail::NoBracket, [&] {
        const auto folderID = [](const ObjectRef& session, int32_t number) {
            return TextOf(Deref(Deref(session).Get("GetDefaultFolder", number).ToObject()).Get("EntryID"));
        };
        const auto readAll = [&](const ObjectRef& session) {
            inbox_ = folderID(session, 6);
            drafts_ = folderID(session, 16);
            outbox_ = folderID(session, 4);
            deleted_ = folderID(session, 3);
            sent_ = folderID(session, 5);
            notes_ = folderID(session, 12);
        };
        const int32_t mode = settings_.mode;
        if (mode == 0 || mode == 1) readAll(session_);
        if (mode == 2 && application_ != nullptr) readAll(application_->Get("GetNamespace", "MAPI").RequireObject());
        if (mode == 3) GetFolderIDs_CDO();
    });
}

void LiteralControl::ReadStores() {
    // What the host changes meanwhile counts from the next refresh on.
    const int32_t mode = settings_.mode;
    ObjectRef stores;
    switch (mode) {
        case 0:
        case 1:
            stores = Deref(session_).Get("Stores").RequireObject();
            break;
        case 2:
            ReadStores_OOM();
            return;
        case 3:
            if (CDOSession() == nullptr) {
                Trace("GetFolders: Mode: CDO, Cannot refresh, CDO session is not initialized");
                return;
            }
            Trace("Mode: CDO");
            stores = cdoSession_->Get("InfoStores").RequireObject();
            break;
        default:
            return;
    }
    Value store;
    auto walk = automation::Collection(stores).Walk();
    while (walk->Next(store)) {
        if (IsDefaultStore(mode, store.ToObject())) {
            ReadStore(mode, store.ToObject());
            break;
        }
        if (cancel_) break;
    }
    walk = automation::Collection(stores).Walk();
    while (walk->Next(store)) {
        if (IsDefaultStore(mode, store.ToObject())) continue;
        ReadStore(mode, store.ToObject());
        if (cancel_) break;
    }
}

bool LiteralControl::IsDefaultStore(int32_t mode, const ObjectRef& store) {
    if (mode == 3) return IsDefaultStore_CDO(store);
    return BooleanOf(Deref(store).Get("Default"));
}

void LiteralControl::ReadStore(int32_t mode, const ObjectRef& store) {
    AdvanceProgress(1, -1);
    if (mode == 0) {
        Trace("Mode: RDO_MAPITables");
        GetFolders_Store_RDOTab(store);
    } else {
        if (mode == 1) Trace("GetFolders: GetFolders: Mode: RDO_Obj");
        GetFolders_Store(mode, store);
    }
    AdvanceProgress(-1, 1);
}

// Rows

void LiteralControl::AppendStoreRow(const std::string& kind, const std::string& name) {
    grid.SetRowCount(grid.RowCount() + 1);
    const int32_t row = grid.RowCount() - 1;
    grid.At(row).height = rowHeight_;
    grid.SetCellText(row, colRowKind, kind);
    grid.SetCellText(row, colName, name);
    grid.SetBackColor(row, 0, last, 0x8000000F);
    grid.SetBold(row, 0, last, true);
    grid.SetIsNode(row);
}

void LiteralControl::MarkUnread(int32_t row) {
    grid.SetCellText(row, colIncomplete, "-1");
    const int16_t level = grid.RowOutlineLevel(row);
    int32_t placeholder = row + 1;
    if (placeholder == grid.RowCount())
        grid.SetRowCount(grid.RowCount() + 1);
    else
        placeholder = grid.AddRow(row + 1);
    grid.SetCellText(placeholder, colRowKind, "Dummy");
    grid.SetRowOutlineLevel(placeholder, static_cast<int16_t>(level + 1));
    grid.SetNodeState(placeholder, 2);
    grid.SetNodeState(row, 2);
}

// Hierarchy tables

std::string LiteralControl::ProviderName(const ObjectRef& store) {
    try {
        const ObjectRef utilities = factory_.Create("NOXMAPI.NOXMAPIUtils");
        return TextOf(Deref(utilities).Get("GetProperty", store, PR_PROVIDER_DISPLAY));
    } catch (const Error&) {
        return "";
    }
}

bool LiteralControl::GetFolders_Store_RDOTab(const ObjectRef& store) {
    bool result = false;
    Trap("GetFolders_Store_RDOTab (", Detail::Bracket, [&] {
        AdvanceProgress(1, -1);
        const std::string storeName = TextOf(Deref(store).Get("Name"));
        const std::string provider = ProviderName(store);
        AppendStoreRow("Store", provider.empty() ? storeName : storeName + " (" + provider + ")");
        const int32_t row = grid.RowCount() - 1;
        const std::string storeID = TextOf(store->Get("EntryID"));
        grid.SetCellText(row, colStoreID, storeID);
        grid.SetPicture(row, IsDefaultStore(0, store) ? GetIcon(FTIHome, "") : Picture::FolderOpen);
        const ObjectRef root = store->Get("IPMRootFolder").RequireObject();
        AdvanceProgress(LongOf(Deref(root->Get("Folders").ToObject()).Get("Count")), -1);
        result = GetFolders_Folder_RDOTab(storeID, {}, root, 1, storeName);
        if (result) AdvanceProgress(-1, 1);
    });
    return result;
}

bool LiteralControl::GetFolders_Folder_RDOTab(const std::string& storeID, const std::vector<std::string>& ancestors,
                                              const ObjectRef& parent, int32_t level, const std::string& parentPath) {
    bool complete = true;
    const bool ended = Trap("GetFolders_Folder_RDOTab (", Detail::Bracket, [&] {
        const std::string indent(static_cast<size_t>(level) * 2, ' ');
        Trace(indent + "Enumerating folders on level " + std::to_string(level) + " (" + parentPath + ")");
        Trace(indent + "Current StoreID is " + storeID);
        ReadTable(parent, indent, [&](const Value& cells) {
            // What goes wrong with one row is told; its siblings are still read.
            const bool read = Trap("GetFolders_Folder_RDOTab (", Detail::Bracket, [&] {
                if (!WalkRow(storeID, ancestors, cells, indent, level, parentPath)) complete = false;
            });
            if (!read) complete = false;
            AdvanceProgress(-1, 1);
            return !cancel_;
        });
        Trace(indent + "Done.");
    });
    return ended && complete;
}

bool LiteralControl::WalkRow(const std::string& storeID, const std::vector<std::string>& ancestors, const Value& cells,
                             const std::string& indent, int32_t level, const std::string& parentPath) {
    Child child;
    if (!ReadChild(cells, indent, level, child)) return true;
    if (child.folderType != 1) {
        Trace(indent + "      Skipping folder, type is not fkGeneric");
        return true;
    }
    const std::string path = parentPath + "\\" + child.name;
    ShowPath(path);
    ReadIdentifiers(cells, indent, child);
    grid.SetRowCount(grid.RowCount() + 1);
    const int32_t row = grid.RowCount() - 1;
    FillRow_RDOTab(row, level, storeID, child, path);
    if (!child.hasChildren) return true;
    Trace(indent + "      Browsing child folders");
    const int32_t limit = settings_.extendToLevel;
    if (!(level < limit || limit == 0) || level >= deepestLevel) {
        Trace(indent + "      Next level too deep (current limit = " + std::to_string(limit) +
              "), inserting 'expand' indicator");
        MarkUnread(row);
        return true;
    }
    Trace(indent + "      Extending next level");
    const std::string id = child.longID.empty() ? child.shortID : child.longID;
    for (const std::string& ancestor : ancestors)
        if (ancestor == id) return true;
    ObjectRef folder;
    const bool opened = Trap("GetFolders_Folder_RDOTab (", Detail::Bracket,
                             [&] { folder = Deref(session_).Get("GetFolderFromID", id).RequireObject(); });
    if (!opened) {
        MarkUnread(row);
        return false;
    }
    std::vector<std::string> below = ancestors;
    below.push_back(id);
    const bool complete = GetFolders_Folder_RDOTab(storeID, below, folder, level + 1, path);
    // A child whose table failed and left no row can be tried again, too.
    if (!complete && row == grid.RowCount() - 1) MarkUnread(row);
    return true;
}

ObjectRef LiteralControl::SetUpTable(const ObjectRef& folder, const std::string& indent) {
    ObjectRef table;
    for (int attempt = 0;; ++attempt) {
        Trace(indent + "  Getting MAPITable ref");
        table = Deref(Deref(folder).Get("Folders").ToObject()).Get("MAPITable").ToObject();
        Trace(indent + "  Building column array");
        Deref(table).Put("Columns", Array{0,
                                          {PR_FOLDER_TYPE, PR_SUBFOLDERS, PR_CONTAINER_CLASS, PR_DISPLAY_NAME_W,
                                           PR_LONGTERM_ENTRYID_FROM_TABLE, PR_ENTRYID}});
        if (attempt == 1) return table;
        Trace(indent + "  Trying to sort table by DISPLAY_NAME");
        try {
            table->Get("Sort", PR_DISPLAY_NAME_W, false);
            return table;
        } catch (const Error& error) {
            Trace(indent + "  Failed to sort folder MAPITable by display name: [0x" + HexText(error.Number()) + "] " +
                  error.Text());
        }
    }
}

void LiteralControl::ReadTable(const ObjectRef& folder, const std::string& indent,
                               const std::function<bool(const Value&)>& visit) {
    const ObjectRef table = SetUpTable(folder, indent);
    Trace(indent + "  Moving to first table entry");
    table->Get("GoToFirst");
    Trace(indent + "  Getting table rows");
    int32_t wanted = LongOf(table->Get("RowCount"));
    bool first = true;
    while (true) {
        Array rows;
        if (wanted > 0) {
            const Value batch = table->Get("GetRows", wanted);
            if (!batch.IsEmpty()) {
                if (batch.AsArray() == nullptr) throw VbError(automation::errors::typeMismatch);
                rows = *batch.AsArray();
            }
        }
        if (!first && rows.items.empty()) return;
        if (!first) Trace(indent + "  Getting table rows");
        const int64_t upperBound = rows.lowerBound + static_cast<int64_t>(rows.items.size()) - 1;
        Trace(indent + "  Reading rows " + std::to_string(rows.lowerBound) + " - " + std::to_string(upperBound));
        if (rows.items.empty()) return;
        for (int64_t i = rows.lowerBound; i <= upperBound; ++i) {
            Trace(indent + "    Reading row #" + std::to_string(i));
            if (!visit(rows.items[static_cast<size_t>(i - rows.lowerBound)])) return;
        }
        wanted -= static_cast<int32_t>(rows.items.size());
        first = false;
    }
}

bool LiteralControl::ReadChild(const Value& cells, const std::string& indent, int32_t level, Child& child) {
    const Value column0 = CellAt(cells, 0);
    const Value column1 = CellAt(cells, 1);
    const Value column2 = CellAt(cells, 2);
    const Value column3 = CellAt(cells, 3);
    TakeCell(column0, [&] { child.folderType = LongOf(column0); });
    TakeCell(column1, [&] { child.hasChildren = BooleanOf(column1); });
    TakeCell(column2, [&] { child.messageClass = TextOf(column2); });
    TakeCell(column3, [&] { child.name = TextOf(column3); });
    child.itemType = GetItemTypeFromMessageClass(child.messageClass);
    if (child.itemType == -1) return false;
    const auto kind = [](const Value& cell) { return "[" + KindOf(cell) + "] "; };
    Trace(indent + "      Level: " + std::to_string(level));
    Trace(indent + "      FolderKind: " + kind(column0) + std::to_string(child.folderType));
    Trace(indent + "      SubFolders: " + kind(column1) + (child.hasChildren ? "yes" : "no"));
    Trace(indent + "      MessageClass: " + kind(column2) + child.messageClass);
    Trace(indent + "      FolderName: " + kind(column3) + child.name);
    Trace(indent + "      ItemType: " + std::to_string(child.itemType));
    return true;
}

void LiteralControl::ReadIdentifiers(const Value& cells, const std::string& indent, Child& child) {
    const Value longCell = CellAt(cells, 4);
    const Value shortCell = CellAt(cells, 5);
    if (longCell.AsBytes() != nullptr) child.longID = BytesToHex(*longCell.AsBytes());
    if (shortCell.AsBytes() != nullptr) child.shortID = BytesToHex(*shortCell.AsBytes());
    Trace(indent + "      EntryID [long]: " + child.longID);
    Trace(indent + "      EntryID [short]: " + child.shortID);
}

void LiteralControl::FillRow_RDOTab(int32_t row, int32_t level, const std::string& storeID, const Child& child,
                                    const std::string& path) {
    grid.At(row).height = rowHeight_;
    grid.SetCellText(row, colRowKind, "Folder");
    grid.SetCellText(row, colName, child.name);
    grid.SetCellText(row, colSel, "");
    grid.SetCellText(row, colIndex, "");
    grid.SetCellText(row, colItemType, std::to_string(child.itemType));
    grid.SetCellText(row, colStoreID, storeID);
    grid.SetCellText(row, colEntryID, child.longID);
    grid.SetCellText(row, colEntryIDShort, child.shortID);
    grid.SetCellText(row, colPath, path);
    grid.SetCellText(row, colKey, "S" + storeID + "|" + child.longID);
    grid.SetRowOutlineLevel(row, static_cast<int16_t>(level));
    grid.SetPicture(row, GetIcon(child.itemType, child.longID));
    HighlightNewRow(row, child.itemType);
    grid.SetIsNode(row);
}

// Opening a node

void LiteralControl::fgd_BeforeCollapse(int32_t row, int32_t state) {
    Trap("fgd_BeforeCollapse (", Detail::Bracket, [&] {
        if (busy_) return;
        if (state != 0 || grid.CellValue(row, colIncomplete) == 0) return;
        const int32_t mode = settings_.mode;
        if (mode == 0) ExpandNode(row);
        if (mode >= 1 && mode <= 3) ExpandNode_Objects(mode, row);
    });
}

void LiteralControl::RunExpansion(int32_t row, const std::string& opening, Detail detail,
                                  const std::function<void(Expansion&)>& read, const std::function<void()>& finish) {
    const bool wasRefreshing = refreshing_;
    const bool wasBusy = busy_;
    StartLoad();
    Expansion expansion{row, row};
    const bool ended = Trap(opening, detail, [&] {
        Yield();
        ResetProgress();
        read(expansion);
    });
    const auto conclude = [&] {
        if (!ended) expansion.failed = true;
        if (expansion.childPending) grid.RemoveRow(expansion.last--);
        if (expansion.failed && expansion.last == expansion.node) {
            // Nothing was inserted: the placeholder stands again, so that the user can try again.
            if (expansion.placeholderRemoved) MarkUnread(expansion.node);
            return;
        }
        ApplySelection();
        grid.SetCellText(expansion.node, colIncomplete, "");
    };
    if (ended) {
        Trap(opening, detail, conclude);
    } else {
        try {
            conclude();
        } catch (const Error&) {
            // One line has told of the failure.
        }
    }
    finish();
    EndLoad(wasRefreshing, wasBusy);
}

void LiteralControl::RemovePlaceholder(Expansion& expansion) {
    const int32_t below = expansion.node + 1;
    // The host has emptied the tree in a call: there is no node any more whose children could be read.
    if (expansion.node >= grid.RowCount()) throw VbError(automation::errors::subscript);
    if (below >= grid.RowCount() || Lower(grid.CellText(below, colRowKind)) != "dummy") return;
    grid.RemoveRow(below);
    expansion.placeholderRemoved = true;
}

int32_t LiteralControl::InsertChild(Expansion& expansion) {
    const int32_t place = expansion.last + 1;
    expansion.last = place >= grid.RowCount() ? grid.AddRow() : grid.AddRow(place);
    expansion.childPending = true;
    return expansion.last;
}

int32_t LiteralControl::ChildLevel(const Expansion& expansion) const {
    return grid.RowOutlineLevel(expansion.node) + 1;
}

void LiteralControl::ExpandNode(int32_t row) {
    const auto read = [&](Expansion& expansion) {
        Trace("Enumerating folders on level " + std::to_string(grid.RowOutlineLevel(row)));
        Trace("  Row number: " + std::to_string(row));
        Trace("  Rows total: " + std::to_string(grid.RowCount()));
        Trace("  Root folder name: " + grid.CellText(row, colName));
        Trace("  EntryID: " + grid.CellText(row, colEntryID));
        Trace("  Short EntryID: " + grid.CellText(row, colEntryIDShort));
        Trace("  StoreID: " + grid.CellText(row, colStoreID));
        Trace("  RecID: " + grid.CellText(row, colFolderRecID));
        Trace("  Path: " + grid.CellText(row, colPath));
        Trace("  Item type: " + grid.CellText(row, colItemType));
        Trace("  Row type: " + grid.CellText(row, colRowKind));
        Trace("  Getting folder reference");
        std::string id = grid.CellText(row, colEntryID);
        if (id.empty()) id = grid.CellText(row, colEntryIDShort);
        const ObjectRef folder =
            Deref(session_).Get("GetFolderFromID", id, grid.CellText(row, colStoreID)).RequireObject();
        Trace("  Removing 'expand' indicator");
        RemovePlaceholder(expansion);
        Trace("  Insertion row is " + std::to_string(row));
        ReadTable(folder, "", [&](const Value& cells) {
            ExpandRow(expansion, cells);
            AdvanceProgress(-1, 1);
            return !cancel_;
        });
    };
    RunExpansion(row, "ExpandNode (", Detail::Bracket, read, [&] { Trace("Done."); });
}

void LiteralControl::ExpandRow(Expansion& expansion, const Value& cells) {
    const int32_t level = ChildLevel(expansion);
    Child child;
    bool shown = false;
    const bool read = Trap("ExpandNode (", Detail::Bracket, [&] { shown = ReadChild(cells, "", level, child); });
    if (!read) expansion.failed = true;
    if (!shown) return;
    if (child.folderType != 1) {
        Trace("      Skipping folder, type is not fkGeneric");
        return;
    }
    const std::string path = grid.CellText(expansion.node, colPath) + "\\" + child.name;
    ShowPath(path);
    ReadIdentifiers(cells, "", child);
    const int32_t row = InsertChild(expansion);
    FillRow_RDOTab(row, level, grid.CellText(expansion.node, colStoreID), child, path);
    expansion.childPending = false;
    if (!child.hasChildren) return;
    Trace("      Child folders present, inserting 'expand' indicator");
    MarkUnread(row);
    ++expansion.last;
}

}  // namespace foldertree::reference
