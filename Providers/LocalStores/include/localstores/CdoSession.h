// CdoSession: local mail through the automation object model of a CDO 1.21 session.
#pragma once

#include "automation/Object.h"

namespace localstores {

/// A new session whose members have the names, kinds and results of a CDO session's. Before `Logon` all members but
/// `Open` and those that tell what the object is give 0x80040605 (MAPI_E_NOT_INITIALIZED). Its own member `Open(Path)`
/// adds the stores of a path (see OpenStores). A session that was told to open nothing shows after `Logon` the stores
/// of the session in use on this thread, which is the one that first opened a path, in whichever object model; while
/// there is none, or when `Logon` asks for a new session, the sample mailbox. The stores are read-only. The objects of
/// a session keep it alive.
automation::ObjectRef MakeCdoSession();

}  // namespace localstores
