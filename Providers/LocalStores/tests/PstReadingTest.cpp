// PstReadingTest: what the reading of a PST file may cost.
#include "pst/PstReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace localstores {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(PstReading, WithinItsLimitsAFailureIsTheDamage) {
    PstReading reading("a.pst", {});
    EXPECT_FALSE(reading.IsSpent());
    EXPECT_NO_THROW(reading.CheckLimits());
    EXPECT_THAT(reading.Failure("a table is torn").Text(), HasSubstr("Cannot open \"a.pst\": a table is torn"));
}

TEST(PstReading, AfterALimitEveryFailureIsTheLimit) {
    PstReading reading("a.pst", {.time = std::chrono::seconds(0)});
    EXPECT_TRUE(reading.IsSpent());
    EXPECT_THROW(reading.CheckLimits(), automation::Error);
    EXPECT_THAT(reading.Failure("a table is torn").Text(), Not(HasSubstr("torn")));
}

TEST(PstReading, MemoryThatWasInUseBeforeDoesNotCount) {
    static size_t inUse = 0;
    inUse = size_t{2} << 30;
    PstReading reading("a.pst", {.memoryInUse = []() noexcept { return inUse; }});
    EXPECT_FALSE(reading.IsSpent());
    inUse -= size_t{1} << 30;
    EXPECT_FALSE(reading.IsSpent()) << "others may give memory back meanwhile";
    inUse += size_t{5} << 29;
    EXPECT_TRUE(reading.IsSpent());
    inUse = 0;
    EXPECT_TRUE(reading.IsSpent()) << "it stays so";
}

TEST(PstReading, TheProcessIsSeenToGrow) {
    const size_t before = ProcessMemory();
    EXPECT_GT(before, 0u);
    constexpr size_t size = size_t{64} << 20;
    const std::vector<char> filled(size, 'x');
    EXPECT_GE(ProcessMemory(), before + size / 2) << filled.back();
}

}  // namespace
}  // namespace localstores
