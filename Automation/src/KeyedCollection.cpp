// KeyedCollection: positions in a deque, so that removing from the front is cheap, and an index over the keys.
#include "automation/KeyedCollection.h"

#include <algorithm>

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
        item = collection_->Item(++position_);
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

const Value& KeyedCollection::Item(const Value& index) const {
    if (const std::string* key = index.AsText()) return FindKey(*key).item;
    return entries_[Position(index)]->item;
}

void KeyedCollection::Add(Value item, const Value& key, const Value& before, const Value& after) {
    if (!IsLeftOut(before) && !IsLeftOut(after)) throw VbError(errors::invalidCall);
    if (!IsLeftOut(key) && !key.IsText()) throw VbError(errors::typeMismatch);

    size_t place = entries_.size();
    if (!IsLeftOut(before))
        place = Position(before);
    else if (!IsLeftOut(after))
        place = Position(after) + 1;

    auto entry = std::make_unique<Entry>();
    entry->item = std::move(item);
    if (const std::string* text = key.AsText()) entry->key = *text;
    const bool keyed = !entry->key.empty();
    if (keyed && !byKey_.emplace(entry->key, entry.get()).second) throw VbError(errors::duplicateKey);
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(place), std::move(entry));
}

void KeyedCollection::Remove(const Value& index) {
    const auto entry = entries_.begin() + static_cast<std::ptrdiff_t>(Position(index));
    // The item may be the last reference to an object whose end calls back into this collection: take it out first.
    const std::unique_ptr<Entry> removed = std::move(*entry);
    entries_.erase(entry);
    if (!removed->key.empty()) byKey_.erase(removed->key);
}

const KeyedCollection::Entry& KeyedCollection::FindKey(std::string_view key) const {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) throw VbError(errors::invalidCall);
    return *found->second;
}

size_t KeyedCollection::Position(const Value& index) const {
    if (const std::string* key = index.AsText()) {
        const Entry* wanted = &FindKey(*key);
        const auto found = std::find_if(entries_.begin(), entries_.end(),
                                        [wanted](const auto& entry) { return entry.get() == wanted; });
        return static_cast<size_t>(found - entries_.begin());
    }
    if (IsLeftOut(index)) throw VbError(errors::typeMismatch);
    const int32_t position = index.ToLong();
    if (position < 1 || position > Count()) throw VbError(errors::subscript);
    return static_cast<size_t>(position) - 1;
}

}  // namespace automation
