// RdoAddressBook: the address book of a session.
#pragma once

#include "models/rdo/RdoSessionObject.h"

namespace localstores {

/// Members: `AddressLists(ShallowTraversal?)`, the top lists, or with False all lists of the book in one collection;
/// `GAL` and `DefaultAddressList`, the global list; `PAB`, the personal one; `GetAddressListFromID(EntryID)`;
/// `Session`.
class RdoAddressBook : public automation::TabledObject<RdoAddressBook> {
  public:
    explicit RdoAddressBook(RdoSessionRef session) : session_(std::move(session)) {}

    static std::span<const automation::MemberEntry<RdoAddressBook>> Members();

    automation::Value AddressLists(const automation::Arguments& arguments) const;
    automation::Value GlobalList() const;
    automation::Value PersonalList() const;
    automation::Value GetAddressListFromId(const automation::Arguments& arguments) const;
    automation::Value SessionMember() const { return session_; }

  private:
    /// Throws MAPI_E_NOT_FOUND when there is none.
    automation::Value Made(const AddressListRef& list) const;

    RdoSessionRef session_;
};

}  // namespace localstores
