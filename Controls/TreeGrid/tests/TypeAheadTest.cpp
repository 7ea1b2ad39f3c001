// TypeAheadTest: which row a typed word finds, when a word begins and ends, and how often names are looked at.
#include "interaction/TypeAhead.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <random>
#include <string>
#include <string_view>

#include "automation/Text.h"
#include "tests/SampleSchema.h"

namespace foldertree {
namespace {

using namespace sample;
using namespace std::chrono_literals;

/// Moves the cursor to what is found, as the grid's owner does.
class TypeAheadTest : public ::testing::Test {
  protected:
    TypeAheadTest() { grid_.SetRowCount(1); }

    void Names(std::initializer_list<std::string_view> names) {
        for (const std::string_view name : names) {
            grid_.SetRowCount(grid_.RowCount() + 1);
            grid_.SetCellText(grid_.RowCount() - 1, colName, name);
        }
    }
    /// Types the characters without a pause; the row that the last one finds.
    int32_t Type(std::string_view text) {
        int32_t found = 0;
        for (size_t position = 0; position < text.size();) {
            found = typeAhead_.Add(grid_, automation::NextCharacter(text, position));
            if (found != 0) grid_.SetCurrentRow(found);
        }
        return found;
    }
    void Wait(std::chrono::milliseconds time) { now_ += time; }

