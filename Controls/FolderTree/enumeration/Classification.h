// Classification: which item type a folder's container class stands for.
#pragma once

#include <string_view>

#include "common/Enumerations.h"

namespace foldertree {

/// The type of a folder class ("IPF.Note") or message class ("IPM.Note"), in any letter case. Only whole classes count:
/// a class that merely begins with a known one is FTIUnknown, and the table-driven walk does not show its folder.
enuFTIItemType GetItemTypeFromMessageClass(std::string_view sMessageClass);

}  // namespace foldertree
