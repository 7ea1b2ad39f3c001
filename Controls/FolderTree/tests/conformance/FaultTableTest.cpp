// FaultTableTest: in every mode each outside call of each operation fails once, in several ways. What the control then
// says is written down here by hand; the tests print how many calls failed and what came of them.
#include <cstdio>
#include <iostream>
#include <map>

#include "automation_testing/FaultyObject.h"
#include "conformance/ConformanceTest.h"

namespace foldertree::testing {
namespace {

using automation::Error;
using automation::ObjectRef;
using automation::testing::FaultPlan;
using automation::testing::ScriptedObject;

constexpr uint32_t noSupport = 0x80040102;

/// An error and how a line ends that tells it, from the number on.
struct ErrorForm {
    uint32_t number;
    const char* text;
    const char* told;
};
constexpr ErrorForm errorForms[] = {
    {0x80004005, "Injected fault", "80004005] Injected fault"},
    {noSupport, "No support.", "80040102] No support."},
    {0x80010108, "", "80010108] "},
    {91, "Object variable not set", "5B] Object variable not set"},
    {0x8004011D, "Не в сети: \"]\"", "8004011D] Не в сети: \"]\""},
};

/// A call line taken apart: `Folders(Inbox).Item(1)`.
struct Call {
    explicit Call(const std::string& text) : line(text) {
        const size_t dot = line.find('.');
        const std::string object = line.substr(0, dot);
        const size_t open = object.find('(');
        kind = object.substr(0, open);
        if (open != std::string::npos) of = object.substr(open + 1, object.size() - open - 2);
        member = line.substr(dot + 1);
        member = member.substr(0, member.find_first_of("( "));
        argument = line.substr(std::min(line.size(), dot + 1 + member.size()));
    }
    bool Is(std::string_view wantedKind, std::string_view wantedMember) const {
        return kind == wantedKind && member == wantedMember;
    }
    std::string line;
    std::string kind;      ///< "Folders"
    std::string of;        ///< "Inbox"
    std::string member;    ///< "Item"
    std::string argument;  ///< "(1)"
};

/// What comes of a failed call.
struct Outcome {
    std::string name;   ///< in the printed table
    std::string line;   ///< the one line that tells it, up to the number of the error; empty: none
    std::string scope;  ///< rows outside this folder or store stay; empty: all rows stay; "*": any row may be missing
    bool showsTwice = false;  ///< the rows of the scope are there twice
};

const std::string anyRow = "*";

/// Names the outcome of each call of an undisturbed run. Fed with the calls in their order.
class Judge {
  public:
    Judge(const ModeDifferences& mode, const ModeMailbox& mailbox) : mode_(mode), mailbox_(mailbox) {}

    Outcome OfRefresh(const Call& call) {
        if (call.kind == "Factory" || call.Is("CdoSession", "Logon")) return OfLogOn(call);
        if (call.Is("Application", "GetNamespace")) ++namespaces_;
        const bool listsStores = call.Is("Session", "Stores") || call.Is("CdoSession", "InfoStores") ||
                                 (call.kind == "Application" && namespaces_ == 2);
        if (listsStores) readingStores_ = true;
        if (!readingStores_) return OfDefaultFolders(call);
        if (IsOfAddressBook(call)) return OfAddressBook(call);
        if (listsStores || call.kind == "Stores" || call.Is("Namespace", "Folders")) {
            store_.clear();
            if (call.member == "_NewEnum") ++walks_;
            return Driver();
        }
        if (call.kind == "Utilities") return Silent("plain name");
        if (call.kind == "StoreField" || (call.kind == "Store" && call.member == "Fields")) return OfDefaultFlag(call);
        if (call.kind == "Store") {
            if (call.member == "Name") store_ = call.of;
            return store_ == call.of ? Store(call.of) : Driver();
        }
        if (IsStore(call.of)) return OfRootFolder(call);
        if (call.kind == "Field" || (call.kind == "Folder" && call.member == "Fields" && mode_.typeFromContainerClass))
            return Silent("taken for mail");
        if (call.Is("Table", "Sort")) return Silent("unsorted");
        return Folder(call.Is("Session", "GetFolderFromID") ? NameOfID(call.argument) : call.of);
    }

