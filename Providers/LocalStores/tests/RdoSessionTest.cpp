// RdoSessionTest: the session's members.
#include <gmock/gmock.h>

#include "RdoTest.h"
#include "TestFiles.h"
#include "automation/Error.h"

namespace localstores {
namespace {

using automation::NamedArgument;
using automation::ObjectRef;
using automation::Value;
using testing::ElementsAre;
using testing::HasSubstr;
namespace errors = automation::errors;

constexpr uint32_t invalidEntryId = 0x80040107;

class RdoSession : public RdoTest {};

TEST_F(RdoSession, HasTheMembersOfAnRdoSession) {
    for (const char* member : {"ProfileName", "LoggedOn", "MAPIOBJECT", "Logon", "Stores", "GetDefaultFolder",
                               "AddressBook", "GetFolderFromID", "GetStoreFromID", "CompareEntryIDs",
                               "GetAddressListFromID", "Logoff", "Open", "getfolderfromid"})
        EXPECT_TRUE(session_->HasMember(member)) << member;
    EXPECT_FALSE(session_->HasMember("")) << "a session has no default member";
}

TEST_F(RdoSession, UnknownMemberIsAnUnknownName) {
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("Inbox"); }), errors::unknownName);
}

TEST_F(RdoSession, MethodCannotBeWritten) {
    EXPECT_EQ(ErrorNumberOf([&] { session_->Put("GetDefaultFolder", 6); }), errors::memberNotFound);
}

TEST_F(RdoSession, MissingAndSurplusArgumentsAreRefused) {
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetDefaultFolder"); }), errors::badParamCount);
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetDefaultFolder", automation::Missing()); }), errors::badParamCount);
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetDefaultFolder", 6, 7); }), errors::badParamCount);
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("Stores", 1); }), errors::badParamCount);
}

TEST_F(RdoSession, ArgumentOfTheWrongTypeIsATypeMismatch) {
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetDefaultFolder", "six"); }), errors::typeMismatch);
}

TEST_F(RdoSession, OpenReturnsTheDefaultStoreOfWhatItOpened) {
    EXPECT_EQ(Text(store_, "Name"), "Mailbox - Alex Example");
    EXPECT_TRUE(store_->Get("Default").ToBoolean());
}

TEST_F(RdoSession, OpeningAgainAddsNothing) {
    session_->Get("Open", "sample");
    EXPECT_EQ(Object(session_, "Stores")->Get("Count").ToLong(), 3);
}

TEST_F(RdoSession, OpenTellsWhatItCannotOpen) {
    EXPECT_THAT(FailureOf([&] { session_->Get("Open", "nowhere.pst"); }), HasSubstr("nowhere.pst"));
    EXPECT_EQ(Object(session_, "Stores")->Get("Count").ToLong(), 3);
}

TEST_F(RdoSession, OneStoreUnderTwoSpellingsOfItsPathIsOneStore) {
    const TemporaryDirectory directory;
    for (const char* part : {"cur", "new", "tmp"}) std::filesystem::create_directory(directory.Path() / part);
    const ObjectRef session = MakeRdoSession();
    const ObjectRef first = session->Get("Open", directory.Utf8()).RequireObject();
    const ObjectRef second = session->Get("Open", directory.Utf8() + "/cur/..").RequireObject();
    EXPECT_EQ(Text(first, "EntryID"), Text(second, "EntryID"));
    EXPECT_EQ(Object(session, "Stores")->Get("Count").ToLong(), 1);
}

TEST_F(RdoSession, CopyOfAnOpenStoreIsRefused) {
    const auto file = SamplePst();
    if (!file) GTEST_SKIP() << "the sample file dist-list.pst is not beside the repository";
    const TemporaryDirectory directory;
    const std::string copy = directory.Utf8() + "/copy.pst";
    WriteWholeFile(copy, ReadWholeFile(*file));
    const ObjectRef session = MakeRdoSession();
    session->Get("Open", file->string());
    EXPECT_EQ(ErrorNumberOf([&] { session->Get("Open", copy); }), 0x80040604u);
    EXPECT_THAT(FailureOf([&] { session->Get("Open", copy); }), HasSubstr(file->string()));
    EXPECT_EQ(Object(session, "Stores")->Get("Count").ToLong(), 1);
}

