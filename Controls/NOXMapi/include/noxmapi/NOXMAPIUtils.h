// NOXMAPIUtils: reads a MAPI property of a store object by its tag.
#pragma once

#include "automation/TabledObject.h"

namespace noxmapi {

/// Member: `GetProperty(oStore, lPropTag)`, the value of the object's own `Fields(lPropTag)`. The object's errors pass.
class NOXMAPIUtils : public automation::TabledObject<NOXMAPIUtils> {
  public:
    static std::span<const automation::MemberEntry<NOXMAPIUtils>> Members();
};

}  // namespace noxmapi
