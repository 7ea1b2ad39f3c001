// ModeMailbox: the members that the control uses of each object model, over a shared copy of the data.
#include "modes/ModeMailbox.h"

#include <algorithm>

#include "enumeration/modCDODefs.h"
#include "enumeration/modOLDefs.h"

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

enum class Model { Rdo, Outlook, Cdo };

/// The data of one session, which each of its objects keeps alive.
struct Session {
    Model model;
    ModeMailbox data;
};
using SessionRef = std::shared_ptr<const Session>;
using ScriptedRef = std::shared_ptr<ScriptedObject>;

Error NotFound() {
    return Error(automation::errors::mapiNotFound, "Not found.");
}

ScriptedRef Make(const SessionRef& session, std::string name) {
    return std::make_shared<ScriptedObject>(std::move(name), session->data.log);
}

ObjectRef WithID(const SessionRef& session, std::string name, const std::string& id) {
    auto object = Make(session, std::move(name));
    object->ReadOnly(session->model == Model::Cdo ? "ID" : "EntryID", id);
    return object;
}

ScriptedRef FolderObject(const SessionRef& session, const ModeStore& store, const ModeFolder& folder);

size_t ShownChildren(const ModeFolder& parent) {
    return parent.shown ? std::min(parent.shown(), parent.children.size()) : parent.children.size();
}

int32_t ToldCount(const ModeFolder& parent) {
    const size_t children = ShownChildren(parent) + (parent.containsItself ? 1 : 0);
    return parent.count.value_or(static_cast<int32_t>(children));
}

