// RdoSessionObject: the members of the session.
#include "models/rdo/RdoSessionObject.h"

#include "localstores/RdoSession.h"
#include "models/common/CallArguments.h"
#include "models/common/MapiErrors.h"
#include "models/common/MemberFunctions.h"
#include "models/rdo/RdoAddressBook.h"
#include "models/rdo/RdoFolder.h"
#include "models/rdo/RdoStore.h"
#include "models/rdo/RdoStores.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

automation::ObjectRef MakeRdoSession() {
    return std::make_shared<RdoSessionObject>();
}

std::span<const automation::MemberEntry<RdoSessionObject>> RdoSessionObject::Members() {
    using Self = RdoSessionObject;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Open", Handler<&Self::Open>, nullptr, 1, "Path"},
        {"ProfileName", Handler<&Self::ProfileName>},
        {"LoggedOn", Handler<&Self::LoggedOn>},
        {"MAPIOBJECT", Handler<&Self::MapiObject>, Setter<&Self::SetMapiObject>},
        {"Logon", Handler<&Self::Logon>, nullptr, 6,
         "ProfileName Password ShowDialog NewSession ParentWindowHandle NoMail"},
        {"Stores", Handler<&Self::StoresMember>},
        {"GetDefaultFolder", Handler<&Self::GetDefaultFolder>, nullptr, 1, "FolderType"},
        {"AddressBook", Handler<&Self::AddressBook>},
        {"GetFolderFromID", Handler<&Self::GetFolderFromId>, nullptr, 3, "EntryIDFolder EntryIDStore Flags"},
        {"GetStoreFromID", Handler<&Self::GetStoreFromId>, nullptr, 2, "EntryIDStore Flags"},
        {"CompareEntryIDs", Handler<&Self::CompareEntryIds>, nullptr, 2, "EntryID1 EntryID2"},
        {"GetAddressListFromID", Handler<&Self::GetAddressListFromId>, nullptr, 2, "EntryID Flags"},
        {"Logoff", Handler<&Self::Logoff>},
    };
    return members;
}

RdoSessionRef RdoSessionObject::Self() {
    return std::static_pointer_cast<RdoSessionObject>(shared_from_this());
}

Value RdoSessionObject::Open(const Arguments& arguments) {
    const auto store = session_->Open(Required(arguments, 0).ToText());
    loggedOn_ = true;
    return std::make_shared<RdoStore>(Self(), store);
}

Value RdoSessionObject::StoresMember() {
    return std::make_shared<RdoStores>(Self());
}

Value RdoSessionObject::AddressBook() {
    return std::make_shared<RdoAddressBook>(Self());
}

Value RdoSessionObject::GetDefaultFolder(const Arguments& arguments) {
    return Made(session_->Default(static_cast<DefaultFolder>(Required(arguments, 0).ToLong())));
}

Value RdoSessionObject::GetFolderFromId(const Arguments& arguments) {
    return Made(FindFolder(*session_, arguments));
}

Value RdoSessionObject::Made(const FolderInStore& found) {
    if (found.folder == nullptr) throw NotFound();
    return std::make_shared<RdoFolder>(Self(), found.store, *found.folder);
}

Value RdoSessionObject::GetStoreFromId(const Arguments& arguments) {
    const auto store = session_->Find(IdOf(Required(arguments, 0)));
    if (!store) throw NotFound();
    return std::make_shared<RdoStore>(Self(), store);
}

Value RdoSessionObject::GetAddressListFromId(const Arguments& arguments) {
    return RdoAddressBook(Self()).GetAddressListFromId(arguments);
}

bool RdoSessionObject::CompareEntryIds(const Arguments& arguments) const {
    return LongForm(IdOf(Required(arguments, 0))) == LongForm(IdOf(Required(arguments, 1)));
}

// Local mail asks for no name and no password.
void RdoSessionObject::Logon(const Arguments&) {
    loggedOn_ = true;
}

void RdoSessionObject::Logoff() {
    session_ = std::make_shared<Session>();
    loggedOn_ = false;
}

void RdoSessionObject::SetMapiObject(const Value&) {
    throw NoSupport();
}

}  // namespace localstores
