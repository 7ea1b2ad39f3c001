// TreeConformanceTest: in every mode the tree is what the mailbox and the table of differences say.
#include <algorithm>

#include "conformance/ConformanceTest.h"

namespace foldertree::testing {
namespace {

class TreeOfEachMode : public EachSetting {};

TEST_P(TreeOfEachMode, IsWholeAtLevelZero) {
    LoadTree();
    ExpectTree({mail, Mode()});
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    ExpectIdle();
}

TEST_P(TreeOfEachMode, IsReadToTheLevelThatTheHostWants) {
    for (int32_t level = 1; level <= 5; ++level) {
        SCOPED_TRACE(level);
        LoadTree({.extendToLevel = level});
        ExpectTree({mail, Mode(), {.extendToLevel = level}});
        EXPECT_EQ(platform.ErrorLines(), Lines{});
    }
}

TEST_P(TreeOfEachMode, OpeningANodeInsertsItsChildren) {
    const std::string node = IsLocal() ? "Europe" : "Projects";
    const TreeSettings settings{.extendToLevel = LevelToRead(2)};
    LoadTree(settings);
    ExpectedTree expected(mail, Mode(), settings);
    Open(node);
    expected.Expand(node);
    ExpectTree(expected);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    ExpectIdle();
}

TEST_P(TreeOfEachMode, OpeningEveryNodeReadsEverything) {
    const TreeSettings settings{.extendToLevel = 1};
    LoadTree(settings);
    ExpectedTree expected(mail, Mode(), settings);
    OpenAll();
    expected.ExpandAll();
    ExpectTree(expected);
    ExpectIdle();
}

TEST_P(TreeOfEachMode, EndsWithTheAddressLists) {
    const TreeSettings settings{.extendToLevel = 1, .showAddressBook = true};
    LoadTree(settings);
    ExpectTree({mail, Mode(), settings});
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    EXPECT_EQ(platform.TraceCount("GetFolders: Adding address book(s)"), 1u);
}

TEST_P(TreeOfEachMode, ShowsTheHighlightedTypesInBoldAndTheOthersInGrey) {
    for (int flags = 0; flags < 8; ++flags) {
        SCOPED_TRACE(flags);
        const TreeSettings settings{.extendToLevel = 1,
                                    .highlightContacts = (flags & 1) != 0,
                                    .highlightJournals = (flags & 2) != 0,
                                    .highlightTasks = (flags & 4) != 0};
        LoadTree(settings);
        ExpectedTree expected(mail, Mode(), settings);
        ExpectTree(expected);
        OpenAll();
        expected.ExpandAll();
        ExpectTree(expected);
    }
}

TEST_P(TreeOfEachMode, IsTheSameAfterASecondRefresh) {
    LoadTree({.extendToLevel = 2});
    const Lines first = WholeLines(Rows());
    control->RefreshList();
    EXPECT_EQ(WholeLines(Rows()), first);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_P(TreeOfEachMode, AnnouncesModeAndStores) {
    LoadTree();
    const auto linesEqualTo = [this](std::string_view text) {
        const Lines trace = platform.Trace();
        return static_cast<size_t>(std::count(trace.begin(), trace.end(), text));
    };
    const size_t forTheRefresh = Mode().refreshLine.empty() ? 0 : 1;
    const size_t forTheStores = Mode().storeLine.empty() ? 0 : mail.stores.size();
    EXPECT_EQ(linesEqualTo(Mode().refreshLine), forTheRefresh);
    EXPECT_EQ(linesEqualTo(Mode().storeLine), forTheStores);
    const Lines trace = platform.Trace();
    EXPECT_EQ(trace.front(), "GetFolders: Refreshing view");
    EXPECT_EQ(trace.back(), "GetFolders: Done");
    const bool nothingElse = trace.size() == 2 + forTheRefresh + forTheStores;
    EXPECT_EQ(nothingElse, !Mode().tracesSteps);
}

TEST_P(TreeOfEachMode, ShowsEachPathWhileItReadsThatFolder) {
    LoadTree();
    Lines paths;
    for (int32_t row = 1; row < Grid().RowCount(); ++row)
        if (!Grid().CellText(row, colPath).empty()) paths.push_back(Grid().CellText(row, colPath));
    Lines shown = platform.paths;
    std::erase(shown, "");
    EXPECT_EQ(shown, paths);
}

class TreeOfRandomMailboxes : public EachSetting {};

TEST_P(TreeOfRandomMailboxes, IsWhatTheMailboxSaysAlsoAfterNodesWereOpened) {
    for (uint32_t seed = 1; seed <= 25; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        StartAnew();
        mail = RandomMailbox(seed);
        const TreeSettings settings{.extendToLevel = static_cast<int32_t>(seed % 4),
                                    .highlightContacts = seed % 5 == 0,
                                    .highlightTasks = seed % 7 == 0};
        LoadTree(settings);
        ExpectedTree expected(mail, Mode(), settings);
        ExpectTree(expected);
        for (int32_t row = 1; row < Grid().RowCount(); ++row) {
            if (Grid().CellText(row, colIncomplete) != "-1") continue;
            Open(row);
            expected.ExpandRow(static_cast<size_t>(row));
            ExpectTree(expected);
            if (HasFatalFailure()) return;
        }
        ExpectIdle();
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, TreeOfRandomMailboxes, ::testing::ValuesIn(ScriptedModes()), SettingName);

/// The sample mailbox on servers with ways of their own.
class TreeOfOddServers : public EachSetting {
  protected:
    automation::ObjectRef MakeSession(enuInfoStoreAccessMode mode) override { return MakeLocalSession(mode, path); }
    std::string path;
};

TEST_P(TreeOfOddServers, IsWholeWhenATableGivesOneRowAtATime) {
    path = "sample?rows=1";
    LoadTree();
    ExpectTree({mail, Mode()});
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_P(TreeOfOddServers, IsWholeWhenFoldersCannotBeCounted) {
    path = "sample?count=unknown";
    LoadTree();
    ExpectTree({mail, Mode()});
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_P(TreeOfOddServers, EndsWithTheFirstAddressListThatAnswersForNoOthers) {
    path = "sample?lists=refuse";
    LoadTree({.extendToLevel = 1, .showAddressBook = true});
    EXPECT_EQ(platform.TraceCount("AddressList scan is intentionally cancelled."), Mode().nestsAddressLists ? 1u : 0u);
    const ExpectedTree expected(mail, Mode(), {.extendToLevel = 1, .showAddressBook = true});
    EXPECT_EQ(Rows().size() < expected.Rows().size(), Mode().nestsAddressLists);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    ExpectIdle();
}

INSTANTIATE_TEST_SUITE_P(Modes, TreeOfOddServers, ::testing::ValuesIn(LocalModes()), SettingName);

INSTANTIATE_TEST_SUITE_P(Modes, TreeOfEachMode, ::testing::ValuesIn(AllSettings()), SettingName);

}  // namespace
}  // namespace foldertree::testing
