// Store: looking folders up.
#include "localstores/Store.h"

#include "localstores/OpenFailure.h"

namespace localstores {
namespace {

std::string_view BytesOf(const EntryId& id) {
    return {reinterpret_cast<const char*>(id.data()), id.size()};
}

}  // namespace

Store::Store(StoreDescription description) : description_(std::move(description)) {
    Index(*description_.root);
}

void Store::Index(const Folder& folder) {
    if (!byId_.emplace(BytesOf(folder.id), &folder).second)
        throw DamagedStore(description_.path, "two folders share the identifier " + Hex(folder.id));
    for (const auto& child : folder.children) Index(*child);
}

const Folder* Store::Default(DefaultFolder which) const {
    const auto found = description_.defaultFolders.find(which);
    return found == description_.defaultFolders.end() ? nullptr : found->second;
}

const Folder* Store::Find(const EntryId& id) const {
    const auto found = byId_.find(BytesOf(LongForm(id)));
    return found == byId_.end() ? nullptr : found->second;
}

}  // namespace localstores
