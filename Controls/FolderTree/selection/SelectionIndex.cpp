// SelectionIndex: finds the items of a selection collection by key for the length of one bulk operation.
#include "selection/SelectionIndex.h"

#include "automation/Collection.h"
#include "automation/Text.h"

namespace foldertree {

using automation::Collection;
using automation::FoldCase;
using automation::Value;

SelectionIndex::SelectionIndex(SelectionSet& selection) : selection_(selection) {
    if (selection_.collection == nullptr) return;
    const auto walk = Collection(selection_.collection).Walk();
    Value value;
    while (walk->Next(value)) {
        SelItem item(value);
        std::string key = FoldCase(item.Key());
        File(std::move(key), std::move(item));
    }
}

void SelectionIndex::File(std::string foldedKey, SelItem item) {
    Items& items = items_[std::move(foldedKey)];
    if (items.first)
        items.others.push_back(std::move(item));
    else
        items.first = std::move(item);
}

SelItem SelectionIndex::Find(std::string_view key) const {
    const auto found = items_.find(FoldCase(key));
    return found == items_.end() ? SelItem() : found->second.first;
}

bool SelectionIndex::Remove(std::string_view key) {
    std::string folded = FoldCase(key);
    const auto found = items_.find(folded);
    if (found == items_.end()) return false;
    auto& [first, others] = found->second;
    if (others.empty()) {
        items_.erase(found);
    } else {
        first = std::move(others.front());
        others.erase(others.begin());
    }
    ++removed_[std::move(folded)];
    return true;
}

void SelectionIndex::Add(const SelItem& item) {
    const std::string key = item.Key();
    std::string folded = FoldCase(key);
    // The same key again after its removal: the old item must be gone before the new one can take its key.
    if (removed_.contains(folded)) Flush();
    Collection(selection_.EnsureCollection()).Add(item.Ref(), key);
    File(std::move(folded), item);
}

void SelectionIndex::Flush() {
    if (removed_.empty()) return;
    const Collection items(selection_.collection);
    std::vector<int32_t> positions;
    const auto walk = items.Walk();
    Value value;
    for (int32_t position = 1; walk->Next(value); ++position) {
        const auto removed = removed_.find(FoldCase(SelItem(value).Key()));
        if (removed == removed_.end() || removed->second == 0) continue;
        --removed->second;
        positions.push_back(position);
    }
    // From the back, so that the positions still to be removed stay what they are.
    for (auto position = positions.rbegin(); position != positions.rend(); ++position) items.Remove(*position);
    removed_.clear();
}

}  // namespace foldertree