TEST_F(RdoSession, FirstStoreOpenedIsTheDefaultUntilAnotherIsMade) {
    const TemporaryDirectory directory;
    for (const char* part : {"cur", "new", "tmp"}) std::filesystem::create_directory(directory.Path() / part);
    const ObjectRef session = MakeRdoSession();
    const ObjectRef maildir = session->Get("Open", directory.Utf8()).RequireObject();
    EXPECT_TRUE(maildir->Get("Default").ToBoolean());
    const ObjectRef sample = session->Get("Open", "sample").RequireObject();
    EXPECT_TRUE(maildir->Get("Default").ToBoolean());
    sample->Put("Default", true);
    EXPECT_FALSE(maildir->Get("Default").ToBoolean());
    EXPECT_TRUE(sample->Get("Default").ToBoolean());
}

TEST_F(RdoSession, EmptySessionHasNoStoresAndNoFolders) {
    const ObjectRef session = MakeRdoSession();
    EXPECT_EQ(Object(session, "Stores")->Get("Count").ToLong(), 0);
    EXPECT_EQ(ErrorNumberOf([&] { session->Get("GetDefaultFolder", 6); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { session->Get("GetFolderFromID", "00"); }), errors::mapiNotFound);
}

TEST_F(RdoSession, DefaultFoldersHaveTheNumbersOfMailClients) {
    std::vector<std::string> names;
    for (const int number : {3, 4, 5, 6, 9, 10, 11, 12, 13, 16, 23})
        names.push_back(Text(session_->Get("GetDefaultFolder", number).RequireObject(), "Name"));
    EXPECT_THAT(names, ElementsAre("Deleted Items", "Outbox", "Sent Items", "Inbox", "Calendar", "Contacts", "Journal",
                                   "Notes", "Tasks", "Drafts", "Junk E-mail"));
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetDefaultFolder", 18); }), errors::mapiNotFound);
}

TEST_F(RdoSession, FolderIsFoundByBothFormsOfItsIdentifier) {
    const std::string longForm = Text(Inbox(), "EntryID");
    ASSERT_EQ(longForm.substr(0, 2), "00");
    for (const std::string& id : {longForm, "EF" + longForm.substr(2), "ef" + longForm.substr(2)}) {
        const ObjectRef folder = session_->Get("GetFolderFromID", id).RequireObject();
        EXPECT_EQ(Text(folder, "Name"), "Inbox");
        EXPECT_EQ(Text(folder, "EntryID"), longForm);
    }
}

TEST_F(RdoSession, FolderIsFoundByItsIdentifierAsBytes) {
    const Value bytes = Inbox()->Get("Fields", 0x0FFF0102);
    EXPECT_EQ(Text(session_->Get("GetFolderFromID", bytes).RequireObject(), "Name"), "Inbox");
}

TEST_F(RdoSession, FolderIsSoughtInTheGivenStoreAlone) {
    const std::string inbox = Text(Inbox(), "EntryID");
    const std::string own = Text(store_, "EntryID");
    const std::string other = Text(Object(session_, "Stores")->Get("Item", 1).RequireObject(), "EntryID");
    EXPECT_EQ(Text(session_->Get("GetFolderFromID", inbox, own).RequireObject(), "Name"), "Inbox");
    EXPECT_EQ(Text(session_->Get("GetFolderFromID", inbox, "").RequireObject(), "Name"), "Inbox");
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetFolderFromID", inbox, other); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetFolderFromID", inbox, "00AA"); }), errors::mapiNotFound);
}

TEST_F(RdoSession, TextThatIsNoIdentifierIsRefused) {
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetFolderFromID", ""); }), invalidEntryId);
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetFolderFromID", "Inbox"); }), invalidEntryId);
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetStoreFromID", "0"); }), invalidEntryId);
}

