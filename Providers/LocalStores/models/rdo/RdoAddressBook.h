// RdoAddressBook: the address book of local stores, which have no address lists.
#pragma once

#include "automation/TabledObject.h"

namespace localstores {

/// Members: `AddressLists(ShallowTraversal?)`, an empty collection; `DefaultAddressList`, `PAB`, `GAL` and
/// `GetAddressListFromID` find nothing.
class RdoAddressBook : public automation::TabledObject<RdoAddressBook> {
  public:
    static std::span<const automation::MemberEntry<RdoAddressBook>> Members();

    automation::Value AddressLists(const automation::Arguments& arguments) const;
    automation::Value MissingList(const automation::Arguments& arguments) const;
};

/// Members: `Count`, `Item(Index)`, `_Item` (default), `_NewEnum`, `GetFirst`, `GetNext`.
class RdoAddressLists : public automation::TabledObject<RdoAddressLists> {
  public:
    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<RdoAddressLists>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override;

    int32_t Count() const { return 0; }
    automation::Value Item(const automation::Arguments& arguments) const;
    automation::Value GetNone() const { return nullptr; }
};

}  // namespace localstores
