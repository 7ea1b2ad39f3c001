// OutlookNamespace: all stores of an application.
#pragma once

#include "models/outlook/OutlookApplication.h"

namespace localstores {

/// Members: `Folders` (one top folder for each store), `GetFolderFromID(EntryIDFolder, EntryIDStore?)`,
/// `GetDefaultFolder(FolderType)` (of the default store), `AddressLists` (all lists of the address book, also those in
/// lists), `Logon`, `Logoff` (both do nothing), `Type`, `Application`, `Session`, `Parent`, `Class`.
class OutlookNamespace : public automation::TabledObject<OutlookNamespace> {
  public:
    explicit OutlookNamespace(OutlookApplicationRef application) : application_(std::move(application)) {}

    static std::span<const automation::MemberEntry<OutlookNamespace>> Members();

    automation::Value Folders();
    automation::Value GetFolderFromId(const automation::Arguments& arguments);
    automation::Value GetDefaultFolder(const automation::Arguments& arguments);
    automation::Value AddressLists();
    void Logon(const automation::Arguments&) {}
    void Logoff() {}
    const char* Type() const { return "MAPI"; }
    automation::Value Application() const { return application_; }
    automation::Value SessionMember() { return shared_from_this(); }
    int32_t Class() const { return static_cast<int32_t>(OutlookClass::Namespace); }

  private:
    /// Throws MAPI_E_NOT_FOUND when nothing was found.
    automation::Value Made(const FolderInStore& found) const;

    OutlookApplicationRef application_;
};

}  // namespace localstores
