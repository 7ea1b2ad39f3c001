// OpenStores: from what the user names to the stores it holds.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "localstores/Store.h"

namespace localstores {

using StoreList = std::vector<std::shared_ptr<Store>>;

/// `path` (UTF-8) is "sample" for the built-in sample mailbox, a directory that holds a Maildir++ tree,
/// nested Maildirs or a tree of mbox files, or a PST file. Which of the three a directory is, its content tells: plain
/// directories that are Maildirs make it nested unless there are Maildir++ mailboxes beside them; `cur` and `new` alone
/// make it Maildir++; without any of these, a file that begins with "From ", an empty one with an index beside it, or a
/// directory "name.sbd" makes it an mbox tree.
/// "sample?delay=20&rows=5" is a sample mailbox on a slow server: every read of table rows takes 20 ms and gives at
/// most 5 rows. "folders=1000": so many folders more in the public store, at most 1,000,000. "count=unknown": a CDO
/// session counts 0x7FFFFFFF folders everywhere. "lists=refuse": an address list that holds no others answers
/// MAPI_E_NO_SUPPORT when it is asked for them. Each option can stand alone. At least one store comes back. Throws
/// automation::Error, whose text names the path, when there is nothing to read or when it is damaged.
StoreList OpenStores(std::string_view path);

}  // namespace localstores
