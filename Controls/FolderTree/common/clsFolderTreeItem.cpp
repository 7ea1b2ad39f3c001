// clsFolderTreeItem: the record of one thing that the user can pick: a folder of a message store, or an address list.
#include "common/clsFolderTreeItem.h"

#include "automation/Text.h"
#include "common/FolderKey.h"

namespace foldertree {

namespace {

using automation::Arguments;
using automation::Value;
using Item = clsFolderTreeItem;

constexpr automation::MemberEntry<Item> members[] = {
    {"Incomplete", [](Item& item, const Arguments&) -> Value { return item.Incomplete(); }},
    {"IsAddressList", [](Item& item, const Arguments&) -> Value { return item.IsAddressList(); }},
    {"Key", [](Item& item, const Arguments&) -> Value { return item.Key(); }},
    {"Selected", [](Item& item, const Arguments&) -> Value { return item.Selected(); }},
    {"StoreID", [](Item& item, const Arguments&) -> Value { return item.StoreID(); }},
    {"EntryID", [](Item& item, const Arguments&) -> Value { return item.EntryID(); }},
    {"AddressListID", [](Item& item, const Arguments&) -> Value { return item.AddressListID(); }},
    {"EntryIDShort", [](Item& item, const Arguments&) -> Value { return item.EntryIDShort(); }},
    {"Name", [](Item& item, const Arguments&) -> Value { return item.Name(); }},
    {"Path", [](Item& item, const Arguments&) -> Value { return item.Path(); }},
    {"Index", [](Item& item, const Arguments&) -> Value { return item.Index(); },
     [](Item& item, const Value& value) { item.SetIndex(value.ToLong()); }},
    {"ItemType", [](Item& item, const Arguments&) -> Value { return static_cast<int32_t>(item.ItemType()); }},
    {"KeyShortEntryID", [](Item& item, const Arguments&) -> Value { return item.KeyShortEntryID(); }},
    {"KeyAlternate", [](Item& item, const Arguments&) -> Value { return item.KeyAlternate(); }},
    {"FolderRecID", [](Item& item, const Arguments&) -> Value { return item.FolderRecID(); }},
};

}  // namespace

const SharedText clsFolderTreeItem::emptyText = std::make_shared<const std::string>();

std::span<const automation::MemberEntry<Item>> clsFolderTreeItem::Members() {
    return members;
}

std::string clsFolderTreeItem::Key() const {
    if (isAddressList_) return AddressListKey(addressListID_);
    if (StoreID().empty()) return entryID_;
    return FolderKey(StoreID(), entryID_);
}

bool clsFolderTreeItem::HasKey(std::string_view key) const {
    const std::string& store = StoreID();
    // Most keys are spelled the same, and need not be put together to tell.
    const bool same = !isAddressList_ && !store.empty() && key.size() == store.size() + entryID_.size() + 2 &&
                      key.front() == 'S' && key.substr(1, store.size()) == store && key[store.size() + 1] == '|' &&
                      key.ends_with(entryID_);
    return same || automation::EqualNoCase(Key(), key);
}

std::string clsFolderTreeItem::KeyShortEntryID() const {
    if (isAddressList_) return AddressListKey(addressListID_);
    return FolderKey(StoreID(), entryIDShort_);
}

std::string clsFolderTreeItem::KeyAlternate() const {
    if (isAddressList_) return AddressListKey(addressListID_);
    const std::string_view rest = std::string_view(entryID_).substr(automation::OffsetOfCharacter(entryID_, 2));
    return FolderKey(StoreID(), entryID_.starts_with("EF") ? "00" : "EF", rest);
}

void clsFolderTreeItem::SetEntryIDShort(const std::string&) {}

}  // namespace foldertree
