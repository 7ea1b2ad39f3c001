// AccessibleEvents: what assistive programs are told of by themselves, a few events a frame.
#include "accessible/AccessibleEvents.h"

namespace foldertree {

using Kind = AccessibleEvent::Kind;

void AccessibleEvents::Note(const GridChanges& changes) noexcept {
    const bool moved = changes.firstMoved != GridChanges::noRow;
    noted_.Add(changes.noted);
    reorder_ = reorder_ || moved || changes.levels;
    cursor_ = cursor_ || moved || changes.cursor || changes.firstOutline != GridChanges::noRow;
}

std::vector<AccessibleEvent> AccessibleEvents::Take() {
    std::vector<AccessibleEvent> events;
    if (!Pending() || host_.Busy()) return events;
    if (reorder_ || noted_.More()) events.push_back({Kind::Reorder, AccessibleEvent::grid});
    AddCursor(events);
    if (!noted_.More()) AddRows(events);
    Drop();
    return events;
}

void AccessibleEvents::Drop() {
    toldNumber_ = tree_.CursorRow();
    noted_ = {};
    reorder_ = cursor_ = focus_ = false;
    toldRow_ = toldNumber_ != 0 ? grid_.HandleOf(toldNumber_) : RowHandle();
}

void AccessibleEvents::AddCursor(std::vector<AccessibleEvent>& events) const {
    const int32_t row = tree_.CursorRow();
    if (row == 0) return;
    const bool moved = grid_.HandleOf(row) != toldRow_;
    const bool elsewhere = reorder_ && row != toldNumber_;
    if (moved) events.push_back({Kind::Selection, tree_.IdOf(row)});
    if (view_.Focused() && (moved || elsewhere || focus_)) events.push_back({Kind::Focus, tree_.IdOf(row)});
}

// Of a row inside a closed node nobody needs to hear: it is read when the node is opened.
void AccessibleEvents::AddRows(std::vector<AccessibleEvent>& events) const {
    for (const NotedRows::Note& note : noted_) {
        const std::optional<int32_t> row = grid_.RowOf(note.row);
        if (!row || *row < grid_.FixedRowCount() || !tree_.PositionOf(*row)) continue;
        const int32_t child = tree_.IdOf(*row);
        if ((note.changes & (NotedRows::tick | NotedRows::node)) != 0) events.push_back({Kind::StateChange, child});
        if ((note.changes & NotedRows::number) != 0) events.push_back({Kind::DescriptionChange, child});
    }
}

}  // namespace foldertree