    TreeGrid grid_{sample::schema};
    TypeAhead::Clock::time_point now_{};
    TypeAhead typeAhead_{[this] { return now_; }};
};

TEST_F(TypeAheadTest, AWordFindsTheRowThatBeginsLikeIt) {
    Names({"Calendar", "Contacts", "Customers", "Inbox"});
    EXPECT_EQ(Type("cu"), 3);
    Wait(2s);
    EXPECT_EQ(Type("i"), 4);
}

TEST_F(TypeAheadTest, AWordIsNotFoundInsideAName) {
    Names({"Old Inbox", "Inbox"});
    EXPECT_EQ(Type("inbox"), 2);
}

TEST_F(TypeAheadTest, ANewWordPassesOverTheCursorsRowAndALongerOneDoesNot) {
    Names({"Calendar", "Contacts", "Customers"});
    grid_.SetCurrentRow(1);
    EXPECT_EQ(Type("c"), 2);
    EXPECT_EQ(Type("o"), 2);
    EXPECT_EQ(Type("n"), 2);
    Wait(2s);
    EXPECT_EQ(Type("cu"), 3);
}

TEST_F(TypeAheadTest, TheSearchGoesOnFromTheTop) {
    Names({"Calendar", "Inbox", "Outbox"});
    grid_.SetCurrentRow(3);
    EXPECT_EQ(Type("c"), 1);
}

TEST_F(TypeAheadTest, AWordWhoseOnlyRowHasTheCursorStaysThere) {
    Names({"Calendar", "Inbox"});
    grid_.SetCurrentRow(2);
    EXPECT_EQ(Type("i"), 2);
    EXPECT_EQ(Type("i"), 2);
}

TEST_F(TypeAheadTest, OneLetterAgainAndAgainGoesThroughItsRows) {
    Names({"Calendar", "Inbox", "Contacts", "çelebi", "Customers"});
    EXPECT_EQ(Type("c"), 1);
    EXPECT_EQ(Type("C"), 3);
    EXPECT_EQ(Type("c"), 4);
    EXPECT_EQ(Type("ç"), 5) << "the letter with an accent is the same letter";
    EXPECT_EQ(Type("c"), 1);
}

TEST_F(TypeAheadTest, ADoubledLetterAtTheBeginningOfANameIsFoundWithTheNextOne) {
    Names({"Aachen", "Aalen", "Abroad"});
    EXPECT_EQ(Type("aal"), 2);
}

TEST_F(TypeAheadTest, CaseAndAccentsMakeNoDifference) {
    Names({"Tâches", "Éléments envoyés", "Входящие", "Ёлки", "Αρχείο"});
    EXPECT_EQ(Type("ELE"), 2);
    Wait(2s);
    EXPECT_EQ(Type("tach"), 1);
    Wait(2s);
    EXPECT_EQ(Type("ВХ"), 3);
    Wait(2s);
    EXPECT_EQ(Type("ел"), 4);
    Wait(2s);
    EXPECT_EQ(Type("άρ"), 5);
}

TEST_F(TypeAheadTest, ANameWhoseAccentsAreCharactersOfTheirOwnIsFound) {
    Names({"Etat", "E\xCC\x81te\xCC\x81"});
    EXPECT_EQ(Type("étê"), 2);
}

TEST_F(TypeAheadTest, AnAccentAloneFindsNothingAndBeginsNoWord) {
    Names({"Inbox"});
    EXPECT_EQ(Type("\xCC\x81"), 0);
    EXPECT_FALSE(typeAhead_.Started());
}

TEST_F(TypeAheadTest, BlanksDigitsAndSignsBelongToTheWord) {
    Names({"Q3", "Q3 2024", "Q3 2025 (old)"});
    EXPECT_EQ(Type("q3 2025 ("), 3);
}

TEST_F(TypeAheadTest, CharactersBeyondTheBasicPlaneFindTheirNames) {
    Names({"Inbox", "😀 fun"});
    EXPECT_EQ(Type("😀"), 2);
}

TEST_F(TypeAheadTest, AWordEndsAfterAPauseOfMoreThanASecond) {
    Names({"Calendar", "Inbox", "Notes", "Infinity"});
    EXPECT_EQ(Type("i"), 2);
    Wait(1000ms);
    EXPECT_TRUE(typeAhead_.Started());
    EXPECT_EQ(Type("n"), 2);
    Wait(900ms);
    EXPECT_EQ(Type("f"), 4) << "the second is counted from key to key";
    Wait(1001ms);
    EXPECT_FALSE(typeAhead_.Started());
    EXPECT_EQ(Type("n"), 3);
}

TEST_F(TypeAheadTest, AWordThatIsEndedBeginsAnew) {
    Names({"Inbox", "Notes"});
    EXPECT_EQ(Type("i"), 1);
    typeAhead_.End();
    EXPECT_FALSE(typeAhead_.Started());
    EXPECT_EQ(Type("n"), 2);
}

TEST_F(TypeAheadTest, AWordThatNoRowBeginsWithMovesNothingAndIsStillAWord) {
    Names({"Inbox", "Notes"});
    grid_.SetCurrentRow(1);
    EXPECT_EQ(Type("x"), 0);
    EXPECT_TRUE(typeAhead_.Started());
    EXPECT_EQ(Type("n"), 0) << "no row begins with xn";
    Wait(2s);
    EXPECT_EQ(Type("n"), 2);
}

TEST_F(TypeAheadTest, OnlyShownRowsAreFound) {
    Names({"Mailbox", "Inbox", "Outbox"});
    grid_.SetIsNode(1, true);
    grid_.SetRowOutlineLevel(2, 1);
    grid_.SetNodeState(1, nodeCollapsed);
    EXPECT_EQ(Type("i"), 0);
    EXPECT_EQ(Type("m"), 0);
    Wait(2s);
    EXPECT_EQ(Type("o"), 3);
}

TEST_F(TypeAheadTest, ACursorInsideAClosedNodeCountsAsOnTheNode) {
    Names({"Mailbox", "Inbox", "Notes", "Mine"});
    grid_.SetIsNode(1, true);
    grid_.SetRowOutlineLevel(2, 1);
    grid_.SetNodeState(1, nodeCollapsed);
    grid_.SetCurrentRow(2);
    EXPECT_EQ(Type("m"), 4);
}

TEST_F(TypeAheadTest, AnEmptyTreeAndRowsWithoutNamesHoldNothing) {
    EXPECT_EQ(Type("a"), 0);
    Names({"", ""});
    Wait(2s);
    EXPECT_EQ(Type("a"), 0);
}

TEST_F(TypeAheadTest, AGridWithoutNamesFindsNothing) {
    GridSchema boxes;
    boxes.columns = 1;
    boxes.box = 0;
    TreeGrid plain(boxes);
    plain.SetRowCount(3);
    EXPECT_EQ(typeAhead_.Add(plain, U'a'), 0);
}

TEST_F(TypeAheadTest, RowsThatComeAndGoWhileAWordIsTypedAreNoMatter) {
    Names({"Calendar", "Contacts"});
    EXPECT_EQ(Type("con"), 2);
    grid_.RemoveRow(2);
    EXPECT_EQ(Type("t"), 0);
    grid_.SetRowCount(1);
    Wait(2s);
    EXPECT_EQ(Type("c"), 0);
}

TEST_F(TypeAheadTest, AnyWordsFindWhatAWalkOverAllRowsFinds) {
    std::mt19937 random(7);
    const auto pick = [&](int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); };
    for (int row = 0; row < 40; ++row) {
        std::string name;
        for (int letters = pick(5); letters > 0; --letters) name.push_back("abAB"[pick(4)]);
        Names({name});
    }
    for (int round = 0; round < 2000; ++round) {
        const int32_t cursor = 1 + pick(40);
        std::string word;
        for (int letters = 1 + pick(3); letters > 0; --letters) word.push_back("ab"[pick(2)]);
        if (word.find_first_not_of(word[0]) == std::string::npos) word.resize(1);
        int32_t expected = 0;
        for (int32_t step = word.size() == 1 ? 1 : 0; step < 41 && expected == 0; ++step) {
            const int32_t row = (cursor - 1 + step) % 40 + 1;
            if (automation::FoldCase(grid_.CellText(row, colName)).starts_with(word)) expected = row;
        }
        // Where the letters before the last one lead is another matter.
        int32_t found = 0;
        for (const char letter : word) {
            grid_.SetCurrentRow(cursor);
            found = typeAhead_.Add(grid_, static_cast<char32_t>(letter));
        }
        ASSERT_EQ(found, expected) << word << " from " << cursor;
        typeAhead_.End();
    }
}

}  // namespace
}  // namespace foldertree
