// RdoAddressBookTest: the address lists of an RDO session.
#include <gmock/gmock.h>

#include <functional>
#include <set>

#include "RdoTest.h"
#include "TestFiles.h"
#include "automation/Error.h"

namespace localstores {
namespace {

using automation::ObjectRef;
using automation::Value;
using testing::ElementsAre;
namespace errors = automation::errors;

class RdoAddressBook : public RdoTest {
  protected:
    ObjectRef book_ = Object(session_, "AddressBook");
    ObjectRef lists_ = Object(book_, "AddressLists");

    static ObjectRef List(const ObjectRef& lists, const char* name) { return lists->Get("Item", name).RequireObject(); }

    /// Every list of the book, each before those in it, with its depth.
    void ForEachList(const std::function<void(const ObjectRef& list, int depth)>& visit) const {
        const std::function<void(const ObjectRef&, int)> walk = [&](const ObjectRef& lists, int depth) {
            const auto items = automation::Collection(lists).Walk();
            for (Value item; items->Next(item);) {
                visit(item.RequireObject(), depth);
                walk(item.RequireObject()->Get("AddressLists").RequireObject(), depth + 1);
            }
        };
        walk(lists_, 1);
    }
};

TEST_F(RdoAddressBook, HasTheMembersOfItsKind) {
    for (const char* member : {"AddressLists", "DefaultAddressList", "PAB", "GAL", "GetAddressListFromID"})
        EXPECT_TRUE(book_->HasMember(member)) << member;
    for (const char* member : {"Count", "Item", "_Item", "GetFirst", "GetNext", "GetLast", "GetPrevious", ""})
        EXPECT_TRUE(lists_->HasMember(member)) << member;
    for (const char* member : {"Name", "EntryID", "AddressLists", "Default", "IsReadOnly", ""})
        EXPECT_TRUE(lists_->Get("GetFirst").RequireObject()->HasMember(member)) << member;
}

TEST_F(RdoAddressBook, ShowsTheTopListsInOrder) {
    EXPECT_THAT(NamesIn(lists_), ElementsAre("All Address Lists", "Global Address List", "Personal address books"));
    EXPECT_EQ(lists_->Get("Count").ToLong(), 3);
    EXPECT_EQ(Text(lists_->Get("Item", 2).RequireObject(), "Name"), "Global Address List");
}

TEST_F(RdoAddressBook, ListsHoldListsOnFourLevelsAndInManyScripts) {
    std::vector<std::string> deepest;
    ForEachList([&](const ObjectRef& list, int depth) {
        if (depth >= 4) deepest.push_back(Text(list, "Name"));
    });
    EXPECT_THAT(deepest, ElementsAre("東京", "大阪"));
    EXPECT_THAT(NamesIn(Object(List(lists_, "Personal address books"), "AddressLists")),
                ElementsAre("Contacts", "Family 👨‍👩‍👧‍👦", "\"Friends\" \\ neighbours"));
}

TEST_F(RdoAddressBook, ListThatHoldsNoneHasAnEmptyCollection) {
    const ObjectRef none = Object(List(lists_, "Global Address List"), "AddressLists");
    EXPECT_EQ(none->Get("Count").ToLong(), 0);
    EXPECT_EQ(none->Get("GetFirst").ToObject(), nullptr);
}

TEST_F(RdoAddressBook, DeepTraversalGivesAllListsInOneCollection) {
    std::vector<std::string> expected;
    ForEachList([&](const ObjectRef& list, int) { expected.push_back(Text(list, "Name")); });
    EXPECT_EQ(NamesIn(book_->Get("AddressLists", false).RequireObject()), expected);
    EXPECT_EQ(expected.size(), 17u);
    EXPECT_THAT(NamesIn(book_->Get("AddressLists", true).RequireObject()), NamesIn(lists_));
}

TEST_F(RdoAddressBook, EveryListHasAnIdentifierOfItsOwnThatFindsIt) {
    std::set<std::string> ids;
    ForEachList([&](const ObjectRef& list, int) {
        const std::string id = Text(list, "EntryID");
        EXPECT_TRUE(ids.insert(id).second) << id;
        EXPECT_EQ(Text(session_->Get("GetAddressListFromID", id).RequireObject(), "Name"), Text(list, "Name"));
        EXPECT_EQ(Text(book_->Get("GetAddressListFromID", "EF" + id.substr(2)).RequireObject(), "EntryID"), id);
    });
    EXPECT_EQ(ErrorNumberOf([&] { session_->Get("GetAddressListFromID", "00"); }), errors::mapiNotFound);
}

// Written down once, so that a change that would lose users' saved selections shows.
TEST_F(RdoAddressBook, IdentifiersAreTheSameInEveryVersion) {
    EXPECT_EQ(Text(Object(book_, "GAL"), "EntryID"), "000000008C0EBD7CA99DE95E4AFF0EFF2BAE6C7708F6C0618A4E6857");
}

TEST_F(RdoAddressBook, KnowsItsGlobalAndItsPersonalList) {
    EXPECT_EQ(Text(Object(book_, "GAL"), "Name"), "Global Address List");
    EXPECT_EQ(Text(Object(book_, "DefaultAddressList"), "Name"), "Global Address List");
    EXPECT_EQ(Text(Object(book_, "PAB"), "Name"), "Contacts");
    EXPECT_TRUE(Object(book_, "GAL")->Get("Default").ToBoolean());
    EXPECT_FALSE(Object(book_, "PAB")->Get("Default").ToBoolean());
}

TEST_F(RdoAddressBook, LeavesCanRefuseToTellOfLists) {
    const ObjectRef session = MakeRdoSession();
    session->Get("Open", "sample?lists=refuse");
    const ObjectRef lists = Object(Object(session, "AddressBook"), "AddressLists");
    const ObjectRef leaf = List(lists, "Global Address List");
    EXPECT_EQ(ErrorNumberOf([&] { leaf->Get("AddressLists"); }), errors::mapiNoSupport);
    EXPECT_GT(Object(List(lists, "All Address Lists"), "AddressLists")->Get("Count").ToLong(), 0);
}

TEST_F(RdoAddressBook, ListsKeepWhatTheyNeedAlive) {
    const ObjectRef list = List(lists_, "All Address Lists");
    book_ = lists_ = store_ = session_ = nullptr;
    EXPECT_EQ(Object(list, "AddressLists")->Get("Count").ToLong(), 4);
}

}  // namespace
}  // namespace localstores
