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

    /// Throws automation::Error 0x8007000E when the arena is full (8 GB).
    Ref Add(std::string_view text);
    std::string_view View(Ref ref) const;
    void Drop(Ref ref);

    size_t LiveBytes() const { return liveBytes_; }  ///< of the texts themselves
    /// Whether most of the arena is dropped texts.
    bool IsMostlyDead() const { return deadBytes_ > liveBytes_ + blockSize; }
    size_t MemoryUse() const;

  private:
    static constexpr size_t unit = 2;
    static constexpr size_t blockSize = size_t{1} << 20;

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
