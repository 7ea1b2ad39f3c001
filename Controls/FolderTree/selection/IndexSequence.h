// IndexSequence: the numbers of a collection's items in their order, to find the place of one among many.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

namespace foldertree {

/// Entries are named 0, 1, 2, … as they come; positions are 0-based. Kept in blocks, so that no operation on n entries
/// touches more than some n / 500 blocks and the entries of one.
class IndexSequence {
  public:
    using Entry = uint32_t;

    int32_t Count() const { return count_; }
    /// Puts an entry with that number at the position and returns its name.
    Entry Insert(int32_t position, int32_t index);
    Entry Append(int32_t index) { return Insert(count_, index); }
    void Remove(Entry entry);
    std::optional<int32_t> PositionOf(Entry entry) const;  ///< nothing for one that was removed
    /// The position of the first entry whose number is not less than that; Count() when there is none.
    int32_t FirstNotLess(double index) const;

  private:
    struct Block {
        std::vector<Entry> entries;
        int32_t highest = 0;
    };
    struct Named {
        int32_t index;
        Block* block;  ///< null when the entry is not in the sequence any more
    };

    void SplitIfLong(size_t block);
    void FindHighest(Block& block) const;

    std::vector<std::unique_ptr<Block>> blocks_;
    std::vector<Named> named_;  ///< by entry
    int32_t count_ = 0;
    int32_t bound_ = std::numeric_limits<int32_t>::min();  ///< no number is higher; most new ones are
};

}  // namespace foldertree
