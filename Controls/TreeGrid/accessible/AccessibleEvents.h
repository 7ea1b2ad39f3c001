// AccessibleEvents: what assistive programs are told of by themselves, a few events a frame.
#pragma once

#include <cstdint>
#include <vector>

#include "accessible/AccessibleTree.h"
#include "rows/GridChanges.h"

namespace foldertree {

struct AccessibleEvent {
    static constexpr int32_t grid = 0;  ///< as a child: the grid itself
    enum class Kind { Reorder, Selection, Focus, StateChange, DescriptionChange };

    Kind kind = Kind::Reorder;
    int32_t child = grid;
    bool operator==(const AccessibleEvent&) const = default;
};

/// Gathers what changed until somebody asks, which is once a frame. Gathering needs no memory and asks nothing of the
/// rows. While the host is busy nothing is told, and what came meanwhile is told afterwards.
class AccessibleEvents {
  public:
    /// All of them outlive this.
    AccessibleEvents(const TreeGrid& grid, AccessibleTree& tree, const AccessibleView& view, const AccessibleHost& host)
        : grid_(grid), tree_(tree), view_(view), host_(host) {}

    void Note(const GridChanges& changes) noexcept;
    /// The grid has the keyboard now.
    void FocusCame() noexcept { focus_ = true; }
    /// Whether there may be something to tell.
    bool Pending() const { return reorder_ || cursor_ || focus_ || !noted_.Empty(); }

    /// What there is to tell, in its order; from now on it counts as told. When memory runs out, nothing does.
    std::vector<AccessibleEvent> Take();
    /// Nobody can hear of what changed. When memory runs out, it is not dropped.
    void Drop();

  private:
    void AddCursor(std::vector<AccessibleEvent>& events) const;
    void AddRows(std::vector<AccessibleEvent>& events) const;

    const TreeGrid& grid_;
    AccessibleTree& tree_;
    const AccessibleView& view_;
    const AccessibleHost& host_;

    NotedRows noted_;
    bool reorder_ = false;  ///< rows came or went, or lie elsewhere in the outline
    bool cursor_ = false;   ///< the cursor may be seen elsewhere
    bool focus_ = false;
    RowHandle toldRow_;  ///< where the cursor was, and the number of its row, when it was last told
    int32_t toldNumber_ = 0;
};

}  // namespace foldertree
