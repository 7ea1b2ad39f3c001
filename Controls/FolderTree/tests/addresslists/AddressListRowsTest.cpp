// AddressListRowsTest: the address book's lists below their heading.
#include <algorithm>

#include "enumeration/WalkLimits.h"
#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

using automation::Error;
using automation::testing::ScriptedObject;

constexpr uint32_t noSupport = 0x80040102;
const std::string noSupportLine = "', error 0x80040102 encountered. AddressList scan is intentionally cancelled.";

/// The lines of the address book: what follows the one that announces it.
Lines BookLines(const FakePlatform& platform) {
    const Lines trace = platform.Trace();
    const auto start = std::find(trace.begin(), trace.end(), "GetFolders: Adding address book(s)");
    return start == trace.end() ? Lines{} : Lines(start + 1, trace.end());
}

class AddressLists : public ModeTest {
  protected:
    AddressLists() {
        ShowAddressLists();
        mail.stores = {{"Mailbox", "B2", true, {MailFolder("Inbox", "0001")}}};
        mail.addressLists = {
            AddressList("Global", "G1",
                        {AddressList("Europe", "G11", {AddressList("Berlin", "G111")}), AddressList("Asia", "G12")}),
            AddressList("Contacts", "C1")};
    }
};

TEST_F(AddressLists, AreWalkedWithAllListsInsideThemInTheRedemptionModes) {
    for (const auto mode : {eISAccess_RDO_Objects, eISAccess_RDO_MAPITables}) {
        if (mode == eISAccess_RDO_MAPITables) mail.stores.clear();  // this mailbox has no tables
        LoadMode(mode);
        Lines tree = Tree();
        if (mode == eISAccess_RDO_Objects) tree.erase(tree.begin(), tree.begin() + 2);
        EXPECT_EQ(tree, (Lines{"<address lists>[Header]", "  Global[AdList]", "    Europe[AdList]",
                               "      Berlin[AdList]", "    Asia[AdList]", "  Contacts[AdList]"}));
        EXPECT_EQ(BookLines(platform),
                  (Lines{"Performing sub-folder scan for item #1 (Global)...",
                         "Performing sub-folder scan for item #2 (Contacts)...", "GetFolders: Done"}));
    }
}

TEST_F(AddressLists, CdoShowsTheHeadingAndTheTopLevelListsOnly) {
    LoadMode(eISAccess_CDO);
    EXPECT_EQ(Tree(), (Lines{"Mailbox[Store]", "  Inbox", "<address lists>[Header]", "  Global[AdList]",
                             "  Contacts[AdList]"}));
    EXPECT_EQ(Grid().RowOutlineLevel(Row("Global")), 1);
    EXPECT_EQ(Cell("Global", colAddressListID), "G1");
}

