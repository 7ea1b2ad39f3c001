// CdoAddressLists: the members of the collection and of a list.
#include "models/cdo/CdoAddressLists.h"

#include <algorithm>

#include "models/cdo/CdoErrors.h"
#include "models/common/MemberFunctions.h"

namespace localstores {

using automation::Value;

CdoAddressLists::CdoAddressLists(CdoSessionRef session)
    : session_(std::move(session)), lists_(session_->Stores().AllAddressLists()) {
    std::erase_if(lists_, [](const AddressListRef& list) { return !list->hasEntries; });
}

std::span<const automation::MemberEntry<CdoAddressLists>> CdoAddressLists::Members() {
    using Self = CdoAddressLists;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Item", Handler<&Self::Item>, nullptr, 1, "Index"}, {"Count", Handler<&Self::Count>},
        {"Application", Handler<&Self::Application>},        {"Parent", Handler<&Self::SessionMember>},
        {"Session", Handler<&Self::SessionMember>},          {"Class", Handler<&Self::Class>},
    };
    return members;
}

Value CdoAddressLists::WithRole(AddressListRole role) const {
    const auto found = std::find_if(lists_.begin(), lists_.end(), [&](const auto& list) { return list->role == role; });
    if (found == lists_.end()) throw CdoNotFound();
    return ItemAt(static_cast<size_t>(found - lists_.begin()));
}

Value CdoAddressLists::ItemAt(size_t position) const {
    return std::make_shared<CdoAddressList>(session_, lists_[position], static_cast<int32_t>(position) + 1);
}

std::span<const automation::MemberEntry<CdoAddressList>> CdoAddressList::Members() {
    using Self = CdoAddressList;
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
