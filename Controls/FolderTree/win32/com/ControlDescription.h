// ControlDescription: what containers and the registry are told of the control's class.
#pragma once

#include <oleidl.h>

namespace foldertree {

/// The class's name, as it is registered and as containers show it.
inline constexpr wchar_t controlTitle[] = L"FolderTree control";
/// For menus and lists; short names of OLE have at most 15 characters.
inline constexpr wchar_t controlShortTitle[] = L"FolderTree";

/// The OLEMISC flags: active in place whenever it is visible, painted anew at every size, and the site is wanted before
/// the settings, since the font comes from there.
inline constexpr DWORD controlMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                           OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

/// What a container's menu offers for the control.
struct ControlVerb {
    LONG number;
    const wchar_t* name;
};
inline constexpr LONG propertiesVerb = 1;
inline constexpr ControlVerb controlVerbs[] = {{OLEIVERB_PRIMARY, L"&Edit"}, {propertiesVerb, L"&Properties\u2026"}};

}  // namespace foldertree
