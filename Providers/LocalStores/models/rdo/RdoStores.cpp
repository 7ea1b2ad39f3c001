// RdoStores: the members of the collection.
#include "models/rdo/RdoStores.h"

#include "models/common/CallArguments.h"
#include "models/common/MapiErrors.h"
#include "models/common/MapiProperties.h"
#include "models/common/MemberFunctions.h"
#include "models/rdo/MapiTable.h"
#include "models/rdo/RdoStore.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

std::span<const automation::MemberEntry<RdoStores>> RdoStores::Members() {
    using Self = RdoStores;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"_Item", Handler<&Self::Item>, nullptr, 1, "Index"},
        {"Count", Handler<&Self::Count>},
        {"Item", Handler<&Self::Item>, nullptr, 2, "Index OpenFlags"},
        {"DefaultStore", Handler<&Self::DefaultStore>, Setter<&Self::SetDefaultStore>},
        {"GetStoreFromID", Handler<&Self::GetStoreFromId>, nullptr, 2, "EntryIDStore Flags"},
        {"MAPITable", Handler<&Self::Table>},
        {"Session", Handler<&Self::SessionMember>},
    };
    return members;
}

size_t RdoStores::Size() const {
    return session_->Stores().Stores().size();
}

const std::string& RdoStores::NameAt(size_t position) const {
    return session_->Stores().Stores()[position]->Name();
}

Value RdoStores::ItemAt(size_t position) const {
    return std::make_shared<RdoStore>(session_, session_->Stores().Stores()[position]);
}

Value RdoStores::DefaultStore() const {
    const auto store = session_->Stores().DefaultStore();
    if (!store) throw NotFound();
    return std::make_shared<RdoStore>(session_, store);
}

void RdoStores::SetDefaultStore(const Value& value) {
    const EntryId id = IdOf(value.RequireObject()->Get("EntryID"));
    const auto store = session_->Stores().Find(id);
    if (!store) throw NotFound();
    session_->Stores().SetDefault(*store);
}

Value RdoStores::GetStoreFromId(const Arguments& arguments) const {
    return session_->GetStoreFromId(arguments);
}

Value RdoStores::Table() const {
    std::vector<MapiTable::Row> rows;
    for (const auto& store : session_->Stores().Stores())
        rows.emplace_back([store](uint32_t tag) { return StoreProperty(*store, tag); });
    return std::make_shared<MapiTable>(std::move(rows), Manners());
}

}  // namespace localstores
