// CdoFolders: the collection of a folder's children.
#pragma once

#include "models/cdo/CdoSessionObject.h"

namespace localstores {

/// A large collection: it may be unable to count its items, and then `Count` is 0x7FFFFFFF. `Item` by position goes
/// forward only, until `GetFirst` starts afresh: an item before the last one it gave is MAPI_E_NOT_FOUND. Members:
/// `Item(Index)` (default; 1-based position or name), `Count`, `_NewEnum`, `GetFirst`, `GetLast`, `GetNext`,
/// `GetPrevious` (Nothing beyond the ends), `Application`, `Session`, `Class`.
class CdoFolders : public automation::TabledObject<CdoFolders>, public CdoItems {
  public:
    /// `parent` belongs to `store`.
    CdoFolders(CdoSessionRef session, std::shared_ptr<Store> store, const Folder& parent)
        : session_(std::move(session)), store_(std::move(store)), parent_(parent) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<CdoFolders>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override { return Walk(shared_from_this()); }

    int32_t Count() const override;
    automation::Value Item(const automation::Arguments& arguments) override;
    automation::Value GetFirst();
    size_t Size() const override { return parent_.children.size(); }
    const std::string& NameAt(size_t position) const override { return parent_.children[position]->name; }
    automation::Value ItemAt(size_t position) const override;
    const char* Application() const { return cdoApplication; }
    automation::Value SessionMember() const { return session_; }
    int32_t Class() const { return static_cast<int32_t>(CdoClass::Folders); }

  private:
    CdoSessionRef session_;
    std::shared_ptr<Store> store_;
    const Folder& parent_;
    int32_t lastIndex_ = 0;  ///< by which Item gave an item last
};

}  // namespace localstores
