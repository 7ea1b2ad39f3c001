// RdoAddressBook: nothing to find.
#include "models/rdo/RdoAddressBook.h"

#include "models/rdo/MapiErrors.h"
#include "models/rdo/RdoArguments.h"
#include "models/rdo/RdoCollection.h"
#include "models/rdo/RdoMember.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

std::span<const automation::MemberEntry<RdoAddressBook>> RdoAddressBook::Members() {
    using Self = RdoAddressBook;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"AddressLists", Handler<&Self::AddressLists>, nullptr, 1, "ShallowTraversal"},
        {"DefaultAddressList", Handler<&Self::MissingList>},
        {"PAB", Handler<&Self::MissingList>},
        {"GAL", Handler<&Self::MissingList>},
        {"GetAddressListFromID", Handler<&Self::MissingList>, nullptr, 2, "EntryID Flags"},
    };
    return members;
}

Value RdoAddressBook::AddressLists(const Arguments&) const {
    return std::make_shared<RdoAddressLists>();
}

Value RdoAddressBook::MissingList(const Arguments&) const {
    throw NotFound();
}

std::span<const automation::MemberEntry<RdoAddressLists>> RdoAddressLists::Members() {
    using Self = RdoAddressLists;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"_Item", Handler<&Self::Item>, nullptr, 1, "Index"},
        {"Count", Handler<&Self::Count>},
        {"GetFirst", Handler<&Self::GetNone>},
        {"GetNext", Handler<&Self::GetNone>},
        {"Item", Handler<&Self::Item>, nullptr, 1, "Index"},
    };
    return members;
}

std::unique_ptr<automation::Enumerator> RdoAddressLists::NewEnum() {
    return std::make_unique<PositionEnumerator>(0, [](size_t) { return Value(); });
}

Value RdoAddressLists::Item(const Arguments& arguments) const {
    static const std::string none;
    PositionOf(Required(arguments, 0), 0, [](size_t) -> const std::string& { return none; });
    throw NotFound();
}

}  // namespace localstores
