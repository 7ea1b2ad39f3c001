// GridSetup: the empty grid that a control starts with, and the picture of a folder row.
#pragma once

#include <string_view>

#include "common/ControlContext.h"
#include "common/Enumerations.h"
#include "common/Pictures.h"

namespace foldertree {

/// Resets the grid to its empty state. The header captions change places with their placeholders: a second run blanks
/// them, so hosts call Localize after the control is loaded.
void SetupGrid(ControlContext& context);

/// Shows the index column only while positions are numbered.
void ShowIndexColumn(ControlContext& context);

/// The picture of a folder: a default folder's own, else its type's; Picture::None for an unknown type.
Picture GetIcon(ControlContext& context, enuFTIItemType eType, std::string_view sEntryID);

}  // namespace foldertree
