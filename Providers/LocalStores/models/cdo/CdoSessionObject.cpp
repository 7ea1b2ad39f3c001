// CdoSessionObject: the members of the session.
#include "models/cdo/CdoSessionObject.h"

#include "localstores/CdoSession.h"
#include "models/cdo/CdoAddressLists.h"
#include "models/cdo/CdoErrors.h"
#include "models/cdo/CdoFolder.h"
#include "models/cdo/CdoInfoStores.h"
#include "models/common/CallArguments.h"
#include "models/common/MemberFunctions.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

namespace {

/// A CDO session has numbers of its own for the default folders.
constexpr DefaultFolder defaultFolders[] = {
    DefaultFolder::Calendar, DefaultFolder::Inbox,        DefaultFolder::Outbox,
    DefaultFolder::SentMail, DefaultFolder::DeletedItems, DefaultFolder::Contacts,
    DefaultFolder::Journal,  DefaultFolder::Notes,        DefaultFolder::Tasks};

constexpr AddressListRole addressListRoles[] = {AddressListRole::Global, AddressListRole::Personal};

template <class Meaning, size_t n>
Meaning MeaningOf(const Value& number, const Meaning (&meanings)[n]) {
    const int32_t index = number.ToLong();
    if (index < 0 || static_cast<size_t>(index) >= n) throw CdoNotFound();
    return meanings[index];
}

}  // namespace

automation::ObjectRef MakeCdoSession() {
    return std::make_shared<CdoSessionObject>();
}

std::span<const automation::MemberEntry<CdoSessionObject>> CdoSessionObject::Members() {
    using Self = CdoSessionObject;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Name", Handler<&Self::Name>},
        {"Version", Handler<&Self::Version>},
        {"Application", Handler<&Self::Application>},
        {"Parent", Handler<&Self::Parent>},
        {"Session", Handler<&Self::SessionMember>},
        {"Class", Handler<&Self::Class>},
        {"Open", Handler<&Self::Open>, nullptr, 1, "Path"},
        {"Logon", Handler<&Self::Logon>, nullptr, 7,
         "ProfileName ProfilePassword ShowDialog NewSession ParentWindow NoMail ProfileInfo"},
        {"Logoff", Handler<&Self::Logoff>},
        {"SetLocaleIDs", Handler<&Self::SetLocaleIds>, nullptr, 2, "LocaleID CodePageID"},
        {"CompareIDs", Handler<&Self::CompareIds>, nullptr, 2, "ID1 ID2"},
        {"InfoStores", Handler<&Self::InfoStores>, nullptr, 1, "Index"},
        {"GetInfoStore", Handler<&Self::GetInfoStore>, nullptr, 1, "StoreID"},
        {"GetFolder", Handler<&Self::GetFolder>, nullptr, 2, "FolderID StoreID"},
        {"Inbox", Handler<&Self::Inbox>},
        {"Outbox", Handler<&Self::Outbox>},
        {"GetDefaultFolder", Handler<&Self::GetDefaultFolder>, nullptr, 2, "ObjectType UserAddress"},
        {"AddressLists", Handler<&Self::AddressLists>, nullptr, 1, "Index"},
        {"GetAddressList", Handler<&Self::GetAddressList>, nullptr, 1, "ObjectType"},
    };
    return members;
}

CdoSessionRef CdoSessionObject::Self() {
    return std::static_pointer_cast<CdoSessionObject>(shared_from_this());
}

const Session& CdoSessionObject::Stores() {
    if (!loggedOn_) throw CdoNotInitialized();
    return session_.Get();
}

Value CdoSessionObject::Open(const Arguments& arguments) {
    const auto store = session_.Open(Required(arguments, 0).ToText());
    return std::make_shared<CdoInfoStore>(Self(), store);
}

// Local mail asks for no name and no password.
void CdoSessionObject::Logon(const Arguments& arguments) {
    constexpr size_t newSession = 3;
    const bool shared = arguments.Has(newSession) && !arguments[newSession].ToBoolean();
    if (!shared) session_.StandAlone();
    loggedOn_ = true;
}

void CdoSessionObject::Logoff() {
    session_ = {};
    loggedOn_ = false;
}

bool CdoSessionObject::CompareIds(const Arguments& arguments) const {
    return LongForm(IdOf(Required(arguments, 0))) == LongForm(IdOf(Required(arguments, 1)));
}

Value CdoSessionObject::InfoStores(const Arguments& arguments) {
    return WholeOrItem(std::make_shared<CdoInfoStores>(Self()), arguments);
}

std::shared_ptr<Store> CdoSessionObject::StoreOf(const Arguments& arguments, size_t index) {
    const bool isDefault = !arguments.Has(index) || arguments[index].ToText().empty();
    auto store = isDefault ? Stores().DefaultStore() : Stores().Find(IdOf(arguments[index]));
    if (!store) throw CdoNotFound();
    return store;
}

Value CdoSessionObject::GetInfoStore(const Arguments& arguments) {
    return std::make_shared<CdoInfoStore>(Self(), StoreOf(arguments, 0));
}

Value CdoSessionObject::GetFolder(const Arguments& arguments) {
    const auto store = StoreOf(arguments, 1);
    return Made({store, store->Find(IdOf(Required(arguments, 0)))});
}

Value CdoSessionObject::Default(DefaultFolder which) {
    return Made(Stores().Default(which));
}

Value CdoSessionObject::GetDefaultFolder(const Arguments& arguments) {
    return Default(MeaningOf(Required(arguments, 0), defaultFolders));
}

Value CdoSessionObject::AddressLists(const Arguments& arguments) {
    return WholeOrItem(std::make_shared<CdoAddressLists>(Self()), arguments);
}

Value CdoSessionObject::GetAddressList(const Arguments& arguments) {
    const auto role = MeaningOf(Required(arguments, 0), addressListRoles);
    return CdoAddressLists(Self()).WithRole(role);
}

Value CdoSessionObject::Made(const FolderInStore& found) {
    if (found.folder == nullptr) throw CdoNotFound();
    return std::make_shared<CdoFolder>(Self(), found);
}

}  // namespace localstores
