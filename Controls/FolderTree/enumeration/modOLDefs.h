// modOLDefs: constants of the Outlook object model, which the RDO session shares.
#pragma once

#include <cstdint>

namespace foldertree {

/// Folder numbers of GetDefaultFolder (OlDefaultFolders).
enum OlDefaultFolder : int32_t {
    olFolderDeletedItems = 3,
    olFolderOutbox = 4,
    olFolderSentMail = 5,
    olFolderInbox = 6,
    olFolderNotes = 12,
    olFolderDrafts = 16,
};

}  // namespace foldertree
