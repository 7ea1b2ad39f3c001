// RdoSession: opens local mail through the automation object model of an RDO session.
#pragma once

#include "automation/Object.h"

namespace localstores {

/// A new session without stores; its own member `Open(Path)` adds the stores of a path (see OpenStores) and returns the
/// default one of them, or the first. All other members have the names, kinds and results of an RDO session. The stores
/// are read-only. The objects of a session keep it alive.
automation::ObjectRef MakeRdoSession();

}  // namespace localstores
