// Mailboxes: their contents.
#include "conformance/Mailboxes.h"

#include <algorithm>
#include <cstdio>
#include <random>

#include "automation/Text.h"
#include "localstores/OpenStores.h"

namespace foldertree::testing {

namespace {

ModeFolder Typed(std::string name, std::string id, int32_t itemType, std::string containerClass,
                 std::vector<ModeFolder> children = {}) {
    ModeFolder folder = TypedFolder(std::move(name), std::move(id), itemType, std::move(containerClass));
    folder.children = std::move(children);
    return folder;
}

ModeFolder SearchFolder(ModeFolder folder) {
    folder.kind = 2;
    return folder;
}

ModeFolder ConfigurationFolder(ModeFolder folder) {
    folder.messageClass = "IPM.Microsoft.Design.CONFIGURATION";
    return folder;
}

ModeFolder ClasslessFolder(ModeFolder folder) {
    folder.containerClass = std::nullopt;
    return folder;
}

/// The item types that a mail client knows for the classes of the sample, sub-classes included.
int32_t ItemTypeOf(const std::optional<std::string>& containerClass) {
    constexpr std::pair<std::string_view, int32_t> types[] = {
        {"ipf.appointment", 1}, {"ipf.contact", 2}, {"ipf.task", 3}, {"ipf.journal", 4}, {"ipf.stickynote", 5}};
    const std::string folded = automation::FoldCase(containerClass.value_or(""));
    for (const auto& [text, type] : types)
        if (folded == text || folded.starts_with(std::string(text) + ".")) return type;
    return 0;
}

class RandomFolders {
  public:
    explicit RandomFolders(uint32_t seed) : random_(seed) {}

    uint32_t Below(uint32_t limit) { return static_cast<uint32_t>(random_() % limit); }
    bool OneIn(uint32_t many) { return Below(many) == 0; }

    std::vector<ModeFolder> Some(int levels) {
        std::vector<ModeFolder> folders;
        for (uint32_t count = Below(5); count > 0; --count) folders.push_back(One(levels));
        return folders;
    }

  private:
    ModeFolder One(int levels) {
        static const char* const classes[] = {"IPF.Note",    "ipm.appointment", "IPF.CONTACT", "IPF.Task",
                                              "IPF.Journal", "IPF.StickyNote",  "IPF.Imap",    "",
                                              "IPF.Note.Sub"};
        char id[8];
        std::snprintf(id, sizeof id, "00%04X", ++made_);
        ModeFolder folder = MailFolder("n" + std::to_string(Below(30) + 10), id);
        if (levels > 0) folder.children = Some(levels - 1);
        folder.containerClass = classes[OneIn(2) ? 0 : Below(std::size(classes))];
        if (OneIn(10)) folder.containerClass = std::nullopt;
        folder.itemType = static_cast<int32_t>(OneIn(2) ? 0 : Below(9)) - (OneIn(8) ? 1 : 0);
        if (OneIn(8)) folder.kind = 2;
        if (OneIn(8)) folder.messageClass = "ipm.Configuration";
        return folder;
    }

