// CdoFolders: the members of the collection.
#include "models/cdo/CdoFolders.h"

#include <limits>

#include "models/cdo/CdoErrors.h"
#include "models/cdo/CdoFolder.h"
#include "models/common/CallArguments.h"
#include "models/common/MemberFunctions.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

std::span<const automation::MemberEntry<CdoFolders>> CdoFolders::Members() {
    using Self = CdoFolders;
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

int32_t CdoFolders::Count() const {
    return store_->HowItAnswers().countsFolders ? NamedItems::Count() : std::numeric_limits<int32_t>::max();
}

Value CdoFolders::Item(const Arguments& arguments) {
    const Value& index = Required(arguments, 0);
    if (index.IsText()) return CdoItems::Item(arguments);
    if (index.ToLong() < lastIndex_) throw CdoNotFound();
    Value item = CdoItems::Item(arguments);
    lastIndex_ = index.ToLong();
    return item;
}

Value CdoFolders::GetFirst() {
    lastIndex_ = 0;
    return NamedItems::GetFirst();
}

Value CdoFolders::ItemAt(size_t position) const {
    return std::make_shared<CdoFolder>(session_, FolderInStore{store_, parent_.children[position].get()});
}

}  // namespace localstores
