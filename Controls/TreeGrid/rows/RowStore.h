// RowStore: the rows behind the tree grid, stored so that a million of them fit and are found by key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rows/GridSchema.h"
#include "rows/KeyIndex.h"
#include "rows/RowHandle.h"
#include "rows/RowId.h"
#include "rows/RowStyles.h"
#include "rows/TextArena.h"
#include "rows/TextPool.h"

namespace foldertree {

/// Rows by number and by identity; the caller passes numbers, ids and columns that exist. A row's own texts lie in an
/// arena, those that rows share are numbers of pooled texts, and a key that can be put together from other cells is not
/// stored at all; the schema tells which is which.
/// A member that fails, for want of memory too, has changed nothing. Removing rows needs no memory.
class RowStore {
  public:
    /// More rows than this are refused as out of memory; the rows alone would take 3 GB.
    static constexpr int32_t maxCount = 0x02000000;

    /// `number` tells this store from the others that the same grid has had: handles of one mean nothing to another.
    RowStore(const GridSchema& schema, uint32_t number) : schema_(schema), number_(number) {}
    RowStore(const RowStore&) = delete;
    RowStore& operator=(const RowStore&) = delete;

    int32_t Count() const { return order_.Count(); }
    RowId At(int32_t number) const { return order_.At(number); }
    int32_t NumberOf(RowId row) const { return order_.PositionOf(row); }
    uint32_t Number() const { return number_; }

    RowHandle HandleOf(RowId row) const { return {number_, row, Generation(Record(row))}; }
    /// Nothing when the row has gone.
    std::optional<RowId> RowOf(RowHandle handle) const;

    /// A new, empty row before the row that now has the number; with number Count(), at the end.
    /// Throws automation::Error 0x8007000E beyond maxCount.
    RowId Insert(int32_t number);
    void Remove(int32_t number) noexcept;
    /// Adds a copy of another store's row at the end.
    void AppendCopy(const RowStore& from, RowId row);

    std::string Text(RowId row, int col) const;
    /// The text of any cell but the key's, valid until the store changes.
    std::string_view View(RowId row, int col) const;
    /// False when the cell has this text already. The text may be a view of this store.
    bool SetText(RowId row, int col, std::string_view text);
    /// The rows whose box is ticked, that is, reads as another number than 0.
    int32_t TickedCount() const { return ticked_; }
    bool IsTicked(RowId row) const { return schema_.box != GridSchema::none && Number(row, schema_.box) != 0; }
    double Number(RowId row, int col) const;

    /// The number of the first row from `start` on whose cell equals the text without regard to case; -1 for none.
    int32_t Find(std::string_view text, int32_t start, int col) const;

    const RowStyle& Style(RowId row) const { return styles_[Record(row).style]; }
    /// Changes the look of a row, or of the rows from a number to another one. False when they look like that already.
    bool ChangeStyle(RowId row, const StyleChange& change);
    bool ChangeStyles(int32_t first, int32_t last, const StyleChange& change);

    int16_t Level(RowId row) const { return Record(row).level; }
    void SetLevel(RowId row, int16_t level) { Record(row).level = level; }
    bool IsNode(RowId row) const { return Has(row, isNode); }
    void SetIsNode(RowId row, bool on) { SetFlag(Record(row), isNode, on); }
    bool IsCollapsed(RowId row) const { return Has(row, isCollapsed); }
    void SetIsCollapsed(RowId row, bool on) { SetFlag(Record(row), isCollapsed, on); }

    size_t MemoryUse() const;
    size_t OwnTextBytes() const { return ownTexts_.LiveBytes(); }

  private:
    enum Flag : uint16_t { isNode = 1, isCollapsed = 2, keyIsDerived = 4 };
    // The rest of the flags' word counts the rows that have had the record. A record whose count is full is not used
    // again, so no handle ever names a later row.
    static constexpr int generationShift = 3;
    static constexpr uint16_t lastGeneration = UINT16_MAX >> generationShift;

