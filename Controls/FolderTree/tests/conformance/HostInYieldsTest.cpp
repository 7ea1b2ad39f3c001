// HostInYieldsTest: at every yield of every operation in every mode the host may call any member, cancel, close the
// control or let go of it; and inside every outside call, since those let messages in too.
#include "conformance/ConformanceTest.h"
#include "support/HookedObject.h"

namespace foldertree::testing {
namespace {

using automation::ObjectRef;
using automation::testing::ScriptedObject;

struct HostAction {
    std::string name;
    std::function<void(ctlFolderTree&)> act;
};

/// Every public member and every gesture.
std::vector<HostAction> HostActions() {
    using C = ctlFolderTree;
    const auto onRow = [](auto gesture) {
        return [gesture](C& c) {
            GridInteraction interaction(c.Grid(), c);
            if (c.ListCount() > 1) gesture(interaction, c.ListCount());
        };
    };
    return {
        {"Application", [](C& c) { c.SetApplication(c.Application()); }},
        {"Application = Nothing", [](C& c) { c.SetApplication(nullptr); }},
        {"CDOSession", [](C& c) { c.CDOSession(); }},
        {"Font", [](C& c) { c.SetFont(c.Font()); }},
        {"GetMsgItem", [](C& c) { c.GetMsgItem("B2", "0001"); }},
        {"GetAdListItem", [](C& c) { c.GetAdListItem("G1", "G1"); }},
        {"KillCollection",
         [](C& c) {
             ObjectRef live = c.Selection();
             c.KillCollection(live);
         }},
        {"ListCount", [](C& c) { c.ListCount(); }},
        {"SelectedItem", [](C& c) { c.SetSelectedItem(c.CreateSelItem(0, "B2", "0001", "", "")); }},
        {"Selection", [](C& c) { c.Selection(); }},
        {"Selection = another", [](C& c) { c.SetSelection(NewCollection()); }},
        {"Selection = Nothing", [](C& c) { c.SetSelection(nullptr); }},
        {"Enabled", [](C& c) { c.SetEnabled(!c.Enabled()); }},
        {"HighlightContactFolders", [](C& c) { c.SetHighlightContactFolders(!c.HighlightContactFolders()); }},
        {"HighlightJournalFolders", [](C& c) { c.SetHighlightJournalFolders(!c.HighlightJournalFolders()); }},
        {"HighlightTaskFolders", [](C& c) { c.SetHighlightTaskFolders(!c.HighlightTaskFolders()); }},
        {"ExtendToLevel = 0", [](C& c) { c.SetExtendToLevel(0); }},
        {"ExtendToLevel = 1", [](C& c) { c.SetExtendToLevel(1); }},
        {"ExtendToLevel + 1", [](C& c) { c.SetExtendToLevel(c.ExtendToLevel() + 1); }},
        {"RDOSessionRef", [](C& c) { c.SetRDOSessionRef(c.RDOSessionRef()); }},
        {"RDOSessionRef = Nothing", [](C& c) { c.SetRDOSessionRef(nullptr); }},
        {"MultiSelect", [](C& c) { c.SetMultiSelect(!c.MultiSelect()); }},
        {"AllowIndexing", [](C& c) { c.SetAllowIndexing(!c.AllowIndexing()); }},
        {"ShowAddressBook", [](C& c) { c.SetShowAddressBook(!c.ShowAddressBook()); }},
        {"SelectNone", [](C& c) { c.SelectNone(); }},
        {"SelectAll", [](C& c) { c.SelectAll(); }},
        {"SelectByType", [](C& c) { c.SelectByType(FTIMailItem, false); }},
        {"RefreshList", [](C& c) { c.RefreshList(); }},
        {"Localize", [](C& c) { c.Localize("1", "2", "3", "4", "5", "6"); }},
        {"CreateSelItem", [](C& c) { c.CreateSelItem(1, "B2", "0001", "", ""); }},
        {"InfoStoreAccessMode",
         [](C& c) {
             const auto next = (static_cast<int32_t>(c.InfoStoreAccessMode()) + 1) % 5;
             c.SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(next));
         }},
        {"BufferedToLevel", [](C& c) { c.BufferedToLevel(); }},
        {"CollapseToSelection", [](C& c) { c.CollapseToSelection(); }},
        {"CollapseToType", [](C& c) { c.CollapseToType(FTIContactItem); }},
        {"cancel", [](C& c) { c.CancelLoad(); }},
        {"settings are read",
         [](C& c) {
             FakeBag bag;
             c.UserControl_ReadProperties(bag);
         }},
        {"settings are written",
         [](C& c) {
             FakeBag bag;
             c.UserControl_WriteProperties(bag);
         }},
        {"settings are initialised", [](C& c) { c.UserControl_InitProperties(); }},
        {"a tick", onRow([](GridInteraction& user, int32_t) { user.ToggleTick(2); })},
        {"a number", onRow([](GridInteraction& user, int32_t) { user.CommitIndex(2, "1"); })},
        {"a node", onRow([](GridInteraction& user, int32_t rows) { user.ToggleNode(rows - 1); })},
        {"a double click", onRow([](GridInteraction& user, int32_t) { user.DoubleClick(2); })},
    };
}

/// Each operation in a mailbox as small as it can be.
class HostInYields : public EachSetting {
  protected:
    struct Operation {
        const char* name;
        TreeSettings settings;
        bool withFolders;
        std::function<void(ctlFolderTree&)> run;
    };
    std::vector<Operation> Operations() const {
        const auto refresh = [](ctlFolderTree& c) { c.RefreshList(); };
        const auto expand = [](ctlFolderTree& c) {
            bool cancel = false;
            c.fgd_BeforeCollapse(RowOf(c.Grid(), "Projects"), 0, cancel);
        };
        return {{"refresh", {.extendToLevel = 0}, true, refresh},
                {"expansion", {.extendToLevel = LevelToRead(2)}, true, expand},
                {"address book", {.extendToLevel = 0, .showAddressBook = true}, false, refresh}};
    }

