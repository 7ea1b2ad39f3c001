// OutlineTest: which rows are shown, and how little is looked at to know it.
#include "rows/Outline.h"

#include <gtest/gtest.h>

namespace foldertree {
namespace {

class Rows final : public OutlineRows {
  public:
    std::vector<Row> rows;
    int32_t first = 0;
    mutable int looks = 0;

    int32_t First() const override { return first; }
    int32_t Count() const override { return static_cast<int32_t>(rows.size()); }
    Row At(int32_t row) const override {
        ++looks;
        return rows.at(static_cast<size_t>(row));
    }
};

class OutlineTest : public ::testing::Test {
  protected:
    std::vector<int32_t> Visible() {
        std::vector<int32_t> rows;
        for (int32_t position = 0; position < outline_.VisibleCount(); ++position)
            rows.push_back(outline_.VisibleRow(position).value());
        return rows;
    }

    Rows rows_;
    Outline outline_{rows_};
};

using Numbers = std::vector<int32_t>;

TEST_F(OutlineTest, IsEmptyWithoutRows) {
    EXPECT_EQ(outline_.VisibleCount(), 0);
    EXPECT_FALSE(outline_.VisibleRow(0));
}

TEST_F(OutlineTest, ShowsAllRowsWhenNothingIsClosed) {
    rows_.rows = {{0, false}, {1, false}, {2, false}};
    EXPECT_EQ(Visible(), (Numbers{0, 1, 2}));
}

TEST_F(OutlineTest, LeavesOutTheHeaderRows) {
    rows_.rows = {{0, true}, {1, false}, {2, false}};
    rows_.first = 1;
    EXPECT_EQ(Visible(), (Numbers{1, 2}));
    EXPECT_EQ(outline_.VisibleAncestor(0), 0);
}

TEST_F(OutlineTest, HidesTheDeeperRowsBehindAClosedNode) {
    rows_.rows = {{0, true}, {1, false}, {2, false}, {0, false}, {1, false}};
    EXPECT_EQ(Visible(), (Numbers{0, 3, 4}));
}

TEST_F(OutlineTest, AClosedNodeHidesNoRowOfItsOwnLevel) {
    rows_.rows = {{1, true}, {1, false}, {0, false}};
    EXPECT_EQ(Visible(), (Numbers{0, 1, 2}));
}

TEST_F(OutlineTest, AClosedNodeInsideAClosedNodeStaysHiddenWithItsRows) {
    rows_.rows = {{0, true}, {1, true}, {2, false}, {1, false}, {0, false}};
    EXPECT_EQ(Visible(), (Numbers{0, 4}));
}

TEST_F(OutlineTest, AJumpOfSeveralLevelsIsStillBelow) {
    rows_.rows = {{0, true}, {5, false}, {3, false}, {0, false}};
    EXPECT_EQ(Visible(), (Numbers{0, 3}));
}

TEST_F(OutlineTest, HiddenRowsHaveNoPositionAndPointToTheNodeThatHidesThem) {
    rows_.rows = {{0, true}, {1, true}, {2, false}, {0, false}};
    EXPECT_FALSE(outline_.VisiblePosition(2));
    EXPECT_EQ(outline_.VisibleAncestor(2), 0);
    EXPECT_EQ(outline_.VisiblePosition(3), 1);
    EXPECT_EQ(outline_.VisibleAncestor(3), 3);
}

TEST_F(OutlineTest, OpeningANodeShowsItsRowsAgain) {
    rows_.rows = {{0, true}, {1, false}, {0, false}};
    ASSERT_EQ(Visible(), (Numbers{0, 2}));
    rows_.rows[0].closed = false;
    outline_.Invalidate(0);
    EXPECT_EQ(Visible(), (Numbers{0, 1, 2}));
}

TEST_F(OutlineTest, AChangeInsideAClosedNodeKeepsItsRowsHidden) {
    rows_.rows = {{0, false}, {0, true}, {1, false}, {1, false}, {1, false}, {0, false}};
    ASSERT_EQ(Visible(), (Numbers{0, 1, 5}));
    rows_.rows[3].level = 2;
    outline_.Invalidate(3);
    EXPECT_EQ(Visible(), (Numbers{0, 1, 5}));
    rows_.rows[3].level = 0;
    outline_.Invalidate(3);
    EXPECT_EQ(Visible(), (Numbers{0, 1, 3, 4, 5}));
}

TEST_F(OutlineTest, InsertedAndRemovedRowsAreFollowed) {
    rows_.rows = {{0, false}, {1, false}, {0, false}};
    ASSERT_EQ(Visible(), (Numbers{0, 1, 2}));
    rows_.rows.insert(rows_.rows.begin() + 1, {{1, true}, {2, false}});
    outline_.Invalidate(1);
    EXPECT_EQ(Visible(), (Numbers{0, 1, 3, 4}));
    rows_.rows.erase(rows_.rows.begin() + 1);
    outline_.Invalidate(1);
    EXPECT_EQ(Visible(), (Numbers{0, 1, 2, 3}));
}

TEST_F(OutlineTest, RowsAppendedInsideAClosedNodeAreHidden) {
    rows_.rows = {{0, true}, {1, false}};
    ASSERT_EQ(Visible(), (Numbers{0}));
    rows_.rows.push_back({2, false});
    rows_.rows.push_back({0, false});
    EXPECT_EQ(Visible(), (Numbers{0, 3}));
}

TEST_F(OutlineTest, AppendedRowsAreLookedAtOnceAndTheOthersNotAgain) {
    rows_.rows.assign(1000, {0, false});
    ASSERT_EQ(outline_.VisibleCount(), 1000);
    rows_.looks = 0;
    for (int appended = 0; appended < 10; ++appended) {
        rows_.rows.push_back({1, false});
        outline_.VisibleCount();
        for (int32_t position = 0; position < 50; ++position) outline_.VisibleRow(position);
    }
    EXPECT_EQ(rows_.looks, 10);
}

TEST_F(OutlineTest, TheFirstScreenNeedsOnlyItsOwnRows) {
    rows_.rows.assign(1000, {0, false});
    for (int32_t position = 0; position < 50; ++position) outline_.VisibleRow(position);
    EXPECT_EQ(rows_.looks, 50);
}

}  // namespace
}  // namespace foldertree
