// BadInputTest: outside libraries that lie, change their minds or never end. No mode may crash, hang, or lose what the
// others show.
#include <cstdio>
#include <limits>

#include "conformance/ConformanceTest.h"

namespace foldertree::testing {
namespace {

using automation::Enumerator;
using automation::Error;
using automation::Invocation;
using automation::ObjectRef;
using automation::Value;
using automation::testing::ScriptedObject;

class BadInput : public EachSetting {
  protected:
    BadInput() {
        mail = OrdinaryFolders();
        mail.addressLists.clear();
    }
    /// Everything but what stands below the Inbox.
    void ExpectTheRest() {
        for (const char* name : {"Mailbox", "Calendar", "Inbox", "People", "Archive", "Diary"})
            EXPECT_NE(Grid().FindRow(name, 0, colName), -1) << name;
        ExpectIdle();
    }
    bool Shows(const char* name) { return Grid().FindRow(name, 0, colName) != -1; }
    size_t ErrorCount() const { return platform.ErrorLines().size(); }
    bool IsRdoObjects() const { return Mode().mode == eISAccess_RDO_Objects; }
};

TEST_P(BadInput, ACountThatIsTooBigEndsAtTheRealEnd) {
    for (const int32_t count : {3, 1000, 0x7FFFFFFF}) {
        SCOPED_TRACE(count);
        StartAnew();
        FolderNamed("Inbox").count = count;
        LoadTree();
        ExpectTheRest();
        EXPECT_TRUE(Shows("Alpha"));
        EXPECT_TRUE(Shows("Tasks"));
        EXPECT_EQ(ErrorCount(), Mode().walksByPosition ? 1u : 0u) << "asking beyond the end is told";
    }
}

TEST_P(BadInput, ACountThatIsTooBigInAnExpansion) {
    FolderNamed("Projects").count = 0x7FFFFFFF;
    LoadTree({.extendToLevel = LevelToRead(2)});
    Open("Projects");
    ExpectTheRest();
    EXPECT_TRUE(Shows("Alpha"));
    EXPECT_TRUE(Shows("Beta"));
    EXPECT_EQ(Cell("Projects", colIncomplete), "");
    EXPECT_EQ(ErrorCount(), Mode().walksByPosition ? 1u : 0u);
}

TEST_P(BadInput, ANegativeCountIsNoCount) {
    for (const int32_t count : {-1, -2, std::numeric_limits<int32_t>::min()}) {
        SCOPED_TRACE(count);
        StartAnew();
        FolderNamed("Inbox").count = count;
        LoadTree();
        ExpectTheRest();
        // The RDO objects ask the folder, not its collection, whether there are any.
        EXPECT_EQ(Shows("Projects"), IsRdoObjects());
        EXPECT_EQ(ErrorCount(), 0u);
        EXPECT_GE(platform.progressMaximum, platform.progressValue - 2);
    }
}

TEST_P(BadInput, ACountOfNoneThoughThereAreSome) {
    FolderNamed("Inbox").count = 0;
    LoadTree();
    ExpectTheRest();
    EXPECT_EQ(Shows("Projects"), IsRdoObjects());
    EXPECT_EQ(ErrorCount(), 0u);
}

TEST_P(BadInput, NothingInTheMiddleCostsItsOwnRowOnly) {
    ModeFolder nothing;
    nothing.name = "Nobody";
    nothing.isNothing = true;
    auto& children = FolderNamed("Inbox").children;
    children.insert(children.begin() + 1, nothing);
    LoadTree();
    ExpectTheRest();
    EXPECT_TRUE(Shows("Projects"));
    EXPECT_TRUE(Shows("Tasks"));
    ASSERT_EQ(ErrorCount(), 1u);
    EXPECT_TRUE(platform.ErrorLines()[0].starts_with(Mode().folderError)) << platform.ErrorLines()[0];
}

TEST_P(BadInput, NothingInTheMiddleOfAnExpansion) {
    ModeFolder nothing;
    nothing.name = "Nobody";
    nothing.isNothing = true;
    auto& children = FolderNamed("Projects").children;
    children.insert(children.begin() + 1, nothing);
    LoadTree({.extendToLevel = LevelToRead(2)});
    Open("Projects");
    ExpectTheRest();
    EXPECT_TRUE(Shows("Alpha"));
    EXPECT_EQ(Shows("Beta"), IsTables()) << "only tables are read row by row; elsewhere an error ends an expansion";
    EXPECT_EQ(Cell("Projects", colIncomplete), "");
    ASSERT_EQ(ErrorCount(), 1u);
    EXPECT_TRUE(platform.ErrorLines()[0].starts_with(Mode().expansionError)) << platform.ErrorLines()[0];
}

TEST_P(BadInput, NothingInsteadOfACollection) {
    FolderNamed("Inbox").hasFolders = false;
    LoadTree();
    ExpectTheRest();
    EXPECT_FALSE(Shows("Projects"));
    // Where the folder itself says that it has subfolders, a missing collection is an error.
    const bool told = IsTables() || IsRdoObjects();
    EXPECT_EQ(ErrorCount(), told ? 1u : 0u);
}

TEST_P(BadInput, AFolderThatIsItsOwnChildIsShownOnceMoreAndNotRead) {
    FolderNamed("Projects").containsItself = true;
    LoadTree();
    ExpectTheRest();
    const Lines names = NamesOf(Grid());
    EXPECT_EQ(std::count(names.begin(), names.end(), "Projects"), 2);
    EXPECT_EQ(std::count(names.begin(), names.end(), "Alpha"), 1);
    EXPECT_EQ(ErrorCount(), 0u);
}

TEST_P(BadInput, AFolderThatIsItsOwnChildCanBeOpenedAsOftenAsTheUserLikes) {
    FolderNamed("Projects").containsItself = true;
    LoadTree({.extendToLevel = LevelToRead(2)});
    for (int times = 0; times < 20; ++times) {
        int32_t deepest = 0;
        for (int32_t row = 1; row < Grid().RowCount(); ++row)
            if (Grid().CellText(row, colName) == "Projects" && Grid().CellText(row, colIncomplete) == "-1")
                deepest = row;
        ASSERT_GT(deepest, 0);
        Open(deepest);
    }
    const Lines names = NamesOf(Grid());
    EXPECT_EQ(std::count(names.begin(), names.end(), "Projects"), 21);
    EXPECT_EQ(ErrorCount(), 0u);
    ExpectIdle();
}

TEST_P(BadInput, NamesAndIdentifiersOf64Kilobytes) {
    constexpr size_t size = 64 * 1024;
    std::string name = "Ж";
    while (name.size() < size) name += name;
    std::string id = "00AB";
    while (id.size() < size) id += id;
    std::string storeID = "00CD";
    while (storeID.size() < size) storeID += storeID;
    ModeFolder& projects = FolderNamed("Projects");
    projects.name = name;
    projects.id = id;
    mail.stores[0].id = storeID;
    mail.stores[0].name = name + "!";
    for (const int32_t depth : {0, 2}) {
        const TreeSettings settings{.extendToLevel = depth == 0 ? 0 : LevelToRead(depth)};
        StartAnew();
        LoadTree(settings);
        ExpectedTree expected(mail, Mode(), settings);
        if (depth != 0) {
            Open(Grid().FindRow(name, 0, colName));
            expected.Expand(name);
        }
        ExpectTree(expected);
        EXPECT_EQ(ErrorCount(), 0u);
        const auto collection = NewCollection();
        AddItem(*collection, ItemOf(storeID, id));
        control->SetSelection(collection);
        EXPECT_TRUE(IsTicked(Grid(), Grid().FindRow(name, 0, colName)));
        control->SetSelection(nullptr);
    }
}

TEST_P(BadInput, ADifferentNumberOfChildrenEachTimeSomebodyLooks) {
    auto& inbox = FolderNamed("Inbox");
    for (int i = 0; i < 8; ++i)
        inbox.children.push_back(MailFolder("F" + std::to_string(i), "007" + std::to_string(i)));
    for (uint32_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        StartAnew();
        uint32_t state = seed;
        inbox.shown = [&state] {
            state = state * 1664525 + 1013904223;
            return static_cast<size_t>((state >> 16) % 11);
        };
        LoadTree();
        ExpectTheRest();
        control->SetExtendToLevel(LevelToRead(1) > 0 ? LevelToRead(1) : 1);
        control->RefreshList();
        if (Shows("Inbox") && Cell("Inbox", colIncomplete) == "-1") Open("Inbox");
        ExpectTheRest();
        // What is shown is genuine and stands where it belongs.
        for (int32_t row = 1; row < Grid().RowCount(); ++row) {
            const std::string name = Grid().CellText(row, colName);
            const bool mayVanish = name.size() == 2 && name[0] == 'F';
            EXPECT_TRUE(!mayVanish || Grid().CellText(row, colPath) == "Mailbox\\Inbox\\" + name) << name;
        }
        EXPECT_LE(ErrorCount(), Mode().walksByPosition ? 3u : 0u);
    }
}

/// A collection that changes at each step of a walk over it.
class ChangingFolders : public automation::Object {
  public:
    using Change = std::function<void(std::vector<Value>& items)>;
    ChangingFolders(std::vector<Value> items, bool enumerable, Change change)
        : items_(std::make_shared<std::vector<Value>>(std::move(items))),
          enumerable_(enumerable),
          change_(std::move(change)) {}

