// IndexSequence: the numbers of a collection's items in their order, to find the place of one among many.
#include "selection/IndexSequence.h"

#include <algorithm>
#include <utility>

namespace foldertree {

namespace {

constexpr size_t longestBlock = 1024;

}  // namespace

IndexSequence::Entry IndexSequence::Insert(int32_t position, int32_t index) {
    if (blocks_.empty()) blocks_.push_back(std::make_unique<Block>());
    size_t at = 0;
    auto inside = static_cast<size_t>(position);
    if (position == count_) {
        at = blocks_.size() - 1;
        inside = blocks_[at]->entries.size();
    } else {
        for (; inside >= blocks_[at]->entries.size(); ++at) inside -= blocks_[at]->entries.size();
    }
    Block& block = *blocks_[at];
    const auto entry = static_cast<Entry>(named_.size());
    // In this order an entry for which memory runs out is one that was removed.
    named_.push_back({index, nullptr});
    block.entries.insert(block.entries.begin() + static_cast<std::ptrdiff_t>(inside), entry);
    named_[entry].block = &block;
    block.highest = block.entries.size() == 1 ? index : std::max(block.highest, index);
    bound_ = std::max(bound_, index);
    ++count_;
    SplitIfLong(at);
    return entry;
}

void IndexSequence::SplitIfLong(size_t block) {
    if (blocks_[block]->entries.size() < longestBlock) return;
    blocks_.reserve(blocks_.size() + 1);
    std::vector<Entry>& first = blocks_[block]->entries;
    const auto half = first.begin() + static_cast<std::ptrdiff_t>(first.size() / 2);
    auto second = std::make_unique<Block>();
    second->entries.assign(half, first.end());
    first.erase(half, first.end());
    for (const Entry entry : second->entries) named_[entry].block = second.get();
    FindHighest(*blocks_[block]);
    FindHighest(*second);
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(block) + 1, std::move(second));
}

void IndexSequence::FindHighest(Block& block) const {
    block.highest = named_[block.entries.front()].index;
    for (const Entry entry : block.entries) block.highest = std::max(block.highest, named_[entry].index);
}

void IndexSequence::Remove(Entry entry) {
    Block* const block = std::exchange(named_[entry].block, nullptr);
    if (block == nullptr) return;
    --count_;
    std::erase(block->entries, entry);
    if (!block->entries.empty()) return FindHighest(*block);
    std::erase_if(blocks_, [block](const auto& each) { return each.get() == block; });
}

std::optional<int32_t> IndexSequence::PositionOf(Entry entry) const {
    const Block* const block = named_[entry].block;
    if (block == nullptr) return std::nullopt;
    size_t before = 0;
    for (auto each = blocks_.begin(); each->get() != block; ++each) before += (*each)->entries.size();
    const auto inside = std::find(block->entries.begin(), block->entries.end(), entry);
    return static_cast<int32_t>(before + static_cast<size_t>(inside - block->entries.begin()));
}

int32_t IndexSequence::FirstNotLess(double index) const {
    if (index > bound_) return count_;
    size_t before = 0;
    for (const auto& block : blocks_) {
        if (block->highest >= index) {
            const auto found = std::find_if(block->entries.begin(), block->entries.end(),
                                            [&](Entry entry) { return named_[entry].index >= index; });
            return static_cast<int32_t>(before + static_cast<size_t>(found - block->entries.begin()));
        }
        before += block->entries.size();
    }
    return count_;
}

}  // namespace foldertree
