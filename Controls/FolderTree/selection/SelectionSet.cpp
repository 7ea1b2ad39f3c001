// SelectionSet: what the user has picked: the host's keyed collection, or one item in single-select.
#include "selection/SelectionSet.h"

#include <algorithm>
#include <limits>

#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "selection/CollectionPass.h"

namespace foldertree {

using automation::Collection;

const automation::ObjectRef& SelectionSet::EnsureCollection() {
    if (collection == nullptr) collection = std::make_shared<automation::KeyedCollection>();
    return collection;
}

SelItem SelectionSet::GetSelItemByKey(std::string_view key) {
    const CollectionPass pass(*this);
    SelItem item;
    // No such key and no collection are answers here, not errors.
    auto error = Attempt([&] { item = SelItem(Collection(collection).Item(key)); });
    pass.ThrowIfEnded();
    ThrowIfOutOfMemory(error);
    return item;
}

SelItem SelectionSet::RemoveSelItemByKey(std::string_view key) {
    SelItem removed;
    Guarded(context_, errorLines::removeSelItemByKey, [&] {
        CollectionPass pass(*this);
        if (!pass.HasCollection()) return;
        CollectionPass::Walk walk(pass);
        SelItem item;
        while (!removed && walk.Next(item)) {
            if (!item.HasKey(key)) continue;
            pass.TakeOut({{walk.Position(), item}});
            removed = item;
        }
    });
    return removed;
}

int32_t SelectionSet::GetHighIndex() {
    int32_t high = 0;
    Guarded(context_, errorLines::getHighIndex, [&] {
        const CollectionPass pass(*this);
        if (!pass.HasCollection()) return;
        CollectionPass::Walk walk(pass);
        SelItem item;
        while (walk.Next(item)) high = std::max(high, item.Index());
        pass.ThrowIfEnded();
    });
    return high;
}

int32_t SelectionSet::NextIndex(int32_t high) {
    if (high == std::numeric_limits<int32_t>::max()) throw automation::VbError(automation::errors::overflow);
    return high + 1;
}

const SharedText& SelectionSet::SharedStoreID(std::string_view storeID) {
    if (lastStoreID_ == nullptr || *lastStoreID_ != storeID)
        lastStoreID_ = std::make_shared<const std::string>(storeID);
    return lastStoreID_;
}

ItemRef SelectionSet::CreateSelItemFromRow(int32_t row) {
    ItemRef item = std::make_shared<clsFolderTreeItem>();
    auto error = Attempt([&] {
        const TreeGrid& grid = context_.grid;
        const auto number = [&](int col) { return automation::RoundToLong(grid.CellValue(row, col)); };
        item->SetName(grid.CellText(row, colName));
        item->SetIndex(number(colIndex));
        item->SetStoreID(SharedStoreID(grid.CellView(row, colStoreID)));
        item->SetEntryID(grid.CellText(row, colEntryID));
        item->SetEntryIDShort(grid.CellText(row, colEntryIDShort));
        item->SetAddressListID(grid.CellText(row, colAddressListID));
        item->SetIsAddressList(!item->AddressListID().empty());
        item->SetItemType(static_cast<enuFTIItemType>(number(colItemType)));
        item->SetPath(grid.CellText(row, colPath));
        item->SetSelected(grid.CellValue(row, colSel) != 0);
        item->SetFolderRecID(number(colFolderRecID));
    });
    // A cell that makes no sense costs the cells behind it; without memory there is no item at all.
    ThrowIfOutOfMemory(error);
    if (error) context_.TraceError(errorLines::createSelItemFromRow, *error);
    return item;
}

ItemRef SelectionSet::CreateSelItem(int32_t lFolderRecID, std::string_view sStoreID, std::string_view sEntryID,
                                    std::string_view sEntryIDShort, std::string_view sAdListID) {
    ItemRef item;
    Guarded(context_, errorLines::createSelItem, [&] {
        item = std::make_shared<clsFolderTreeItem>();
        if (!sAdListID.empty()) {
            item->SetAddressListID(std::string(sAdListID));
            item->SetIsAddressList(true);
        } else {
            item->SetStoreID(std::string(sStoreID));
            item->SetEntryID(std::string(sEntryID));
            item->SetEntryIDShort(std::string(sEntryIDShort));
        }
        item->SetFolderRecID(lFolderRecID);
        item->SetSelected(true);
        item->SetIncomplete(true);
    });
    return item;
}

void SelectionSet::KillCollection() {
    const automation::ObjectRef old = collection;
    automation::ObjectRef left = old;
    KillCollection(left);
    // An item's end runs the host's code. What it has assigned there stays.
    if (collection == old) collection = left;
}

void SelectionSet::KillCollection(automation::ObjectRef& oColl) {
    Guarded(context_, errorLines::killCollection, [&] {
        if (oColl == nullptr) return;
        // Held here, so that the host may drop its variable while its collection is being emptied.
        const Collection items(oColl);
        int32_t count = items.Count();
        while (count >= 1) {
            items.Remove(1);
            const int32_t left = items.Count();
            // A collection that does not give its items up would keep us here for ever.
            if (left >= count) throw automation::VbError(automation::errors::invalidCall);
            count = left;
        }
        oColl = nullptr;
    });
}

}  // namespace foldertree
