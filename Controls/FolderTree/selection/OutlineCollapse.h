// OutlineCollapse: folds the tree so that only the branches that matter stay open.
#pragma once

#include <cstdint>

#include "shell/ControlShell.h"
#include "shell/Enumerations.h"

namespace foldertree {

/// Keeps open exactly the branches that lead to ticked rows. Ticks, selection and rows stay as they are.
void CollapseToSelection(ControlShell& shell);

/// Keeps open the branches that hold folders of one type.
void CollapseToType(ControlShell& shell, enuFTIItemType veType);

}  // namespace foldertree
