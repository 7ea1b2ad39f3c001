// Members: everything that a host, a container or a window can call on the control, as a table.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "attack/World.h"

namespace foldertree::attack {

struct Member {
    std::string name;
    std::string_view function;  ///< the public function of ctlFolderTree that it is
    /// Works on the control itself, not on a reference that is kept: inside, the last one may go.
    std::function<void(World& world, ctlFolderTree& control)> call;
    /// It reads mail: not tried where a load passes too many places.
    bool reads = false;
};

const std::vector<Member>& Members();

}  // namespace foldertree::attack
