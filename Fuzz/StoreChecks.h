// StoreChecks: what must be true of every store, whatever it was read from.
#pragma once

#include <cstddef>

#include "localstores/Store.h"

namespace fuzz {

/// Ends the program where something is not true; the number of folders.
size_t CheckStore(const localstores::Store& store);

}  // namespace fuzz
