// DisjointPlacesTest: which directories hold one another, and how many comparisons it takes to know.
#include "model/DisjointPlaces.h"

#include <gtest/gtest.h>

#include <string>

namespace localstores {
namespace {

struct CountingLess {
    size_t* calls;
    bool operator()(const std::string& a, const std::string& b) const {
        ++*calls;
        return a < b;
    }
};

TEST(DisjointPlaces, APlaceIsTakenInOnce) {
    DisjointPlaces<> places;
    EXPECT_TRUE(places.Add("/mail/a"));
    EXPECT_FALSE(places.Add("/mail/a"));
}

TEST(DisjointPlaces, APlaceWithinAKnownOneIsRefused) {
    DisjointPlaces<> places;
    EXPECT_TRUE(places.Add("/mail/a"));
    EXPECT_TRUE(places.Add("/mail/b"));
    EXPECT_FALSE(places.Add("/mail/a/deep/down"));
    EXPECT_FALSE(places.Add("/mail/b/c"));
}

TEST(DisjointPlaces, APlaceThatHoldsAKnownOneIsRefused) {
    DisjointPlaces<> places;
    EXPECT_TRUE(places.Add("/mail/a/b"));
    EXPECT_FALSE(places.Add("/mail/a"));
    EXPECT_FALSE(places.Add("/mail"));
    EXPECT_FALSE(places.Add("/"));
}

TEST(DisjointPlaces, TheRootHoldsAll) {
    DisjointPlaces<> places;
    EXPECT_TRUE(places.Add("/"));
    EXPECT_FALSE(places.Add("/mail"));
}

TEST(DisjointPlaces, PlacesWhoseNamesBeginAlikeAreDisjoint) {
    DisjointPlaces<> places;
    // "-" and "0" stand before and behind the separator.
    for (const char* place : {"/mail/a", "/mail/a-", "/mail/a0", "/mail/aa", "/mail/a-/b"})
        EXPECT_EQ(places.Add(place), std::string(place) != "/mail/a-/b") << place;
    EXPECT_FALSE(places.Add("/mail/a0/x"));
}

TEST(DisjointPlaces, TenTimesAsManyPlacesTakeLittleMoreThanTenTimesTheComparisons) {
    const auto comparisonsFor = [](int count) {
        size_t calls = 0;
        DisjointPlaces<CountingLess> places(CountingLess{&calls});
        for (int i = 0; i < count; ++i) EXPECT_TRUE(places.Add("/mail/" + std::to_string(i)));
        for (int i = 0; i < count; ++i) EXPECT_FALSE(places.Add("/mail/" + std::to_string(i) + "/sub"));
        return calls;
    };
    EXPECT_LT(comparisonsFor(20000), 20 * comparisonsFor(2000));
}

}  // namespace
}  // namespace localstores
