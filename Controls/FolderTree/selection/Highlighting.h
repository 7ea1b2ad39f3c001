// Highlighting: contact, journal and task folders stand out when the host asks for it.
#pragma once

#include <cstdint>

#include "common/ControlContext.h"

namespace foldertree {

/// Whether rows of that item type are to stand out by the flags now set.
bool IsHighlighted(const ControlState& state, double itemType);

/// A row just written: for each flag that is set, bold when the type matches, else grey. With two flags on, a matching
/// row is both.
void HighlightNewRow(ControlContext& context, int32_t row, int32_t itemType);

/// Re-applies the flags to all rows: only bold, never the fore colour, and whatever the tick; store rows keep their
/// bold.
void PerformHighlighting(ControlContext& context);

}  // namespace foldertree
