// MapiTableTest: hierarchy tables.
#include <gmock/gmock.h>

#include <chrono>

#include "RdoTest.h"
#include "TestFiles.h"
#include "automation/Error.h"
#include "localstores/EntryId.h"

namespace localstores {
namespace {

using automation::Array;
using automation::ErrorValue;
using automation::ObjectRef;
using automation::Value;
using testing::ElementsAre;
namespace errors = automation::errors;

class MapiTable : public RdoTest {
  protected:
    ObjectRef table_ = Object(TopFolders(), "MAPITable");

    static Value Tags(std::vector<int32_t> tags) {
        Array array;
        for (const int32_t tag : tags) array.items.emplace_back(tag);
        return array;
    }
    static std::vector<std::string> FirstCells(const Value& rows) {
        std::vector<std::string> cells;
        for (const Value& row : rows.AsArray()->items) cells.push_back(row.AsArray()->items.at(0).ToText());
        return cells;
    }
    /// The cells of the row whose first cell has the text; the columns must start with the display name.
    std::vector<Value> RowOf(const char* name) {
        table_->Get("GoToFirst");
        const Value rows = table_->Get("GetRows", table_->Get("RowCount"));
        for (const Value& row : rows.AsArray()->items)
            if (row.AsArray()->items.at(0).ToText() == name) return row.AsArray()->items;
        ADD_FAILURE() << "no row " << name;
        return {};
    }
};

TEST_F(MapiTable, HasTheMembersOfAMapiTable) {
    for (const char* member :
         {"RowCount", "Columns", "GoToFirst", "GoToLast", "GoTo", "GetRow", "GetRows", "Sort", "Position"})
        EXPECT_TRUE(table_->HasMember(member)) << member;
}

TEST_F(MapiTable, HasARowForEveryChild) {
    EXPECT_EQ(table_->Get("RowCount").ToLong(), TopFolders()->Get("Count").ToLong());
}

TEST_F(MapiTable, RowsAreArraysOfCellsInTheOrderOfTheColumns) {
    table_->Put("Columns", Tags({0x36010003, 0x360A000B, 0x3613001E, 0x3001001F, 0x66700102, 0x0FFF0102}));
    const Value rows = table_->Get("GetRows", 1);
    ASSERT_NE(rows.AsArray(), nullptr);
    ASSERT_EQ(rows.AsArray()->items.size(), 1u);
    const Array* row = rows.AsArray()->items[0].AsArray();
    ASSERT_NE(row, nullptr);
    ASSERT_EQ(row->items.size(), 6u);
    std::vector<std::string> types;
    for (const Value& cell : row->items) types.emplace_back(cell.TypeName());
    EXPECT_THAT(types, ElementsAre("Long", "Boolean", "String", "String", "Byte()", "Byte()"));
    EXPECT_EQ(row->items[0].ToLong(), 1);
    EXPECT_TRUE(row->items[1].ToBoolean());
    EXPECT_EQ(row->items[2].ToText(), "IPF.Note");
    EXPECT_EQ(row->items[3].ToText(), "Inbox");
}

TEST_F(MapiTable, GivesTheLongAndTheShortFormOfAnIdentifier) {
    table_->Put("Columns", Tags({0x3001001F, 0x66700102, 0x0FFF0102}));
    const auto row = RowOf("Inbox");
    const std::string longForm = Text(Inbox(), "EntryID");
    EXPECT_EQ(Hex(row[1].AsBytes()->items), longForm);
    EXPECT_EQ(Hex(row[2].AsBytes()->items), "EF" + longForm.substr(2));
}

TEST_F(MapiTable, CellOfAMissingPropertyIsAnError) {
    table_->Put("Columns", Tags({0x3001001F, 0x3613001E, 0x12340003}));
    const auto row = RowOf("Projects");
    EXPECT_EQ(row[1].TypeName(), "Error");
    EXPECT_EQ(std::get<ErrorValue>(row[1].Raw()).code, 0x8004010Fu);
    EXPECT_TRUE(row[2].IsError());
    EXPECT_EQ(RowOf("Class of no characters")[1].ToText(), "") << "an empty class is a class";
}

TEST_F(MapiTable, TellsSearchFoldersAndFoldersWithoutChildren) {
    table_->Put("Columns", Tags({0x3001001F, 0x36010003, 0x360A000B}));
    EXPECT_EQ(RowOf("Unread mail")[1].ToLong(), 2);
    EXPECT_FALSE(RowOf("Outbox")[2].ToBoolean());
    EXPECT_TRUE(RowOf("Inbox")[2].ToBoolean());
}

TEST_F(MapiTable, ColumnsCanBeReadBack) {
    table_->Put("Columns", Tags({0x3001001F, 0x0FFF0102}));
    const Value columns = table_->Get("Columns");
    ASSERT_EQ(columns.AsArray()->items.size(), 2u);
    EXPECT_EQ(columns.AsArray()->items[1].ToLong(), 0x0FFF0102);
}

TEST_F(MapiTable, ColumnsCanBeGivenAsText) {
    table_->Put("Columns", "http://schemas.microsoft.com/mapi/proptag/0x3001001F,0x36010003");
    EXPECT_EQ(RowOf("Inbox")[1].ToLong(), 1);
}

TEST_F(MapiTable, ColumnsThatAreNoTagsAreRefused) {
    EXPECT_EQ(ErrorNumberOf([&] { table_->Put("Columns", "Name"); }), errors::invalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { table_->Put("Columns", ""); }), errors::invalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { table_->Put("Columns", Array()); }), errors::invalidArgument);
}

