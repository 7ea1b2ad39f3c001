// MailboxTree: from the names of mailboxes in a directory to a store.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "localstores/Store.h"
#include "model/DisjointPlaces.h"

namespace localstores {

/// The mailboxes that a reader found. Text as in file names: any bytes.
struct MailboxNames {
    std::filesystem::path directory;
    std::string_view path;  ///< the directory as the user named it
    std::string_view providerName;
    char separator;                  ///< between the levels of a name
    std::vector<std::string> names;  ///< full names, in the order in which they are to be shown
};

/// A level that has no mailbox of its own is a folder all the same, since a mail client shows it too. Names are
/// modified UTF-7 where they are well-formed, as IMAP servers and clients write them; bytes that are no UTF-8 become
/// replacement characters. "INBOX" has no case. The names that mail clients give to their default folders make folders
/// theirs. Throws automation::Error when there are too many folders or too many levels.
std::shared_ptr<Store> MakeMailboxStore(const MailboxNames& mailboxes);

/// The entries of a store's own directory in the order of their names, since directories list them in no order. Throws
/// automation::Error, with `path`, when it cannot be read.
std::vector<std::filesystem::directory_entry> SortedEntries(const std::filesystem::path& directory,
                                                            std::string_view path);
/// The same for a directory below it. What is in one that cannot be read is not seen.
std::vector<std::filesystem::directory_entry> SortedEntries(const std::filesystem::path& directory);

/// Told of each directory below a store's that is to be read, so that links lead round in no circles.
class DirectoryWalk {
  public:
    DirectoryWalk(const std::filesystem::path& root, std::string_view path);

    /// Whether to read the directory: a real one always, a link unless it leads into a directory that is being read, or
    /// to one that holds it. Throws automation::Error when `depth` is more than a store may have.
    bool MayEnter(const std::filesystem::directory_entry& directory, int depth);

  private:
    std::string path_;
    DisjointPlaces<> beingRead_;
};

}  // namespace localstores
