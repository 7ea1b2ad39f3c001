// NotedRows: the rows of which something changed that people are told of row by row.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "rows/RowHandle.h"

namespace foldertree {

/// A few rows, each once, in the order in which they first changed; beyond `most` it is known only that there were
/// more, since nobody listens to as many one by one. Needs no memory.
class NotedRows {
  public:
    static constexpr size_t most = 32;
    enum Change : uint8_t { tick = 1, number = 2, node = 4 };  ///< node: it was opened or closed
    struct Note {
        RowHandle row;
        uint8_t changes = 0;  ///< Change values
    };

    void Add(RowHandle row, uint8_t changes) noexcept {
        if (more_) return;
        const auto end = notes_.begin() + static_cast<std::ptrdiff_t>(count_);
        const auto found = std::find_if(notes_.begin(), end, [row](const Note& note) { return note.row == row; });
        if (found != end)
            found->changes = static_cast<uint8_t>(found->changes | changes);
        else if (count_ < most)
            notes_[count_++] = {row, changes};
        else
            more_ = true;
    }
    void Add(const NotedRows& others) noexcept {
        for (const Note& note : others) Add(note.row, note.changes);
        more_ = more_ || others.more_;
    }

    const Note* begin() const { return notes_.data(); }
    const Note* end() const { return notes_.data() + count_; }
    bool Empty() const { return count_ == 0; }
    /// There were more rows than are kept.
    bool More() const { return more_; }

  private:
    std::array<Note, most> notes_;
    size_t count_ = 0;
    bool more_ = false;
};

}  // namespace foldertree