    std::mt19937 random_;
    unsigned made_ = 0;
};

std::vector<ModeFolder> Children(const localstores::Folder& folder, enuInfoStoreAccessMode mode) {
    std::vector<ModeFolder> children;
    for (const auto& child : folder.children) {
        if (mode == eISAccess_Outlook && child->type == localstores::FolderType::Search) continue;
        ModeFolder& described =
            children.emplace_back(MailFolder(child->name, localstores::Hex(child->id), Children(*child, mode)));
        described.kind = static_cast<int32_t>(child->type);
        described.containerClass = child->containerClass;
        described.itemType = ItemTypeOf(child->containerClass);
    }
    return children;
}

ModeStore Described(const localstores::Store& store, enuInfoStoreAccessMode mode) {
    ModeStore result;
    result.name = store.Name();
    result.id = localstores::Hex(mode == eISAccess_Outlook ? store.IpmRoot().id : store.Id());
    result.isDefault = store.IsDefault();
    result.provider = store.ProviderName();
    result.folders = Children(store.IpmRoot(), mode);
    return result;
}

void AddDescribed(std::vector<ModeAddressList>& lists, const localstores::AddressList& list,
                  enuInfoStoreAccessMode mode) {
    ModeAddressList described = AddressList(list.name, localstores::Hex(list.id));
    if (mode != eISAccess_CDO)
        for (const localstores::AddressList& child : list.children) AddDescribed(described.lists, child, mode);
    if (mode != eISAccess_CDO || list.hasEntries) lists.push_back(std::move(described));
    if (mode == eISAccess_CDO)
        for (const localstores::AddressList& child : list.children) AddDescribed(lists, child, mode);
}

}  // namespace

ModeMailbox ManyKinds() {
    ModeMailbox mailbox;
    mailbox.defaultFolders = {{3, "0006"}, {4, "0007"}, {5, "0008"}, {12, "0009"}, {16, "000A"}};
    mailbox.stores.push_back(
        {"Archive", "A1", false, {MailFolder("Zulu", "0061"), MailFolder("Alpha", "0062")}, "Personal folders"});
    mailbox.stores.push_back(
        {"Mailbox",
         "B2",
         true,
         {MailFolder("Inbox", "0001",
                     {MailFolder("Projects", "0011",
                                 {MailFolder("Müller & Söhne", "0021", {MailFolder("日本", "0031")}),
                                  MailFolder("Заказы", "0022")}),
                      MailFolder("Zoo", "0012")}),
          Typed("Calendar", "0002", 1, "IPF.Appointment"), Typed("People", "0003", 2, "IPF.Contact"),
          Typed("To do", "0004", 3, "ipf.TASK", {Typed("House", "0041", 3, "IPM.Task")}),
          Typed("Diary", "0005", 4, "IPF.Journal"), MailFolder("Deleted", "0006"), MailFolder("Outbox", "0007"),
          MailFolder("Sent", "0008"), Typed("Notes", "0009", 5, "IPF.StickyNote"), MailFolder("Drafts", "000A"),
          Typed("Imap", "000B", 0, "IPF.Imap", {MailFolder("Below Imap", "00B1")}),
          ClasslessFolder(MailFolder("Classless", "000C", {MailFolder("Below classless", "00C1")})),
          SearchFolder(MailFolder("Search", "000D", {MailFolder("Below search", "00D1")})),
          ConfigurationFolder(MailFolder("Settings", "000E", {MailFolder("Below settings", "00E1")})),
          Typed("Lists", "000F", 7, "IPF.Contact.Lists"), Typed("Untyped", "0010", -1, "IPF.Note")}});
    mailbox.stores.push_back({"Public", "C3", false, {}, "Server"});
    mailbox.addressLists = {
        AddressList("Global", "G1",
                    {AddressList("Europe", "G11", {AddressList("Ελλάδα", "G111")}), AddressList("Asia", "G12")}),
        AddressList("Contacts", "G2")};
    return mailbox;
}

ModeMailbox OrdinaryFolders() {
    ModeMailbox mailbox;
    mailbox.stores.push_back({"Mailbox",
                              "B2",
                              true,
                              {Typed("Calendar", "0002", 1, "IPF.Appointment"),
                               MailFolder("Inbox", "0001",
                                          {MailFolder("Projects", "0011",
                                                      {Typed("Alpha", "0021", 2, "IPF.Contact"),
                                                       MailFolder("Beta", "0022", {MailFolder("Gamma", "0031")})}),
                                           Typed("Tasks", "0012", 3, "IPF.Task")}),
                               Typed("People", "0003", 2, "IPF.Contact")}});
    mailbox.stores.push_back({"Archive", "A1", false, {Typed("Diary", "0061", 4, "IPF.Journal")}});
    mailbox.addressLists = {AddressList("Global", "G1", {AddressList("Europe", "G11")})};
    return mailbox;
}

ModeMailbox RandomMailbox(uint32_t seed) {
    RandomFolders random(seed);
    ModeMailbox mailbox;
    const uint32_t stores = random.Below(4);
    const uint32_t defaultStore = random.Below(std::max(stores, 1u));
    for (uint32_t i = 0; i < stores; ++i) {
        const std::string number = std::to_string(i);
        mailbox.stores.push_back({"Store " + number, "A" + number, i == defaultStore, random.Some(3),
                                  random.OneIn(2) ? "Provider " + number : ""});
    }
    for (const int32_t folder : {3, 4, 5, 12, 16}) {
        char id[8];
        std::snprintf(id, sizeof id, "00%04X", random.Below(40));
        mailbox.defaultFolders[folder] = id;
    }
    mailbox.inboxID = "000001";
    return mailbox;
}

ModeMailbox LocalSample(enuInfoStoreAccessMode mode) {
    ModeMailbox mailbox;
    for (const auto& store : localstores::OpenStores("sample")) {
        mailbox.stores.push_back(Described(*store, mode));
        for (const localstores::AddressList& list : store->AddressLists())
            AddDescribed(mailbox.addressLists, list, mode);
        if (!store->IsDefault()) continue;
        for (const int32_t number : {3, 4, 5, 6, 12, 16}) {
            const localstores::Folder* folder = store->Default(static_cast<localstores::DefaultFolder>(number));
            if (folder != nullptr) mailbox.defaultFolders[number] = localstores::Hex(folder->id);
        }
    }
    mailbox.inboxID = mailbox.defaultFolders[6];
    return mailbox;
}

}  // namespace foldertree::testing