TEST_F(AddressLists, OutlookNeverShowsAHeading) {
    LoadMode(eISAccess_Outlook);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox"}));
    EXPECT_EQ(platform.TraceCount("Adding address book(s)"), 1u);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(AddressLists, AnUnknownModeShowsTheHeadingAlone) {
    for (const int32_t mode : {4, 99, -1}) {
        LoadMode(static_cast<enuInfoStoreAccessMode>(mode));
        EXPECT_EQ(Tree(), Lines{"<address lists>[Header]"}) << mode;
        EXPECT_EQ(platform.ErrorLines(), Lines{}) << mode;
    }
}

TEST_F(AddressLists, AreNotAskedForUnlessTheHostWantsThem) {
    control->SetShowAddressBook(false);
    Prepare(eISAccess_RDO_Objects);
    control->SetShowAddressBook(false);
    control->RefreshList();
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox"}));
    EXPECT_EQ(mail.log->Count("AddressBook"), 0u);
}

TEST_F(AddressLists, TheHeadingIsABoldBandOfLevelZero) {
    LoadMode(eISAccess_RDO_Objects);
    const int32_t row = Row("<address lists>");
    for (int col = 0; col < Grid().ColCount(); ++col) {
        EXPECT_TRUE(IsBold(Grid(), row, col));
        EXPECT_EQ(BackColor(Grid(), row, col), colors::buttonFace);
    }
    EXPECT_EQ(Grid().RowOutlineLevel(row), 0);
    EXPECT_TRUE(Grid().IsNode(row));
    EXPECT_EQ(PictureOf(Grid(), row), Picture::AdList);
}

TEST_F(AddressLists, TheHeadingTakesItsCaptionFromLocalize) {
    control->Localize("No.", "Pick", "Name", "Address books", "Wait", "Stop");
    LoadMode(eISAccess_RDO_Objects);
    control->Localize("No.", "Pick", "Name", "Other books", "Wait", "Stop");
    EXPECT_EQ(Cell("Other books", colRowKind), "Header");
}

TEST_F(AddressLists, TheHeadingIsFollowedWhenRowsComeAboveIt) {
    mail.stores[0].folders[0].children = {MailFolder("Sub", "0005", {MailFolder("Deep", "0006")})};
    LoadMode(eISAccess_RDO_Objects, 1);
    Open("Sub");
    control->Localize("No.", "Pick", "Name", "Moved", "Wait", "Stop");
    EXPECT_EQ(Cell("Moved", colRowKind), "Header");
    EXPECT_EQ(Grid().FindRow("<address lists>", 0, colName), -1);
}

TEST_F(AddressLists, CellsOfAList) {
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(Cell("Europe", colAddressListID), "G11");
    EXPECT_EQ(Cell("Europe", colKey), "LG11");
    EXPECT_EQ(Cell("Europe", colSel), "");
    EXPECT_EQ(Cell("Europe", colIndex), " ");
    EXPECT_EQ(Cell("Europe", colItemType), "");
    EXPECT_EQ(Cell("Europe", colStoreID), "");
    EXPECT_TRUE(Grid().IsNode(Row("Europe")));
    EXPECT_EQ(PictureOf(Grid(), Row("Europe")), Picture::AdList);
    EXPECT_FALSE(IsBold(Grid(), Row("Europe")));
}

TEST_F(AddressLists, AListCanBeTickedAndIsFoundAgain) {
    LoadMode(eISAccess_RDO_Objects);
    Tick("Asia");
    EXPECT_EQ(SelectedKeys(), Lines{"LG12"});
    control->RefreshList();
    EXPECT_TRUE(IsTicked(Grid(), Row("Asia")));
}

TEST_F(AddressLists, AProviderWithoutNestedListsEndsTheWholeScan) {
    mail.addressLists[0].countError = Error(noSupport, "No support.");
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox", "<address lists>", "Global"}));
    EXPECT_EQ(BookLines(platform),
              (Lines{"Performing sub-folder scan for item #1 (Global)...",
                     "Cancelling subfolder scan in 'Global" + noSupportLine,
                     "Exiting GetAddressBook for item #1 because the AddressList scan was cancelled internally.",
                     "GetFolders: Done"}));
}

TEST_F(AddressLists, TheEndOfTheScanDeepInsideIsToldByEachListThatFollows) {
    mail.addressLists[0].lists[0].countError = Error(noSupport, "No support.");
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox", "<address lists>", "Global", "Europe"}));
    EXPECT_EQ(BookLines(platform),
              (Lines{"Performing sub-folder scan for item #1 (Global)...",
                     "Cancelling subfolder scan in 'Europe" + noSupportLine,
                     "Exiting GetAddressBook_RDOObj for 'Asia' because the AddressList scan was cancelled internally.",
                     "Exiting GetAddressBook for item #1 because the AddressList scan was cancelled internally.",
                     "GetFolders: Done"}));
}

TEST_F(AddressLists, ListsThatCannotBeCountedCostOnlyTheirBranch) {
    mail.addressLists[0].lists[0].countError = Error(0x80040117, "Too complex.");
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox", "<address lists>", "Global", "Europe", "Asia", "Contacts"}));
    EXPECT_EQ(platform.TraceCount(
                  "Cancelling subfolder scan in 'Europe', can't count child folders: [0x80040117] Too complex."),
              1u);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(AddressLists, ListsThatCannotBeDeliveredCostOnlyTheirBranch) {
    mail.addressLists[0].lists[0].deliverError = Error(0x80004005, "Offline.");
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox", "<address lists>", "Global", "Europe", "Asia", "Contacts"}));
    EXPECT_EQ(platform.TraceCount(
                  "Cancelling subfolder scan in 'Europe', can't deliver child folders: [0x80004005] Offline."),
              1u);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(AddressLists, AListInsideItselfIsNotScannedAgain) {
    mail.addressLists[1].containsItself = true;
    LoadMode(eISAccess_RDO_Objects);
    const Lines tree = Tree();
    EXPECT_EQ(Lines(tree.end() - 2, tree.end()), (Lines{"  Contacts[AdList]", "    Contacts[AdList]"}));
}

TEST_F(AddressLists, ADeepNestIsScannedToTheDeepestLevelOfAWalk) {
    ModeAddressList chain = AddressList("innermost", "L");
    for (int32_t level = deepestWalkLevel + 50; level > 0; --level)
        chain = AddressList("list", std::to_string(level), {std::move(chain)});
    mail.addressLists = {std::move(chain)};
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(Grid().RowOutlineLevel(Grid().RowCount() - 1), deepestWalkLevel);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(AddressLists, ACancelInTheStoresLeavesThemOut) {
    platform.onYield = [&](int) {
        if (!platform.paths.empty() && platform.paths.back().ends_with("Inbox")) control->CancelLoad();
    };
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(Grid().FindRow("<address lists>", 0, colName), -1);
}

TEST_F(AddressLists, ACancelBeforeTheFirstListLeavesTheHeadingAlone) {
    platform.onYield = [&](int) {
        if (platform.TraceCount("Adding address book(s)") > 0) control->CancelLoad();
    };
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox", "<address lists>"}));
}

TEST_F(AddressLists, ACancelInsideAListLeavesTheListsAfterItOut) {
    const auto cancelWhenRead = [this](ScriptedObject& list) {
        const automation::Value id = list.Held(list.HasMember("ID") ? "ID" : "EntryID");
        list.Method(list.HasMember("ID") ? "ID" : "EntryID", [this, id](const automation::Invocation&) {
            control->CancelLoad();
            return id;
        });
    };
    mail.addressLists[0].lists[0].adjust = cancelWhenRead;
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox", "<address lists>", "Global", "Europe"}));
    mail.addressLists[0].adjust = cancelWhenRead;
    LoadMode(eISAccess_CDO);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox", "<address lists>", "Global"}));
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

class FailingBook : public EachMode {
  protected:
    FailingBook() {
        ShowAddressLists();
        mail.stores = {{"Mailbox", "B2", true, {}}};
        mail.addressLists = {AddressList("Global", "G1", {AddressList("Europe", "G11")}),
                             AddressList("Contacts", "C1")};
        plan = std::make_shared<automation::testing::FaultPlan>();
    }
};

TEST_P(FailingBook, EachCallOfTheScanFailsOnce) {
    Prepare(GetParam());
    mail.log->Clear();
    plan->FailCall(0);
    control->RefreshList();
    const Lines calls = mail.log->Lines();
    const Lines tree = Tree();
    size_t first = 0;
    while (first < calls.size() && calls[first].find("Address") == std::string::npos) ++first;
    ASSERT_LT(first + 5, calls.size());
    for (size_t n = first + 1; n <= calls.size(); ++n) {
        const std::string& call = calls[n - 1];
        StartAnew();
        Prepare(GetParam());
        platform.ClearTrace();
        plan->FailCall(static_cast<int>(n));
        control->RefreshList();
        // A list whose inner lists fail says so in its own words.
        EXPECT_EQ(platform.ErrorLines().size() + platform.TraceCount("Cancelling subfolder scan in '"), 1u) << call;
        EXPECT_EQ(Cell("<address lists>", colRowKind), "Header") << call;
        ExpectIdle();
        control->RefreshList();
        EXPECT_EQ(Tree(), tree) << call;
    }
    StartAnew();
}

INSTANTIATE_TEST_SUITE_P(Modes, FailingBook, ::testing::Values(eISAccess_RDO_Objects, eISAccess_CDO), ModeName);

class AddressListLookup : public AddressLists {};

TEST_F(AddressListLookup, AListIsNotFoundByItsIdentifierAlone) {
    LoadMode(eISAccess_RDO_Objects);
    ASSERT_EQ(Cell("Asia", colKey), "LG12");
    EXPECT_EQ(control->GetAdListItem("G12", ""), nullptr);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(AddressListLookup, ARowIsFoundWhenItsKeyHoldsBothIdentifiers) {
    mail.addressLists[0].lists[1].id = "G12|E5";
    LoadMode(eISAccess_RDO_Objects);
    const ItemRef item = control->GetAdListItem("g12", "e5");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Name(), "Asia");
    EXPECT_TRUE(item->IsAddressList());
}

}  // namespace
}  // namespace foldertree::testing
