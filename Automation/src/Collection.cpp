// Collection: the calls behind the view, and the walk by position for collections that offer no enumeration.
#include "automation/Collection.h"

#include <utility>

namespace automation {

namespace {

class PositionWalk : public Enumerator {
  public:
    PositionWalk(Collection collection, int32_t count) : collection_(std::move(collection)), count_(count) {}

    bool Next(Value& item) override {
        if (position_ >= count_) return false;
        item = collection_.Item(++position_);
        return true;
    }

  private:
    Collection collection_;
    int32_t count_;
    int32_t position_ = 0;
};

}  // namespace

int32_t Collection::Count() const {
    return Deref(object_).Get("Count").ToLong();
}

Value Collection::Item(int32_t position) const {
    return Deref(object_).Get("Item", position);
}

Value Collection::Item(std::string_view key) const {
    return Deref(object_).Get("Item", key);
}

void Collection::Add(const Value& item, std::string key, std::optional<int32_t> before) const {
    const Value keyArgument = key.empty() ? Value(Missing()) : Value(std::move(key));
    const Value beforeArgument = before ? Value(*before) : Value(Missing());
    // Always with all three: a class of a script host has no optional arguments and refuses a call that is short of
    // one.
    Deref(object_).Get("Add", item, keyArgument, beforeArgument);
}

void Collection::Remove(int32_t position) const {
    Deref(object_).Get("Remove", position);
}

std::unique_ptr<Enumerator> Collection::Walk() const {
    if (auto enumerator = Deref(object_).NewEnum()) return enumerator;
    return WalkByPosition(Count());
}

std::unique_ptr<Enumerator> Collection::WalkByPosition(int32_t count) const {
    return std::make_unique<PositionWalk>(*this, count);
}

}  // namespace automation
