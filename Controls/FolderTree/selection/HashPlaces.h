// HashPlaces: numbers by the hash of something that the caller keeps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace foldertree {

/// Holds no texts and is one block of memory, so that looking for what is not there, which bulk selection does once a
/// row, costs one access. Several numbers may have one hash.
class HashPlaces {
  public:
    /// Adds the number Count().
    void Add(size_t hash) {
        hashes_.push_back(hash);
        if (hashes_.size() * 2 > slots_.size()) {
            slots_.assign(slots_.empty() ? 16 : slots_.size() * 2, 0);
            for (uint32_t number = 0; number < hashes_.size(); ++number) Place(number);
        } else {
            Place(static_cast<uint32_t>(hashes_.size() - 1));
        }
    }
    size_t Count() const { return hashes_.size(); }

    /// Calls `visit(number)` for each number with that hash, in rising order, until it returns true; tells whether it
    /// did.
    template <class Visit>
    bool Any(size_t hash, Visit&& visit) const {
        if (slots_.empty()) return false;
        const size_t mask = slots_.size() - 1;
        for (size_t at = hash & mask; slots_[at] != 0; at = (at + 1) & mask) {
            const uint32_t number = slots_[at] - 1;
            if (hashes_[number] == hash && visit(number)) return true;
        }
        return false;
    }

  private:
    void Place(uint32_t number) {
        const size_t mask = slots_.size() - 1;
        size_t at = hashes_[number] & mask;
        while (slots_[at] != 0) at = (at + 1) & mask;
        slots_[at] = number + 1;
    }

    std::vector<size_t> hashes_;
    std::vector<uint32_t> slots_;  ///< number + 1, or 0; linear probing keeps the order of numbers with one hash
};

}  // namespace foldertree
