// MapiTable: a table of objects and their properties, read row by row or many rows at once.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "automation/TabledObject.h"
#include "localstores/Store.h"

namespace localstores {

/// Members: `RowCount`, `Columns` (an array of tags, or text with tags separated by commas), `GoToFirst`, `GoToLast`,
/// `GoTo(Index)`, `Position` (0-based), `GetRow()`, `GetRows(Count)`, `Sort(Property, Descending?)`.
/// A row is an array of cells in the order of the columns. Binary cells are arrays of bytes; the cell of a property
/// that the row lacks is the error value MAPI_E_NOT_FOUND. `GetRow` gives Empty and `GetRows` an empty array at the
/// end.
class MapiTable : public automation::TabledObject<MapiTable> {
  public:
    using Row = std::function<std::optional<automation::Value>(uint32_t tag)>;

    /// `rows` must keep alive what they need.
    MapiTable(std::vector<Row> rows, Manners manners);

    static std::span<const automation::MemberEntry<MapiTable>> Members();

    int32_t RowCount() const { return static_cast<int32_t>(rows_.size()); }
    automation::Value Columns() const;
    void SetColumns(const automation::Value& value);
    int32_t Position() const { return static_cast<int32_t>(position_); }
    void SetPosition(const automation::Value& value);
    void GoTo(const automation::Arguments& arguments);
    void GoToFirst();
    void GoToLast();
    automation::Value GetRow();
    automation::Value GetRows(const automation::Arguments& arguments);
    void Sort(const automation::Arguments& arguments);

  private:
    automation::Value ReadRow(const Row& row) const;

    std::vector<Row> rows_;
    Manners manners_;
    std::vector<uint32_t> columns_;
    size_t position_ = 0;
};

}  // namespace localstores
