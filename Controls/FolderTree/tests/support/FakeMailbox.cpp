// FakeMailbox: the members of an RDO session that the control uses, each object over a shared copy of the data.
#include "support/FakeMailbox.h"

#include <algorithm>

namespace foldertree::testing {

using automation::Array;
using automation::Bytes;
using automation::Error;
using automation::ErrorValue;
using automation::Invocation;
using automation::ObjectRef;
using automation::Value;
using automation::testing::CallLog;
using automation::testing::ScriptedObject;

namespace {

constexpr uint32_t notFound = 0x8004010F;

struct Shared {
    std::vector<FakeStore> stores;
    std::map<int32_t, std::string> defaultFolders;
    std::shared_ptr<CallLog> log;
};
using SharedRef = std::shared_ptr<const Shared>;

std::shared_ptr<ScriptedObject> Make(const SharedRef& shared, std::string name) {
    return std::make_shared<ScriptedObject>(std::move(name), shared->log);
}

Bytes IdBytes(uint8_t flags, uint16_t id) {
    if (id <= 0xFF) return {0, {flags, static_cast<uint8_t>(id)}};
    return {0, {flags, static_cast<uint8_t>(id >> 8), static_cast<uint8_t>(id & 0xFF)}};
}

std::vector<Value> Cells(const FakeFolder& folder) {
    const Value missing{ErrorValue{notFound}};
    std::vector<Value> cells{Value(folder.type),
                             Value(!folder.children.empty()),
                             folder.folderClass ? Value(*folder.folderClass) : missing,
                             Value(folder.name),
                             folder.hasLongID ? Value(IdBytes(0x00, folder.id)) : missing,
                             folder.hasShortID ? Value(IdBytes(0xEF, folder.id)) : missing};
    if (folder.adjustRow) folder.adjustRow(cells);
    return cells;
}

/// The rows from `position` on, at most `wanted` of them.
Value Rows(const FakeFolder& parent, size_t position, int32_t wanted) {
    Array rows{parent.lowerBound, {}};
    const size_t limit = parent.rowsPerCall > 0 ? static_cast<size_t>(parent.rowsPerCall) : parent.children.size();
    const size_t count = std::min(limit, static_cast<size_t>(std::max(wanted, 0)));
    for (size_t i = position; i < parent.children.size() && i - position < count; ++i)
        rows.items.push_back(Value(Array{parent.lowerBound, Cells(parent.children[i])}));
    return Value(std::move(rows));
}

ObjectRef Table(const SharedRef& shared, const FakeFolder& parent) {
    auto table = Make(shared, "Table");
    const auto position = std::make_shared<size_t>(0);
    table->Property("Columns", Value());
    table->Method("Sort", [](const Invocation&) { return Value(); });
    table->Method("GoToFirst", [position](const Invocation&) {
        *position = 0;
        return Value();
    });
    table->ReadOnly("RowCount", Value(parent.rowCount.value_or(static_cast<int32_t>(parent.children.size()))));
    table->Method("GetRows", [shared, &parent, position](const Invocation& call) {
        Value rows = Rows(parent, *position, call.arguments[0].ToLong());
        *position += rows.AsArray()->items.size();
        return rows;
    });
    if (parent.adjustTable) parent.adjustTable(*table);
    return table;
}

/// The folder lives in the shared data, which every handler keeps alive.
ObjectRef FolderObject(const SharedRef& shared, const FakeFolder& folder) {
    auto object = Make(shared, "Folder(" + folder.name + ")");
    object->ReadOnly("EntryID", Value(LongID(folder.id)));
    object->Method("Folders", [shared, &folder](const Invocation&) {
        auto folders = Make(shared, "Folders");
        folders->ReadOnly("Count", Value(static_cast<int32_t>(folder.children.size())));
        folders->Method("MAPITable", [shared, &folder](const Invocation&) { return Value(Table(shared, folder)); });
        return Value(folders);
    });
    return object;
}

/// A store's folders hang below a root that is part of the data.
FakeFolder RootOf(const FakeStore& store) {
    FakeFolder root = Folder("Root of " + store.name, 0xFF, "", store.folders);
    if (store.adjustRoot) store.adjustRoot(root);
    return root;
}

struct RootOwner {
    SharedRef shared;
    FakeFolder root;
};

ObjectRef StoreObject(const SharedRef& shared, const FakeStore& store) {
    auto object = Make(shared, "Store(" + store.name + ")");
    object->ReadOnly("Name", Value(store.name));
    object->ReadOnly("EntryID", Value(store.id));
    object->ReadOnly("Default", Value(store.isDefault));
    // The folder object refers to the root and to the data, so one owner keeps both.
    const auto owner = std::make_shared<const RootOwner>(RootOwner{shared, RootOf(store)});
    object->Method("IPMRootFolder", [owner](const Invocation&) {
        return Value(FolderObject(SharedRef(owner, owner->shared.get()), owner->root));
    });
    if (store.adjust) store.adjust(*object);
    return object;
}

const FakeFolder* Find(const std::vector<FakeFolder>& folders, const std::string& entryID) {
    for (const FakeFolder& folder : folders) {
        if (entryID == LongID(folder.id) || entryID == ShortID(folder.id)) return &folder;
        if (const FakeFolder* found = Find(folder.children, entryID)) return found;
    }
    return nullptr;
}

Value OpenFolder(const SharedRef& shared, const Invocation& call) {
    const std::string entryID = call.arguments[0].ToText();
    for (const FakeStore& store : shared->stores) {
        if (call.arguments.size() > 1 && call.arguments[1].ToText() != store.id) continue;
        const FakeFolder* folder = Find(store.folders, entryID);
        if (folder == nullptr) continue;
        if (folder->openError) throw *folder->openError;
        return Value(FolderObject(shared, *folder));
    }
    throw Error(notFound, "The folder cannot be found.");
}

Value DefaultFolder(const SharedRef& shared, const Invocation& call) {
    const auto found = shared->defaultFolders.find(call.arguments[0].ToLong());
    if (found == shared->defaultFolders.end()) throw Error(notFound, "No such default folder.");
    auto folder = Make(shared, "DefaultFolder");
    folder->ReadOnly("EntryID", Value(found->second));
    return Value(folder);
}

std::string HexOf(uint8_t flags, uint16_t id) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const uint8_t byte : IdBytes(flags, id).items) text += {digits[byte >> 4], digits[byte & 15]};
    return text;
}

}  // namespace

