// Golden: compares a text with an expected file that a person has read.
#pragma once

#include <string>
#include <vector>

namespace foldertree::testing {

/// Fails the test when the lines differ from the file `name` in the folder of goldens, and then leaves them beside it
/// as `name`.new: whoever has read and agreed with them renames that file.
void ExpectGolden(const std::string& name, const std::vector<std::string>& lines);

}  // namespace foldertree::testing
