// RdoFolder: one folder of a store.
#pragma once

#include "automation/TabledObject.h"
#include "models/rdo/RdoSessionObject.h"

namespace localstores {

/// Members: `Name` (default), `EntryID` (the long form), `StoreID`, `Store`, `Parent` (Nothing for the root),
/// `Folders`, `FolderKind` (0 root, 1 generic, 2 search), `DefaultItemType`, `DefaultMessageClass`, `Fields(PropTag)`
/// (Empty when the folder has no such property), `Session`.
class RdoFolder : public automation::TabledObject<RdoFolder> {
  public:
    /// `folder` belongs to `store`.
    RdoFolder(RdoSessionRef session, std::shared_ptr<Store> store, const Folder& folder)
        : session_(std::move(session)), store_(std::move(store)), folder_(folder) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<RdoFolder>> Members();

    const std::string& Name() const { return folder_.name; }
    void SetName(const automation::Value& value);
    std::string EntryId() const { return Hex(folder_.id); }
    std::string StoreId() const { return Hex(store_->Id()); }
    automation::Value StoreMember() const;
    automation::Value Parent() const;
    automation::Value Folders() const;
    int32_t FolderKind() const { return static_cast<int32_t>(folder_.type); }
    int32_t DefaultItemType() const;
    std::string DefaultMessageClass() const;
    automation::Value Fields(const automation::Arguments& arguments) const;
    automation::Value SessionMember() const { return session_; }

  private:
    RdoSessionRef session_;
    std::shared_ptr<Store> store_;
    const Folder& folder_;
};

}  // namespace localstores
