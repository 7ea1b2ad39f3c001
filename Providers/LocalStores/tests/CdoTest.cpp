// CdoTest: local mail as a CDO session shows it.
#include <gmock/gmock.h>

#include <array>
#include <functional>

#include "ModelTest.h"
#include "TestFiles.h"
#include "automation/Error.h"
#include "localstores/CdoSession.h"
#include "localstores/RdoSession.h"

namespace localstores {
namespace {

using automation::NamedArgument;
using automation::ObjectRef;
using automation::Value;
using testing::ElementsAre;
using testing::HasSubstr;
namespace errors = automation::errors;

constexpr uint32_t notInitialized = 0x80040605;

void LogOn(const ObjectRef& session, bool newSession) {
    const std::array<NamedArgument, 2> arguments{{{"ShowDialog", false}, {"NewSession", newSession}}};
    session->CallNamed("Logon", arguments);
}

class Cdo : public ModelTest {
  protected:
    Cdo() { LogOn(session_, false); }

    ObjectRef Stores() { return Object(session_, "InfoStores"); }
    ObjectRef Mailbox() { return session_->Get("GetInfoStore").RequireObject(); }
    ObjectRef TopFolders() { return Object(Object(Mailbox(), "RootFolder"), "Folders"); }
    ObjectRef Inbox() { return Object(session_, "Inbox"); }
    static Value Field(const ObjectRef& object, int32_t tag) {
        return object->Get("Fields", tag).RequireObject()->Get("Value");
    }

    void ForEachFolder(const std::function<void(const ObjectRef& folder)>& visit) {
        const std::function<void(const ObjectRef&)> walk = [&](const ObjectRef& folders) {
            const auto items = automation::Collection(folders).Walk();
            for (Value item; items->Next(item);) {
                visit(item.RequireObject());
                walk(Object(item.RequireObject(), "Folders"));
            }
        };
        const auto stores = automation::Collection(Stores()).Walk();
        for (Value store; stores->Next(store);) walk(Object(Object(store.RequireObject(), "RootFolder"), "Folders"));
    }

    ObjectRef session_ = MakeCdoSession();
};

TEST_F(Cdo, ObjectsHaveTheMembersOfTheirKinds) {
    for (const char* member :
         {"Logon", "Logoff", "InfoStores", "GetInfoStore", "GetFolder", "GetDefaultFolder", "Inbox", "Outbox",
          "AddressLists", "GetAddressList", "CompareIDs", "SetLocaleIDs", "Name", "Version", "Class", "Open", ""})
        EXPECT_TRUE(session_->HasMember(member)) << member;
    for (const char* member : {"Name", "ID", "ProviderName", "RootFolder", "Fields", "Session", "Class", ""})
        EXPECT_TRUE(Mailbox()->HasMember(member)) << member;
    for (const char* member : {"Name", "ID", "StoreID", "FolderID", "Folders", "Fields", "Parent", "Session", ""})
        EXPECT_TRUE(Inbox()->HasMember(member)) << member;
    for (const char* member : {"Count", "Item", "GetFirst", "GetNext", "GetLast", "GetPrevious", ""})
        EXPECT_TRUE(TopFolders()->HasMember(member)) << member;
    for (const char* member : {"EntryID", "DefaultItemType", "FolderKind", "Stores"})
        EXPECT_FALSE(Inbox()->HasMember(member) || Mailbox()->HasMember(member) || session_->HasMember(member))
            << member;
}

TEST_F(Cdo, ClassesAreNumbered) {
    EXPECT_EQ(session_->Get("Class").ToLong(), 0);
    EXPECT_EQ(Stores()->Get("Class").ToLong(), 14);
    EXPECT_EQ(Mailbox()->Get("Class").ToLong(), 1);
    EXPECT_EQ(TopFolders()->Get("Class").ToLong(), 15);
    EXPECT_EQ(Inbox()->Get("Class").ToLong(), 2);
    EXPECT_EQ(Object(Inbox(), "Fields")->Get("Class").ToLong(), 19);
}

TEST_F(Cdo, BeforeLogonNothingIsThere) {
    const ObjectRef session = MakeCdoSession();
    for (const char* member : {"InfoStores", "GetInfoStore", "Inbox", "Outbox", "AddressLists"})
        EXPECT_EQ(ErrorNumberOf([&] { session->Get(member); }), notInitialized) << member;
    EXPECT_EQ(ErrorNumberOf([&] { session->Get("GetFolder", "00", ""); }), notInitialized);
    EXPECT_EQ(ErrorNumberOf([&] { session->Get("GetDefaultFolder", 1); }), notInitialized);
    session->Get("SetLocaleIDs", 1033, 1252);
}

TEST_F(Cdo, AfterLogoffNothingIsThereUntilTheNextLogon) {
    session_->Get("Logoff");
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("InfoStores"); }), notInitialized);
    LogOn(session_, false);
    EXPECT_EQ(Stores()->Get("Count").ToLong(), 3);
}