    /// A control that is ready for the operation, with a selection that is in the tree.
    void Renew(const Operation& operation) {
        mail.stores = {{"Mailbox", "B2", true, {}}};
        if (operation.withFolders) {
            mail.stores.push_back({"Archive", "A1", false, {}});
            mail.stores[0].folders = {MailFolder(
                "Inbox", "0001",
                {MailFolder("Projects", "0011", {MailFolder("Alpha", "0021", {MailFolder("Gamma", "0031")})})})};
        }
        mail.addressLists = {AddressList("Global", "G1", {AddressList("Europe", "G11")})};
        StartAnew();
        platform.closed = false;
        platform.callsAfterClose = 0;
        const auto collection = NewCollection();
        AddItem(*collection, ItemOf("B2", "0001"));
        AddItem(*collection, ItemOf("B2", "0021"));
        control->SetSelection(collection);
        SetUpTree(operation.settings);
        const bool needsTree = operation.settings.extendToLevel != 0;
        if (needsTree) control->RefreshList();
        platform.yields = 0;
    }

    /// Runs each operation once for each of its yields, with `act` inside that yield.
    void AtEveryYield(const std::function<void()>& act, const std::function<void()>& check) {
        InEach(
            "yield", [this](std::function<void(int)> handler) { platform.onYield = std::move(handler); },
            [this]() -> int& { return platform.yields; }, act, check);
    }
    /// The same for each of its outside calls.
    void InEveryCall(const std::function<void()>& act, const std::function<void()>& check) {
        hook_ = std::make_shared<CallHook>();
        InEach(
            "call", [this](std::function<void(int)> handler) { hook_->onCall = std::move(handler); },
            [this]() -> int& { return hook_->calls; }, act, check);
    }

    ObjectRef MakeSession(enuInfoStoreAccessMode mode) override {
        const ObjectRef session = EachSetting::MakeSession(mode);
        return hook_ ? Hook(session, hook_) : session;
    }

