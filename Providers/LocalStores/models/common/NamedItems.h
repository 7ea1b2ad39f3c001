// NamedItems: what the collections of all object models have in common.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "automation/TabledObject.h"

namespace localstores {

/// The members that find items; a collection derives from this and says only what its items are. Positions inside are
/// 0-based, those that callers use start at 1.
class NamedItems {
  public:
    virtual ~NamedItems() = default;

    virtual int32_t Count() const { return static_cast<int32_t>(Size()); }
    /// By 1-based position or by name without regard to case. Throws DISP_E_BADINDEX beyond the ends and
    /// MAPI_E_NOT_FOUND for a name that no item has.
    virtual automation::Value Item(const automation::Arguments& arguments);
    /// These move a cursor of the collection; Nothing beyond the ends.
    automation::Value GetFirst() { return MoveTo(1); }
    automation::Value GetLast() { return MoveTo(static_cast<int64_t>(Size())); }
    automation::Value GetNext() { return MoveTo(cursor_ + 1); }
    automation::Value GetPrevious() { return MoveTo(cursor_ - 1); }

    virtual size_t Size() const = 0;
    virtual const std::string& NameAt(size_t position) const = 0;
    virtual automation::Value ItemAt(size_t position) const = 0;

  protected:
    /// The 0-based position; nothing when the index fits no item.
    std::optional<size_t> Find(const automation::Value& index) const;
    /// The items in order, those that came or went meanwhile included; `self`, this collection, is kept alive.
    std::unique_ptr<automation::Enumerator> Walk(automation::ObjectRef self) const;

  private:
    automation::Value MoveTo(int64_t position);

    int64_t cursor_ = 0;  ///< 1-based; 0 before the first item, the size + 1 behind the last
};

}  // namespace localstores
