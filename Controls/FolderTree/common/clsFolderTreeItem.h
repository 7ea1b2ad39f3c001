// clsFolderTreeItem: the record of one thing that the user can pick: a folder of a message store, or an address list.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "automation/TabledObject.h"
#include "common/Enumerations.h"

namespace foldertree {

class clsFolderTreeItem;
using ItemRef = std::shared_ptr<clsFolderTreeItem>;
using SharedText = std::shared_ptr<const std::string>;

/// To hosts (through automation) every member but Index is read-only; the setters are for the component's own code.
/// Identifiers are upper-case hexadecimal text. Texts are UTF-8.
class clsFolderTreeItem final : public automation::TabledObject<clsFolderTreeItem> {
  public:
    static std::span<const automation::MemberEntry<clsFolderTreeItem>> Members();

    bool Incomplete() const { return incomplete_; }
    bool IsAddressList() const { return isAddressList_; }
    bool Selected() const { return selected_; }
    const std::string& StoreID() const { return *storeID_; }
    const std::string& EntryID() const { return entryID_; }
    const std::string& AddressListID() const { return addressListID_; }
    const std::string& EntryIDShort() const { return entryIDShort_; }
    const std::string& Name() const { return name_; }
    const std::string& Path() const { return path_; }
    int32_t Index() const { return index_; }
    enuFTIItemType ItemType() const { return itemType_; }
    int32_t FolderRecID() const { return folderRecID_; }

    // The computed keys; worked out from the fields on every call.
    std::string Key() const;
    /// Whether the key is that one, without regard to case.
    bool HasKey(std::string_view key) const;
    std::string KeyShortEntryID() const;
    /// The key under the other form of the entry identifier: the leading flags byte "EF" becomes "00", any other "EF".
    std::string KeyAlternate() const;

    void SetIndex(int32_t index) { index_ = index; }

    void SetIncomplete(bool incomplete) { incomplete_ = incomplete; }
    void SetIsAddressList(bool isAddressList) { isAddressList_ = isAddressList; }
    void SetSelected(bool selected) { selected_ = selected; }
    void SetStoreID(std::string storeID) { SetStoreID(std::make_shared<const std::string>(std::move(storeID))); }
    /// For many items of one store, whose identifier is by far their longest text. Not null.
    void SetStoreID(SharedText storeID) { storeID_ = std::move(storeID); }
    void SetEntryID(std::string entryID) { entryID_ = std::move(entryID); }
    void SetAddressListID(std::string addressListID) { addressListID_ = std::move(addressListID); }
    /// Keeps the field's own value whatever is passed: an item has no short identifier, and the lookups by short key
    /// rely on that.
    void SetEntryIDShort(const std::string& entryIDShort);
    void SetName(std::string name) { name_ = std::move(name); }
    void SetPath(std::string path) { path_ = std::move(path); }
    void SetItemType(enuFTIItemType itemType) { itemType_ = itemType; }
    void SetFolderRecID(int32_t folderRecID) { folderRecID_ = folderRecID; }

  private:
    static const SharedText emptyText;

    SharedText storeID_ = emptyText;
    std::string entryID_;
    std::string entryIDShort_;
    std::string addressListID_;
    std::string name_;
    std::string path_;
    bool isAddressList_ = false;
    bool incomplete_ = false;
    bool selected_ = false;
    int32_t index_ = 0;
    enuFTIItemType itemType_ = FTIMailItem;
    int32_t folderRecID_ = 0;
};

}  // namespace foldertree
