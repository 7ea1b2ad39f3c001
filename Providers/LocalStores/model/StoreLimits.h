// StoreLimits: what a store may hold at most, whichever kind it is of.
#pragma once

#include <cstddef>
#include <string_view>

namespace localstores {

/// Both throw automation::Error, which names the path, where a store has more than it may.
void CheckLevel(std::string_view path, int level);
void CheckFolderCount(std::string_view path, size_t count);

}  // namespace localstores
