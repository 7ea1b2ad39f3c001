// Mbox: reads the folders of a tree of mbox files, as desktop mail clients keep it.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "localstores/Store.h"

namespace localstores {

/// Whether a file in the directory begins as mbox files do, or is empty and has an index file ("name.msf") beside it,
/// or a directory in it is named as one of sub-folders is ("name.sbd"). Throws automation::Error when it cannot be
/// read.
bool HoldsMboxes(const std::filesystem::path& directory, std::string_view path);

/// Each file that begins with "From " is a folder, and so is each empty one; the folders below "name" stand in the
/// directory "name.sbd" beside it. All other files belong to mail clients and are passed over, as are hidden ones and
/// empty ones whose names end like those of such files. `path` is the directory as the user named it. Throws
/// automation::Error.
std::shared_ptr<Store> ReadMboxes(const std::filesystem::path& directory, std::string_view path);

}  // namespace localstores
