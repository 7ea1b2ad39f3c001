// SiblingSets: the rows that lie side by side below one row of the outline.
#include "accessible/SiblingSets.h"

#include <algorithm>
#include <limits>

namespace foldertree {

void SiblingSets::Invalidate(int32_t row) noexcept {
    const auto whole = static_cast<size_t>(std::max(row, 0) / blockRows);
    if (whole < blocks_.size()) blocks_.resize(whole);
}

/// The block that begins at the row; null when none does, or when its rows are not all there.
const SiblingSets::Block* SiblingSets::BlockAt(int32_t row) {
    if (row % blockRows != 0 || row + blockRows > grid_.RowCount()) return nullptr;
    const auto wanted = static_cast<size_t>(row / blockRows);
    while (blocks_.size() <= wanted) {
        const int32_t first = static_cast<int32_t>(blocks_.size()) * blockRows;
        Block block{std::numeric_limits<int16_t>::max(), 0};
        for (int32_t each = std::max(first, grid_.FixedRowCount()); each < first + blockRows; ++each) {
            const int16_t level = grid_.RowOutlineLevel(each);
            if (level < block.least) block = {level, 0};
            if (level == block.least) ++block.rows;
        }
        blocks_.push_back(block);
    }
    return &blocks_[wanted];
}

int32_t SiblingSets::Parent(int32_t row) {
    const int16_t level = grid_.RowOutlineLevel(row);
    int32_t above = row - 1;
    while (above >= grid_.FixedRowCount()) {
        const int32_t first = above + 1 - blockRows;
        const Block* const block = first >= 0 ? BlockAt(first) : nullptr;
        if (block != nullptr && block->least >= level) {
            above = first - 1;
            continue;
        }
        if (grid_.RowOutlineLevel(above) < level) return above;
        --above;
    }
    return 0;
}

// Below the parent a row belongs to the set when no row between the two lies less deep than it.
int32_t SiblingSets::CountSet(int32_t parent, int32_t end) {
    int32_t count = 0;
    int16_t least = std::numeric_limits<int16_t>::max();
    int32_t row = std::max(parent + 1, grid_.FixedRowCount());
    while (row < end) {
        const Block* const block = row + blockRows <= end ? BlockAt(row) : nullptr;
        if (block != nullptr && block->least >= least) {
            if (block->least == least) count += block->rows;
            row += blockRows;
            continue;
        }
        const int16_t level = grid_.RowOutlineLevel(row);
        if (level <= least) {
            least = level;
            ++count;
        }
        ++row;
    }
    return count;
}

/// The row behind the last one that lies below the parent.
int32_t SiblingSets::EndBelow(int32_t row, int32_t parent) {
    if (parent == 0) return grid_.RowCount();
    const int16_t level = grid_.RowOutlineLevel(parent);
    while (row < grid_.RowCount()) {
        const Block* const block = BlockAt(row);
        if (block != nullptr && block->least > level) {
            row += blockRows;
            continue;
        }
        if (grid_.RowOutlineLevel(row) <= level) return row;
        ++row;
    }
    return row;
}

int32_t SiblingSets::PositionInSet(int32_t row) {
    return CountSet(Parent(row), row + 1);
}

int32_t SiblingSets::SizeOfSet(int32_t row) {
    const int32_t parent = Parent(row);
    return CountSet(parent, EndBelow(row + 1, parent));
}

}  // namespace foldertree
