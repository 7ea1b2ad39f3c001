// Mail: one mailbox that changes while it is read, in the shapes of all four object models.
#include "reference/Mail.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "reference/LiteralText.h"
#include "reference/Texts.h"

namespace foldertree::reference {

using automation::Array;
using automation::Bytes;
using automation::Error;
using automation::ErrorValue;
using automation::Invocation;
using automation::ObjectRef;
using automation::Value;

namespace {

enum class Model { Rdo, Outlook, Cdo };

struct FolderClass {
    const char* containerClass;  ///< null: there is no such property
    int32_t itemType;
    const char* messageClass;
};

constexpr FolderClass classes[] = {
    {"IPF.Note", 0, "IPM.Note"},
    {"IPF.Contact", 2, "IPM.Contact"},
    {"IPF.Appointment", 1, "IPM.Appointment"},
    {"IPF.Journal", 4, "IPM.Activity"},
    {"IPF.StickyNote", 5, "IPM.StickyNote"},
    {"IPF.Task", 3, "IPM.Task"},
    {nullptr, 0, "IPM.Note"},
    {"IPF.Configuration", 0, "IPM.Configuration"},
    {"ipm.NOTE", 6, "IPM.Post"},
    {"IPF.Note.OutlookHomepage", 7, "IPM.DistList"},
    {"", -1, ""},
    {"ＩＰＦ.Task", 3, "IPM.ＣＯＮＦＩＧＵＲＡＴＩＯＮ"},
    {"IPF.STİCKYNOTE", 5, "IPM.CONFİGURATION"},
};

const FolderClass& ClassOf(const MailFolder& folder) {
    return classes[static_cast<size_t>(folder.folderClass) % std::size(classes)];
}

Error Fault() {
    return Error(automation::errors::unspecified, "The provider failed.");
}
Error NotFound() {
    return Error(automation::errors::mapiNotFound, "Not found.");
}

std::string Hex(const std::vector<uint8_t>& bytes) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    for (const uint8_t byte : bytes) text += {digits[byte >> 4], digits[byte & 15]};
    return text;
}

std::vector<uint8_t> IdBytes(uint8_t flags, int32_t id) {
    if (id > 0xFF) return {flags, static_cast<uint8_t>(id >> 8), static_cast<uint8_t>(id & 0xFF)};
    return {flags, static_cast<uint8_t>(id)};
}

std::string LongID(const MailFolder& folder) {
    if (!folder.textID.empty()) return folder.textID;
    return Hex(IdBytes(0x00, folder.id));
}
std::string ShortID(const MailFolder& folder) {
    return Hex(IdBytes(0xEF, folder.id));
}

/// An object whose members are one function.
class Outside : public automation::Object {
  public:
    using Handler = std::function<Value(std::string_view member, const std::vector<Value>& arguments)>;

    Outside(CallSink& sink, std::string name, Handler handler)
        : sink_(sink), name_(std::move(name)), handler_(std::move(handler)) {}

    /// Makes it a collection. With a `count` it says that it has so many.
    void Hold(std::vector<Value> items, bool enumerable = true) {
        items_ = std::move(items);
        isCollection_ = true;
        enumerable_ = enumerable;
    }

    Value Invoke(const Invocation& call) override {
        sink_.Called(name_, call.member);
        const std::vector<Value> arguments(call.arguments.begin(), call.arguments.end());
        if (isCollection_ && call.member == "Item") {
            const int32_t position = LongOf(arguments.at(0));
            if (position < 1 || position > static_cast<int32_t>(items_.size()))
                throw automation::VbError(automation::errors::subscript);
            return items_[static_cast<size_t>(position) - 1];
        }
        return handler_(call.member, arguments);
    }

    std::unique_ptr<automation::Enumerator> NewEnum() override;
    bool HasMember(std::string_view) const override { return true; }

    CallSink& sink_;
    std::string name_;
    Handler handler_;
    std::vector<Value> items_;
    bool isCollection_ = false;
    bool enumerable_ = true;
};

class OutsideWalk : public automation::Enumerator {
  public:
    explicit OutsideWalk(std::shared_ptr<Outside> collection) : collection_(std::move(collection)) {}
    bool Next(Value& item) override {
        collection_->sink_.Called(collection_->name_, "Next");
        if (next_ >= collection_->items_.size()) return false;
        item = collection_->items_[next_++];
        return true;
    }

