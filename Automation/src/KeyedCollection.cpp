// KeyedCollection: entries in the order of a tree, and an index over the keys.
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
        Value next = collection_->Item(position_ + 1);
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
    byKey_.clear();
    for (OrderLink* link = order_.TakeAll(); link != nullptr;) {
        const std::unique_ptr<Entry> entry(static_cast<Entry*>(link));
        link = link->right;
    }
}

Value KeyedCollection::Item(const Value& index) const {
    return Find(index).item;
}

void KeyedCollection::Add(Value item, const Value& key, const Value& before, const Value& after) {
    if (!IsLeftOut(before) && !IsLeftOut(after)) throw VbError(errors::invalidCall);
    if (!IsLeftOut(key) && !key.IsText()) throw VbError(errors::typeMismatch);

    int32_t place = Count();
    if (!IsLeftOut(before))
        place = order_.PositionOf(Find(before));
    else if (!IsLeftOut(after))
        place = order_.PositionOf(Find(after)) + 1;

    auto entry = std::make_unique<Entry>();
    entry->item = std::move(item);
    if (const std::string* text = key.AsText()) entry->key = *text;
    const bool keyed = !entry->key.empty();
    if (keyed && !byKey_.insert(entry.get()).second) throw VbError(errors::duplicateKey);
    order_.Insert(place, *entry.release());  // nothing from here on can fail
}

void KeyedCollection::Remove(const Value& index) {
    Entry& entry = Find(index);
    if (!entry.key.empty()) byKey_.erase(byKey_.find(&entry));  // only the search can fail
    order_.Remove(entry);
    // The item may be the last reference to an object whose end calls back into this collection: it goes last.
    delete &entry;
}

KeyedCollection::Entry& KeyedCollection::FindKey(std::string_view key) const {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) throw VbError(errors::invalidCall);
    return **found;
}

KeyedCollection::Entry& KeyedCollection::Find(const Value& index) const {
    if (const std::string* key = index.AsText()) return FindKey(*key);
    if (IsLeftOut(index)) throw VbError(errors::typeMismatch);
    const int32_t position = index.ToLong();
    if (position < 1 || position > Count()) throw VbError(errors::subscript);
    return static_cast<Entry&>(*order_.At(position - 1));
}

}  // namespace automation
