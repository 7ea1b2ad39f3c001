// TextHashTest: hashes of texts, with and without regard to case.
#include "automation/TextHash.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <unordered_map>
#include <vector>

#include "automation_testing/FailingMemory.h"

namespace automation {
namespace {

TEST(TextHash, SeesEveryByteOfAShortOrLongText) {
    for (const size_t length : std::initializer_list<size_t>{1, 3, 7, 8, 9, 15, 31, 32, 33, 63, 64, 100}) {
        const std::string text(length, 'a');
        for (size_t at = 0; at < length; ++at) {
            std::string other = text;
            other[at] = 'b';
            EXPECT_NE(HashText(text), HashText(other)) << "byte " << at << " of " << length;
        }
    }
}

TEST(TextHash, SpreadsIdentifiersThatDifferInAFewDigits) {
    std::vector<bool> seen(1 << 20);
    int collisions = 0;
    for (int each = 0; each < 100'000; ++each) {
        const std::string text = std::string(80, '0') + std::to_string(1'000'000 + each);
        const auto place = static_cast<size_t>(HashText(text) % seen.size());
        if (seen[place]) ++collisions;
        seen[place] = true;
    }
    // Even spread: about 100,000 squared over twice 1,048,576.
    EXPECT_LT(collisions, 5500);
}

TEST(TextHash, KnowsAsciiAtEveryPlace) {
    for (size_t length = 0; length < 70; ++length) {
        std::string text(length, 'z');
        EXPECT_TRUE(IsAscii(text));
        for (size_t at = 0; at < length; ++at) {
            text[at] = '\x80';
            EXPECT_FALSE(IsAscii(text));
            text[at] = 'z';
        }
    }
}

TEST(CaselessHash, NeedsNoMemory) {
    const std::string text = std::string(200, 'A') + "\xC3\x84\xFF" + std::string(200, 'B');
    const testing::FailingMemory memory;
    CaselessHash()(text);
    EXPECT_EQ(memory.Asked(), 0);
}

TEST(CaselessHash, IsEqualForTextsThatDifferInCaseOnly) {
    const std::string pairs[][2] = {
        {"", ""},
        {"AbC", "aBc"},
        {"A long text of more than thirty-two letters", "a LONG text of MORE than thirty-two LETTERS"},
        {"\xC3\x84rger", "\xC3\xA4RGER"},
    };
    for (const auto& pair : pairs) {
        ASSERT_TRUE(EqualNoCase(pair[0], pair[1])) << pair[0];
        EXPECT_EQ(CaselessHash()(pair[0]), CaselessHash()(pair[1])) << pair[0];
    }
}

TEST(CaselessHash, LetsATableBeSearchedByAView) {
    std::unordered_map<std::string, int, CaselessHash, CaselessEqual> table{{"\xC3\x96l", 1}, {"other", 2}};
    EXPECT_EQ(table.find(std::string_view("\xC3\xB6L"))->second, 1);
    EXPECT_EQ(table.find(std::string_view("OTHER"))->second, 2);
    EXPECT_EQ(table.find(std::string_view("none")), table.end());
}

}  // namespace
}  // namespace automation
