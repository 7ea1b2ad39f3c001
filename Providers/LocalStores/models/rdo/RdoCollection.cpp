// RdoCollection: finding an item.
#include "models/rdo/RdoCollection.h"

#include "automation/Text.h"
#include "models/rdo/MapiErrors.h"

namespace localstores {

size_t PositionOf(const automation::Value& index, size_t count,
                  const std::function<const std::string&(size_t position)>& nameAt) {
    if (const std::string* name = index.AsText()) {
        for (size_t position = 0; position < count; ++position)
            if (automation::EqualNoCase(nameAt(position), *name)) return position;
        throw NotFound();
    }
    const int32_t position = index.ToLong();
    if (position < 1 || static_cast<size_t>(position) > count) throw InvalidIndex();
    return static_cast<size_t>(position) - 1;
}

}  // namespace localstores
