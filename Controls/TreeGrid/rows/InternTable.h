// InternTable: equal values stored once, counted, and named by small numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "automation/HashPlaces.h"

namespace foldertree {

/// Entry is made from a View, compared with one (entry == view), and `Entry::Hash(view)` agrees with that comparison.
/// Value 0 is the one the table is made with: it is never dropped and references to it need not be counted. A value
/// whose last reference is released stays findable until so many have gone that the table is swept, which happens in
/// Acquire alone; Sweeps() tells those who remember numbers without holding a reference.
/// Only Acquire asks for memory. When it fails, the numbers and references that are held are what they were.
template <class Entry, class View>
class InternTable {
  public:
    using Id = uint32_t;

    explicit InternTable(const View& first) { Acquire(first); }

    /// The value's number, with one more reference to it.
    Id Acquire(const View& view) {
        const auto hash = static_cast<uint32_t>(Entry::Hash(view));
        const uint32_t* const found = places_.Find(hash, [&](Id id) { return slots_[id].entry == view; });
        if (found != nullptr) {
            AddReference(*found);
            return *found;
        }
        Slot fresh{Entry(view), hash, 1, true};  // made before anything moves: the view may point into an entry
        if (dead_ > 256 && dead_ > places_.Count() / 2) Sweep();
        places_.Reserve();
        const Id id = Keep(std::move(fresh));
        places_.Add(hash, id);
        return id;
    }
    void AddReference(Id id) noexcept {
        if (id != 0 && slots_[id].references++ == 0) --dead_;
    }
    void Release(Id id) noexcept {
        if (id != 0 && --slots_[id].references == 0) ++dead_;
    }
    const Entry& operator[](Id id) const { return slots_[id].entry; }

    uint32_t Sweeps() const { return sweeps_; }
    size_t MemoryUse() const { return slots_.capacity() * sizeof(Slot) + places_.MemoryUse(); }
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
        uint32_t references = 0;  ///< of a slot that is free: the next free one
        bool used = false;
    };

    Id Keep(Slot&& fresh) {
        if (firstFree_ == none) {
            slots_.push_back(std::move(fresh));
            return static_cast<Id>(slots_.size() - 1);
        }
        const Id id = firstFree_;
        firstFree_ = slots_[id].references;
        slots_[id] = std::move(fresh);
        return id;
    }
    void Sweep() noexcept {
        for (Id id = 1; id < slots_.size(); ++id) {
            Slot& slot = slots_[id];
            if (!slot.used || slot.references != 0) continue;
            places_.Remove(places_.Find(slot.hash, [&](Id other) { return other == id; }));
            slot = Slot{};
            slot.references = std::exchange(firstFree_, id);
        }
        dead_ = 0;
        ++sweeps_;
    }

    std::vector<Slot> slots_;
    automation::HashPlaces places_;  ///< of the slots in use, by their entries
    Id firstFree_ = none;
    size_t dead_ = 0;
    uint32_t sweeps_ = 0;
};

}  // namespace foldertree
