// TreeGridModelTest: random sequences of all operations on the tree grid and on the plain one, compared as they go.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "PlainGrid.h"

namespace foldertree::testing {
namespace {

using namespace sample;

/// Keeps a copy of the rows' number by listening alone, as a window does.
/// Keeps the row count by what it is told.
class RowCounter : public TreeGridObserver {
  public:
    explicit RowCounter(TreeGrid& grid) : grid_(grid) {}
    int32_t rows = 1;
    void GridChanged(const GridChanges& changes) noexcept override {
        if (changes.firstMoved != GridChanges::noRow) rows = grid_.RowCount();
    }

  private:
    TreeGrid& grid_;
};

class Player {
  public:
    explicit Player(uint32_t seed, int32_t mostRows) : random_(seed), mostRows_(mostRows) {
        grid_.AddObserver(&counter_);
    }

    void Step() {
        switch (Below(22)) {
            case 0:
                return SetRowCount();
            case 1:
            case 2:
            case 3:
                return Insert();
            case 4:
            case 5:
                return Remove();
            case 6:
            case 7:
            case 8:
            case 9:
                return WriteCell();
            case 10:
            case 11:
                return WriteIdentifiedRow();
            case 12:
                return SetLevel();
            case 13:
                return SetNode();
            case 14:
                return SetState();
            case 15:
                return SetFormat();
            case 16:
                return MoveCursor();
            case 17:
                return LookAtOutline();
            case 18:
            case 19:
                return NameARow();
            default:
                return Search();
        }
    }

    void CompareCheaply() {
        ASSERT_EQ(grid_.RowCount(), plain_.Count());
        ASSERT_EQ(grid_.CurrentRow(), plain_.currentRow);
        grid_.DeliverChanges();
        ASSERT_EQ(counter_.rows, plain_.Count());
        CompareRow(grid_, plain_, AnyRow());
    }

    void CompareAll() {
        ASSERT_NO_FATAL_FAILURE(CompareGrids(grid_, plain_));
        for (const NamedRow& named : named_) ASSERT_EQ(grid_.RowOf(named.handle), plain_.RowWithId(named.id));
        size_t ownText = 0;
        for (const PlainRow& row : plain_.rows)
            for (const int col : {colName, colEntryID, colEntryIDShort, colPath})
                ownText += row.cells[static_cast<size_t>(col)].size();
        ASSERT_GE(grid_.MemoryUse().ownText, ownText);  // keys that had to be stored come on top
    }

  private:
    int32_t Below(int32_t end) { return std::uniform_int_distribution<int32_t>(0, end - 1)(random_); }
    int32_t AnyRow() { return Below(plain_.Count()); }
    int AnyCol() { return Below(columnCount); }
    bool HasDataRows() const { return plain_.Count() > PlainGrid::fixedRows; }
    int32_t AnyDataRow() { return PlainGrid::fixedRows + Below(plain_.Count() - PlainGrid::fixedRows); }

    std::string AnyText() {
        static const std::string texts[] = {"",
                                            "a",
                                            "A",
                                            "0",
                                            "-1",
                                            "True",
                                            "Store",
                                            "store",
                                            std::string("nul\0inside", 10),
                                            "\xC3\x84pfel",
                                            "\xC3\xA4PFEL",
                                            "\xFF\xFE",
                                            "\xED\xA0\x80",
                                            "\xD0\x96\xD1\x83\xD1\x80\xD0\xBD\xD0\xB0\xD0\xBB",
                                            "\xD0\xB6\xD0\xA3\xD1\x80\xD0\xBD\xD0\xB0\xD0\xBB",
                                            "S\xC3\x84|\xE3\x81\x82",
                                            "s\xC3\xA4|\xE3\x81\x82",
                                            "S1|\xF0\x9F\x93\x81",
                                            "S1|2",
                                            "s1|2",
                                            "SA|",
                                            "Sa|b|c",
                                            std::string(300, 'x'),
                                            std::string(300, 'X'),
                                            std::string(70000, 'y')};
        constexpr int32_t count = static_cast<int32_t>(std::size(texts));
        // The longest one seldom: it is there for its length, not for its frequency.
        const int32_t pick = Below(count * 4);
        if (pick < count - 1) return texts[pick];
        if (pick == count - 1 && Below(20) == 0) return texts[pick];
        return "text " + std::to_string(Below(pick % 2 == 0 ? 30 : 100000));
    }

