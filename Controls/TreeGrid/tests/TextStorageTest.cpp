// TextStorageTest: the arena, the pool of shared texts and the hashes.
#include <gtest/gtest.h>

#include "automation/Error.h"
#include "automation/Text.h"
#include "automation_testing/FailingMemory.h"
#include "rows/KeyHash.h"
#include "rows/TextArena.h"
#include "rows/TextPool.h"

namespace foldertree {
namespace {

TEST(TextArena, TheEmptyTextIsReferenceZero) {
    TextArena arena;
    EXPECT_EQ(arena.Add(""), 0u);
    EXPECT_EQ(arena.View(0), "");
    arena.Drop(0);
    EXPECT_NE(arena.Add("a"), 0u);
}

TEST(TextArena, KeepsTextsOfAllLengths) {
    TextArena arena;
    std::vector<std::pair<TextArena::Ref, std::string>> kept;
    const size_t block = size_t{1} << 20;
    for (const size_t size : {size_t{1}, size_t{2}, size_t{127}, size_t{128}, size_t{16383}, size_t{16384},
                              size_t{65536}, block - 8, block - 3, block, block + 1, 3 * block, size_t{5}}) {
        std::string text(size, static_cast<char>('a' + kept.size()));
        text.back() = '\0';
        kept.emplace_back(arena.Add(text), text);
    }
    for (const auto& [ref, text] : kept) EXPECT_EQ(arena.View(ref), text);
}

TEST(TextArena, KeepsManyTextsAcrossBlocks) {
    TextArena arena;
    std::vector<TextArena::Ref> refs;
    for (int each = 0; each < 100'000; ++each) refs.push_back(arena.Add("text number " + std::to_string(each)));
    for (int each = 0; each < 100'000; ++each)
        ASSERT_EQ(arena.View(refs[static_cast<size_t>(each)]), "text number " + std::to_string(each));
}

TEST(TextArena, IsMostlyDeadWhenLittleIsLeft) {
    TextArena arena;
    std::vector<TextArena::Ref> refs;
    for (int each = 0; each < 4000; ++each) refs.push_back(arena.Add(std::string(1000, 'x')));
    EXPECT_FALSE(arena.IsMostlyDead());
    for (int each = 0; each < 3500; ++each) arena.Drop(refs[static_cast<size_t>(each)]);
    EXPECT_TRUE(arena.IsMostlyDead());
    EXPECT_EQ(arena.LiveBytes(), 500'000u);
}

TEST(TextPool, EqualTextsShareOneNumber) {
    TextPool pool;
    const TextPool::Id first = pool.Acquire("Folder");
    EXPECT_EQ(pool.Acquire("Folder"), first);
    EXPECT_NE(pool.Acquire("folder"), first);
    EXPECT_EQ(pool.Acquire(""), 0u);
}

TEST(TextPool, TextsThatNobodyHoldsAreSweptAndTheOthersStay) {
    TextPool pool;
    const TextPool::Id kept = pool.Acquire("kept");
    const uint32_t sweeps = pool.Sweeps();
    for (int each = 0; each < 5000; ++each) pool.Release(pool.Acquire("text " + std::to_string(each)));
    EXPECT_GT(pool.Sweeps(), sweeps);
    EXPECT_LT(pool.MemoryUse(), 5000 * sizeof(PooledText) / 2);
    EXPECT_EQ(pool[kept].Text(), "kept");
    EXPECT_EQ(pool.Acquire("kept"), kept);
}

TEST(TextPool, AReleasedTextThatIsTakenAgainIsNotSwept) {
    TextPool pool;
    const TextPool::Id text = pool.Acquire("comes back");
    pool.Release(text);
    ASSERT_EQ(pool.Acquire("comes back"), text);
    for (int each = 0; each < 5000; ++each) pool.Release(pool.Acquire("text " + std::to_string(each)));
    EXPECT_EQ(pool[text].Text(), "comes back");
}

TEST(NumberOfText, ReadsTheLeadingNumber) {
    EXPECT_EQ(NumberOfText("12"), 12);
    EXPECT_EQ(NumberOfText("-1"), -1);
    EXPECT_EQ(NumberOfText("2.5 and more"), 2.5);
    EXPECT_EQ(NumberOfText("  7"), 7);
}

TEST(NumberOfText, IsZeroWithoutANumber) {
    for (const std::string_view text : {"", " ", "abc", "False", "false"}) EXPECT_EQ(NumberOfText(text), 0) << text;
}

TEST(NumberOfText, ReadsTrueInAnyCaseAsMinusOne) {
    for (const std::string_view text : {"True", "true", "TRUE"}) EXPECT_EQ(NumberOfText(text), -1) << text;
    EXPECT_EQ(NumberOfText("Truely"), 0);
}

TEST(KeyHash, DoesNotSeeTheCaseOfAKey) {
    const std::string pairs[][2] = {
        {"", ""},
        {"S12|AB", "s12|ab"},
        {"Sabcdefghijklmnopqrstuvwxyz0123456789|ABCDEF", "SABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789|abcdef"},
        {"S\xC3\x84|\xC3\x96", "S\xC3\xA4|\xC3\xB6"},
        {"S\xD0\x90|x", "s\xD0\xB0|X"},
    };
    for (const auto& pair : pairs) {
        ASSERT_TRUE(automation::EqualNoCase(pair[0], pair[1])) << pair[0];
        EXPECT_EQ(HashKey(pair[0], '|'), HashKey(pair[1], '|')) << pair[0];
    }
}

TEST(KeyHash, IsTheSameForAKeyInTwoParts) {
    for (const size_t length : std::initializer_list<size_t>{0, 1, 7, 8, 31, 32, 33, 127, 128, 129, 528}) {
        const std::string store = "S" + std::string(length, 'a');
        EXPECT_EQ(HashKey(store + "|0123456789", '|'),
                  JoinKeyHash(HashKeyStart(store), automation::HashText("0123456789")));
    }
}

TEST(KeyHash, OfAStartIsKnownToItsSharedText) {
    for (const size_t length : std::initializer_list<size_t>{0, 1, 126, 127, 128, 129, 528}) {
        const std::string text = std::string(length, 'a') + std::to_string(length);
        EXPECT_EQ(PooledText(text).KeyPartHash('S', '|'), HashKeyStart("S" + text)) << length;
    }
    for (const std::string_view text : {"a|b", "\xC3\x84"})
        EXPECT_FALSE(PooledText(text).KeyPartHash('S', '|')) << text;
}

TEST(KeyHash, NeedsNoMemory) {
    const PooledText start(std::string(100, 'a'));
    const std::string key = std::string(300, 'K') + "\xC3\x84|" + std::string(300, 'k');
    const automation::testing::FailingMemory memory;
    HashKey(key, '|');
    start.KeyPartHash('S', '|');
    EXPECT_EQ(memory.Asked(), 0);
}

}  // namespace
}  // namespace foldertree
