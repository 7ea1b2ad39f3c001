// AddressList: one list of an address book, and through its children a whole tree of them.
#pragma once

#include <string>
#include <vector>

#include "localstores/EntryId.h"

namespace localstores {

enum class AddressListRole { None, Global, Personal };

/// Plain data; text is UTF-8.
struct AddressList {
    std::string name;
    EntryId id;
    AddressListRole role = AddressListRole::None;
    bool hasEntries = true;       ///< false: made only to hold other lists
    bool answersForLists = true;  ///< false: asking which lists are in it gives an error, as some address books do
    std::vector<AddressList> children;
};

}  // namespace localstores
