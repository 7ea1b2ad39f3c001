// HashPlaces: numbers by the hash of something that the caller keeps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace automation {

/// Numbers below 0xFFFFFFFF, each under a hash whose low bits are well mixed. Nothing of what was hashed is kept: the
/// caller tells whether a number is the one that is meant. One block of memory, searched from the hash's place on
/// (open addressing), so that looking for what is not there mostly costs one access. Numbers with one hash are found in
/// the order in which they were added.
class HashPlaces {
  public:
    size_t Count() const { return used_; }

    /// Makes room for one more number. Throws std::bad_alloc and has then changed nothing.
    void Reserve() {
        if ((used_ + 1) * 4 > places_.size() * 3) Grow();
    }
    /// Adds a number and returns its place. Fails as Reserve does, and not at all right after it.
    uint32_t* Add(uint32_t hash, uint32_t number) {
        Reserve();
        ++used_;
        return &Put({hash, number});
    }

    /// The place of the first number with the hash for which `isMeant(number)` is true; null when there is none.
    /// Another number may be written there. It is valid until something is added or removed.
    template <class IsMeant>
    uint32_t* Find(uint32_t hash, IsMeant&& isMeant) {
        return const_cast<uint32_t*>(static_cast<const HashPlaces*>(this)->Find(hash, isMeant));
    }
    template <class IsMeant>
    const uint32_t* Find(uint32_t hash, IsMeant&& isMeant) const {
        if (used_ == 0) return nullptr;
        const size_t mask = places_.size() - 1;
        for (size_t at = hash & mask; places_[at].number != nobody; at = (at + 1) & mask)
            if (places_[at].hash == hash && isMeant(places_[at].number)) return &places_[at].number;
        return nullptr;
    }

    /// Takes out the number at a place that Find returned.
    void Remove(const uint32_t* place) noexcept {
        const size_t mask = places_.size() - 1;
        size_t gap = IndexOf(place);
        // Later ones of the run move up into the gap, so that no search stops short of them.
        for (size_t next = (gap + 1) & mask; places_[next].number != nobody; next = (next + 1) & mask) {
            const size_t home = places_[next].hash & mask;
            if (((next - home) & mask) < ((next - gap) & mask)) continue;
            places_[gap] = places_[next];
            gap = next;
        }
        places_[gap] = {};
        --used_;
    }

    size_t MemoryUse() const { return places_.capacity() * sizeof(Place); }

  private:
    static constexpr uint32_t nobody = UINT32_MAX;
    struct Place {
        uint32_t hash = 0;
        uint32_t number = nobody;
    };

    size_t IndexOf(const uint32_t* number) const {
        const auto bytes = reinterpret_cast<const char*>(number) - reinterpret_cast<const char*>(places_.data());
        return static_cast<size_t>(bytes) / sizeof(Place);
    }
    uint32_t& Put(const Place& place) noexcept {
        const size_t mask = places_.size() - 1;
        size_t at = place.hash & mask;
        while (places_[at].number != nobody) at = (at + 1) & mask;
        places_[at] = place;
        return places_[at].number;
    }
    void Grow() {
        std::vector<Place> old(places_.empty() ? 16 : places_.size() * 2);
        old.swap(places_);
        if (used_ == 0) return;
        // From behind a gap on, so that a run that goes over the end is put in its order.
        size_t start = 0;
        while (old[start].number != nobody) ++start;
        for (size_t each = 0; each < old.size(); ++each) {
            const Place& place = old[(start + each) & (old.size() - 1)];
            if (place.number != nobody) Put(place);
        }
    }

    std::vector<Place> places_;
    size_t used_ = 0;
};

}  // namespace automation
