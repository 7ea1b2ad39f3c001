// OutlookTest: local mail as the object model of a mail client shows it.
#include <gmock/gmock.h>

#include <functional>

#include "ModelTest.h"
#include "TestFiles.h"
#include "automation/Error.h"
#include "localstores/OutlookApplication.h"
#include "localstores/RdoSession.h"

namespace localstores {
namespace {

using automation::ObjectRef;
using automation::Value;
using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;
namespace errors = automation::errors;

class Outlook : public ModelTest {
  protected:
    ObjectRef application_ = MakeOutlookApplication();
    ObjectRef namespace_ = application_->Get("GetNamespace", "MAPI").RequireObject();

    ObjectRef Tops() { return Object(namespace_, "Folders"); }
    ObjectRef Default(int number) { return namespace_->Get("GetDefaultFolder", number).RequireObject(); }
    ObjectRef Mailbox() { return Item(Tops(), 2); }

    void ForEachFolder(const std::function<void(const ObjectRef& folder)>& visit) {
        const std::function<void(const ObjectRef&)> walk = [&](const ObjectRef& folders) {
            const int32_t count = folders->Get("Count").ToLong();
            for (int32_t i = 1; i <= count; ++i) {
                visit(Item(folders, i));
                walk(Object(Item(folders, i), "Folders"));
            }
        };
        walk(Tops());
    }
};

TEST_F(Outlook, ObjectsHaveTheMembersOfTheirKinds) {
    for (const char* member :
         {"GetNamespace", "Session", "Application", "Parent", "Name", "Version", "Class", "Open", "getNAMESPACE", ""})
        EXPECT_TRUE(application_->HasMember(member)) << member;
    for (const char* member : {"Folders", "GetFolderFromID", "GetDefaultFolder", "AddressLists", "Logon", "Logoff",
                               "Type", "Application", "Session", "Parent", "Class"})
        EXPECT_TRUE(namespace_->HasMember(member)) << member;
    for (const char* member : {"Name", "EntryID", "StoreID", "FolderPath", "DefaultItemType", "DefaultMessageClass",
                               "Folders", "Parent", "Application", "Session", "Class", ""})
        EXPECT_TRUE(Mailbox()->HasMember(member)) << member;
    for (const char* member : {"Count", "Item", "GetFirst", "GetNext", "GetLast", "GetPrevious", ""})
        EXPECT_TRUE(Tops()->HasMember(member)) << member;
    for (const char* member : {"MAPITable", "Fields", "Stores", "ID"})
        EXPECT_FALSE(Mailbox()->HasMember(member) || Tops()->HasMember(member) || namespace_->HasMember(member))
            << member;
}

TEST_F(Outlook, MembersHaveTheirTypes) {
    const ObjectRef inbox = Default(6);
    for (const char* member : {"Name", "EntryID", "StoreID", "FolderPath", "DefaultMessageClass"})
        EXPECT_EQ(inbox->Get(member).TypeName(), "String") << member;
    EXPECT_EQ(inbox->Get("DefaultItemType").TypeName(), "Long");
    EXPECT_EQ(Tops()->Get("Count").TypeName(), "Long");
}

TEST_F(Outlook, ClassesAreNumbered) {
    EXPECT_EQ(application_->Get("Class").ToLong(), 0);
    EXPECT_EQ(namespace_->Get("Class").ToLong(), 1);
    EXPECT_EQ(Mailbox()->Get("Class").ToLong(), 2);
    EXPECT_EQ(Tops()->Get("Class").ToLong(), 15);
}

TEST_F(Outlook, OnlyTheMapiNamespaceExists) {
    EXPECT_EQ(Text(application_->Get("GetNamespace", "mapi").RequireObject(), "Type"), "MAPI");
    EXPECT_EQ(ErrorNumberOf([&] { application_->Get("GetNamespace", "IMAP"); }), errors::invalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { application_->Get("GetNamespace"); }), errors::badParamCount);
}

TEST_F(Outlook, ShowsTheSampleMailboxWhenNothingWasOpened) {
    EXPECT_THAT(NamesIn(Tops()), ElementsAre("Public Folders", "Mailbox - Alex Example", "Archive \"before 2022\""));
}

TEST_F(Outlook, OpensAnotherPath) {
    const TemporaryDirectory directory;
    MakeMaildir(directory.Path());
    const ObjectRef application = MakeOutlookApplication();
    const ObjectRef top = application->Get("Open", directory.Utf8()).RequireObject();
    EXPECT_EQ(Text(top, "Name"), directory.Path().filename().string());
    const ObjectRef tops = Object(Object(application, "Session"), "Folders");
    EXPECT_EQ(tops->Get("Count").ToLong(), 1);
    EXPECT_THAT(NamesIn(Object(Item(tops, 1), "Folders")), ElementsAre("INBOX"));
}

TEST_F(Outlook, PathThatCannotBeOpenedChangesNothing) {
    EXPECT_EQ(ErrorNumberOf([&] { application_->Get("Open", "no such place"); }), errors::mapiNotFound);
    EXPECT_EQ(Tops()->Get("Count").ToLong(), 3);
}

TEST_F(Outlook, ShowsTheStoresOfTheSessionInUse) {
    const TemporaryDirectory directory;
    MakeMaildir(directory.Path());
    EXPECT_EQ(Tops()->Get("Count").ToLong(), 3) << "the sample, while no session is in use";
    const ObjectRef session = MakeRdoSession();
    session->Get("Open", directory.Utf8());
    EXPECT_EQ(Tops()->Get("Count").ToLong(), 1);
    const ObjectRef other = MakeOutlookApplication();
    other->Get("Open", "sample");
    EXPECT_EQ(Object(Object(other, "Session"), "Folders")->Get("Count").ToLong(), 3) << "was told what to open";
}

TEST_F(Outlook, TopFolderHasTheNameOfItsStoreAndTheIdentifierOfItsFolder) {
    EXPECT_EQ(Text(Mailbox(), "Name"), "Mailbox - Alex Example");
    EXPECT_EQ(Text(Mailbox(), "FolderPath"), "\\\\Mailbox - Alex Example");
    EXPECT_NE(Text(Mailbox(), "EntryID"), Text(Mailbox(), "StoreID"));
    EXPECT_EQ(Text(namespace_->Get("GetFolderFromID", Text(Mailbox(), "EntryID")).RequireObject(), "Name"),
              "Mailbox - Alex Example");
}

TEST_F(Outlook, FoldersAreReachedByPositionNameCursorAndEnumeration) {
    const ObjectRef folders = Object(Mailbox(), "Folders");
    std::vector<std::string> names;
    for (int32_t i = 1; i <= folders->Get("Count").ToLong(); ++i) names.push_back(Text(Item(folders, i), "Name"));
    EXPECT_EQ(NamesIn(folders), names);
    EXPECT_EQ(NamesByCursor(folders), names);
    EXPECT_EQ(Text(Item(folders, "DRAFTS"), "Name"), "Drafts");
    EXPECT_EQ(Text(folders->Get("", 1).RequireObject(), "Name"), "Inbox");
    EXPECT_EQ(ErrorNumberOf([&] { folders->Get("Item", 0); }), 0x8002000Bu);
    EXPECT_EQ(ErrorNumberOf([&] { folders->Get("Item", "nobody's"); }), errors::mapiNotFound);
}

TEST_F(Outlook, SearchFoldersAreNotAmongFoldersButCanBeFound) {
    const ObjectRef rdo = MakeRdoSession();
    const ObjectRef store = rdo->Get("Open", "sample").RequireObject();
    const ObjectRef all = Object(Object(store, "IPMRootFolder"), "Folders");
    EXPECT_THAT(NamesIn(all), IsSupersetOf({"Unread mail", "For follow-up"}));
    EXPECT_THAT(NamesIn(Object(Mailbox(), "Folders")), Not(Contains("Unread mail")));
    const std::string id = Text(Item(all, "Unread mail"), "EntryID");
    EXPECT_EQ(Text(namespace_->Get("GetFolderFromID", id).RequireObject(), "Name"), "Unread mail");
}

TEST_F(Outlook, EveryFolderIsFoundByItsIdentifierWithAndWithoutItsStore) {
    int count = 0;
    ForEachFolder([&](const ObjectRef& folder) {
        const std::string id = Text(folder, "EntryID");
        const std::string storeId = Text(folder, "StoreID");
        EXPECT_EQ(Text(namespace_->Get("GetFolderFromID", id).RequireObject(), "FolderPath"),
                  Text(folder, "FolderPath"));
        EXPECT_EQ(Text(namespace_->Get("GetFolderFromID", id, storeId).RequireObject(), "EntryID"), id);
        ++count;
    });
    EXPECT_GT(count, 70);
}

TEST_F(Outlook, IdentifiersThatFitNothingAreRefused) {
    const std::string inbox = Text(Default(6), "EntryID");
    const std::string archive = Text(Item(Tops(), 3), "StoreID");
    EXPECT_EQ(ErrorNumberOf([&] { namespace_->Get("GetFolderFromID", inbox, archive); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { namespace_->Get("GetFolderFromID", inbox, inbox); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { namespace_->Get("GetFolderFromID", "00"); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { namespace_->Get("GetFolderFromID", "no id"); }), 0x80040107u);
}

TEST_F(Outlook, DefaultFoldersHaveTheirNumbers) {
    const std::pair<int, const char*> expected[] = {
        {3, "Deleted Items"}, {4, "Outbox"},   {5, "Sent Items"}, {6, "Inbox"},  {9, "Calendar"},
        {10, "Contacts"},     {11, "Journal"}, {12, "Notes"},     {13, "Tasks"}, {16, "Drafts"}};
    for (const auto& [number, name] : expected) EXPECT_EQ(Text(Default(number), "Name"), name);
    EXPECT_EQ(ErrorNumberOf([&] { Default(99); }), errors::mapiNotFound);
}

TEST_F(Outlook, ItemTypesFollowTheFoldersClass) {
    const std::pair<int, int> expected[] = {{6, 0}, {9, 1}, {10, 2}, {13, 3}, {11, 4}, {12, 5}};
    for (const auto& [folder, type] : expected) EXPECT_EQ(Default(folder)->Get("DefaultItemType").ToLong(), type);
    EXPECT_EQ(Mailbox()->Get("DefaultItemType").ToLong(), 0);
    EXPECT_EQ(Text(Default(10), "DefaultMessageClass"), "IPM.Contact");
}

TEST_F(Outlook, ParentsLeadUpToTheNamespace) {
    const ObjectRef orders = Item(Object(Item(Object(Default(6), "Folders"), "Customers"), "Folders"), 1);
    EXPECT_EQ(Text(Object(orders, "Parent"), "Name"), "Customers");
    EXPECT_EQ(Text(Object(Object(Object(orders, "Parent"), "Parent"), "Parent"), "Name"), "Mailbox - Alex Example");
    EXPECT_EQ(Text(Object(Mailbox(), "Parent"), "Type"), "MAPI");
    EXPECT_EQ(Object(orders, "Application"), application_);
    EXPECT_EQ(Object(Object(namespace_, "Parent"), "Application"), application_);
}

TEST_F(Outlook, AddressListsAreAllInOneCollection) {
    const ObjectRef lists = Object(namespace_, "AddressLists");
    EXPECT_EQ(lists->Get("Count").ToLong(), 17);
    EXPECT_THAT(NamesIn(lists), IsSupersetOf({"All Address Lists", "東京", "Global Address List"}));
    const ObjectRef global = Item(lists, "global address list");
    EXPECT_EQ(global->Get("Index").ToLong(), 13);
    EXPECT_EQ(Text(global, "ID").size(), 56u);
    EXPECT_TRUE(global->Get("IsReadOnly").ToBoolean());
}

TEST_F(Outlook, NothingCanBeWritten) {
    EXPECT_EQ(ErrorNumberOf([&] { Mailbox()->Put("Name", "x"); }), 0x80070005u);
    EXPECT_EQ(ErrorNumberOf([&] { Mailbox()->Put("EntryID", "x"); }), errors::memberNotFound);
}

TEST_F(Outlook, ObjectsKeepWhatTheyNeedAlive) {
    const ObjectRef folders = Object(Mailbox(), "Folders");
    const auto walk = automation::Collection(folders).Walk();
    application_ = namespace_ = nullptr;
    Value item;
    ASSERT_TRUE(walk->Next(item));
    EXPECT_EQ(Text(item.RequireObject(), "FolderPath"), "\\\\Mailbox - Alex Example\\Inbox");
}

}  // namespace
}  // namespace localstores
