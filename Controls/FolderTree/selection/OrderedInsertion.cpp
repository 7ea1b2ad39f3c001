// OrderedInsertion: rebuilds a selection collection in the order of the rows' numbers.
#include "selection/OrderedInsertion.h"

#include <cmath>
#include <limits>

namespace foldertree {

void OrderedInsertion::RemoveCompleteItems() {
    if (!pass_.HasCollection()) return;
    CollectionPass::Places complete;
    CollectionPass::Walk walk(pass_);
    SelItem item;
    while (walk.Next(item))
        if (!item.Incomplete()) complete.push_back({walk.Position(), item});
    pass_.TakeOut(std::move(complete));
    ReadIndexes();
}

void OrderedInsertion::ReadIndexes() {
    CollectionPass::Walk walk(pass_);
    SelItem item;
    while (walk.Next(item)) {
        indexes_.Append(item.Index());
        items_.push_back(item);
    }
    incompleteLeft_ = !items_.empty();
}

void OrderedInsertion::InsertRow(int32_t row, const TreeGrid& grid) {
    const double number = grid.CellValue(row, colIndex);
    const std::string key = grid.CellText(row, colKey);
    // An item made from a row with a number beyond all items has no key, and would not show that the row's is taken.
    const bool lookFirst = incompleteLeft_ || std::abs(number) > std::numeric_limits<int32_t>::max();
    SelItem item = lookFirst ? selection_.GetSelItemByKey(key) : SelItem();
    const bool incomplete = item && item.Incomplete();
    if (!item) item = SelItem(selection_.CreateSelItemFromRow(row));
    const int32_t index = item.Index();
    // An item that stayed is moved. One that another row put here keeps the key, and adding it again fails.
    if (incomplete) RemoveByKey(key);

    const int32_t place = indexes_.FirstNotLess(number);
    pass_.Add(item, item.Key(), place < indexes_.Count() ? std::optional(place + 1) : std::nullopt);
    const IndexSequence::Entry entry = indexes_.Insert(place, index);
    if (!incompleteLeft_) return;
    items_.resize(entry);  // one shorter only when memory ran out for the entry before
    items_.push_back(item);
}

void OrderedInsertion::RemoveByKey(std::string_view key) {
    Guarded(context_, errorLines::removeSelItemByKey, [&] {
        ReadKeys();
        const std::optional<IndexSequence::Entry> entry = FirstWithKey(key);
        const int32_t position = entry ? *indexes_.PositionOf(*entry) : indexes_.Count();
        ThrowIfUnreadableBefore(position);
        if (!entry) return;
        pass_.TakeOut({{position + 1, items_[*entry]}});
        indexes_.Remove(*entry);
    });
}

void OrderedInsertion::ReadKeys() {
    while (keyed_.Count() < items_.size()) {
        const SelItem& item = items_[keyed_.Count()];
        std::string key;
        if (auto error = Attempt([&] { key = item ? item.Key() : std::string(); }))
            failed_.push_back({keyed_.Count(), std::move(*error)});
        pass_.ThrowIfEnded();
        keyed_.Add(item, std::move(key));
    }
}

std::optional<IndexSequence::Entry> OrderedInsertion::FirstWithKey(std::string_view key) const {
    std::optional<IndexSequence::Entry> first;
    std::optional<int32_t> firstPosition;
    keyed_.Any(key, [&](uint32_t entry) {
        const std::optional<int32_t> position = indexes_.PositionOf(entry);
        if (position && (!firstPosition || *position < *firstPosition)) {
            first = entry;
            firstPosition = position;
        }
        return false;
    });
    return first;
}

void OrderedInsertion::ThrowIfUnreadableBefore(int32_t position) const {
    const Unreadable* first = nullptr;
    for (const Unreadable& each : failed_) {
        const std::optional<int32_t> place = indexes_.PositionOf(each.entry);
        if (!place || *place > position) continue;
        first = &each;
        position = *place;
    }
    if (first != nullptr) throw automation::Error(first->error);
}

}  // namespace foldertree