    Outcome OfExpansion(const Call& call) const {
        if (call.Is("Table", "Sort")) return Silent("unsorted");
        return {"ExpandNode", std::string(mode_.expansionError) + "?" + std::string(mode_.expansionDetail), anyRow};
    }

    Outcome OfDefaultFolders(const Call& call) const {
        if (call.kind == "Factory" || call.Is("CdoSession", "Logon")) return OfLogOn(call);
        return {"GetFolderIDs", "Error in ctlFolderTree.GetFolderIDs(?): 0x", ""};
    }

  private:
    static Outcome Silent(const char* how) { return {how, "", ""}; }
    static Outcome Driver() { return {"GetFolders", "Error in ctlFolderTree.GetFolders (?): [0x", anyRow}; }
    Outcome Store(const std::string& name) const {
        return {"GetFolders_Store", std::string(mode_.storeError) + "?): [0x", name};
    }
    Outcome Folder(const std::string& name) const {
        return {"GetFolders_Folder", std::string(mode_.folderError) + "?): [0x", name};
    }

    static Outcome OfLogOn(const Call& call) {
        if (call.argument == "(\"NOXMAPI.NOXMAPIUtils\")") return Silent("plain name");
        if (call.kind == "Factory") return {"no session", "Could not instantiate CDO session: [0x", ""};
        return {"no log-on", "Failed to log on to CDO session: [0x", ""};
    }

    /// A flag that cannot be read counts as not set. When it is the default store's, and only one of the two walks sees
    /// the failure, the store is left out of both or read in both.
    Outcome OfDefaultFlag(const Call& call) {
        if (call.kind == "Store") flagOf_ = call.of;
        for (const ModeStore& store : mailbox_.stores)
            if (store.name == flagOf_ && store.isDefault)
                return walks_ == 1 ? Outcome{"default store missing", "", flagOf_}
                                   : Outcome{"default store twice", "", flagOf_, true};
        return Silent("not the default store");
    }

    Outcome OfRootFolder(const Call& call) {
        if (!mode_.tracesSteps) return Store(call.of);
        // The children are counted by the store's procedure, then the folders' procedure walks them.
        if (call.Is("Folders", "Count")) {
            counted_ = call.of;
            return Store(call.of);
        }
        if (counted_ != call.of) return Store(call.of);
        if (call.Is("Table", "Sort")) return Silent("unsorted");
        return Folder(call.of);
    }

    static bool IsOfAddressBook(const Call& call) {
        return call.kind == "AddressBook" || call.kind == "AddressLists" || call.kind == "List" ||
               call.kind == "Lists" || call.member == "AddressBook" || call.member == "AddressLists";
    }
    Outcome OfAddressBook(const Call& call) {
        const std::string driver = "Error in ctlFolderTree.GetAddressBook (?): [0x";
        if (call.kind != "List" && call.kind != "Lists") return {"GetAddressBook", driver, anyRow};
        if (call.Is("List", "AddressLists") || call.Is("Lists", "Count"))
            return {"children not counted",
                    "Cancelling subfolder scan in '" + call.of + "', can't count child folders: [0x", anyRow};
        if (call.kind == "Lists")
            return {"children not delivered",
                    "Cancelling subfolder scan in '" + call.of + "', can't deliver child folders: [0x", anyRow};
        const bool namedByDriver =
            mode_.nestsAddressLists && call.member == "Name" && IsTopList(call.of) && ++namesAsked_[call.of] == 1;
        if (namedByDriver) return {"GetAddressBook", driver, anyRow};
        return {"GetAddressBook_...", std::string(mode_.listError) + "?): [0x", anyRow};
    }
    bool IsTopList(const std::string& name) const {
        for (const ModeAddressList& list : mailbox_.addressLists)
            if (list.name == name) return true;
        return false;
    }
    bool IsStore(const std::string& name) const {
        for (const ModeStore& store : mailbox_.stores)
            if (store.name == name) return true;
        return false;
    }
    /// The name behind the argument `("0011")`.
    std::string NameOfID(const std::string& argument) const {
        std::string name;
        const std::function<void(const std::vector<ModeFolder>&)> search = [&](const std::vector<ModeFolder>& folders) {
            for (const ModeFolder& folder : folders) {
                if (argument == "(\"" + folder.id + "\")") name = folder.name;
                search(folder.children);
            }
        };
        for (const ModeStore& store : mailbox_.stores) search(store.folders);
        return name;
    }

