#include "machine/SeededRandom.h"

#include <gtest/gtest.h>

namespace machine {
namespace {

TEST(SeededRandomTest, StaysWithinItsRangeWhateverItsSeed) {
    SeededRandom random(7);
    for (const double seed : {0.0, 86399.999, -1.0, 1e300}) {
        random.Randomize(seed);
        for (int i = 0; i < 1000; ++i) {
            const double value = random.Rnd();
            ASSERT_GE(value, 0);
            ASSERT_LT(value, 1);
        }
    }
}

TEST(SeededRandomTest, GivesTheSameSeriesFromTheSameStartAndSeeds) {
    SeededRandom one(7);
    SeededRandom other(7);
    one.Randomize(43215.25);
    other.Randomize(43215.25);
    EXPECT_EQ(one.Rnd(), other.Rnd());
    other.Randomize(43215.25);
    EXPECT_NE(one.Rnd(), other.Rnd());
}

} // namespace
} // namespace machine
