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

/// A host's object that runs its code when the last reference to it goes.
class LastWords : public automation::Object {
  public:
    explicit LastWords(std::function<void()> words) : words_(std::move(words)) {}
    ~LastWords() override { words_(); }
    Value Invoke(const automation::Invocation&) override { return {}; }
    bool HasMember(std::string_view) const override { return false; }

  private:
    std::function<void()> words_;
};

/// A bag whose reads and writes run the host's code first.
class BusyBag : public FakeBag {
  public:
    std::function<void()> onUse;
    Value Read(std::string_view name) override {
        onUse();
        return FakeBag::Read(name);
    }
    void Write(std::string_view name, const Value& value) override {
        onUse();
        FakeBag::Write(name, value);
    }
};

void AddLastWords(automation::KeyedCollection& collection, std::function<void()> words) {
    collection.Add(Value(std::make_shared<LastWords>(std::move(words))), "last", automation::Missing(),
                   automation::Missing());
}

TEST_F(Lifecycle, TheControlMayBeDroppedInsideTheMembersOfItsLife) {
    BusyBag bag;
    bag.onUse = [this] { control.reset(); };
    const std::vector<std::function<void(ctlFolderTree&)>> members{
        [](ctlFolderTree& c) { c.Close(); },
        [](ctlFolderTree& c) { c.UserControl_InitProperties(); },
        [&](ctlFolderTree& c) { c.UserControl_ReadProperties(bag); },
        [&](ctlFolderTree& c) {
            c.SetMultiSelect(false);
            c.UserControl_WriteProperties(bag);
        },
    };
    for (const auto& run : members) {
        control = ctlFolderTree::Create(platform, factory);
        const auto collection = NewCollection();
        AddLastWords(*collection, [this] { control.reset(); });
        control->SetSelection(collection);
        run(*control);
        EXPECT_EQ(control, nullptr);
        while (collection->Count() > 0) collection->Remove(Value(int32_t{1}));
    }
}

TEST_F(Lifecycle, ACollectionAssignedWhileInitPropertiesEmptiesTheOldOneStays) {
    const auto old = NewCollection();
    const auto assigned = NewCollection();
    AddItem(*assigned, HostItem("B2", "0001"));
    AddLastWords(*old, [&] { control->SetSelection(assigned); });
    control->SetSelection(old);
    control->UserControl_InitProperties();
    EXPECT_EQ(old->Count(), 0);
    EXPECT_EQ(KeysOf(assigned), Lines{"SB2|0001"});
    EXPECT_EQ(control->Selection(), assigned);
}

TEST_F(Lifecycle, AControlClosedInTheMiddleOfALoadTakesPanelAndPointerDown) {
    control->SetRDOSessionRef(mailbox.Session());
    platform.onYield = [this](int yield) {
        if (yield != 5) return;
        EXPECT_TRUE(platform.panelVisible && platform.busyPointer);
        control->Close();
        platform.closed = true;
    };
    control->RefreshList();
    EXPECT_TRUE(platform.closed);
    EXPECT_FALSE(platform.panelVisible);
    EXPECT_FALSE(platform.busyPointer);
    EXPECT_EQ(platform.callsAfterClose, 0);
}

TEST_F(Lifecycle, AControlClosedByItsBagOrAmbientFontCallsItsPlatformNoMore) {
    class Container : public FakePlatform {
      public:
        std::function<void()> onAmbientFont = [] {};
        automation::ObjectRef AmbientFont() override {
            onAmbientFont();
            return FakePlatform::AmbientFont();
        }
    };
    for (const bool byFont : {true, false}) {
        Container container;
        control = ctlFolderTree::Create(container, factory);
        const auto close = [&] {
            control->Close();
            container.closed = true;
        };
        BusyBag bag;
        bag.onUse = byFont ? std::function<void()>([] {}) : close;
        control->SetMultiSelect(false);
        if (byFont) container.onAmbientFont = close;
        control->UserControl_WriteProperties(bag);
        EXPECT_TRUE(container.closed);
        EXPECT_EQ(container.callsAfterClose, byFont ? 1 : 0) << "the call of the font itself goes on";

        Container other;
        control = ctlFolderTree::Create(other, factory);
        const auto closeOther = [&] {
            control->Close();
            other.closed = true;
        };
        bag.onUse = byFont ? std::function<void()>([] {}) : closeOther;
        if (byFont) other.onAmbientFont = closeOther;
        control->UserControl_ReadProperties(bag);
        EXPECT_TRUE(other.closed);
        EXPECT_EQ(other.callsAfterClose, byFont ? 1 : 0) << "the call of the font itself goes on";
        control.reset();
    }
}

}  // namespace
}  // namespace foldertree::testing
