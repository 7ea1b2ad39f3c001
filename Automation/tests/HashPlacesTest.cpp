// HashPlacesTest: against a plain list, with few hashes so that numbers share places.
#include "automation/HashPlaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <random>

#include "automation_testing/FailingMemory.h"

namespace automation {
namespace {

struct Listed {
    uint32_t hash;
    uint32_t number;
};

std::vector<uint32_t> NumbersOf(const HashPlaces& places, uint32_t hash) {
    std::vector<uint32_t> numbers;
    places.Find(hash, [&](uint32_t number) {
        numbers.push_back(number);
        return false;
    });
    return numbers;
}

std::vector<uint32_t> NumbersOf(const std::vector<Listed>& list, uint32_t hash) {
    std::vector<uint32_t> numbers;
    for (const Listed& each : list)
        if (each.hash == hash) numbers.push_back(each.number);
    return numbers;
}

TEST(HashPlaces, HasNothingInTheBeginning) {
    HashPlaces places;
    EXPECT_EQ(places.Count(), 0u);
    EXPECT_EQ(places.Find(7, [](uint32_t) { return true; }), nullptr);
    EXPECT_EQ(places.MemoryUse(), 0u);
}

TEST(HashPlaces, AFoundNumberCanBeReplaced) {
    HashPlaces places;
    places.Add(7, 1);
    *places.Find(7, [](uint32_t number) { return number == 1; }) = 2;
    EXPECT_EQ(NumbersOf(places, 7), std::vector<uint32_t>{2});
    EXPECT_EQ(places.Count(), 1u);
}

TEST(HashPlaces, NumbersWithOneHashStandInTheOrderOfAddingAsOthersComeAndGo) {
    for (uint32_t seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        // Hashes at both ends of any table, so that runs go over its end.
        const auto anyHash = [&] { return static_cast<uint32_t>(random() % 24) - 12; };
        HashPlaces places;
        std::vector<Listed> list;
        for (uint32_t step = 0; step < 6000; ++step) {
            if (list.empty() || random() % 10 < (step / 1500 % 2 == 0 ? 7 : 3)) {
                list.push_back({anyHash(), step});
                places.Add(list.back().hash, step);
            } else {
                const auto gone = list.begin() + static_cast<ptrdiff_t>(random() % list.size());
                const uint32_t* place =
                    places.Find(gone->hash, [&](uint32_t number) { return number == gone->number; });
                ASSERT_NE(place, nullptr);
                places.Remove(place);
                list.erase(gone);
            }
            ASSERT_EQ(places.Count(), list.size());
            const uint32_t hash = anyHash();
            ASSERT_EQ(NumbersOf(places, hash), NumbersOf(list, hash)) << "step " << step;
        }
    }
}

TEST(HashPlaces, AnAdditionThatMemoryRunsOutForChangesNothing) {
    HashPlaces places;
    std::vector<uint32_t> added;
    int failures = 0;
    for (uint32_t number = 0; number < 500; ++number) {
        try {
            const testing::FailingMemory memory({1, true});
            places.Add(5, number);
        } catch (const std::bad_alloc&) {
            ++failures;
            ASSERT_EQ(NumbersOf(places, 5), added);
            places.Reserve();
            const testing::FailingMemory memory({1, true});
            places.Add(5, number);
        }
        added.push_back(number);
    }
    EXPECT_EQ(NumbersOf(places, 5), added);
    EXPECT_GT(failures, 3);
}

}  // namespace
}  // namespace automation
