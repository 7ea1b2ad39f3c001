// MemoryMailbox: a session over folders that exist only as numbers, so that a benchmark measures the control.
#include "MemoryMailbox.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "MailboxRows.h"
#include "automation/TabledObject.h"
#include "common/modApplication.h"
#include "enumeration/modCDODefs.h"

namespace foldertree::bench {
namespace {

using automation::Arguments;
using automation::Bytes;
using automation::MemberEntry;
using automation::ObjectRef;
using automation::TabledObject;
using automation::Value;

constexpr int32_t stores = 10;
constexpr int32_t branch = 101;  // a folder of level 1 and the hundred below it
constexpr int32_t deepStore = 5;
constexpr int32_t deepFolder = 1;
constexpr size_t longIdBytes = 46;
constexpr size_t shortIdBytes = 24;

/// Where a folder stands: its store, its number there, and its number among the deep children (-1 for others).
struct Place {
    int32_t store = 0;
    int32_t number = -1;  ///< -1 for the root
    int32_t deep = -1;
};

struct Mailbox {
    MailboxShape shape;

    int32_t PerStore() const { return shape.folders / stores; }
    int32_t Branches() const { return (PerStore() + branch - 1) / branch; }
    bool IsDeepFolder(const Place& place) const {
        return shape.deepChildren > 0 && place.store == deepStore && place.number == deepFolder && place.deep < 0;
    }
    int32_t ChildCount(const Place& place) const {
        if (place.number < 0) return Branches();
        if (IsDeepFolder(place)) return shape.deepChildren;
        if (place.deep >= 0 || place.number % branch != 0) return 0;
        return std::min(branch - 1, PerStore() - place.number - 1);
    }
    Place Child(const Place& parent, int32_t index) const {
        if (parent.number < 0) return {parent.store, index * branch};
        if (IsDeepFolder(parent)) return {parent.store, parent.number, index};
        return {parent.store, parent.number + 1 + index};
    }
};
using MailboxRef = std::shared_ptr<const Mailbox>;

std::string StoreName(int32_t store) {
    return "Mailbox - User " + std::to_string(store);
}

std::string StoreIdentifier(int32_t store) {
    return MailboxRows::Identifier(static_cast<uint64_t>(store) + 1, 264);
}

/// The place in the bytes behind the flags, and a filling that differs from folder to folder.
Value Identifier(const Place& place, size_t size, uint8_t flags) {
    Bytes id;
    id.items.resize(size);
    id.items[0] = flags;
    constexpr uint64_t spread = 0x9E3779B97F4A7C15;
    uint64_t noise = static_cast<uint64_t>(place.number) * spread + static_cast<uint64_t>(place.deep + 2);
    const int32_t numbers[] = {place.store, place.number, place.deep};
    size_t at = 4;
    for (const int32_t number : numbers)
        for (int shift = 24; shift >= 0; shift -= 8) id.items[at++] = static_cast<uint8_t>(number >> shift);
    for (; at < size; ++at) {
        noise = noise * 6364136223846793005ull + 1442695040888963407ull;
        id.items[at] = static_cast<uint8_t>(noise >> 56);
    }
    return id;
}

Place PlaceOf(std::string_view hex) {
    const auto number = [&](size_t at) {
        uint32_t value = 0;
        std::from_chars(hex.data() + at * 2, hex.data() + at * 2 + 8, value, 16);
        return static_cast<int32_t>(value);
    };
    return {number(4), number(8), number(12)};
}

std::string Name(const Place& place) {
    if (place.number < 0) return StoreName(place.store);
    if (place.deep >= 0) return "Case " + std::to_string(place.deep);
    return "Folder " + std::to_string(place.number);
}

class Table : public TabledObject<Table> {
  public:
    Table(MailboxRef mailbox, const Place& folder) : mailbox_(std::move(mailbox)), folder_(folder) {}

    static std::span<const MemberEntry<Table>> Members() {
        static constexpr MemberEntry<Table> members[] = {
            {"Columns", nullptr, [](Table&, const Value&) {}},
            {"Sort", [](Table&, const Arguments&) { return Value(); }, nullptr, 2},
            {"GoToFirst", [](Table&, const Arguments&) { return Value(); }},
            {"RowCount", [](Table& self, const Arguments&) -> Value { return self.RowCount(); }},
            {"GetRows", [](Table& self, const Arguments&) { return self.GetRows(); }, nullptr, 1},
        };
        return members;
    }

