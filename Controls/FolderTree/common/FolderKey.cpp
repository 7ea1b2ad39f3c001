// FolderKey: the keys by which the rows and the items of folders and address lists are found.
#include "common/FolderKey.h"

namespace foldertree {

std::string FolderKey(std::string_view storeID, std::string_view entryID, std::string_view restOfEntryID) {
    std::string key;
    key.reserve(storeID.size() + entryID.size() + restOfEntryID.size() + 2);
    key.append("S").append(storeID).append("|").append(entryID).append(restOfEntryID);
    return key;
}

std::string AddressListKey(std::string_view listID) {
    return std::string("L").append(listID);
}

}  // namespace foldertree
