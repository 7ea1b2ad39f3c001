// SelectionIndex: finds the items of a selection collection by key for the length of one bulk operation.
#include "selection/SelectionIndex.h"

#include <utility>

#include "automation/Collection.h"
#include "automation/TextHash.h"

namespace foldertree {

using automation::CaselessHash;
using automation::Collection;
using automation::Value;

bool SelectionIndex::Entry::HasKey(std::string_view key) const {
    return item.Own() != nullptr ? item.Own()->HasKey(key) : automation::EqualNoCase(strangersKey, key);
}

SelectionIndex::SelectionIndex(SelectionSet& selection) : selection_(selection) {
    if (selection_.collection == nullptr) return;
    const auto walk = Collection(selection_.collection).Walk();
    Value value;
    while (walk->Next(value)) {
        const SelItem item(value);
        std::string key = item.Key();
        const size_t hash = CaselessHash()(key);
        Enter(item, item.Own() != nullptr ? std::string() : std::move(key), hash);
    }
}

void SelectionIndex::Enter(const SelItem& item, std::string strangersKey, size_t hash) {
    places_.Add(hash);
    entries_.push_back({item, std::move(strangersKey)});
}

const SelectionIndex::Entry* SelectionIndex::Entered(std::string_view key) const {
    const Entry* entered = nullptr;
    places_.Any(CaselessHash()(key), [&](uint32_t place) {
        const Entry& entry = entries_[place];
        if (entry.state == Entry::inCollection && entry.HasKey(key)) entered = &entry;
        return entered != nullptr;
    });
    return entered;
}

bool SelectionIndex::IsLeaving(size_t hash) const {
    return places_.Any(hash, [&](uint32_t place) { return entries_[place].state == Entry::leaving; });
}

SelItem SelectionIndex::Find(std::string_view key) const {
    const Entry* entry = Entered(key);
    return entry != nullptr ? entry->item : SelItem();
}

bool SelectionIndex::Remove(std::string_view key) {
    const Entry* entry = Entered(key);
    if (entry == nullptr) return false;
    entries_[static_cast<size_t>(entry - entries_.data())].state = Entry::leaving;
    return true;
}

void SelectionIndex::Add(const SelItem& item) {
    std::string key = item.Key();
    const size_t hash = CaselessHash()(key);
    // The same key again after its removal: the old item must be gone before the new one can take its key.
    if (IsLeaving(hash)) Flush();
    std::string strangersKey = item.Own() != nullptr ? std::string() : key;
    Collection(selection_.EnsureCollection()).Add(item.Ref(), std::move(key));
    Enter(item, std::move(strangersKey), hash);
}

void SelectionIndex::FollowKeys() {
    HashPlaces places;
    for (const Entry& entry : entries_) {
        const clsFolderTreeItem* own = entry.item.Own();
        places.Add(CaselessHash()(own != nullptr ? own->Key() : entry.strangersKey));
    }
    places_ = std::move(places);
}

void SelectionIndex::Flush() {
    std::vector<int32_t> positions;
    int32_t position = 0;
    for (Entry& entry : entries_) {
        if (entry.state != Entry::gone) ++position;
        if (entry.state != Entry::leaving) continue;
        positions.push_back(position);
        entry.state = Entry::gone;
    }
    // From the back, so that the positions still to be removed stay what they are.
    for (auto each = positions.rbegin(); each != positions.rend(); ++each)
        Collection(selection_.collection).Remove(*each);
}

}  // namespace foldertree
