// OrderedInsertion: rebuilds a selection collection in the order of the rows' numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "selection/CollectionPass.h"
#include "selection/IndexSequence.h"
#include "selection/KeyedItems.h"

namespace foldertree {

/// Lives for one pass over the grid. It knows the numbers of the collection's items in their order, so that "before the
/// first item whose Index is not less than n" needs no walk over the collection, and the keys of items that may have to
/// be moved.
class OrderedInsertion {
  public:
    OrderedInsertion(ControlContext& context, SelectionSet& selection, CollectionPass& pass)
        : context_(context), selection_(selection), pass_(pass) {}

    /// Takes every item out that is not Incomplete; those that the tree never matched stay.
    void RemoveCompleteItems();
    /// Puts the row's item (found by the row's key, else made from the row) in its place by the row's number.
    void InsertRow(int32_t row, const TreeGrid& grid);

  private:
    struct Unreadable {
        IndexSequence::Entry entry;
        automation::Error error;
    };

    void ReadIndexes();
    /// Takes out the first item with that key, as SelectionSet::RemoveSelItemByKey does, without asking each item anew.
    void RemoveByKey(std::string_view key);
    void ReadKeys();
    std::optional<IndexSequence::Entry> FirstWithKey(std::string_view key) const;
    /// Throws when an item up to the position does not tell its key: the search ends there.
    void ThrowIfUnreadableBefore(int32_t position) const;

    ControlContext& context_;
    SelectionSet& selection_;
    CollectionPass& pass_;
    IndexSequence indexes_;
    bool incompleteLeft_ = false;     ///< else no row's item can be in the collection yet, and need not be looked for
    std::vector<SelItem> items_;      ///< by entry of `indexes_`, while incomplete items are left
    KeyedItems keyed_;                ///< the first of `items_`, those whose keys were needed so far
    std::vector<Unreadable> failed_;  ///< those of them that did not tell their keys
};

}  // namespace foldertree
