// The seeded random source: a seed gives one exact sequence.
#include "RandomSource.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<std::uint32_t> First(RandomSource random, int count) {
    std::vector<std::uint32_t> values;
    for (int i = 0; i < count; ++i)
        values.push_back(random.Next());
    return values;
}

} // namespace

TEST(RandomSource, EachSeedGivesItsOwnExactSequence) {
    // xorshift32 (shifts 13, 17, 5) from 1, worked out by hand.
    EXPECT_EQ(First(RandomSource(1), 3), (std::vector<std::uint32_t>{270369u, 67634689u, 2647435461u}));
    EXPECT_EQ(First(RandomSource(20261123), 50), First(RandomSource(20261123), 50));
    EXPECT_NE(First(RandomSource(2), 5), First(RandomSource(3), 5));
    RandomSource zero(0);
    EXPECT_NE(zero.Next(), zero.Next()) << "a zero seed must not stick at zero";
    RandomSource one(1);
    EXPECT_DOUBLE_EQ(one.Unit(), 270369.0 / 4294967296.0);
    for (int i = 0; i < 1000; ++i) {
        const double u = one.Unit();
        ASSERT_TRUE(u >= 0.0 && u < 1.0) << u;
    }
}
