// Enumerations: the two public enumerations of the component.
#pragma once

#include <cstdint>

namespace foldertree {

/// Kind of folder. The first eight values repeat the item types of the mail client's object model; the rest mark
/// special default folders.
enum enuFTIItemType : int32_t {
    FTIUnknown = -1,
    FTIAppointmentItem = 1,
    FTIContactItem = 2,
    FTIDistributionList = 7,
    FTIjournalItem = 4,
    FTIMailItem = 0,
    FTINoteItem = 5,
    FTIPostItem = 6,
    FTITaskItem = 3,
    FTITrashcan = 8,
    FTIInbox = 9,
    FTIOutbox = 10,
    FTISent = 11,
    FTIDraft = 12,
    FTIHome = 13,
};

/// The way in which the control reaches the message stores. Hosts may store other numbers; those show an empty tree.
enum enuInfoStoreAccessMode : int32_t {
    eISAccess_RDO_MAPITables = 0,
    eISAccess_RDO_Objects = 1,
    eISAccess_Outlook = 2,
    eISAccess_CDO = 3,
};

}  // namespace foldertree
