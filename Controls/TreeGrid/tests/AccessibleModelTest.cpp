// AccessibleModelTest: random changes of a grid and of the plain one; what the accessible tree answers and tells is
// compared with what the plainest loops find.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <random>
#include <set>

#include "AccessibleFixture.h"
#include "PlainGrid.h"
#include "accessible/AccessibleEvents.h"

namespace foldertree::testing {
namespace {

using namespace sample;
using Kind = AccessibleEvent::Kind;

/// All by loops over all rows.
class PlainTree {
  public:
    explicit PlainTree(const PlainGrid& plain) : plain_(plain) {}

    int32_t Parent(int32_t row) const {
        for (int32_t above = row - 1; above >= PlainGrid::fixedRows; --above)
            if (plain_.Row(above).level < plain_.Row(row).level) return above;
        return 0;
    }
    std::vector<int32_t> Set(int32_t row) const {
        std::vector<int32_t> rows;
        for (int32_t each = PlainGrid::fixedRows; each < plain_.Count(); ++each)
            if (Parent(each) == Parent(row)) rows.push_back(each);
        return rows;
    }
    bool Ticked(int32_t row) const { return Number(row, colSel) != 0; }
    double Number(int32_t row, int col) const { return NumberOfText(plain_.Row(row).cells[static_cast<size_t>(col)]); }
    bool HasSign(int32_t row) const { return plain_.Row(row).isNode && plain_.HasChildren(row); }
    bool Open(int32_t row) const { return plain_.Row(row).nodeState == nodeExpanded; }
    int32_t Cursor() const { return plain_.currentRow == 0 ? 0 : plain_.VisibleAncestor(plain_.currentRow); }

  private:
    static double NumberOfText(const std::string& text) { return text == "True" ? -1 : std::atof(text.c_str()); }

    const PlainGrid& plain_;
};

class Player : private TreeGridObserver {
  public:
    Player(uint32_t seed, int32_t mostRows) : random_(seed), mostRows_(mostRows) { grid_.AddObserver(this); }
    ~Player() override { grid_.RemoveObserver(this); }

    int64_t compared = 0;

    void Step() {
        switch (Below(16)) {
            case 0:
                return SetRowCount();
            case 1:
            case 2:
            case 3:
                return Insert();
            case 4:
                return Remove();
            case 5:
            case 6:
                return SetLevel();
            case 7:
                return SetNode();
            case 8:
            case 9:
                return SetState();
            case 10:
                return MoveCursor();
            case 11:
                return SetView();
            case 12:
                return TickMany();
            default:
                return Write();
        }
    }

    void AskAboutOneRow() {
        if (plain_.Count() > 1) CompareRow(AnyDataRow());
    }
    void AskAboutEverything() {
        const std::vector<int32_t> visible = plain_.VisibleRows();
        Equal(tree_.ChildCount(), static_cast<int32_t>(visible.size()));
        for (size_t position = 0; position < visible.size(); ++position)
            Equal(tree_.RowAt(static_cast<int32_t>(position)), visible[position]);
        for (int32_t row = 1; row < plain_.Count(); ++row) CompareRow(row);
        for (const auto& [id, plainId] : given_) Equal(tree_.RowOf(id), plain_.RowWithId(plainId).value_or(0));
    }

    void Frame() {
        grid_.DeliverChanges();
        ASSERT_EQ(Told(), Expected());
        ++compared;
        changes_.clear();
        reorder_ = false;
    }

  private:
    int32_t Below(int32_t end) { return std::uniform_int_distribution<int32_t>(0, end - 1)(random_); }
    int32_t AnyDataRow() { return PlainGrid::fixedRows + Below(plain_.Count() - PlainGrid::fixedRows); }
    bool HasDataRows() const { return plain_.Count() > PlainGrid::fixedRows; }

    void GridChanged(const GridChanges& changes) noexcept override { events_.Note(changes); }

    template <class Value>
    void Equal(const Value& value, const Value& expected) {
        ++compared;
        ASSERT_EQ(value, expected);
    }

    // ---- Changes, to both

