// OutlineCollapse: folds the tree so that only the branches that matter stay open.
#pragma once

#include <cstdint>

#include "common/ControlContext.h"
#include "common/Enumerations.h"

namespace foldertree {

/// Keeps open exactly the branches that lead to ticked rows. Ticks, selection and rows stay as they are.
void CollapseToSelection(ControlContext& context);

/// Keeps open the branches that hold folders of one type.
void CollapseToType(ControlContext& context, enuFTIItemType veType);

}  // namespace foldertree
