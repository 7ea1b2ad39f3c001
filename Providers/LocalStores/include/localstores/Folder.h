// Folder: one folder of a store, and through its children a whole tree of them.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "localstores/EntryId.h"

namespace localstores {

/// The values of PR_FOLDER_TYPE.
enum class FolderType { Root = 0, Generic = 1, Search = 2 };

/// Plain data. A folder owns its children; `parent` is null for the root. Text is UTF-8.
struct Folder {
    std::string name;
    std::optional<std::string> containerClass;  ///< nothing when the folder has no such property; "" is a class too
    FolderType type = FolderType::Generic;
    EntryId id;
    Folder* parent = nullptr;
    std::vector<std::unique_ptr<Folder>> children;

    /// Takes the child in at the end and returns it.
    Folder& Add(std::unique_ptr<Folder> child) {
        child->parent = this;
        children.push_back(std::move(child));
        return *children.back();
    }
};

/// What a store may hold at most. Real mailboxes stay far below; a hostile file must not exhaust stack or memory.
inline constexpr int maxFolderDepth = 300;
inline constexpr size_t maxFolders = 1'000'000;

}  // namespace localstores
