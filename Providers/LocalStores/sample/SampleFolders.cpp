// SampleFolders: the tables.
#include "sample/SampleFolders.h"

namespace localstores {
namespace {

constexpr auto generic = FolderType::Generic;
constexpr auto search = FolderType::Search;

constexpr const char* mail = "IPF.Note";
constexpr const char* contact = "IPF.Contact";
constexpr const char* appointment = "IPF.Appointment";
constexpr const char* journal = "IPF.Journal";
constexpr const char* note = "IPF.StickyNote";
constexpr const char* task = "IPF.Task";
constexpr const char* noClass = nullptr;

// clang-format off
const SampleFolder publicFolders[] = {
    {1, "Announcements",                    mail},
    {2, "Archive 2024",                     mail},
    {2, "Archive 2025",                     mail},
    {1, "Company calendar",                 appointment},
    {1, "Customers",                        contact},
    {2, "Europe",                           contact},
    {3, "Deutschland",                      contact},
    {3, "España",                           contact},
    {3, "Ελλάδα",                           contact},
    {3, "Україна",                          contact},
    {2, "Asia",                             contact},
    {3, "日本",                             contact},
    {3, "대한민국",                         contact},
    {3, "ประเทศไทย",                        contact},
    {1, "Forms in use",                     "IPF.Configuration"},
    {1, "Holiday planning",                 appointment},
    {1, "Support requests",                 mail},
};

const SampleFolder mailbox[] = {
    {1, "Inbox",                            mail,          generic, DefaultFolder::Inbox},
    {2, "Customers",                        mail},
    {3, "Müller & Söhne GmbH",              mail},
    {4, "Orders",                           mail},
    {5, "2025",                             mail},
    {6, "Quarter 4",                        mail},
    {6, "Quarter 3",                        mail},
    {5, "2024",                             mail},
    {4, "Complaints",                       mail},
    {3, "Société Générale d'Été",           mail},
    {3, "ООО «Ромашка»",                    mail},
    {3, "株式会社サンプル",                 mail},
    {2, "Newsletters 📰",                   mail},
    {2, "To do: \"urgent\"",                mail},
    {2, "C:\\Reports\\Weekly",              mail},
    {1, "Drafts",                           mail,          generic, DefaultFolder::Drafts},
    {1, "Outbox",                           mail,          generic, DefaultFolder::Outbox},
    {1, "Sent Items",                       mail,          generic, DefaultFolder::SentMail},
    {2, "Private",                          mail},
    {1, "Deleted Items",                    mail,          generic, DefaultFolder::DeletedItems},
    {2, "Old project",                      mail},
    {1, "Calendar",                         appointment,   generic, DefaultFolder::Calendar},
    {2, "Birthdays 🎂",                     appointment},
    {2, "תוכניות",                          appointment},
    {1, "Contacts",                         contact,       generic, DefaultFolder::Contacts},
    {2, "Family 👨‍👩‍👧‍👦",                        contact},
    {2, "Quick contacts",                   "IPF.Contact.MOC.QuickContacts"},
    {1, "Journal",                          journal,       generic, DefaultFolder::Journal},
    {2, "Telephone calls",                  journal},
    {1, "Notes",                            note,          generic, DefaultFolder::Notes},
    {1, "Tasks",                            task,          generic, DefaultFolder::Tasks},
    {2, "Household",                        task},
    {2, "Projects",                         task},
    {3, "Заказы",                           task},
    {1, "Junk E-mail",                      mail,          generic, DefaultFolder::Junk},
    {1, "Projects",                         noClass},
    {2, "Garden house",                     noClass},
    {3, "Plans",                            mail},
    {3, "Appointments with the builder",    appointment},
    {2, "مشروع جديد",                       mail},
    {2, "प्रोजेक्ट",                             mail},
    {1, "Mail from the old server",         "IPF.Imap"},
    {2, "INBOX",                            "IPF.Imap"},
    {1, "Start page",                       "IPF.Note.OutlookHomepage"},
    {1, "Client settings",                  "IPF.Configuration"},
    {1, "Class of no characters",           ""},
    {1, "Unread mail",                      mail,          search},
    {1, "For follow-up",                    mail,          search},
    {1, "Conversations in capitals",        "ipf.NOTE"},
};

const SampleFolder archive[] = {
    {1, "Deleted Items",                    mail,          generic, DefaultFolder::DeletedItems},
    {1, "Inbox",                            mail,          generic, DefaultFolder::Inbox},
    {2, "2019",                             mail},
    {2, "2020",                             mail},
    {2, "2021",                             mail},
    {1, "Calendar",                         appointment,   generic, DefaultFolder::Calendar},
    {1, "Diary",                            journal},
    {1, "Recipes",                          note},
    {2, "Soups",                            note},
    {2, "Cakes 🍰",                          note},
    {1, "Old tasks",                        task},
    {1, "Search by sender",                 mail,          search},
};

const SampleList addressLists[] = {
    {1, "All Address Lists"},
    {2, "All Contacts"},
    {2, "All Groups"},
    {2, "All Rooms 🏢"},
    {2, "Branch offices"},
    {3, "Deutschland – Köln"},
    {3, "Ελλάδα"},
    {3, "Україна"},
    {3, "日本"},
    {4, "東京"},
    {4, "大阪"},
    {3, "ישראל"},
    {1, "Global Address List",              AddressListRole::Global},
    {1, "Personal address books"},
    {2, "Contacts",                         AddressListRole::Personal},
    {2, "Family 👨‍👩‍👧‍👦"},
    {2, "\"Friends\" \\ neighbours"},
};
// clang-format on

const SampleStore stores[] = {
    {"Public Folders", "Sample server", StoreKind::PublicFolders, false, publicFolders},
    {"Mailbox - Alex Example", "Sample server", StoreKind::PrimaryExchange, true, mailbox},
    {"Archive \"before 2022\"", "", StoreKind::PstUnicode, false, archive},
};

}  // namespace

std::span<const SampleStore> SampleStores() {
    return stores;
}

std::span<const SampleList> SampleAddressLists() {
    return addressLists;
}

}  // namespace localstores
