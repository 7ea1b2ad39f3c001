// OrderedInsertion: rebuilds a selection collection in the order of the rows' numbers.
#include "selection/OrderedInsertion.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "automation/Collection.h"

namespace foldertree {

using automation::Collection;
using automation::Value;

void OrderedInsertion::RemoveCompleteItems() {
    if (selection_.collection == nullptr) return;
    const Collection items(selection_.collection);
    std::vector<int32_t> complete;
    const auto walk = items.Walk();
    Value value;
    for (int32_t position = 1; walk->Next(value); ++position)
        if (!SelItem(value).Incomplete()) complete.push_back(position);
    // From the back, so that the positions still to be removed stay what they are.
    for (auto position = complete.rbegin(); position != complete.rend(); ++position) items.Remove(*position);
    ReadIndexes();
    incompleteLeft_ = !highestUpTo_.empty();
}

void OrderedInsertion::ReadIndexes() {
    highestUpTo_.clear();
    const auto walk = Collection(selection_.collection).Walk();
    Value value;
    while (walk->Next(value)) {
        const int32_t index = SelItem(value).Index();
        highestUpTo_.push_back(highestUpTo_.empty() ? index : std::max(index, highestUpTo_.back()));
    }
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
    if (incomplete && selection_.RemoveSelItemByKey(key)) ReadIndexes();

    const auto place = std::lower_bound(highestUpTo_.begin(), highestUpTo_.end(), number,
                                        [](int32_t highest, double wanted) { return highest < wanted; });
    std::optional<int32_t> before;
    if (place != highestUpTo_.end()) before = static_cast<int32_t>(place - highestUpTo_.begin()) + 1;
    Collection(selection_.EnsureCollection()).Add(item.Ref(), item.Key(), before);

    const int32_t highest = place == highestUpTo_.begin() ? index : std::max(index, *(place - 1));
    auto after = highestUpTo_.insert(place, highest);
    while (++after != highestUpTo_.end() && *after < highest) *after = highest;
}

}  // namespace foldertree
