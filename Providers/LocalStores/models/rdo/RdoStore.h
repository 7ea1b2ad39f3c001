// RdoStore: one store of the session.
#pragma once

#include "automation/TabledObject.h"
#include "models/rdo/RdoSessionObject.h"

namespace localstores {

/// Members: `Name`, `EntryID`, `Default` (can be set: it moves the flag to this store), `StoreKind`, `RootFolder`,
/// `IPMRootFolder`, `GetDefaultFolder(FolderType)`, `GetFolderFromID(EntryID, Flags?)`, `Fields(PropTag)` (Empty when
/// the store has no such property), `Session`.
class RdoStore : public automation::TabledObject<RdoStore> {
  public:
    RdoStore(RdoSessionRef session, std::shared_ptr<Store> store)
        : session_(std::move(session)), store_(std::move(store)) {}

    static std::span<const automation::MemberEntry<RdoStore>> Members();

    const std::string& Name() const { return store_->Name(); }
    void SetName(const automation::Value& value);
    std::string EntryId() const { return Hex(store_->Id()); }
    bool Default() const { return store_->IsDefault(); }
    void SetDefault(const automation::Value& value);
    int32_t StoreKind() const { return static_cast<int32_t>(store_->Kind()); }
    automation::Value RootFolder() const;
    automation::Value IpmRootFolder() const;
    automation::Value GetDefaultFolder(const automation::Arguments& arguments) const;
    automation::Value GetFolderFromId(const automation::Arguments& arguments) const;
    automation::Value Fields(const automation::Arguments& arguments) const;
    automation::Value SessionMember() const { return session_; }

  private:
    RdoSessionRef session_;
    std::shared_ptr<Store> store_;
};

}  // namespace localstores
