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
    /// An item whose key was not asked for so far, or was not told.
    struct Unread {
        IndexSequence::Entry entry;
        SelItem item;
    };
    struct Failure {
        IndexSequence::Entry entry;
        automation::Error error;
    };
    using Failures = std::vector<Failure>;

    void ReadIndexes();
    /// Takes out the first item with that key, as SelectionSet::RemoveSelItemByKey does, without asking each item anew.
    void RemoveByKey(std::string_view key);
    /// Asks for the keys that are unread.
    Failures ReadKeys();
    /// The number in `keyed_` of the first item with that key.
    std::optional<uint32_t> FirstWithKey(std::string_view key) const;
    /// Throws when an item up to the position did not tell its key: the search ends there.
    void ThrowFirst(const Failures& failures, int32_t position) const;

    ControlContext& context_;
    SelectionSet& selection_;
    CollectionPass& pass_;
    IndexSequence indexes_;
    bool incompleteLeft_ = false;  ///< else no row's item can be in the collection yet, and need not be looked for
    std::vector<Unread> unread_;
    KeyedItems keyed_;
    std::vector<IndexSequence::Entry> entryOf_;  ///< by number in `keyed_`
};

}  // namespace foldertree
