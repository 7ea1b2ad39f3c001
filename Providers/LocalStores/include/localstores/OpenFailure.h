// OpenFailure: the errors with which a store refuses to open; each names the file.
#pragma once

#include <string_view>

#include "automation/Error.h"

namespace localstores {

/// MAPI_E_CORRUPT_STORE: what is there is not a sound store.
automation::Error DamagedStore(std::string_view path, std::string_view reason);
/// MAPI_E_NOT_FOUND: nothing is there, or nothing that we know how to read.
automation::Error NoSuchStore(std::string_view path, std::string_view reason);
/// MAPI_E_COLLISION: another open store has the same identifier.
automation::Error StoreCollision(std::string_view path, std::string_view reason);
/// MAPI_E_TOO_BIG: reading it takes more time or memory than it may.
automation::Error CostlyStore(std::string_view path, std::string_view reason);

}  // namespace localstores
