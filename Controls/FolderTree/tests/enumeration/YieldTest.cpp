// YieldTest: what hosts do inside the yields of a load that only one way of reading is needed to show.
#include <functional>

#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::testing::ScriptedObject;

class Yields : public ControlTest {
  protected:
    void Renew(int32_t level) {
        platform = FakePlatform();
        control = ctlFolderTree::Create(platform, factory);
        control->UserControl_InitProperties();
        const auto collection = NewCollection();
        AddItem(*collection, HostItem("B2", "0001"));
        AddItem(*collection, HostItem("B2", "0011"));
        control->SetSelection(collection);
        Load(level);
        platform.yields = 0;
    }
    /// Runs `load` on a new control once for each of its yields, with `act` inside that yield.
    void AtEveryYield(int32_t level, const std::function<void(ctlFolderTree&)>& load, const std::function<void()>& act,
                      const std::function<void()>& check) {
        Renew(level);
        load(*control);
        const int yields = platform.yields;
        ASSERT_GT(yields, 3);
        for (int chosen = 1; chosen <= yields; ++chosen) {
            SCOPED_TRACE("yield " + std::to_string(chosen));
            Renew(level);
            platform.onYield = [&](int yield) {
                if (yield == chosen) act();
            };
            load(*control);
            platform.onYield = nullptr;
            check();
        }
    }
    void ExpectNothingTouched() {
        EXPECT_EQ(platform.callsAfterClose, 0);
        if (control) {
            EXPECT_FALSE(control->Refreshing());
        }
        control.reset();
        EXPECT_EQ(ScriptedObject::LiveCount(), liveBefore);
    }
    static void Expand(ctlFolderTree& control) {
        bool cancel = false;
        control.fgd_BeforeCollapse(RowOf(control.Grid(), "Inbox"), 0, cancel);
    }
};

TEST_F(Yields, AReferenceDroppedWithoutClosingEndsTheControlAfterTheLoad) {
    Renew(0);
    platform.onYield = [this](int yield) {
        if (yield == 5) control.reset();
    };
    const std::weak_ptr<ctlFolderTree> watched = control;
    control->RefreshList();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(ScriptedObject::LiveCount(), liveBefore);
}

TEST_F(Yields, ARefreshBehindASetterEndsTooWhenTheControlIsClosed) {
    AtEveryYield(
        1, [](ctlFolderTree& target) { target.SetExtendToLevel(3); },
        [this] {
            control->Close();
            platform.closed = true;
        },
        [this] { ExpectNothingTouched(); });
}

TEST_F(Yields, ASelectionAssignedInsideARefreshIsShownAtItsEnd) {
    Renew(0);
    const auto collection = NewCollection();
    platform.onYield = [&](int yield) {
        if (yield != 4) return;
        AddItem(*collection, HostItem("B2", "0004"));
        control->SetSelection(collection);
    };
    control->RefreshList();
    EXPECT_TRUE(IsTicked(Grid(), Row("To do")));
    EXPECT_EQ(control->Selection(), collection);
}

TEST_F(Yields, AnExpansionThatLosesItsRowsEndsQuietly) {
    AtEveryYield(
        1, Expand, [this] { control->SetShowAddressBook(!control->ShowAddressBook()); },
        [this] {
            EXPECT_LE(platform.ErrorLines().size(), 2u);
            ExpectIdle();
        });
}

}  // namespace
}  // namespace foldertree::testing
