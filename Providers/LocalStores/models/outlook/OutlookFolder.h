// OutlookFolder: one folder of a store; a store's top folder stands for the store.
#pragma once

#include "models/outlook/OutlookApplication.h"

namespace localstores {

FolderInStore TopFolder(const std::shared_ptr<Store>& store);
/// A top folder has the name of its store.
const std::string& ShownName(const FolderInStore& folder);

/// Members: `Name` (default), `EntryID`, `StoreID`, `FolderPath`, `DefaultItemType`, `DefaultMessageClass`, `Folders`,
/// `Parent` (of a top folder the namespace), `Application`, `Session`, `Class`.
class OutlookFolder : public automation::TabledObject<OutlookFolder> {
  public:
    OutlookFolder(OutlookApplicationRef application, FolderInStore folder)
        : application_(std::move(application)), folder_(std::move(folder)) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<OutlookFolder>> Members();

    const std::string& Name() const { return ShownName(folder_); }
    void SetName(const automation::Value& value);
    std::string EntryId() const { return Hex(folder_.folder->id); }
    std::string StoreId() const { return Hex(folder_.store->Id()); }
    std::string FolderPath() const;
    int32_t DefaultItemType() const;
    std::string DefaultMessageClass() const;
    automation::Value Folders() const;
    automation::Value Parent() const;
    automation::Value Application() const { return application_; }
    automation::Value SessionMember() const { return application_->SessionMember(); }
    int32_t Class() const { return static_cast<int32_t>(OutlookClass::Folder); }

  private:
    OutlookApplicationRef application_;
    FolderInStore folder_;
};

}  // namespace localstores
