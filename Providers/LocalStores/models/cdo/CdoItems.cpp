// CdoItems: finding an item.
#include "models/cdo/CdoItems.h"

#include "models/cdo/CdoErrors.h"
#include "models/common/CallArguments.h"

namespace localstores {

automation::Value CdoItems::Item(const automation::Arguments& arguments) {
    const auto position = Find(Required(arguments, 0));
    if (!position) throw CdoNotFound();
    return ItemAt(*position);
}

}  // namespace localstores
