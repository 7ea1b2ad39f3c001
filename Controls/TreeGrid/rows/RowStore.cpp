// RowStore: cells, keys and looks of the grid's rows.
#include "rows/RowStore.h"

#include <new>
#include <utility>

#include "automation/Error.h"
#include "automation/Text.h"
#include "automation/TextHash.h"
#include "rows/KeyHash.h"

namespace foldertree {

namespace {

uint32_t Shorten(uint64_t hash) {
    return static_cast<uint32_t>(hash);
}

/// References to looks for some rows, given back unless they are taken over.
class HeldStyles {
  public:
    HeldStyles(RowStyles& styles, size_t count) : styles_(styles) { ids_.reserve(count); }
    ~HeldStyles() {
        for (const RowStyles::Id id : ids_) styles_.Release(id);
    }
    HeldStyles(const HeldStyles&) = delete;
    HeldStyles& operator=(const HeldStyles&) = delete;

    void Hold(RowStyles::Id id) { ids_.push_back(id); }
    /// Each of them in exchange for the one that is given.
    RowStyles::Id& operator[](size_t index) { return ids_[index]; }

  private:
    RowStyles& styles_;
    std::vector<RowStyles::Id> ids_;
};

}  // namespace

// Rows

RowId NewRows::Insert() {
    const RowId row = store_.Insert(next_);
    ++next_;
    return row;
}

NewRows::~NewRows() {
    while (next_ > first_) store_.Remove(--next_);
}

/// The record that the next row will have; it is not taken yet.
RowId RowStore::NextRecord() {
    if (freeRow_ != noRow) return freeRow_;
    if (nextRow_ / recordsPerBlock == blocks_.size()) blocks_.push_back(std::make_unique<RowRecord[]>(recordsPerBlock));
    return nextRow_;
}

void RowStore::TakeRecord(RowId row) noexcept {
    if (row == nextRow_) {
        ++nextRow_;
    } else {
        freeRow_ = std::exchange(Record(row).style, 0);
    }
}

void RowStore::GiveBackRecord(RowId row) noexcept {
    RowRecord& record = Record(row);
    const auto generation = static_cast<uint16_t>(Generation(record) + 1);
    record = RowRecord{};
    record.flags = static_cast<uint16_t>(generation << generationShift);
    if (generation == lastGeneration) return;
    record.style = std::exchange(freeRow_, row);
}

std::optional<RowId> RowStore::RowOf(RowHandle handle) const {
    if (handle.store_ != number_ || Generation(Record(handle.row_)) != handle.generation_) return std::nullopt;
    return handle.row_;
}

RowId RowStore::Insert(int32_t number) {
    if (Count() >= maxCount) throw automation::VbError(automation::errors::outOfMemory);
    const RowId row = NextRecord();
    order_.Insert(number, row);
    TakeRecord(row);
    return row;
}

void RowStore::Remove(int32_t number) noexcept {
    const RowId row = At(number);
    RowRecord& record = Record(row);
    if (HasKey(record)) keys_.Remove(HashOfKey(record), row);
    if (IsTicked(row)) --ticked_;
    for (int col = 0; col < schema_.columns; ++col) {
        if (schema_.IsOwn(col)) {
            ownTexts_.Drop(Cell(record, col));
        } else {
            pool_.Release(Cell(record, col));
        }
    }
    styles_.Release(record.style);
    order_.Remove(number);
    GiveBackRecord(row);
    CompactOwnTexts();
}

void RowStore::AppendCopy(const RowStore& from, RowId row) {
    NewRows copies(*this, Count());
    const RowId copy = copies.Insert();
    for (int col = 0; col < schema_.columns; ++col)
        if (col != schema_.key) SetText(copy, col, from.View(row, col));
    // The key comes last, so that it is found to be put together from the other cells.
    if (schema_.key != GridSchema::none) SetText(copy, schema_.key, from.Text(row, schema_.key));
    RowRecord& record = Record(copy);
    record.style = styles_.Acquire(from.Style(row));
    record.level = from.Level(row);
    SetIsNode(copy, from.IsNode(row));
    SetIsCollapsed(copy, from.IsCollapsed(row));
    copies.Keep();
}

void RowStore::SetFlag(RowRecord& record, Flag flag, bool on) {
    record.flags = static_cast<uint16_t>(on ? record.flags | flag : record.flags & ~flag);
}

// Cells

std::string RowStore::Text(RowId row, int col) const {
    return col == schema_.key ? KeyOf(Record(row)) : std::string(View(row, col));
}

std::string_view RowStore::View(RowId row, int col) const {
    const uint32_t cell = Cell(Record(row), col);
    return schema_.IsOwn(col) ? ownTexts_.View(cell) : pool_[cell].Text();
}

double RowStore::Number(RowId row, int col) const {
    const RowRecord& record = Record(row);
    if (!schema_.IsOwn(col)) return pool_[Cell(record, col)].Number();
    return col == schema_.key ? NumberOfText(KeyOf(record)) : NumberOfText(View(row, col));
}

bool RowStore::SetText(RowId row, int col, std::string_view text) {
    if (col == schema_.key) return SetKey(row, text);
    const bool wasTicked = col == schema_.box && IsTicked(row);
    RowRecord& record = Record(row);
    if (!(schema_.IsOwn(col) ? SetOwn(record, col, text) : SetShared(record, col, text))) return false;
    if (col == schema_.box) ticked_ += int{IsTicked(row)} - int{wasTicked};
    return true;
}

bool RowStore::SetShared(RowRecord& record, int col, std::string_view text) {
    TextPool::Id& cell = Cell(record, col);
    if (pool_[cell] == text) return false;
    TextPool::Id& last = lastPooled_[static_cast<size_t>(col)];
    // Most columns hold the same text row after row; one comparison then finds it, however long a store's identifier
    // is.
    if (!(pool_[last] == text)) {
        const TextPool::Id found = pool_.Acquire(text);
        pool_.Release(last);
        last = found;
    }
    if (schema_.IsKeyPart(col)) StoreKey(record);
    pool_.Release(cell);
    pool_.AddReference(last);
    cell = last;
    return true;
}

bool RowStore::SetOwn(RowRecord& record, int col, std::string_view text) {
    TextArena::Ref& cell = Cell(record, col);
    if (ownTexts_.View(cell) == text) return false;
    TextArena::Added fresh(ownTexts_, text);
    if (schema_.IsKeyPart(col)) StoreKey(record);
    ownTexts_.Drop(cell);
    cell = fresh.Ref();
    fresh.Keep();
    CompactOwnTexts();
    return true;
}

/// Compacting only saves memory: where there is none for it, the texts stay where they are until there is more to save.
void RowStore::CompactOwnTexts() noexcept {
    if (!ownTexts_.IsMostlyDead() || ownTexts_.DeadBytes() < nextCompaction_) return;
    try {
        CopyOwnTexts();
        nextCompaction_ = 0;
    } catch (const std::bad_alloc&) {
        nextCompaction_ = ownTexts_.DeadBytes() * 2;
    }
}

/// The copies stand aside until all are made.
void RowStore::CopyOwnTexts() {
    TextArena fresh;
    std::vector<TextArena::Ref> moved;
    const auto forEachOwnText = [&](auto&& visit) {
        for (RowId row = 0; row < nextRow_; ++row)
            for (int col = 0; col < schema_.columns; ++col)
                if (schema_.IsOwn(col) && Cell(Record(row), col) != 0) visit(Cell(Record(row), col));
    };
    forEachOwnText([&](TextArena::Ref text) { moved.push_back(fresh.Add(ownTexts_.View(text))); });
    auto next = moved.begin();
    forEachOwnText([&](TextArena::Ref& text) { text = *next++; });
    ownTexts_ = std::move(fresh);
}

// Keys

bool RowStore::HasKey(const RowRecord& record) const {
    return IsDerived(record) || (schema_.key != GridSchema::none && Cell(record, schema_.key) != 0);
}

std::string RowStore::KeyOf(const RowRecord& record) const {
    if (!IsDerived(record)) return std::string(StoredKey(record));
    const std::string& start = KeyStart(record).Text();
    const std::string_view end = KeyEnd(record);
    std::string key;
    key.reserve(start.size() + end.size() + 2);
    key.append(1, schema_.keyParts.prefix).append(start).append(1, schema_.keyParts.separator).append(end);
    return key;
}

std::optional<uint64_t> RowStore::KeyStartHash(const RowRecord& record) const {
    return KeyStart(record).KeyPartHash(schema_.keyParts.prefix, schema_.keyParts.separator);
}

bool RowStore::IsMadeOfParts(const RowRecord& record, std::string_view text) const {
    const std::string& start = KeyStart(record).Text();
    const std::string_view end = KeyEnd(record);
    return text.size() == start.size() + end.size() + 2 && text[0] == schema_.keyParts.prefix &&
           text[start.size() + 1] == schema_.keyParts.separator && text.substr(start.size() + 2) == end &&
           text.substr(1, start.size()) == start;
}

/// Whether the key can be left to its parts. Parts beyond ASCII cannot be hashed one by one, and such a key is stored.
bool RowStore::CanDerive(const RowRecord& record, std::string_view text) const {
    return schema_.keyParts.start != GridSchema::none && IsMadeOfParts(record, text) && KeyStartHash(record) &&
           automation::IsAscii(KeyEnd(record));
}

/// Exactly the row's key, byte for byte.
bool RowStore::KeyIs(const RowRecord& record, std::string_view text) const {
    return IsDerived(record) ? IsMadeOfParts(record, text) : StoredKey(record) == text;
}

bool RowStore::KeyEquals(const RowRecord& record, std::string_view text) const {
    return KeyIs(record, text) || automation::EqualNoCase(KeyOf(record), text);
}

bool RowStore::KeysEqual(const RowRecord& a, const RowRecord& b) const {
    const bool bothDerived = IsDerived(a) && IsDerived(b);
    if (bothDerived && &KeyStart(a) == &KeyStart(b) && KeyEnd(a) == KeyEnd(b)) return true;
    return KeyEquals(a, KeyOf(b));
}

uint32_t RowStore::HashOfKey(const RowRecord& record) const noexcept {
    if (!IsDerived(record)) return Shorten(HashKey(StoredKey(record), schema_.keyParts.separator));
    return Shorten(JoinKeyHash(*KeyStartHash(record), automation::HashText(KeyEnd(record))));
}

bool RowStore::SetKey(RowId row, std::string_view text) {
    RowRecord& record = Record(row);
    if (HasKey(record) ? KeyIs(record, text) : text.empty()) return false;
    const bool derived = CanDerive(record, text);
    TextArena::Added stored(ownTexts_, derived ? std::string_view() : text);
    RowRecord changed = record;
    Cell(changed, schema_.key) = stored.Ref();
    SetFlag(changed, keyIsDerived, derived);
    IndexKey(row, record, changed);
    ownTexts_.Drop(Cell(record, schema_.key));
    record = changed;
    stored.Keep();
    CompactOwnTexts();
    return true;
}

/// Before a part of the row's key changes: the key's text stays what it was, so it can no longer be put together.
void RowStore::StoreKey(RowRecord& record) {
    if (!IsDerived(record)) return;
    Cell(record, schema_.key) = ownTexts_.Add(KeyOf(record));
    SetFlag(record, keyIsDerived, false);
}

/// Brings the index from the row's key as it is to the key as it will be. Empty keys are not entered: the header row
/// has one, so a search for it ends there.
void RowStore::IndexKey(RowId row, const RowRecord& now, const RowRecord& then) {
    const auto same = [&](RowId other) { return KeysEqual(Record(other), then); };
    if (!HasKey(then)) {
        if (HasKey(now)) keys_.Remove(HashOfKey(now), row);
        return;
    }
    if (!HasKey(now)) return keys_.Insert(HashOfKey(then), row, same);
    if (HashOfKey(now) == HashOfKey(then) && KeysEqual(now, then)) return;  // they differ in case alone
    keys_.Change(HashOfKey(now), HashOfKey(then), row, same);
}

int32_t RowStore::Find(std::string_view text, int32_t start, int col) const {
    if (start >= Count()) return -1;
    return col == schema_.key && !text.empty() ? FindKey(text, start) : Scan(text, start, col);
}

int32_t RowStore::FindKey(std::string_view text, int32_t start) const {
    const auto same = [&](RowId row) { return KeyEquals(Record(row), text); };
    const std::optional<RowId> from = start == 0 ? std::nullopt : std::optional(At(start));
    const std::optional<RowId> found = keys_.First(Shorten(HashKey(text, schema_.keyParts.separator)), same, from);
    return found ? NumberOf(*found) : -1;
}

int32_t RowStore::Scan(std::string_view text, int32_t start, int col) const {
    for (int32_t number = start; number < Count(); ++number) {
        const RowId row = At(number);
        if (col == schema_.key ? !HasKey(Record(row)) : automation::EqualNoCase(View(row, col), text)) return number;
    }
    return -1;
}

// Looks

bool RowStore::ChangeStyle(RowId row, const StyleChange& change) {
    RowStyles::Id& style = Record(row).style;
    const RowStyles::Id before = style;
    style = styles_.Changed(before, change);
    styles_.Release(before);
    return style != before;
}

bool RowStore::ChangeStyles(int32_t first, int32_t last, const StyleChange& change) {
    if (first == last) return ChangeStyle(At(first), change);  // most often, and needs no list
    HeldStyles held(styles_, static_cast<size_t>(last - first) + 1);
    for (int32_t number = first; number <= last; ++number) held.Hold(styles_.Changed(Record(At(number)).style, change));
    bool changed = false;
    for (int32_t number = first; number <= last; ++number) {
        RowStyles::Id& style = Record(At(number)).style;
        RowStyles::Id& wanted = held[static_cast<size_t>(number - first)];
        changed |= style != wanted;
        std::swap(style, wanted);
    }
    return changed;
}

size_t RowStore::MemoryUse() const {
    size_t total =
        sizeof *this + blocks_.size() * recordsPerBlock * sizeof(RowRecord) + blocks_.capacity() * sizeof(void*);
    total += order_.MemoryUse() + ownTexts_.MemoryUse() + pool_.MemoryUse() + styles_.MemoryUse() + keys_.MemoryUse();
    pool_.ForEach([&](const PooledText& text) { total += text.Text().capacity(); });
    return total;
}

}  // namespace foldertree
