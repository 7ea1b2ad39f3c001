// SelectionIndex: finds the items of a selection collection by key for the length of one bulk operation.
#include "selection/SelectionIndex.h"

namespace foldertree {

SelectionIndex::SelectionIndex(CollectionPass& pass) : pass_(pass) {
    if (!pass.HasCollection()) return;
    CollectionPass::Walk walk(pass);
    SelItem item;
    while (walk.Next(item)) Enter(item, item.Key());
}

void SelectionIndex::Enter(const SelItem& item, std::string key) {
    states_.push_back(State::InCollection);
    items_.Add(item, std::move(key));
}

std::optional<uint32_t> SelectionIndex::Entered(std::string_view key) const {
    std::optional<uint32_t> entered;
    items_.Any(key, [&](uint32_t number) {
        if (states_[number] == State::InCollection) entered = number;
        return entered.has_value();
    });
    return entered;
}

bool SelectionIndex::IsLeaving(std::string_view key) const {
    return items_.Any(key, [&](uint32_t number) { return states_[number] == State::Leaving; });
}

SelItem SelectionIndex::Find(std::string_view key) const {
    const std::optional<uint32_t> number = Entered(key);
    return number ? items_.At(*number) : SelItem();
}

bool SelectionIndex::Remove(std::string_view key) {
    const std::optional<uint32_t> number = Entered(key);
    if (number) states_[*number] = State::Leaving;
    return number.has_value();
}

void SelectionIndex::Add(const SelItem& item) {
    std::string key = item.Key();
    // The same key again after its removal: the old item must be gone before the new one can take its key.
    if (IsLeaving(key)) Flush();
    pass_.Add(item, key);
    Enter(item, std::move(key));
}

void SelectionIndex::FollowKeys() {
    items_.FollowKeys();
}

void SelectionIndex::Flush() {
    CollectionPass::Places places;
    int32_t position = 0;
    for (uint32_t number = 0; number < items_.Count(); ++number) {
        if (states_[number] != State::Gone) ++position;
        if (states_[number] != State::Leaving) continue;
        places.push_back({position, items_.At(number)});
        states_[number] = State::Gone;
    }
    pass_.TakeOut(std::move(places));
}

}  // namespace foldertree
