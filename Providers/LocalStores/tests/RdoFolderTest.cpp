// RdoFolderTest: a folder's members.
#include <gmock/gmock.h>

#include "RdoTest.h"
#include "TestFiles.h"
#include "automation/Error.h"
#include "localstores/EntryId.h"

namespace localstores {
namespace {

using automation::ObjectRef;
using testing::ElementsAre;
namespace errors = automation::errors;

class RdoFolder : public RdoTest {
  protected:
    ObjectRef Top(const char* name) { return TopFolders()->Get("Item", name).RequireObject(); }
};

TEST_F(RdoFolder, HasTheMembersOfAnRdoFolder) {
    for (const char* member : {"Name", "DefaultMessageClass", "EntryID", "Parent", "StoreID", "Store", "Folders",
                               "DefaultItemType", "FolderKind", "Fields", "Session"})
        EXPECT_TRUE(Inbox()->HasMember(member)) << member;
}

TEST_F(RdoFolder, NameIsTheDefaultMember) {
    EXPECT_EQ(Inbox()->Get("").ToText(), "Inbox");
}

TEST_F(RdoFolder, MembersHaveTheirTypes) {
    EXPECT_EQ(Inbox()->Get("EntryID").TypeName(), "String");
    EXPECT_EQ(Inbox()->Get("StoreID").TypeName(), "String");
    EXPECT_EQ(Inbox()->Get("FolderKind").TypeName(), "Long");
    EXPECT_EQ(Inbox()->Get("DefaultItemType").TypeName(), "Long");
}

TEST_F(RdoFolder, KnowsItsStoreAndItsParent) {
    EXPECT_EQ(Text(Inbox(), "StoreID"), Text(store_, "EntryID"));
    EXPECT_EQ(Text(Object(Inbox(), "Store"), "Name"), Text(store_, "Name"));
    EXPECT_EQ(Text(Object(Inbox(), "Parent"), "Name"), "Top of Information Store");
}

TEST_F(RdoFolder, RootHasNoParent) {
    EXPECT_EQ(Object(store_, "RootFolder")->Get("Parent").ToObject(), nullptr);
}

TEST_F(RdoFolder, KindsAreNumbered) {
    EXPECT_EQ(Object(store_, "RootFolder")->Get("FolderKind").ToLong(), 0);
    EXPECT_EQ(Inbox()->Get("FolderKind").ToLong(), 1);
    EXPECT_EQ(Top("Unread mail")->Get("FolderKind").ToLong(), 2);
}

TEST_F(RdoFolder, ItemTypeFollowsFromTheContainerClass) {
    std::vector<int> types;
    for (const char* name : {"Inbox", "Calendar", "Contacts", "Tasks", "Journal", "Notes"})
        types.push_back(Top(name)->Get("DefaultItemType").ToLong());
    EXPECT_THAT(types, ElementsAre(0, 1, 2, 3, 4, 5));
    EXPECT_EQ(Text(Top("Calendar"), "DefaultMessageClass"), "IPM.Appointment");
}

TEST_F(RdoFolder, SubclassesCountAsTheirClassAndTheRestAsMail) {
    const ObjectRef quick = Object(Top("Contacts"), "Folders")->Get("Item", "Quick contacts").RequireObject();
    EXPECT_EQ(quick->Get("DefaultItemType").ToLong(), 2);
    for (const char* name : {"Projects", "Client settings", "Class of no characters", "Mail from the old server"})
        EXPECT_EQ(Top(name)->Get("DefaultItemType").ToLong(), 0) << name;
}

TEST_F(RdoFolder, FieldsGiveTheLongFormOfTheIdentifier) {
    const auto id = Inbox()->Get("Fields", 0x0FFF0102);
    ASSERT_NE(id.AsBytes(), nullptr);
    EXPECT_EQ(Hex(id.AsBytes()->items), Text(Inbox(), "EntryID"));
}

TEST_F(RdoFolder, FieldThatIsNotThereIsEmpty) {
    EXPECT_TRUE(Top("Projects")->Get("Fields", 0x3613001E).IsEmpty());
    EXPECT_EQ(Top("Class of no characters")->Get("Fields", 0x3613001E).TypeName(), "String");
}

TEST_F(RdoFolder, NameCannotBeWritten) {
    EXPECT_EQ(ErrorNumberOf([&] { Inbox()->Put("Name", "x"); }), 0x80070005u);
}

}  // namespace
}  // namespace localstores