    void Write(int32_t row, int col, const std::string& text) {
        grid_.SetCellText(row, col, text);
        plain_.Row(row).cells[static_cast<size_t>(col)] = text;
    }

    void SetRowCount() {
        int32_t count = plain_.Count() + Below(21) - 10;
        if (Below(30) == 0) count = PlainGrid::fixedRows + Below(mostRows_);
        if (Below(400) == 0) count = PlainGrid::fixedRows;
        count = std::clamp(count, PlainGrid::fixedRows, mostRows_);
        grid_.SetRowCount(count);
        plain_.SetRowCount(count);
    }

    void Insert() {
        if (plain_.Count() >= mostRows_) return;
        const std::string text = AnyText();
        const int32_t before = PlainGrid::fixedRows + Below(plain_.Count() - PlainGrid::fixedRows + 1);
        if (Below(3) == 0) {
            ASSERT_EQ(grid_.AddRow(text), plain_.Count());
            plain_.InsertRow(plain_.Count(), text);
        } else {
            ASSERT_EQ(grid_.AddRow(text, before), before);
            plain_.InsertRow(before, text);
        }
    }

    void Remove() {
        if (!HasDataRows()) return;
        const int32_t row = AnyDataRow();
        grid_.RemoveRow(row);
        plain_.RemoveRow(row);
    }

    void WriteCell() {
        const int32_t row = AnyRow();
        const int col = Below(4) == 0 ? colKey : AnyCol();
        if (Below(10) == 0) return WriteFromView(row, col);
        Write(row, col, AnyText());
    }

    void WriteFromView(int32_t row, int col) {
        const int32_t source = AnyRow();
        const int sourceCol = Below(columnCount - 1);
        grid_.SetCellText(row, col, grid_.CellView(source, sourceCol));
        plain_.Row(row).cells[static_cast<size_t>(col)] = plain_.Row(source).cells[static_cast<size_t>(sourceCol)];
    }

    void WriteIdentifiedRow() {
        const int32_t row = AnyRow();
        const std::string umlaut = Below(2) == 0 ? "\xC3\x9C" : "\xC3\xBC";
        const std::string store =
            Below(4) == 0 ? AnyText() : (Below(5) == 0 ? umlaut : "STORE") + std::to_string(Below(2));
        const std::string entry =
            Below(4) == 0 ? AnyText() : (Below(5) == 0 ? umlaut : "ENTRY") + std::to_string(Below(40));
        Write(row, colStoreID, store);
        Write(row, colEntryID, entry);
        Write(row, colKey, "S" + store + "|" + entry);
        if (Below(5) == 0) Write(row, Below(2) == 0 ? colStoreID : colEntryID, AnyText());
    }

    void SetLevel() {
        const int32_t row = AnyRow();
        const auto level = static_cast<int16_t>(Below(6));
        grid_.SetRowOutlineLevel(row, level);
        plain_.Row(row).level = level;
    }

    void SetNode() {
        const int32_t row = AnyRow();
        const bool isNode = Below(4) != 0;
        grid_.SetIsNode(row, isNode);
        plain_.Row(row).isNode = isNode;
    }

    void SetState() {
        const int32_t row = AnyRow();
        const int32_t state = Below(3) == 0 ? nodeCollapsed : nodeExpanded;
        grid_.SetNodeState(row, state);
        plain_.Row(row).nodeState = state;
    }

