// SampleFolders: the tables of stores, folders and address lists that the sample mailbox is made of.
#pragma once

#include <optional>
#include <span>

#include "localstores/Store.h"

namespace localstores {

/// One folder; it belongs to the last folder above it in the table whose level is one less. Level 1 is the top.
struct SampleFolder {
    size_t level;
    const char* name;
    const char* containerClass;  ///< null: the folder has none
    FolderType type = FolderType::Generic;
    std::optional<DefaultFolder> role = std::nullopt;
};

struct SampleStore {
    const char* name;
    const char* providerName;
    StoreKind kind;
    bool isDefault;
    std::span<const SampleFolder> folders;
};

/// One list of the address book; levels as in SampleFolder.
struct SampleList {
    size_t level;
    const char* name;
    AddressListRole role = AddressListRole::None;
};

std::span<const SampleStore> SampleStores();
std::span<const SampleList> SampleAddressLists();

}  // namespace localstores