    /// One cache line a row.
    struct RowRecord {
        uint32_t cells[GridSchema::maxColumns] = {};  ///< TextArena::Ref of an own text, TextPool::Id of a shared one
        RowStyles::Id style = 0;
        int16_t level = 0;
        uint16_t flags = 0;
    };
    static_assert(sizeof(RowRecord) == 64);
    static constexpr size_t recordsPerBlock = 1024;

    RowRecord& Record(RowId row) { return blocks_[row / recordsPerBlock][row % recordsPerBlock]; }
    const RowRecord& Record(RowId row) const { return blocks_[row / recordsPerBlock][row % recordsPerBlock]; }
    static uint16_t Generation(const RowRecord& record) { return record.flags >> generationShift; }
    bool Has(RowId row, Flag flag) const { return (Record(row).flags & flag) != 0; }
    static void SetFlag(RowRecord& record, Flag flag, bool on);
    RowId NextRecord();
    void TakeRecord(RowId row) noexcept;
    void GiveBackRecord(RowId row) noexcept;

    bool SetShared(RowRecord& record, int col, std::string_view text);
    bool SetOwn(RowRecord& record, int col, std::string_view text);
    bool SetKey(RowId row, std::string_view text);
    void StoreKey(RowRecord& record);
    void CompactOwnTexts() noexcept;
    void CopyOwnTexts();

    uint32_t& Cell(RowRecord& record, int col) const { return record.cells[static_cast<size_t>(col)]; }
    uint32_t Cell(const RowRecord& record, int col) const { return record.cells[static_cast<size_t>(col)]; }
    const PooledText& KeyStart(const RowRecord& record) const { return pool_[Cell(record, schema_.keyParts.start)]; }
    std::string_view KeyEnd(const RowRecord& record) const {
        return ownTexts_.View(Cell(record, schema_.keyParts.end));
    }
    std::string_view StoredKey(const RowRecord& record) const { return ownTexts_.View(Cell(record, schema_.key)); }
    static bool IsDerived(const RowRecord& record) { return (record.flags & keyIsDerived) != 0; }
    std::optional<uint64_t> KeyStartHash(const RowRecord& record) const;
    bool HasKey(const RowRecord& record) const;
    std::string KeyOf(const RowRecord& record) const;
    bool CanDerive(const RowRecord& record, std::string_view text) const;
    bool IsMadeOfParts(const RowRecord& record, std::string_view text) const;
    bool KeyIs(const RowRecord& record, std::string_view text) const;
    bool KeyEquals(const RowRecord& record, std::string_view text) const;
    bool KeysEqual(const RowRecord& a, const RowRecord& b) const;
    uint32_t HashOfKey(const RowRecord& record) const noexcept;
    void IndexKey(RowId row, const RowRecord& now, const RowRecord& then);
    int32_t FindKey(std::string_view text, int32_t start) const;
    int32_t Scan(std::string_view text, int32_t start, int col) const;

    static constexpr RowId noRow = UINT32_MAX;

    const GridSchema schema_;
    const uint32_t number_;
    std::vector<std::unique_ptr<RowRecord[]>> blocks_;
    RowId freeRow_ = noRow;  ///< the first record to use again; the style of each names the next
    RowId nextRow_ = 0;
    int32_t ticked_ = 0;
    automation::IdSequence order_;
    TextArena ownTexts_;
    size_t nextCompaction_ = 0;  ///< so many dropped bytes must there be before compacting is tried again
    TextPool pool_;
    TextPool::Id lastPooled_[GridSchema::maxColumns] =
        {};  ///< the text that was written last in each column; holds a reference
    RowStyles styles_;
    KeyIndex keys_{order_};
};

/// Rows that are put in one behind the other for something that may yet fail: removed again unless they are kept.
class NewRows {
  public:
    NewRows(RowStore& store, int32_t first) : store_(store), first_(first), next_(first) {}
    ~NewRows();
    NewRows(const NewRows&) = delete;
    NewRows& operator=(const NewRows&) = delete;

    RowId Insert();
    void Keep() noexcept { first_ = next_; }

  private:
    RowStore& store_;
    int32_t first_;
    int32_t next_;
};

}  // namespace foldertree
