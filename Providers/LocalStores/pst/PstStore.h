// PstStore: reads the folders of a PST file.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "localstores/Store.h"

namespace localstores {

/// Reads the whole folder tree and closes the file again. A folder's identifier is the one that mail clients give it:
/// four zero bytes, the store's record key, and the folder's node number. `path` is the file as the user named it.
/// Throws automation::Error.
std::shared_ptr<Store> ReadPst(const std::filesystem::path& file, std::string_view path);

}  // namespace localstores
