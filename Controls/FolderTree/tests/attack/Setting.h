// Setting: the circumstances in which the members of the control are tried.
#pragma once

#include <span>

#include "common/Enumerations.h"

namespace foldertree::attack {

/// Whose collection the control works on.
enum class Holder {
    Host,              ///< the host's variable holds a keyed collection as we make them
    HostsOwn,          ///< a collection that the host has written itself
    HostsOwnUnwalked,  ///< the same without an enumeration
    Control,           ///< made by the control when the host selected all; the host added items of its own
};

struct Setting {
    const char* name;
    enuInfoStoreAccessMode mode;
    Holder holder;
    bool multiSelect = true;
    bool showAddressBook = false;
    int extendToLevel = 2;
    /// Folders besides the few that all settings have: enough for more than a machine word of rows.
    int moreFolders = 0;
    /// With many rows a load passes too many places: only what works on the selection is tried.
    bool selectionOnly = false;
};

std::span<const Setting> Settings();

}  // namespace foldertree::attack