    void SetRowCount() {
        int32_t count = std::clamp(plain_.Count() + Below(21) - 10, PlainGrid::fixedRows, mostRows_);
        if (Below(60) == 0) count = PlainGrid::fixedRows;
        if (count != plain_.Count()) reorder_ = true;
        grid_.SetRowCount(count);
        plain_.SetRowCount(count);
    }
    void Insert() {
        if (plain_.Count() >= mostRows_) return;
        const int32_t before = PlainGrid::fixedRows + Below(plain_.Count() - PlainGrid::fixedRows + 1);
        const auto level = static_cast<int16_t>(Below(5));
        grid_.AddRow("", before);
        plain_.InsertRow(before, "");
        grid_.SetRowOutlineLevel(before, level);
        plain_.Row(before).level = level;
        grid_.SetIsNode(before, level < 4);
        plain_.Row(before).isNode = level < 4;
        reorder_ = true;
    }
    void Remove() {
        if (!HasDataRows()) return;
        const int32_t row = AnyDataRow();
        grid_.RemoveRow(row);
        plain_.RemoveRow(row);
        reorder_ = true;
    }
    void SetLevel() {
        if (!HasDataRows()) return;
        const int32_t row = AnyDataRow();
        const auto level = static_cast<int16_t>(Below(5));
        if (plain_.Row(row).level != level) reorder_ = true;
        grid_.SetRowOutlineLevel(row, level);
        plain_.Row(row).level = level;
    }
    void SetNode() {
        if (!HasDataRows()) return;
        const int32_t row = AnyDataRow();
        const bool isNode = Below(4) != 0;
        if (plain_.Row(row).isNode != isNode) reorder_ = true;
        grid_.SetIsNode(row, isNode);
        plain_.Row(row).isNode = isNode;
    }
    void SetState() {
        if (!HasDataRows()) return;
        const int32_t row = AnyDataRow();
        const int32_t state = Below(3) == 0 ? nodeCollapsed : nodeExpanded;
        if (plain_.Row(row).nodeState != state) changes_[plain_.Row(row).id] |= NotedRows::node;
        grid_.SetNodeState(row, state);
        plain_.Row(row).nodeState = state;
    }
    void MoveCursor() {
        if (!HasDataRows()) return;
        const int32_t row = AnyDataRow();
        grid_.SetCurrentRow(row);
        plain_.currentRow = row;
    }
    void SetView() {
        view_.focused = Below(2) == 0;
        view_.lastInView = Below(mostRows_);
        host_.numbers = Below(3) == 0 ? std::nullopt : std::optional(Below(100));
        if (Below(4) == 0) host_.busy = !host_.busy;
        if (Below(4) == 0) grid_.SetEnabled(!grid_.Enabled());
    }
    void Write() {
        if (HasDataRows()) WriteTo(AnyDataRow());
    }
    void TickMany() {
        if (Below(8) != 0) return;
        for (int32_t row = 1; row < plain_.Count(); ++row) WriteTo(row);
    }
    void WriteTo(int32_t row) {
        static constexpr const char* ticks[] = {"-1", "0", "", "True", "1"};
        const int col = Below(3);
        std::string text = col == colSel ? ticks[Below(5)] : std::to_string(Below(4));
        if (col == colIndex && text == "0") text = " ";
        const PlainTree tree(plain_);
        const bool wasTicked = tree.Ticked(row);
        const double number = tree.Number(row, colIndex);
        grid_.SetCellText(row, col, text);
        plain_.Row(row).cells[static_cast<size_t>(col)] = text;
        if (tree.Ticked(row) != wasTicked) changes_[plain_.Row(row).id] |= NotedRows::tick;
        if (tree.Number(row, colIndex) != number) changes_[plain_.Row(row).id] |= NotedRows::number;
    }

    // ---- Answers

    int32_t IdOf(int32_t row) {
        const int32_t id = tree_.IdOf(row);
        const auto [place, isNew] = given_.try_emplace(id, plain_.Row(row).id);
        EXPECT_EQ(place->second, plain_.Row(row).id) << "a number of another row";
        return id;
    }