FakeFolder Folder(std::string name, uint16_t id, std::string folderClass, std::vector<FakeFolder> children) {
    FakeFolder folder;
    folder.name = std::move(name);
    folder.id = id;
    folder.folderClass = std::move(folderClass);
    folder.children = std::move(children);
    return folder;
}

FakeFolder Mail(std::string name, uint16_t id, std::vector<FakeFolder> children) {
    return Folder(std::move(name), id, "IPF.Note", std::move(children));
}

FakeFolder Contacts(std::string name, uint16_t id, std::vector<FakeFolder> children) {
    return Folder(std::move(name), id, "IPF.Contact", std::move(children));
}

FakeFolder Journal(std::string name, uint16_t id, std::vector<FakeFolder> children) {
    return Folder(std::move(name), id, "IPF.Journal", std::move(children));
}

FakeFolder Tasks(std::string name, uint16_t id, std::vector<FakeFolder> children) {
    return Folder(std::move(name), id, "IPF.Task", std::move(children));
}

std::string LongID(uint16_t id) {
    return HexOf(0x00, id);
}

std::string ShortID(uint16_t id) {
    return HexOf(0xEF, id);
}

std::shared_ptr<ScriptedObject> FakeMailbox::Session() const {
    const auto shared = std::make_shared<const Shared>(Shared{stores, defaultFolders, log});
    auto session = Make(shared, "Session");
    session->Method("Stores", [shared](const Invocation&) {
        std::vector<Value> items;
        for (const FakeStore& store : shared->stores) items.emplace_back(StoreObject(shared, store));
        auto collection = Make(shared, "Stores");
        collection->Items(std::move(items));
        return Value(collection);
    });
    session->Method("GetFolderFromID", [shared](const Invocation& call) { return OpenFolder(shared, call); });
    session->Method("GetDefaultFolder", [shared](const Invocation& call) { return DefaultFolder(shared, call); });
    return session;
}

ObjectRef FakeMailbox::Utilities() const {
    auto utilities = std::make_shared<ScriptedObject>("Utilities", log);
    utilities->Method("GetProperty", [all = stores](const Invocation& call) {
        // Asked without a call, so that the log holds the control's calls only.
        const auto* object = dynamic_cast<const ScriptedObject*>(call.arguments[0].ToObject().get());
        const std::string id = object ? object->Held("EntryID").ToText() : "";
        for (const FakeStore& store : all)
            if (store.id == id) return Value(store.provider);
        throw Error(notFound, "No such store.");
    });
    return utilities;
}

FakeMailbox SmallMailbox() {
    FakeMailbox mailbox;
    mailbox.stores.push_back({"Archive", "A1", false, {Mail("Old mail", 0x30)}, {}, {}, {}});
    mailbox.stores.push_back({"Mailbox",
                              "B2",
                              true,
                              {Mail("Inbox", 0x01, {Mail("Projects", 0x11, {Mail("Alpha", 0x21)}), Mail("Zoo", 0x12)}),
                               Contacts("People", 0x02), Journal("Diary", 0x03), Tasks("To do", 0x04)},
                              {},
                              {},
                              {}});
    return mailbox;
}

}  // namespace foldertree::testing
