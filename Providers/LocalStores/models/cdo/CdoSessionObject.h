// CdoSessionObject: the session itself, from which all other objects are reached.
#pragma once

#include <memory>

#include "model/SessionChoice.h"
#include "models/cdo/CdoItems.h"

namespace localstores {

/// Members: `Name` (default), `Version`, `Application`, `Parent` (Nothing), `Session`, `Class`, `Open(Path)` (our own),
/// `Logon(ProfileName?, ProfilePassword?, ShowDialog?, NewSession?, ParentWindow?, NoMail?, ProfileInfo?)`, `Logoff`,
/// `SetLocaleIDs`, `CompareIDs(ID1, ID2)`, and after Logon `InfoStores(Index?)`, `GetInfoStore(StoreID?)` (the default
/// one), `GetFolder(FolderID, StoreID?)` (in the default store), `Inbox`, `Outbox`, `GetDefaultFolder(ObjectType)`,
/// `AddressLists(Index?)`, `GetAddressList(ObjectType)` (0 the global, 1 the personal one).
class CdoSessionObject : public automation::TabledObject<CdoSessionObject> {
  public:
    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<CdoSessionObject>> Members();

    /// Throws MAPI_E_NOT_INITIALIZED before Logon.
    const Session& Stores();

    const char* Name() const { return "Local stores"; }
    const char* Version() const { return "1.21"; }
    const char* Application() const { return cdoApplication; }
    automation::Value Parent() const { return nullptr; }
    automation::Value SessionMember() { return shared_from_this(); }
    int32_t Class() const { return static_cast<int32_t>(CdoClass::Session); }
    automation::Value Open(const automation::Arguments& arguments);
    void Logon(const automation::Arguments& arguments);
    void Logoff();
    void SetLocaleIds(const automation::Arguments&) {}
    bool CompareIds(const automation::Arguments& arguments) const;
    automation::Value InfoStores(const automation::Arguments& arguments);
    automation::Value GetInfoStore(const automation::Arguments& arguments);
    automation::Value GetFolder(const automation::Arguments& arguments);
    automation::Value Inbox() { return Default(DefaultFolder::Inbox); }
    automation::Value Outbox() { return Default(DefaultFolder::Outbox); }
    automation::Value GetDefaultFolder(const automation::Arguments& arguments);
    automation::Value AddressLists(const automation::Arguments& arguments);
    automation::Value GetAddressList(const automation::Arguments& arguments);

  private:
    std::shared_ptr<CdoSessionObject> Self();
    /// The store whose identifier is the argument; the default one when that is left out or empty. Throws
    /// MAPI_E_NOT_FOUND.
    std::shared_ptr<Store> StoreOf(const automation::Arguments& arguments, size_t index);
    /// Throws MAPI_E_NOT_FOUND when nothing was found.
    automation::Value Made(const FolderInStore& found);
    automation::Value Default(DefaultFolder which);

    SessionChoice session_;
    bool loggedOn_ = false;
};

using CdoSessionRef = std::shared_ptr<CdoSessionObject>;

}  // namespace localstores
