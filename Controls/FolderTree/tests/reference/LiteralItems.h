// LiteralItems: the record of a pick and a keyed collection of such, written out plainly.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "automation/Object.h"

namespace foldertree::reference {

class LiteralItem : public automation::Object {
  public:
    std::string storeID, entryID, entryIDShort, addressListID, name, path;
    bool isAddressList = false;
    bool incomplete = false;
    bool selected = false;
    int32_t index = 0;
    int32_t itemType = 0;
    int32_t folderRecID = 0;

    std::string Key() const;
    std::string KeyShortEntryID() const;
    std::string KeyAlternate() const;
    /// Keeps its own value, whatever is passed.
    void SetEntryIDShort(const std::string&) {}

    automation::Value Invoke(const automation::Invocation& call) override;
    bool HasMember(std::string_view) const override { return true; }
};

/// A keyed collection as hosts know it: a list that is searched from its front.
class LiteralCollection : public automation::Object {
  public:
    struct Entry {
        automation::ObjectRef item;
        std::string key;  ///< empty for none
    };

    explicit LiteralCollection(bool offersEnumeration = true) : offersEnumeration_(offersEnumeration) {}

    int32_t Count() const { return static_cast<int32_t>(entries.size()); }
    /// `before` is a position from 1; 0 adds at the end. Throws 457 for a key that is taken, 9 for no such position.
    void Add(const automation::ObjectRef& item, const std::string& key, int32_t before = 0);
    void Remove(int32_t position);  ///< from 1; throws 9
    const automation::ObjectRef& Item(int32_t position) const;
    const automation::ObjectRef& Item(const std::string& key) const;  ///< throws 5

    automation::Value Invoke(const automation::Invocation& call) override;
    std::unique_ptr<automation::Enumerator> NewEnum() override;
    bool HasMember(std::string_view) const override { return true; }

    std::vector<Entry> entries;

  private:
    bool offersEnumeration_;
};

/// What a host put into its collection although the control did not make it: it has the members of an item, but the
/// control cannot complete it.
class ForeignItem : public automation::Object {
  public:
    std::string key;
    std::string alternateKey;
    int32_t index = 0;
    bool selected = true;
    bool tellsTexts = false;  ///< its number and flag are texts

    automation::Value Invoke(const automation::Invocation& call) override;
    bool HasMember(std::string_view) const override { return true; }
};

}  // namespace foldertree::reference
