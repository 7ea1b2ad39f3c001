// ComObjectFactory: creates COM objects by their ProgID.
#pragma once

#include "automation/ObjectFactory.h"

namespace automation {

/// COM must be initialised on the calling thread.
class ComObjectFactory : public ObjectFactory {
  public:
    ObjectRef Create(std::string_view progId) override;
};

}  // namespace automation
