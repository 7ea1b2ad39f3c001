// RdoAddressLists: the members of the collection and of a list.
#include "models/rdo/RdoAddressLists.h"

#include "models/common/MapiErrors.h"
#include "models/common/MemberFunctions.h"

namespace localstores {

using automation::Value;

std::span<const automation::MemberEntry<RdoAddressLists>> RdoAddressLists::Members() {
    using Self = RdoAddressLists;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"_Item", Handler<&Self::Item>, nullptr, 1, "Index"},
        {"Count", Handler<&Self::Count>},
        {"GetFirst", Handler<&Self::GetFirst>},
        {"GetLast", Handler<&Self::GetLast>},
        {"GetNext", Handler<&Self::GetNext>},
        {"GetPrevious", Handler<&Self::GetPrevious>},
        {"Item", Handler<&Self::Item>, nullptr, 1, "Index"},
        {"Session", Handler<&Self::SessionMember>},
    };
    return members;
}

Value RdoAddressLists::ItemAt(size_t position) const {
    return std::make_shared<RdoAddressList>(session_, lists_[position]);
}

std::span<const automation::MemberEntry<RdoAddressList>> RdoAddressList::Members() {
    using Self = RdoAddressList;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Name", Handler<&Self::Name>},
        {"EntryID", Handler<&Self::EntryId>},
        {"AddressLists", Handler<&Self::AddressLists>},
        {"Default", Handler<&Self::Default>},
        {"IsReadOnly", Handler<&Self::IsReadOnly>},
        {"Session", Handler<&Self::SessionMember>},
    };
    return members;
}

Value RdoAddressList::AddressLists() const {
    if (!list_->answersForLists) throw NoSupport();
    return std::make_shared<RdoAddressLists>(session_, ChildrenOf(list_));
}

}  // namespace localstores
