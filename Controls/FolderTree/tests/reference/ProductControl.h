// ProductControl: the control that ships, driven through its public members and the gestures on its grid.
#pragma once

#include <memory>

#include "automation/ObjectFactory.h"
#include "common/ControlPlatform.h"
#include "reference/ControlFace.h"

namespace foldertree::reference {

std::unique_ptr<ControlFace> MakeProductControl(ControlPlatform& platform, automation::ObjectFactory& factory);

}  // namespace foldertree::reference
