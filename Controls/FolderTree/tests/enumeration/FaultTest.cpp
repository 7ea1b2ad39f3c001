// FaultTest: any one outside call fails, and the control says so in its one line and goes on.
#include "automation_testing/FaultyObject.h"
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::ObjectRef;
using automation::Value;
using automation::testing::FaultPlan;
using automation::testing::ScriptedObject;

const std::string injected = "80004005] Injected fault";
const std::string ofDriver = "Error in ctlFolderTree.GetFolders (?): [0x" + injected;
const std::string ofStore = "Error in ctlFolderTree.GetFolders_Store_RDOTab (?): [0x" + injected;
const std::string ofWalk = "Error in ctlFolderTree.GetFolders_Folder_RDOTab (?): [0x" + injected;
const std::string ofExpansion = "Error in ctlFolderTree.ExpandNode (?): [0x" + injected;

bool Has(std::string_view line, std::string_view part) {
    return line.find(part) != std::string_view::npos;
}

/// The error lines that the failure of each call of a refresh is to give, from the names of the calls alone.
std::vector<Lines> ExpectedOfRefresh(const std::vector<std::string>& calls) {
    std::vector<Lines> expected;
    bool inReader = false;  // between a store's Name and its root's child count
    for (const std::string& call : calls) {
        if (Has(call, ".Name")) inReader = true;
        if (Has(call, "Session.Stores") || Has(call, "Stores.") || (Has(call, ".Default") && !inReader))
            expected.push_back({ofDriver});
        else if (Has(call, "Utilities.") || Has(call, "Table.Sort"))
            expected.push_back({});  // expected failures: the plain name, the unsorted table
        else if (inReader)
            expected.push_back({ofStore});
        else
            expected.push_back({ofWalk});
        if (Has(call, "Folders.Count")) inReader = false;
    }
    return expected;
}

class Faults : public ControlTest {
  protected:
    Faults() {
        mailbox.stores[1].provider = "Provider";
        utilities = mailbox.Utilities();
        factory.On("NOXMAPI.NOXMAPIUtils", [this] { return plan->Wrap(utilities); });
    }
    void TearDown() override {
        utilities = nullptr;
        ControlTest::TearDown();
    }
    /// A loaded control whose every outside call counts.
    void Renew(int32_t level) {
        control = ctlFolderTree::Create(host, factory);
        control->UserControl_InitProperties();
        plan = std::make_shared<FaultPlan>();
        FakeBag bag;
        bag.values["ExtendToLevel"] = Value(level);
        control->UserControl_ReadProperties(bag);
        control->SetRDOSessionRef(plan->Wrap(mailbox.Session()));
        control->RefreshList();
        host.ClearTrace();
        mailbox.log->Clear();
        plan->FailCall(0);
    }
    void Expand() {
        bool cancel = false;
        control->fgd_BeforeCollapse(Row("Inbox"), 0, cancel);
    }
    std::shared_ptr<FaultPlan> plan = std::make_shared<FaultPlan>();
    ObjectRef utilities;
};

TEST_F(Faults, AnyCallOfARefreshCostsItsProceduresLineAndNothingStaysUp) {
    Renew(0);
    control->RefreshList();
    const std::vector<std::string> calls = mailbox.log->Lines();
    ASSERT_EQ(static_cast<int>(calls.size()), plan->Calls()) << "the log and the plan count different calls";
    const std::vector<Lines> expected = ExpectedOfRefresh(calls);
    for (int call = 1; call <= static_cast<int>(calls.size()); ++call) {
        SCOPED_TRACE("call " + std::to_string(call) + ": " + calls[static_cast<size_t>(call) - 1]);
        Renew(0);
        const int live = ScriptedObject::LiveCount();
        plan->FailCall(call);
        EXPECT_NO_THROW(control->RefreshList());
        EXPECT_EQ(host.ErrorLines(), expected[static_cast<size_t>(call) - 1]);
        EXPECT_EQ(host.Trace().back(), "GetFolders: Done");
        EXPECT_EQ(ScriptedObject::LiveCount(), live);
        ExpectIdle();
    }
}

TEST_F(Faults, AfterAnyFailedRefreshTheNextOneIsWhole) {
    Renew(0);
    const Lines whole = Tree();
    control->RefreshList();
    const int calls = plan->Calls();
    for (int call = 1; call <= calls; ++call) {
        plan->FailCall(call);
        control->RefreshList();
        plan->FailCall(0);
        control->RefreshList();
        EXPECT_EQ(Tree(), whole) << "after call " << call;
    }
}

