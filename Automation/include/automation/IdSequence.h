// IdSequence: an order of things that are named by small numbers: from a position to the id and back, with cheap
// insertion anywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace automation {

/// A list of ids in chunks. Insertion and removal move at most one chunk; the positions of the chunks behind it are
/// brought up to date when somebody next asks for one of them. Positions are 0-based; callers pass positions and ids
/// that exist. The memory grows with the largest id, so ids are small and used again.
class IdSequence {
  public:
    using Id = uint32_t;

    int32_t Count() const { return count_; }
    Id At(int32_t position) const {
        const size_t rank = Holds(finger_, position) ? finger_ : RankAt(position);
        return ChunkAt(rank).ids[position - slots_[rank].first];
    }
    int32_t PositionOf(Id id) const;
    /// Whether a stands before b. Needs no position, so it costs the same while positions are out of date.
    bool Precedes(Id a, Id b) const;

    /// Puts an id that is not in the list before the one that now has the position; with position Count(), at the end.
    /// When memory runs out, nothing has changed.
    void Insert(int32_t position, Id id);
    void Remove(int32_t position) noexcept;

    size_t MemoryUse() const;

  private:
    static constexpr int32_t chunkCapacity = 256;
    using ChunkId = uint32_t;

    struct Chunk {
        uint32_t rank = 0;  ///< its place in slots_
        Id ids[chunkCapacity];
    };
    struct Slot {
        ChunkId chunk = 0;
        int32_t size = 0;
        int32_t first = 0;  ///< position of its first id; right for the slots below numbered_
    };

    /// The place of the chunk that has the position; it becomes the finger.
    size_t RankAt(int32_t position) const;
    bool Holds(size_t rank, int32_t position) const {
        return rank < numbered_ && position >= slots_[rank].first && position - slots_[rank].first < slots_[rank].size;
    }
    void NumberThrough(size_t rank) const;
    void Outdate(size_t rank);
    Chunk& ChunkAt(size_t rank) { return *chunks_[slots_[rank].chunk]; }
    const Chunk& ChunkAt(size_t rank) const { return *chunks_[slots_[rank].chunk]; }
    static int32_t PlaceIn(const Chunk& chunk, int32_t size, Id id);
    void AddChunk(size_t rank);
    void DropChunk(size_t rank) noexcept;
    void Split(size_t rank);
    void JoinWithNext(size_t rank) noexcept;
    void Move(Chunk& from, int32_t start, int32_t count, size_t toRank) noexcept;

    std::vector<std::unique_ptr<Chunk>> chunks_;  ///< by chunk id
    std::vector<ChunkId> freeChunks_;             ///< has room for every chunk's id
    mutable std::vector<Slot> slots_;             ///< the chunks in their order
    mutable size_t numbered_ = 0;
    mutable size_t finger_ = 0;     ///< the slot that was used last
    std::vector<ChunkId> chunkOf_;  ///< by id
    int32_t count_ = 0;
};

}  // namespace automation
