// RowId: a row's identity.
#pragma once

#include "automation/IdSequence.h"

namespace foldertree {

/// Small, stays with the row for its life, is reused afterwards.
using RowId = automation::IdSequence::Id;

}  // namespace foldertree
