// ItemTypes: what kind of items a folder is made for.
#pragma once

#include <cstdint>
#include <string_view>

#include "localstores/Folder.h"

namespace localstores {

struct ItemType {
    std::string_view folderClass;
    std::string_view messageClass;
    int32_t number;  ///< as mail clients number them: 0 mail, 1 appointment, 2 contact, 3 task, 4 journal, 5 note
};

/// By the folder's container class, sub-classes included. Every folder without a known class is made for mail.
const ItemType& ItemTypeOf(const Folder& folder);

}  // namespace localstores
