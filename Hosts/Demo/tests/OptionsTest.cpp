// OptionsTest: the command line.
#include "Options.h"

#include <gtest/gtest.h>

namespace demo {
namespace {

TEST(Options, CollectTheStoresInTheirOrder) {
    const Options options = ParseOptions({L"--pst", L"a.pst", L"--maildir", L"b", L"--pst", L"c.pst"});
    EXPECT_EQ(options.error, L"");
    EXPECT_EQ(options.mailStores, (std::vector<std::wstring>{L"a.pst", L"b", L"c.pst"}));
}

TEST(Options, LeaveTheLevelOpenUnlessItIsGiven) {
    EXPECT_FALSE(ParseOptions({}).level.has_value());
    EXPECT_EQ(ParseOptions({L"--level", L"0"}).level, 0);
}

TEST(Options, LeaveTheAccessModeOpenUnlessItIsGiven) {
    EXPECT_FALSE(ParseOptions({}).mode.has_value());
    EXPECT_EQ(ParseOptions({L"--mode", L"3"}).mode, 3);
    EXPECT_NE(ParseOptions({L"--mode", L"Outlook"}).error, L"");
}

TEST(Options, RefuseWhatTheyDoNotKnow) {
    EXPECT_NE(ParseOptions({L"--colour", L"red"}).error, L"");
    EXPECT_NE(ParseOptions({L"--pst"}).error, L"");
    EXPECT_NE(ParseOptions({L"--level", L"two"}).error, L"");
    EXPECT_NE(ParseOptions({L"--slow", L"-5"}).error, L"");
}

TEST(Options, CountAsUnattendedWhenAFileIsWatched) {
    EXPECT_FALSE(ParseOptions({L"--trace", L"t"}).Unattended());
    EXPECT_TRUE(ParseOptions({L"--ready", L"r"}).Unattended());
    EXPECT_TRUE(ParseOptions({L"--watch", L"w"}).Unattended());
}

}  // namespace
}  // namespace demo
