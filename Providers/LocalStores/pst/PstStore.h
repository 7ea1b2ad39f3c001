// PstStore: reads the folders of a PST file.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "localstores/Store.h"
#include "pst/PstReading.h"

namespace localstores {

/// Reads the whole folder tree and closes the file again. A folder's identifier is the one that mail clients give it:
/// four zero bytes, the store's record key, and the folder's node number. `path` is the file as the user named it.
/// Throws automation::Error, also when the file costs more than the limits allow.
std::shared_ptr<Store> ReadPst(const std::filesystem::path& file, std::string_view path, const PstLimits& limits = {});

}  // namespace localstores