    void SetFormat() {
        static constexpr CellSetting settings[] = {CellSetting::Picture, CellSetting::PictureAlignment,
                                                   CellSetting::BackColor, CellSetting::ForeColor, CellSetting::Bold};
        const CellSetting setting = settings[Below(5)];
        const int32_t row1 = AnyRow();
        const int32_t row2 = std::min(row1 + (Below(4) == 0 ? Below(20) : 0), plain_.Count() - 1);
        const int col1 = AnyCol();
        const int col2 = col1 + Below(columnCount - col1);
        const auto value = static_cast<uint32_t>(Below(4) == 0 ? Below(lastPicture + 1) : Below(2));
        grid_.SetCellFormat(setting, row1, col1, row2, col2, value);
        plain_.SetFormat(setting, row1, col1, row2, col2, value);
        if (Below(4) != 0) return;
        const int32_t height = 100 + Below(3);
        grid_.SetRowHeight(row1, height);
        plain_.Row(row1).height = height;
    }

    void MoveCursor() {
        if (!HasDataRows()) return;
        const int32_t row = AnyDataRow();
        grid_.SetCurrentRow(row);
        plain_.currentRow = row;
    }

    void LookAtOutline() {
        const int32_t row = AnyRow();
        ASSERT_EQ(grid_.HasChildren(row), plain_.HasChildren(row));
        ASSERT_EQ(grid_.VisibleAncestor(row), plain_.VisibleAncestor(row));
        if (row < PlainGrid::fixedRows) return;
        ASSERT_EQ(grid_.VisiblePosition(row).has_value(), !plain_.IsHidden(row));
    }

    void Search() {
        const int col = Below(3) == 0 ? AnyCol() : int{colKey};
        const std::string text = Below(2) == 0 ? AnyText() : plain_.Row(AnyRow()).cells[static_cast<size_t>(col)];
        const int32_t start = Below(3) == 0 ? Below(plain_.Count() + 1) : 0;
        ASSERT_EQ(grid_.FindRow(text, start, col), plain_.FindRow(text, start, col));
    }

    struct NamedRow {
        RowHandle handle;
        int64_t id;
    };

    /// Takes a row's handle and looks at one that was taken before.
    void NameARow() {
        if (HasDataRows()) {
            const int32_t row = AnyDataRow();
            const NamedRow named{grid_.HandleOf(row), plain_.Row(row).id};
            if (named_.size() < 200) {
                named_.push_back(named);
            } else {
                named_[static_cast<size_t>(Below(200))] = named;
            }
        }
        if (named_.empty()) return;
        const NamedRow& named = named_[static_cast<size_t>(Below(static_cast<int32_t>(named_.size())))];
        ASSERT_EQ(grid_.RowOf(named.handle), plain_.RowWithId(named.id));
    }

    std::mt19937 random_;
    int32_t mostRows_;
    TreeGrid grid_{sample::schema};
    PlainGrid plain_;
    std::vector<NamedRow> named_;
    RowCounter counter_{grid_};
};

class TreeGridModel : public ::testing::TestWithParam<uint32_t> {};

TEST_P(TreeGridModel, ASmallGridIsWhatThePlainOneIsAfterEveryChange) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    Player player(GetParam(), 40);
    for (int step = 0; step < 2500; ++step) {
        player.Step();
        if (HasFatalFailure()) FAIL() << "at step " << step;
        ASSERT_NO_FATAL_FAILURE(player.CompareAll()) << "after step " << step;
    }
}

TEST_P(TreeGridModel, ALargerGridIsWhatThePlainOneIs) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    Player player(GetParam() + 1000, 3000);
    for (int step = 0; step < 20000; ++step) {
        player.Step();
        if (HasFatalFailure()) FAIL() << "at step " << step;
        ASSERT_NO_FATAL_FAILURE(player.CompareCheaply()) << "after step " << step;
    }
    player.CompareAll();
}

INSTANTIATE_TEST_SUITE_P(Seeds, TreeGridModel, ::testing::Range(1u, 7u));

}  // namespace
}  // namespace foldertree::testing
