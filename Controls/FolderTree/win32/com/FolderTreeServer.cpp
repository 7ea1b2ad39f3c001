// FolderTreeServer: the classes of FolderTree.ocx.
#include <windows.h>

#include "FolderTree.idl.h"
#include "automation_win32/ComServer.h"
#include "automation_win32/Crossing.h"
#include "win32/com/ControlDescription.h"
#include "win32/com/ControlObject.h"
#include "win32/com/FolderTreeItem.h"

automation::ComServer automation::DescribeServer(HMODULE module) {
    constexpr WORD toolbarBitmap = 1;
    foldertree::RegisterItemClass();
    return {
        module,
        true,
        {{__uuidof(ctlFolderTree), L"FolderTree.ctlFolderTree", foldertree::controlTitle,
          [] { return foldertree::ControlObject::Create(); }, foldertree::controlMiscStatus, toolbarBitmap},
         {__uuidof(clsFolderTreeItem), L"FolderTree.clsFolderTreeItem", L"FolderTree item",
          [] { return ToCom(std::make_shared<foldertree::clsFolderTreeItem>()); }}},
    };
}
