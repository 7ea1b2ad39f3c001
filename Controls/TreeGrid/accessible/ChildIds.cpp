// ChildIds: the numbers by which assistive programs know rows.
#include "accessible/ChildIds.h"

#include <algorithm>
#include <limits>

#include "automation/Error.h"
#include "automation/ReserveOne.h"

namespace foldertree {

int32_t ChildIds::IdOf(RowHandle row) {
    const auto isMeant = [&](uint32_t id) { return Find(static_cast<int32_t>(id))->row == row; };
    if (const uint32_t* const found = places_.Find(row.Hash(), isMeant)) return static_cast<int32_t>(*found);
    if (last_ == std::numeric_limits<int32_t>::max()) throw automation::VbError(automation::errors::outOfMemory);
    places_.Reserve();
    automation::ReserveOne(entries_);
    entries_.push_back({++last_, row});
    places_.Add(row.Hash(), static_cast<uint32_t>(last_));
    return last_;
}

std::optional<RowHandle> ChildIds::RowOf(int32_t id) const {
    const Entry* const entry = Find(id);
    return entry != nullptr ? std::optional(entry->row) : std::nullopt;
}

const ChildIds::Entry* ChildIds::Find(int32_t id) const {
    const auto found = std::lower_bound(entries_.begin(), entries_.end(), id,
                                        [](const Entry& entry, int32_t wanted) { return entry.id < wanted; });
    return found != entries_.end() && found->id == id ? &*found : nullptr;
}

void ChildIds::RemovePlace(const Entry& entry) noexcept {
    const auto isMeant = [&](uint32_t id) { return id == static_cast<uint32_t>(entry.id); };
    places_.Remove(places_.Find(entry.row.Hash(), isMeant));
}

void ChildIds::GiveBackMemory() noexcept {
    std::vector<Entry>().swap(entries_);
    places_ = {};
}

}  // namespace foldertree
