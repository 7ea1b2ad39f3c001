// HierarchyTable: reads a folder's children from its MAPI hierarchy table, all properties of many children at once.
#include "enumeration/HierarchyTable.h"

#include <algorithm>
#include <optional>

#include "common/modApplication.h"
#include "enumeration/Classification.h"
#include "enumeration/modCDODefs.h"

namespace foldertree {

using automation::Deref;
using automation::ObjectRef;
using automation::Value;

namespace {

enum TableColumn : size_t { tcFolderType, tcSubfolders, tcContainerClass, tcDisplayName, tcLongEntryID, tcEntryID };

const Value& Columns() {
    static const Value columns = automation::Array{
        0,
        {propertyTag::PR_FOLDER_TYPE, propertyTag::PR_SUBFOLDERS, propertyTag::PR_CONTAINER_CLASS,
         propertyTag::PR_DISPLAY_NAME_W, propertyTag::PR_LONGTERM_ENTRYID_FROM_TABLE, propertyTag::PR_ENTRYID}};
    return columns;
}

/// The row's cell; a row that is too short has an error there, like one whose folder lacks the property.
const Value& Cell(const Value& row, TableColumn column) {
    static const Value absent = automation::ErrorValue{automation::errors::mapiNotFound};
    const automation::Array* cells = row.AsArray();
    if (cells == nullptr) throw automation::VbError(automation::errors::typeMismatch);
    return column < cells->items.size() ? cells->items[column] : absent;
}

/// Stores the cell through `take` unless it holds an error. One that cannot be converted leaves the default too: a
/// folder with one odd property must not cost its siblings.
template <class Take>
void TakeCell(const Value& cell, Take&& take) {
    if (!cell.IsError()) Attempt([&] { take(cell); });
}

std::string Identifier(const Value& cell) {
    const automation::Bytes* bytes = cell.AsBytes();
    return bytes != nullptr ? BytesToHex(*bytes) : std::string();
}

}  // namespace

void HierarchyTable::Open(const ObjectRef& folder) {
    if (!SetUp(folder, true)) SetUp(folder, false);
    context_.Trace(indent_, "  Moving to first table entry");
    Deref(table_).Get("GoToFirst");
    context_.Trace(indent_, "  Getting table rows");
    rowsLeft_ = Deref(table_).Get("RowCount").ToLong();
    Fetch();
    TraceBounds();
}

bool HierarchyTable::SetUp(const ObjectRef& folder, bool sorted) {
    context_.Trace(indent_, "  Getting MAPITable ref");
    table_ = Deref(Deref(folder).Get("Folders").ToObject()).Get("MAPITable").ToObject();
    context_.Trace(indent_, "  Building column array");
    Deref(table_).Put("Columns", Columns());
    if (!sorted) return true;

    context_.Trace(indent_, "  Trying to sort table by DISPLAY_NAME");
    const auto error = Attempt([&] { Deref(table_).Get("Sort", propertyTag::PR_DISPLAY_NAME_W, false); });
    if (!error) return true;
    context_.Trace(indent_, "  Failed to sort folder MAPITable by display name: [0x", Hex(error->Number()), "] ",
                   error->Text());
    return false;
}

void HierarchyTable::Fetch() {
    next_ = 0;
    batch_ = Value();
    if (rowsLeft_ <= 0) return;
    batch_ = Deref(table_).Get("GetRows", rowsLeft_);
    if (batch_.IsEmpty()) return;
    const automation::Array* rows = batch_.AsArray();
    if (rows == nullptr) throw automation::VbError(automation::errors::typeMismatch);
    rowsLeft_ -= static_cast<int32_t>(std::min(rows->items.size(), static_cast<size_t>(rowsLeft_)));
}

void HierarchyTable::TraceBounds() {
    const automation::Array* rows = batch_.AsArray();
    // A foreign array may end beyond 32 bits.
    const int64_t lower = rows ? rows->lowerBound : 0;
    const int64_t count = rows ? static_cast<int64_t>(rows->items.size()) : 0;
    context_.Trace(indent_, "  Reading rows ", lower, " - ", lower + count - 1);
}

const Value* HierarchyTable::NextRow() {
    const automation::Array* rows = batch_.AsArray();
    if (rows != nullptr && next_ == rows->items.size() && next_ > 0) {
        Fetch();
        rows = batch_.AsArray();
        if (rows != nullptr && !rows->items.empty()) {
            context_.Trace(indent_, "  Getting table rows");
            TraceBounds();
        }
    }
    if (rows == nullptr || next_ >= rows->items.size()) return nullptr;
    context_.Trace(indent_, "    Reading row #", int64_t{rows->lowerBound} + static_cast<int64_t>(next_));
    return &rows->items[next_++];
}

bool HierarchyTable::ReadChild(const Value& row, int32_t level, ChildFolder& child) {
    TakeCell(Cell(row, tcFolderType), [&](const Value& cell) { child.folderType = cell.ToLong(); });
    TakeCell(Cell(row, tcSubfolders), [&](const Value& cell) { child.hasChildren = cell.ToBoolean(); });
    TakeCell(Cell(row, tcContainerClass), [&](const Value& cell) { child.messageClass = cell.ToText(); });
    TakeCell(Cell(row, tcDisplayName), [&](const Value& cell) { child.name = cell.ToText(); });
    child.itemType = GetItemTypeFromMessageClass(child.messageClass);
    if (child.itemType == FTIUnknown) return false;

    for (size_t column = 0; column < child.typeNames.size(); ++column)
        child.typeNames[column] = Cell(row, static_cast<TableColumn>(column)).TypeName();
    context_.Trace(indent_, "      Level: ", level);
    context_.Trace(indent_, "      FolderKind: [", child.typeNames[tcFolderType], "] ", child.folderType);
    context_.Trace(indent_, "      SubFolders: [", child.typeNames[tcSubfolders], "] ",
                   child.hasChildren ? "yes" : "no");
    context_.Trace(indent_, "      MessageClass: [", child.typeNames[tcContainerClass], "] ", child.messageClass);
    context_.Trace(indent_, "      FolderName: [", child.typeNames[tcDisplayName], "] ", child.name);
    context_.Trace(indent_, "      ItemType: ", static_cast<int32_t>(child.itemType));
    return true;
}

void HierarchyTable::ReadIdentifiers(const Value& row, ChildFolder& child) {
    child.entryID = Identifier(Cell(row, tcLongEntryID));
    child.entryIDShort = Identifier(Cell(row, tcEntryID));
    context_.Trace(indent_, "      EntryID [long]: ", child.entryID);
    context_.Trace(indent_, "      EntryID [short]: ", child.entryIDShort);
}

}  // namespace foldertree
