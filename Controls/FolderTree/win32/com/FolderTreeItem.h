// FolderTreeItem: the COM class clsFolderTreeItem around an item of the core.
#pragma once

#include "FolderTree.idl.h"
#include "automation_win32/ComPtr.h"
#include "common/clsFolderTreeItem.h"

namespace foldertree {

/// From now on every item that crosses to COM, also inside a host's collection, is an object of this class.
void RegisterItemClass();

/// The COM object of an item: the same one as long as anybody holds it. Nothing stays Nothing.
automation::ComPtr<_clsFolderTreeItem> ToItemObject(const ItemRef& item);

/// The item behind a COM object of this class. Null is Nothing. Throws Error 13 for any other object.
ItemRef FromItemObject(IUnknown* object);

}  // namespace foldertree
