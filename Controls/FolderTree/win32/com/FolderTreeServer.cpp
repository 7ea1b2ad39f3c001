// FolderTreeServer: the classes of FolderTree.ocx.
#include <windows.h>

#include "FolderTree.idl.h"
#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"
#include "win32/com/ControlDescription.h"
#include "win32/com/ControlObject.h"
#include "win32/com/FolderTreeItem.h"
#include "win32/com/SettingsPage.h"
#include "win32/com/VbaCollection.h"

namespace {

std::vector<automation::ServerVerb> Verbs() {
    std::vector<automation::ServerVerb> verbs;
    for (const foldertree::ControlVerb& verb : foldertree::controlVerbs) verbs.push_back({verb.number, verb.name});
    return verbs;
}

}  // namespace

automation::ComServer automation::DescribeServer(HMODULE module) {
    constexpr WORD toolbarBitmap = 1;
    foldertree::RegisterItemClass();
    foldertree::RegisterCollectionClass();
    return {
        module,
        true,
        {{.clsid = __uuidof(ctlFolderTree),
          .progId = L"FolderTree.ctlFolderTree",
          .title = foldertree::controlTitle,
          .make = [] { return foldertree::ControlObject::Create(); },
          .miscStatus = foldertree::controlMiscStatus,
          .toolbarBitmap = toolbarBitmap,
          .verbs = Verbs()},
         {.clsid = __uuidof(clsFolderTreeItem),
          .progId = L"FolderTree.clsFolderTreeItem",
          .title = L"FolderTree item",
          .make = [] { return ToCom(std::make_shared<foldertree::clsFolderTreeItem>()); }},
         {.clsid = foldertree::settingsPageClass,
          .progId = L"FolderTree.SettingsPage",
          .title = L"FolderTree settings page",
          .make = foldertree::MakeSettingsPage}},
    };
}
