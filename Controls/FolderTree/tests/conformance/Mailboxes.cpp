// Mailboxes: their contents.
#include "conformance/Mailboxes.h"

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

ModeFolder Described(const localstores::Folder& folder) {
    ModeFolder result = MailFolder(folder.name, localstores::Hex(folder.id));
    result.kind = static_cast<int32_t>(folder.type);
    result.containerClass = folder.containerClass;
    result.itemType = ItemTypeOf(folder.containerClass);
    for (const auto& child : folder.children) result.children.push_back(Described(*child));
    return result;
}

ModeStore Described(const localstores::Store& store) {
    ModeStore result;
    result.name = store.Name();
    result.id = localstores::Hex(store.Id());
    result.isDefault = store.IsDefault();
    result.provider = store.ProviderName();
    result.folders = Described(store.IpmRoot()).children;
    return result;
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

ModeMailbox LocalSample() {
    ModeMailbox mailbox;
    for (const auto& store : localstores::OpenStores("sample")) {
        mailbox.stores.push_back(Described(*store));
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
