// RowSequence: chunks of row ids with lazily kept first numbers.
#include "rows/RowSequence.h"

#include <algorithm>
#include <cstring>

#include "rows/ReserveOne.h"

namespace foldertree {

bool RowSequence::Holds(size_t rank, int32_t number) const {
    return rank < numbered_ && number >= slots_[rank].first && number - slots_[rank].first < slots_[rank].size;
}

void RowSequence::NumberThrough(size_t rank) const {
    for (; numbered_ <= rank; ++numbered_)
        slots_[numbered_].first = numbered_ == 0 ? 0 : slots_[numbered_ - 1].first + slots_[numbered_ - 1].size;
}

void RowSequence::Outdate(size_t rank) {
    numbered_ = std::min(numbered_, rank);
}

size_t RowSequence::RankAt(int32_t number) const {
    if (Holds(finger_, number)) return finger_;
    if (Holds(finger_ + 1, number)) return ++finger_;
    while (numbered_ == 0 || slots_[numbered_ - 1].first + slots_[numbered_ - 1].size <= number)
        NumberThrough(numbered_);
    const auto behind = std::upper_bound(slots_.begin(), slots_.begin() + static_cast<ptrdiff_t>(numbered_), number,
                                         [](int32_t value, const Slot& slot) { return value < slot.first; });
    finger_ = static_cast<size_t>(behind - slots_.begin()) - 1;
    return finger_;
}

RowId RowSequence::At(int32_t number) const {
    const size_t rank = RankAt(number);
    return ChunkAt(rank).rows[number - slots_[rank].first];
}

int32_t RowSequence::PositionIn(const Chunk& chunk, int32_t size, RowId row) const {
    // Rows that were appended one after the other have consecutive ids.
    const RowId guess = row - chunk.rows[0];
    if (guess < static_cast<RowId>(size) && chunk.rows[guess] == row) return static_cast<int32_t>(guess);
    return static_cast<int32_t>(std::find(chunk.rows, chunk.rows + size, row) - chunk.rows);
}

int32_t RowSequence::NumberOf(RowId row) const {
    const Chunk& chunk = *chunks_[chunkOf_[row]];
    NumberThrough(chunk.rank);
    return slots_[chunk.rank].first + PositionIn(chunk, slots_[chunk.rank].size, row);
}

bool RowSequence::Precedes(RowId a, RowId b) const {
    const Chunk& chunkA = *chunks_[chunkOf_[a]];
    const Chunk& chunkB = *chunks_[chunkOf_[b]];
    if (&chunkA != &chunkB) return chunkA.rank < chunkB.rank;
    const int32_t size = slots_[chunkA.rank].size;
    return PositionIn(chunkA, size, a) < PositionIn(chunkA, size, b);
}

void RowSequence::Insert(int32_t number, RowId row) {
    if (row >= chunkOf_.size()) chunkOf_.resize(row + size_t{1});
    size_t rank;
    if (number < count_) {
        rank = RankAt(number);
        if (slots_[rank].size == chunkCapacity) {
            Split(rank);
            rank = RankAt(number);
        }
        NumberThrough(rank);
    } else {
        // Appended chunks are left full, not split: a load ends with no half-empty ones.
        if (slots_.empty() || slots_.back().size == chunkCapacity) AddChunk(slots_.size());
        rank = slots_.size() - 1;
        NumberThrough(rank);
    }
    Slot& slot = slots_[rank];
    RowId* const place = ChunkAt(rank).rows + (number - slot.first);
    std::memmove(place + 1, place, static_cast<size_t>(slot.first + slot.size - number) * sizeof(RowId));
    *place = row;
    ++slot.size;
    ++count_;
    chunkOf_[row] = slot.chunk;
    Outdate(rank + 1);
}

void RowSequence::Remove(int32_t number) noexcept {
    const size_t rank = RankAt(number);
    Slot& slot = slots_[rank];
    RowId* const place = ChunkAt(rank).rows + (number - slot.first);
    std::memmove(place, place + 1, static_cast<size_t>(slot.first + slot.size - number - 1) * sizeof(RowId));
    --slot.size;
    --count_;
    Outdate(rank + 1);
    if (slot.size == 0) {
        DropChunk(rank);
    } else if (rank + 1 < slots_.size() && slot.size + slots_[rank + 1].size <= chunkCapacity / 2) {
        JoinWithNext(rank);
    }
}

/// Asks for all its memory first, so that it adds a chunk or changes nothing.
void RowSequence::AddChunk(size_t rank) {
    auto chunk = std::make_unique<Chunk>();
    ReserveOne(slots_);
    ChunkId id;
    if (freeChunks_.empty()) {
        ReserveOne(chunks_);
        freeChunks_.reserve(chunks_.capacity());  // so that a chunk can be given up without asking for memory
        id = static_cast<ChunkId>(chunks_.size());
        chunks_.push_back(std::move(chunk));
    } else {
        id = freeChunks_.back();
        freeChunks_.pop_back();
        chunks_[id] = std::move(chunk);
    }
    slots_.insert(slots_.begin() + static_cast<ptrdiff_t>(rank), Slot{id, 0, 0});
    for (size_t each = rank; each < slots_.size(); ++each) ChunkAt(each).rank = static_cast<uint32_t>(each);
    Outdate(rank);
}

void RowSequence::DropChunk(size_t rank) noexcept {
    const ChunkId id = slots_[rank].chunk;
    freeChunks_.push_back(id);
    chunks_[id].reset();
    slots_.erase(slots_.begin() + static_cast<ptrdiff_t>(rank));
    for (size_t each = rank; each < slots_.size(); ++each) ChunkAt(each).rank = static_cast<uint32_t>(each);
    Outdate(rank);
}

void RowSequence::Move(Chunk& from, int32_t start, int32_t count, size_t toRank) noexcept {
    Slot& target = slots_[toRank];
    RowId* const place = ChunkAt(toRank).rows + target.size;
    std::memcpy(place, from.rows + start, static_cast<size_t>(count) * sizeof(RowId));
    for (int32_t each = 0; each < count; ++each) chunkOf_[place[each]] = target.chunk;
    target.size += count;
}

void RowSequence::Split(size_t rank) {
    AddChunk(rank + 1);
    const int32_t kept = slots_[rank].size / 2;
    Move(ChunkAt(rank), kept, slots_[rank].size - kept, rank + 1);
    slots_[rank].size = kept;
}

void RowSequence::JoinWithNext(size_t rank) noexcept {
    Move(ChunkAt(rank + 1), 0, slots_[rank + 1].size, rank);
    DropChunk(rank + 1);
}

size_t RowSequence::MemoryUse() const {
    return slots_.size() * sizeof(Chunk) + chunks_.capacity() * sizeof(void*) + slots_.capacity() * sizeof(Slot) +
           (chunkOf_.capacity() + freeChunks_.capacity()) * sizeof(ChunkId);
}

}  // namespace foldertree
