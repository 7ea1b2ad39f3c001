// DefaultFolders: reads the entry identifiers of the profile's default folders from a session.
#pragma once

#include "automation/Object.h"
#include "common/ControlState.h"

namespace foldertree {

/// From an RDO session or an Outlook namespace: both number their default folders alike. Stores each identifier as soon
/// as it is read, so those read before an error stay. Throws automation::Error; 91 without a session.
void ReadDefaultFolders(const automation::ObjectRef& session, DefaultFolderIDs& ids);

/// From a CDO session, which also tells its default store.
void ReadDefaultFoldersCDO(const automation::ObjectRef& session, DefaultFolderIDs& ids);

}  // namespace foldertree
