// RowStore: cells, keys and looks of the grid's rows.
#include "rows/RowStore.h"

#include <array>
#include <utility>

#include "automation/Error.h"
#include "automation/Text.h"
#include "automation/TextHash.h"
#include "rows/KeyHash.h"

namespace foldertree {

namespace {

/// Where a column's text is kept: in the row's own texts or among the pooled ones, and at which place of the record.
struct CellPlace {
    bool own;
    uint8_t index;
};

constexpr std::array<CellPlace, gridColumnCount> cellPlaces{{
    {false, 0},  // colSel
    {false, 1},  // colIndex
    {true, 0},   // colName
    {false, 2},  // colReserved
    {false, 3},  // colRowKind
    {false, 4},  // colIncomplete
    {false, 5},  // colItemType
    {false, 6},  // colStoreID
    {true, 1},   // colEntryID
    {true, 2},   // colEntryIDShort
    {false, 7},  // colFolderRecID
    {false, 8},  // colAddressListID
    {true, 3},   // colPath
    {true, 4},   // colKey
}};

constexpr uint8_t PlaceOf(int col) {
    return cellPlaces[static_cast<size_t>(col)].index;
}
constexpr bool IsOwn(int col) {
    return cellPlaces[static_cast<size_t>(col)].own;
}

uint32_t Shorten(uint64_t hash) {
    return static_cast<uint32_t>(hash);
}

}  // namespace

// Rows

RowId RowStore::TakeRecord() {
    if (freeRow_ != noRow) {
        const RowId row = freeRow_;
        RowRecord& record = Record(row);
        freeRow_ = std::exchange(record.pooled[0], 0);
        return row;
    }
    if (nextRow_ / recordsPerBlock == blocks_.size()) blocks_.push_back(std::make_unique<RowRecord[]>(recordsPerBlock));
    return nextRow_++;
}

void RowStore::GiveBackRecord(RowId row) {
    RowRecord& record = Record(row);
    const auto generation = static_cast<uint16_t>(Generation(record) + 1);
    record = RowRecord{};
    record.flags = static_cast<uint16_t>(generation << generationShift);
    if (generation == lastGeneration) return;
    record.pooled[0] = std::exchange(freeRow_, row);
}

std::optional<RowId> RowStore::RowOf(RowHandle handle) const {
    if (handle.store_ != number_ || Generation(Record(handle.row_)) != handle.generation_) return std::nullopt;
    return handle.row_;
}

RowId RowStore::Insert(int32_t number) {
    if (Count() >= maxCount) throw automation::VbError(automation::errors::outOfMemory);
    const RowId row = TakeRecord();
    order_.Insert(number, row);
    return row;
}

void RowStore::Remove(int32_t number) {
    const RowId row = At(number);
    WithdrawKey(row);
    RowRecord& record = Record(row);
    for (const TextPool::Id text : record.pooled) pool_.Release(text);
    for (const TextArena::Ref text : record.own) ownTexts_.Drop(text);
    styles_.Release(record.style);
    order_.Remove(number);
    GiveBackRecord(row);
    CompactOwnTexts();
}

void RowStore::AppendCopy(const RowStore& from, RowId row) {
    const RowId copy = Insert(Count());
    // The key comes last, so that it is found to be put together from the other cells.
    for (int col = 0; col < gridColumnCount; ++col) SetText(copy, col, from.Text(row, col));
    RowRecord& record = Record(copy);
    record.style = styles_.Acquire(from.Style(row));
    record.level = from.Level(row);
    Set(copy, isNode, from.IsNode(row));
    Set(copy, isCollapsed, from.IsCollapsed(row));
}

void RowStore::Set(RowId row, Flag flag, bool on) {
    uint16_t& flags = Record(row).flags;
    flags = static_cast<uint16_t>(on ? flags | flag : flags & ~flag);
}

// Cells

std::string RowStore::Text(RowId row, int col) const {
    return col == colKey ? KeyOf(Record(row)) : std::string(View(row, col));
}

std::string_view RowStore::View(RowId row, int col) const {
    const RowRecord& record = Record(row);
    if (IsOwn(col)) return ownTexts_.View(record.own[PlaceOf(col)]);
    return pool_[record.pooled[PlaceOf(col)]].Text();
}

double RowStore::Number(RowId row, int col) const {
    const RowRecord& record = Record(row);
    if (!IsOwn(col)) return pool_[record.pooled[PlaceOf(col)]].Number();
    return col == colKey ? NumberOfText(KeyOf(record)) : NumberOfText(View(row, col));
}

bool RowStore::SetText(RowId row, int col, std::string_view text) {
    if (col == colKey) return SetKey(row, text);
    RowRecord& record = Record(row);
    return IsOwn(col) ? SetOwn(record, col, text) : SetPooled(record, col, text);
}

bool RowStore::SetPooled(RowRecord& record, int col, std::string_view text) {
    TextPool::Id& cell = record.pooled[PlaceOf(col)];
    if (pool_[cell] == text) return false;
    TextPool::Id& last = lastPooled_[PlaceOf(col)];
    // Most columns hold the same text row after row; one comparison then finds it, however long a store's identifier
    // is.
    if (!(pool_[last] == text)) {
        const TextPool::Id found = pool_.Acquire(text);
        pool_.Release(last);
        last = found;
    }
    KeepKey(record, col);
    pool_.Release(cell);
    pool_.AddReference(last);
    cell = last;
    return true;
}

bool RowStore::SetOwn(RowRecord& record, int col, std::string_view text) {
    TextArena::Ref& cell = record.own[PlaceOf(col)];
    if (ownTexts_.View(cell) == text) return false;
    KeepKey(record, col);
    ReplaceOwn(cell, text);
    return true;
}

void RowStore::ReplaceOwn(TextArena::Ref& ref, std::string_view text) {
    const TextArena::Ref fresh = ownTexts_.Add(text);
    ownTexts_.Drop(ref);
    ref = fresh;
    CompactOwnTexts();
}

void RowStore::CompactOwnTexts() {
    if (!ownTexts_.IsMostlyDead()) return;
    TextArena fresh;
    for (RowId row = 0; row < nextRow_; ++row)
        for (TextArena::Ref& text : Record(row).own) text = fresh.Add(ownTexts_.View(text));
    ownTexts_ = std::move(fresh);
}

// Keys

const PooledText& RowStore::StoreOf(const RowRecord& record) const {
    return pool_[record.pooled[PlaceOf(colStoreID)]];
}

std::string_view RowStore::EntryOf(const RowRecord& record) const {
    return ownTexts_.View(record.own[PlaceOf(colEntryID)]);
}

bool RowStore::HasKey(const RowRecord& record) const {
    return (record.flags & keyIsDerived) != 0 || record.own[PlaceOf(colKey)] != 0;
}

std::string RowStore::KeyOf(const RowRecord& record) const {
    if ((record.flags & keyIsDerived) == 0) return std::string(ownTexts_.View(record.own[PlaceOf(colKey)]));
    const std::string& store = StoreOf(record).Text();
    const std::string_view entry = EntryOf(record);
    std::string key;
    key.reserve(store.size() + entry.size() + 2);
    key.append("S").append(store).append("|").append(entry);
    return key;
}

bool RowStore::IsDerivedKey(const RowRecord& record, std::string_view text) const {
    const std::string& store = StoreOf(record).Text();
    const std::string_view entry = EntryOf(record);
    return text.size() == store.size() + entry.size() + 2 && text[0] == 'S' && text[store.size() + 1] == '|' &&
           text.substr(store.size() + 2) == entry && text.substr(1, store.size()) == store;
}

/// Exactly the row's key, byte for byte.
bool RowStore::KeyIs(const RowRecord& record, std::string_view text) const {
    if ((record.flags & keyIsDerived) != 0) return IsDerivedKey(record, text);
    return ownTexts_.View(record.own[PlaceOf(colKey)]) == text;
}

bool RowStore::KeyEquals(const RowRecord& record, std::string_view text) const {
    return KeyIs(record, text) || automation::EqualNoCase(KeyOf(record), text);
}

bool RowStore::KeysEqual(const RowRecord& a, const RowRecord& b) const {
    const bool bothDerived = (a.flags & b.flags & keyIsDerived) != 0;
    if (bothDerived && &StoreOf(a) == &StoreOf(b) && EntryOf(a) == EntryOf(b)) return true;
    return KeyEquals(a, KeyOf(b));
}

uint32_t RowStore::HashOfKey(const RowRecord& record) const {
    if ((record.flags & keyIsDerived) != 0) {
        const std::optional<uint64_t> store = StoreOf(record).KeyPartHash();
        const std::string_view entry = EntryOf(record);
        if (store && automation::IsAscii(entry)) return Shorten(JoinKeyHash(*store, automation::HashText(entry)));
        return Shorten(HashKey(KeyOf(record)));
    }
    return Shorten(HashKey(ownTexts_.View(record.own[PlaceOf(colKey)])));
}

bool RowStore::SetKey(RowId row, std::string_view text) {
    RowRecord& record = Record(row);
    if (HasKey(record) ? KeyIs(record, text) : text.empty()) return false;
    WithdrawKey(row);
    TextArena::Ref& stored = record.own[PlaceOf(colKey)];
    const bool derived = IsDerivedKey(record, text);
    Set(row, keyIsDerived, derived);
    ReplaceOwn(stored, derived ? std::string_view() : text);
    EnterKey(row);
    return true;
}

/// Before an identifier of the row changes: the key's text stays what it was, so it can no longer be put together.
void RowStore::KeepKey(RowRecord& record, int col) {
    if ((record.flags & keyIsDerived) == 0 || (col != colStoreID && col != colEntryID)) return;
    record.own[PlaceOf(colKey)] = ownTexts_.Add(KeyOf(record));
    record.flags = static_cast<uint16_t>(record.flags & ~keyIsDerived);
}

// Empty keys are not entered: the header row has one, so a search for it ends there.
void RowStore::EnterKey(RowId row) {
    const RowRecord& record = Record(row);
    if (!HasKey(record)) return;
    keys_.Insert(HashOfKey(record), row, [&](RowId other) { return KeysEqual(Record(other), record); });
}

void RowStore::WithdrawKey(RowId row) {
    const RowRecord& record = Record(row);
    if (HasKey(record)) keys_.Remove(HashOfKey(record), row);
}

int32_t RowStore::Find(std::string_view text, int32_t start, int col) const {
    if (start >= Count()) return -1;
    return col == colKey && !text.empty() ? FindKey(text, start) : Scan(text, start, col);
}

int32_t RowStore::FindKey(std::string_view text, int32_t start) const {
    const auto same = [&](RowId row) { return KeyEquals(Record(row), text); };
    const std::optional<RowId> from = start == 0 ? std::nullopt : std::optional(At(start));
    const std::optional<RowId> found = keys_.First(Shorten(HashKey(text)), same, from);
    return found ? NumberOf(*found) : -1;
}

int32_t RowStore::Scan(std::string_view text, int32_t start, int col) const {
    for (int32_t number = start; number < Count(); ++number) {
        const RowId row = At(number);
        if (col == colKey ? !HasKey(Record(row)) : automation::EqualNoCase(View(row, col), text)) return number;
    }
    return -1;
}

// Looks

bool RowStore::ChangeStyle(RowId row, const StyleChange& change) {
    RowStyles::Id& style = Record(row).style;
    const RowStyles::Id before = style;
    style = styles_.Change(before, change);
    return style != before;
}

size_t RowStore::MemoryUse() const {
    size_t total =
        sizeof *this + blocks_.size() * recordsPerBlock * sizeof(RowRecord) + blocks_.capacity() * sizeof(void*);
    total += order_.MemoryUse() + ownTexts_.MemoryUse() + pool_.MemoryUse() + styles_.MemoryUse() + keys_.MemoryUse();
    pool_.ForEach([&](const PooledText& text) { total += text.Text().capacity(); });
    return total;
}

}  // namespace foldertree
