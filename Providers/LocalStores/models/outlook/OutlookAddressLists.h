// OutlookAddressLists: all lists of the address book, and one of them.
#pragma once

#include "models/common/NamedItems.h"
#include "models/outlook/OutlookApplication.h"

namespace localstores {

/// Members: `Item(Index)` (default; 1-based position or name), `Count`, `_NewEnum`, `Application`, `Session`, `Class`.
class OutlookAddressLists : public automation::TabledObject<OutlookAddressLists>, public NamedItems {
  public:
    explicit OutlookAddressLists(OutlookApplicationRef application)
        : application_(std::move(application)), lists_(application_->Stores().AllAddressLists()) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<OutlookAddressLists>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override { return Walk(shared_from_this()); }

    size_t Size() const override { return lists_.size(); }
    const std::string& NameAt(size_t position) const override { return lists_[position]->name; }
    automation::Value ItemAt(size_t position) const override;
    automation::Value Application() const { return application_; }
    automation::Value SessionMember() const { return application_->SessionMember(); }
    int32_t Class() const { return static_cast<int32_t>(OutlookClass::AddressLists); }

  private:
    OutlookApplicationRef application_;
    std::vector<AddressListRef> lists_;
};

/// Members: `Name` (default), `ID`, `Index` (its position among all lists), `IsReadOnly`, `Application`, `Session`,
/// `Class`.
class OutlookAddressList : public automation::TabledObject<OutlookAddressList> {
  public:
    OutlookAddressList(OutlookApplicationRef application, AddressListRef list, int32_t index)
        : application_(std::move(application)), list_(std::move(list)), index_(index) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<OutlookAddressList>> Members();

    const std::string& Name() const { return list_->name; }
    std::string Id() const { return Hex(list_->id); }
    int32_t Index() const { return index_; }
    bool IsReadOnly() const { return true; }
    automation::Value Application() const { return application_; }
    automation::Value SessionMember() const { return application_->SessionMember(); }
    int32_t Class() const { return static_cast<int32_t>(OutlookClass::AddressList); }

  private:
    OutlookApplicationRef application_;
    AddressListRef list_;
    int32_t index_;
};

}  // namespace localstores
