// ConformanceTest: setting up the modes, and comparing trees.
#include "conformance/ConformanceTest.h"

#include <ostream>

#include "localstores/CdoSession.h"
#include "localstores/OutlookApplication.h"
#include "localstores/RdoSession.h"

namespace foldertree::testing {

using automation::ObjectRef;
using automation::testing::ScriptedObject;

void PrintTo(const Setting& setting, std::ostream* out) {
    *out << setting.mode->name << (setting.source == MailSource::LocalStores ? " over local stores" : "");
}

std::vector<Setting> ScriptedModes() {
    std::vector<Setting> settings;
    for (const ModeDifferences& mode : modeDifferences) settings.push_back({&mode, MailSource::Scripted});
    return settings;
}

std::vector<Setting> LocalModes() {
    std::vector<Setting> settings;
    for (const ModeDifferences& mode : modeDifferences) settings.push_back({&mode, MailSource::LocalStores});
    return settings;
}

std::vector<Setting> AllSettings() {
    std::vector<Setting> settings = ScriptedModes();
    for (const Setting& setting : LocalModes()) settings.push_back(setting);
    return settings;
}

std::string SettingName(const ::testing::TestParamInfo<Setting>& info) {
    return std::string(info.param.mode->name) + (info.param.source == MailSource::LocalStores ? "Local" : "");
}

namespace {

/// Reads a property of a local store by its tag.
ObjectRef LocalUtilities() {
    auto utilities = std::make_shared<ScriptedObject>("Utilities");
    utilities->Method("GetProperty", [](const automation::Invocation& call) {
        return call.arguments[0].RequireObject()->Get("Fields", call.arguments[1]);
    });
    return utilities;
}

}  // namespace

ObjectRef MakeLocalSession(enuInfoStoreAccessMode mode, std::string_view path) {
    const ObjectRef session = mode == eISAccess_Outlook ? localstores::MakeOutlookApplication()
                              : mode == eISAccess_CDO   ? localstores::MakeCdoSession()
                                                        : localstores::MakeRdoSession();
    session->Get("Open", path);
    return session;
}

void ConformanceTest::Use(const Setting& setting) {
    setting_ = setting;
    mail = IsLocal() ? LocalSample(Mode().mode) : ManyKinds();
    if (IsLocal()) factory.On("NOXMAPI.NOXMAPIUtils", [this] { return Planned(LocalUtilities()); });
}

ObjectRef ConformanceTest::MakeSession(enuInfoStoreAccessMode mode) {
    return IsLocal() ? MakeLocalSession(mode, "sample") : ModeTest::MakeSession(mode);
}

void ConformanceTest::SetUpTree(const TreeSettings& settings) {
    Prepare(Mode().mode, settings.extendToLevel);
    control->SetShowAddressBook(settings.showAddressBook);
    control->SetHighlightContactFolders(settings.highlightContacts);
    control->SetHighlightJournalFolders(settings.highlightJournals);
    control->SetHighlightTaskFolders(settings.highlightTasks);
    platform.ClearTrace();
}

void ConformanceTest::LoadTree(const TreeSettings& settings) {
    SetUpTree(settings);
    control->RefreshList();
}

void ConformanceTest::ExpectTree(const ExpectedTree& expected) {
    std::vector<GridRow> rows = Rows();
    // The captions are none of the tree's business.
    rows[0].cells[colSel] = rows[0].cells[colIndex] = rows[0].cells[colName] = "";
    const Lines actualLines = WholeLines(rows);
    const Lines expectedLines = WholeLines(expected.Rows());
    for (size_t i = 0; i < std::min(actualLines.size(), expectedLines.size()); ++i)
        ASSERT_EQ(actualLines[i], expectedLines[i]) << "row " << i;
    EXPECT_EQ(actualLines.size(), expectedLines.size());
}

void ConformanceTest::OpenAll() {
    for (int32_t row = 1; row < Grid().RowCount(); ++row)
        if (Grid().CellText(row, colIncomplete) == "-1") Open(row);
}

ItemRef ConformanceTest::ItemOf(const std::string& storeID, const std::string& folderID) {
    return HostItem(Mode().tellsStore ? storeID : "", folderID);
}

}  // namespace foldertree::testing
