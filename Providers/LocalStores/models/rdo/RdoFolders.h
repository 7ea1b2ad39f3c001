// RdoFolders: the collection of a folder's children.
#pragma once

#include "automation/TabledObject.h"
#include "models/rdo/RdoSessionObject.h"

namespace localstores {

/// Members: `Count`, `Item(Index)` (1-based position or name), `_Item` (default), `_NewEnum`, `GetFirst`, `GetLast`,
/// `GetNext`, `GetPrevious` (Nothing beyond the ends), `MAPITable` (a new table at each use), `Session`.
class RdoFolders : public automation::TabledObject<RdoFolders> {
  public:
    /// `parent` belongs to `store`.
    RdoFolders(RdoSessionRef session, std::shared_ptr<Store> store, const Folder& parent)
        : session_(std::move(session)), store_(std::move(store)), parent_(parent) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<RdoFolders>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override;

    int32_t Count() const { return static_cast<int32_t>(parent_.children.size()); }
    automation::Value Item(const automation::Arguments& arguments) const;
    automation::Value GetFirst() { return MoveTo(1); }
    automation::Value GetLast() { return MoveTo(Count()); }
    automation::Value GetNext() { return MoveTo(position_ + 1); }
    automation::Value GetPrevious() { return MoveTo(position_ - 1); }
    automation::Value Table() const;
    automation::Value SessionMember() const { return session_; }

  private:
    automation::Value MoveTo(int32_t position);

    RdoSessionRef session_;
    std::shared_ptr<Store> store_;
    const Folder& parent_;
    int32_t position_ = 0;  ///< of the folder that was given last; 0 before the first, Count() + 1 behind the last
};

}  // namespace localstores
