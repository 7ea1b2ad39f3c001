// RdoAddressBook: the members of the address book.
#include "models/rdo/RdoAddressBook.h"

#include "models/common/CallArguments.h"
#include "models/common/MapiErrors.h"
#include "models/common/MemberFunctions.h"
#include "models/rdo/RdoAddressLists.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

std::span<const automation::MemberEntry<RdoAddressBook>> RdoAddressBook::Members() {
    using Self = RdoAddressBook;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"AddressLists", Handler<&Self::AddressLists>, nullptr, 1, "ShallowTraversal"},
        {"DefaultAddressList", Handler<&Self::GlobalList>},
        {"PAB", Handler<&Self::PersonalList>},
        {"GAL", Handler<&Self::GlobalList>},
        {"GetAddressListFromID", Handler<&Self::GetAddressListFromId>, nullptr, 2, "EntryID Flags"},
        {"Session", Handler<&Self::SessionMember>},
    };
    return members;
}

Value RdoAddressBook::AddressLists(const Arguments& arguments) const {
    const bool shallow = !arguments.Has(0) || arguments[0].ToBoolean();
    const Session& session = session_->Stores();
    return std::make_shared<RdoAddressLists>(session_, shallow ? session.AddressLists() : session.AllAddressLists());
}

Value RdoAddressBook::GlobalList() const {
    return Made(session_->Stores().FindAddressList(AddressListRole::Global));
}

Value RdoAddressBook::PersonalList() const {
    return Made(session_->Stores().FindAddressList(AddressListRole::Personal));
}

Value RdoAddressBook::GetAddressListFromId(const Arguments& arguments) const {
    return Made(session_->Stores().FindAddressList(IdOf(Required(arguments, 0))));
}

Value RdoAddressBook::Made(const AddressListRef& list) const {
    if (!list) throw NotFound();
    return std::make_shared<RdoAddressList>(session_, list);
}

}  // namespace localstores
