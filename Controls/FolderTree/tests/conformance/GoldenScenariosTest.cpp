// GoldenScenariosTest: each scenario's grid, trace and outside calls in all modes, as files that a person has read.
#include <functional>

#include "conformance/CallDigest.h"
#include "conformance/ConformanceTest.h"
#include "support/Golden.h"

namespace foldertree::testing {
namespace {

/// A golden has parts (tree, cells, trace, calls); modes that agree in a part share its lines.
class GoldenScenarios : public ConformanceTest {
  protected:
    struct Scenario {
        std::string name;
        ModeMailbox mailbox = OrdinaryFolders();
        TreeSettings settings = {};
        /// Runs before what is recorded. Not given: a control with its session, not refreshed yet.
        std::function<void()> prepare = {};
        std::function<void()> act = {};
        /// Further results, one a line.
        std::function<Lines()> results = {};
        bool withCells = true;
        bool withSteps = true;  ///< false: neither trace nor call list, only the numbers of calls
    };

    void Expect(const Scenario& scenario) {
        for (const Setting& setting : ScriptedModes()) {
            StartAnew();
            Use(setting);
            mail = scenario.mailbox;
            SetUpTree(scenario.settings);
            if (scenario.prepare) scenario.prepare();
            platform.ClearTrace();
            mail.log->Clear();
            scenario.act ? scenario.act() : control->RefreshList();
            Record(scenario);
            control->SetSelection(nullptr);
        }
        StartAnew();
        ExpectGolden("conformance/" + scenario.name + ".golden", Text());
    }

    /// The tree as the host shows it, with folders read down to that depth in every mode.
    void LoadToDepth(int32_t depth) {
        TreeSettings settings;
        settings.extendToLevel = LevelToRead(depth);
        LoadTree(settings);
    }

  private:
    struct Version {
        std::string modes;
        Lines lines;
    };
    struct Part {
        std::string name;
        std::vector<Version> versions;
    };

    void Record(const Scenario& scenario) {
        std::vector<GridRow> rows = Rows();
        rows.erase(rows.begin());  // the captions
        Add("tree", TreeLines(rows));
        if (scenario.withCells) Add("cells", CellLines(rows));
        if (scenario.results) Add("results", scenario.results());
        Lines calls;
        if (scenario.withSteps) {
            Add("trace", platform.Trace());
            calls = DigestOf(mail.log->Lines());
        }
        calls.push_back(CountsOf(mail.log->Lines()));
        Add("calls", calls);
    }

    void Add(const std::string& name, const Lines& lines) {
        auto part = std::find_if(parts_.begin(), parts_.end(), [&](const Part& known) { return known.name == name; });
        if (part == parts_.end()) part = parts_.insert(parts_.end(), Part{name, {}});
        const auto same = std::find_if(part->versions.begin(), part->versions.end(),
                                       [&](const Version& version) { return version.lines == lines; });
        if (same == part->versions.end())
            part->versions.push_back({std::string(Mode().name), lines});
        else
            same->modes += ", " + std::string(Mode().name);
    }

    Lines Text() const {
        Lines text;
        for (const Part& part : parts_) {
            for (const Version& version : part.versions) {
                if (!text.empty()) text.emplace_back();
                text.push_back("== " + part.name + ": " + version.modes);
                text.insert(text.end(), version.lines.begin(), version.lines.end());
            }
        }
        return text;
    }

