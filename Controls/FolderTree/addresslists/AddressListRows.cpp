// AddressListRows: the rows of the address book's lists, below a heading at the end of the tree.
#include "addresslists/AddressListRows.h"

#include "automation/Collection.h"
#include "common/FolderKey.h"
#include "common/modApplication.h"
#include "enumeration/FolderRows.h"
#include "enumeration/WalkLimits.h"

namespace foldertree {

using automation::Collection;
using automation::Deref;
using automation::ObjectRef;
using automation::Value;

void AddressListRows::GetAddressBook() {
    Guarded(context_, errorLines::getAddressBook, [&] {
        const int32_t mode = context_.state.infoStoreAccessMode;
        if (mode == eISAccess_Outlook) return;
        AppendHeading();
        if (mode == eISAccess_RDO_MAPITables || mode == eISAccess_RDO_Objects) ScanAddressLists_RDO();
        if (mode == eISAccess_CDO) ScanAddressLists_CDO();
    });
}

void AddressListRows::AppendHeading() {
    TreeGrid& grid = context_.grid;
    const int32_t row = AppendStoreRow(context_, rowKind::header, context_.state.addressListRowName);
    context_.state.addressListHeading = grid.HandleOf(row);
    SetRowPicture(grid, row, picAdList);
}

void AddressListRows::ScanAddressLists_RDO() {
    const ObjectRef book = Deref(context_.state.rdoSession).Get("AddressBook").RequireObject();
    const Collection lists(book->Get("AddressLists").RequireObject());
    const int32_t count = lists.Count();
    bool cancelled = false;
    for (int32_t i = 1; i <= count && !context_.state.cancel; ++i) {
        const ObjectRef list = lists.Item(i).RequireObject();
        context_.Trace("Performing sub-folder scan for item #", i, " (", list->Get("Name").ToText(), ")...");
        GetAddressBook_RDOObj(list, 1, nullptr, cancelled);
        if (!cancelled) continue;
        context_.Trace("Exiting GetAddressBook for item #", i,
                       " because the AddressList scan was cancelled internally.");
        return;
    }
}

bool AddressListRows::Scan::IsBelow(const std::string& listID) const {
    return !listID.empty() && (id == listID || (above != nullptr && above->IsBelow(listID)));
}

void AddressListRows::GetAddressBook_RDOObj(const ObjectRef& list, int16_t level, const Scan* above, bool& cancelled) {
    Guarded(context_, errorLines::getAddressBookRDOObj, [&] {
        const std::string name = Deref(list).Get("Name").ToText();
        if (cancelled) {
            context_.Trace("Exiting GetAddressBook_RDOObj for '", name,
                           "' because the AddressList scan was cancelled internally.");
            return;
        }
        const std::string id = list->Get("EntryID").ToText();
        AppendList(name, id, level);
        // A list inside itself would never end, and each level costs stack.
        if ((above != nullptr && above->IsBelow(id)) || level >= deepestWalkLevel) return;
        if (const ObjectRef children = ChildLists(list, name, cancelled))
            ScanChildLists(children, name, level, {id, above}, cancelled);
    });
}

ObjectRef AddressListRows::ChildLists(const ObjectRef& list, const std::string& name, bool& cancelled) {
    ObjectRef children;
    const auto error = Attempt([&] {
        children = list->Get("AddressLists").RequireObject();
        Collection(children).Count();
    });
    if (!error) return children;
    if (error->Number() == automation::errors::mapiNoSupport) {
        // A provider without nested lists: the scan of all lists ends here, not only this branch.
        cancelled = true;
        context_.Trace("Cancelling subfolder scan in '", name,
                       "', error 0x80040102 encountered. AddressList scan is intentionally cancelled.");
    } else {
        TraceFailure(name, "count", *error);
    }
    return nullptr;
}

void AddressListRows::ScanChildLists(const ObjectRef& lists, const std::string& name, int16_t level, const Scan& above,
                                     bool& cancelled) {
    std::unique_ptr<automation::Enumerator> walk;
    ObjectRef child;
    const auto next = [&] {
        if (walk == nullptr) walk = Collection(lists).Walk();
        Value value;
        child = walk->Next(value) ? value.RequireObject() : nullptr;
    };
    while (!context_.state.cancel) {
        if (const auto error = Attempt(next)) return TraceFailure(name, "deliver", *error);
        if (child == nullptr) return;
        GetAddressBook_RDOObj(child, static_cast<int16_t>(level + 1), &above, cancelled);
    }
}

void AddressListRows::TraceFailure(const std::string& name, std::string_view what, const automation::Error& error) {
    context_.Trace("Cancelling subfolder scan in '", name, "', can't ", what, " child folders: [0x",
                   Hex(error.Number()), "] ", error.Text());
}

void AddressListRows::ScanAddressLists_CDO() {
    const Collection lists(Deref(cdoSession_()).Get("AddressLists").RequireObject());
    const auto walk = lists.Walk();
    Value list;
    while (!context_.state.cancel && walk->Next(list)) GetAddressBook_CDO(list.ToObject());
}

void AddressListRows::GetAddressBook_CDO(const ObjectRef& list) {
    Guarded(context_, errorLines::getAddressBookCDO, [&] {
        const std::string name = Deref(list).Get("Name").ToText();
        AppendList(name, list->Get("ID").ToText(), 1);
    });
}

void AddressListRows::AppendList(const std::string& name, const std::string& id, int16_t level) {
    TreeGrid& grid = context_.grid;
    const int32_t row = AppendRow(grid);
    grid.SetCellText(row, colName, name);
    grid.SetCellText(row, colAddressListID, id);
    grid.SetCellText(row, colRowKind, rowKind::adList);
    grid.SetCellText(row, colSel, "");
    grid.SetCellText(row, colIndex, " ");
    grid.SetCellText(row, colKey, AddressListKey(id));
    grid.SetRowOutlineLevel(row, level);
    SetRowPicture(grid, row, picAdList);
    grid.SetIsNode(row, true);
}

}  // namespace foldertree
