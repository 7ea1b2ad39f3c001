// RdoSessionObject: the session itself, from which all other objects are reached.
#pragma once

#include <memory>

#include "automation/TabledObject.h"
#include "model/Session.h"

namespace localstores {

/// Members: `Open(Path)` (our own), `Stores`, `GetDefaultFolder(FolderType)`, `GetFolderFromID(EntryIDFolder,
/// EntryIDStore?, Flags?)`, `GetStoreFromID(EntryIDStore, Flags?)`, `CompareEntryIDs`, `AddressBook`,
/// `GetAddressListFromID`, `Logon`, `Logoff`, `LoggedOn`, `ProfileName`, `MAPIOBJECT`.
class RdoSessionObject : public automation::TabledObject<RdoSessionObject> {
  public:
    static std::span<const automation::MemberEntry<RdoSessionObject>> Members();

    Session& Stores() { return *session_; }

    automation::Value Open(const automation::Arguments& arguments);
    automation::Value StoresMember();
    automation::Value AddressBook();
    automation::Value GetDefaultFolder(const automation::Arguments& arguments);
    automation::Value GetFolderFromId(const automation::Arguments& arguments);
    automation::Value GetStoreFromId(const automation::Arguments& arguments);
    automation::Value GetAddressListFromId(const automation::Arguments& arguments);
    bool CompareEntryIds(const automation::Arguments& arguments) const;
    void Logon(const automation::Arguments& arguments);
    void Logoff();
    bool LoggedOn() const { return loggedOn_; }
    const char* ProfileName() const { return "Local stores"; }
    automation::Value MapiObject() const { return nullptr; }
    void SetMapiObject(const automation::Value& value);

  private:
    std::shared_ptr<RdoSessionObject> Self();
    /// Throws MAPI_E_NOT_FOUND when nothing was found.
    automation::Value Made(const FolderInStore& found);

    std::shared_ptr<Session> session_ = std::make_shared<Session>();
    bool loggedOn_ = false;
};

using RdoSessionRef = std::shared_ptr<RdoSessionObject>;

}  // namespace localstores