  private:
    int32_t RowCount() const { return mailbox_->ChildCount(folder_); }

    Value GetRows() const {
        automation::Array rows;
        rows.items.reserve(static_cast<size_t>(RowCount()));
        for (int32_t index = 0; index < RowCount(); ++index) {
            const Place child = mailbox_->Child(folder_, index);
            automation::Array cells;
            cells.items = {int32_t{1},  mailbox_->ChildCount(child) > 0,   "IPF.Note",
                           Name(child), Identifier(child, longIdBytes, 0), Identifier(child, shortIdBytes, 0xEF)};
            rows.items.emplace_back(std::move(cells));
        }
        return rows;
    }

    MailboxRef mailbox_;
    Place folder_;
};

/// A MAPI property as a CDO session gives it.
class Field : public TabledObject<Field> {
  public:
    explicit Field(Value value) : value_(std::move(value)) {}

    static std::span<const MemberEntry<Field>> Members() {
        static constexpr MemberEntry<Field> members[] = {
            {"Value", [](Field& self, const Arguments&) { return self.value_; }},
        };
        return members;
    }

  private:
    Value value_;
};

class Folders : public TabledObject<Folders> {
  public:
    Folders(MailboxRef mailbox, const Place& folder) : mailbox_(std::move(mailbox)), folder_(folder) {}

    static std::span<const MemberEntry<Folders>> Members() {
        static constexpr MemberEntry<Folders> members[] = {
            {"Count", [](Folders& self, const Arguments&) -> Value { return self.Count(); }},
            {"Item", [](Folders& self, const Arguments& arguments) { return self.Item(arguments[0].ToLong() - 1); },
             nullptr, 1},
            {"MAPITable",
             [](Folders& self, const Arguments&) -> Value {
                 return std::make_shared<Table>(self.mailbox_, self.folder_);
             }},
        };
        return members;
    }

    std::unique_ptr<automation::Enumerator> NewEnum() override {
        return std::make_unique<Walk>(std::static_pointer_cast<Folders>(shared_from_this()));
    }

  private:
    class Walk : public automation::Enumerator {
      public:
        explicit Walk(std::shared_ptr<Folders> folders) : folders_(std::move(folders)) {}
        bool Next(Value& item) override {
            if (next_ == folders_->Count()) return false;
            item = folders_->Item(next_++);
            return true;
        }

      private:
        std::shared_ptr<Folders> folders_;
        int32_t next_ = 0;
    };

    int32_t Count() const { return mailbox_->ChildCount(folder_); }
    Value Item(int32_t index) const;

    MailboxRef mailbox_;
    Place folder_;
};

class Folder : public TabledObject<Folder> {
  public:
    Folder(MailboxRef mailbox, const Place& place) : mailbox_(std::move(mailbox)), place_(place) {}

    static std::span<const MemberEntry<Folder>> Members() {
        constexpr auto id = [](Folder& self, const Arguments&) -> Value { return self.Id(); };
        static constexpr MemberEntry<Folder> members[] = {
            {"Name", [](Folder& self, const Arguments&) -> Value { return bench::Name(self.place_); }},
            {"EntryID", id},
            {"ID", id},
            {"StoreID", [](Folder& self, const Arguments&) -> Value { return StoreIdentifier(self.place_.store); }},
            {"DefaultItemType", [](Folder&, const Arguments&) -> Value { return int32_t{0}; }},
            {"FolderKind", [](Folder&, const Arguments&) -> Value { return fkGeneric; }},
            {"DefaultMessageClass", [](Folder&, const Arguments&) -> Value { return "IPM.Note"; }},
            {"Fields",
             [](Folder& self, const Arguments& arguments) -> Value {
                 if (arguments[0].ToLong() == propertyTag::PR_SUBFOLDERS)
                     return self.mailbox_->ChildCount(self.place_) > 0;
                 return std::make_shared<Field>("IPF.Note");
             },
             nullptr, 1},
            {"Folders",
             [](Folder& self, const Arguments&) -> Value {
                 return std::make_shared<Folders>(self.mailbox_, self.place_);
             }},
        };
        return members;
    }

  private:
    std::string Id() const { return BytesToHex(*Identifier(place_, longIdBytes, 0).AsBytes()); }

