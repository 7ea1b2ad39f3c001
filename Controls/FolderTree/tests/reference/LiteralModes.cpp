// LiteralModes: the literal control's folders that are read object by object, and its address lists.
#include "automation/Collection.h"
#include "common/Enumerations.h"
#include "reference/LiteralControl.h"
#include "reference/LiteralText.h"

namespace foldertree::reference {

using automation::Collection;
using automation::Deref;
using automation::Error;
using automation::ObjectRef;
using automation::Value;

namespace {

constexpr int32_t deepestLevel = 350;
constexpr int32_t PR_SUBFOLDERS = 0x360A000B;
constexpr int32_t PR_CONTAINER_CLASS = 0x3613001E;
constexpr int32_t PR_DEFAULT_STORE = 0x3400000B;
constexpr int32_t PR_IPM_DRAFTS_ENTRYID = 0x36D70102;

std::string MemberText(const ObjectRef& object, const char* member) {
    return TextOf(Deref(object).Get(std::string_view(member)));
}

/// Opening of a procedure's error line, by mode.
std::string StoreOpening(int32_t mode) {
    return mode == 1 ? "GetFolders_Store_RDOObj (" : mode == 2 ? "GetFolders_Store_OOM (" : "GetFolders_Store_CDO (";
}
std::string FolderOpening(int32_t mode) {
    return mode == 1 ? "GetFolders_Folder_RDOObj (" : mode == 2 ? "GetFolders_Folder_OOM (" : "GetFolders_Folder_CDO (";
}
std::string ExpandOpening(int32_t mode) {
    return mode == 1 ? "ExpandNode_RDOObj(" : mode == 2 ? "ExpandNode_OOM(" : "ExpandNode_CDO(";
}

int32_t TypeOfClass(const std::string& containerClass) {
    const std::string lower = Lower(containerClass);
    const std::string tail = lower.size() > 4 ? lower.substr(4) : "";
    if (lower.substr(0, 4) != "ipf." && lower.substr(0, 4) != "ipm.") return -1;
    return tail == "note"          ? 0
           : tail == "contact"     ? 2
           : tail == "appointment" ? 1
           : tail == "journal"     ? 4
           : tail == "stickynote"  ? 5
           : tail == "task"        ? 3
                                   : -1;
}

}  // namespace

struct LiteralControl::Folder {
    ObjectRef object;
    std::string storeID;
    std::string name;
    std::string entryID;
    int32_t itemType = 0;
    bool hasSubfolders = false;
    ObjectRef subfolders;
    int32_t count = 0;
};

// Sessions

ObjectRef LiteralControl::CDOSession() {
    Trap("CDOSession(", Detail::Bracket, [&] {
        if (cdoSession_ != nullptr) return;
        ObjectRef session;
        try {
            session = factory_.Create("MAPI.Session");
        } catch (const Error& error) {
            Trace("Could not instantiate CDO session: [0x" + HexText(error.Number()) + "] " + error.Text());
        }
        if (session == nullptr) return;
        try {
            const automation::NamedArgument arguments[] = {{"ShowDialog", false}, {"NewSession", false}};
            session->CallNamed("Logon", arguments);
            cdoSession_ = session;
        } catch (const Error& error) {
            Trace("Failed to log on to CDO session: [0x" + HexText(error.Number()) + "] " + error.Text());
        }
    });
    return cdoSession_;
}

void LiteralControl::GetFolderIDs_CDO() {
    const ObjectRef session = CDOSession();
    if (session == nullptr) return;
    const auto id = [](const Value& object) { return MemberText(object.ToObject(), "ID"); };
    defaultStore_ = id(session->Get("GetInfoStore"));
    const ObjectRef inbox = session->Get("Inbox").ToObject();
    inbox_ = MemberText(inbox, "ID");
    drafts_ = MemberText(inbox->Get("Fields", PR_IPM_DRAFTS_ENTRYID).ToObject(), "Value");
    outbox_ = id(session->Get("Outbox"));
    deleted_ = id(session->Get("GetDefaultFolder", 4));
    sent_ = id(session->Get("GetDefaultFolder", 3));
    notes_ = id(session->Get("GetDefaultFolder", 7));
}

bool LiteralControl::IsDefaultStore_CDO(const ObjectRef& store) {
    Value flag;
    try {
        const ObjectRef field = Deref(store).Get("Fields", PR_DEFAULT_STORE).ToObject();
        if (field != nullptr) flag = field->Get("Value");
    } catch (const Error&) {
    }
    return !flag.IsEmpty() && DoubleOf(flag) != 0;
}

void LiteralControl::ReadStores_OOM() {
    Trace("GetFolders: Mode: Outlook");
    const ObjectRef space = Deref(application_).Get("GetNamespace", "MAPI").RequireObject();
    const ObjectRef stores = space->Get("Folders").RequireObject();
    const int32_t count = LongOf(stores->Get("Count"));
    for (int32_t i = 1; i <= count; ++i) {
        ReadStore(2, stores->Get("Item", i).ToObject());
        if (cancel_) return;
    }
}

// The walk

void LiteralControl::GetFolders_Store(int32_t mode, const ObjectRef& store) {
    Trap(StoreOpening(mode), Detail::Bracket, [&] {
        AdvanceProgress(1, -1);
        const std::string name = MemberText(store, "Name");
        AppendStoreRow(mode == 2 ? "Folder" : "Store", name);
        const int32_t row = grid.RowCount() - 1;
        const std::string storeID = MemberText(store, mode == 3 ? "ID" : "EntryID");
        grid.SetCellText(row, colStoreID, storeID);
        bool home = false;
        if (mode == 1) home = IsDefaultStore(mode, store);
        if (mode == 3) home = storeID == defaultStore_;
        grid.SetPicture(row, home ? GetIcon(FTIHome, "") : Picture::FolderOpen);
        Folder root;
        root.object = store;
        if (mode == 1) root.object = store->Get("IPMRootFolder").RequireObject();
        if (mode == 3) root.object = store->Get("RootFolder").RequireObject();
        ForEachSubfolder(mode, root,
                         [&](const ObjectRef& child) { GetFolders_Folder(mode, storeID, {}, child, 1, name); });
        AdvanceProgress(-1, 1);
    });
}

void LiteralControl::GetFolders_Folder(int32_t mode, const std::string& storeID,
                                       const std::vector<std::string>& ancestors, const ObjectRef& object,
                                       int32_t level, const std::string& parentPath) {
    Trap(FolderOpening(mode), Detail::Bracket, [&] {
        Folder folder;
        folder.object = object;
        folder.storeID = storeID;
        if (!ReadFolder(mode, folder, false)) return;
        const std::string path = parentPath + "\\" + folder.name;
        int32_t row = 0;
        // Only objects of the mode that knows configuration folders have them left out here.
        if (mode != 1 || folder.itemType != -1) {
            grid.SetRowCount(grid.RowCount() + 1);
            row = grid.RowCount() - 1;
            ShowPath(path);
            FillRow_Objects(mode, row, level, folder, path);
        }
        if (!HasSubfolders(mode, folder)) return;
        const int32_t limit = settings_.extendToLevel;
        const bool within = mode == 1 ? level <= limit : level < limit;
        if (!(within || limit == 0) || level >= deepestLevel) {
            MarkUnread(row);
            return;
        }
        if (!folder.entryID.empty())
            for (const std::string& ancestor : ancestors)
                if (ancestor == folder.entryID) return;
        std::vector<std::string> below = ancestors;
        below.push_back(folder.entryID);
        ForEachSubfolder(mode, folder, [&](const ObjectRef& child) {
            GetFolders_Folder(mode, storeID, below, child, level + 1, path);
        });
    });
}

bool LiteralControl::ReadFolder(int32_t mode, Folder& folder, bool expanding) {
    automation::Object& object = Deref(folder.object);
    switch (mode) {
        case 1: {
            folder.hasSubfolders = BooleanOf(object.Get("Fields", PR_SUBFOLDERS));
            if (LongOf(object.Get("FolderKind")) != 1) return false;
            folder.name = TextOf(object.Get("Name"));
            folder.entryID = TextOf(object.Get("EntryID"));
            folder.itemType = LongOf(object.Get("DefaultItemType"));
            if (expanding) return true;
            const std::string messageClass = Lower(TextOf(object.Get("DefaultMessageClass")));
            if (messageClass.ends_with("configuration")) folder.itemType = -1;
            return true;
        }
        case 2:
            folder.storeID = "";
            folder.name = TextOf(object.Get("Name"));
            folder.entryID = TextOf(object.Get("EntryID"));
            folder.itemType = LongOf(object.Get("DefaultItemType"));
            return true;
        default: {
            folder.name = TextOf(object.Get("Name"));
            folder.storeID = TextOf(object.Get("StoreID"));
            folder.entryID = TextOf(object.Get("ID"));
            const auto containerClass = [&] {
                return TextOf(object.Get("Fields", PR_CONTAINER_CLASS).RequireObject()->Get("Value"));
            };
            std::string found = "ipf.note";
            if (expanding) {
                found = containerClass();
            } else {
                try {
                    found = containerClass();
                } catch (const Error&) {
                }
            }
            folder.itemType = TypeOfClass(found);
            return true;
        }
    }
}

bool LiteralControl::HasSubfolders(int32_t mode, Folder& folder) {
    if (mode == 1) return folder.hasSubfolders;
    folder.subfolders = Deref(folder.object).Get("Folders").ToObject();
    if (folder.subfolders == nullptr) return false;
    folder.count = LongOf(folder.subfolders->Get("Count"));
    return folder.count > 0;
}

void LiteralControl::ForEachSubfolder(int32_t mode, Folder& folder,
                                      const std::function<void(const ObjectRef&)>& visit) {
    if (folder.subfolders == nullptr) {
        folder.subfolders = Deref(folder.object).Get("Folders").RequireObject();
        folder.count = LongOf(folder.subfolders->Get("Count"));
    }
    AdvanceProgress(folder.count, -1);
    const Collection subfolders(folder.subfolders);
    const auto walk = mode == 2 ? nullptr : subfolders.Walk();
    for (int32_t i = 1;; ++i) {
        Value child;
        if (mode == 2) {
            if (i > folder.count) return;
            child = subfolders.Item(i);
        } else if (!walk->Next(child)) {
            return;
        }
        visit(child.ToObject());
        AdvanceProgress(-1, 1);
        Yield();
        if (cancel_) return;
    }
}

void LiteralControl::FillRow_Objects(int32_t mode, int32_t row, int32_t level, const Folder& folder,
                                     const std::string& path) {
    grid.At(row).height = rowHeight_;
    grid.SetCellText(row, colName, folder.name);
    grid.SetCellText(row, colStoreID, folder.storeID);
    grid.SetCellText(row, colEntryID, folder.entryID);
    grid.SetCellText(row, colRowKind, "Folder");
    grid.SetCellText(row, colItemType, std::to_string(folder.itemType));
    grid.SetCellText(row, colPath, path);
    grid.SetPicture(row, GetIcon(folder.itemType, folder.entryID));
    grid.SetCellText(row, colSel, "False");
    grid.SetCellText(row, colIndex, " ");
    grid.SetCellText(row, colKey, mode == 2 ? folder.entryID : "S" + folder.storeID + "|" + folder.entryID);
    grid.SetBackColor(row, colIndex, colIndex, 0x8000000F);
    grid.SetRowOutlineLevel(row, static_cast<int16_t>(level));
    grid.SetIsNode(row);
    HighlightNewRow(row, folder.itemType);
}

// Opening a node

void LiteralControl::ExpandNode_Objects(int32_t mode, int32_t row) {
    const auto read = [&](Expansion& expansion) {
        const std::string storeID = grid.CellText(row, colStoreID);
        const std::string entryID = grid.CellText(row, colEntryID);
        Folder folder;
        if (mode == 1) {
            automation::Object& session = Deref(session_);
            const ObjectRef store = session.Get("GetStoreFromID", storeID).RequireObject();
            folder.object = session.Get("GetFolderFromID", entryID).RequireObject();
        } else if (mode == 2) {
            const ObjectRef space = Deref(application_).Get("GetNamespace", "MAPI").RequireObject();
            folder.object = space->Get("GetFolderFromID", entryID).RequireObject();
        } else {
            folder.object = Deref(CDOSession()).Get("GetFolder", entryID, storeID).RequireObject();
        }
        RemovePlaceholder(expansion);
        ForEachSubfolder(mode, folder, [&](const ObjectRef& child) { ExpandChild(mode, expansion, child, storeID); });
    };
    RunExpansion(row, ExpandOpening(mode), Detail::NoBracket, read, [&] { Yield(); });
}

void LiteralControl::ExpandChild(int32_t mode, Expansion& expansion, const ObjectRef& object,
                                 const std::string& storeID) {
    Folder folder;
    folder.object = object;
    folder.storeID = storeID;
    if (!ReadFolder(mode, folder, true)) return;
    const std::string path = grid.CellText(expansion.node, colPath) + "\\" + folder.name;
    const int32_t level = ChildLevel(expansion);
    const int32_t row = InsertChild(expansion);
    ShowPath(path);
    FillRow_Objects(mode, row, level, folder, path);
    expansion.childPending = false;
    if (!HasSubfolders(mode, folder)) return;
    MarkUnread(row);
    ++expansion.last;
}

// Address lists

void LiteralControl::GetAddressBook() {
    Trap("GetAddressBook (", Detail::Bracket, [&] {
        const int32_t mode = settings_.mode;
        if (mode == 2) return;
        AppendStoreRow("Header", headingName_);
        grid.headingRow = grid.RowCount() - 1;
        grid.SetPicture(grid.headingRow, Picture::AdList);
        if (mode == 0 || mode == 1) {
            const ObjectRef book = Deref(session_).Get("AddressBook").RequireObject();
            const Collection lists(book->Get("AddressLists").RequireObject());
            const int32_t count = lists.Count();
            bool cancelled = false;
            for (int32_t i = 1; i <= count && !cancel_; ++i) {
                const ObjectRef list = lists.Item(i).RequireObject();
                Trace("Performing sub-folder scan for item #" + std::to_string(i) + " (" + MemberText(list, "Name") +
                      ")...");
                GetAddressBook_RDOObj(list, 1, {}, cancelled);
                if (cancelled) {
                    Trace("Exiting GetAddressBook for item #" + std::to_string(i) +
                          " because the AddressList scan was cancelled internally.");
                    return;
                }
            }
        }
        if (mode == 3) {
            const Collection lists(Deref(CDOSession()).Get("AddressLists").RequireObject());
            const auto walk = lists.Walk();
            Value list;
            while (!cancel_ && walk->Next(list)) {
                Trap("GetAddressBook_CDO (", Detail::Bracket, [&] {
                    const std::string name = MemberText(list.ToObject(), "Name");
                    AppendList(name, MemberText(list.ToObject(), "ID"), 1);
                });
            }
        }
    });
}

void LiteralControl::GetAddressBook_RDOObj(const ObjectRef& list, int32_t level, const std::vector<std::string>& above,
                                           bool& cancelled) {
    Trap("GetAddressBook_RDOObj (", Detail::Bracket, [&] {
        const std::string name = MemberText(list, "Name");
        if (cancelled) {
            Trace("Exiting GetAddressBook_RDOObj for '" + name +
                  "' because the AddressList scan was cancelled internally.");
            return;
        }
        const std::string id = MemberText(list, "EntryID");
        AppendList(name, id, level);
        if (!id.empty())
            for (const std::string& other : above)
                if (other == id) return;
        if (level >= deepestLevel) return;
        ObjectRef lists;
        try {
            lists = list->Get("AddressLists").RequireObject();
            LongOf(lists->Get("Count"));
        } catch (const Error& error) {
            if (error.Number() == 0x80040102) {
                cancelled = true;
                Trace("Cancelling subfolder scan in '" + name +
                      "', error 0x80040102 encountered. AddressList scan is intentionally cancelled.");
            } else {
                Trace("Cancelling subfolder scan in '" + name + "', can't count child folders: [0x" +
                      HexText(error.Number()) + "] " + error.Text());
            }
            return;
        }
        std::vector<std::string> below = above;
        below.push_back(id);
        std::unique_ptr<automation::Enumerator> walk;
        while (!cancel_) {
            Value child;
            try {
                if (walk == nullptr) walk = Collection(lists).Walk();
                if (!walk->Next(child)) break;
                child.RequireObject();
            } catch (const Error& error) {
                Trace("Cancelling subfolder scan in '" + name + "', can't deliver child folders: [0x" +
                      HexText(error.Number()) + "] " + error.Text());
                break;
            }
            GetAddressBook_RDOObj(child.ToObject(), level + 1, below, cancelled);
        }
    });
}

void LiteralControl::AppendList(const std::string& name, const std::string& id, int32_t level) {
    grid.SetRowCount(grid.RowCount() + 1);
    const int32_t row = grid.RowCount() - 1;
    grid.SetCellText(row, colName, name);
    grid.SetCellText(row, colAddressListID, id);
    grid.SetCellText(row, colRowKind, "AdList");
    grid.SetPicture(row, Picture::AdList);
    grid.SetCellText(row, colSel, "");
    grid.SetCellText(row, colIndex, " ");
    grid.SetCellText(row, colKey, "L" + id);
    grid.SetRowOutlineLevel(row, static_cast<int16_t>(level));
    grid.SetIsNode(row);
}

}  // namespace foldertree::reference
