// OutlookApplication: local mail through the object model of a mail client.
#pragma once

#include "automation/Object.h"

namespace localstores {

/// A new application whose members have the names, kinds and results of Outlook's object model. Its own member
/// `Open(Path)` adds the stores of a path (see OpenStores) and returns the top folder of the default one of them, or of
/// the first. An application that was told to open nothing shows the stores of the session in use on this thread, which
/// is the one that first opened a path, in whichever object model; while there is none, the sample mailbox. The stores
/// are read-only. The objects of an application keep it alive.
automation::ObjectRef MakeOutlookApplication();

}  // namespace localstores
