// Checks: what must hold when a member has ended in whose middle the host did something.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "attack/World.h"

namespace foldertree::attack {

using Findings = std::vector<std::string>;
/// Between what kind of finding it is, and what it is about in this case.
inline constexpr std::string_view detailMark = " -- ";

/// Foreign objects, items and scripted objects that exist now.
int LiveObjects();

/// Nothing of the member is left over: no flag, no panel, no busy pointer; a closed control calls its platform no more.
void CheckIdle(World& world, Findings& findings);
/// Collections that the host assigned meanwhile hold what they held, are the control's current ones, and are shown.
void CheckBystanders(World& world, Findings& findings);
/// Cells can be read, and rows found by their keys.
void CheckGrid(World& world, Findings& findings);
/// Given fresh settings and sessions the control shows the same tree as a new one, and can select it all.
void CheckFreshStart(World& world, const std::vector<std::string>& expected, Findings& findings);
/// Ends the control. It holds no reference to any of the host's collections, and nothing is left of it.
void CheckEnd(World& world, Findings& findings);

}  // namespace foldertree::attack
