// OutlookFolders: a collection of folders.
#pragma once

#include "models/common/NamedItems.h"
#include "models/outlook/OutlookApplication.h"

namespace localstores {

/// Members: `Item(Index)` (default; 1-based position or name), `Count`, `_NewEnum`, `GetFirst`, `GetLast`, `GetNext`,
/// `GetPrevious` (Nothing beyond the ends), `Application`, `Session`, `Class`.
class OutlookFolders : public automation::TabledObject<OutlookFolders>, public NamedItems {
  public:
    OutlookFolders(OutlookApplicationRef application, std::vector<FolderInStore> folders)
        : application_(std::move(application)), folders_(std::move(folders)) {}

    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<OutlookFolders>> Members();
    std::unique_ptr<automation::Enumerator> NewEnum() override { return Walk(shared_from_this()); }

    size_t Size() const override { return folders_.size(); }
    const std::string& NameAt(size_t position) const override;
    automation::Value ItemAt(size_t position) const override;
    automation::Value Application() const { return application_; }
    automation::Value SessionMember() const { return application_->SessionMember(); }
    int32_t Class() const { return static_cast<int32_t>(OutlookClass::Folders); }

  private:
    OutlookApplicationRef application_;
    std::vector<FolderInStore> folders_;
};

}  // namespace localstores
