// CollectionPassTest: what the host's code may do to its collections while the control runs over one of them.
#include "selection/CollectionPass.h"

#include <functional>

#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Access;
using automation::Invocation;
using automation::KeyedCollection;
using automation::ObjectRef;
using automation::Value;

/// An item of the host's own, whose getters run the host's code once: at the n-th read of one of its members.
class HostsItem : public automation::Object {
  public:
    explicit HostsItem(std::string key, bool incomplete = true) : key_(std::move(key)), incomplete_(incomplete) {}

    std::function<void()> onRead;
    int readsBefore = 0;
    int reads = 0;

    Value Invoke(const Invocation& call) override {
        const std::string_view member = call.member;
        if (call.access != Access::Call) return {};
        if (++reads > readsBefore)
            if (const auto run = std::exchange(onRead, nullptr)) run();
        if (member == "Index") return int32_t{3};
        if (member == "Selected") return true;
        if (member == "Incomplete") return incomplete_;
        return key_ + (member == "KeyShortEntryID" ? "s" : member == "KeyAlternate" ? "a" : "");
    }
    bool HasMember(std::string_view) const override { return true; }

  private:
    std::string key_;
    bool incomplete_;
};

/// A collection of the host's own, whose code runs once at the n-th end of a walk over it.
class HostsCollection : public automation::Object {
  public:
    const std::shared_ptr<KeyedCollection> items = std::make_shared<KeyedCollection>();
    std::function<void()> onWalkEnd;
    int endsBefore = 0;

    Value Invoke(const Invocation& call) override { return items->Invoke(call); }
    bool HasMember(std::string_view member) const override { return items->HasMember(member); }
    std::unique_ptr<automation::Enumerator> NewEnum() override { return std::make_unique<Walk>(*this); }

  private:
    class Walk : public automation::Enumerator {
      public:
        explicit Walk(HostsCollection& collection) : collection_(collection), walk_(collection.items->NewEnum()) {}
        ~Walk() override {
            if (collection_.endsBefore-- > 0) return;
            if (const auto run = std::exchange(collection_.onWalkEnd, nullptr)) run();
        }
        bool Next(Value& item) override { return walk_->Next(item); }

      private:
        HostsCollection& collection_;
        const std::unique_ptr<Enumerator> walk_;
    };
};

/// A control over a mailbox that shows a collection of three own items and one of the host's.
class SelectionPass : public ControlTest {
  protected:
    SelectionPass() {
        FakeBag bag;
        bag.values["AllowIndexing"] = Value(true);
        control->UserControl_ReadProperties(bag);
        for (int i = 0; i < 40; ++i)
            mailbox.stores[1].folders.push_back(Mail("F" + std::to_string(i), static_cast<uint16_t>(0x200 + i)));
        Load();
        for (const char* entryID : {"0001", "0002", "0003"}) AddItem(*first, HostItem("B2", entryID));
        AddHosts(*first);
        for (const char* entryID : {"000200", "000201", "keep"}) AddItem(*other, HostItem("B2", entryID));
        control->SetSelection(first);
    }
    void AddHosts(KeyedCollection& collection) {
        collection.Add(Value(hosts), "hosts", automation::Missing(), automation::Missing());
    }

    std::shared_ptr<HostsItem> hosts = std::make_shared<HostsItem>("hosts");
    std::shared_ptr<KeyedCollection> first = NewCollection();
    std::shared_ptr<KeyedCollection> other = NewCollection();
};

struct Running {
    const char* name;
    std::function<void(ctlFolderTree&)> run;
};