    /// Rows that hang together: a known kind, and no row deeper than one level below the row above.
    void ExpectSoundTree() {
        int above = -1;
        for (int32_t row = 1; row < Grid().RowCount(); ++row) {
            const int level = Grid().RowOutlineLevel(row);
            EXPECT_LE(level, above + 1) << "row " << row;
            EXPECT_NE(Grid().CellText(row, colRowKind), "") << "row " << row;
            above = level;
        }
    }

    void Close() {
        control->Close();
        platform.closed = true;
    }
    void Drop() {
        Close();
        control.reset();
    }
    void ExpectNothingTouched() {
        EXPECT_EQ(platform.callsAfterClose, 0);
        control.reset();
        EXPECT_EQ(ScriptedObject::LiveCount(), liveBefore) << "an outside object was not released";
        platform.closed = false;
    }

  private:
    void InEach(const char* point, const std::function<void(std::function<void(int)>)>& setHandler,
                const std::function<int&()>& count, const std::function<void()>& act,
                const std::function<void()>& check) {
        for (const Operation& operation : Operations()) {
            Renew(operation);
            count() = 0;
            operation.run(*control);
            const int points = count();
            ASSERT_GT(points, 1);
            for (int chosen = 1; chosen <= points; ++chosen) {
                SCOPED_TRACE(std::string(operation.name) + ", " + point + " " + std::to_string(chosen));
                Renew(operation);
                count() = 0;
                bool acted = false;  // an action may yield itself
                setHandler([&](int number) {
                    if (number < chosen || acted) return;
                    acted = true;
                    act();
                });
                operation.run(*control);
                setHandler(nullptr);
                EXPECT_TRUE(acted);
                check();
            }
        }
        control = ctlFolderTree::Create(platform, factory);
    }

