// OutlookAddressLists: the members of the collection and of a list.
#include "models/outlook/OutlookAddressLists.h"

#include "models/common/MemberFunctions.h"

namespace localstores {

using automation::Value;

std::span<const automation::MemberEntry<OutlookAddressLists>> OutlookAddressLists::Members() {
    using Self = OutlookAddressLists;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Item", Handler<&Self::Item>, nullptr, 1, "Index"},
        {"Count", Handler<&Self::Count>},
        {"Application", Handler<&Self::Application>},
        {"Session", Handler<&Self::SessionMember>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

Value OutlookAddressLists::ItemAt(size_t position) const {
    return std::make_shared<OutlookAddressList>(application_, lists_[position], static_cast<int32_t>(position) + 1);
}

std::span<const automation::MemberEntry<OutlookAddressList>> OutlookAddressList::Members() {
    using Self = OutlookAddressList;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Name", Handler<&Self::Name>},
        {"ID", Handler<&Self::Id>},
        {"Index", Handler<&Self::Index>},
        {"IsReadOnly", Handler<&Self::IsReadOnly>},
        {"Application", Handler<&Self::Application>},
        {"Session", Handler<&Self::SessionMember>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

}  // namespace localstores
