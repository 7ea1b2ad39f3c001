// LifecycleTest: how a control comes and goes, and what becomes of the host's objects.
#include <functional>
#include <utility>

#include "support/ControlTest.h"
#include "support/HookedObject.h"

namespace foldertree::testing {
namespace {

using automation::Value;
using automation::testing::ScriptedObject;

using Lifecycle = ControlTest;

TEST_F(Lifecycle, TheFirstPublicCallInitialisesAControlThatNobodyLoaded) {
    control = ctlFolderTree::Create(platform, factory);
    EXPECT_EQ(control->ExtendToLevel(), 1);
    EXPECT_TRUE(control->MultiSelect());
    EXPECT_TRUE(control->Enabled());
}

TEST_F(Lifecycle, ASetterInitialisesFirst) {
    control = ctlFolderTree::Create(platform, factory);
    control->SetAllowIndexing(true);
    EXPECT_TRUE(control->AllowIndexing());
    EXPECT_EQ(control->ExtendToLevel(), 1);
}

TEST_F(Lifecycle, ALaterLoadWins) {
    control->SetAllowIndexing(true);
    FakeBag bag;
    bag.values["ExtendToLevel"] = Value(int32_t{4});
    control->UserControl_ReadProperties(bag);
    EXPECT_EQ(control->ExtendToLevel(), 4);
    EXPECT_FALSE(control->AllowIndexing());
}

TEST_F(Lifecycle, InitPropertiesWritesTheStateWithoutSideEffects) {
    EXPECT_EQ(platform.changedProperties, Lines{});
    EXPECT_EQ(platform.Trace(), Lines{});
    EXPECT_EQ(platform.yields, 0);
}

TEST_F(Lifecycle, InitPropertiesEmptiesTheSelectionCollectionAndDropsTheSession) {
    const auto collection = NewCollection();
    AddItem(*collection, HostItem("B2", "0001"));
    control->SetSelection(collection);
    control->SetRDOSessionRef(mailbox.Session());
    control->UserControl_InitProperties();
    EXPECT_EQ(collection->Count(), 0);
    EXPECT_EQ(control->Selection(), nullptr);
    EXPECT_EQ(control->RDOSessionRef(), nullptr);
}

TEST_F(Lifecycle, RowsAreNineteenPixelsHigh) {
    platform.twipsPerPixel = 12;
    control = ctlFolderTree::Create(platform, factory);
    Load();
    EXPECT_EQ(Grid().RowHeight(Row("Mailbox")), 19 * 12);
    EXPECT_EQ(Grid().RowHeight(Row("Inbox")), 19 * 12);
}

TEST_F(Lifecycle, ClosingEmptiesTheHostsCollectionToo) {
    const auto collection = NewCollection();
    AddItem(*collection, HostItem("B2", "0001"));
    AddItem(*collection, HostItem("B2", "0002"));
    control->SetSelection(collection);
    control->Close();
    EXPECT_EQ(collection->Count(), 0);
}

TEST_F(Lifecycle, DroppingTheControlEmptiesTheHostsCollectionToo) {
    const auto collection = NewCollection();
    AddItem(*collection, HostItem("B2", "0001"));
    control->SetSelection(collection);
    control.reset();
    EXPECT_EQ(collection->Count(), 0);
}

TEST_F(Lifecycle, ClosingReleasesTheHostsObjects) {
    const auto session = mailbox.Session();
    const auto application = std::make_shared<ScriptedObject>("Application");
    const auto collection = NewCollection();
    const ItemRef item = HostItem("B2", "0001");
    control->SetRDOSessionRef(session);
    control->SetApplication(application);
    control->SetSelection(collection);
    control->SetSelectedItem(item);
    control->Close();
    EXPECT_EQ(session.use_count(), 1);
    EXPECT_EQ(application.use_count(), 1);
    EXPECT_EQ(collection.use_count(), 1);
    EXPECT_EQ(item.use_count(), 1);
}

TEST_F(Lifecycle, AnErrorWhileClosingIsTracedAndTheRestIsReleased) {
    auto collection = std::make_shared<ScriptedObject>("Collection");
    collection->Items({});
    control->SetSelection(collection);
    const auto session = mailbox.Session();
    control->SetRDOSessionRef(session);
    collection->Fails("Count", automation::Error(0x80004005, "No."));
    platform.ClearTrace();
    control->Close();
    EXPECT_EQ(platform.Trace(), Lines{"Error in ctlFolderTree.KillCollection (?): [0x80004005] No."});
    EXPECT_EQ(session.use_count(), 1);
}

TEST_F(Lifecycle, AClosedControlAnswersNeutrallyAndTouchesNothing) {
    Load();
    control->Close();
    platform.closed = true;
    EXPECT_TRUE(control->Closed());
    EXPECT_EQ(control->Selection(), nullptr);
    EXPECT_EQ(control->SelectedItem(), nullptr);
    EXPECT_EQ(control->CreateSelItem(1, "A", "B", "", ""), nullptr);
    EXPECT_EQ(control->ListCount(), 0);
    control->SetEnabled(false);
    control->SetExtendToLevel(0);
    control->SetRDOSessionRef(mailbox.Session());
    control->RefreshList();
    control->cmdCancel_Click();
    control->UserControl_InitProperties();
    control->Close();
    EXPECT_EQ(platform.callsAfterClose, 0);
}

TEST_F(Lifecycle, AnInitialisationThatFailsIsTraced) {
    class NoFonts : public FakePlatform {
        automation::ObjectRef CreateFont(std::string_view) override {
            throw automation::Error(0x80004005, "No fonts.");
        }
    };
    NoFonts poor;
    const auto plain = ctlFolderTree::Create(poor, factory);
    EXPECT_EQ(poor.Trace(), Lines{"Error in ctlFolderTree.UserControl_Initialize (?): [0x80004005] No fonts."});
    EXPECT_EQ(plain->ListCount(), 0);
}

TEST_F(Lifecycle, TheControlMayBeDroppedWhileAnyPropertyIsMarkedChanged) {
    const std::vector<std::function<void(ctlFolderTree&)>> setters{
        [](ctlFolderTree& c) { c.SetEnabled(false); },
        [](ctlFolderTree& c) { c.SetHighlightContactFolders(true); },
        [](ctlFolderTree& c) { c.SetMultiSelect(false); },
        [](ctlFolderTree& c) { c.SetAllowIndexing(true); },
        [](ctlFolderTree& c) { c.SetShowAddressBook(true); },
        [](ctlFolderTree& c) { c.SetExtendToLevel(3); },
        [](ctlFolderTree& c) { c.SetInfoStoreAccessMode(eISAccess_CDO); },
    };
    for (const auto& set : setters) {
        platform = FakePlatform();
        control = ctlFolderTree::Create(platform, factory);
        platform.onPropertyChanged = [this] {
            control->Close();
            control.reset();
            platform.closed = true;
        };
        set(*control);
        EXPECT_EQ(control, nullptr);
        EXPECT_EQ(platform.callsAfterClose, 0);
        EXPECT_EQ(platform.Trace(), Lines{});
    }
}

/// A bag of which each read runs host code first.
class LeadingBag : public FakeBag {
  public:
    std::function<void()> onRead;
    Value Read(std::string_view name) override {
        if (const auto handler = onRead) handler();
        return FakeBag::Read(name);
    }
};

class LifeMembers : public Lifecycle {
  protected:
    /// A host's own collection of one item, which runs host code at each call.
    automation::ObjectRef HostsOwnCollection(std::function<void()> onCall) {
        const auto collection = NewCollection();
        AddItem(*collection, HostItem("B2", "0001"));
        hook_->onCall = [act = std::move(onCall)](int) { act(); };
        return Hook(collection, hook_);
    }
    void StopHook() { hook_->onCall = nullptr; }

