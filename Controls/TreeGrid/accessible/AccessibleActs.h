// AccessibleActs: what assistive programs do to a row, by the ways that users have.
#pragma once

#include <cstdint>

#include "accessible/AccessibleTree.h"
#include "interaction/GridInteraction.h"

namespace foldertree {

enum class ActResult {
    Done,
    NoRow,     ///< the row has gone
    NoAction,  ///< the row has nothing to do
    Busy,      ///< a load or an expansion runs
    Refused,   ///< a user could not do it either, or was refused
};

/// Each act ends what is being typed, as a click does, and raises the notifications of the same gesture; the grid, its
/// rows and what shows them may be others afterwards, or gone. All that is given outlives this.
class AccessibleActs {
  public:
    AccessibleActs(TreeGrid& grid, AccessibleTree& tree, GridInteraction& interaction, GridView& view,
                   const AccessibleHost& host)
        : grid_(grid), tree_(tree), interaction_(interaction), view_(view), host_(host) {}

    /// The row's default action.
    ActResult DoAction(int32_t id);
    /// The cursor goes to the row, which comes into view.
    ActResult Select(int32_t id);

  private:
    int32_t RowToActOn(int32_t id, ActResult& result);
    bool Tick(int32_t row);
    bool Turn(int32_t row, bool open);

    TreeGrid& grid_;
    AccessibleTree& tree_;
    GridInteraction& interaction_;
    GridView& view_;
    const AccessibleHost& host_;
};

}  // namespace foldertree
