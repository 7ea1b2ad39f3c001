// ControlState: what one placed control knows besides its grid and its selection.
#pragma once

#include <cstdint>
#include <string>

#include "automation/Object.h"
#include "common/Enumerations.h"
#include "interaction/FlagSet.h"
#include "rows/RowHandle.h"

namespace foldertree {

/// Entry identifiers of the profile's default folders, as the session gives them; empty when not read or not there.
struct DefaultFolderIDs {
    std::string inbox;
    std::string drafts;
    std::string outbox;
    std::string deletedItems;
    std::string sentItems;
    std::string notes;
    std::string defaultStore;  ///< CDO mode only
};

struct ControlState {
    // Settings that a container saves
    bool enabled = false;
    bool highlightContactFolders = false;
    bool highlightJournalFolders = false;
    bool highlightTaskFolders = false;
    bool multiSelect = false;
    bool allowIndexing = false;
    bool showAddressBook = false;
    int32_t extendToLevel = 0;  ///< deepest level that is read at once; 0 = all levels
    enuInfoStoreAccessMode infoStoreAccessMode = eISAccess_RDO_MAPITables;

    /// Deepest level whose folders are in the grid; -1 = all levels are.
    int32_t bufferedToLevel = 0;

    // The host's objects; references only
    automation::ObjectRef rdoSession;
    automation::ObjectRef application;

    std::string addressListRowName;
    RowHandle addressListHeading;
    int32_t rowHeight = 0;  ///< twips
    DefaultFolderIDs defaultFolders;

    bool cancel = false;      ///< the user wants the running load to stop
    bool refreshing = false;  ///< a load or an expansion runs; a refresh is turned away
    bool gridBusy = false;    ///< the control itself changes the grid; edit and collapse handlers do nothing

    /// The positions of ticked folders are numbered.
    bool Indexing() const { return multiSelect && allowIndexing; }
};

}  // namespace foldertree
