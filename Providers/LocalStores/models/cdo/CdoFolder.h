// CdoFolder: one folder of a store.
#pragma once

#include "models/cdo/CdoSessionObject.h"

namespace localstores {

/// Members: `Name` (default), `ID`, `StoreID`, `FolderID` (its parent's identifier, "" at the root), `Folders(Index?)`,
/// `Fields(Index?)`, `Parent` (a folder, or the store for the folder that is the store's `RootFolder`), `Application`,
/// `Session`, `Class`.
class CdoFolder : public automation::TabledObject<CdoFolder> {
  public:
    CdoFolder(CdoSessionRef session, FolderInStore folder)
        : session_(std::move(session)), store_(std::move(folder.store)), folder_(*folder.folder) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<CdoFolder>> Members();

    const std::string& Name() const { return folder_.name; }
    void SetName(const automation::Value& value);
    std::string Id() const { return Hex(folder_.id); }
    std::string StoreId() const { return Hex(store_->Id()); }
    std::string FolderId() const { return folder_.parent ? Hex(folder_.parent->id) : ""; }
    automation::Value Folders(const automation::Arguments& arguments) const;
    automation::Value Fields(const automation::Arguments& arguments) const;
    automation::Value Parent() const;
    const char* Application() const { return cdoApplication; }
    automation::Value SessionMember() const { return session_; }
    int32_t Class() const { return static_cast<int32_t>(CdoClass::Folder); }

  private:
    CdoSessionRef session_;
    std::shared_ptr<Store> store_;
    const localstores::Folder& folder_;
};

}  // namespace localstores
