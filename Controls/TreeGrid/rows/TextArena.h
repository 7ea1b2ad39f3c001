// TextArena: texts of their own rows, packed one behind the other in large blocks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace foldertree {

/// Holds each text once per Add, with its length, and gives a 32-bit reference for it. A dropped text's bytes stay
/// until the owner copies what lives into a new arena. Blocks never move: a view is valid as long as the arena.
class TextArena {
  public:
    using Ref = uint32_t;  ///< 0 is the empty text

    /// A text that was added for something that may yet fail: dropped again unless it is kept.
    class Added {
      public:
        Added(TextArena& arena, std::string_view text) : arena_(arena), ref_(arena.Add(text)) {}
        ~Added() {
            if (ref_ != 0) arena_.Drop(ref_);
        }
        Added(const Added&) = delete;
        Added& operator=(const Added&) = delete;
        TextArena::Ref Ref() const { return ref_; }
        void Keep() noexcept { ref_ = 0; }

      private:
        TextArena& arena_;
        TextArena::Ref ref_;
    };

    /// Throws automation::Error 0x8007000E when the arena is full (8 GB), and changes nothing when it or memory is.
    Ref Add(std::string_view text);
    std::string_view View(Ref ref) const;
    void Drop(Ref ref) noexcept;

    size_t LiveBytes() const { return liveBytes_; }  ///< of the texts themselves
    size_t DeadBytes() const { return deadBytes_; }  ///< of those that were dropped
    /// Whether most of the arena is dropped texts.
    bool IsMostlyDead() const { return deadBytes_ > liveBytes_ + blockSize; }
    size_t MemoryUse() const;

  private:
    static constexpr size_t unit = 2;
    static constexpr size_t blockSize = size_t{1} << 20;

    void AddBlocks(size_t blocks);
    char* Allocate(size_t bytes, Ref& ref);

    struct Memory {
        std::unique_ptr<char[]> bytes;
        size_t size = 0;
    };
    std::vector<Memory> memory_;
    std::vector<char*> blocks_;  ///< where each block of references starts; a text beyond a block's size spans several
    size_t used_ = blockSize;    ///< bytes of the current (last) block
    size_t liveBytes_ = 0;
    size_t deadBytes_ = 0;
};

}  // namespace foldertree
