// OutlookFolders: the members of the collection.
#include "models/outlook/OutlookFolders.h"

#include "models/common/MemberFunctions.h"
#include "models/outlook/OutlookFolder.h"

namespace localstores {

using automation::Value;

std::span<const automation::MemberEntry<OutlookFolders>> OutlookFolders::Members() {
    using Self = OutlookFolders;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Item", Handler<&Self::Item>, nullptr, 1, "Index"},
        {"Count", Handler<&Self::Count>},
        {"GetFirst", Handler<&Self::GetFirst>},
        {"GetLast", Handler<&Self::GetLast>},
        {"GetNext", Handler<&Self::GetNext>},
        {"GetPrevious", Handler<&Self::GetPrevious>},
        {"Application", Handler<&Self::Application>},
        {"Session", Handler<&Self::SessionMember>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

const std::string& OutlookFolders::NameAt(size_t position) const {
    return ShownName(folders_[position]);
}

Value OutlookFolders::ItemAt(size_t position) const {
    return std::make_shared<OutlookFolder>(application_, folders_[position]);
}

}  // namespace localstores
