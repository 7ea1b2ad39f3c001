// DefaultFoldersOnly: where each mode's default folders come from, and what it says at a refresh.
#include "modes/DefaultFoldersOnly.h"

#include "enumeration/DefaultFolders.h"

namespace foldertree {

void RdoObjReader::ReadDefaultFolders(DefaultFolderIDs& ids) {
    foldertree::ReadDefaultFolders(shell_.state.rdoSession, ids);
}

void OutlookReader::ReadDefaultFolders(DefaultFolderIDs& ids) {
    const automation::ObjectRef application = shell_.state.application;
    if (application == nullptr) return;
    foldertree::ReadDefaultFolders(application->Get("GetNamespace", "MAPI").ToObject(), ids);
}

bool OutlookReader::Begin() {
    shell_.Trace("GetFolders: Mode: Outlook");
    return false;
}

bool CdoReader::Begin() {
    shell_.Trace("GetFolders: Mode: CDO, Cannot refresh, CDO session is not initialized");
    return false;
}

}  // namespace foldertree
