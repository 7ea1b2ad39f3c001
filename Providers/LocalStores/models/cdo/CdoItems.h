// CdoItems: what the collections and objects of a CDO session have in common.
#pragma once

#include <memory>

#include "models/common/NamedItems.h"

namespace localstores {

/// What `Class` tells of an object.
enum class CdoClass {
    Session = 0,
    InfoStore = 1,
    Folder = 2,
    Field = 6,
    AddressList = 7,
    InfoStores = 14,
    Folders = 15,
    Fields = 19,
    AddressLists = 20,
};

inline constexpr const char* cdoApplication = "Collaboration Data Objects";

class CdoItems : public NamedItems {
  public:
    /// As in NamedItems, but every index that fits no item gives MAPI_E_NOT_FOUND.
    automation::Value Item(const automation::Arguments& arguments) override;
};

/// A property that is a collection takes an index, too, and then gives that item.
template <class Collection>
automation::Value WholeOrItem(std::shared_ptr<Collection> collection, const automation::Arguments& arguments) {
    if (arguments.Has(0)) return collection->Item(arguments);
    return collection;
}

}  // namespace localstores