Bytes BytesOf(const std::string& hex) {
    Bytes bytes;
    for (size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes.items.push_back(static_cast<uint8_t>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    return bytes;
}

bool HasSubfolders(const ModeFolder& folder) {
    return !folder.children.empty() || folder.containsItself;
}

Value TableRow(const ModeFolder& folder) {
    if (folder.isNothing) return nullptr;
    return Array{
        0,
        {folder.kind, HasSubfolders(folder),
         folder.containerClass ? Value(*folder.containerClass) : Value(ErrorValue{automation::errors::mapiNotFound}),
         folder.name, BytesOf(folder.id), BytesOf(ShortForm(folder.id))}};
}

/// A cursor over the children that are shown when it is asked.
struct TableCursor {
    std::vector<const ModeFolder*> rows;
    size_t position = 0;
};

Value NextRows(const ModeFolder& parent, TableCursor& cursor, int32_t wanted) {
    if (wanted < 0) throw Error(automation::errors::invalidArgument, "The parameter is incorrect.");
    Array rows;
    const size_t shown = ShownChildren(parent) + (parent.containsItself ? 1 : 0);
    for (; cursor.position < std::min(shown, cursor.rows.size()) && wanted > 0; --wanted)
        rows.items.push_back(TableRow(*cursor.rows[cursor.position++]));
    return rows;
}

Value Table(const SessionRef& session, const ModeFolder& parent) {
    const auto cursor = std::make_shared<TableCursor>();
    for (const ModeFolder& child : parent.children) cursor->rows.push_back(&child);
    if (parent.containsItself) cursor->rows.push_back(&parent);
    auto table = Make(session, "Table(" + parent.name + ")");
    table->Property("Columns", Value());
    table->Method("Sort", [cursor](const Invocation&) {
        std::stable_sort(cursor->rows.begin(), cursor->rows.end(),
                         [](const ModeFolder* a, const ModeFolder* b) { return a->name < b->name; });
        return Value();
    });
    table->Method("GoToFirst", [cursor](const Invocation&) {
        cursor->position = 0;
        return Value();
    });
    table->Method("RowCount", [&parent](const Invocation&) { return Value(ToldCount(parent)); });
    table->Method("GetRows", [session, &parent, cursor](const Invocation& call) {
        return NextRows(parent, *cursor, call.arguments[0].ToLong());
    });
    return table;
}

Value Folders(const SessionRef& session, const ModeStore& store, const ModeFolder& parent) {
    if (!parent.hasFolders) return nullptr;
    std::vector<Value> items;
    for (size_t i = 0; i < ShownChildren(parent); ++i) {
        const ModeFolder& child = parent.children[i];
        items.push_back(child.isNothing ? Value(nullptr) : Value(FolderObject(session, store, child)));
    }
    if (parent.containsItself) items.emplace_back(FolderObject(session, store, parent));
    auto folders = Make(session, "Folders(" + parent.name + ")");
    folders->Items(std::move(items));
    if (session->model == Model::Outlook) folders->WithoutEnumeration();
    folders->Method("Count", [session, &parent](const Invocation&) { return Value(ToldCount(parent)); });
    if (session->model == Model::Rdo)
        folders->Method("MAPITable", [session, &parent](const Invocation&) { return Table(session, parent); });
    return folders;
}

Value Field(const SessionRef& session, const ModeFolder& folder, const Invocation& call) {
    const int32_t tag = call.arguments[0].ToLong();
    if (session->model == Model::Rdo) {
        if (tag != propertyTag::PR_SUBFOLDERS) throw NotFound();
        return HasSubfolders(folder);
    }
    if (tag != propertyTag::PR_CONTAINER_CLASS || !folder.containerClass) throw NotFound();
    auto field = Make(session, "Field(" + folder.name + ")");
    field->ReadOnly("Value", *folder.containerClass);
    return field;
}

ScriptedRef FolderObject(const SessionRef& session, const ModeStore& store, const ModeFolder& folder) {
    auto object = Make(session, "Folder(" + folder.name + ")");
    object->ReadOnly("Name", folder.name);
    object->ReadOnly(session->model == Model::Cdo ? "ID" : "EntryID", folder.id);
    if (session->model == Model::Cdo) object->ReadOnly("StoreID", store.id);
    if (session->model != Model::Cdo) {
        object->ReadOnly("DefaultItemType", folder.itemType);
        object->ReadOnly("DefaultMessageClass", folder.messageClass);
    }
    if (session->model == Model::Rdo) object->ReadOnly("FolderKind", folder.kind);
    if (session->model != Model::Outlook)
        object->Method("Fields", [session, &folder](const Invocation& call) { return Field(session, folder, call); });
    object->Method("Folders",
                   [session, &store, &folder](const Invocation&) { return Folders(session, store, folder); });
    if (folder.adjust) folder.adjust(*object);
    return object;
}

/// A store's folders hang below a root, which in the mail client's object model is the store itself.
ScriptedRef RootObject(const SessionRef& session, const ModeStore& store) {
    struct Owner {
        SessionRef session;
        ModeFolder root;
    };
    auto root = MailFolder(store.name, store.id, store.folders);
    const auto owner = std::make_shared<const Owner>(Owner{session, std::move(root)});
    return FolderObject(SessionRef(owner, session.get()), store, owner->root);
}

Value StoreField(const SessionRef& session, const ModeStore& store, const Invocation& call) {
    if (call.arguments[0].ToLong() != propertyTag::PR_DEFAULT_STORE) throw NotFound();
    auto field = Make(session, "StoreField");
    field->ReadOnly("Value", store.isDefault);
    return field;
}

ObjectRef StoreObject(const SessionRef& session, const ModeStore& store) {
    if (session->model == Model::Outlook) return RootObject(session, store);
    auto object = Make(session, "Store(" + store.name + ")");
    object->ReadOnly("Name", store.name);
    object->ReadOnly(session->model == Model::Cdo ? "ID" : "EntryID", store.id);
    const auto root = [session, &store](const Invocation&) { return Value(RootObject(session, store)); };
    if (session->model == Model::Rdo) {
        object->ReadOnly("Default", store.isDefault);
        object->Method("IPMRootFolder", root);
    } else {
        object->Method("Fields",
                       [session, &store](const Invocation& call) { return StoreField(session, store, call); });
        object->Method("RootFolder", root);
    }
    return object;
}

Value Stores(const SessionRef& session) {
    std::vector<Value> items;
    for (const ModeStore& store : session->data.stores) items.emplace_back(StoreObject(session, store));
    auto stores = Make(session, "Stores");
    stores->Items(std::move(items));
    return stores;
}

const ModeFolder* Find(const std::vector<ModeFolder>& folders, const std::string& id) {
    for (const ModeFolder& folder : folders) {
        if (folder.id == id || ShortForm(folder.id) == id) return &folder;
        if (const ModeFolder* found = Find(folder.children, id)) return found;
    }
    return nullptr;
}

Value OpenFolder(const SessionRef& session, const Invocation& call) {
    const std::string id = call.arguments[0].ToText();
    for (const ModeStore& store : session->data.stores) {
        if (call.arguments.size() > 1 && call.arguments[1].ToText() != store.id) continue;
        if (const ModeFolder* folder = Find(store.folders, id)) return FolderObject(session, store, *folder);
    }
    throw NotFound();
}

Value OpenStore(const SessionRef& session, const Invocation& call) {
    for (const ModeStore& store : session->data.stores)
        if (store.id == call.arguments[0].ToText()) return StoreObject(session, store);
    throw NotFound();
}

Value DefaultFolder(const SessionRef& session, const Invocation& call) {
    return WithID(session, "DefaultFolder", session->data.DefaultFolderID(call.arguments[0].ToLong()));
}

Value DefaultFolderOfCdo(const SessionRef& session, const Invocation& call) {
    const std::map<int32_t, int32_t> outlookNumbers{{CdoDefaultFolderDeletedItems, olFolderDeletedItems},
                                                    {CdoDefaultFolderSentItems, olFolderSentMail},
                                                    {CdoDefaultFolderNotes, olFolderNotes}};
    const auto number = outlookNumbers.find(call.arguments[0].ToLong());
    if (number == outlookNumbers.end()) throw NotFound();
    return WithID(session, "DefaultFolder", session->data.DefaultFolderID(number->second));
}

ObjectRef ListObject(const SessionRef& session, const ModeAddressList& list);

Value ChildLists(const SessionRef& session, const ModeAddressList& parent) {
    std::vector<Value> items;
    if (!parent.deliverError)
        for (const ModeAddressList& list : parent.lists) items.emplace_back(ListObject(session, list));
    if (parent.containsItself) items.emplace_back(ListObject(session, parent));
    auto lists = Make(session, "Lists(" + parent.name + ")");
    lists->Items(std::move(items));
    if (parent.countError) lists->Fails("Count", *parent.countError);
    if (parent.deliverError) lists->Fails("_NewEnum", *parent.deliverError);
    return lists;
}

ObjectRef ListObject(const SessionRef& session, const ModeAddressList& list) {
    auto object = Make(session, "List(" + list.name + ")");
    object->ReadOnly("Name", list.name);
    object->ReadOnly(session->model == Model::Cdo ? "ID" : "EntryID", list.id);
    object->Method("AddressLists", [session, &list](const Invocation&) { return ChildLists(session, list); });
    if (list.adjust) list.adjust(*object);
    return object;
}

Value AddressLists(const SessionRef& session) {
    std::vector<Value> items;
    for (const ModeAddressList& list : session->data.addressLists) items.emplace_back(ListObject(session, list));
    auto lists = Make(session, "AddressLists");
    lists->Items(std::move(items));
    if (session->data.addressListCount) lists->ReadOnly("Count", *session->data.addressListCount);
    return lists;
}

ObjectRef Inbox(const SessionRef& session) {
    auto inbox = Make(session, "Inbox");
    inbox->ReadOnly("ID", session->data.inboxID);
    inbox->Method("Fields", [session](const Invocation&) {
        auto field = Make(session, "InboxField");
        field->ReadOnly("Value", session->data.DefaultFolderID(olFolderDrafts));
        return Value(field);
    });
    return inbox;
}

Value DefaultStore(const SessionRef& session) {
    const std::optional<std::string>& id = session->data.defaultStoreID;
    for (const ModeStore& store : session->data.stores)
        if (id ? store.id == *id : store.isDefault) return StoreObject(session, store);
    throw NotFound();
}

}  // namespace

ModeFolder MailFolder(std::string name, std::string id, std::vector<ModeFolder> children) {
    ModeFolder folder;
    folder.name = std::move(name);
    folder.id = std::move(id);
    folder.children = std::move(children);
    return folder;
}

ModeFolder TypedFolder(std::string name, std::string id, int32_t itemType, std::string containerClass) {
    ModeFolder folder = MailFolder(std::move(name), std::move(id));
    folder.itemType = itemType;
    folder.containerClass = std::move(containerClass);
    return folder;
}

ModeAddressList AddressList(std::string name, std::string id, std::vector<ModeAddressList> lists) {
    ModeAddressList list;
    list.name = std::move(name);
    list.id = std::move(id);
    list.lists = std::move(lists);
    return list;
}

std::string ShortForm(std::string id) {
    if (id.size() >= 2) id.replace(0, 2, "EF");
    return id;
}

std::string ModeMailbox::DefaultFolderID(int32_t number) const {
    if (number == olFolderInbox) return inboxID;
    const auto found = defaultFolders.find(number);
    return found == defaultFolders.end() ? "D" + std::to_string(number) : found->second;
}

ScriptedRef ModeMailbox::Utilities() const {
    auto utilities = std::make_shared<ScriptedObject>("Utilities", log);
    utilities->Method("GetProperty", [all = stores](const Invocation& call) {
        // Asked without a call, so that the log holds the control's calls only.
        const auto* object = dynamic_cast<const ScriptedObject*>(call.arguments[0].ToObject().get());
        const std::string id = object ? object->Held("EntryID").ToText() : "";
        for (const ModeStore& store : all)
            if (store.id == id) return Value(store.provider);
        throw NotFound();
    });
    return utilities;
}

ScriptedRef ModeMailbox::RdoSession() const {
    const auto session = std::make_shared<const Session>(Session{Model::Rdo, *this});
    auto object = Make(session, "Session");
    object->Method("Stores", [session](const Invocation&) { return Stores(session); });
    object->Method("GetStoreFromID", [session](const Invocation& call) { return OpenStore(session, call); });
    object->Method("GetFolderFromID", [session](const Invocation& call) { return OpenFolder(session, call); });
    object->Method("GetDefaultFolder", [session](const Invocation& call) { return DefaultFolder(session, call); });
    object->Method("AddressBook", [session](const Invocation&) {
        auto book = Make(session, "AddressBook");
        book->Method("AddressLists", [session](const Invocation&) { return AddressLists(session); });
        return Value(book);
    });
    return object;
}

ScriptedRef ModeMailbox::Application() const {
    const auto session = std::make_shared<const Session>(Session{Model::Outlook, *this});
    auto application = Make(session, "Application");
    application->Method("GetNamespace", [session](const Invocation& call) {
        if (call.arguments[0].ToText() != "MAPI") throw NotFound();
        auto object = Make(session, "Namespace");
        object->Method("Folders", [session](const Invocation&) { return Stores(session); });
        object->Method("GetFolderFromID", [session](const Invocation& id) { return OpenFolder(session, id); });
        object->Method("GetDefaultFolder", [session](const Invocation& id) { return DefaultFolder(session, id); });
        return Value(object);
    });
    return application;
}

ScriptedRef ModeMailbox::CdoSession() const {
    const auto session = std::make_shared<const Session>(Session{Model::Cdo, *this});
    auto object = Make(session, "CdoSession");
    object->Method("Logon", [](const Invocation&) { return Value(); });
    object->Method("InfoStores", [session](const Invocation&) { return Stores(session); });
    object->Method("GetInfoStore", [session](const Invocation&) { return DefaultStore(session); });
    object->Method("Inbox", [session](const Invocation&) { return Value(Inbox(session)); });
    object->Method("Outbox", [session](const Invocation&) {
        return Value(WithID(session, "Outbox", session->data.DefaultFolderID(olFolderOutbox)));
    });
    object->Method("GetDefaultFolder", [session](const Invocation& call) { return DefaultFolderOfCdo(session, call); });
    object->Method("GetFolder", [session](const Invocation& call) { return OpenFolder(session, call); });
    object->Method("AddressLists", [session](const Invocation&) { return AddressLists(session); });
    return object;
}

ModeMailbox TwoStores() {
    ModeMailbox mailbox;
    mailbox.stores.push_back({"Archive", "A1", false, {MailFolder("Old mail", "0030")}});
    mailbox.stores.push_back(
        {"Mailbox",
         "B2",
         true,
         {MailFolder("Inbox", "0001",
                     {MailFolder("Projects", "0011", {MailFolder("Alpha", "0021")}), MailFolder("Zoo", "0012")}),
          TypedFolder("People", "0002", 2, "IPF.Contact"), TypedFolder("Diary", "0003", 4, "IPF.Journal"),
          TypedFolder("To do", "0004", 3, "IPF.Task")}});
    return mailbox;
}

}  // namespace foldertree::testing
