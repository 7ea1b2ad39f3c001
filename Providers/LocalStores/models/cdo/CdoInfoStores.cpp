// CdoInfoStores: the members of the collection and of a store.
#include "models/cdo/CdoInfoStores.h"

#include <algorithm>

#include "models/cdo/CdoFields.h"
#include "models/cdo/CdoFolder.h"
#include "models/common/MapiProperties.h"
#include "models/common/MemberFunctions.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

CdoInfoStores::CdoInfoStores(CdoSessionRef session)
    : session_(std::move(session)), stores_(session_->Stores().Stores()) {
    std::stable_partition(stores_.begin(), stores_.end(),
                          [](const auto& store) { return store->Kind() == StoreKind::PublicFolders; });
}

std::span<const automation::MemberEntry<CdoInfoStores>> CdoInfoStores::Members() {
    using Self = CdoInfoStores;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Item", Handler<&Self::Item>, nullptr, 1, "Index"}, {"Count", Handler<&Self::Count>},
        {"Application", Handler<&Self::Application>},        {"Parent", Handler<&Self::SessionMember>},
        {"Session", Handler<&Self::SessionMember>},          {"Class", Handler<&Self::Class>},
    };
    return members;
}

Value CdoInfoStores::ItemAt(size_t position) const {
    return std::make_shared<CdoInfoStore>(session_, stores_[position]);
}

std::span<const automation::MemberEntry<CdoInfoStore>> CdoInfoStore::Members() {
    using Self = CdoInfoStore;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Name", Handler<&Self::Name>},
        {"ID", Handler<&Self::Id>},
        {"ProviderName", Handler<&Self::ProviderName>},
        {"RootFolder", Handler<&Self::RootFolder>},
        {"Fields", Handler<&Self::Fields>, nullptr, 1, "Index"},
        {"Application", Handler<&Self::Application>},
        {"Session", Handler<&Self::SessionMember>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

Value CdoInfoStore::RootFolder() const {
    return std::make_shared<CdoFolder>(session_, FolderInStore{store_, &store_->IpmRoot()});
}

Value CdoInfoStore::Fields(const Arguments& arguments) const {
    const auto property = [store = store_](uint32_t tag) { return StoreProperty(*store, tag); };
    return WholeOrItem(std::make_shared<CdoFields>(session_, property, StoreTags()), arguments);
}

}  // namespace localstores
