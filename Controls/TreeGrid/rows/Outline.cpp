// Outline: a lazily extended list of visible rows.
#include "rows/Outline.h"

#include <algorithm>

namespace foldertree {

void Outline::ScanOne() {
    if (scanned_ < rows_.First()) scanned_ = rows_.First();
    const OutlineRows::Row row = rows_.At(scanned_);
    if (!hiding_ || row.level <= *hiding_) {
        visible_.push_back(scanned_);
        hiding_.reset();
        if (row.closed) hiding_ = row.level;
    }
    ++scanned_;
}

void Outline::ScanThroughRow(int32_t row) {
    const int32_t end = std::min(row, rows_.Count() - 1);
    while (scanned_ <= end && rows_.First() < rows_.Count()) ScanOne();
}

void Outline::Invalidate(int32_t row) noexcept {
    if (row >= scanned_) return;
    visible_.erase(std::lower_bound(visible_.begin(), visible_.end(), row), visible_.end());
    hiding_.reset();
    scanned_ = -1;
    if (visible_.empty()) return;
    // The rows between the last visible one and the change are hidden by it: they are looked at again. It is above the
    // change, so what is known of it still holds.
    scanned_ = visible_.back() + 1;
    const OutlineRows::Row last = rows_.At(visible_.back());
    if (last.closed) hiding_ = last.level;
}

int32_t Outline::VisibleCount() {
    ScanThroughRow(rows_.Count() - 1);
    return static_cast<int32_t>(visible_.size());
}

std::optional<int32_t> Outline::VisibleRow(int32_t position) {
    if (position < 0) return std::nullopt;
    const auto index = static_cast<size_t>(position);
    while (visible_.size() <= index && std::max(scanned_, rows_.First()) < rows_.Count()) ScanOne();
    if (visible_.size() <= index) return std::nullopt;
    return visible_[index];
}

std::optional<int32_t> Outline::VisiblePosition(int32_t row) {
    ScanThroughRow(row);
    const auto found = std::lower_bound(visible_.begin(), visible_.end(), row);
    if (found == visible_.end() || *found != row) return std::nullopt;
    return static_cast<int32_t>(found - visible_.begin());
}

int32_t Outline::VisibleAncestor(int32_t row) {
    ScanThroughRow(row);
    const auto behind = std::upper_bound(visible_.begin(), visible_.end(), row);
    return behind == visible_.begin() ? row : *(behind - 1);
}

}  // namespace foldertree
