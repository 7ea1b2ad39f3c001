// ProductControl: the control that ships, driven through its public members and the gestures on its grid.
#pragma once

#include <memory>

#include "automation/ObjectFactory.h"
#include "reference/ControlFace.h"
#include "shell/ControlHost.h"

namespace foldertree::reference {

std::unique_ptr<ControlFace> MakeProductControl(ControlHost& host, automation::ObjectFactory& factory);

}  // namespace foldertree::reference