  private:
    std::shared_ptr<CallHook> hook_ = std::make_shared<CallHook>();
};

TEST_F(LifeMembers, KeepTheControlWhileTheHostLetsItGo) {
    const std::weak_ptr<ctlFolderTree> life = control;
    ctlFolderTree* const raw = control.get();
    bool letGo = false;
    control->SetSelection(HostsOwnCollection([&] {
        if (letGo) control.reset();
    }));
    letGo = true;
    raw->UserControl_InitProperties();
    EXPECT_EQ(control, nullptr);
    EXPECT_TRUE(life.expired());
}

TEST_F(LifeMembers, KeepTheControlWhileTheHostLetsItGoInItsBag) {
    ctlFolderTree* const raw = control.get();
    LeadingBag bag;
    bag.onRead = [&] { control.reset(); };
    raw->UserControl_ReadProperties(bag);
    EXPECT_EQ(control, nullptr);
}

TEST_F(LifeMembers, KeepTheControlWhileTheHostLetsItGoAsItCloses) {
    ctlFolderTree* const raw = control.get();
    bool letGo = false;
    control->SetSelection(HostsOwnCollection([&] {
        if (letGo) control.reset();
    }));
    letGo = true;
    raw->Close();
    EXPECT_EQ(control, nullptr);
}

TEST_F(LifeMembers, DoNotReadOnAfterTheControlIsClosed) {
    LeadingBag bag;
    bag.onRead = [&] { control->Close(); };
    control->UserControl_ReadProperties(bag);
    EXPECT_EQ(bag.reads.size(), 1u);
}

TEST_F(LifeMembers, LeaveACollectionThatIsAssignedWhileTheOldOneIsEmptied) {
    const auto other = NewCollection();
    AddItem(*other, HostItem("B2", "0002"));
    bool assign = false;
    control->SetSelection(HostsOwnCollection([&] {
        if (std::exchange(assign, false)) control->SetSelection(other);
    }));
    assign = true;
    control->UserControl_InitProperties();
    StopHook();
    EXPECT_EQ(control->Selection(), other);
    EXPECT_EQ(KeysOf(other).size(), 1u);
}

TEST_F(Lifecycle, ClosingInTheMiddleOfALoadTakesPanelAndPointerDown) {
    platform.onYield = [&](int) { control->Close(); };
    Load();
    EXPECT_TRUE(control->Closed());
    EXPECT_FALSE(platform.panelVisible);
    EXPECT_FALSE(platform.busyPointer);
}

}  // namespace
}  // namespace foldertree::testing
