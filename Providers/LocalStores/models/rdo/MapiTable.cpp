// MapiTable: the cursor, the cells and the sort order.
#include "models/rdo/MapiTable.h"

#include <algorithm>
#include <string>
#include <thread>
#include <utility>

#include "automation/Text.h"
#include "models/common/CallArguments.h"
#include "models/common/MapiErrors.h"
#include "models/common/MapiProperties.h"
#include "models/common/MemberFunctions.h"

namespace localstores {

using automation::Arguments;
using automation::Array;
using automation::Value;

namespace {

/// What rows are ordered by: text without regard to case, then numbers and bytes; what a row lacks comes first.
std::string SortKey(const std::optional<Value>& value) {
    if (!value) return {};
    if (const std::string* text = value->AsText()) return automation::FoldCase(*text);
    if (const auto* bytes = value->AsBytes()) return {bytes->items.begin(), bytes->items.end()};
    const auto number = static_cast<uint32_t>(value->ToLong()) ^ 0x80000000u;
    std::string key;
    for (int shift = 24; shift >= 0; shift -= 8) key += static_cast<char>(number >> shift);
    return key;
}

std::vector<uint32_t> TagsOf(const Value& value) {
    std::vector<uint32_t> tags;
    if (const Array* array = value.AsArray()) {
        for (const Value& item : array->items) tags.push_back(TagOf(item));
    } else {
        const std::string text = value.ToText();
        for (size_t start = 0; start <= text.size();) {
            const size_t end = std::min(text.find(',', start), text.size());
            const size_t first = std::min(text.find_first_not_of(' ', start), end);
            tags.push_back(TagOf(text.substr(first, end - first)));
            start = end + 1;
        }
    }
    if (tags.empty()) throw InvalidArgument();
    return tags;
}

}  // namespace

MapiTable::MapiTable(std::vector<Row> rows, Manners manners)
    : rows_(std::move(rows)),
      manners_(manners),
      columns_{tags::displayName, tags::entryId, tags::folderType, tags::subfolders, tags::containerClass} {}

std::span<const automation::MemberEntry<MapiTable>> MapiTable::Members() {
    static constexpr automation::MemberEntry<MapiTable> members[] = {
        {"RowCount", Handler<&MapiTable::RowCount>},
        {"Columns", Handler<&MapiTable::Columns>, Setter<&MapiTable::SetColumns>},
        {"GoToFirst", Handler<&MapiTable::GoToFirst>},
        {"GoToLast", Handler<&MapiTable::GoToLast>},
        {"GoTo", Handler<&MapiTable::GoTo>, nullptr, 1, "Index"},
        {"Position", Handler<&MapiTable::Position>, Setter<&MapiTable::SetPosition>},
        {"GetRow", Handler<&MapiTable::GetRow>},
        {"GetRows", Handler<&MapiTable::GetRows>, nullptr, 1, "Count"},
        {"Sort", Handler<&MapiTable::Sort>, nullptr, 2, "Property Descending"},
    };
    return members;
}

Value MapiTable::Columns() const {
    Array columns;
    for (const uint32_t tag : columns_) columns.items.emplace_back(static_cast<int32_t>(tag));
    return columns;
}

void MapiTable::SetColumns(const Value& value) {
    columns_ = TagsOf(value);
}

void MapiTable::SetPosition(const Value& value) {
    const int32_t position = value.ToLong();
    if (position < 0 || position > RowCount()) throw InvalidArgument();
    position_ = static_cast<size_t>(position);
}

void MapiTable::GoTo(const Arguments& arguments) {
    SetPosition(Required(arguments, 0));
}

void MapiTable::GoToFirst() {
    position_ = 0;
}

void MapiTable::GoToLast() {
    position_ = rows_.empty() ? 0 : rows_.size() - 1;
}

Value MapiTable::ReadRow(const Row& row) const {
    Array cells;
    cells.items.reserve(columns_.size());
    for (const uint32_t tag : columns_)
        cells.items.push_back(row(tag).value_or(Value(automation::ErrorValue{automation::errors::mapiNotFound})));
    return cells;
}

Value MapiTable::GetRow() {
    if (position_ >= rows_.size()) return {};
    return ReadRow(rows_[position_++]);
}

Value MapiTable::GetRows(const Arguments& arguments) {
    const int32_t asked = Required(arguments, 0).ToLong();
    if (asked < 0) throw InvalidArgument();
    std::this_thread::sleep_for(manners_.tableDelay);
    const auto count = static_cast<size_t>(std::min(asked, manners_.rowsPerRead));
    Array batch;
    while (batch.items.size() < count && position_ < rows_.size()) batch.items.push_back(ReadRow(rows_[position_++]));
    return batch;
}

void MapiTable::Sort(const Arguments& arguments) {
    const uint32_t tag = TagOf(Required(arguments, 0));
    const bool descending = arguments.Has(1) && arguments[1].ToBoolean();
    std::vector<std::pair<std::string, Row>> keyed;
    keyed.reserve(rows_.size());
    for (Row& row : rows_) {
        std::string key = SortKey(row(tag));
        keyed.emplace_back(std::move(key), std::move(row));
    }
    std::stable_sort(keyed.begin(), keyed.end(), [descending](const auto& a, const auto& b) {
        return descending ? b.first < a.first : a.first < b.first;
    });
    std::transform(keyed.begin(), keyed.end(), rows_.begin(), [](auto& entry) { return std::move(entry.second); });
    position_ = 0;
}

}  // namespace localstores
