// RdoCollection: what all collections of an RDO session have in common.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "automation/Object.h"

namespace localstores {

/// The 0-based position of an item that is asked for by its 1-based position or by its name (without regard to case).
/// Throws DISP_E_BADINDEX beyond the ends and MAPI_E_NOT_FOUND for a name that no item has.
size_t PositionOf(const automation::Value& index, size_t count,
                  const std::function<const std::string&(size_t position)>& nameAt);

/// Walks the items at the positions 0 to count - 1. `itemAt` must keep alive what it needs.
class PositionEnumerator : public automation::Enumerator {
  public:
    PositionEnumerator(size_t count, std::function<automation::Value(size_t position)> itemAt)
        : count_(count), itemAt_(std::move(itemAt)) {}

    bool Next(automation::Value& item) override {
        if (position_ >= count_) return false;
        item = itemAt_(position_++);
        return true;
    }

  private:
    size_t position_ = 0;
    size_t count_;
    std::function<automation::Value(size_t position)> itemAt_;
};

}  // namespace localstores
