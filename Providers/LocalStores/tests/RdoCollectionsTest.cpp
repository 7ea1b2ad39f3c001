// RdoCollectionsTest: the collections of stores and folders.
#include <gmock/gmock.h>

#include "RdoTest.h"
#include "TestFiles.h"
#include "automation/Error.h"

namespace localstores {
namespace {

using automation::ObjectRef;
using testing::ElementsAre;
namespace errors = automation::errors;

constexpr uint32_t badIndex = 0x8002000B;

class RdoCollections : public RdoTest {
  protected:
    ObjectRef stores_ = Object(session_, "Stores");
    ObjectRef Folders() { return Object(Inbox(), "Folders"); }
};

TEST_F(RdoCollections, HaveTheMembersOfTheirKinds) {
    for (const char* member : {"Count", "Item", "_Item", "DefaultStore", "GetStoreFromID", "MAPITable", "Session", ""})
        EXPECT_TRUE(stores_->HasMember(member)) << member;
    for (const char* member :
         {"Count", "Item", "_Item", "GetFirst", "GetLast", "GetNext", "GetPrevious", "MAPITable", "Session", ""})
        EXPECT_TRUE(Folders()->HasMember(member)) << member;
}

TEST_F(RdoCollections, PositionsStartAtOne) {
    EXPECT_EQ(Text(stores_->Get("Item", 1).RequireObject(), "Name"), "Public Folders");
    EXPECT_EQ(Text(Folders()->Get("Item", 4).RequireObject(), "Name"), "C:\\Reports\\Weekly");
    EXPECT_EQ(Folders()->Get("Count").ToLong(), 4);
}

TEST_F(RdoCollections, PositionsBeyondTheEndsAreRefused) {
    for (const int position : {0, -1, 5, 2147483647})
        EXPECT_EQ(ErrorNumberOf([&] { Folders()->Get("Item", position); }), badIndex) << position;
    EXPECT_EQ(ErrorNumberOf([&] { stores_->Get("Item", 4); }), badIndex);
}

TEST_F(RdoCollections, ItemsAreFoundByNameWithoutRegardToCase) {
    EXPECT_EQ(Text(Folders()->Get("Item", "CUSTOMERS").RequireObject(), "Name"), "Customers");
    EXPECT_EQ(Text(stores_->Get("Item", "public folders").RequireObject(), "Name"), "Public Folders");
    EXPECT_EQ(ErrorNumberOf([&] { Folders()->Get("Item", "Nobody"); }), errors::mapiNotFound);
}

TEST_F(RdoCollections, ItemIsTheDefaultMember) {
    EXPECT_EQ(Text(stores_->Get("", 2).RequireObject(), "Name"), "Mailbox - Alex Example");
    EXPECT_EQ(Text(Folders()->Get("_Item", "Customers").RequireObject(), "Name"), "Customers");
}

TEST_F(RdoCollections, EnumerationGivesAllItemsInOrder) {
    EXPECT_THAT(NamesIn(stores_), ElementsAre("Public Folders", "Mailbox - Alex Example", "Archive \"before 2022\""));
    EXPECT_THAT(NamesIn(Folders()),
                ElementsAre("Customers", "Newsletters 📰", "To do: \"urgent\"", "C:\\Reports\\Weekly"));
}

TEST_F(RdoCollections, EnumerationOutlivesItsCollection) {
    const auto walk = Folders()->NewEnum();
    store_ = nullptr;
    stores_ = nullptr;
    session_ = nullptr;
    automation::Value item;
    ASSERT_TRUE(walk->Next(item));
    EXPECT_EQ(Text(item.RequireObject(), "Name"), "Customers");
}

TEST_F(RdoCollections, FoldersAreSteppedThroughBothWays) {
    const ObjectRef folders = Folders();
    std::vector<std::string> names;
    for (ObjectRef f = folders->Get("GetFirst").ToObject(); f; f = folders->Get("GetNext").ToObject())
        names.push_back(Text(f, "Name"));
    EXPECT_EQ(names.size(), 4u);
    EXPECT_EQ(Text(folders->Get("GetPrevious").RequireObject(), "Name"), names.back());
    EXPECT_EQ(Text(folders->Get("GetLast").RequireObject(), "Name"), names.back());
    EXPECT_EQ(Text(folders->Get("GetPrevious").RequireObject(), "Name"), names[2]);
    folders->Get("GetFirst");
    EXPECT_EQ(folders->Get("GetPrevious").ToObject(), nullptr);
    EXPECT_EQ(Text(folders->Get("GetNext").RequireObject(), "Name"), names.front());
}

TEST_F(RdoCollections, EmptyCollectionHasNoFirstItem) {
    const ObjectRef folders = Object(session_->Get("GetDefaultFolder", 4).RequireObject(), "Folders");
    EXPECT_EQ(folders->Get("Count").ToLong(), 0);
    EXPECT_EQ(folders->Get("GetFirst").ToObject(), nullptr);
    EXPECT_EQ(folders->Get("GetLast").ToObject(), nullptr);
    EXPECT_THAT(NamesIn(folders), ElementsAre());
}

TEST_F(RdoCollections, DefaultStoreCanBeReadAndWritten) {
    EXPECT_EQ(Text(Object(stores_, "DefaultStore"), "Name"), "Mailbox - Alex Example");
    stores_->Put("DefaultStore", stores_->Get("Item", 3));
    EXPECT_EQ(Text(Object(stores_, "DefaultStore"), "Name"), "Archive \"before 2022\"");
    EXPECT_EQ(ErrorNumberOf([&] { stores_->Put("DefaultStore", nullptr); }), errors::objectNotSet);
}

TEST_F(RdoCollections, TableOfStoresHasOneRowForEach) {
    const ObjectRef table = Object(stores_, "MAPITable");
    table->Put("Columns", "0x3001001F, 0x3400000B");
    const auto rows = table->Get("GetRows", 10);
    ASSERT_EQ(rows.AsArray()->items.size(), 3u);
    EXPECT_EQ(rows.AsArray()->items[1].AsArray()->items[0].ToText(), "Mailbox - Alex Example");
    EXPECT_TRUE(rows.AsArray()->items[1].AsArray()->items[1].ToBoolean());
}

}  // namespace
}  // namespace localstores