    Value Invoke(const Invocation& call) override {
        if (automation::SameMember(call.member, "Count")) return static_cast<int32_t>(items_->size());
        if (!automation::SameMember(call.member, "Item")) throw Error(automation::errors::unknownName, "Unknown name.");
        return At(static_cast<size_t>(call.arguments[0].ToLong()) - 1);
    }
    std::unique_ptr<Enumerator> NewEnum() override {
        return enumerable_
                   ? std::make_unique<ChangingWalk>(std::static_pointer_cast<ChangingFolders>(shared_from_this()))
                   : nullptr;
    }
    bool HasMember(std::string_view) const override { return true; }

  private:
    class ChangingWalk : public Enumerator {
      public:
        explicit ChangingWalk(std::shared_ptr<ChangingFolders> folders) : folders_(std::move(folders)) {}
        bool Next(Value& item) override {
            if (position_ >= folders_->items_->size()) return false;
            item = folders_->At(position_++);
            return true;
        }

      private:
        std::shared_ptr<ChangingFolders> folders_;
        size_t position_ = 0;
    };

    Value At(size_t position) {
        if (position >= items_->size()) throw automation::VbError(automation::errors::subscript);
        const Value item = (*items_)[position];
        change_(*items_);
        return item;
    }

    std::shared_ptr<std::vector<Value>> items_;
    bool enumerable_;
    Change change_;
};

/// The modes that walk collections; tables hand out all rows at once.
class ChangingCollections : public BadInput {
  protected:
    /// Puts such a collection below the Inbox, made of the folders that the real one holds.
    void Change(ChangingFolders::Change change) {
        FolderNamed("Inbox").adjust = [this, change](ScriptedObject& folder) {
            std::vector<Value> items;
            for (int i = 0; i < 5; ++i) items.emplace_back(NewFolder("F" + std::to_string(i)));
            folder.ReadOnly(
                "Folders", Value(std::make_shared<ChangingFolders>(std::move(items), !Mode().walksByPosition, change)));
        };
    }
    static ObjectRef NewFolder(const std::string& name) {
        auto folder = std::make_shared<ScriptedObject>("Folder(" + name + ")");
        for (const char* member : {"Name", "EntryID", "ID", "StoreID"}) folder->ReadOnly(member, name);
        folder->ReadOnly("DefaultItemType", 0).ReadOnly("FolderKind", 1).ReadOnly("DefaultMessageClass", "IPM.Note");
        folder->Method("Fields", [](const Invocation&) { return Value(false); });
        folder->ReadOnly("Folders", nullptr);
        return folder;
    }
};

TEST_P(ChangingCollections, OneThatShrinks) {
    Change([](std::vector<Value>& items) { items.erase(items.begin()); });
    LoadTree();
    ExpectTheRest();
    EXPECT_TRUE(Shows("F0"));
    EXPECT_EQ(ErrorCount(), Mode().walksByPosition ? 1u : 0u);
}

TEST_P(ChangingCollections, OneThatBecomesEmpty) {
    Change([](std::vector<Value>& items) { items.clear(); });
    LoadTree();
    ExpectTheRest();
    EXPECT_TRUE(Shows("F0"));
    EXPECT_FALSE(Shows("F1"));
    EXPECT_EQ(ErrorCount(), Mode().walksByPosition ? 1u : 0u);
}

TEST_P(ChangingCollections, OneThatGrowsForAWhile) {
    Change([](std::vector<Value>& items) {
        if (items.size() < 50) items.push_back(NewFolder("New"));
    });
    LoadTree();
    ExpectTheRest();
    for (const char* name : {"F0", "F1", "F2", "F3", "F4"}) EXPECT_TRUE(Shows(name)) << name;
    EXPECT_EQ(ErrorCount(), 0u);
}

TEST_P(ChangingCollections, OneThatNeverEndsEndsWithACancel) {
    Change([](std::vector<Value>& items) { items.push_back(NewFolder("New")); });
    platform.onYield = [this](int yield) {
        if (yield == 500) control->CancelLoad();
    };
    LoadTree();
    platform.onYield = nullptr;
    EXPECT_TRUE(Shows("F0"));
    EXPECT_LT(Grid().RowCount(), 500);
    ExpectIdle();
}

TEST_P(BadInput, MembersOfOtherTypesThanTheyShouldBe) {
    const std::vector<std::pair<const char*, Value>> odd{
        {"Empty", Value()},
        {"Null", Value(automation::Null())},
        {"Nothing", Value(nullptr)},
        {"an error", Value(automation::ErrorValue{0x8004010F})},
        {"a text", Value("?")},
        {"a large number", Value(1e300)},
        {"an array", Value(automation::Array{3, {Value(1)}})},
        {"an object", Value(std::make_shared<ScriptedObject>("Odd"))},
    };
    liveBefore += 1;
    for (const char* member : {"Name", "EntryID", "ID", "StoreID", "DefaultItemType", "FolderKind",
                               "DefaultMessageClass", "Fields", "Folders"}) {
        for (const auto& [name, value] : odd) {
            SCOPED_TRACE(std::string(member) + " is " + name);
            StartAnew();
            FolderNamed("Inbox").adjust = [&, given = member](ScriptedObject& folder) {
                if (folder.HasMember(given))
                    folder.Method(given, [&value = value](const Invocation&) { return value; });
            };
            LoadTree();
            for (const char* other : {"Mailbox", "Calendar", "People", "Archive", "Diary"}) EXPECT_TRUE(Shows(other));
            EXPECT_LE(ErrorCount(), 1u);
            ExpectIdle();
        }
    }
    FolderNamed("Inbox").adjust = nullptr;
    StartAnew();
    liveBefore -= 1;
}

TEST_P(BadInput, AddressListsThatLieAboutTheirNumber) {
    mail.addressLists = {AddressList("Global", "G1"), AddressList("Contacts", "G2")};
    for (const int32_t count : {-1, 0, 3, 0x7FFFFFFF}) {
        SCOPED_TRACE(count);
        StartAnew();
        mail.addressListCount = count;
        LoadTree({.showAddressBook = true});
        ExpectTheRest();
        const bool counts = Mode().nestsAddressLists;  // those modes ask for the lists one by one
        EXPECT_EQ(Shows("Contacts"), Mode().showsAddressLists && (!counts || count > 0));
        EXPECT_EQ(ErrorCount(), counts && count > 2 ? 1u : 0u);
    }
}

TEST_P(BadInput, AnAddressListThatContainsItselfIsShownOnceMore) {
    mail.addressLists = {AddressList("Global", "G1"), AddressList("Contacts", "G2")};
    mail.addressLists[0].containsItself = true;
    LoadTree({.showAddressBook = true});
    ExpectTheRest();
    const Lines names = NamesOf(Grid());
    const int times = Mode().nestsAddressLists ? 2 : Mode().showsAddressLists ? 1 : 0;
    EXPECT_EQ(std::count(names.begin(), names.end(), "Global"), times);
    EXPECT_EQ(Shows("Contacts"), Mode().showsAddressLists);
    EXPECT_EQ(ErrorCount(), 0u);
}

TEST_P(BadInput, AHierarchyDeeperThanAnyServerAllows) {
    ModeFolder chain = MailFolder("Bottom", "FFFF");
    for (int32_t level = 500; level > 0; --level) {
        char id[8];
        std::snprintf(id, sizeof id, "%04X", 0x1000 + static_cast<unsigned>(level));
        chain = MailFolder("L" + std::to_string(level), id, {std::move(chain)});
    }
    FolderNamed("Inbox").children = {std::move(chain)};
    LoadTree();
    ExpectTheRest();
    EXPECT_TRUE(Shows("L300"));
    EXPECT_FALSE(Shows("Bottom"));
    EXPECT_EQ(ErrorCount(), 0u);
    OpenAll();
    EXPECT_TRUE(Shows("Bottom")) << "what a walk leaves closed the user can open";
}

INSTANTIATE_TEST_SUITE_P(Modes, BadInput, ::testing::ValuesIn(ScriptedModes()), SettingName);
INSTANTIATE_TEST_SUITE_P(Modes, ChangingCollections,
                         ::testing::Values(Setting{&modeDifferences[eISAccess_RDO_Objects]},
                                           Setting{&modeDifferences[eISAccess_Outlook]},
                                           Setting{&modeDifferences[eISAccess_CDO]}),
                         SettingName);

}  // namespace
}  // namespace foldertree::testing
