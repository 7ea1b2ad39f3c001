// CollectionPass: one run over the selection collection, which ends where the host assigns another one.
#include "selection/CollectionPass.h"

#include "automation/Text.h"
#include "selection/KeyedItems.h"

namespace foldertree {

using automation::Collection;
using automation::Value;

namespace {

/// Whether they can be the same item, given that they have one key. A host may make a new object each time that it is
/// asked for one of its own.
bool MayBeSame(const SelItem& a, const SelItem& b) {
    return a.Ref() == b.Ref() || (a.Own() == nullptr && b.Own() == nullptr);
}

}  // namespace

bool CollectionPass::Walk::Next(SelItem& item) {
    Value value;
    const bool more = walk_->Next(value);
    item = more ? SelItem(value) : SelItem();
    pass_.ThrowIfEnded();
    if (more) ++position_;
    return more;
}

void CollectionPass::Add(const SelItem& item, std::string key, std::optional<int32_t> before) {
    ThrowIfEnded();
    collection_ = selection_.EnsureCollection();
    Collection(collection_).Add(item.Ref(), std::move(key), before);
    ThrowIfEnded();
}

void CollectionPass::TakeOut(Places places) {
    // From the back, so that the positions still to be removed stay what they are.
    while (!places.empty()) {
        if (!IsThere(places.back())) places = PlacesNow(places);
        ThrowIfEnded();
        if (places.empty()) return;
        Collection(collection_).Remove(places.back().position);
        places.pop_back();
        ThrowIfEnded();
    }
}

bool CollectionPass::IsThere(const Place& place) const {
    bool there = false;
    // A position that is not there any more is an answer, not an error.
    auto error = Attempt([&] {
        const SelItem now(Collection(collection_).Item(place.position));
        there = now.Ref() == place.item.Ref() ||
                (MayBeSame(now, place.item) && automation::EqualNoCase(now.Key(), place.item.Key()));
    });
    ThrowIfOutOfMemory(error);
    return there;
}

CollectionPass::Places CollectionPass::PlacesNow(const Places& places) const {
    KeyedItems wanted;
    for (const Place& place : places) wanted.Add(place.item, place.item.Key());
    std::vector<bool> found(places.size());
    Places now;
    Walk walk(*this);
    SelItem item;
    while (walk.Next(item)) {
        const bool isWanted = wanted.Any(item.Key(), [&](uint32_t number) {
            if (found[number] || !MayBeSame(item, wanted.At(number))) return false;
            found[number] = true;
            return true;
        });
        if (isWanted) now.push_back({walk.Position(), item});
    }
    return now;
}

}  // namespace foldertree
