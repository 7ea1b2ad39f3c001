// StoreChecks: the tree of folders, its identifiers and names.
#include "StoreChecks.h"

#include <utility>
#include <vector>

#include "FuzzInput.h"
#include "automation/Text.h"

namespace fuzz {

using namespace localstores;

size_t CheckStore(const Store& store) {
    size_t count = 0;
    std::vector<std::pair<const Folder*, int>> waiting{{&store.Root(), 0}};
    while (!waiting.empty()) {
        const auto [folder, depth] = waiting.back();
        waiting.pop_back();
        ++count;
        Must(store.Find(folder->id) == folder, "a folder is found by its long identifier");
        Must(store.Find(ShortForm(folder->id)) == folder, "a folder is found by its short identifier");
        Must(depth <= maxFolderDepth, "a tree is no deeper than it may be");
        Must(automation::FromUtf16(automation::ToUtf16(folder->name)) == folder->name, "a name is sound UTF-8");
        for (const auto& child : folder->children) {
            Must(child->parent == folder, "a child knows its parent");
            waiting.emplace_back(child.get(), depth + 1);
        }
    }
    return count;
}

}  // namespace fuzz
