// RdoStores: the collection of the session's stores.
#pragma once

#include "models/common/NamedItems.h"
#include "models/rdo/RdoSessionObject.h"

namespace localstores {

/// Members: `Count`, `Item(Index)` (1-based position or name), `_Item` (default), `_NewEnum`, `DefaultStore`,
/// `GetStoreFromID`, `MAPITable`, `Session`.
class RdoStores : public automation::TabledObject<RdoStores>, public NamedItems {
  public:
    explicit RdoStores(RdoSessionRef session) : session_(std::move(session)) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<RdoStores>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override { return Walk(shared_from_this()); }

    size_t Size() const override;
    const std::string& NameAt(size_t position) const override;
    automation::Value ItemAt(size_t position) const override;
    automation::Value DefaultStore() const;
    void SetDefaultStore(const automation::Value& value);
    automation::Value GetStoreFromId(const automation::Arguments& arguments) const;
    automation::Value Table() const;
    automation::Value SessionMember() const { return session_; }

  private:
    RdoSessionRef session_;
};

}  // namespace localstores