    AccessibleState ExpectedState(int32_t row) const {
        const PlainTree tree(plain_);
        AccessibleState state;
        state.selectable = true;
        state.selected = row == tree.Cursor();
        state.focused = state.selected && view_.focused;
        state.checked = tree.Ticked(row);
        state.expanded = tree.HasSign(row) && tree.Open(row);
        state.collapsed = tree.HasSign(row) && !tree.Open(row);
        state.invisible = plain_.IsHidden(row);
        state.offscreen = !state.invisible && row > view_.lastInView;
        state.unavailable = !grid_.Enabled();
        return state;
    }

    int32_t ExpectedStep(int32_t row, AccessibleStep step) const {
        const std::vector<int32_t> visible = plain_.VisibleRows();
        const auto here = std::find(visible.begin(), visible.end(), row);
        if (here == visible.end()) return 0;
        const PlainTree tree(plain_);
        switch (step) {
            case AccessibleStep::Next:
                return here + 1 == visible.end() ? 0 : *(here + 1);
            case AccessibleStep::Previous:
                return here == visible.begin() ? 0 : *(here - 1);
            case AccessibleStep::Parent:
                return tree.Parent(row);
            case AccessibleStep::FirstChild:
                return tree.HasSign(row) && tree.Open(row) ? row + 1 : 0;
        }
        return 0;
    }

    void CompareRow(int32_t row) {
        const PlainTree plain(plain_);
        Equal(tree_.RowOf(IdOf(row)), row);
        Equal(tree_.RowName(row), plain_.Row(row).cells[colName]);
        Equal(tree_.RowValue(row), std::to_string(plain_.Row(row).level));
        Equal(tree_.RowState(row), ExpectedState(row));
        for (const auto step :
             {AccessibleStep::Next, AccessibleStep::Previous, AccessibleStep::Parent, AccessibleStep::FirstChild})
            Equal(tree_.StepFrom(row, step), ExpectedStep(row, step));
        const std::vector<int32_t> set = plain.Set(row);
        Equal(tree_.SizeOfSet(row), static_cast<int32_t>(set.size()));
        Equal(tree_.PositionInSet(row), static_cast<int32_t>(std::find(set.begin(), set.end(), row) - set.begin()) + 1);
        AccessibleAction action = plain.Ticked(row) ? AccessibleAction::Uncheck : AccessibleAction::Check;
        if (plain_.IsHidden(row)) action = AccessibleAction::None;
        Equal(tree_.RowAction(row), action);
        const std::string& number = plain_.Row(row).cells[colIndex];
        const bool described = host_.numbers && plain.Ticked(row) && !number.empty() && number != " ";
        Equal(tree_.RowDescription(row),
              described ? "No. " + number + " of " + std::to_string(*host_.numbers) : std::string());
    }

    // ---- Events, as a set of what and whom: the order within a frame is another test's

    using Names = std::multiset<std::pair<Kind, int64_t>>;

    Names Told() {
        Names names;
        for (const AccessibleEvent& event : events_.Take()) {
            const int32_t row = event.child == AccessibleEvent::grid ? 0 : tree_.RowOf(event.child);
            names.emplace(event.kind, plain_.Row(row).id);
            if (row != 0) IdOf(row);
        }
        return names;
    }

    Names Expected() {
        for (const auto& [id, what] : changes_) heldBack_[id] |= what;
        reorderDue_ = reorderDue_ || reorder_;
        if (host_.busy) return {};
        Names names;
        const bool many = heldBack_.size() > NotedRows::most;
        if (reorderDue_ || many) names.emplace(Kind::Reorder, 0);
        const int32_t cursor = PlainTree(plain_).Cursor();
        const int64_t cursorId = cursor == 0 ? -1 : plain_.Row(cursor).id;
        const bool moved = cursorId != toldCursor_;
        if (cursor != 0 && moved) names.emplace(Kind::Selection, cursorId);
        if (cursor != 0 && view_.focused && (moved || (reorderDue_ && cursor != toldRow_)))
            names.emplace(Kind::Focus, cursorId);
        for (const auto& [id, what] : heldBack_) {
            const std::optional<int32_t> row = plain_.RowWithId(id);
            if (many || !row || plain_.IsHidden(*row)) continue;
            if ((what & (NotedRows::tick | NotedRows::node)) != 0) names.emplace(Kind::StateChange, id);
            if ((what & NotedRows::number) != 0) names.emplace(Kind::DescriptionChange, id);
        }
        // A frame in which nothing happened to rows or cursor leaves all as it was told.
        if (reorderDue_ || !heldBack_.empty() || moved) toldRow_ = cursor;
        toldCursor_ = cursorId;
        heldBack_.clear();
        reorderDue_ = false;
        return names;
    }

