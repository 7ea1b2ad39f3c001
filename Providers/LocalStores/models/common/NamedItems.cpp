// NamedItems: finding an item, the cursor and the walk.
#include "models/common/NamedItems.h"

#include <algorithm>

#include "automation/Text.h"
#include "models/common/CallArguments.h"
#include "models/common/MapiErrors.h"

namespace localstores {

using automation::ObjectRef;
using automation::Value;

namespace {

class ItemEnumerator : public automation::Enumerator {
  public:
    ItemEnumerator(ObjectRef owner, const NamedItems& items) : owner_(std::move(owner)), items_(items) {}

    bool Next(Value& item) override {
        if (position_ >= items_.Size()) return false;
        item = items_.ItemAt(position_++);
        return true;
    }

  private:
    ObjectRef owner_;
    const NamedItems& items_;
    size_t position_ = 0;
};

}  // namespace

Value NamedItems::Item(const automation::Arguments& arguments) {
    const Value& index = Required(arguments, 0);
    if (const auto position = Find(index)) return ItemAt(*position);
    throw index.IsText() ? NotFound() : InvalidIndex();
}

std::optional<size_t> NamedItems::Find(const Value& index) const {
    const size_t size = Size();
    if (const std::string* name = index.AsText()) {
        for (size_t position = 0; position < size; ++position)
            if (automation::EqualNoCase(NameAt(position), *name)) return position;
        return std::nullopt;
    }
    const int32_t position = index.ToLong();
    if (position < 1 || static_cast<size_t>(position) > size) return std::nullopt;
    return static_cast<size_t>(position) - 1;
}

std::unique_ptr<automation::Enumerator> NamedItems::Walk(ObjectRef self) const {
    return std::make_unique<ItemEnumerator>(std::move(self), *this);
}

Value NamedItems::MoveTo(int64_t position) {
    const auto size = static_cast<int64_t>(Size());
    cursor_ = std::clamp<int64_t>(position, 0, size + 1);
    if (cursor_ < 1 || cursor_ > size) return nullptr;
    return ItemAt(static_cast<size_t>(cursor_) - 1);
}

}  // namespace localstores
