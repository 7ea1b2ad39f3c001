// SettingsPage: the property page on which a designer sets what a form saves of the control.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include "automation_win32/ComPtr.h"

namespace foldertree {

/// {C9D3D0EE-DA71-4923-9780-18094729C603}
inline constexpr CLSID settingsPageClass = {
    0xc9d3d0ee, 0xda71, 0x4923, {0x97, 0x80, 0x18, 0x09, 0x47, 0x29, 0xc6, 0x03}};

/// Of the module's dialog resource; the dialog's items are numbered from settingItem on by the settings' places in the
/// table of members.
inline constexpr WORD settingsDialog = 201;
inline constexpr int settingItem = 1000;

/// A new property page. It shows the settings of the first of its objects, and writes what the user has changed into
/// all of them.
automation::ComPtr<IUnknown> MakeSettingsPage();

}  // namespace foldertree
