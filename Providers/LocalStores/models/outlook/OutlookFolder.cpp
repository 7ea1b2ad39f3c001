// OutlookFolder: the members of a folder.
#include "models/outlook/OutlookFolder.h"

#include "models/common/ItemTypes.h"
#include "models/common/MapiErrors.h"
#include "models/common/MemberFunctions.h"
#include "models/outlook/OutlookFolders.h"

namespace localstores {

using automation::Value;

namespace {

bool IsTop(const FolderInStore& folder) {
    return folder.folder == &folder.store->IpmRoot() || folder.folder->parent == nullptr;
}

FolderInStore ParentOf(const FolderInStore& folder) {
    return {folder.store, folder.folder->parent};
}

}  // namespace

FolderInStore TopFolder(const std::shared_ptr<Store>& store) {
    return {store, &store->IpmRoot()};
}

const std::string& ShownName(const FolderInStore& folder) {
    return IsTop(folder) ? folder.store->Name() : folder.folder->name;
}

std::span<const automation::MemberEntry<OutlookFolder>> OutlookFolder::Members() {
    using Self = OutlookFolder;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Name", Handler<&Self::Name>, Setter<&Self::SetName>},
        {"EntryID", Handler<&Self::EntryId>},
        {"StoreID", Handler<&Self::StoreId>},
        {"FolderPath", Handler<&Self::FolderPath>},
        {"DefaultItemType", Handler<&Self::DefaultItemType>},
        {"DefaultMessageClass", Handler<&Self::DefaultMessageClass>},
        {"Folders", Handler<&Self::Folders>},
        {"Parent", Handler<&Self::Parent>},
        {"Application", Handler<&Self::Application>},
        {"Session", Handler<&Self::SessionMember>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

void OutlookFolder::SetName(const Value&) {
    throw ReadOnly();
}

std::string OutlookFolder::FolderPath() const {
    std::string path = "\\" + Name();
    for (FolderInStore each = folder_; !IsTop(each);) {
        each = ParentOf(each);
        path.insert(0, "\\" + ShownName(each));
    }
    return "\\" + path;
}

int32_t OutlookFolder::DefaultItemType() const {
    return ItemTypeOf(*folder_.folder).number;
}

std::string OutlookFolder::DefaultMessageClass() const {
    return std::string(ItemTypeOf(*folder_.folder).messageClass);
}

Value OutlookFolder::Folders() const {
    std::vector<FolderInStore> children;
    // This object model shows searches elsewhere.
    for (const auto& child : folder_.folder->children)
        if (child->type != FolderType::Search) children.push_back({folder_.store, child.get()});
    return std::make_shared<OutlookFolders>(application_, std::move(children));
}

Value OutlookFolder::Parent() const {
    if (IsTop(folder_)) return SessionMember();
    return std::make_shared<OutlookFolder>(application_, ParentOf(folder_));
}

}  // namespace localstores
