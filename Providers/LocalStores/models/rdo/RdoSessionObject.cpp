// RdoSessionObject: the members of the session.
#include "models/rdo/RdoSessionObject.h"

#include "localstores/RdoSession.h"
#include "models/rdo/MapiErrors.h"
#include "models/rdo/RdoAddressBook.h"
#include "models/rdo/RdoArguments.h"
#include "models/rdo/RdoFolder.h"
#include "models/rdo/RdoMember.h"
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
    const auto store = session_.Open(Required(arguments, 0).ToText());
    loggedOn_ = true;
    return std::make_shared<RdoStore>(Self(), store);
}

Value RdoSessionObject::StoresMember() {
    return std::make_shared<RdoStores>(Self());
}

Value RdoSessionObject::AddressBook() {
    return std::make_shared<RdoAddressBook>();
}

Value RdoSessionObject::GetDefaultFolder(const Arguments& arguments) {
    const auto store = session_.DefaultStore();
    if (!store) throw NotFound();
    return RdoStore(Self(), store).GetDefaultFolder(arguments);
}

Value RdoSessionObject::GetFolderFromId(const Arguments& arguments) {
    const EntryId id = IdOf(Required(arguments, 0));
    const bool anyStore = !arguments.Has(1) || arguments[1].IsEmpty() || arguments[1].ToText().empty();
    const std::shared_ptr<Store> wanted = anyStore ? nullptr : session_.Find(IdOf(arguments[1]));
    if (!anyStore && !wanted) throw NotFound();
    for (const auto& store : session_.Stores()) {
        if (wanted && store != wanted) continue;
        if (const Folder* folder = store->Find(id)) return std::make_shared<RdoFolder>(Self(), store, *folder);
    }
    throw NotFound();
}

Value RdoSessionObject::GetStoreFromId(const Arguments& arguments) {
    const auto store = session_.Find(IdOf(Required(arguments, 0)));
    if (!store) throw NotFound();
    return std::make_shared<RdoStore>(Self(), store);
}

Value RdoSessionObject::GetAddressListFromId(const Arguments& arguments) {
    IdOf(Required(arguments, 0));
    throw NotFound();
}

bool RdoSessionObject::CompareEntryIds(const Arguments& arguments) const {
    return LongForm(IdOf(Required(arguments, 0))) == LongForm(IdOf(Required(arguments, 1)));
}

// Local mail asks for no name and no password.
void RdoSessionObject::Logon(const Arguments&) {
    loggedOn_ = true;
}

void RdoSessionObject::Logoff() {
    session_.Close();
    loggedOn_ = false;
}

void RdoSessionObject::SetMapiObject(const Value&) {
    throw NoSupport();
}

}  // namespace localstores