std::vector<Running> MembersOverTheSelection() {
    return {{"SelectNone", [](ctlFolderTree& c) { c.SelectNone(); }},
            {"SelectAll", [](ctlFolderTree& c) { c.SelectAll(); }},
            {"SelectByType", [](ctlFolderTree& c) { c.SelectByType(FTITaskItem, false); }},
            {"SelectByType, additional", [](ctlFolderTree& c) { c.SelectByType(FTITaskItem, true); }},
            {"Selection", [](ctlFolderTree& c) { c.Selection(); }},
            {"RefreshList", [](ctlFolderTree& c) { c.RefreshList(); }},
            {"a tick",
             [](ctlFolderTree& c) {
                 c.Grid().SetCellText(RowOf(c.Grid(), "Zoo"), colSel, "-1");
                 c.fgd_AfterEdit(RowOf(c.Grid(), "Zoo"), colSel);
             }},
            {"a tick taken back",
             [](ctlFolderTree& c) {
                 c.Grid().SetCellText(RowOf(c.Grid(), "Inbox"), colSel, "0");
                 c.fgd_AfterEdit(RowOf(c.Grid(), "Inbox"), colSel);
             }},
            {"a typed number", [](ctlFolderTree& c) {
                 c.Grid().SetCellText(RowOf(c.Grid(), "Inbox"), colIndex, "2");
                 c.fgd_AfterEdit(RowOf(c.Grid(), "Inbox"), colIndex);
             }}};
}

TEST_F(SelectionPass, EndsWhereTheHostAssignsAnotherCollectionAndLeavesThatOneAlone) {
    for (const Running& member : MembersOverTheSelection()) {
        for (int at = 0; at < 12; ++at) {
            SCOPED_TRACE(std::string(member.name) + ", read " + std::to_string(at));
            control->SetSelection(nullptr);
            control->RefreshList();
            control->SetSelection(first);
            hosts->reads = 0;
            hosts->readsBefore = at;
            hosts->onRead = [&] { control->SetSelection(other); };
            member.run(*control);
            const bool assigned = hosts->onRead == nullptr;
            hosts->onRead = nullptr;
            if (!assigned) break;
            EXPECT_GT(hosts->reads, 0);
            EXPECT_EQ(KeysOf(other), (Lines{"SB2|000200", "SB2|000201", "SB2|keep"}));
            EXPECT_TRUE(IsTicked(Grid(), Row("F0")));
            EXPECT_TRUE(IsTicked(Grid(), Row("F1")));
            EXPECT_EQ(control->Selection(), other);
            // As reading the selection has rebuilt it, for the next round.
            while (other->Count() > 0) other->Remove(Value(int32_t{1}));
            for (const char* entryID : {"000200", "000201", "keep"}) AddItem(*other, HostItem("B2", entryID));
            while (first->Count() > 0) first->Remove(Value(int32_t{1}));
            for (const char* entryID : {"0001", "0002", "0003"}) AddItem(*first, HostItem("B2", entryID));
            AddHosts(*first);
        }
    }
}

TEST_F(SelectionPass, EndsWhereTheEndOfAWalkAssignsAnotherCollection) {
    for (const Running& member : MembersOverTheSelection()) {
        int ends = 0;
        for (;; ++ends) {
            SCOPED_TRACE(std::string(member.name) + ", end " + std::to_string(ends));
            const auto walked = std::make_shared<HostsCollection>();
            for (const char* entryID : {"0001", "0002", "0003"}) AddItem(*walked->items, HostItem("B2", entryID));
            const auto assigned = NewCollection();
            for (const char* entryID : {"000200", "keep"}) AddItem(*assigned, HostItem("B2", entryID));
            control->SetSelection(nullptr);
            control->RefreshList();
            control->SetSelection(walked);
            walked->endsBefore = ends;
            walked->onWalkEnd = [&] { control->SetSelection(assigned); };
            member.run(*control);
            if (std::exchange(walked->onWalkEnd, nullptr) != nullptr) break;
            EXPECT_EQ(KeysOf(assigned), (Lines{"SB2|000200", "SB2|keep"}));
            EXPECT_TRUE(IsTicked(Grid(), Row("F0")));
            EXPECT_EQ(control->Selection(), assigned);
        }
        EXPECT_GE(ends, 1) << member.name << " reads no collection to its end";
    }
}