    const ModeDifferences& mode_;
    const ModeMailbox& mailbox_;
    bool readingStores_ = false;
    int namespaces_ = 0;
    std::string store_;
    int walks_ = 0;  ///< of the stores
    std::string flagOf_;
    std::string counted_;
    std::map<std::string, int> namesAsked_;
};

class FaultTable : public EachSetting {
  protected:
    FaultTable() {
        mail = OrdinaryFolders();
        plan = std::make_shared<FaultPlan>();
        // Creating an object is an outside call too.
        factory.On("MAPI.Session", [this] { return Created("MAPI.Session", mail.CdoSession()); });
        factory.On("NOXMAPI.NOXMAPIUtils", [this] { return Created("NOXMAPI.NOXMAPIUtils", mail.Utilities()); });
    }

    ObjectRef Created(const char* progId, const ObjectRef& object) {
        auto creator = std::make_shared<ScriptedObject>("Factory", mail.log);
        creator->Method("Create", [object](const automation::Invocation&) { return automation::Value(object); });
        return Planned(creator)->Get("Create", progId).ToObject();
    }

    struct Operation {
        std::string name;
        std::function<void()> prepare;
        std::function<void()> act;
        std::function<Outcome(Judge&, const Call&)> judge;
        std::function<void(const Outcome&)> check;  ///< what this operation alone promises
        bool isRefresh = false;
    };

    /// The rows by path or name, placeholders left out.
    Lines Shown() const {
        Lines shown;
        for (const GridRow& row : RowsOf(control->Grid())) {
            if (row.cells[colRowKind] == "Dummy") continue;
            std::string name = row.cells[colPath].empty() ? row.cells[colName] : row.cells[colPath];
            shown.push_back(row.level == 0 ? name.substr(0, name.find(" (")) : name);
        }
        std::sort(shown.begin(), shown.end());
        return shown;
    }

    /// What tells of a failure: error lines, log-on lines and lines of cancelled scans.
    Lines Told() const {
        Lines told;
        for (const std::string& line : platform.Trace())
            for (const char* sign : {"Error in ", "Could not instantiate", "Failed to log on", "Cancelling subfolder"})
                if (line.find(sign) != std::string::npos) told.push_back(line);
        return told;
    }

    /// "Could not..." of a call that fails with this error, as one whole line.
    static std::string LineOf(const Outcome& outcome, const ErrorForm& form) {
        if (outcome.name == "children not counted" && form.number == noSupport)
            return outcome.line.substr(0, outcome.line.find("can't")) +
                   "error 0x80040102 encountered. AddressList scan is intentionally cancelled.";
        return outcome.line + form.told;
    }

    static bool IsWithin(const std::string& shown, const std::string& scope) {
        if (scope.empty()) return false;
        return shown == scope || shown.ends_with("\\" + scope) || shown.starts_with(scope + "\\") ||
               shown.find("\\" + scope + "\\") != std::string::npos;
    }

    void Start(const Operation& operation, int failing) {
        StartAnew();
        plan->FailCall(0);
        operation.prepare();
        platform.ClearTrace();
        mail.log->Clear();
        plan->FailCall(failing);
    }

