// ObjectFactory: creates automation objects by class name (ProgID).
#pragma once

#include <string_view>

#include "automation/Object.h"

namespace automation {

class ObjectFactory {
  public:
    virtual ~ObjectFactory() = default;
    /// A new object of the class. Throws Error (0x80040154 class not registered, or what the class reports).
    virtual ObjectRef Create(std::string_view progId) = 0;
};

}  // namespace automation
