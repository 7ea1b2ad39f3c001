// ReentryTest: the host lets go of the control inside a call on its own collection.
#include "support/ControlTest.h"
#include "support/HookedObject.h"

namespace foldertree::testing {
namespace {

using automation::ObjectRef;

class Reentry : public ControlTest {
  protected:
    void Renew() {
        platform = FakePlatform();
        control = ctlFolderTree::Create(platform, factory);
        Load();
    }
    void Drop() {
        control->Close();
        control.reset();
        platform.closed = true;
    }
    std::shared_ptr<CallHook> hook = std::make_shared<CallHook>();
};

TEST_F(Reentry, TheLastReferenceMayGoInsideAnyCallOnTheHostsCollection) {
    const auto use = [this](const ObjectRef& collection) {
        const std::shared_ptr<ctlFolderTree> raw = control;
        raw->SetSelection(collection);
        raw->Selection();
        ObjectRef variable = collection;
        raw->KillCollection(variable);
    };
    const auto prepare = [this] {
        Renew();
        hook->calls = 0;
        const auto collection = NewCollection();
        AddItem(*collection, HostItem("B2", "0001"));
        AddItem(*collection, HostItem("B2", "0002"));
        return Hook(collection, hook);
    };
    const ObjectRef first = prepare();
    use(first);
    const int calls = hook->calls;
    ASSERT_GT(calls, 8);
    for (int chosen = 1; chosen <= calls; ++chosen) {
        SCOPED_TRACE(chosen);
        const ObjectRef collection = prepare();
        hook->onCall = [&](int call) {
            if (call == chosen) Drop();
        };
        use(collection);
        hook->onCall = nullptr;
        EXPECT_EQ(platform.callsAfterClose, 0);
        EXPECT_EQ(control, nullptr);
    }
}

}  // namespace
}  // namespace foldertree::testing
