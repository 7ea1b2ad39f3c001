// FuzzValue: a value of any type, made of a fuzz input.
#pragma once

#include "FuzzInput.h"
#include "automation/Value.h"

namespace fuzz {

/// Objects and arrays, empty ones too, are among them; arrays hold values in their turn, a few levels deep.
automation::Value TakeValue(FuzzInput& input, int depth = 0);

/// An object without members.
automation::ObjectRef MakeStranger();

}  // namespace fuzz