TEST_F(Cdo, LogonTakesItsArgumentsByPositionAndByName) {
    session_->Get("Logon");
    session_->Get("Logon", "", "", false, false, 0, true, "");
    const std::array<NamedArgument, 1> unknown{{{"Silent", true}}};
    EXPECT_EQ(ErrorNumberOf([&] { session_->CallNamed("Logon", unknown); }), errors::unknownName);
}

TEST_F(Cdo, ShowsTheSampleMailboxWhenNothingWasOpened) {
    EXPECT_THAT(NamesIn(Stores()), ElementsAre("Public Folders", "Mailbox - Alex Example", "Archive \"before 2022\""));
}

TEST_F(Cdo, OpensAnotherPath) {
    const TemporaryDirectory directory;
    MakeMaildir(directory.Path());
    const ObjectRef session = MakeCdoSession();
    EXPECT_EQ(Text(session->Get("Open", directory.Utf8()).RequireObject(), "ProviderName"), "Maildir");
    LogOn(session, true);
    EXPECT_EQ(Object(session, "InfoStores")->Get("Count").ToLong(), 1);
}

TEST_F(Cdo, SharesTheSessionInUseUnlessItAsksForANewOne) {
    const TemporaryDirectory directory;
    MakeMaildir(directory.Path());
    session_ = nullptr;
    const ObjectRef rdo = MakeRdoSession();
    rdo->Get("Open", directory.Utf8());
    const ObjectRef sharing = MakeCdoSession();
    LogOn(sharing, false);
    EXPECT_EQ(Object(sharing, "InfoStores")->Get("Count").ToLong(), 1);
    const ObjectRef alone = MakeCdoSession();
    LogOn(alone, true);
    EXPECT_EQ(Object(alone, "InfoStores")->Get("Count").ToLong(), 3);
    const ObjectRef plain = MakeCdoSession();
    plain->Get("Logon");
    EXPECT_EQ(Object(plain, "InfoStores")->Get("Count").ToLong(), 3) << "a new session is what is asked for by default";
}

TEST_F(Cdo, LeavesTheSampleAsSoonAsASessionIsInUse) {
    EXPECT_EQ(Stores()->Get("Count").ToLong(), 3);
    const TemporaryDirectory directory;
    MakeMaildir(directory.Path());
    const ObjectRef rdo = MakeRdoSession();
    rdo->Get("Open", directory.Utf8());
    EXPECT_EQ(Stores()->Get("Count").ToLong(), 1);
}

TEST_F(Cdo, TheSampleThatNobodyAskedForIsNotInUse) {
    EXPECT_EQ(Stores()->Get("Count").ToLong(), 3);
    const TemporaryDirectory directory;
    MakeMaildir(directory.Path());
    const ObjectRef rdo = MakeRdoSession();
    rdo->Get("Open", directory.Utf8());
    const ObjectRef sharing = MakeCdoSession();
    LogOn(sharing, false);
    EXPECT_EQ(Object(sharing, "InfoStores")->Get("Count").ToLong(), 1);
}

TEST_F(Cdo, PublicFoldersComeFirst) {
    const TemporaryDirectory directory;
    MakeMaildir(directory.Path());
    const ObjectRef session = MakeCdoSession();
    session->Get("Open", directory.Utf8());
    session->Get("Open", "sample");
    LogOn(session, false);
    EXPECT_EQ(Text(session->Get("InfoStores", 1).RequireObject(), "Name"), "Public Folders");
    EXPECT_EQ(Text(session->Get("InfoStores", 2).RequireObject(), "ProviderName"), "Maildir");
}

