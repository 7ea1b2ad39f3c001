// OutlookNamespace: the members of the namespace.
#include "models/outlook/OutlookNamespace.h"

#include "models/common/CallArguments.h"
#include "models/common/MapiErrors.h"
#include "models/common/MemberFunctions.h"
#include "models/outlook/OutlookAddressLists.h"
#include "models/outlook/OutlookFolder.h"
#include "models/outlook/OutlookFolders.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

std::span<const automation::MemberEntry<OutlookNamespace>> OutlookNamespace::Members() {
    using Self = OutlookNamespace;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Folders", Handler<&Self::Folders>},
        {"GetFolderFromID", Handler<&Self::GetFolderFromId>, nullptr, 2, "EntryIDFolder EntryIDStore"},
        {"GetDefaultFolder", Handler<&Self::GetDefaultFolder>, nullptr, 1, "FolderType"},
        {"AddressLists", Handler<&Self::AddressLists>},
        {"Logon", Handler<&Self::Logon>, nullptr, 4, "Profile Password ShowDialog NewSession"},
        {"Logoff", Handler<&Self::Logoff>},
        {"Type", Handler<&Self::Type>},
        {"Application", Handler<&Self::Application>},
        {"Session", Handler<&Self::SessionMember>},
        {"Parent", Handler<&Self::Application>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

Value OutlookNamespace::Folders() {
    std::vector<FolderInStore> tops;
    for (const auto& store : application_->Stores().Stores()) tops.push_back(TopFolder(store));
    return std::make_shared<OutlookFolders>(application_, std::move(tops));
}

Value OutlookNamespace::GetFolderFromId(const Arguments& arguments) {
    return Made(FindFolder(application_->Stores(), arguments));
}

Value OutlookNamespace::GetDefaultFolder(const Arguments& arguments) {
    return Made(application_->Stores().Default(static_cast<DefaultFolder>(Required(arguments, 0).ToLong())));
}

Value OutlookNamespace::AddressLists() {
    return std::make_shared<OutlookAddressLists>(application_);
}

Value OutlookNamespace::Made(const FolderInStore& found) const {
    if (found.folder == nullptr) throw NotFound();
    return std::make_shared<OutlookFolder>(application_, found);
}

}  // namespace localstores
