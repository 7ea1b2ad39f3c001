// YieldTest: at every yield of a load the host may close the control, drop it, or call any member.
#include <functional>

#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::ObjectRef;
using automation::testing::ScriptedObject;

class Yields : public ControlTest {
  protected:
    void Renew(int32_t level) {
        host = FakeHost();
        control = ctlFolderTree::Create(host, factory);
        control->UserControl_InitProperties();
        const auto collection = NewCollection();
        AddItem(*collection, HostItem("B2", "0001"));
        AddItem(*collection, HostItem("B2", "0011"));
        control->SetSelection(collection);
        Load(level);
        host.yields = 0;
    }
    /// Lets go of the host's last reference, as the end of a form does.
    void Drop() {
        control->Close();
        control.reset();
        host.closed = true;
    }
    /// Runs `load` on a new control once for each of its yields, with `act` inside that yield.
    void AtEveryYield(int32_t level, const std::function<void(ctlFolderTree&)>& load, const std::function<void()>& act,
                      const std::function<void()>& check) {
        Renew(level);
        load(*control);
        const int yields = host.yields;
        ASSERT_GT(yields, 3);
        for (int chosen = 1; chosen <= yields; ++chosen) {
            SCOPED_TRACE("yield " + std::to_string(chosen));
            Renew(level);
            host.onYield = [&](int yield) {
                if (yield == chosen) act();
            };
            load(*control);
            host.onYield = nullptr;
            check();
        }
    }
    void ExpectNothingTouched() {
        EXPECT_EQ(host.callsAfterClose, 0);
        if (control) {
            EXPECT_FALSE(control->Refreshing());
        }
        control.reset();
        EXPECT_EQ(ScriptedObject::LiveCount(), liveBefore);
    }
    static void Refresh(ctlFolderTree& control) { control.RefreshList(); }
    static void Expand(ctlFolderTree& control) {
        bool cancel = false;
        control.fgd_BeforeCollapse(RowOf(control.Grid(), "Inbox"), 0, cancel);
    }
};

TEST_F(Yields, ARefreshEndsAndTouchesNothingWhenTheControlIsClosedAtAnyOfThem) {
    AtEveryYield(
        0, Refresh,
        [this] {
            control->Close();
            host.closed = true;
        },
        [this] { ExpectNothingTouched(); });
}

TEST_F(Yields, AnExpansionEndsAndTouchesNothingWhenTheControlIsClosedAtAnyOfThem) {
    AtEveryYield(
        1, Expand,
        [this] {
            control->Close();
            host.closed = true;
        },
        [this] { ExpectNothingTouched(); });
}

TEST_F(Yields, TheLastReferenceMayGoAtAnyYieldOfARefresh) {
    AtEveryYield(
        0, Refresh, [this] { Drop(); }, [this] { ExpectNothingTouched(); });
}

TEST_F(Yields, TheLastReferenceMayGoAtAnyYieldOfAnExpansion) {
    AtEveryYield(
        1, Expand, [this] { Drop(); }, [this] { ExpectNothingTouched(); });
}

TEST_F(Yields, AReferenceDroppedWithoutClosingEndsTheControlAfterTheLoad) {
    Renew(0);
    host.onYield = [this](int yield) {
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
            host.closed = true;
        },
        [this] { ExpectNothingTouched(); });
}

TEST_F(Yields, CancelAtAnyOfThemLeavesAConsistentTree) {
    AtEveryYield(
        0, Refresh, [this] { control->cmdCancel_Click(); },
        [this] {
            ExpectIdle();
            EXPECT_EQ(host.ErrorLines(), Lines{});
            for (int32_t row = 1; row < Grid().RowCount(); ++row) {
                EXPECT_NE(Grid().CellText(row, colRowKind), "");
                const int above = row == 1 ? -1 : Grid().RowOutlineLevel(row - 1);
                EXPECT_LE(Grid().RowOutlineLevel(row), above + 1);
            }
        });
}

