// RowHandle: names a row for as long as the row lives.
#pragma once

#include <cstdint>

namespace foldertree {

/// Whatever must outlive a call that may run other code holds one of these instead of a row's number: the number of a
/// row changes with each row that comes or goes above it, a handle does not, and never names another row. A default
/// handle names no row. Handles belong to the grid that gave them.
class RowHandle {
  public:
    RowHandle() = default;
    bool operator==(const RowHandle&) const = default;

    /// For tables of rows; its low bits are well mixed.
    uint32_t Hash() const {
        const uint64_t mixed = (uint64_t{row_} << 16 | generation_) * 0x9E3779B97F4A7C15u + store_;
        return static_cast<uint32_t>(mixed >> 32);
    }

  private:
    friend class RowStore;
    RowHandle(uint32_t store, uint32_t row, uint16_t generation) : store_(store), row_(row), generation_(generation) {}

    uint32_t store_ = 0;  ///< which of the grid's stores, one after the other; 0 is none
    uint32_t row_ = 0;
    uint16_t generation_ = 0;  ///< of the row's identity, which is used again after the row has gone
};

}  // namespace foldertree
