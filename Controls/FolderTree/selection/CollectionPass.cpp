// CollectionPass: one run over the selection collection, which ends where the host assigns another one.
#include "selection/CollectionPass.h"

#include "selection/KeyedItems.h"

namespace foldertree {

using automation::Collection;
using automation::KeyedCollection;
using automation::Value;

namespace {

/// Whether they can be the same item, given that they have one key. A host may make a new object each time that it is
/// asked for one of its own.
bool MayBeSame(const SelItem& a, const SelItem& b) {
    return a.Ref() == b.Ref() || (a.Own() == nullptr && b.Own() == nullptr);
}

}  // namespace

void CollectionPass::Hold(const automation::ObjectRef& collection) {
    collection_ = collection;
    ours_ = dynamic_cast<KeyedCollection*>(collection.get());
}

CollectionPass::Walk::Walk(const CollectionPass& pass) : pass_(pass) {
    if (pass.ours_ == nullptr) walk_ = Collection(pass.collection_).Walk();
}

bool CollectionPass::Walk::NextOfOurs(SelItem& item) {
    const KeyedCollection& ours = *pass_.ours_;
    const bool more = position_ < ours.Count();
    // Counted first: what `item` held may end here, and its end may run the host's code.
    item = more ? SelItem(ours.ItemAt(++position_)) : SelItem();
    pass_.ThrowIfEnded();
    return more;
}

bool CollectionPass::Walk::Next(SelItem& item) {
    if (pass_.ours_ != nullptr) return NextOfOurs(item);
    Value value;
    const bool more = walk_ != nullptr && walk_->Next(value);
    item = more ? SelItem(std::move(value)) : SelItem();
    // The end of the enumerator is the host's code, too, and nobody asks after this walk's own end.
    if (!more) walk_ = nullptr;
    pass_.ThrowIfEnded();
    if (more) ++position_;
    return more;
}

void CollectionPass::Add(const SelItem& item, std::string key, std::optional<int32_t> before) {
    ThrowIfEnded();
    if (collection_ == nullptr) Hold(selection_.EnsureCollection());
    Collection(collection_).Add(item.Ref(), std::move(key), before);
    ThrowIfEnded();
}

void CollectionPass::TakeOut(Places places) {
    // From the back, so that the positions still to be removed stay what they are.
    while (!places.empty()) {
        if (!IsThere(places.back())) places = PlacesNow(places);
        ThrowIfEnded();
        if (places.empty()) return;
        RemoveAt(places.back().position);
        places.pop_back();
        ThrowIfEnded();
    }
}

SelItem CollectionPass::ItemAt(int32_t position) const {
    if (ours_ == nullptr) return SelItem(Collection(collection_).Item(position));
    return position <= ours_->Count() ? SelItem(ours_->ItemAt(position)) : SelItem();
}

void CollectionPass::RemoveAt(int32_t position) {
    if (ours_ == nullptr) return Collection(collection_).Remove(position);
    ours_->Remove(position);
}

bool CollectionPass::IsThere(const Place& place) const {
    bool there = false;
    // A position that is not there any more is an answer, not an error.
    auto error = Attempt([&] {
        const SelItem now = ItemAt(place.position);
        there = now && (now.Ref() == place.item.Ref() || (MayBeSame(now, place.item) && now.HasKey(place.item.Key())));
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
