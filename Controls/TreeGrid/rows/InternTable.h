// InternTable: equal values stored once, counted, and named by small numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace foldertree {

/// Entry is made from a View, compared with one (entry == view), and `Entry::Hash(view)` agrees with that comparison.
/// Value 0 is the one the table is made with: it is never dropped and references to it need not be counted. A value
/// whose last reference is released stays findable until so many have gone that the table is swept, which happens in
/// Acquire alone; Sweeps() tells those who remember numbers without holding a reference.
template <class Entry, class View>
class InternTable {
  public:
    using Id = uint32_t;

    explicit InternTable(const View& first) : places_(16, 0) { Acquire(first); }

    /// The value's number, with one more reference to it.
    Id Acquire(const View& view) {
        const auto hash = static_cast<uint32_t>(Entry::Hash(view));
        if (const Id found = Find(view, hash); found != none) {
            AddReference(found);
            return found;
        }
        Slot fresh{Entry(view), hash, 1, true};  // made before anything moves: the view may point into an entry
        if (dead_ > 256 && dead_ > used_ / 2) Sweep();
        if ((used_ + 1) * 2 > places_.size()) Rebuild(places_.size() * 2);
        Id id = static_cast<Id>(slots_.size());
        if (free_.empty()) {
            slots_.push_back(std::move(fresh));
        } else {
            id = free_.back();
            slots_[id] = std::move(fresh);
            free_.pop_back();
        }
        ++used_;
        Place(id);
        return id;
    }
    void AddReference(Id id) {
        if (id != 0 && slots_[id].references++ == 0) --dead_;
    }
    void Release(Id id) {
        if (id != 0 && --slots_[id].references == 0) ++dead_;
    }
    const Entry& operator[](Id id) const { return slots_[id].entry; }

    uint32_t Sweeps() const { return sweeps_; }
    size_t MemoryUse() const {
        return slots_.capacity() * sizeof(Slot) + (places_.capacity() + free_.capacity()) * sizeof(uint32_t);
    }
    template <class Visitor>
    void ForEach(Visitor&& visit) const {
        for (const Slot& slot : slots_)
            if (slot.used) visit(slot.entry);
    }

  private:
    static constexpr Id none = UINT32_MAX;

    struct Slot {
        Entry entry;
        uint32_t hash = 0;
        uint32_t references = 0;
        bool used = false;
    };

    Id Find(const View& view, uint32_t hash) const {
        const size_t mask = places_.size() - 1;
        for (size_t at = hash & mask; places_[at] != 0; at = (at + 1) & mask) {
            const Slot& slot = slots_[places_[at] - 1];
            if (slot.hash == hash && slot.entry == view) return places_[at] - 1;
        }
        return none;
    }
    void Place(Id id) {
        const size_t mask = places_.size() - 1;
        size_t at = slots_[id].hash & mask;
        while (places_[at] != 0) at = (at + 1) & mask;
        places_[at] = id + 1;
    }
    void Rebuild(size_t size) {
        places_.assign(size, 0);
        for (Id id = 0; id < slots_.size(); ++id)
            if (slots_[id].used) Place(id);
    }
    void Sweep() {
        for (Id id = 1; id < slots_.size(); ++id) {
            Slot& slot = slots_[id];
            if (!slot.used || slot.references != 0) continue;
            free_.push_back(id);
            slot = Slot{};
            --used_;
        }
        dead_ = 0;
        ++sweeps_;
        Rebuild(places_.size());
    }

    std::vector<Slot> slots_;
    std::vector<uint32_t> places_;  ///< open addressing: number + 1, 0 for an empty place
    std::vector<Id> free_;
    size_t used_ = 0;
    size_t dead_ = 0;
    uint32_t sweeps_ = 0;
};

}  // namespace foldertree
