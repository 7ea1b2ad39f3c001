// RowSequence: the order of the rows: from a row's number to its identity and back, with cheap insertion anywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace foldertree {

/// A row's identity: small, stays with the row for its life, is reused afterwards.
using RowId = uint32_t;

/// A list of row ids in chunks. Insertion and removal move at most one chunk; the numbers of the chunks behind it are
/// brought up to date when somebody next asks for one of them. Callers pass numbers and ids that exist.
class RowSequence {
  public:
    int32_t Count() const { return count_; }
    RowId At(int32_t number) const;
    int32_t NumberOf(RowId row) const;
    /// Whether row a stands before row b. Needs no number, so it costs the same while numbers are out of date.
    bool Precedes(RowId a, RowId b) const;

    /// Puts a row that is not in the list before the row that now has the number; with number Count(), at the end. When
    /// memory runs out, nothing has changed.
    void Insert(int32_t number, RowId row);
    void Remove(int32_t number) noexcept;

    size_t MemoryUse() const;

  private:
    static constexpr int32_t chunkCapacity = 256;
    using ChunkId = uint32_t;

    struct Chunk {
        uint32_t rank = 0;  ///< its place in slots_
        RowId rows[chunkCapacity];
    };
    struct Slot {
        ChunkId chunk = 0;
        int32_t size = 0;
        int32_t first = 0;  ///< number of its first row; right for the slots below numbered_
    };

    size_t RankAt(int32_t number) const;
    bool Holds(size_t rank, int32_t number) const;
    void NumberThrough(size_t rank) const;
    void Outdate(size_t rank);
    Chunk& ChunkAt(size_t rank) { return *chunks_[slots_[rank].chunk]; }
    const Chunk& ChunkAt(size_t rank) const { return *chunks_[slots_[rank].chunk]; }
    int32_t PositionIn(const Chunk& chunk, int32_t size, RowId row) const;
    void AddChunk(size_t rank);
    void DropChunk(size_t rank) noexcept;
    void Split(size_t rank);
    void JoinWithNext(size_t rank) noexcept;
    void Move(Chunk& from, int32_t start, int32_t count, size_t toRank) noexcept;

    std::vector<std::unique_ptr<Chunk>> chunks_;  ///< by id
    std::vector<ChunkId> freeChunks_;             ///< has room for every chunk's id
    mutable std::vector<Slot> slots_;             ///< the chunks in their order
    mutable size_t numbered_ = 0;
    mutable size_t finger_ = 0;     ///< the slot that was used last
    std::vector<ChunkId> chunkOf_;  ///< by row id
    int32_t count_ = 0;
};

}  // namespace foldertree