    std::shared_ptr<CallHook> hook_;
};

TEST_P(HostInYields, AnyMemberMayBeCalledInAnyOfThem) {
    for (const HostAction& action : HostActions()) {
        SCOPED_TRACE(action.name);
        AtEveryYield([&] { action.act(*control); }, [this] { ExpectIdle(); });
    }
}

TEST_P(HostInYields, CancellingInAnyOfThemLeavesASoundTree) {
    AtEveryYield([this] { control->CancelLoad(); },
                 [this] {
                     ExpectIdle();
                     ExpectSoundTree();
                     EXPECT_EQ(platform.ErrorLines(), Lines{});
                 });
}

TEST_P(HostInYields, TheControlMayBeClosedInAnyOfThem) {
    AtEveryYield([this] { Close(); }, [this] { ExpectNothingTouched(); });
}

TEST_P(HostInYields, TheLastReferenceMayGoInAnyOfThem) {
    AtEveryYield([this] { Drop(); }, [this] { ExpectNothingTouched(); });
}

TEST_P(HostInYields, TheControlMayBeClosedInsideAnyOutsideCall) {
    InEveryCall([this] { Close(); }, [this] { ExpectNothingTouched(); });
}

TEST_P(HostInYields, TheLastReferenceMayGoInsideAnyOutsideCall) {
    InEveryCall([this] { Drop(); }, [this] { ExpectNothingTouched(); });
}

TEST_P(HostInYields, TheSessionMayBeTakenAwayInsideAnyOutsideCall) {
    InEveryCall(
        [this] {
            control->SetRDOSessionRef(nullptr);
            control->SetApplication(nullptr);
        },
        [this] { ExpectIdle(); });
}

TEST_P(HostInYields, TheTreeMayBeEmptiedInsideAnyOutsideCall) {
    InEveryCall([this] { control->SetShowAddressBook(!control->ShowAddressBook()); }, [this] { ExpectIdle(); });
}

TEST_P(HostInYields, AnEditInsideAnyOutsideCallIsIgnored) {
    InEveryCall(
        [this] {
            if (control->ListCount() > 1) control->fgd_AfterEdit(2, colSel);
        },
        [this] {
            ExpectIdle();
            EXPECT_EQ(platform.changed, 0);
            EXPECT_EQ(platform.ErrorLines(), Lines{});
        });
}

TEST_P(HostInYields, ARefreshInsideAnyOutsideCallIsTurnedAway) {
    InEveryCall([this] { control->RefreshList(); },
                [this] {
                    ExpectIdle();
                    EXPECT_EQ(platform.ErrorLines(), Lines{});
                });
}

TEST_P(HostInYields, TheLiveSelectionMayBeEmptiedInAnyOfThem) {
    AtEveryYield(
        [this] {
            ObjectRef live = control->Selection();
            control->KillCollection(live);
            EXPECT_EQ(live, nullptr);
        },
        [this] {
            ExpectIdle();
            EXPECT_EQ(platform.ErrorLines(), Lines{});
        });
}

TEST_P(HostInYields, ARefreshInsideAnyOfThemIsTurnedAway) {
    AtEveryYield(
        [this] {
            const size_t refreshes = platform.TraceCount("GetFolders: Refreshing view");
            control->RefreshList();
            EXPECT_EQ(platform.TraceCount("GetFolders: Refreshing view"), refreshes);
        },
        [this] {
            ExpectIdle();
            ExpectSoundTree();
            EXPECT_EQ(platform.ErrorLines(), Lines{});
        });
}

INSTANTIATE_TEST_SUITE_P(Modes, HostInYields, ::testing::ValuesIn(ScriptedModes()), SettingName);

/// How soon a cancel is obeyed, in outside calls: time is up to the libraries.
class CancelledLoads : public EachSetting {
  protected:
    /// Two stores with that many folders in one level and as many again in another.
    static ModeMailbox Wide(int folders) {
        ModeMailbox mailbox;
        for (const char* storeID : {"A1", "B2"}) {
            ModeStore store{std::string("Store ") + storeID, storeID, storeID[0] == 'A', {}, ""};
            ModeFolder inbox = MailFolder("Inbox", std::string(storeID) + "01");
            for (int i = 0; i < folders; ++i) {
                const std::string digits = std::to_string(1000 + i);
                inbox.children.push_back(MailFolder("Sub" + digits, std::string(storeID) + digits));
                store.folders.push_back(MailFolder("Top" + digits, std::string(storeID) + "FF" + digits));
            }
            store.folders.insert(store.folders.begin(), std::move(inbox));
            mailbox.stores.push_back(std::move(store));
        }
        for (int i = 0; i < folders; ++i)
            mailbox.addressLists.push_back(AddressList("List" + std::to_string(i), "G" + std::to_string(i)));
        return mailbox;
    }

    /// The most outside calls that a load still makes after a cancel at any of its yields.
    size_t MostCallsAfterCancel(int folders) {
        mail = Wide(folders);
        StartAnew();
        LoadTree({.showAddressBook = true});
        platform.yields = 0;
        control->RefreshList();
        const int yields = platform.yields;
        EXPECT_GT(yields, 4 * folders);
        size_t most = 0;
        for (int chosen = 1; chosen <= yields; chosen += std::max(1, yields / 30)) {
            size_t calls = 0;
            platform.yields = 0;
            platform.onYield = [&](int yield) {
                if (yield != chosen) return;
                control->CancelLoad();
                calls = mail.log->Count();
            };
            control->RefreshList();
            platform.onYield = nullptr;
            most = std::max(most, mail.log->Count() - calls);
        }
        return most;
    }
};

TEST_P(CancelledLoads, EndAfterAFewMoreOutsideCallsHoweverBigTheMailbox) {
    const size_t small = MostCallsAfterCancel(10);
    const size_t big = MostCallsAfterCancel(40);
    EXPECT_EQ(small, big);
    EXPECT_LE(big, 60u) << "at worst the first folders of two stores";
    RecordProperty("callsAfterCancel", static_cast<int>(big));
}

INSTANTIATE_TEST_SUITE_P(Modes, CancelledLoads, ::testing::ValuesIn(ScriptedModes()), SettingName);

}  // namespace
}  // namespace foldertree::testing
