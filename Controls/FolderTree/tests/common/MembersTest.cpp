// Members: looking members up, and the order that saved streams depend on.
#include "common/Members.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace foldertree::testing {
namespace {

using ::testing::ElementsAre;

TEST(Members, AreFoundByNameInAnyCaseAndByNumber) {
    for (const MemberInfo& info : AllMembers()) {
        EXPECT_EQ(&Info(info.member), &info);
        EXPECT_EQ(FindMember(info.name), &info);
        EXPECT_EQ(FindMember(info.number), &info);
    }
    EXPECT_EQ(FindMember("rdosessionREF"), &Info(Member::rdoSessionRef));
    EXPECT_EQ(FindMember("Missing"), nullptr);
    EXPECT_EQ(FindMember(""), nullptr);
    EXPECT_EQ(FindMember(0), nullptr);
    EXPECT_EQ(FindMember(27), nullptr);
}

TEST(Members, AreSavedInTheOrderOfTheStreamsThatContainersHave) {
    std::vector<std::string> names;
    for (const MemberInfo* info : SavedMembers()) {
        names.emplace_back(info->name);
        EXPECT_EQ(info->saving.sinceVersion, 1u);
    }
    EXPECT_THAT(names, ElementsAre("Enabled", "HighlightContactFolders", "HighlightJournalFolders",
                                   "HighlightTaskFolders", "MultiSelect", "AllowIndexing", "ShowAddressBook",
                                   "ExtendToLevel", "Font", "InfoStoreAccessMode"));
}

TEST(Members, AreKeptInTheirFieldsOfTheState) {
    ControlState state;
    for (const MemberInfo* info : SavedMembers()) {
        if (info->saving.type == SavedAs::font) continue;
        for (const int32_t value : {1, 0, 1}) {
            info->saving.set(state, value);
            EXPECT_EQ(info->saving.get(state), value) << info->name;
        }
    }
    EXPECT_TRUE(state.enabled && state.highlightContactFolders && state.highlightJournalFolders &&
                state.highlightTaskFolders && state.multiSelect && state.allowIndexing && state.showAddressBook);
    EXPECT_EQ(state.extendToLevel, 1);
    EXPECT_EQ(state.infoStoreAccessMode, eISAccess_RDO_Objects);
}

}  // namespace
}  // namespace foldertree::testing
