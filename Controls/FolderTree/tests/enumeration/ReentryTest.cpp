// ReentryTest: an outside call lets messages in, so the host may close the control or call it inside any of them.
#include "support/ControlTest.h"
#include "support/HookedObject.h"

namespace foldertree::testing {
namespace {

using automation::ObjectRef;
using automation::Value;
using automation::testing::ScriptedObject;

class Reentry : public ControlTest {
  protected:
    void Renew(int32_t level) {
        host = FakeHost();
        hook = std::make_shared<CallHook>();
        control = ctlFolderTree::Create(host, factory);
        FakeBag bag;
        bag.values["ExtendToLevel"] = Value(level);
        control->UserControl_ReadProperties(bag);
        control->SetRDOSessionRef(Hook(mailbox.Session(), hook));
        control->RefreshList();
        host.ClearTrace();
        hook->calls = 0;
    }
    /// Runs `load` once for each outside call that it makes, with `act` inside that call.
    void InEveryCall(int32_t level, const std::function<void(ctlFolderTree&)>& load, const std::function<void()>& act,
                     const std::function<void()>& check) {
        Renew(level);
        load(*control);
        const int calls = hook->calls;
        ASSERT_GT(calls, 5);
        for (int chosen = 1; chosen <= calls; ++chosen) {
            SCOPED_TRACE("call " + std::to_string(chosen));
            Renew(level);
            hook->onCall = [&](int call) {
                if (call == chosen) act();
            };
            load(*control);
            hook->onCall = nullptr;
            check();
        }
    }
    static void Refresh(ctlFolderTree& control) { control.RefreshList(); }
    static void Expand(ctlFolderTree& control) {
        bool cancel = false;
        control.fgd_BeforeCollapse(RowOf(control.Grid(), "Inbox"), 0, cancel);
    }
    void Drop() {
        control->Close();
        control.reset();
        host.closed = true;
    }
    std::shared_ptr<CallHook> hook;
};

TEST_F(Reentry, TheLastReferenceMayGoInsideAnyOutsideCallOfARefresh) {
    InEveryCall(
        0, Refresh, [this] { Drop(); },
        [this] {
            EXPECT_EQ(host.callsAfterClose, 0);
            EXPECT_EQ(ScriptedObject::LiveCount(), liveBefore);
        });
}

TEST_F(Reentry, TheLastReferenceMayGoInsideAnyOutsideCallOfAnExpansion) {
    InEveryCall(
        1, Expand, [this] { Drop(); },
        [this] {
            EXPECT_EQ(host.callsAfterClose, 0);
            EXPECT_EQ(ScriptedObject::LiveCount(), liveBefore);
        });
}

TEST_F(Reentry, ARefreshInsideAnyOutsideCallOfALoadIsTurnedAway) {
    InEveryCall(
        0, Refresh, [this] { control->RefreshList(); },
        [this] {
            EXPECT_EQ(control->ListCount(), 10);
            ExpectIdle();
        });
}

TEST_F(Reentry, TheTreeMayBeEmptiedInsideAnyOutsideCall) {
    const auto empty = [this] { control->SetShowAddressBook(!control->ShowAddressBook()); };
    InEveryCall(0, Refresh, empty, [this] { ExpectIdle(); });
    InEveryCall(1, Expand, empty, [this] { ExpectIdle(); });
}

TEST_F(Reentry, TheSessionMayBeTakenAwayInsideAnyOutsideCall) {
    const auto take = [this] { control->SetRDOSessionRef(nullptr); };
    InEveryCall(0, Refresh, take, [this] { ExpectIdle(); });
    InEveryCall(1, Expand, take, [this] { ExpectIdle(); });
}

TEST_F(Reentry, ATickInsideAnyOutsideCallIsIgnored) {
    InEveryCall(
        0, Refresh,
        [this] {
            if (control->ListCount() >= 2) control->fgd_AfterEdit(2, colSel);
        },
        [this] {
            EXPECT_EQ(host.changed, 0);
            EXPECT_EQ(host.ErrorLines(), Lines{});
            ExpectIdle();
        });
}

TEST_F(Reentry, TheLastReferenceMayGoInsideAnyCallOnTheHostsCollection) {
    const auto use = [this](const ObjectRef& collection) {
        const std::shared_ptr<ctlFolderTree> raw = control;
        raw->SetSelection(collection);
        raw->Selection();
        ObjectRef variable = collection;
        raw->KillCollection(variable);
    };
    const auto prepare = [this] {
        Renew(0);
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
        EXPECT_EQ(host.callsAfterClose, 0);
        EXPECT_EQ(control, nullptr);
    }
}

}  // namespace
}  // namespace foldertree::testing