    void FailEachCallOf(const Operation& operation) {
        Start(operation, 0);
        operation.act();
        const Lines calls = mail.log->Lines();
        const Lines whole = Shown();
        ASSERT_EQ(static_cast<int>(calls.size()), plan->Calls()) << "the plan and the log count different calls";
        ASSERT_EQ(Told(), Lines{});
        std::map<std::string, int> outcomes;
        for (const ErrorForm& form : errorForms) {
            plan = std::make_shared<FaultPlan>(Error(form.number, form.text));
            Judge judge(Mode(), mail);
            for (size_t i = 0; i < calls.size(); ++i) {
                SCOPED_TRACE("call " + std::to_string(i + 1) + ": " + calls[i] + ", error " + form.told);
                const Outcome outcome = operation.judge(judge, Call(calls[i]));
                Start(operation, static_cast<int>(i) + 1);
                const int live = ScriptedObject::LiveCount();
                EXPECT_NO_THROW(operation.act());
                Check(operation, outcome, form, whole, live);
                ++outcomes[outcome.line.empty() ? "(" + outcome.name + ")" : outcome.name];
            }
        }
        StartAnew();
        Print(operation, calls.size(), outcomes);
    }

    void Check(const Operation& operation, const Outcome& outcome, const ErrorForm& form, const Lines& whole,
               int live) {
        EXPECT_TRUE(plan->HasFailed());
        EXPECT_EQ(Told(), outcome.line.empty() ? Lines{} : Lines{LineOf(outcome, form)});
        ExpectIdle();
        const int sessions = Mode().mode == eISAccess_CDO && control->CDOSession() != nullptr ? 1 : 0;
        EXPECT_LE(ScriptedObject::LiveCount() - live, sessions) << "an outside object is still held";
        const Lines shown = Shown();
        CheckRows(outcome, whole, shown);
        if (operation.check) operation.check(outcome);
        if (!operation.isRefresh) return;
        EXPECT_EQ(platform.Trace().back(), "GetFolders: Done");
        plan->FailCall(0);
        control->RefreshList();
        EXPECT_EQ(Shown(), whole) << "the next refresh shows everything";
    }

    static void CheckRows(const Outcome& outcome, const Lines& whole, const Lines& shown) {
        for (const std::string& row : whole) {
            const auto times = std::count(shown.begin(), shown.end(), row);
            const bool within = outcome.scope == anyRow || IsWithin(row, outcome.scope);
            const auto most = outcome.showsTwice && within ? 2 : 1;
            const auto least = within && !outcome.showsTwice ? 0 : most;
            EXPECT_LE(times, most) << row;
            EXPECT_GE(times, least) << row << " is lost";
        }
        for (const std::string& row : shown)
            EXPECT_TRUE(std::binary_search(whole.begin(), whole.end(), row)) << row << " is new";
    }

