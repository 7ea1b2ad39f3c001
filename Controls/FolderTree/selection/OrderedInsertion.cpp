// OrderedInsertion: rebuilds a selection collection in the order of the rows' numbers.
#include "selection/OrderedInsertion.h"

#include <cmath>
#include <limits>
#include <utility>

#include "common/RowWalk.h"

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
    while (walk.Next(item)) unread_.push_back({indexes_.Append(item.Index()), item});
    incompleteLeft_ = !unread_.empty();
}

void OrderedInsertion::InsertRow(int32_t row, const TreeGrid& grid) {
    const RowHandle handle = grid.HandleOf(row);
    const double number = grid.CellValue(row, colIndex);
    // An item made from a row with a number beyond all items has no key, and would not show that the row's is taken.
    const bool lookFirst = incompleteLeft_ || std::abs(number) > std::numeric_limits<int32_t>::max();
    const std::string key = lookFirst ? grid.CellText(row, colKey) : std::string();
    SelItem item = lookFirst ? selection_.GetSelItemByKey(key) : SelItem();
    const bool incomplete = item && item.Incomplete();
    if (!item) item = SelItem(selection_.CreateSelItemFromRow(RequireRow(grid, handle, row)));
    const int32_t index = item.Index();
    // An item that stayed is moved. One that another row put here keeps the key, and adding it again fails.
    if (incomplete) RemoveByKey(key);

    const int32_t place = indexes_.FirstNotLess(number);
    pass_.Add(item, item.Key(), place < indexes_.Count() ? std::optional(place + 1) : std::nullopt);
    const IndexSequence::Entry entry = indexes_.Insert(place, index);
    if (incompleteLeft_) unread_.push_back({entry, item});
}

void OrderedInsertion::RemoveByKey(std::string_view key) {
    Guarded(context_, errorLines::removeSelItemByKey, [&] {
        const Failures failures = ReadKeys();
        const std::optional<uint32_t> number = FirstWithKey(key);
        const int32_t position = number ? *indexes_.PositionOf(entryOf_[*number]) : indexes_.Count();
        ThrowFirst(failures, position);
        if (!number) return;
        pass_.TakeOut({{position + 1, keyed_.At(*number)}});
        indexes_.Remove(entryOf_[*number]);
    });
}

OrderedInsertion::Failures OrderedInsertion::ReadKeys() {
    Failures failures;
    for (const Unread& unread : std::exchange(unread_, {})) {
        std::string key;
        auto error = Attempt([&] { key = unread.item.Key(); });
        pass_.ThrowIfEnded();
        if (error) {
            failures.push_back({unread.entry, std::move(*error)});
            unread_.push_back(unread);
        } else {
            keyed_.Add(unread.item, std::move(key));
            entryOf_.push_back(unread.entry);
        }
    }
    return failures;
}

std::optional<uint32_t> OrderedInsertion::FirstWithKey(std::string_view key) const {
    std::optional<uint32_t> first;
    std::optional<int32_t> firstPosition;
    keyed_.Any(key, [&](uint32_t number) {
        const std::optional<int32_t> position = indexes_.PositionOf(entryOf_[number]);
        if (position && (!firstPosition || *position < *firstPosition)) {
            first = number;
            firstPosition = position;
        }
        return false;
    });
    return first;
}

void OrderedInsertion::ThrowFirst(const Failures& failures, int32_t position) const {
    const Failure* first = nullptr;
    for (const Failure& each : failures) {
        const std::optional<int32_t> place = indexes_.PositionOf(each.entry);
        if (!place || *place > position) continue;
        first = &each;
        position = *place;
    }
    if (first != nullptr) throw automation::Error(first->error);
}

}  // namespace foldertree