    MailboxRef mailbox_;
    Place place_;
};

Value Folders::Item(int32_t index) const {
    return std::make_shared<Folder>(mailbox_, mailbox_->Child(folder_, index));
}

class Store : public TabledObject<Store> {
  public:
    Store(MailboxRef mailbox, int32_t number) : mailbox_(std::move(mailbox)), number_(number) {}

    static std::span<const MemberEntry<Store>> Members() {
        constexpr auto id = [](Store& self, const Arguments&) -> Value { return StoreIdentifier(self.number_); };
        constexpr auto root = [](Store& self, const Arguments&) -> Value {
            return std::make_shared<Folder>(self.mailbox_, Place{self.number_, -1, -1});
        };
        static constexpr MemberEntry<Store> members[] = {
            {"Name", [](Store& self, const Arguments&) -> Value { return StoreName(self.number_); }},
            {"EntryID", id},
            {"ID", id},
            {"Default", [](Store& self, const Arguments&) -> Value { return self.number_ == 0; }},
            {"Fields",
             [](Store& self, const Arguments&) -> Value { return std::make_shared<Field>(self.number_ == 0); }, nullptr,
             1},
            {"IPMRootFolder", root},
            {"RootFolder", root},
            // A mail client's stores are folders themselves.
            {"Folders",
             [](Store& self, const Arguments&) -> Value {
                 return std::make_shared<Folders>(self.mailbox_, Place{self.number_, -1, -1});
             }},
        };
        return members;
    }

  private:
    MailboxRef mailbox_;
    int32_t number_;
};

class Stores : public TabledObject<Stores> {
  public:
    explicit Stores(MailboxRef mailbox) : mailbox_(std::move(mailbox)) {}

    static std::span<const MemberEntry<Stores>> Members() {
        static constexpr MemberEntry<Stores> members[] = {
            {"Count", [](Stores&, const Arguments&) -> Value { return stores; }},
            {"Item",
             [](Stores& self, const Arguments& arguments) -> Value {
                 return std::make_shared<Store>(self.mailbox_, arguments[0].ToLong() - 1);
             },
             nullptr, 1},
        };
        return members;
    }

  private:
    MailboxRef mailbox_;
};

class Session : public TabledObject<Session> {
  public:
    explicit Session(MailboxRef mailbox) : mailbox_(std::move(mailbox)) {}

    static std::span<const MemberEntry<Session>> Members() {
        constexpr auto allStores = [](Session& self, const Arguments&) -> Value {
            return std::make_shared<Stores>(self.mailbox_);
        };
        constexpr auto folder = [](Session& self, const Arguments& arguments) -> Value {
            return std::make_shared<Folder>(self.mailbox_, PlaceOf(*arguments[0].AsText()));
        };
        constexpr auto defaultFolder = [](Session& self, const Arguments&) -> Value {
            return std::make_shared<Folder>(self.mailbox_, Place{0, -1, -1});
        };
        constexpr auto store = [](Session& self, const Arguments&) -> Value {
            return std::make_shared<Store>(self.mailbox_, 0);
        };
        static constexpr MemberEntry<Session> members[] = {
            {"Stores", allStores},
            {"InfoStores", allStores},
            {"Folders", allStores},
            {"GetNamespace", [](Session& self, const Arguments&) -> Value { return self.shared_from_this(); }, nullptr,
             1},
            {"Logon", [](Session&, const Arguments&) { return Value(); }, nullptr, 2, "ShowDialog NewSession"},
            {"GetFolderFromID", folder, nullptr, 3},
            {"GetFolder", folder, nullptr, 2},
            {"GetStoreFromID", store, nullptr, 1},
            {"GetInfoStore", store},
            {"GetDefaultFolder", defaultFolder, nullptr, 1},
            {"Inbox", defaultFolder},
            {"Outbox", defaultFolder},
        };
        return members;
    }

  private:
    MailboxRef mailbox_;
};

}  // namespace

automation::ObjectRef MakeMemorySession(const MailboxShape& shape) {
    return std::make_shared<Session>(std::make_shared<const Mailbox>(Mailbox{shape}));
}

std::string_view DeepFolderPath() {
    return "Mailbox - User 5\\Folder 0\\Folder 1";
}

}  // namespace foldertree::bench
