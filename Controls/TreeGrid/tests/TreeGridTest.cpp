// TreeGridTest: the grid's operations one by one: ranges, texts, keys, looks, cursor, notifications, memory.
#include "rows/TreeGrid.h"
#include "tests/SampleSchema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace foldertree {
namespace {

using namespace sample;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int32_t least = std::numeric_limits<int32_t>::min();
constexpr int32_t most = std::numeric_limits<int32_t>::max();

template <class Action>
uint32_t ErrorOf(Action&& action) {
    try {
        action();
    } catch (const automation::Error& error) {
        return error.Number();
    }
    return 0;
}

/// Writes down what the grid tells.
class Log : public TreeGridObserver {
  public:
    explicit Log(TreeGrid& grid) : grid_(grid) { grid_.AddObserver(this); }
    ~Log() override { grid_.RemoveObserver(this); }
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    std::vector<std::string> lines;

    void GridChanged(const GridChanges& changes) noexcept override {
        Add("moved from", changes.firstMoved);
        Add("outline from", changes.firstOutline);
        if (changes.firstChanged != GridChanges::noRow)
            Add("changed to " + std::to_string(changes.lastChanged) + " from", changes.firstChanged);
        if (changes.emptied) lines.push_back("emptied");
        if (changes.columns) lines.push_back("columns");
        if (changes.appearance) lines.push_back("appearance");
        if (changes.cursor) lines.push_back("cursor " + std::to_string(grid_.CurrentRow()));
    }
    /// What a batch that ends here tells.
    std::vector<std::string> Batch() {
        lines.clear();
        grid_.DeliverChanges();
        return lines;
    }

  private:
    void Add(const std::string& what, int32_t row) {
        if (row != GridChanges::noRow) lines.push_back(what + " " + std::to_string(row));
    }
    TreeGrid& grid_;
};

class TreeGridTest : public ::testing::Test {
  protected:
    void AddRows(int32_t count) { grid_.SetRowCount(grid_.RowCount() + count); }
    /// The walk's way: a row at the end with identifiers and the key they make.
    int32_t AddFolder(const std::string& store, const std::string& entry) {
        AddRows(1);
        const int32_t row = grid_.RowCount() - 1;
        grid_.SetCellText(row, colStoreID, store);
        grid_.SetCellText(row, colEntryID, entry);
        grid_.SetCellText(row, colKey, "S" + store + "|" + entry);
        return row;
    }
    int32_t AddKeyed(std::string_view key) {
        AddRows(1);
        grid_.SetCellText(grid_.RowCount() - 1, colKey, key);
        return grid_.RowCount() - 1;
    }

