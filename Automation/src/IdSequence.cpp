// IdSequence: chunks of ids with lazily kept first positions.
#include "automation/IdSequence.h"

#include <algorithm>
#include <cstring>

#include "automation/ReserveOne.h"

namespace automation {

void IdSequence::NumberThrough(size_t rank) const {
    for (; numbered_ <= rank; ++numbered_)
        slots_[numbered_].first = numbered_ == 0 ? 0 : slots_[numbered_ - 1].first + slots_[numbered_ - 1].size;
}

void IdSequence::Outdate(size_t rank) {
    numbered_ = std::min(numbered_, rank);
}

size_t IdSequence::RankAt(int32_t position) const {
    if (Holds(finger_, position)) return finger_;
    if (Holds(finger_ + 1, position)) return ++finger_;
    while (numbered_ == 0 || slots_[numbered_ - 1].first + slots_[numbered_ - 1].size <= position)
        NumberThrough(numbered_);
    const auto behind = std::upper_bound(slots_.begin(), slots_.begin() + static_cast<ptrdiff_t>(numbered_), position,
                                         [](int32_t value, const Slot& slot) { return value < slot.first; });
    finger_ = static_cast<size_t>(behind - slots_.begin()) - 1;
    return finger_;
}

int32_t IdSequence::PlaceIn(const Chunk& chunk, int32_t size, Id id) {
    // Ids that were appended one after the other are consecutive.
    const Id guess = id - chunk.ids[0];
    if (guess < static_cast<Id>(size) && chunk.ids[guess] == id) return static_cast<int32_t>(guess);
    return static_cast<int32_t>(std::find(chunk.ids, chunk.ids + size, id) - chunk.ids);
}

int32_t IdSequence::PositionOf(Id id) const {
    const Chunk& chunk = *chunks_[chunkOf_[id]];
    NumberThrough(chunk.rank);
    finger_ = chunk.rank;  // whoever asks for a position mostly goes there
    return slots_[chunk.rank].first + PlaceIn(chunk, slots_[chunk.rank].size, id);
}

bool IdSequence::Precedes(Id a, Id b) const {
    const Chunk& chunkA = *chunks_[chunkOf_[a]];
    const Chunk& chunkB = *chunks_[chunkOf_[b]];
    if (&chunkA != &chunkB) return chunkA.rank < chunkB.rank;
    const int32_t size = slots_[chunkA.rank].size;
    return PlaceIn(chunkA, size, a) < PlaceIn(chunkA, size, b);
}

void IdSequence::Insert(int32_t position, Id id) {
    if (id >= chunkOf_.size()) chunkOf_.resize(id + size_t{1});
    size_t rank;
    if (position < count_) {
        rank = RankAt(position);
        if (slots_[rank].size == chunkCapacity) {
            Split(rank);
            rank = RankAt(position);
        }
        NumberThrough(rank);
    } else {
        // Appended chunks are left full, not split: a load ends with no half-empty ones.
        if (slots_.empty() || slots_.back().size == chunkCapacity) AddChunk(slots_.size());
        rank = slots_.size() - 1;
        NumberThrough(rank);
    }
    Slot& slot = slots_[rank];
    Id* const place = ChunkAt(rank).ids + (position - slot.first);
    std::memmove(place + 1, place, static_cast<size_t>(slot.first + slot.size - position) * sizeof(Id));
    *place = id;
    ++slot.size;
    ++count_;
    chunkOf_[id] = slot.chunk;
    Outdate(rank + 1);
}

void IdSequence::Remove(int32_t position) noexcept {
    const size_t rank = RankAt(position);
    Slot& slot = slots_[rank];
    Id* const place = ChunkAt(rank).ids + (position - slot.first);
    std::memmove(place, place + 1, static_cast<size_t>(slot.first + slot.size - position - 1) * sizeof(Id));
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
void IdSequence::AddChunk(size_t rank) {
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

void IdSequence::DropChunk(size_t rank) noexcept {
    const ChunkId id = slots_[rank].chunk;
    freeChunks_.push_back(id);
    chunks_[id].reset();
    slots_.erase(slots_.begin() + static_cast<ptrdiff_t>(rank));
    for (size_t each = rank; each < slots_.size(); ++each) ChunkAt(each).rank = static_cast<uint32_t>(each);
    Outdate(rank);
}

void IdSequence::Move(Chunk& from, int32_t start, int32_t count, size_t toRank) noexcept {
    Slot& target = slots_[toRank];
    Id* const place = ChunkAt(toRank).ids + target.size;
    std::memcpy(place, from.ids + start, static_cast<size_t>(count) * sizeof(Id));
    for (int32_t each = 0; each < count; ++each) chunkOf_[place[each]] = target.chunk;
    target.size += count;
}

void IdSequence::Split(size_t rank) {
    AddChunk(rank + 1);
    const int32_t kept = slots_[rank].size / 2;
    Move(ChunkAt(rank), kept, slots_[rank].size - kept, rank + 1);
    slots_[rank].size = kept;
}

void IdSequence::JoinWithNext(size_t rank) noexcept {
    Move(ChunkAt(rank + 1), 0, slots_[rank + 1].size, rank);
    DropChunk(rank + 1);
}

size_t IdSequence::MemoryUse() const {
    return slots_.size() * sizeof(Chunk) + chunks_.capacity() * sizeof(void*) + slots_.capacity() * sizeof(Slot) +
           (chunkOf_.capacity() + freeChunks_.capacity()) * sizeof(ChunkId);
}

}  // namespace automation
