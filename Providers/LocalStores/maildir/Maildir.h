// Maildir: reads the folders of a Maildir++ tree, as mail servers keep them.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "localstores/Store.h"

namespace localstores {

/// The directory itself is the mailbox INBOX; every directory in it whose name starts with a point is one more mailbox,
/// its levels separated by points and written in modified UTF-7. A level that has no directory of its own is a folder
/// all the same, since a mail client shows it too. `path` is the directory as the user named it.
/// Throws automation::Error.
std::shared_ptr<Store> ReadMaildir(const std::filesystem::path& directory, std::string_view path);

}  // namespace localstores