  private:
    std::shared_ptr<Outside> collection_;
    size_t next_ = 0;
};

std::unique_ptr<automation::Enumerator> Outside::NewEnum() {
    if (!isCollection_ || !enumerable_) return nullptr;
    sink_.Called(name_, "_NewEnum");
    return std::make_unique<OutsideWalk>(std::static_pointer_cast<Outside>(shared_from_this()));
}

/// What all objects of one session know.
struct Session {
    Model model;
    std::shared_ptr<Mail> mail;
    CallSink* sink;

    std::shared_ptr<Outside> Make(std::string name, Outside::Handler handler) const {
        return std::make_shared<Outside>(*sink, std::move(name), std::move(handler));
    }
};

ObjectRef FolderObject(const Session& session, const MailFolderRef& folder, const std::string& storeID);

// Hierarchy tables

std::vector<Value> Cells(const MailFolder& folder) {
    const Value absent{ErrorValue{automation::errors::mapiNotFound}};
    const char* containerClass = ClassOf(folder).containerClass;
    std::vector<Value> cells{folder.kind,
                             !folder.children.empty(),
                             containerClass ? Value(containerClass) : absent,
                             folder.name,
                             folder.hasLongID ? Value(Bytes{0, IdBytes(0x00, folder.id)}) : absent,
                             folder.hasShortID ? Value(Bytes{0, IdBytes(0xEF, folder.id)}) : absent};
    if (folder.odd.row == 2) cells.resize(3);
    if (folder.odd.row == 3) cells = {Value("one"), Value("maybe"), Value(7.5), nullptr, Value("00AA"), Value(12)};
    if (folder.odd.row == 4) cells.assign(6, absent);
    if (folder.odd.row == 5)
        for (int column = 0; column < 4; ++column)
            cells[static_cast<size_t>(column)] = OddValue(folder.odd.value + column);
    return cells;
}

struct TableState {
    MailFolderRef parent;
    std::vector<MailFolderRef> rows;
    size_t position = 0;
};

int32_t SaidRowCount(const TableState& table) {
    const auto truth = static_cast<int32_t>(table.rows.size());
    switch (table.parent->odd.rowCount) {
        case 1:
            return truth + 3;
        case 2:
            return INT32_MAX;
        case 3:
            return 0;
        case 4:
            return -1;
        default:
            return truth;
    }
}

Value Rows(TableState& table, int32_t wanted) {
    const MailOddities& odd = table.parent->odd;
    const int32_t limit = odd.rowsPerCall > 0 ? std::min(odd.rowsPerCall, wanted) : wanted;
    Array rows{odd.lowerBound, {}};
    while (static_cast<int32_t>(rows.items.size()) < limit && table.position < table.rows.size()) {
        const MailFolder& child = *table.rows[table.position++];
        rows.items.push_back(child.odd.row == 1 ? Value("no row") : Value(Array{0, Cells(child)}));
    }
    return rows;
}

enum TableStep { tsNone, tsTable, tsColumns, tsSort, tsStart, tsCount, tsRows };

void FailIf(const MailFolder& folder, TableStep step) {
    if (folder.odd.tableFails == step) throw Fault();
}

ObjectRef Table(const Session& session, const MailFolderRef& parent) {
    const auto table = std::make_shared<TableState>(TableState{parent, parent->children});
    return session.Make("Table", [table](std::string_view member, const std::vector<Value>& arguments) -> Value {
        if (member == "Columns") {
            FailIf(*table->parent, tsColumns);
            return {};
        }
        if (member == "Sort") {
            FailIf(*table->parent, tsSort);
            std::stable_sort(table->rows.begin(), table->rows.end(),
                             [](const MailFolderRef& a, const MailFolderRef& b) { return a->name < b->name; });
            return {};
        }
        if (member == "GoToFirst") {
            FailIf(*table->parent, tsStart);
            table->position = 0;
            return {};
        }
        if (member == "RowCount") {
            FailIf(*table->parent, tsCount);
            return SaidRowCount(*table);
        }
        FailIf(*table->parent, tsRows);
        return Rows(*table, LongOf(arguments.at(0)));
    });
}

// Folders

ObjectRef FoldersObject(const Session& session, const MailFolderRef& parent, const std::string& storeID) {
    if (parent->odd.noCollection) return nullptr;
    auto folders =
        session.Make("Folders", [session, parent](std::string_view member, const std::vector<Value>&) -> Value {
            if (member == "MAPITable") {
                FailIf(*parent, tsTable);
                return Table(session, parent);
            }
            const auto truth = static_cast<int32_t>(parent->children.size());
            const int32_t said[] = {truth, truth + 3, 0, INT32_MAX};
            return said[parent->odd.count % 4];
        });
    std::vector<Value> items;
    for (const MailFolderRef& child : parent->children) {
        if (parent->odd.nothingInside && items.size() == 1) items.emplace_back(nullptr);
        items.emplace_back(FolderObject(session, child, storeID));
    }
    folders->Hold(std::move(items), session.model != Model::Outlook);
    return folders;
}

ObjectRef FieldObject(const Session& session, Value value) {
    return session.Make("Field", [value](std::string_view, const std::vector<Value>&) { return value; });
}

Value FolderField(const Session& session, const MailFolder& folder) {
    if (session.model == Model::Rdo) return !folder.children.empty();
    const char* containerClass = ClassOf(folder).containerClass;
    if (containerClass == nullptr) throw NotFound();
    return FieldObject(session, containerClass);
}

ObjectRef FolderObject(const Session& session, const MailFolderRef& folder, const std::string& storeID) {
    return session.Make("Folder(" + folder->name + ")",
                        [session, folder, storeID](std::string_view member, const std::vector<Value>&) -> Value {
                            if (member == "Name" && folder->odd.row == 5) return OddValue(folder->odd.value);
                            if (member == "Name") return folder->name;
                            if (member == "EntryID" || member == "ID") return LongID(*folder);
                            if (member == "DefaultItemType" && folder->odd.row == 5)
                                return OddValue(folder->odd.value + 1);
                            if (member == "StoreID") return storeID;
                            if (member == "DefaultItemType") return ClassOf(*folder).itemType;
                            if (member == "DefaultMessageClass") return ClassOf(*folder).messageClass;
                            if (member == "FolderKind") return folder->kind;
                            if (member == "Fields") return FolderField(session, *folder);
                            return FoldersObject(session, folder, storeID);
                        });
}

MailFolderRef Find(const MailFolderRef& folder, const std::string& id) {
    for (const MailFolderRef& child : folder->children) {
        if (LongID(*child) == id || ShortID(*child) == id || Hex(IdBytes(0x00, child->id)) == id) return child;
        if (MailFolderRef found = Find(child, id)) return found;
    }
    return nullptr;
}

Value OpenFolder(const Session& session, const std::vector<Value>& arguments) {
    const std::string id = TextOf(arguments.at(0));
    for (const MailStoreRef& store : session.mail->stores) {
        if (arguments.size() > 1 && TextOf(arguments[1]) != store->id) continue;
        const MailFolderRef folder = Find(store->root, id);
        if (folder == nullptr) continue;
        if (folder->odd.openFails) throw Fault();
        return FolderObject(session, folder, store->id);
    }
    throw NotFound();
}

// Stores

ObjectRef StoreObject(const Session& session, const MailStoreRef& store) {
    return session.Make("Store(" + store->name + ")",
                        [session, store](std::string_view member, const std::vector<Value>&) -> Value {
                            if (member == "Name") return store->name;
                            if (member == "EntryID" || member == "ID") return store->id;
                            if (member == "Default") return store->isDefault;
                            if (member == "Fields") {
                                if (store->provider == 2) throw NotFound();
                                return FieldObject(session, store->isDefault);
                            }
                            if (member == "Folders") return FoldersObject(session, store->root, store->id);
                            return FolderObject(session, store->root, store->id);
                        });
}

ObjectRef StoresObject(const Session& session) {
    auto stores = session.Make("Stores", [session](std::string_view, const std::vector<Value>&) -> Value {
        return static_cast<int32_t>(session.mail->stores.size());
    });
    std::vector<Value> items;
    for (const MailStoreRef& store : session.mail->stores) items.emplace_back(StoreObject(session, store));
    stores->Hold(std::move(items));
    return stores;
}

Value OpenStore(const Session& session, const std::string& id) {
    for (const MailStoreRef& store : session.mail->stores)
        if (store->id == id) return StoreObject(session, store);
    throw NotFound();
}

Value DefaultStore(const Session& session) {
    for (const MailStoreRef& store : session.mail->stores)
        if (store->isDefault) return StoreObject(session, store);
    throw NotFound();
}

ObjectRef DefaultFolder(const Session& session, const std::string& id) {
    return session.Make("DefaultFolder", [session, id](std::string_view member, const std::vector<Value>&) -> Value {
        if (member == "Fields") return FieldObject(session, "0004");
        return id;
    });
}

/// By the numbers of all object models at once; some are folders of the first mail.
ObjectRef NumberedFolder(const Session& session, int32_t number) {
    if (number == 6) return DefaultFolder(session, session.mail->inbox);
    if (number == 16) return DefaultFolder(session, "0004");
    if (number == 3) return DefaultFolder(session, "0012");
    if (number == 4) return DefaultFolder(session, "0030");
    if (number == 5) return DefaultFolder(session, "0002");
    if (number == 7) throw NotFound();
    return DefaultFolder(session, "D" + std::to_string(number));
}

// Address lists

ObjectRef ListsObject(const Session& session, const std::vector<MailListRef>& lists, int countFails, bool deliverFails);

ObjectRef ListObject(const Session& session, const MailListRef& list) {
    return session.Make("List(" + list->name + ")",
                        [session, list](std::string_view member, const std::vector<Value>&) -> Value {
                            if (member == "Name") return list->name;
                            if (member == "EntryID" || member == "ID") return list->id;
                            return ListsObject(session, list->lists, list->countFails, list->deliverFails);
                        });
}

ObjectRef ListsObject(const Session& session, const std::vector<MailListRef>& lists, int countFails,
                      bool deliverFails) {
    const auto count = static_cast<int32_t>(lists.size());
    auto object = session.Make("Lists", [count, countFails](std::string_view, const std::vector<Value>&) -> Value {
        if (countFails == 1) throw Error(automation::errors::mapiNoSupport, "No support.");
        if (countFails == 2) throw Fault();
        return count;
    });
    std::vector<Value> items;
    for (const MailListRef& list : lists) items.emplace_back(ListObject(session, list));
    if (deliverFails && !items.empty()) items[0] = Value(nullptr);
    object->Hold(std::move(items));
    return object;
}

ObjectRef SessionObject(const Session& session, std::string name) {
    return session.Make(std::move(name),
                        [session](std::string_view member, const std::vector<Value>& arguments) -> Value {
                            if (member == "GetNamespace") return SessionObject(session, "Namespace");
                            if (member == "Stores" || member == "InfoStores" || member == "Folders")
                                return StoresObject(session);
                            if (member == "GetStoreFromID") return OpenStore(session, TextOf(arguments.at(0)));
                            if (member == "GetFolderFromID" || member == "GetFolder")
                                return OpenFolder(session, arguments);
                            if (member == "GetDefaultFolder") return NumberedFolder(session, LongOf(arguments.at(0)));
                            if (member == "GetInfoStore") return DefaultStore(session);
                            if (member == "Inbox") return DefaultFolder(session, session.mail->inbox);
                            if (member == "Outbox") return DefaultFolder(session, "D4");
                            if (member == "AddressBook") return SessionObject(session, "AddressBook");
                            if (member == "AddressLists") return ListsObject(session, session.mail->lists, 0, false);
                            if (member == "Logon") {
                                if (session.mail->logonFails) throw Fault();
                                return {};
                            }
                            throw NotFound();
                        });
}

void Collect(const MailFolderRef& folder, std::vector<MailFolderRef>& all) {
    for (const MailFolderRef& child : folder->children) {
        all.push_back(child);
        Collect(child, all);
    }
}

MailFolderRef NewFolder(std::string name, int32_t id, int folderClass, std::vector<MailFolderRef> children = {}) {
    auto folder = std::make_shared<MailFolder>();
    folder->name = std::move(name);
    folder->id = id;
    folder->folderClass = folderClass;
    folder->children = std::move(children);
    return folder;
}

MailStoreRef NewStore(std::string name, std::string id, bool isDefault, std::vector<MailFolderRef> folders) {
    auto store = std::make_shared<MailStore>();
    store->name = std::move(name);
    store->id = std::move(id);
    store->isDefault = isDefault;
    store->root->name = "Root of " + store->name;
    store->root->id = 0xFF;
    store->root->children = std::move(folders);
    return store;
}

MailListRef NewList(std::string name, std::string id, std::vector<MailListRef> lists = {}) {
    auto list = std::make_shared<MailList>();
    list->name = std::move(name);
    list->id = std::move(id);
    list->lists = std::move(lists);
    return list;
}

}  // namespace