TEST_F(Cdo, CollectionsTakeAnIndexAsPropertiesToo) {
    EXPECT_EQ(Text(session_->Get("InfoStores", 3).RequireObject(), "Name"), "Archive \"before 2022\"");
    EXPECT_EQ(Text(session_->Get("InfoStores", "public folders").RequireObject(), "Name"), "Public Folders");
    EXPECT_EQ(Text(Inbox()->Get("Folders", 1).RequireObject(), "Name"), "Customers");
    EXPECT_EQ(Text(session_->Get("AddressLists", 1).RequireObject(), "Name"), "All Contacts");
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("InfoStores", 4); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("InfoStores", 0); }), errors::mapiNotFound);
}

TEST_F(Cdo, StoresAreGotByIdentifierAndTheDefaultOneWithout) {
    EXPECT_EQ(Text(Mailbox(), "Name"), "Mailbox - Alex Example");
    const ObjectRef archive = Item(Stores(), 3);
    EXPECT_EQ(Text(session_->Get("GetInfoStore", Text(archive, "ID")).RequireObject(), "Name"), Text(archive, "Name"));
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetInfoStore", "0011"); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetInfoStore", "no id"); }), 0x80040107u);
}

TEST_F(Cdo, EveryFolderIsFoundByItsIdentifierAndItsStore) {
    int count = 0;
    ForEachFolder([&](const ObjectRef& folder) {
        const ObjectRef found = session_->Get("GetFolder", Text(folder, "ID"), Text(folder, "StoreID")).RequireObject();
        EXPECT_EQ(Text(found, "Name"), Text(folder, "Name"));
        ++count;
    });
    EXPECT_GT(count, 70);
}

TEST_F(Cdo, WithoutAStoreFoldersAreLookedForInTheDefaultOne) {
    const std::string own = Text(Inbox(), "ID");
    EXPECT_EQ(Text(session_->Get("GetFolder", own).RequireObject(), "Name"), "Inbox");
    EXPECT_EQ(Text(session_->Get("GetFolder", "EF" + own.substr(2), "").RequireObject(), "ID"), own);
    const ObjectRef foreign = Object(Item(Stores(), 3), "RootFolder");
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetFolder", Text(foreign, "ID"), ""); }), errors::mapiNotFound);
    EXPECT_THAT(FailureOf([&] { session_->Get("GetFolder", "00", ""); }), HasSubstr("MAPI_E_NOT_FOUND(8004010F)"));
}

TEST_F(Cdo, DefaultFoldersHaveTheirOwnNumbers) {
    const char* expected[] = {"Calendar", "Inbox",   "Outbox", "Sent Items", "Deleted Items",
                              "Contacts", "Journal", "Notes",  "Tasks"};
    for (int32_t i = 0; i < 9; ++i)
        EXPECT_EQ(Text(session_->Get("GetDefaultFolder", i).RequireObject(), "Name"), expected[i]);
    for (const int32_t number : {-1, 9, 2147483647})
        EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetDefaultFolder", number); }), errors::mapiNotFound);
    EXPECT_EQ(Text(Object(session_, "Outbox"), "Name"), "Outbox");
}