TEST_F(RdoSession, ArgumentsCanBeNamed) {
    const NamedArgument named[] = {{"EntryIDStore", Value(Text(store_, "EntryID"))},
                                   {"EntryIDFolder", Value(Text(Inbox(), "EntryID"))}};
    EXPECT_EQ(Text(session_->CallNamed("GetFolderFromID", named).RequireObject(), "Name"), "Inbox");
}

TEST_F(RdoSession, StoreIsFoundByItsIdentifier) {
    const std::string id = Text(store_, "EntryID");
    EXPECT_EQ(Text(session_->Get("GetStoreFromID", id).RequireObject(), "Name"), Text(store_, "Name"));
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetStoreFromID", id + "00"); }), errors::mapiNotFound);
}

TEST_F(RdoSession, IdentifiersCompareWithoutRegardToTheirForm) {
    const std::string inbox = Text(Inbox(), "EntryID");
    EXPECT_TRUE(session_->Get("CompareEntryIDs", inbox, "EF" + inbox.substr(2)).ToBoolean());
    EXPECT_FALSE(session_->Get("CompareEntryIDs", inbox, Text(store_, "EntryID")).ToBoolean());
}

TEST_F(RdoSession, LogonNeedsNothingAndLogoffClosesTheStores) {
    const ObjectRef session = MakeRdoSession();
    EXPECT_FALSE(session->Get("LoggedOn").ToBoolean());
    session->Get("Logon");
    EXPECT_TRUE(session->Get("LoggedOn").ToBoolean());
    session->Get("Open", "sample");
    session->Get("Logoff");
    EXPECT_FALSE(session->Get("LoggedOn").ToBoolean());
    EXPECT_EQ(Object(session, "Stores")->Get("Count").ToLong(), 0);
}

TEST_F(RdoSession, LogonTakesNamedArguments) {
    const NamedArgument named[] = {{"ShowDialog", Value(false)}, {"NewSession", Value(false)}};
    session_->CallNamed("Logon", named);
    EXPECT_TRUE(session_->Get("LoggedOn").ToBoolean());
}

TEST_F(RdoSession, AnotherSessionsMapiObjectCannotBeShared) {
    EXPECT_TRUE(session_->Get("MAPIOBJECT").IsObject());
    EXPECT_EQ(ErrorNumberOf([&] { session_->Put("MAPIOBJECT", session_); }), errors::mapiNoSupport);
}

TEST_F(RdoSession, AddressBookOfNoStoresIsEmpty) {
    const ObjectRef book = Object(MakeRdoSession(), "AddressBook");
    const ObjectRef lists = Object(book, "AddressLists");
    EXPECT_EQ(lists->Get("Count").ToLong(), 0);
    EXPECT_THAT(NamesIn(lists), ElementsAre());
    EXPECT_EQ(lists->Get("GetFirst").ToObject(), nullptr);
    EXPECT_EQ(ErrorNumberOf([&] { book->Get("GAL"); }), errors::mapiNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { book->Get("GetAddressListFromID", "00"); }), errors::mapiNotFound);
}

TEST_F(RdoSession, ObjectsKeepWhatTheyNeedAlive) {
    ObjectRef folder = Inbox();
    const ObjectRef table = Object(Object(folder, "Folders"), "MAPITable");
    store_ = nullptr;
    session_->Get("Logoff");
    session_ = nullptr;
    EXPECT_EQ(Text(folder, "Name"), "Inbox");
    folder = nullptr;
    EXPECT_EQ(table->Get("GetRows", 100).AsArray()->items.size(), 4u);
}

TEST_F(RdoSession, NothingKeepsADroppedSessionAlive) {
    const std::weak_ptr<automation::Object> session = session_;
    Object(session_, "Stores")->NewEnum();
    Object(TopFolders(), "MAPITable")->Get("GetRows", 10);
    store_ = nullptr;
    session_ = nullptr;
    EXPECT_TRUE(session.expired());
}

}  // namespace
}  // namespace localstores