    void Print(const Operation& operation, size_t calls, const std::map<std::string, int>& outcomes) {
        const int forms = static_cast<int>(std::size(errorForms));
        char head[80];
        std::snprintf(head, sizeof head, "[ FAULTS   ] %-10s %-15s %3d calls x %d errors:", Mode().name.data(),
                      operation.name.c_str(), static_cast<int>(calls), forms);
        std::cout << head;
        const char* separator = " ";
        for (const auto& [name, count] : outcomes) {
            std::cout << separator << name << " " << count;
            separator = ", ";
        }
        std::cout << "\n";
        RecordProperty("failures", static_cast<int>(calls) * forms);
    }
};

TEST_P(FaultTable, OfARefresh) {
    FailEachCallOf({.name = "refresh",
                    .prepare = [this] { SetUpTree({.extendToLevel = LevelToRead(3)}); },
                    .act = [this] { control->RefreshList(); },
                    .judge = [](Judge& judge, const Call& call) { return judge.OfRefresh(call); },
                    .check = {},
                    .isRefresh = true});
}

TEST_P(FaultTable, OfAnExpansion) {
    FailEachCallOf({.name = "expansion",
                    .prepare = [this] { LoadTree({.extendToLevel = LevelToRead(2)}); },
                    .act = [this] { Open("Projects"); },
                    .judge = [](Judge& judge, const Call& call) { return judge.OfExpansion(call); },
                    .check =
                        [this](const Outcome& outcome) {
                            const bool nothingRead = Grid().FindRow("Alpha", 0, colName) == -1;
                            // A node that shows nothing new can be opened again.
                            EXPECT_EQ(Cell("Projects", colIncomplete), nothingRead ? "-1" : "");
                            EXPECT_TRUE(!outcome.line.empty() || Grid().FindRow("Beta", 0, colName) != -1);
                            EXPECT_TRUE(!Mode().tracesSteps || platform.Trace().back() == "Done.");
                            if (!nothingRead) return;
                            plan->FailCall(0);
                            Shut("Projects");
                            Open("Projects");
                            EXPECT_NE(Grid().FindRow("Beta", 0, colName), -1);
                        }});
}

TEST_P(FaultTable, OfAnAddressBook) {
    mail.stores.erase(mail.stores.begin() + 1, mail.stores.end());
    mail.stores[0].folders.clear();
    mail.addressLists = {AddressList("Global", "G1", {AddressList("Europe", "G11"), AddressList("Asia", "G12")}),
                         AddressList("Contacts", "G2")};
    FailEachCallOf({.name = "address book",
                    .prepare = [this] { SetUpTree({.showAddressBook = true}); },
                    .act = [this] { control->RefreshList(); },
                    .judge = [](Judge& judge, const Call& call) { return judge.OfRefresh(call); },
                    .check =
                        [this](const Outcome& outcome) {
                            const bool cancelled = outcome.name == "children not counted" &&
                                                   platform.TraceCount("intentionally cancelled") > 0;
                            EXPECT_EQ(platform.TraceCount("was cancelled internally.") > 0, cancelled);
                        },
                    .isRefresh = true});
}

TEST_P(FaultTable, OfTheDefaultFolders) {
    const bool redemption = Mode().mode == eISAccess_RDO_MAPITables || Mode().mode == eISAccess_RDO_Objects;
    const ObjectRef session = redemption ? mail.RdoSession() : nullptr;
    liveBefore += redemption ? 1 : 0;
    FailEachCallOf({.name = "default folders",
                    .prepare =
                        [this, redemption] {
                            Prepare(Mode().mode);
                            if (!redemption) control->SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(4));
                        },
                    .act =
                        [this, redemption, &session] {
                            if (redemption) control->SetRDOSessionRef(Planned(session));
                            if (!redemption) control->SetInfoStoreAccessMode(Mode().mode);
                        },
                    .judge = [](Judge& judge, const Call& call) { return judge.OfDefaultFolders(call); },
                    .check = {}});
    liveBefore -= redemption ? 1 : 0;
}

/// Only one mode logs on by itself.
class FaultTableOfTheLogOn : public FaultTable {};

TEST_P(FaultTableOfTheLogOn, TriesAgainAtTheNextCall) {
    FailEachCallOf({.name = "log-on",
                    .prepare = [] {},
                    .act = [this] { control->CDOSession(); },
                    .judge = [](Judge& judge, const Call& call) { return judge.OfRefresh(call); },
                    .check =
                        [this](const Outcome&) {
                            plan->FailCall(0);
                            EXPECT_NE(control->CDOSession(), nullptr) << "the next call tries again";
                        }});
}

INSTANTIATE_TEST_SUITE_P(Modes, FaultTable, ::testing::ValuesIn(ScriptedModes()), SettingName);
INSTANTIATE_TEST_SUITE_P(Modes, FaultTableOfTheLogOn, ::testing::Values(Setting{&modeDifferences[eISAccess_CDO]}),
                         SettingName);

}  // namespace
}  // namespace foldertree::testing
