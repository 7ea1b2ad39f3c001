// FolderKey: the keys by which the rows and the items of folders and address lists are found.
#pragma once

#include <string>
#include <string_view>

namespace foldertree {

/// "S", the store, "|" and the folder. The folder's identifier may come in two parts.
std::string FolderKey(std::string_view storeID, std::string_view entryID, std::string_view restOfEntryID = {});

/// "L" and the list.
std::string AddressListKey(std::string_view listID);

}  // namespace foldertree