TEST_F(MapiTable, SortsByNameWithoutRegardToCase) {
    const ObjectRef table = Object(Object(Inbox(), "Folders"), "MAPITable");
    table->Get("Sort", 0x3001001F);
    EXPECT_THAT(FirstCells(table->Get("GetRows", 10)),
                ElementsAre("C:\\Reports\\Weekly", "Customers", "Newsletters 📰", "To do: \"urgent\""));
    table->Get("Sort", 0x3001001F, true);
    EXPECT_THAT(FirstCells(table->Get("GetRows", 10)),
                ElementsAre("To do: \"urgent\"", "Newsletters 📰", "Customers", "C:\\Reports\\Weekly"));
    table->Get("Sort", 0x3001001F, false);
    EXPECT_THAT(FirstCells(table->Get("GetRows", 1)), ElementsAre("C:\\Reports\\Weekly"));
}

TEST_F(MapiTable, SortsByPropertiesThatRowsLack) {
    table_->Put("Columns", Tags({0x3613001E}));
    table_->Get("Sort", 0x3613001E);
    const Value rows = table_->Get("GetRows", 1);
    EXPECT_TRUE(rows.AsArray()->items[0].AsArray()->items[0].IsError());
}

TEST_F(MapiTable, SortsNumbersAsNumbers) {
    table_->Put("Columns", Tags({0x36010003}));
    table_->Get("Sort", 0x36010003, true);
    EXPECT_EQ(FirstCells(table_->Get("GetRows", 3)), (std::vector<std::string>{"2", "2", "1"}));
}

TEST_F(MapiTable, ReadsOnFromWhereItStands) {
    const ObjectRef table = Object(Object(Inbox(), "Folders"), "MAPITable");
    EXPECT_EQ(FirstCells(table->Get("GetRows", 3)).size(), 3u);
    EXPECT_EQ(table->Get("Position").ToLong(), 3);
    EXPECT_THAT(FirstCells(table->Get("GetRows", 3)), ElementsAre("C:\\Reports\\Weekly"));
    EXPECT_THAT(FirstCells(table->Get("GetRows", 3)), ElementsAre());
    EXPECT_TRUE(table->Get("GetRow").IsEmpty());
    table->Get("GoToFirst");
    EXPECT_EQ(table->Get("GetRow").AsArray()->items[0].ToText(), "Customers");
    table->Get("GoToLast");
    EXPECT_EQ(table->Get("GetRow").AsArray()->items[0].ToText(), "C:\\Reports\\Weekly");
    table->Get("GoTo", 1);
    EXPECT_EQ(table->Get("GetRow").AsArray()->items[0].ToText(), "Newsletters 📰");
    table->Put("Position", 0);
    EXPECT_EQ(table->Get("GetRow").AsArray()->items[0].ToText(), "Customers");
}

TEST_F(MapiTable, HugeAndNegativeCounts) {
    EXPECT_EQ(FirstCells(table_->Get("GetRows", 0x7FFFFFFF)).size(),
              static_cast<size_t>(table_->Get("RowCount").ToLong()));
    EXPECT_EQ(FirstCells(table_->Get("GetRows", 0)).size(), 0u);
    EXPECT_EQ(ErrorNumberOf([&] { table_->Get("GetRows", -1); }), errors::invalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { table_->Put("Position", -1); }), errors::invalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { table_->Get("GoTo", 1000); }), errors::invalidArgument);
}

TEST_F(MapiTable, OfAFolderWithoutChildrenIsEmpty) {
    const ObjectRef outbox = session_->Get("GetDefaultFolder", 4).RequireObject();
    const ObjectRef table = Object(Object(outbox, "Folders"), "MAPITable");
    EXPECT_EQ(table->Get("RowCount").ToLong(), 0);
    table->Get("Sort", 0x3001001F);
    table->Get("GoToFirst");
    table->Get("GoToLast");
    EXPECT_TRUE(table->Get("GetRow").IsEmpty());
    EXPECT_THAT(FirstCells(table->Get("GetRows", 5)), ElementsAre());
}

TEST_F(MapiTable, StingyStoreGivesFewerRowsThanAsked) {
    const ObjectRef session = MakeRdoSession();
    const ObjectRef store = session->Get("Open", "sample?rows=3").RequireObject();
    const ObjectRef table = Object(Object(Object(store, "IPMRootFolder"), "Folders"), "MAPITable");
    EXPECT_EQ(FirstCells(table->Get("GetRows", 100)).size(), 3u);
    EXPECT_EQ(FirstCells(table->Get("GetRows", 2)).size(), 2u);
}

TEST_F(MapiTable, SlowStoreTakesItsTime) {
    const ObjectRef session = MakeRdoSession();
    const ObjectRef store = session->Get("Open", "sample?delay=30").RequireObject();
    const ObjectRef table = Object(Object(Object(store, "IPMRootFolder"), "Folders"), "MAPITable");
    const auto start = std::chrono::steady_clock::now();
    table->Get("GetRows", 100);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

}  // namespace
}  // namespace localstores
