// CdoAddressLists: the lists of the address book that hold addresses, and one of them.
#pragma once

#include "models/cdo/CdoSessionObject.h"

namespace localstores {

/// The lists of all levels in one collection, without those that only hold other lists. Members: `Item(Index)`
/// (default; 1-based position or name), `Count`, `_NewEnum`, `Application`, `Parent`, `Session`, `Class`.
class CdoAddressLists : public automation::TabledObject<CdoAddressLists>, public CdoItems {
  public:
    explicit CdoAddressLists(CdoSessionRef session);

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<CdoAddressLists>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override { return Walk(shared_from_this()); }

    /// Throws MAPI_E_NOT_FOUND.
    automation::Value WithRole(AddressListRole role) const;

    size_t Size() const override { return lists_.size(); }
    const std::string& NameAt(size_t position) const override { return lists_[position]->name; }
    automation::Value ItemAt(size_t position) const override;
    const char* Application() const { return cdoApplication; }
    automation::Value SessionMember() const { return session_; }
    int32_t Class() const { return static_cast<int32_t>(CdoClass::AddressLists); }

  private:
    CdoSessionRef session_;
    std::vector<AddressListRef> lists_;
};

/// Members: `Name` (default), `ID`, `Index` (its position among the lists), `IsReadOnly`, `Application`, `Session`,
/// `Class`.
class CdoAddressList : public automation::TabledObject<CdoAddressList> {
  public:
    CdoAddressList(CdoSessionRef session, AddressListRef list, int32_t index)
        : session_(std::move(session)), list_(std::move(list)), index_(index) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<CdoAddressList>> Members();

    const std::string& Name() const { return list_->name; }
    std::string Id() const { return Hex(list_->id); }
    int32_t Index() const { return index_; }
    bool IsReadOnly() const { return true; }
    const char* Application() const { return cdoApplication; }
    automation::Value SessionMember() const { return session_; }
    int32_t Class() const { return static_cast<int32_t>(CdoClass::AddressList); }

  private:
    CdoSessionRef session_;
    AddressListRef list_;
    int32_t index_;
};

}  // namespace localstores
