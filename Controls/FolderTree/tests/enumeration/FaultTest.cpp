// FaultTest: any one call on the host's own collection fails, and the control says so and goes on.
#include "automation_testing/FaultyObject.h"
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::ObjectRef;
using automation::testing::FaultPlan;

class Faults : public ControlTest {
  protected:
    std::shared_ptr<FaultPlan> plan = std::make_shared<FaultPlan>();
};

TEST_F(Faults, AnyCallOnAHostsCollectionIsAtMostOneLineForEachPass) {
    Load();
    const auto collection = NewCollection();
    for (const char* entryID : {"0001", "0002", "00EE"}) AddItem(*collection, HostItem("B2", entryID));
    const ObjectRef wrapped = plan->Wrap(collection);
    const auto use = [&] {
        control->SetSelection(wrapped);
        Tick("Zoo");
        control->Selection();
        Untick("Zoo");
    };
    use();
    const int calls = plan->Calls();
    ASSERT_GT(calls, 10);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    for (int call = 1; call <= calls; ++call) {
        SCOPED_TRACE(call);
        platform.ClearTrace();
        plan->FailCall(call);
        EXPECT_NO_THROW(use());
        // A lookup that fails means "not in there", and then the key may turn out to be taken.
        EXPECT_LE(platform.ErrorLines().size(), 2u);
        for (const std::string& line : platform.ErrorLines())
            EXPECT_TRUE(line.starts_with("Error in ctlFolderTree.")) << line;
        ExpectIdle();
        plan->FailCall(0);
        control->Selection();
    }
}

}  // namespace
}  // namespace foldertree::testing
