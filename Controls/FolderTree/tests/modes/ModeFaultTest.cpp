// ModeFaultTest: in each mode every outside call of a refresh and of an expansion fails once.
#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

using automation::testing::FaultPlan;

class FailingCalls : public EachMode {
  protected:
    FailingCalls() { plan = std::make_shared<FaultPlan>(); }

    int32_t Level() const { return IsRdo() ? 1 : 2; }

    /// The calls of an undisturbed `action`, in their order.
    Lines CallsOf(const std::function<void()>& action) {
        mail.log->Clear();
        plan->FailCall(0);
        action();
        EXPECT_EQ(static_cast<size_t>(plan->Calls()), mail.log->Count()) << "the plan counts what the log shows";
        return mail.log->Lines();
    }

    /// What the control expects to fail: a folder may have no container class. All else is told.
    bool IsExpected(const std::string& call) const {
        return GetParam() == eISAccess_CDO &&
               (call.find(".Fields(907214878)") != std::string::npos || call.starts_with("Field("));
    }
    /// A store that cannot tell whether it is the default one is not.
    static bool IsDefaultFlag(const std::string& call) {
        return call.find("Fields(872415243)") != std::string::npos || call == "StoreField.Value";
    }

    size_t Told() const { return host.ErrorLines().size() + host.TraceCount("Failed to log on"); }
};

TEST_P(FailingCalls, EachCallOfARefreshFailsOnce) {
    Prepare(GetParam(), Level());
    const Lines calls = CallsOf([&] { control->RefreshList(); });
    const Lines tree = Tree();
    ASSERT_GT(calls.size(), 50u);
    for (size_t n = 1; n <= calls.size(); ++n) {
        const std::string& call = calls[n - 1];
        StartAnew();
        Prepare(GetParam(), Level());
        host.ClearTrace();
        plan->FailCall(static_cast<int>(n));
        control->RefreshList();
        EXPECT_EQ(Told(), IsExpected(call) || IsDefaultFlag(call) ? 0u : 1u) << n << " " << call;
        EXPECT_EQ(host.Trace().back(), "GetFolders: Done") << n << " " << call;
        EXPECT_TRUE(!IsExpected(call) || Tree().size() == tree.size()) << n << " " << call;
        ExpectIdle();
        plan->FailCall(0);
        control->RefreshList();
        EXPECT_EQ(Tree(), tree) << "the next refresh shows everything: " << n << " " << call;
    }
    RecordProperty("failedCalls", static_cast<int>(calls.size()));
    StartAnew();
}

TEST_P(FailingCalls, EachCallOfAnExpansionFailsOnce) {
    FolderNamed("Projects").children.push_back(MailFolder("Beta", "0022", {MailFolder("Gamma", "0023")}));
    LoadMode(GetParam(), Level());
    const Lines closed = Tree();
    const Lines calls = CallsOf([&] { Open("Projects"); });
    const Lines open = Tree();
    ASSERT_GT(calls.size(), 10u);
    for (size_t n = 1; n <= calls.size(); ++n) {
        const std::string& call = calls[n - 1];
        StartAnew();
        LoadMode(GetParam(), Level());
        host.ClearTrace();
        plan->FailCall(static_cast<int>(n));
        Open("Projects");
        EXPECT_EQ(host.ErrorLines().size(), 1u) << n << " " << call;
        EXPECT_EQ(host.Trace().size(), 1u) << n << " " << call;
        ExpectIdle();
        const bool nothingRead = Grid().FindRow("Alpha", 0, colName) == -1;
        EXPECT_EQ(Cell("Projects", colIncomplete), nothingRead ? "-1" : "") << n << " " << call;
        plan->FailCall(0);
        if (!nothingRead) continue;
        Shut("Projects");
        EXPECT_EQ(Tree(), closed) << n << " " << call;
        Open("Projects");
        EXPECT_EQ(Tree(), open) << "opening it again reads it: " << n << " " << call;
    }
    RecordProperty("failedCalls", static_cast<int>(calls.size()));
    StartAnew();
}

INSTANTIATE_TEST_SUITE_P(Modes, FailingCalls,
                         ::testing::Values(eISAccess_RDO_Objects, eISAccess_Outlook, eISAccess_CDO), ModeName);

}  // namespace
}  // namespace foldertree::testing