    std::mt19937 random_;
    const int32_t mostRows_;
    TreeGrid grid_{sample::schema};
    PlainGrid plain_;
    RowHasBox hasBox_;
    FakeView view_;
    FakeHost host_;
    AccessibleTree tree_{grid_, hasBox_, view_, host_};
    AccessibleEvents events_{grid_, tree_, view_, host_};

    std::map<int32_t, int64_t> given_;    ///< numbers given out, and whose they are for ever
    std::map<int64_t, uint8_t> changes_;  ///< of this frame
    std::map<int64_t, uint8_t> heldBack_;
    bool reorder_ = false;
    bool reorderDue_ = false;
    int64_t toldCursor_ = -1;
    int32_t toldRow_ = 0;
};

TEST(AccessibleModel, AnswersAndEventsAreThoseOfThePlainestLoops) {
    int64_t compared = 0;
    for (uint32_t seed = 1; seed <= 12; ++seed) {
        Player player(seed, seed % 3 == 0 ? 700 : 60);  // beyond some rows siblings are counted in blocks
        SCOPED_TRACE("seed " + std::to_string(seed));
        for (int step = 0; step < 1500; ++step) {
            player.Step();
            player.AskAboutOneRow();
            if (step % 7 == 0) player.Frame();
            if (step % 250 == 0) player.AskAboutEverything();
            if (::testing::Test::HasFailure()) return;
        }
        player.AskAboutEverything();
        compared += player.compared;
    }
    std::cout << compared << " answers and frames compared\n";
    EXPECT_GT(compared, 100'000);
}

/// Trees so large that questions go over whole blocks of rows, with changes in the middle.
TEST(AccessibleModel, SiblingsInLargeTreesAreCountedAsBySteps) {
    std::mt19937 random(7);
    const auto below = [&](int32_t end) { return std::uniform_int_distribution<int32_t>(0, end - 1)(random); };
    TreeGrid grid{sample::schema};
    SiblingSets sets(grid);
    grid.SetRowCount(3000);
    int64_t compared = 0;
    for (int time = 0; time < 400; ++time) {
        // A stretch of rows on one level, and now and then a row anywhere.
        const int32_t first = 1 + below(grid.RowCount() - 1);
        const int32_t last = std::min(grid.RowCount(), first + below(800));
        const auto level = static_cast<int16_t>(below(4));
        for (int32_t row = first; row < last; ++row) grid.SetRowOutlineLevel(row, level);
        sets.Invalidate(first);
        if (time % 3 == 0) {
            grid.AddRow("", first);
            sets.Invalidate(first);
        } else if (time % 3 == 1) {
            grid.RemoveRow(first);
            sets.Invalidate(first);
        }
        for (int question = 0; question < 4; ++question) {
            const int32_t row = 1 + below(grid.RowCount() - 1);
            int32_t parent = row - 1;
            while (parent > 0 && grid.RowOutlineLevel(parent) >= grid.RowOutlineLevel(row)) --parent;
            int32_t position = 0;
            int32_t size = 0;
            int16_t least = INT16_MAX;
            for (int32_t each = parent + 1; each < grid.RowCount(); ++each) {
                const int16_t its = grid.RowOutlineLevel(each);
                if (parent != 0 && its <= grid.RowOutlineLevel(parent)) break;
                if (its > least) continue;
                least = its;
                ++size;
                if (each <= row) ++position;
            }
            ASSERT_EQ(sets.Parent(row), parent);
            ASSERT_EQ(sets.PositionInSet(row), position);
            ASSERT_EQ(sets.SizeOfSet(row), size);
            compared += 3;
        }
    }
    std::cout << compared << " answers compared\n";
}

}  // namespace
}  // namespace foldertree::testing
