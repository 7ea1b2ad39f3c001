// RdoFolders: the collection of a folder's children.
#pragma once

#include "models/common/NamedItems.h"
#include "models/rdo/RdoSessionObject.h"

namespace localstores {

/// Members: `Count`, `Item(Index)` (1-based position or name), `_Item` (default), `_NewEnum`, `GetFirst`, `GetLast`,
/// `GetNext`, `GetPrevious` (Nothing beyond the ends), `MAPITable` (a new table at each use), `Session`.
class RdoFolders : public automation::TabledObject<RdoFolders>, public NamedItems {
  public:
    /// `parent` belongs to `store`.
    RdoFolders(RdoSessionRef session, std::shared_ptr<Store> store, const Folder& parent)
        : session_(std::move(session)), store_(std::move(store)), parent_(parent) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<RdoFolders>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override { return Walk(shared_from_this()); }

    size_t Size() const override { return parent_.children.size(); }
    const std::string& NameAt(size_t position) const override { return parent_.children[position]->name; }
    automation::Value ItemAt(size_t position) const override;
    automation::Value Table() const;
    automation::Value SessionMember() const { return session_; }

  private:
    RdoSessionRef session_;
    std::shared_ptr<Store> store_;
    const Folder& parent_;
};

}  // namespace localstores
