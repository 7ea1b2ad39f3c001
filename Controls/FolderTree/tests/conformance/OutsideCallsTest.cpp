// OutsideCallsTest: how many outside calls a folder costs in each mode, and that no source of mail costs more.
#include "automation_testing/FaultyObject.h"
#include "conformance/ConformanceTest.h"

namespace foldertree::testing {
namespace {

using automation::testing::FaultPlan;

class OutsideCalls : public EachSetting {
  protected:
    /// The outside calls of a refresh that finds the default folders known.
    int OfARefresh(bool showAddressBook = false) {
        StartAnew();
        LoadTree({.showAddressBook = showAddressBook});
        mail.log->Clear();
        control->RefreshList();
        return static_cast<int>(mail.log->Count());
    }
    /// The outside calls of opening the folder "Projects".
    int OfAnExpansion() {
        StartAnew();
        LoadTree({.extendToLevel = LevelToRead(2)});
        mail.log->Clear();
        Open("Projects");
        return static_cast<int>(mail.log->Count());
    }
};

TEST_P(OutsideCalls, OfOneMoreFolderInAWalk) {
    mail = OrdinaryFolders();
    const int before = OfARefresh();
    FolderNamed("Inbox").children.push_back(MailFolder("New", "0013"));
    EXPECT_EQ(OfARefresh() - before, Mode().callsForALeaf);
}

TEST_P(OutsideCalls, OfOneMoreFolderWithASubfolderInAWalk) {
    mail = OrdinaryFolders();
    const int before = OfARefresh();
    FolderNamed("Inbox").children.push_back(MailFolder("New", "0013", {MailFolder("Sub", "0014")}));
    EXPECT_EQ(OfARefresh() - before, 2 * Mode().callsForALeaf + Mode().callsForAParent);
}

TEST_P(OutsideCalls, OfOneMoreChildInAnExpansion) {
    mail = OrdinaryFolders();
    const int before = OfAnExpansion();
    FolderNamed("Projects").children.push_back(MailFolder("New", "0013"));
    EXPECT_EQ(OfAnExpansion() - before, Mode().callsForAChild);
}

TEST_P(OutsideCalls, OfAChildWithASubfolderInAnExpansionAreNoMore) {
    mail = OrdinaryFolders();
    const int before = OfAnExpansion();
    FolderNamed("Projects").children.push_back(MailFolder("New", "0013", {MailFolder("Sub", "0014")}));
    EXPECT_EQ(OfAnExpansion() - before, Mode().callsForAChild);
}

TEST_P(OutsideCalls, OfOneMoreAddressList) {
    mail = OrdinaryFolders();
    const int before = OfARefresh(true);
    mail.addressLists.push_back(AddressList("New", "G2"));
    EXPECT_EQ(OfARefresh(true) - before, Mode().callsForAList);
}

TEST_P(OutsideCalls, OfSelectionsAndLooksAreNone) {
    LoadTree();
    mail.log->Clear();
    control->SelectAll();
    control->CollapseToSelection();
    control->SelectNone();
    control->SelectByType(FTIContactItem, false);
    control->SetHighlightTaskFolders(true);
    control->GetMsgItem("B2", "0001");
    control->Selection();
    EXPECT_EQ(mail.log->Lines(), Lines{});
    control->SetSelection(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Modes, OutsideCalls, ::testing::ValuesIn(ScriptedModes()), SettingName);

/// The same mailbox as scripted objects and in the local stores.
class CallsOfBothSources : public EachSetting {
  protected:
    int OfALoad(MailSource source, int32_t level) {
        StartAnew();
        Use({&Mode(), source});
        mail = LocalSample(Mode().mode);
        plan = std::make_shared<FaultPlan>();
        LoadTree({.extendToLevel = level});
        plan->FailCall(0);
        control->RefreshList();
        OpenAll();
        return plan->Calls();
    }
};

TEST_P(CallsOfBothSources, AreTheSameNumber) {
    for (const int32_t level : {0, 1, 2}) {
        const int local = OfALoad(MailSource::LocalStores, level);
        EXPECT_GT(local, 20);
        EXPECT_EQ(OfALoad(MailSource::Scripted, level), local) << level;
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, CallsOfBothSources, ::testing::ValuesIn(LocalModes()), SettingName);

}  // namespace
}  // namespace foldertree::testing
