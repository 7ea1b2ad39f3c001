// CdoFolder: the members of a folder.
#include "models/cdo/CdoFolder.h"

#include "models/cdo/CdoFields.h"
#include "models/cdo/CdoFolders.h"
#include "models/cdo/CdoInfoStores.h"
#include "models/common/MapiErrors.h"
#include "models/common/MapiProperties.h"
#include "models/common/MemberFunctions.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

std::span<const automation::MemberEntry<CdoFolder>> CdoFolder::Members() {
    using Self = CdoFolder;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Name", Handler<&Self::Name>, Setter<&Self::SetName>},
        {"ID", Handler<&Self::Id>},
        {"StoreID", Handler<&Self::StoreId>},
        {"FolderID", Handler<&Self::FolderId>},
        {"Folders", Handler<&Self::Folders>, nullptr, 1, "Index"},
        {"Fields", Handler<&Self::Fields>, nullptr, 1, "Index"},
        {"Parent", Handler<&Self::Parent>},
        {"Application", Handler<&Self::Application>},
        {"Session", Handler<&Self::SessionMember>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

void CdoFolder::SetName(const Value&) {
    throw ReadOnly();
}

Value CdoFolder::Folders(const Arguments& arguments) const {
    return WholeOrItem(std::make_shared<CdoFolders>(session_, store_, folder_), arguments);
}

Value CdoFolder::Fields(const Arguments& arguments) const {
    const auto property = [store = store_, &folder = folder_](uint32_t tag) {
        return FolderProperty(*store, folder, tag, IdForm::Long);
    };
    return WholeOrItem(std::make_shared<CdoFields>(session_, property, FolderTags()), arguments);
}

Value CdoFolder::Parent() const {
    if (&folder_ == &store_->IpmRoot() || folder_.parent == nullptr)
        return std::make_shared<CdoInfoStore>(session_, store_);
    return std::make_shared<CdoFolder>(session_, FolderInStore{store_, folder_.parent});
}

}  // namespace localstores
