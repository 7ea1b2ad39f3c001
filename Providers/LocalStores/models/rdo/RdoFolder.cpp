// RdoFolder: the members of a folder.
#include "models/rdo/RdoFolder.h"

#include "models/common/CallArguments.h"
#include "models/common/ItemTypes.h"
#include "models/common/MapiErrors.h"
#include "models/common/MapiProperties.h"
#include "models/common/MemberFunctions.h"
#include "models/rdo/RdoFolders.h"
#include "models/rdo/RdoStore.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

std::span<const automation::MemberEntry<RdoFolder>> RdoFolder::Members() {
    using Self = RdoFolder;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Name", Handler<&Self::Name>, Setter<&Self::SetName>},
        {"DefaultMessageClass", Handler<&Self::DefaultMessageClass>},
        {"EntryID", Handler<&Self::EntryId>},
        {"Parent", Handler<&Self::Parent>},
        {"StoreID", Handler<&Self::StoreId>},
        {"Store", Handler<&Self::StoreMember>},
        {"Folders", Handler<&Self::Folders>},
        {"DefaultItemType", Handler<&Self::DefaultItemType>},
        {"FolderKind", Handler<&Self::FolderKind>},
        {"Fields", Handler<&Self::Fields>, nullptr, 1, "PropTag"},
        {"Session", Handler<&Self::SessionMember>},
    };
    return members;
}

void RdoFolder::SetName(const Value&) {
    throw ReadOnly();
}

Value RdoFolder::StoreMember() const {
    return std::make_shared<RdoStore>(session_, store_);
}

Value RdoFolder::Parent() const {
    if (folder_.parent == nullptr) return nullptr;
    return std::make_shared<RdoFolder>(session_, store_, *folder_.parent);
}

Value RdoFolder::Folders() const {
    return std::make_shared<RdoFolders>(session_, store_, folder_);
}

int32_t RdoFolder::DefaultItemType() const {
    return ItemTypeOf(folder_).number;
}

std::string RdoFolder::DefaultMessageClass() const {
    return std::string(ItemTypeOf(folder_).messageClass);
}

Value RdoFolder::Fields(const Arguments& arguments) const {
    return FolderProperty(*store_, folder_, TagOf(Required(arguments, 0)), IdForm::Long).value_or(Value());
}

}  // namespace localstores
