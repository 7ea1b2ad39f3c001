// ModelWalk: reads opened mail the way programs do, through all three object models.
#pragma once

#include <string>

namespace fuzz {

/// Opens the path and reads every store, every folder, every property and every table, and looks each folder up by its
/// identifier. A path that cannot be opened must be refused with an error that names it, in every model alike. Ends the
/// program where the models contradict each other. Whether the path could be opened.
bool WalkModels(const std::string& path);

}  // namespace fuzz
