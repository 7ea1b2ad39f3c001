// CdoInfoStores: the stores of a session, and one of them.
#pragma once

#include "models/cdo/CdoSessionObject.h"

namespace localstores {

/// Public folders come first, then the others in the session's order. Members: `Item(Index)` (default; 1-based position
/// or name), `Count`, `_NewEnum`, `Application`, `Parent`, `Session`, `Class`.
class CdoInfoStores : public automation::TabledObject<CdoInfoStores>, public CdoItems {
  public:
    explicit CdoInfoStores(CdoSessionRef session);

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<CdoInfoStores>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override { return Walk(shared_from_this()); }

    size_t Size() const override { return stores_.size(); }
    const std::string& NameAt(size_t position) const override { return stores_[position]->Name(); }
    automation::Value ItemAt(size_t position) const override;
    const char* Application() const { return cdoApplication; }
    automation::Value SessionMember() const { return session_; }
    int32_t Class() const { return static_cast<int32_t>(CdoClass::InfoStores); }

  private:
    CdoSessionRef session_;
    StoreList stores_;
};

/// Members: `Name` (default), `ID`, `ProviderName`, `RootFolder` (the one below which the user's own folders stand),
/// `Fields(Index?)`, `Application`, `Session`, `Class`.
class CdoInfoStore : public automation::TabledObject<CdoInfoStore> {
  public:
    CdoInfoStore(CdoSessionRef session, std::shared_ptr<Store> store)
        : session_(std::move(session)), store_(std::move(store)) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<CdoInfoStore>> Members();

    const std::string& Name() const { return store_->Name(); }
    std::string Id() const { return Hex(store_->Id()); }
    const std::string& ProviderName() const { return store_->ProviderName(); }
    automation::Value RootFolder() const;
    automation::Value Fields(const automation::Arguments& arguments) const;
    const char* Application() const { return cdoApplication; }
    automation::Value SessionMember() const { return session_; }
    int32_t Class() const { return static_cast<int32_t>(CdoClass::InfoStore); }

  private:
    CdoSessionRef session_;
    std::shared_ptr<Store> store_;
};

}  // namespace localstores
