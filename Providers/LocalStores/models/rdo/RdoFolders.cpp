// RdoFolders: the members of the collection.
#include "models/rdo/RdoFolders.h"

#include <algorithm>

#include "models/rdo/MapiProperties.h"
#include "models/rdo/MapiTable.h"
#include "models/rdo/RdoArguments.h"
#include "models/rdo/RdoCollection.h"
#include "models/rdo/RdoFolder.h"
#include "models/rdo/RdoMember.h"

namespace localstores {

using automation::Arguments;
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

std::unique_ptr<automation::Enumerator> RdoFolders::NewEnum() {
    const Folder& parent = parent_;
    return std::make_unique<PositionEnumerator>(
        parent.children.size(), [session = session_, store = store_, &parent](size_t position) {
            return Value(std::make_shared<RdoFolder>(session, store, *parent.children[position]));
        });
}

Value RdoFolders::Item(const Arguments& arguments) const {
    const auto& children = parent_.children;
    const size_t position = PositionOf(Required(arguments, 0), children.size(),
                                       [&](size_t i) -> const std::string& { return children[i]->name; });
    return std::make_shared<RdoFolder>(session_, store_, *children[position]);
}

Value RdoFolders::MoveTo(int32_t position) {
    position_ = std::clamp(position, 0, Count() + 1);
    if (position_ < 1 || position_ > Count()) return nullptr;
    return std::make_shared<RdoFolder>(session_, store_, *parent_.children[static_cast<size_t>(position_) - 1]);
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
