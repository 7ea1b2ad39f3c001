// HostActions: what a host does when its code runs inside a member of the control.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "attack/World.h"

namespace foldertree::attack {

struct HostAction {
    std::string name;
    /// Calls through the host's own reference, if it still has one.
    std::function<void(World& world)> act;
    bool throws = false;  ///< only where MayThrow()
};

/// Every member of the control, and what else a host may do: let go, fail, edit its collection, assign another one.
const std::vector<HostAction>& HostActions();

}  // namespace foldertree::attack
