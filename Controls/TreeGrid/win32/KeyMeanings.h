// KeyMeanings: which key of Windows is which key of the grid.
#pragma once

#include <windows.h>

#include <optional>

#include "interaction/GridInteraction.h"

namespace foldertree {

/// What the key (VK_...) means to a grid together with Ctrl and Shift as they are held now; nothing when it is not the
/// grid's.
std::optional<GridKey> MeaningOf(WPARAM key);

/// Whether the key itself means nothing to a grid, but the character that follows it opens or closes nodes. Letters and
/// digits come as characters in any case.
bool IsSignKey(WPARAM key);

}  // namespace foldertree
