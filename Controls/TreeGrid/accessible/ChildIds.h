// ChildIds: the numbers by which assistive programs know rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "automation/HashPlaces.h"
#include "rows/RowHandle.h"

namespace foldertree {

/// Numbers from 1 on, given out when somebody first asks for a row's. A number stays with its row and is never given to
/// another one. A row that nobody asked for costs nothing; the others some 30 bytes each, for as long as they live.
class ChildIds {
  public:
    /// The row's number. Throws std::bad_alloc, and automation::Error 0x8007000E once all are given out.
    int32_t IdOf(RowHandle row);
    /// The row that has, or had, the number; nothing for one that was not given out, or is forgotten.
    std::optional<RowHandle> RowOf(int32_t id) const;

    /// Forgets the rows for which `isAlive(row)` is false.
    template <class IsAlive>
    void ForgetRows(IsAlive&& isAlive) noexcept {
        const auto gone = [&](const Entry& entry) { return !isAlive(entry.row); };
        for (const Entry& entry : entries_)
            if (gone(entry)) RemovePlace(entry);
        std::erase_if(entries_, gone);
        if (entries_.empty()) GiveBackMemory();
    }
    size_t Count() const { return entries_.size(); }
    size_t MemoryUse() const { return entries_.capacity() * sizeof(Entry) + places_.MemoryUse(); }

  private:
    struct Entry {
        int32_t id = 0;
        RowHandle row;
    };
    const Entry* Find(int32_t id) const;
    void RemovePlace(const Entry& entry) noexcept;
    void GiveBackMemory() noexcept;

    std::vector<Entry> entries_;     ///< in the order of their numbers
    automation::HashPlaces places_;  ///< numbers by the hash of their rows
    int32_t last_ = 0;
};

}  // namespace foldertree