/// Every public member, as a host may call it.
std::vector<std::pair<const char*, std::function<void(ctlFolderTree&)>>> Members() {
    const auto number = [](auto&& call) { return std::function<void(ctlFolderTree&)>(call); };
    return {
        {"Application", number([](ctlFolderTree& c) { c.SetApplication(c.Application()); })},
        {"CDOSession", number([](ctlFolderTree& c) { c.CDOSession(); })},
        {"Font", number([](ctlFolderTree& c) { c.SetFont(c.Font()); })},
        {"GetMsgItem", number([](ctlFolderTree& c) { c.GetMsgItem("B2", "0001"); })},
        {"GetAdListItem", number([](ctlFolderTree& c) { c.GetAdListItem("A", "B"); })},
        {"KillCollection", number([](ctlFolderTree& c) {
             ObjectRef collection = c.Selection();
             c.KillCollection(collection);
         })},
        {"ListCount", number([](ctlFolderTree& c) { c.ListCount(); })},
        {"SelectedItem", number([](ctlFolderTree& c) { c.SelectedItem(); })},
        {"SelectedItem set",
         number([](ctlFolderTree& c) { c.SetSelectedItem(c.CreateSelItem(0, "B2", "0001", "", "")); })},
        {"Selection", number([](ctlFolderTree& c) { c.Selection(); })},
        {"Selection set", number([](ctlFolderTree& c) { c.SetSelection(NewCollection()); })},
        {"Selection set to nothing", number([](ctlFolderTree& c) { c.SetSelection(nullptr); })},
        {"Enabled", number([](ctlFolderTree& c) { c.SetEnabled(!c.Enabled()); })},
        {"HighlightContactFolders",
         number([](ctlFolderTree& c) { c.SetHighlightContactFolders(!c.HighlightContactFolders()); })},
        {"HighlightJournalFolders",
         number([](ctlFolderTree& c) { c.SetHighlightJournalFolders(!c.HighlightJournalFolders()); })},
        {"HighlightTaskFolders",
         number([](ctlFolderTree& c) { c.SetHighlightTaskFolders(!c.HighlightTaskFolders()); })},
        {"ExtendToLevel all", number([](ctlFolderTree& c) { c.SetExtendToLevel(0); })},
        {"ExtendToLevel deeper", number([](ctlFolderTree& c) { c.SetExtendToLevel(c.ExtendToLevel() + 1); })},
        {"ExtendToLevel 1", number([](ctlFolderTree& c) { c.SetExtendToLevel(1); })},
        {"RDOSessionRef", number([](ctlFolderTree& c) { c.SetRDOSessionRef(c.RDOSessionRef()); })},
        {"RDOSessionRef set to nothing", number([](ctlFolderTree& c) { c.SetRDOSessionRef(nullptr); })},
        {"MultiSelect", number([](ctlFolderTree& c) { c.SetMultiSelect(!c.MultiSelect()); })},
        {"AllowIndexing", number([](ctlFolderTree& c) { c.SetAllowIndexing(!c.AllowIndexing()); })},
        {"ShowAddressBook", number([](ctlFolderTree& c) { c.SetShowAddressBook(!c.ShowAddressBook()); })},
        {"RefreshList", number([](ctlFolderTree& c) { c.RefreshList(); })},
        {"Localize", number([](ctlFolderTree& c) { c.Localize("a", "b", "c", "d", "e", "f"); })},
        {"CreateSelItem", number([](ctlFolderTree& c) { c.CreateSelItem(1, "B2", "0001", "", ""); })},
        {"InfoStoreAccessMode",
         number([](ctlFolderTree& c) { c.SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(7)); })},
        {"BufferedToLevel", number([](ctlFolderTree& c) { c.BufferedToLevel(); })},
        {"a tick", number([](ctlFolderTree& c) {
             if (c.ListCount() < 2) return;
             GridInteraction(c.Grid(), c).ToggleTick(2);
         })},
        {"a node", number([](ctlFolderTree& c) {
             if (c.ListCount() < 2) return;
             GridInteraction(c.Grid(), c).ToggleNode(2);
         })},
        {"a double click", number([](ctlFolderTree& c) {
             if (c.ListCount() < 2) return;
             GridInteraction(c.Grid(), c).DoubleClick(2);
         })},
        {"a load of settings", number([](ctlFolderTree& c) {
             FakeBag bag;
             c.UserControl_ReadProperties(bag);
         })},
        {"initialisation", number([](ctlFolderTree& c) { c.UserControl_InitProperties(); })},
    };
}

TEST_F(Yields, AnyMemberMayBeCalledAtAnyOfARefresh) {
    for (const auto& [name, call] : Members()) {
        SCOPED_TRACE(name);
        AtEveryYield(
            0, Refresh, [this, &call = call] { call(*control); }, [this] { ExpectIdle(); });
    }
}

TEST_F(Yields, AnyMemberMayBeCalledAtAnyOfAnExpansion) {
    for (const auto& [name, call] : Members()) {
        SCOPED_TRACE(name);
        AtEveryYield(
            1, Expand, [this, &call = call] { call(*control); }, [this] { ExpectIdle(); });
    }
}

TEST_F(Yields, ASelectionAssignedInsideARefreshIsShownAtItsEnd) {
    Renew(0);
    const auto collection = NewCollection();
    host.onYield = [&](int yield) {
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
            EXPECT_LE(host.ErrorLines().size(), 2u);
            ExpectIdle();
        });
}

}  // namespace
}  // namespace foldertree::testing