    TreeGrid grid_{sample::schema};
};

// Shape

TEST_F(TreeGridTest, ANewGridHasOneHeaderRowAnd14Columns) {
    EXPECT_EQ(grid_.RowCount(), 1);
    EXPECT_EQ(grid_.FixedRowCount(), 1);
    EXPECT_EQ(grid_.ColCount(), 14);
    EXPECT_EQ(grid_.CurrentRow(), 0);
}

TEST_F(TreeGridTest, RowsAreAppendedEmptyByRaisingTheCount) {
    grid_.SetRowCount(3);
    for (int col = 0; col < grid_.ColCount(); ++col) EXPECT_EQ(grid_.CellText(2, col), "");
    EXPECT_EQ(grid_.RowOutlineLevel(2), 0);
    EXPECT_FALSE(grid_.IsNode(2));
    EXPECT_EQ(grid_.NodeState(2), nodeExpanded);
    EXPECT_EQ(grid_.RowHeight(2), 0);
}

TEST_F(TreeGridTest, LoweringTheCountRemovesRowsFromTheEnd) {
    AddFolder("1", "A");
    AddFolder("1", "B");
    grid_.SetRowCount(2);
    EXPECT_EQ(grid_.FindRow("S1|A"), 1);
    EXPECT_EQ(grid_.FindRow("S1|B"), -1);
}

TEST_F(TreeGridTest, EmptyingTheTreeKeepsTheHeaderAsItIs) {
    grid_.SetCellText(0, colName, "Name");
    grid_.SetCellFormat(CellSetting::Bold, 0, colName, 1);
    grid_.SetRowHeight(0, 300);
    for (int folder = 0; folder < 100; ++folder) AddFolder("1", std::to_string(folder));
    grid_.SetRowCount(grid_.FixedRowCount());
    EXPECT_EQ(grid_.CellText(0, colName), "Name");
    EXPECT_TRUE(grid_.Look(0, colName).bold);
    EXPECT_EQ(grid_.RowHeight(0), 300);
    EXPECT_EQ(grid_.VisibleCount(), 0);
    EXPECT_EQ(grid_.FindRow("S1|5"), -1);
    EXPECT_EQ(AddFolder("1", "5"), 1);
    EXPECT_EQ(grid_.FindRow("S1|5"), 1);
}

TEST_F(TreeGridTest, EmptyingTheTreeGivesItsMemoryBack) {
    const size_t before = grid_.MemoryUse().total;
    for (int folder = 0; folder < 20'000; ++folder) AddFolder("1", std::to_string(folder));
    grid_.VisibleCount();
    ASSERT_GT(grid_.MemoryUse().total, before + 1'000'000);
    grid_.SetRowCount(1);
    grid_.VisibleCount();
    EXPECT_LT(grid_.MemoryUse().total, before + 200'000);
}

TEST_F(TreeGridTest, RowsOutOfRangeAreError9InEveryOperation) {
    AddRows(2);
    for (const int32_t row : {-1, 3, least, most}) {
        EXPECT_EQ(ErrorOf([&] { grid_.CellText(row, 0); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetCellText(row, 0, "a"); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.CellValue(row, 0); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.CellView(row, 0); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetCellFormat(CellSetting::Bold, row, 0, 1); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetCellFormat(CellSetting::Bold, row, 0, row, 1, 1); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.CellFormat(CellSetting::Bold, row, 0); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.Look(row, 0); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetRowHeight(row, 1); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.RowHeight(row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.RowOutlineLevel(row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetRowOutlineLevel(row, 1); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.IsNode(row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetIsNode(row, true); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.NodeState(row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetNodeState(row, 0); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.HasChildren(row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.VisiblePosition(row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.VisibleAncestor(row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetCurrentRow(row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.RemoveRow(row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.VisibleRow(row); }), 9u);
    }
    for (const int32_t row : {-1, 4, least, most}) {
        EXPECT_EQ(ErrorOf([&] { grid_.AddRow("", row); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.FindRow("x", row); }), 9u);
    }
    EXPECT_EQ(grid_.RowCount(), 3);
}

TEST_F(TreeGridTest, ColumnsOutOfRangeAreError9InEveryOperation) {
    for (const int col : {-1, 14, least, most}) {
        EXPECT_EQ(ErrorOf([&] { grid_.CellText(0, col); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetCellText(0, col, "a"); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.CellValue(0, col); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.CellView(0, col); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetCellFormat(CellSetting::Bold, 0, 0, 0, col, 1); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.CellFormat(CellSetting::Bold, 0, col); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.FindRow("", 0, col); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.ColHidden(col); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetColHidden(col, true); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.ColDataType(col); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetColDataType(col, 11); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.AutoSizeColumns(0, col); }), 9u);
        EXPECT_EQ(ErrorOf([&] { grid_.SetColCount(col); }), col == 14 ? 0u : 9u);
    }
}

TEST_F(TreeGridTest, TheHeaderRowIsNeitherRemovedNorPushedDown) {
    AddRows(1);
    EXPECT_EQ(ErrorOf([&] { grid_.RemoveRow(0); }), 9u);
    EXPECT_EQ(ErrorOf([&] { grid_.AddRow("", 0); }), 9u);
    EXPECT_EQ(ErrorOf([&] { grid_.SetRowCount(0); }), 9u);
    EXPECT_EQ(ErrorOf([&] { grid_.SetRowCount(-5); }), 9u);
}

TEST_F(TreeGridTest, MoreRowsThanMemoryCanHoldAreOutOfMemory) {
    grid_.SetRowCount(2);
    EXPECT_EQ(ErrorOf([&] { grid_.SetRowCount(most); }), 0x8007000E);
    EXPECT_EQ(grid_.RowCount(), 2);
    EXPECT_EQ(AddFolder("1", "A"), 2);
}

TEST_F(TreeGridTest, ABlockOfCellsThatIsPartlyOutOfRangeChangesNothing) {
    AddRows(2);
    EXPECT_EQ(ErrorOf([&] { grid_.SetCellFormat(CellSetting::Bold, 1, 0, 3, 13, 1); }), 9u);
    EXPECT_EQ(ErrorOf([&] { grid_.SetCellFormat(CellSetting::Bold, 2, 0, 1, 13, 1); }), 9u);
    EXPECT_FALSE(grid_.Look(1, 0).bold);
    EXPECT_FALSE(grid_.Look(2, 0).bold);
}

TEST_F(TreeGridTest, AddRowWritesTheFirstCellAndTellsTheRow) {
    EXPECT_EQ(grid_.AddRow("-1"), 1);
    EXPECT_EQ(grid_.AddRow("0", 1), 1);
    EXPECT_EQ(grid_.AddRow("1", 3), 3);
    EXPECT_EQ(grid_.CellText(1, colSel), "0");
    EXPECT_EQ(grid_.CellText(2, colSel), "-1");
    EXPECT_EQ(grid_.CellText(3, colSel), "1");
}

// Cells

TEST_F(TreeGridTest, TextsAreKeptByteForByteInEveryColumn) {
    AddRows(1);
    const std::string texts[] = {std::string("a\0b\0", 4),
                                 std::string(65'536, 'x'),
                                 "\xFF\xC3",
                                 "\xED\xA0\x80lone",
                                 "\xF0\x9F\x93\xAC",
                                 "tab\tline\n\"\\",
                                 std::string(1, '\0'),
                                 " ",
                                 "",
                                 std::string(2'000'000, 'y')};
    for (int col = 0; col < grid_.ColCount(); ++col) {
        for (const std::string& text : texts) {
            grid_.SetCellText(1, col, text);
            ASSERT_EQ(grid_.CellText(1, col), text) << "column " << col;
        }
    }
}

TEST_F(TreeGridTest, ACellMayBeWrittenFromAViewOfAnother) {
    AddRows(300);
    grid_.SetCellText(1, colName, "A name that is long enough to lie outside of the text object");
    grid_.SetCellText(1, colSel, "short");
    for (int32_t row = 2; row <= 300; ++row) {
        grid_.SetCellText(row, colName, grid_.CellView(row - 1, colName));
        grid_.SetCellText(row, colSel, grid_.CellView(row - 1, colSel));
        grid_.SetCellText(row, colPath, grid_.CellView(row - 1, colSel));
    }
    EXPECT_EQ(grid_.CellText(300, colName), grid_.CellText(1, colName));
    EXPECT_EQ(grid_.CellText(300, colSel), "short");
    EXPECT_EQ(grid_.CellText(300, colPath), "short");
    EXPECT_EQ(grid_.AddRow(grid_.CellView(1, colName), 1), 1);
    EXPECT_EQ(grid_.CellText(1, colSel), grid_.CellText(2, colName));
}

TEST_F(TreeGridTest, CellValueIsTheLeadingNumberInEveryColumn) {
    AddRows(1);
    for (int col = 0; col < grid_.ColCount(); ++col) {
        for (const auto& [text, value] : std::initializer_list<std::pair<const char*, double>>{
                 {"", 0}, {" ", 0}, {"-1", -1}, {"True", -1}, {"true", -1}, {"False", 0}, {"2.5x", 2.5}, {"abc", 0}}) {
            grid_.SetCellText(1, col, text);
            EXPECT_EQ(grid_.CellValue(1, col), value) << text << " in column " << col;
        }
    }
}

TEST_F(TreeGridTest, CellViewRefusesTheKeyColumn) {
    EXPECT_EQ(ErrorOf([&] { grid_.CellView(0, colKey); }), 5u);
}

TEST_F(TreeGridTest, TextsThatAreWrittenOverAndOverUseNoMoreMemory) {
    AddRows(10);
    for (int round = 0; round < 100; ++round)
        for (int32_t row = 1; row <= 10; ++row)
            for (const int col : {colName, colIndex, colFolderRecID, colPath})
                grid_.SetCellText(row, col, std::to_string(round) + std::string(20'000, 'x'));
    // 80 MB were written.
    EXPECT_LT(grid_.MemoryUse().total, 16'000'000u);
    EXPECT_EQ(grid_.CellText(10, colPath).substr(0, 3), "99x");
}

// Keys

TEST_F(TreeGridTest, FindRowReturnsTheFirstOfManyRowsWithTheSameKey) {
    for (int row = 0; row < 1000; ++row) AddKeyed("Twin");
    EXPECT_EQ(grid_.FindRow("Twin"), 1);
    grid_.AddRow("", 1);
    EXPECT_EQ(grid_.FindRow("Twin"), 2);
    grid_.SetCellText(1, colKey, "tWIN");
    EXPECT_EQ(grid_.FindRow("Twin"), 1);
    grid_.RemoveRow(1);
    grid_.RemoveRow(1);
    EXPECT_EQ(grid_.FindRow("Twin"), 1);
    EXPECT_EQ(grid_.FindRow("Twin", 500), 500);
    grid_.SetRowCount(2);
    EXPECT_EQ(grid_.FindRow("Twin"), 1);
    EXPECT_EQ(grid_.FindRow("Twin", 2), -1);
}

TEST_F(TreeGridTest, FindRowStartsAtTheHeaderRow) {
    AddKeyed("Key");
    grid_.SetCellText(0, colKey, "Key");
    EXPECT_EQ(grid_.FindRow("key"), 0);
    EXPECT_EQ(grid_.FindRow("key", 1), 1);
}

TEST_F(TreeGridTest, FindRowComparesWithoutRegardToCaseInAllScripts) {
    AddKeyed("S\xC3\x84|\xD0\x96");
    const int32_t derived = AddFolder("\xC3\x96", "\xCE\xA9x");
    EXPECT_EQ(grid_.FindRow("s\xC3\xA4|\xD0\xB6"), 1);
    EXPECT_EQ(grid_.FindRow("s\xC3\xB6|\xCF\x89X"), derived);
    EXPECT_EQ(grid_.FindRow("so|wx"), -1);
}

TEST_F(TreeGridTest, FindRowWantsTheWholeKey) {
    AddFolder("STORE", "ENTRY");
    EXPECT_EQ(grid_.FindRow("SSTORE|ENTRY"), 1);
    EXPECT_EQ(grid_.FindRow("SSTORE|ENTR"), -1);
    EXPECT_EQ(grid_.FindRow("SSTORE|ENTRYY"), -1);
    EXPECT_EQ(grid_.FindRow("SSTORE"), -1);
    EXPECT_EQ(grid_.FindRow(std::string("SSTORE|ENTRY\0", 13)), -1);
}

TEST_F(TreeGridTest, AnEmptyKeyIsFoundInTheHeaderRow) {
    AddKeyed("Key");
    AddRows(1);
    EXPECT_EQ(grid_.FindRow(""), 0);
    EXPECT_EQ(grid_.FindRow("", 1), 2);
    grid_.SetCellText(0, colKey, "Header");
    EXPECT_EQ(grid_.FindRow(""), 2);
}

TEST_F(TreeGridTest, AnEmptyStoreAndEntryStillMakeAKey) {
    EXPECT_EQ(AddFolder("", ""), 1);
    EXPECT_EQ(grid_.CellText(1, colKey), "S|");
    EXPECT_EQ(grid_.FindRow("s|"), 1);
}

TEST_F(TreeGridTest, AKeyStaysWhenTheIdentifiersThatMadeItChange) {
    AddFolder("STORE", "ENTRY");
    grid_.SetCellText(1, colStoreID, "OTHER");
    EXPECT_EQ(grid_.CellText(1, colKey), "SSTORE|ENTRY");
    EXPECT_EQ(grid_.FindRow("SSTORE|ENTRY"), 1);
    EXPECT_EQ(grid_.FindRow("SOTHER|ENTRY"), -1);
    AddFolder("STORE", "SECOND");
    grid_.SetCellText(2, colEntryID, "CHANGED");
    EXPECT_EQ(grid_.FindRow("SSTORE|SECOND"), 2);
    EXPECT_EQ(grid_.FindRow("SSTORE|CHANGED"), -1);
}

TEST_F(TreeGridTest, BarsInsideOfAStoreIdentifierDoNotConfuseKeys) {
    AddFolder("a|b", "c");
    AddFolder("a", "b|c");  // the same text as a key, made of other parts
    EXPECT_EQ(grid_.FindRow("Sa|b|c"), 1);
    EXPECT_EQ(grid_.FindRow("Sa|b|c", 2), 2);
}

TEST_F(TreeGridTest, AKeyThatItsIdentifiersSpellIsNotStoredAgain) {
    const std::string store(528, 'A');
    for (int folder = 0; folder < 20'000; ++folder) AddFolder(store, std::to_string(folder) + std::string(86, 'B'));
    const TreeGrid::Memory memory = grid_.MemoryUse();
    EXPECT_LT((memory.total - memory.ownText) / 20'000, 200u);
}

TEST_F(TreeGridTest, OtherColumnsAreSearchedFromTheGivenRow) {
    AddRows(3);
    grid_.SetCellText(1, colRowKind, "Dummy");
    grid_.SetCellText(3, colRowKind, "dummy");
    EXPECT_EQ(grid_.FindRow("DUMMY", 0, colRowKind), 1);
    EXPECT_EQ(grid_.FindRow("DUMMY", 2, colRowKind), 3);
    EXPECT_EQ(grid_.FindRow("Dummy", 4, colRowKind), -1);
}

// Looks

TEST_F(TreeGridTest, AnUnsetColourReadsAsTheWindowsOwn) {
    EXPECT_EQ(grid_.CellFormat(CellSetting::BackColor, 0, 0), colors::window);
    EXPECT_EQ(grid_.CellFormat(CellSetting::ForeColor, 0, 0), colors::buttonText);
    EXPECT_FALSE(grid_.Look(0, 0).backColor);
}

TEST_F(TreeGridTest, ABlockOfCellsTakesAFormatAndTheOthersDoNot) {
    AddRows(3);
    grid_.SetCellFormat(CellSetting::BackColor, 1, 2, 2, 13, 0x0000FFFFu);
    for (int32_t row = 0; row <= 3; ++row)
        for (int col = 0; col < 14; ++col)
            EXPECT_EQ(grid_.CellFormat(CellSetting::BackColor, row, col) == 0x0000FFFFu,
                      row >= 1 && row <= 2 && col >= 2)
                << row << ", " << col;
}

TEST_F(TreeGridTest, FormatsReadBackAsTheyWereSet) {
    AddRows(1);
    grid_.SetCellFormat(CellSetting::Picture, 1, colName, uint32_t{lastPicture});
    grid_.SetCellFormat(CellSetting::PictureAlignment, 1, colName, 1);
    grid_.SetCellFormat(CellSetting::ForeColor, 1, colName, colors::buttonShadow);
    grid_.SetCellFormat(CellSetting::Bold, 1, colName, 0xFFFFFFFF);
    EXPECT_EQ(grid_.CellFormat(CellSetting::Picture, 1, colName), uint32_t{lastPicture});
    EXPECT_EQ(grid_.CellFormat(CellSetting::PictureAlignment, 1, colName), 1u);
    EXPECT_EQ(grid_.CellFormat(CellSetting::ForeColor, 1, colName), colors::buttonShadow);
    EXPECT_EQ(grid_.CellFormat(CellSetting::Bold, 1, colName), 1u);
    EXPECT_EQ(grid_.Look(1, colName), (CellLook{{}, colors::buttonShadow, true, lastPicture, 1}));
}

TEST_F(TreeGridTest, ASettingOrPictureThatDoesNotExistIsError5) {
    EXPECT_EQ(ErrorOf([&] { grid_.SetCellFormat(static_cast<CellSetting>(99), 0, 0, 1); }), 5u);
    EXPECT_EQ(ErrorOf([&] { grid_.CellFormat(static_cast<CellSetting>(99), 0, 0); }), 5u);
    EXPECT_EQ(ErrorOf([&] { grid_.SetCellFormat(CellSetting::Picture, 0, 0, lastPicture + 1); }), 5u);
    EXPECT_EQ(ErrorOf([&] { grid_.SetCellFormat(CellSetting::PictureAlignment, 0, 0, 256); }), 5u);
}

TEST_F(TreeGridTest, RowsOfManyDifferentLooksKeepTheirOwn) {
    AddRows(3000);
    for (int round = 1; round <= 3; ++round)
        for (int32_t row = 1; row <= 3000; ++row)
            grid_.SetCellFormat(CellSetting::BackColor, row, row % 14, static_cast<uint32_t>(row * round));
    for (int32_t row = 1; row <= 3000; ++row)
        ASSERT_EQ(grid_.CellFormat(CellSetting::BackColor, row, row % 14), static_cast<uint32_t>(row * 3));
}

TEST_F(TreeGridTest, ANegativeRowHeightIsTheDefaultOne) {
    grid_.SetRowHeight(0, 300);
    EXPECT_EQ(grid_.RowHeight(0), 300);
    grid_.SetRowHeight(0, -1);
    EXPECT_EQ(grid_.RowHeight(0), 0);
}

// Outline

TEST_F(TreeGridTest, NodeStateIsKeptWithoutEffectOnARowThatIsNoNode) {
    AddRows(2);
    grid_.SetRowOutlineLevel(2, 1);
    grid_.SetNodeState(1, nodeCollapsed);
    EXPECT_EQ(grid_.NodeState(1), nodeCollapsed);
    EXPECT_EQ(grid_.VisibleCount(), 2);
    grid_.SetIsNode(1, true);
    EXPECT_EQ(grid_.VisibleCount(), 1);
}

TEST_F(TreeGridTest, ANodeStateThatDoesNotExistIsError5) {
    EXPECT_EQ(ErrorOf([&] { grid_.SetNodeState(0, 1); }), 5u);
    EXPECT_EQ(ErrorOf([&] { grid_.SetNodeState(0, -2); }), 5u);
}

TEST_F(TreeGridTest, APlaceholderIsSomethingToOpen) {
    AddRows(2);
    grid_.SetRowOutlineLevel(2, 1);
    EXPECT_TRUE(grid_.HasChildren(1));
    EXPECT_FALSE(grid_.HasChildren(2));
    grid_.RemoveRow(2);
    EXPECT_FALSE(grid_.HasChildren(1));
}

TEST_F(TreeGridTest, TheOutlineFollowsInsertionsBelowAClosedNode) {
    AddRows(3);  // a node, its placeholder, a sibling
    grid_.SetIsNode(1, true);
    grid_.SetRowOutlineLevel(2, 1);
    grid_.SetNodeState(1, nodeCollapsed);
    EXPECT_EQ(grid_.VisibleCount(), 2);
    grid_.RemoveRow(2);
    for (int32_t child = 0; child < 10; ++child) grid_.SetRowOutlineLevel(grid_.AddRow("", 2), 1);
    EXPECT_EQ(grid_.VisibleCount(), 2);
    EXPECT_EQ(grid_.VisibleRow(1), 12);
    EXPECT_EQ(grid_.VisibleAncestor(5), 1);
    grid_.SetNodeState(1, nodeExpanded);
    EXPECT_EQ(grid_.VisibleCount(), 12);
    EXPECT_EQ(grid_.VisiblePosition(12), 11);
}

TEST_F(TreeGridTest, OutlineLevelsReachTheEndsOfTheirType) {
    AddRows(3);
    grid_.SetIsNode(1, true);
    grid_.SetNodeState(1, nodeCollapsed);
    grid_.SetRowOutlineLevel(1, std::numeric_limits<int16_t>::min());
    grid_.SetRowOutlineLevel(2, std::numeric_limits<int16_t>::max());
    EXPECT_EQ(grid_.RowOutlineLevel(2), std::numeric_limits<int16_t>::max());
    EXPECT_EQ(grid_.VisibleCount(), 1);
}

// Cursor

TEST_F(TreeGridTest, TheCursorStaysOnItsRowWhenRowsComeAndGoAboveIt) {
    AddRows(5);
    grid_.SetCurrentRow(3);
    Log log(grid_);
    grid_.AddRow("", 3);
    EXPECT_EQ(grid_.CurrentRow(), 4);
    grid_.AddRow("", 5);
    EXPECT_EQ(grid_.CurrentRow(), 4);
    grid_.RemoveRow(1);
    EXPECT_EQ(grid_.CurrentRow(), 3);
    grid_.RemoveRow(4);
    EXPECT_EQ(grid_.CurrentRow(), 3);
    EXPECT_THAT(log.Batch(), ElementsAre("moved from 1"));
}

TEST_F(TreeGridTest, ARemovedCursorRowHandsTheCursorToTheRowAbove) {
    AddRows(3);
    grid_.SetCurrentRow(2);
    grid_.RemoveRow(2);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    grid_.RemoveRow(1);
    EXPECT_EQ(grid_.CurrentRow(), 1);  // there is none above but the header
    grid_.RemoveRow(1);
    EXPECT_EQ(grid_.CurrentRow(), 0);
}

TEST_F(TreeGridTest, TheCursorIsNowhereInAnEmptiedTree) {
    AddRows(5);
    grid_.SetCurrentRow(4);
    grid_.SetRowCount(3);
    EXPECT_EQ(grid_.CurrentRow(), 2);
    grid_.SetRowCount(1);
    EXPECT_EQ(grid_.CurrentRow(), 0);
    AddRows(1);
    EXPECT_EQ(grid_.CurrentRow(), 0);
}

// Notifications

TEST_F(TreeGridTest, EveryChangeIsToldInTheNextBatch) {
    Log log(grid_);
    grid_.SetRowCount(4);
    EXPECT_THAT(log.Batch(), ElementsAre("moved from 1"));
    grid_.AddRow("", 2);
    EXPECT_THAT(log.Batch(), ElementsAre("moved from 2"));
    grid_.RemoveRow(3);
    EXPECT_THAT(log.Batch(), ElementsAre("moved from 3"));
    grid_.SetRowCount(3);
    EXPECT_THAT(log.Batch(), ElementsAre("moved from 3"));
    grid_.SetCellText(1, colName, "Name");
    EXPECT_THAT(log.Batch(), ElementsAre("changed to 1 from 1"));
    grid_.SetCellFormat(CellSetting::Bold, 1, 0, 2, 13, 1);
    EXPECT_THAT(log.Batch(), ElementsAre("changed to 2 from 1"));
    grid_.SetRowHeight(2, 300);
    EXPECT_THAT(log.Batch(), ElementsAre("changed to 2 from 2"));
    grid_.SetRowOutlineLevel(2, 1);
    EXPECT_THAT(log.Batch(), ElementsAre("outline from 2"));
    grid_.SetIsNode(1, true);
    EXPECT_THAT(log.Batch(), ElementsAre("outline from 1"));
    grid_.SetNodeState(1, nodeCollapsed);
    EXPECT_THAT(log.Batch(), ElementsAre("outline from 1"));
    grid_.SetCurrentRow(2);
    EXPECT_THAT(log.Batch(), ElementsAre("cursor 2"));
    grid_.SetColHidden(colIndex, true);
    EXPECT_THAT(log.Batch(), ElementsAre("columns"));
    grid_.SetColDataType(colSel, 11);
    EXPECT_THAT(log.Batch(), ElementsAre("columns"));
    grid_.AutoSizeColumns(0, 13);
    EXPECT_THAT(log.Batch(), ElementsAre("columns"));
    grid_.SetEnabled(false);
    EXPECT_THAT(log.Batch(), ElementsAre("appearance"));
    grid_.SetRowCount(1);
    EXPECT_THAT(log.Batch(), ElementsAre("moved from 1", "emptied", "cursor 0"));
}

TEST_F(TreeGridTest, ManyChangesAreToldAsOneBatchWithTheOuterRows) {
    AddRows(9);
    Log log(grid_);
    grid_.AddRow("", 7);
    grid_.RemoveRow(4);
    grid_.SetCellText(3, colName, "c");
    grid_.SetCellText(2, colName, "b");
    grid_.SetRowOutlineLevel(6, 1);
    grid_.SetRowOutlineLevel(5, 1);
    grid_.SetCurrentRow(3);
    EXPECT_THAT(log.lines, IsEmpty()) << "nothing is told in the middle of a change";
    EXPECT_THAT(log.Batch(), ElementsAre("moved from 4", "outline from 5", "changed to 3 from 2", "cursor 3"));
    EXPECT_THAT(log.Batch(), IsEmpty()) << "and nothing twice";
}

TEST_F(TreeGridTest, WritingWhatIsThereAlreadyIsNotTold) {
    AddRows(2);
    grid_.SetCellText(1, colName, "Name");
    AddFolder("1", "A");
    Log log(grid_);
    grid_.SetCellText(1, colName, "Name");
    grid_.SetCellText(1, colSel, "");
    grid_.SetCellText(3, colKey, "S1|A");
    grid_.SetCellText(3, colStoreID, "1");
    grid_.SetCellFormat(CellSetting::Bold, 1, 0, 2, 13, 0);
    grid_.SetRowOutlineLevel(1, 0);
    grid_.SetIsNode(1, false);
    grid_.SetNodeState(1, nodeExpanded);
    grid_.SetRowCount(4);
    EXPECT_THAT(log.Batch(), IsEmpty());
}

TEST_F(TreeGridTest, ARemovedObserverHearsNothingMore) {
    auto log = std::make_unique<Log>(grid_);
    grid_.SetRowCount(2);
    EXPECT_THAT(log->Batch(), ElementsAre("moved from 1"));
    log.reset();
    grid_.SetRowCount(3);
    grid_.DeliverChanges();  // under the sanitizers a call to the dead observer would end the test
    EXPECT_EQ(grid_.RowCount(), 3);
}

TEST_F(TreeGridTest, AnObserverThatLeavesWhenItIsToldLeavesTheOthersTold) {
    struct Leaving : TreeGridObserver {
        explicit Leaving(TreeGrid& grid) : grid_(grid) { grid_.AddObserver(this); }
        ~Leaving() override { grid_.RemoveObserver(this); }
        void GridChanged(const GridChanges&) noexcept override {
            ++told;
            grid_.RemoveObserver(this);
        }
        int told = 0;
        TreeGrid& grid_;
    } leaving(grid_);
    Log log(grid_);
    grid_.SetRowCount(2);
    EXPECT_THAT(log.Batch(), ElementsAre("moved from 1"));
    grid_.SetRowCount(3);
    EXPECT_THAT(log.Batch(), ElementsAre("moved from 2"));
    EXPECT_EQ(leaving.told, 1);
}

// Row handles

TEST_F(TreeGridTest, AHandleFollowsItsRow) {
    AddRows(4);
    const RowHandle third = grid_.HandleOf(3);
    grid_.AddRow("", 1);
    EXPECT_EQ(grid_.RowOf(third), 4);
    grid_.RemoveRow(2);
    grid_.RemoveRow(1);
    EXPECT_EQ(grid_.RowOf(third), 2);
    EXPECT_EQ(grid_.HandleOf(2), third);
}

TEST_F(TreeGridTest, AHandleEndsWithItsRowAndNeverNamesAnother) {
    AddRows(3);
    const RowHandle gone = grid_.HandleOf(2);
    grid_.RemoveRow(2);
    EXPECT_EQ(grid_.RowOf(gone), std::nullopt);
    for (int again = 0; again < 20000; ++again) {
        grid_.AddRow("", 2);
        ASSERT_EQ(grid_.RowOf(gone), std::nullopt) << again;
        grid_.RemoveRow(2);
    }
}

TEST_F(TreeGridTest, HandlesEndWhenTheTreeIsEmptiedAndFilledAnew) {
    AddRows(3);
    const RowHandle first = grid_.HandleOf(1);
    grid_.SetRowCount(2);
    EXPECT_EQ(grid_.RowOf(first), 1) << "rows that stay keep their handles";
    grid_.SetRowCount(1);
    EXPECT_EQ(grid_.RowOf(first), std::nullopt);
    AddRows(3);
    EXPECT_EQ(grid_.RowOf(first), std::nullopt);
}

TEST_F(TreeGridTest, AHandleOfNothingNamesNoRow) {
    AddRows(1);
    EXPECT_EQ(grid_.RowOf(RowHandle()), std::nullopt);
}

// Grid-wide

TEST_F(TreeGridTest, ColumnAndGridSettingsReadBack) {
    grid_.SetColHidden(colIndex, true);
    grid_.SetColDataType(colSel, 11);
    grid_.SetBackColor(1);
    grid_.SetTextColor(2);
    grid_.SetEnabled(false);
    grid_.SetEditText("typed");
    EXPECT_TRUE(grid_.ColHidden(colIndex));
    EXPECT_FALSE(grid_.ColHidden(colName));
    EXPECT_EQ(grid_.ColDataType(colSel), 11);
    EXPECT_EQ(grid_.BackColor(), 1u);
    EXPECT_EQ(grid_.TextColor(), 2u);
    EXPECT_FALSE(grid_.Enabled());
    EXPECT_EQ(grid_.EditText(), "typed");
}

}  // namespace
}  // namespace foldertree
