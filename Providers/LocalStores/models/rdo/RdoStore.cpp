// RdoStore: the members of a store.
#include "models/rdo/RdoStore.h"

#include "models/common/CallArguments.h"
#include "models/common/MapiErrors.h"
#include "models/common/MapiProperties.h"
#include "models/common/MemberFunctions.h"
#include "models/rdo/RdoFolder.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

std::span<const automation::MemberEntry<RdoStore>> RdoStore::Members() {
    using Self = RdoStore;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Name", Handler<&Self::Name>, Setter<&Self::SetName>},
        {"EntryID", Handler<&Self::EntryId>},
        {"Default", Handler<&Self::Default>, Setter<&Self::SetDefault>},
        {"StoreKind", Handler<&Self::StoreKind>},
        {"RootFolder", Handler<&Self::RootFolder>},
        {"IPMRootFolder", Handler<&Self::IpmRootFolder>},
        {"GetDefaultFolder", Handler<&Self::GetDefaultFolder>, nullptr, 1, "FolderType"},
        {"GetFolderFromID", Handler<&Self::GetFolderFromId>, nullptr, 2, "EntryID Flags"},
        {"Fields", Handler<&Self::Fields>, nullptr, 1, "PropTag"},
        {"Session", Handler<&Self::SessionMember>},
    };
    return members;
}

void RdoStore::SetName(const Value&) {
    throw ReadOnly();
}

void RdoStore::SetDefault(const Value& value) {
    // A profile always has a default store: the flag can be moved, not taken away.
    if (value.ToBoolean()) session_->Stores().SetDefault(*store_);
}

Value RdoStore::RootFolder() const {
    return std::make_shared<RdoFolder>(session_, store_, store_->Root());
}

Value RdoStore::IpmRootFolder() const {
    return std::make_shared<RdoFolder>(session_, store_, store_->IpmRoot());
}

Value RdoStore::GetDefaultFolder(const Arguments& arguments) const {
    const int32_t which = Required(arguments, 0).ToLong();
    const Folder* folder = store_->Default(static_cast<DefaultFolder>(which));
    if (folder == nullptr) throw NotFound();
    return std::make_shared<RdoFolder>(session_, store_, *folder);
}

Value RdoStore::GetFolderFromId(const Arguments& arguments) const {
    const Folder* folder = store_->Find(IdOf(Required(arguments, 0)));
    if (folder == nullptr) throw NotFound();
    return std::make_shared<RdoFolder>(session_, store_, *folder);
}

Value RdoStore::Fields(const Arguments& arguments) const {
    return StoreProperty(*store_, TagOf(Required(arguments, 0))).value_or(Value());
}

}  // namespace localstores
