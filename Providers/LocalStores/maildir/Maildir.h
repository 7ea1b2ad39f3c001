// Maildir: reads the folders of a directory of mailboxes that are directories themselves: Maildir++ and nested Maildir.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "localstores/Store.h"

namespace localstores {

/// Whether the directory is a mailbox: `cur` and `new` are directories in it.
bool IsMaildir(const std::filesystem::path& directory);

/// Whether the directory holds plain directories that are mailboxes or hold such, and no mailbox of the Maildir++ kind.
/// Where the directory is no mailbox itself, one of those directly in it must be, so that no whole disk is searched.
/// Throws automation::Error when it cannot be read.
bool HoldsNestedMaildirs(const std::filesystem::path& directory, std::string_view path);

/// Maildir++, as mail servers keep it: the directory itself is the mailbox INBOX; every directory in it whose name
/// starts with a point is one more mailbox, its levels separated by points. `path` is the directory as the user named
/// it. Throws automation::Error.
std::shared_ptr<Store> ReadMaildir(const std::filesystem::path& directory, std::string_view path);

/// Nested Maildir: each directory that is a mailbox or holds mailboxes is a folder. Where the directory itself is a
/// mailbox, it is INBOX. Throws automation::Error.
std::shared_ptr<Store> ReadNestedMaildir(const std::filesystem::path& directory, std::string_view path);

}  // namespace localstores