TEST_F(SelectionPass, ATickIsToldAlsoWhenAnotherCollectionIsAssignedMeanwhile) {
    hosts->readsBefore = hosts->reads;
    hosts->onRead = [&] { control->SetSelection(other); };
    Tick("Zoo");
    EXPECT_EQ(hosts->onRead, nullptr);
    EXPECT_EQ(platform.changed, 1);
}

TEST_F(SelectionPass, TakesOutNoOtherItemWhenTheHostHasRemovedOneMeanwhile) {
    // Items that match no row must stay, wherever they move to.
    AddItem(*first, HostItem("B2", "7777"));
    AddItem(*first, HostItem("B2", "7778"));
    hosts->readsBefore = hosts->reads;
    hosts->onRead = [&] { first->Remove(Value(int32_t{1})); };
    control->SelectNone();
    EXPECT_EQ(hosts->onRead, nullptr);
    EXPECT_EQ(first->Count(), 3);
    EXPECT_EQ(first->Item(Value(int32_t{1})).ToObject(), hosts);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(SelectionPass, TakesOutNoOtherItemWhenTheHostHasAddedOneMeanwhile) {
    const ItemRef early = HostItem("B2", "7777");
    hosts->readsBefore = hosts->reads;
    hosts->onRead = [&] { first->Add(Value(early), Value("early"), Value(int32_t{1}), automation::Missing()); };
    control->SelectNone();
    ASSERT_EQ(first->Count(), 2);
    EXPECT_EQ(first->Item(Value(int32_t{1})).ToObject(), early);
    EXPECT_EQ(first->Item(Value(int32_t{2})).ToObject(), hosts);
}

TEST_F(SelectionPass, AHostThatEmptiesTheTreeFromAGetterEndsTheWalkOverItsRows) {
    // In the control's own collection, and with rows that were found before the tree is empty.
    for (int at = 1; at < 12; ++at) {
        SCOPED_TRACE(at);
        control->SetSelection(nullptr);
        control->RefreshList();
        control->SelectAll();
        AddHosts(static_cast<KeyedCollection&>(*control->Selection()));
        hosts->reads = 0;
        hosts->readsBefore = at;
        hosts->onRead = [&] { control->SetShowAddressBook(!control->ShowAddressBook()); };
        control->SelectByType(FTIMailItem, false);
        if (hosts->onRead != nullptr) break;
        EXPECT_GT(hosts->reads, at);
        EXPECT_LE(platform.ErrorLines().size(), 1u);
        platform.ClearTrace();
    }
    hosts->onRead = nullptr;
}

TEST_F(SelectionPass, ReadingTheSelectionAsksEachIncompleteItemAFewTimesHoweverManyThereAre) {
    const auto readsFor = [&](int32_t count) {
        control->SetSelection(nullptr);
        Grid().SetRowCount(1);
        Grid().SetRowCount(1 + count);
        const auto items = NewCollection();
        std::vector<std::shared_ptr<HostsItem>> all;
        control->SetSelection(items);
        for (int32_t row = 1; row <= count; ++row) {
            const std::string key = "SB2|" + std::to_string(row);
            Grid().SetCellText(row, colKey, key);
            Grid().SetCellText(row, colSel, "-1");
            Grid().SetCellText(row, colIndex, std::to_string((row * 7) % count));
            all.push_back(std::make_shared<HostsItem>(key));
            items->Add(Value(all.back()), key, automation::Missing(), automation::Missing());
        }
        control->Selection();
        EXPECT_EQ(items->Count(), count);
        EXPECT_EQ(platform.ErrorLines(), Lines{});
        int most = 0;
        for (const auto& item : all) most = std::max(most, item->reads);
        return most;
    };
    const int few = readsFor(20);
    EXPECT_LE(few, 8);
    EXPECT_EQ(readsFor(1500), few);
}

}  // namespace
}  // namespace foldertree::testing
