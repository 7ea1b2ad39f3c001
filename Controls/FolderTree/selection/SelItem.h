// SelItem: one item of a selection collection: one of our own, or a stranger that a host put there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "automation/Object.h"
#include "common/clsFolderTreeItem.h"

namespace foldertree {

/// Our own items are read directly; a stranger's members are read by name, each an outside call that may throw. A null
/// SelItem stands for Nothing.
class SelItem {
  public:
    SelItem() = default;
    explicit SelItem(automation::ObjectRef object);
    explicit SelItem(ItemRef item) : SelItem(automation::ObjectRef(std::move(item))) {}
    explicit SelItem(const automation::Value& value) : SelItem(value.RequireObject()) {}
    explicit SelItem(automation::Value&& value) : SelItem(std::move(value).RequireObject()) {}

    explicit operator bool() const { return object_ != nullptr; }
    const automation::ObjectRef& Ref() const { return object_; }

    /// The item itself when it is one of ours, else null. Only our own items can be completed.
    clsFolderTreeItem* Own() const { return own_; }

    std::string Key() const;
    /// Whether the key is that one, without regard to case.
    bool HasKey(std::string_view key) const;
    std::string KeyShortEntryID() const;
    std::string KeyAlternate() const;
    int32_t Index() const;
    void SetIndex(int32_t index) const;
    bool Selected() const;
    /// A stranger's tick is its own affair: it is left as it is.
    void SetSelected(bool selected) const;
    bool Incomplete() const;

  private:
    automation::ObjectRef object_;
    clsFolderTreeItem* own_ = nullptr;
};

}  // namespace foldertree
