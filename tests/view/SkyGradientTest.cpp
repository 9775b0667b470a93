#include "SkyGradient.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

float Brightness(const RgbColour& c) {
    return c.r + c.g + c.b;
}

} // namespace

TEST(SkyGradient, ColoursRunFromHazeBelowThroughTheLightHorizonToTheZenith) {
    EXPECT_EQ(SkyColourAt(0.0f), kSkyHorizon);
    EXPECT_EQ(SkyColourAt(90.0f), kSkyZenith);
    EXPECT_EQ(SkyColourAt(120.0f), kSkyZenith) << "past straight up stays the zenith";
    EXPECT_EQ(SkyColourAt(-20.0f), kSkyHaze);
    EXPECT_EQ(SkyColourAt(-90.0f), kSkyHaze);
    // Darker the further from the horizon, both ways.
    for (float e = 0.0f; e < 90.0f; e += 5.0f)
        EXPECT_GT(Brightness(SkyColourAt(e)), Brightness(SkyColourAt(e + 5.0f))) << e;
    for (float e = 0.0f; e > -20.0f; e -= 5.0f)
        EXPECT_GT(Brightness(SkyColourAt(e)), Brightness(SkyColourAt(e - 5.0f))) << e;
    // Half the change happens in the lowest quarter of the sky.
    const float quarter = SkyColourAt(22.5f).r;
    EXPECT_NEAR(quarter, kSkyHorizon.r + (kSkyZenith.r - kSkyHorizon.r) * 0.5f, 1e-5f);
}

TEST(SkyGradient, StopsSpanTheScreenAndPutTheHorizonWhereThePitchSeesIt) {
    const std::vector<SkyStop> level = SkyGradient(0.0f, 45.0f, 4);
    ASSERT_EQ(level.size(), 5u);
    EXPECT_FLOAT_EQ(level.front().screenY, -1.0f);
    EXPECT_FLOAT_EQ(level.back().screenY, 1.0f);
    EXPECT_EQ(level[2].colour, kSkyHorizon) << "level view: the horizon in the middle";
    // The top edge of a 45 degree view looks 22.5 degrees up.
    EXPECT_EQ(level[4].colour, SkyColourAt(22.5f));
    EXPECT_EQ(level[0].colour, SkyColourAt(-22.5f));
    // Pitched up by half the view, the bottom edge looks at the horizon.
    EXPECT_EQ(SkyGradient(22.5f, 45.0f, 4).front().colour, SkyColourAt(0.0f));
    // Straight down, everything is haze; straight up, everything is high sky.
    for (const SkyStop& stop : SkyGradient(-90.0f, 45.0f, 8))
        EXPECT_EQ(stop.colour, kSkyHaze);
    for (const SkyStop& stop : SkyGradient(90.0f, 45.0f, 8))
        EXPECT_GT(Brightness(kSkyHorizon), Brightness(stop.colour) + 0.5f);
    EXPECT_EQ(SkyGradient(0.0f, 45.0f, 0).size(), 2u) << "at least one band";
}
