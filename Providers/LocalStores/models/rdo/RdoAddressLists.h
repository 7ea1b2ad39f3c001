// RdoAddressLists: the lists of an address book, and one of them.
#pragma once

#include "models/common/NamedItems.h"
#include "models/rdo/RdoSessionObject.h"

namespace localstores {

/// Members: `Count`, `Item(Index)` (1-based position or name), `_Item` (default), `_NewEnum`, `GetFirst`, `GetLast`,
/// `GetNext`, `GetPrevious` (Nothing beyond the ends), `Session`.
class RdoAddressLists : public automation::TabledObject<RdoAddressLists>, public NamedItems {
  public:
    RdoAddressLists(RdoSessionRef session, std::vector<AddressListRef> lists)
        : session_(std::move(session)), lists_(std::move(lists)) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<RdoAddressLists>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override { return Walk(shared_from_this()); }

    size_t Size() const override { return lists_.size(); }
    const std::string& NameAt(size_t position) const override { return lists_[position]->name; }
    automation::Value ItemAt(size_t position) const override;
    automation::Value SessionMember() const { return session_; }

  private:
    RdoSessionRef session_;
    std::vector<AddressListRef> lists_;
};

/// Members: `EntryID`, `Name` (default), `AddressLists` (the lists in it; MAPI_E_NO_SUPPORT where the book does not
/// answer that), `Default` (it is the global list), `IsReadOnly`, `Session`.
class RdoAddressList : public automation::TabledObject<RdoAddressList> {
  public:
    RdoAddressList(RdoSessionRef session, AddressListRef list) : session_(std::move(session)), list_(std::move(list)) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<RdoAddressList>> Members();

    const std::string& Name() const { return list_->name; }
    std::string EntryId() const { return Hex(list_->id); }
    automation::Value AddressLists() const;
    bool Default() const { return list_->role == AddressListRole::Global; }
    bool IsReadOnly() const { return true; }
    automation::Value SessionMember() const { return session_; }

  private:
    RdoSessionRef session_;
    AddressListRef list_;
};

}  // namespace localstores
