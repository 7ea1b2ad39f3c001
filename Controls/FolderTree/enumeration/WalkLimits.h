// WalkLimits: how deep a walk goes at most, whatever the host asks for.
#pragma once

#include <cstdint>

namespace foldertree {

/// Walks open folders no deeper than this level; what lies below is read when the user opens it. Each level costs up to
/// some 1.6 kB of stack, and hosts give their user-interface thread 1 MB. Mail servers allow 300 levels.
inline constexpr int32_t deepestWalkLevel = 350;

}  // namespace foldertree