std::vector<MailFolderRef> Mail::Folders() const {
    std::vector<MailFolderRef> all;
    for (const MailStoreRef& store : stores) {
        all.push_back(store->root);
        Collect(store->root, all);
    }
    return all;
}

std::vector<MailFolderRef> Mail::FoldersBelowRoots() const {
    std::vector<MailFolderRef> all;
    for (const MailStoreRef& store : stores) Collect(store->root, all);
    return all;
}

std::vector<MailListRef> Mail::AllLists() const {
    std::vector<MailListRef> all = lists;
    for (size_t i = 0; i < all.size(); ++i) {
        const MailListRef list = all[i];
        all.insert(all.end(), list->lists.begin(), list->lists.end());
    }
    return all;
}

std::shared_ptr<Mail> FirstMail() {
    auto mail = std::make_shared<Mail>();
    auto searches = NewFolder("Searches", 0x15, 0, {NewFolder("Found", 0x16, 0)});
    searches->kind = 2;
    auto deepSearch = NewFolder("Unread", 0x23, 0);
    deepSearch->kind = 2;
    mail->stores = {
        NewStore("Archive", "A1", false, {NewFolder("Old mail", 0x30, 0, {NewFolder("Older", 0x31, 0)})}),
        NewStore("Mailbox", "B2", true,
                 {NewFolder("Inbox", 0x01, 0,
                            {NewFolder("Zoo", 0x12, 0),
                             NewFolder("Projects", 0x11, 0,
                                       {NewFolder("Alpha", 0x21, 5), NewFolder("Beta", 0x22, 6), deepSearch})}),
                  NewFolder("People", 0x02, 1, {NewFolder("Friends", 0x13, 1)}), NewFolder("Diary", 0x03, 3), searches,
                  NewFolder("Settings", 0x14, 7), NewFolder("Drafts", 0x04, 0)}),
        NewStore("Shared", "C3", false, {}),
    };
    mail->stores[0]->provider = 1;
    mail->lists = {NewList("Global", "E1", {NewList("Sales", "E2"), NewList("Labs", "E3")}), NewList("Own", "E4")};
    return mail;
}

ObjectRef RdoSession(const std::shared_ptr<Mail>& mail, CallSink& sink) {
    return SessionObject(Session{Model::Rdo, mail, &sink}, "Session");
}

ObjectRef OutlookApplication(const std::shared_ptr<Mail>& mail, CallSink& sink) {
    return SessionObject(Session{Model::Outlook, mail, &sink}, "Application");
}

ObjectRef MailFactory::Create(std::string_view progId) {
    sink_.Called("Factory", progId);
    if (progId == "MAPI.Session") return SessionObject(Session{Model::Cdo, mail_, &sink_}, "CdoSession");
    const Session session{Model::Rdo, mail_, &sink_};
    return session.Make("Utilities", [session](std::string_view, const std::vector<Value>& arguments) -> Value {
        const auto* object = dynamic_cast<const Outside*>(arguments.at(0).ToObject().get());
        for (const MailStoreRef& store : session.mail->stores) {
            if (object == nullptr || object->name_ != "Store(" + store->name + ")") continue;
            if (store->provider == 2) throw Fault();
            return store->provider == 1 ? "Some provider" : "";
        }
        throw NotFound();
    });
}

}  // namespace foldertree::reference
