// RefreshDriver: empties the tree and fills it again from the stores, whatever the access mode.
#include "enumeration/RefreshDriver.h"

#include "automation/Collection.h"

namespace foldertree {

using automation::Collection;
using automation::ObjectRef;
using automation::Value;

StoreReader* RefreshDriver::Reader() const {
    const int32_t mode = context_.state.infoStoreAccessMode;
    const bool known = mode >= 0 && mode < static_cast<int32_t>(readers_.stores.size());
    return known ? readers_.stores[static_cast<size_t>(mode)] : nullptr;
}

void RefreshDriver::RefreshList() {
    Guarded(context_, errorLines::refreshList, [&] {
        if (context_.state.refreshing) return;
        GetFolders();
        view_.ApplySelection();
    });
}

void RefreshDriver::GetFolders() {
    LoadScope load(context_);
    Guarded(context_, errorLines::getFolders, [&] {
        load.Ready();
        context_.grid.SetRowCount(context_.grid.FixedRowCount());
        load.ResetProgress();
        context_.Trace("GetFolders: Refreshing view");
        if (context_.state.defaultFolders.inbox.empty()) GetFolderIDs();
        ReadStores();
        if (context_.state.bufferedToLevel != -1) context_.state.bufferedToLevel = context_.state.extendToLevel;
        ReadAddressLists();
    });
    context_.Trace("GetFolders: Done");
}

void RefreshDriver::ReadStores() {
    StoreReader* reader = Reader();
    if (reader == nullptr || !reader->Begin()) return;
    const ObjectRef stores = reader->Stores();
    if (reader->DefaultStoreFirst()) ReadDefaultStore(*reader, stores);
    ReadOtherStores(*reader, stores);
}

void RefreshDriver::ReadDefaultStore(StoreReader& reader, const ObjectRef& stores) {
    const auto walk = Collection(stores).Walk();
    Value value;
    while (walk->Next(value)) {
        const ObjectRef store = value.ToObject();
        if (reader.IsDefaultStore(store)) {
            ReadStore(reader, store);
            return;
        }
        if (context_.state.cancel) return;
    }
}

void RefreshDriver::ReadOtherStores(StoreReader& reader, const ObjectRef& stores) {
    const Collection collection(stores);
    const auto walk = reader.WalksByPosition() ? collection.WalkByPosition(collection.Count()) : collection.Walk();
    Value value;
    while (walk->Next(value)) {
        const ObjectRef store = value.ToObject();
        if (reader.DefaultStoreFirst() && reader.IsDefaultStore(store)) continue;
        ReadStore(reader, store);
        // Tested only here: after a cancel in the default store the first of the others is still handed to its reader,
        // which stops by itself.
        if (context_.state.cancel) return;
    }
}

void RefreshDriver::ReadStore(StoreReader& reader, const ObjectRef& store) {
    context_.AdvanceProgress(1, -1);
    reader.TraceStore();
    reader.ReadStore(store);
    context_.AdvanceProgress(-1, 1);
}

void RefreshDriver::ReadAddressLists() {
    if (context_.state.cancel || !context_.state.showAddressBook) return;
    context_.Trace("GetFolders: Adding address book(s)");
    context_.AdvanceProgress(1, -1);  // never completed: the bar ends one step short
    if (readers_.addressLists != nullptr) readers_.addressLists->GetAddressBook();
}

void RefreshDriver::GetFolderIDs() {
    Guarded(context_, errorLines::getFolderIDs, [&] {
        if (StoreReader* reader = Reader()) reader->ReadDefaultFolders(context_.state.defaultFolders);
    });
}

void RefreshDriver::cmdCancel_Click() {
    Guarded(context_, errorLines::cmdCancelClick, [&] {
        context_.state.cancel = true;
        context_.Yield();
    });
}

void RefreshDriver::fgd_BeforeCollapse(int32_t row, int16_t state) {
    Guarded(context_, errorLines::beforeCollapse, [&] {
        if (context_.state.gridBusy || state != nodeExpanded) return;
        if (context_.grid.CellValue(row, colIncomplete) == 0) return;
        if (StoreReader* reader = Reader()) reader->ExpandNode(row);
    });
}

}  // namespace foldertree
