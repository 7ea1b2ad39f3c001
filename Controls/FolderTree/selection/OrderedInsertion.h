// OrderedInsertion: rebuilds a selection collection in the order of the rows' numbers.
#pragma once

#include <cstdint>
#include <vector>

#include "selection/SelectionSet.h"

namespace foldertree {

/// Lives for one pass over the grid without a yield. It remembers the largest Index up to each position of the
/// collection, so that "before the first item whose Index is not less than n" is a binary search instead of a walk over
/// the collection.
class OrderedInsertion {
  public:
    explicit OrderedInsertion(SelectionSet& selection) : selection_(selection) {}

    /// Takes every item out that is not Incomplete; those that the tree never matched stay.
    void RemoveCompleteItems();
    /// Puts the row's item (found by the row's key, else made from the row) in its place by the row's number.
    void InsertRow(int32_t row, const TreeGrid& grid);

  private:
    void ReadIndexes();

    SelectionSet& selection_;
    std::vector<int32_t> highestUpTo_;
    bool incompleteLeft_ = false;  ///< else no row's item can be in the collection yet, and need not be looked for
};

}  // namespace foldertree
