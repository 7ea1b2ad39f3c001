// RdoFolders: the members of the collection.
#include "models/rdo/RdoFolders.h"

#include "models/common/MapiProperties.h"
#include "models/common/MemberFunctions.h"
#include "models/rdo/MapiTable.h"
#include "models/rdo/RdoFolder.h"

namespace localstores {

using automation::Value;

std::span<const automation::MemberEntry<RdoFolders>> RdoFolders::Members() {
    using Self = RdoFolders;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"_Item", Handler<&Self::Item>, nullptr, 1, "Index"},
        {"Count", Handler<&Self::Count>},
        {"GetFirst", Handler<&Self::GetFirst>},
        {"GetLast", Handler<&Self::GetLast>},
        {"GetNext", Handler<&Self::GetNext>},
        {"GetPrevious", Handler<&Self::GetPrevious>},
        {"Item", Handler<&Self::Item>, nullptr, 1, "Index"},
        {"MAPITable", Handler<&Self::Table>},
        {"Session", Handler<&Self::SessionMember>},
    };
    return members;
}

Value RdoFolders::ItemAt(size_t position) const {
    return std::make_shared<RdoFolder>(session_, store_, *parent_.children[position]);
}

Value RdoFolders::Table() const {
    std::vector<MapiTable::Row> rows;
    rows.reserve(parent_.children.size());
    for (const auto& child : parent_.children)
        rows.emplace_back([store = store_, folder = child.get()](uint32_t tag) {
            return FolderProperty(*store, *folder, tag, IdForm::Short);
        });
    return std::make_shared<MapiTable>(std::move(rows), store_->HowItAnswers());
}

}  // namespace localstores
