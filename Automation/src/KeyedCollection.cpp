// KeyedCollection: entries by id, their order, and an index over the keys.
#include "automation/KeyedCollection.h"

#include <utility>

namespace automation {

namespace {

bool IsLeftOut(const Value& value) {
    return value.IsMissing() || value.IsEmpty();
}

class CollectionWalk : public Enumerator {
  public:
    explicit CollectionWalk(std::shared_ptr<KeyedCollection> collection) : collection_(std::move(collection)) {}

    bool Next(Value& item) override {
        if (position_ >= collection_->Count()) return false;
        Value next = collection_->ItemAt(position_ + 1);
        ++position_;
        item = std::move(next);  // what it held may end, and its end may do anything to the collection and this walk
        return true;
    }

  private:
    std::shared_ptr<KeyedCollection> collection_;
    int32_t position_ = 0;
};

}  // namespace

std::span<const MemberEntry<KeyedCollection>> KeyedCollection::Members() {
    using Self = KeyedCollection;
    static constexpr MemberEntry<Self> members[] = {
        {"Item", [](Self& self, const Arguments& a) -> Value { return self.Item(a[0]); }, nullptr, 1, "Index"},
        {"Add",
         [](Self& self, const Arguments& a) -> Value {
             if (!a.Has(0)) throw Error(errors::badParamCount, "Invalid number of parameters.");
             self.Add(a[0], a[1], a[2], a[3]);
             return {};
         },
         nullptr, 4, "Item Key Before After"},
        {"Count", [](Self& self, const Arguments&) -> Value { return self.Count(); }},
        {"Remove",
         [](Self& self, const Arguments& a) -> Value {
             self.Remove(a[0]);
             return {};
         },
         nullptr, 1, "Index"},
    };
    return members;
}

std::unique_ptr<Enumerator> KeyedCollection::NewEnum() {
    return std::make_unique<CollectionWalk>(std::static_pointer_cast<KeyedCollection>(shared_from_this()));
}

KeyedCollection::~KeyedCollection() {
    // In their order, as a host's own collection lets them go.
    for (int32_t place = 0; place < Count(); ++place) entries_[order_.At(place)].item = Value();
}

const Value& KeyedCollection::ItemAt(int32_t position) const {
    return entries_[order_.At(position - 1)].item;
}

Value KeyedCollection::Item(const Value& index) const {
    return entries_[Find(index)].item;
}

void KeyedCollection::Add(Value item, const Value& key, const Value& before, const Value& after) {
    if (!IsLeftOut(before) && !IsLeftOut(after)) throw VbError(errors::invalidCall);
    if (!IsLeftOut(key) && !key.IsText()) throw VbError(errors::typeMismatch);

    int32_t place = Count();
    if (!IsLeftOut(before))
        place = order_.PositionOf(Find(before));
    else if (!IsLeftOut(after))
        place = order_.PositionOf(Find(after)) + 1;

    std::string text = key.IsText() ? *key.AsText() : std::string();
    const bool keyed = !text.empty();
    const uint32_t hash = HashOf(text);
    if (keyed) {
        if (FindKey(hash, text)) throw VbError(errors::duplicateKey);
        byKey_.Reserve();
    }
    const Id id = NextEntry();
    order_.Insert(place, id);
    // Nothing from here on can fail.
    Entry& entry = entries_[id];
    firstFree_ = entry.keyHash;
    entry = {std::move(item), std::move(text), hash};
    if (keyed) byKey_.Add(hash, id);
}

/// The entry that the next item will have; it stays the first free one until then.
KeyedCollection::Id KeyedCollection::NextEntry() {
    if (firstFree_ == noEntry) {
        const auto id = static_cast<Id>(entries_.size());
        entries_.emplace_back().keyHash = noEntry;
        firstFree_ = id;
    }
    return firstFree_;
}

void KeyedCollection::Remove(const Value& index) {
    const Id id = Find(index);
    order_.Remove(order_.PositionOf(id));
    Entry& entry = entries_[id];
    if (!entry.key.empty()) byKey_.Remove(byKey_.Find(entry.keyHash, [id](Id each) { return each == id; }));
    // The item may be the last reference to an object whose end calls back into this collection: it goes last.
    const Entry removed = std::exchange(entry, Entry{{}, {}, firstFree_});
    firstFree_ = id;
}

std::optional<KeyedCollection::Id> KeyedCollection::FindKey(uint32_t hash, std::string_view key) const {
    const Id* const found = byKey_.Find(hash, [&](Id id) { return EqualNoCase(entries_[id].key, key); });
    return found == nullptr ? std::nullopt : std::optional(*found);
}

KeyedCollection::Id KeyedCollection::Find(const Value& index) const {
    if (const std::string* key = index.AsText()) {
        const std::optional<Id> found = FindKey(HashOf(*key), *key);
        if (!found) throw VbError(errors::invalidCall);
        return *found;
    }
    if (IsLeftOut(index)) throw VbError(errors::typeMismatch);
    const int32_t position = index.ToLong();
    if (position < 1 || position > Count()) throw VbError(errors::subscript);
    return order_.At(position - 1);
}

}  // namespace automation
