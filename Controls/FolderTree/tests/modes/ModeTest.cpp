// ModeTest: how a host sets up each mode.
#include "modes/ModeTest.h"

namespace foldertree::testing {

using automation::ObjectRef;
using automation::Value;

ModeTest::ModeTest() {
    factory.On("MAPI.Session", [this] { return Planned(MakeSession(eISAccess_CDO)); });
    factory.On("NOXMAPI.NOXMAPIUtils", [this] { return Planned(mail.Utilities()); });
}

ObjectRef ModeTest::MakeSession(enuInfoStoreAccessMode mode) {
    if (mode == eISAccess_Outlook) return mail.Application();
    if (mode == eISAccess_CDO) return mail.CdoSession();
    return mail.RdoSession();
}

void ModeTest::Prepare(enuInfoStoreAccessMode mode, int32_t extendToLevel) {
    FakeBag bag;
    control->UserControl_WriteProperties(bag);
    bag.values["ExtendToLevel"] = Value(extendToLevel);
    bag.values["InfoStoreAccessMode"] = Value(static_cast<int32_t>(mode));
    bag.values["ShowAddressBook"] = Value(showAddressBook_);
    control->UserControl_ReadProperties(bag);
    if (mode == eISAccess_Outlook) control->SetApplication(Planned(MakeSession(mode)));
    if (mode == eISAccess_RDO_MAPITables || mode == eISAccess_RDO_Objects)
        control->SetRDOSessionRef(Planned(MakeSession(mode)));
}

void ModeTest::LoadMode(enuInfoStoreAccessMode mode, int32_t extendToLevel) {
    Prepare(mode, extendToLevel);
    platform.ClearTrace();
    control->RefreshList();
}

void ModeTest::StartAnew() {
    control.reset();
    EXPECT_EQ(automation::testing::ScriptedObject::LiveCount(), liveBefore) << "an outside object was not released";
    control = ctlFolderTree::Create(platform, factory);
    control->UserControl_InitProperties();
    platform.ClearTrace();
}

namespace {

ModeFolder* Find(std::vector<ModeFolder>& folders, std::string_view name) {
    for (ModeFolder& folder : folders) {
        if (folder.name == name) return &folder;
        if (ModeFolder* found = Find(folder.children, name)) return found;
    }
    return nullptr;
}

}  // namespace

ModeFolder& ModeTest::FolderNamed(std::string_view name) {
    for (ModeStore& store : mail.stores)
        if (ModeFolder* found = Find(store.folders, name)) return *found;
    throw std::invalid_argument("no such folder");
}

std::string ModeName(const ::testing::TestParamInfo<enuInfoStoreAccessMode>& info) {
    switch (info.param) {
        case eISAccess_RDO_MAPITables:
            return "RdoTables";
        case eISAccess_RDO_Objects:
            return "RdoObjects";
        case eISAccess_Outlook:
            return "Outlook";
        case eISAccess_CDO:
            return "Cdo";
    }
    return "Unknown";
}

}  // namespace foldertree::testing
