// Setting: the table.
#include "attack/Setting.h"

namespace foldertree::attack {

std::span<const Setting> Settings() {
    static constexpr Setting settings[] = {
        {.name = "tables", .mode = eISAccess_RDO_MAPITables, .holder = Holder::Host},
        {.name = "objects",
         .mode = eISAccess_RDO_Objects,
         .holder = Holder::HostsOwn,
         .showAddressBook = true,
         .extendToLevel = 1},
        {.name = "outlook", .mode = eISAccess_Outlook, .holder = Holder::Control},
        {.name = "cdo", .mode = eISAccess_CDO, .holder = Holder::HostsOwnUnwalked, .showAddressBook = true},
        {.name = "single", .mode = eISAccess_RDO_MAPITables, .holder = Holder::Host, .multiSelect = false},
        {.name = "many",
         .mode = eISAccess_RDO_MAPITables,
         .holder = Holder::Control,
         .moreFolders = 90,
         .selectionOnly = true},
    };
    return settings;
}

}  // namespace foldertree::attack