TEST_F(Cdo, StoreWithoutAnInboxHasNone) {
    const TemporaryDirectory directory;
    MakeMaildir(directory.Path());
    const ObjectRef session = MakeCdoSession();
    session->Get("Open", directory.Utf8());
    LogOn(session, false);
    EXPECT_EQ(Text(Object(session, "Inbox"), "Name"), "INBOX");
    EXPECT_EQ(ErrorNumberOf([&] { session->Get("Outbox"); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { session->Get("GetDefaultFolder", 7); }), errors::mapiNotFound);
}

TEST_F(Cdo, BinaryFieldsAreHexadecimalText) {
    EXPECT_EQ(Field(Inbox(), 0x0FFF0102).ToText(), Text(Inbox(), "ID"));
    EXPECT_EQ(Field(Inbox(), 0x0FFF0102).TypeName(), "String");
    EXPECT_EQ(Field(Mailbox(), 0x0FFB0102).ToText(), Text(Mailbox(), "ID"));
}

TEST_F(Cdo, InboxKnowsTheDrafts) {
    const std::string id = Field(Inbox(), 0x36D70102).ToText();
    EXPECT_EQ(Text(session_->Get("GetFolder", id).RequireObject(), "Name"), "Drafts");
    EXPECT_EQ(ErrorNumberOf([&] { Field(Object(session_, "Outbox"), 0x36D70102); }), errors::mapiNotFound);
}

TEST_F(Cdo, FieldsHaveTheTypesOfTheirTags) {
    EXPECT_EQ(Field(Inbox(), 0x3613001E).ToText(), "IPF.Note");
    EXPECT_EQ(Field(Inbox(), 0x3613001F).ToText(), "IPF.Note");
    EXPECT_EQ(Field(Inbox(), 0x36010003).TypeName(), "Long");
    EXPECT_EQ(Field(Inbox(), 0x360A000B).TypeName(), "Boolean");
    EXPECT_TRUE(Field(Mailbox(), 0x3400000B).ToBoolean());
    EXPECT_FALSE(Field(Item(Stores(), 1), 0x3400000B).ToBoolean());
    EXPECT_EQ(Field(Item(Stores(), 3), 0x3006001E).ToText(), "");
    const std::pair<int32_t, int32_t> types[] = {{0x3001001E, 8}, {0x36010003, 3}, {0x360A000B, 11}, {0x0FFF0102, 65}};
    for (const auto& [tag, type] : types) {
        const ObjectRef field = Inbox()->Get("Fields", tag).RequireObject();
        EXPECT_EQ(field->Get("Type").ToLong(), type);
        EXPECT_EQ(field->Get("ID").ToLong(), tag);
        EXPECT_EQ(Text(field, "Name"), "");
    }
}

TEST_F(Cdo, FieldThatIsNotThereIsAnError) {
    const ObjectRef plain = Item(TopFolders(), "Projects");
    EXPECT_EQ(ErrorNumberOf([&] { Field(plain, 0x3613001E); }), errors::mapiNotFound) << "a folder without a class";
    EXPECT_EQ(ErrorNumberOf([&] { Field(Inbox(), 0x36010102); }), errors::mapiNotFound) << "another type";
    EXPECT_EQ(ErrorNumberOf([&] { Field(Inbox(), 0x66700102); }), errors::mapiNotFound) << "of table rows only";
    EXPECT_EQ(ErrorNumberOf([&] { Field(Inbox(), static_cast<int32_t>(0x8005001E)); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { Inbox()->Get("Fields", "Keywords"); }), errors::mapiNotFound);
}

TEST_F(Cdo, FieldsAreCountedAndReachedByPosition) {
    const ObjectRef fields = Object(Mailbox(), "Fields");
    const int32_t count = fields->Get("Count").ToLong();
    EXPECT_EQ(count, 10);
    const auto walk = automation::Collection(fields).Walk();
    for (int32_t i = 1; i <= count; ++i) {
        Value field;
        ASSERT_TRUE(walk->Next(field));
        EXPECT_EQ(field.RequireObject()->Get("ID").ToLong(), Item(fields, i)->Get("ID").ToLong());
        EXPECT_EQ(Item(fields, i)->Get("Index").ToLong(), i);
        EXPECT_EQ(Item(fields, Item(fields, i)->Get("ID"))->Get("Value").ToText(), Item(fields, i)->Get("").ToText());
    }
    EXPECT_EQ(ErrorNumberOf([&] { Item(fields, count + 1); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { Item(fields, 65535); }), errors::mapiNotFound);
}

TEST_F(Cdo, FoldersAreReachedByEnumerationCursorPositionAndName) {
    const ObjectRef folders = TopFolders();
    std::vector<std::string> names;
    for (int32_t i = 1; i <= folders->Get("Count").ToLong(); ++i) names.push_back(Text(Item(folders, i), "Name"));
    EXPECT_EQ(names.size(), 19u) << "searches are among them";
    EXPECT_EQ(NamesIn(folders), names);
    EXPECT_EQ(NamesByCursor(folders), names);
    EXPECT_EQ(Text(Item(folders, "DRAFTS"), "Name"), "Drafts");
}

TEST_F(Cdo, PositionsGoForwardOnlyUntilTheNextGetFirst) {
    const ObjectRef folders = TopFolders();
    Item(folders, 3);
    EXPECT_EQ(Text(Item(folders, 3), "Name"), "Outbox");
    EXPECT_EQ(ErrorNumberOf([&] { Item(folders, 2); }), errors::mapiNotFound);
    folders->Get("GetFirst");
    EXPECT_EQ(Text(Item(folders, 2), "Name"), "Drafts");
    EXPECT_EQ(Text(Item(TopFolders(), 1), "Name"), "Inbox") << "each collection has its own place";
}

TEST_F(Cdo, ServersCanBeUnableToCountFolders) {
    const ObjectRef session = MakeCdoSession();
    session->Get("Open", "sample?count=unknown");
    LogOn(session, false);
    const ObjectRef folders = Object(Object(session, "Inbox"), "Folders");
    EXPECT_EQ(folders->Get("Count").ToLong(), 0x7FFFFFFF);
    EXPECT_EQ(NamesIn(folders).size(), 4u);
    EXPECT_EQ(NamesByCursor(folders).size(), 4u);
    EXPECT_EQ(ErrorNumberOf([&] { Item(folders, 5); }), errors::mapiNotFound);
    EXPECT_EQ(Object(session, "InfoStores")->Get("Count").ToLong(), 3) << "small collections are always counted";
    const ObjectRef leaf = Object(Object(session, "Outbox"), "Folders");
    EXPECT_EQ(leaf->Get("Count").ToLong(), 0x7FFFFFFF);
    EXPECT_EQ(leaf->Get("GetFirst").ToObject(), nullptr);
}

TEST_F(Cdo, ParentsLeadUpToTheStore) {
    const ObjectRef customers = Inbox()->Get("Folders", 1).RequireObject();
    EXPECT_EQ(Text(customers, "FolderID"), Text(Inbox(), "ID"));
    EXPECT_EQ(Text(Object(customers, "Parent"), "ID"), Text(Inbox(), "ID"));
    EXPECT_EQ(Text(Object(Object(Mailbox(), "RootFolder"), "Parent"), "ID"), Text(Mailbox(), "ID"));
}

TEST_F(Cdo, AddressListsAreFlatAndHoldAddresses) {
    EXPECT_THAT(NamesIn(Object(session_, "AddressLists")),
                ElementsAre("All Contacts", "All Groups", "All Rooms 🏢", "Deutschland – Köln", "Ελλάδα", "Україна",
                            "東京", "大阪", "ישראל", "Global Address List", "Contacts",
                            "Family 👨‍👩‍👧‍👦", "\"Friends\" \\ neighbours"));
}

TEST_F(Cdo, AddressListsHaveTheIdentifiersOfTheOtherModels) {
    const ObjectRef rdo = MakeRdoSession();
    rdo->Get("Open", "sample");
    for (const char* name : {"Global Address List", "Contacts"}) {
        const std::string id = Text(session_->Get("AddressLists", name).RequireObject(), "ID");
        EXPECT_EQ(Text(rdo->Get("GetAddressListFromID", id).RequireObject(), "Name"), name);
    }
    EXPECT_EQ(Text(session_->Get("GetAddressList", 0).RequireObject(), "Name"), "Global Address List");
    EXPECT_EQ(Text(session_->Get("GetAddressList", 1).RequireObject(), "Name"), "Contacts");
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetAddressList", 2); }), errors::mapiNotFound);
}

TEST_F(Cdo, IdentifiersCompareInBothForms) {
    const std::string id = Text(Inbox(), "ID");
    EXPECT_TRUE(session_->Get("CompareIDs", id, "EF" + id.substr(2)).ToBoolean());
    EXPECT_FALSE(session_->Get("CompareIDs", id, Text(Mailbox(), "ID")).ToBoolean());
}

TEST_F(Cdo, NothingCanBeWritten) {
    EXPECT_EQ(ErrorNumberOf([&] { Inbox()->Put("Name", "x"); }), 0x80070005u);
    const ObjectRef field = Inbox()->Get("Fields", 0x3001001E).RequireObject();
    EXPECT_EQ(ErrorNumberOf([&] { field->Put("Value", "x"); }), 0x80070005u);
    EXPECT_EQ(ErrorNumberOf([&] { Inbox()->Put("ID", "x"); }), errors::memberNotFound);
}

TEST_F(Cdo, ObjectsKeepWhatTheyNeedAlive) {
    const ObjectRef folder = Inbox();
    const ObjectRef fields = Object(folder, "Fields");
    const auto walk = automation::Collection(Object(folder, "Folders")).Walk();
    session_ = nullptr;
    Value item;
    ASSERT_TRUE(walk->Next(item));
    EXPECT_EQ(Text(item.RequireObject(), "Name"), "Customers");
    EXPECT_EQ(Item(fields, 0x3001001E)->Get("Value").ToText(), "Inbox");
}

}  // namespace
}  // namespace localstores