TEST_F(Faults, AFailedFolderDoesNotHideItsSiblingsOrOtherStores) {
    Renew(0);
    control->RefreshList();
    const std::vector<std::string> calls = mailbox.log->Lines();
    for (int call = 1; call <= static_cast<int>(calls.size()); ++call) {
        const std::string& name = calls[static_cast<size_t>(call) - 1];
        if (!Has(name, "GetFolderFromID")) continue;
        plan->FailCall(call);
        control->RefreshList();
        for (const char* row : {"Mailbox (Provider)", "Inbox", "People", "Diary", "To do", "Archive", "Old mail"})
            EXPECT_NE(RowOf(Grid(), row), 0) << name;
        plan->FailCall(0);
    }
}

TEST_F(Faults, AnyCallOfAnExpansionCostsOneLineAndTheNodeCanBeOpenedAgain) {
    Renew(1);
    const Lines closed = NamesOf(Grid());
    Expand();
    const Lines open = NamesOf(Grid());
    const std::vector<std::string> calls = mailbox.log->Lines();
    ASSERT_EQ(static_cast<int>(calls.size()), plan->Calls());
    for (int call = 1; call <= static_cast<int>(calls.size()); ++call) {
        const std::string& name = calls[static_cast<size_t>(call) - 1];
        SCOPED_TRACE("call " + std::to_string(call) + ": " + name);
        Renew(1);
        const int live = ScriptedObject::LiveCount();
        plan->FailCall(call);
        EXPECT_NO_THROW(Expand());
        const bool sorting = Has(name, "Table.Sort");
        EXPECT_EQ(host.ErrorLines(), sorting ? Lines{} : Lines{ofExpansion});
        EXPECT_EQ(NamesOf(Grid()), sorting ? open : closed);
        EXPECT_EQ(Cell("Inbox", colIncomplete), sorting ? "" : "-1");
        EXPECT_EQ(host.Trace().back(), "Done.");
        EXPECT_EQ(ScriptedObject::LiveCount(), live);
        ExpectIdle();
        plan->FailCall(0);
        Expand();
        EXPECT_EQ(NamesOf(Grid()), open);
    }
}

TEST_F(Faults, AnyCallForTheDefaultFoldersCostsTheirLineAndTheRefreshGoesOn) {
    mailbox.defaultFolders = {{6, "01"}, {16, "02"}, {4, "03"}, {3, "04"}, {5, "05"}, {12, "06"}};
    for (int call = 1; call <= 12; ++call) {
        plan = std::make_shared<FaultPlan>();
        const ObjectRef session = plan->Wrap(mailbox.Session());
        host.ClearTrace();
        plan->FailCall(call);
        control->SetRDOSessionRef(session);
        EXPECT_EQ(host.Trace(), Lines{"Error in ctlFolderTree.GetFolderIDs(?): 0x" + injected}) << call;
    }
    plan->FailCall(0);
}

TEST_F(Faults, AnyCallOnAHostsCollectionIsAtMostOneLineForEachPass) {
    Renew(0);
    const auto collection = NewCollection();
    for (const char* entryID : {"0001", "0002", "00EE"}) AddItem(*collection, HostItem("B2", entryID));
    const ObjectRef wrapped = plan->Wrap(collection);
    const auto use = [&] {
        control->SetSelection(wrapped);
        Tick("Zoo");
        control->Selection();
        Untick("Zoo");
    };
    plan->FailCall(0);
    use();
    const int calls = plan->Calls();
    ASSERT_GT(calls, 10);
    EXPECT_EQ(host.ErrorLines(), Lines{});
    for (int call = 1; call <= calls; ++call) {
        SCOPED_TRACE(call);
        host.ClearTrace();
        plan->FailCall(call);
        EXPECT_NO_THROW(use());
        // A lookup that fails means "not in there", and then the key may turn out to be taken.
        EXPECT_LE(host.ErrorLines().size(), 2u);
        for (const std::string& line : host.ErrorLines())
            EXPECT_TRUE(line.starts_with("Error in ctlFolderTree.")) << line;
        ExpectIdle();
        plan->FailCall(0);
        control->Selection();
    }
}

}  // namespace
}  // namespace foldertree::testing
