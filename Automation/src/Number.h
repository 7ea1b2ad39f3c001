// Number: what the value conversions need beyond the public number functions.
#pragma once

#include <string>

namespace automation {

/// As the public NumberText, with that many significant digits (15 for a Double, 7 for a Single).
std::string NumberText(double number, int precision);

}  // namespace automation
