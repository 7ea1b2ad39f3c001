// TextArena: length-prefixed texts in blocks.
#include "rows/TextArena.h"

#include <cstring>
#include <limits>

#include "automation/Error.h"
#include "automation/ReserveOne.h"

namespace foldertree {

namespace {

// A length is written seven bits a byte, lowest first; the high bit says that more follow.
size_t WriteLength(size_t length, unsigned char* bytes) {
    size_t count = 0;
    for (; length >= 0x80; length >>= 7) bytes[count++] = static_cast<unsigned char>(length | 0x80);
    bytes[count++] = static_cast<unsigned char>(length);
    return count;
}

}  // namespace

/// Adds so many blocks, which lie one behind the other, or changes nothing.
void TextArena::AddBlocks(size_t blocks) {
    if (uint64_t{blocks_.size() + blocks} * (blockSize / unit) > std::numeric_limits<Ref>::max())
        throw automation::VbError(automation::errors::outOfMemory);
    auto bytes = std::make_unique_for_overwrite<char[]>(blocks * blockSize);
    automation::ReserveOne(memory_);
    char* const start = bytes.get();
    const size_t before = blocks_.size();
    blocks_.resize(before + blocks);
    for (size_t block = 0; block < blocks; ++block) blocks_[before + block] = start + block * blockSize;
    memory_.push_back({std::move(bytes), blocks * blockSize});
}

char* TextArena::Allocate(size_t bytes, Ref& ref) {
    bytes = (bytes + unit - 1) / unit * unit;
    if (used_ + bytes > blockSize) {
        const size_t blocks = (bytes + unit + blockSize - 1) / blockSize;
        AddBlocks(blocks);
        used_ = blocks_.size() == blocks ? unit : 0;  // reference 0 is taken by the empty text
        ref = static_cast<Ref>((blocks_.size() - blocks) * (blockSize / unit) + used_ / unit);
        char* const place = blocks_[blocks_.size() - blocks] + used_;
        used_ = used_ + bytes - (blocks - 1) * blockSize;
        return place;
    }
    ref = static_cast<Ref>((blocks_.size() - 1) * (blockSize / unit) + used_ / unit);
    char* const place = blocks_.back() + used_;
    used_ += bytes;
    return place;
}

TextArena::Ref TextArena::Add(std::string_view text) {
    if (text.empty()) return 0;
    unsigned char prefix[10];
    const size_t prefixSize = WriteLength(text.size(), prefix);
    Ref ref;
    char* const place = Allocate(prefixSize + text.size(), ref);
    std::memcpy(place, prefix, prefixSize);
    std::memcpy(place + prefixSize, text.data(), text.size());
    liveBytes_ += text.size();
    return ref;
}

std::string_view TextArena::View(Ref ref) const {
    if (ref == 0) return {};
    constexpr size_t units = blockSize / unit;
    const char* at = blocks_[ref / units] + ref % units * unit;
    size_t length = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(*at++);
        length |= static_cast<size_t>(byte & 0x7F) << shift;
        if (byte < 0x80) return {at, length};
    }
}

void TextArena::Drop(Ref ref) noexcept {
    if (ref == 0) return;
    const size_t size = View(ref).size();
    liveBytes_ -= size;
    deadBytes_ += size;
}

size_t TextArena::MemoryUse() const {
    size_t total = memory_.capacity() * sizeof(Memory) + blocks_.capacity() * sizeof(char*);
    for (const Memory& memory : memory_) total += memory.size;
    return total;
}

}  // namespace foldertree
