// PropertyBag: where a container keeps the control's saved settings.
#pragma once

#include <string_view>

#include "automation/Value.h"

namespace foldertree {

class PropertyBag {
  public:
    virtual ~PropertyBag() = default;
    /// The saved value, or Empty when there is none under that name. Throws automation::Error.
    virtual automation::Value Read(std::string_view name) = 0;
    virtual void Write(std::string_view name, const automation::Value& value) = 0;
};

}  // namespace foldertree