    std::vector<Part> parts_;
};

TEST_F(GoldenScenarios, ARefresh) {
    Expect({.name = "refresh", .settings = {.extendToLevel = 2}});
}

TEST_F(GoldenScenarios, ARefreshOfManyKindsOfFolders) {
    Expect({.name = "many-kinds", .mailbox = ManyKinds(), .withSteps = false});
}

TEST_F(GoldenScenarios, AnExpansion) {
    Expect({.name = "expansion", .prepare = [this] { LoadToDepth(2); }, .act = [this] { Open("Projects"); }});
}

TEST_F(GoldenScenarios, AnExpansionOfManyKindsOfFolders) {
    ModeMailbox source = ManyKinds();
    source.stores = {{"Mailbox", "B2", true, {}}};
    ModeFolder kinds = MailFolder("Kinds", "0050");
    const ModeMailbox manyKinds = ManyKinds();
    for (const ModeFolder& folder : manyKinds.stores[1].folders)
        if (folder.name != "Inbox" && folder.containerClass) kinds.children.push_back(folder);
    kinds.children.push_back(MailFolder("Classless", "0051"));
    kinds.children.back().containerClass = std::nullopt;
    kinds.children.push_back(MailFolder("Last", "0052"));
    source.stores[0].folders = {MailFolder("Parent", "0053", {kinds})};
    Expect({.name = "expansion-many-kinds",
            .mailbox = source,
            .prepare = [this] { LoadToDepth(2); },
            .act = [this] { Open("Kinds"); },
            .withCells = false,
            .withSteps = false});
}

TEST_F(GoldenScenarios, AnAddressBook) {
    ModeMailbox source = ManyKinds();
    source.stores = {{"Mailbox", "B2", true, {}}};
    Expect({.name = "address-book", .mailbox = source, .settings = {.showAddressBook = true}});
}

TEST_F(GoldenScenarios, AnAddressBookWhoseProviderKnowsNoNestedLists) {
    ModeMailbox source = ManyKinds();
    source.stores.clear();
    source.addressLists[0].countError = automation::Error(0x80040102, "No support.");
    Expect({.name = "address-book-without-nesting", .mailbox = source, .settings = {.showAddressBook = true}});
}

TEST_F(GoldenScenarios, ADefaultStoreThatIsNotTheFirst) {
    ModeMailbox source;
    source.stores = {{"Archive", "A1", false, {MailFolder("Old mail", "0061")}, ""},
                     {"Mailbox", "B2", true, {MailFolder("Inbox", "0001")}, "Provider"},
                     {"Public", "C3", false, {}, ""}};
    Expect({.name = "default-store", .mailbox = source, .withCells = false});
}

TEST_F(GoldenScenarios, ACancelInTheMiddle) {
    Expect({.name = "cancel",
            .act =
                [this] {
                    platform.onYield = [this](int) {
                        if (platform.paths.back().ends_with("Projects")) control->CancelLoad();
                    };
                    control->RefreshList();
                    platform.onYield = nullptr;
                },
            .withCells = false});
}

TEST_F(GoldenScenarios, ASelectionThatIsApplied) {
    Expect({.name = "selection",
            .prepare = [this] { LoadToDepth(2); },
            .act =
                [this] {
                    const auto collection = NewCollection();
                    for (const char* folder : {"0012", "0001", "0021", "0099"})
                        AddItem(*collection, ItemOf("B2", folder));
                    control->SetSelection(collection);
                    Open("Projects");
                    Tick("People");
                    Untick("Inbox");
                },
            .results =
                [this] {
                    Lines items;
                    for (const ItemRef& item : ItemsOf(control->Selection()))
                        items.push_back(item->Key() + " " + std::to_string(item->Index()) + " '" + item->Path() + "' " +
                                        (item->Incomplete() ? "incomplete" : "complete"));
                    return items;
                }});
}

TEST_F(GoldenScenarios, AHighlight) {
    Expect({.name = "highlight",
            .settings = {.extendToLevel = 1, .highlightContacts = true, .highlightTasks = true},
            .prepare = [this] { control->RefreshList(); },
            .act = [this] { control->SetHighlightTaskFolders(false); },
            .withCells = false});
}

TEST_F(GoldenScenarios, BulkSelection) {
    Expect({.name = "bulk",
            .prepare = [this] { LoadToDepth(2); },
            .act =
                [this] {
                    control->SelectAll();
                    control->SelectNone();
                    control->SelectByType(FTIContactItem, false);
                    control->SelectByType(FTITaskItem, true);
                }});
}

TEST_F(GoldenScenarios, ACollapse) {
    Expect({.name = "collapse",
            .prepare = [this] { control->RefreshList(); },
            .act =
                [this] {
                    Tick("Gamma");
                    control->CollapseToType(FTITaskItem);
                    control->CollapseToSelection();
                },
            .withCells = false});
}

TEST_F(GoldenScenarios, LookupsInATree) {
    Expect({.name = "lookup",
            .settings = {.extendToLevel = 1, .showAddressBook = true},
            .prepare = [this] { control->RefreshList(); },
            .act = [] {},
            .results =
                [this] {
                    const auto line = [](const ItemRef& item) {
                        if (item == nullptr) return std::string("nothing");
                        return item->Name() + " " + item->Key() + " '" + item->Path() + "' type " +
                               std::to_string(item->ItemType());
                    };
                    return Lines{"folder by store and entry: " + line(control->GetMsgItem("B2", "0003")),
                                 "folder by entry: " + line(control->GetMsgItem("", "0003")),
                                 "folder that was not read: " + line(control->GetMsgItem("B2", "0031")),
                                 "list: " + line(control->GetAdListItem("G1", ""))};
                },
            .withCells = false});
}

}  // namespace
}  // namespace foldertree::testing
