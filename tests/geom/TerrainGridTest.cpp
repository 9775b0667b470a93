// The grid point under a world position (one rule, three clamps) and where grid points stand.
#include "TerrainGrid.h"
#include "SampleTrack.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

struct UnderCase {
    float position;
    float spacing;
    int none;        // not clamped
    int toLast;      // 0 .. 9 on an axis of 10 points
    int onePastLast; // 0 .. 10
};

} // namespace

TEST(GridPointUnder, RoundsTwiceWithTiesToEvenAndClampsOnlyAsAsked) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    // index = round(round(position + 512) / spacing), worked out by hand.
    const UnderCase cases[] = {
        {-512.0f, 4.0f, 0, 0, 0},        {-502.0f, 4.0f, 2, 2, 2}, // 10 / 4 = 2.5: ties to even
        {-498.0f, 4.0f, 4, 4, 4},                                  // 14 / 4 = 3.5: ties to even
        {-511.5f, 1.0f, 0, 0, 0},                                  // 0.5 rounds to 0 before the division
        {-510.5f, 1.0f, 2, 2, 2},                                  // 1.5 rounds to 2
        {-480.0f, 4.0f, 8, 8, 8},                                  // inside the grid
        {-472.0f, 4.0f, 10, 9, 10},                                // one past the last point
        {-400.0f, 4.0f, 28, 9, 10},                                // far past it
        {-600.0f, 4.0f, -22, 0, 0},                                // before the first point
        {-513.0f, 4.0f, 0, 0, 0},                                  // -1 / 4 = -0.25 rounds to -0
        {-520.0f, 4.0f, -2, 0, 0},                                 // -8 / 4
        {0.0f, nan, 1000000, 9, 10},                               // a damaged spacing lands far outside
        {-600.0f, 0.0f, -1000000, 0, 0},                           // -88 / 0 = -infinity
    };
    for (const UnderCase& c : cases) {
        const auto under = [&](GridClamp clamp) {
            // The same position along both axes; rows are counted on an axis of 10 points too.
            return GridPointUnder(c.position, c.position, c.spacing, c.spacing, 10, 10, clamp);
        };
        EXPECT_EQ(under(GridClamp::None), (GridPoint{c.none, c.none})) << c.position << " / " << c.spacing;
        EXPECT_EQ(under(GridClamp::ToLastPoint), (GridPoint{c.toLast, c.toLast})) << c.position;
        EXPECT_EQ(under(GridClamp::OnePastLast), (GridPoint{c.onePastLast, c.onePastLast})) << c.position;
    }
    // Each axis keeps its own spacing and count.
    EXPECT_EQ(GridPointUnder(-472.0f, -472.0f, 4.0f, 2.0f, 10, 30, GridClamp::ToLastPoint),
              (GridPoint{9, 20}));
    EXPECT_EQ(GridPointUnder(0.0f, 0.0f, 4.0f, 4.0f, 0, 0, GridClamp::ToLastPoint), (GridPoint{0, 0}))
        << "a grid without points";
}

TEST(GridPointUnder, OverATerrainCountsThePointsOfItsHeightGrid) {
    TerrainData t = MakeNumberedTerrain(5, 3, 256.0f);
    t.columns = t.rows = 99; // the counts in the record are ignored
    EXPECT_EQ(GridPointUnder(t, 1000.0f, 1000.0f, GridClamp::ToLastPoint), (GridPoint{4, 2}));
    EXPECT_EQ(GridPointUnder(t, 1000.0f, 1000.0f, GridClamp::OnePastLast), (GridPoint{5, 3}));
}

TEST(HeightUnder, ReadsTheNearestPointWithinTheGrid) {
    const TerrainData t = MakeNumberedTerrain(5, 3, 256.0f);
    EXPECT_EQ(HeightUnder(t, -512.0f + 256.0f, -512.0f + 300.0f), 11.0f);
    EXPECT_EQ(HeightUnder(t, 5000.0f, -5000.0f), 4.0f) << "clamped to the last column and the first row";
    EXPECT_EQ(HeightUnder(TerrainData{}, 0.0f, 0.0f), 0.0f);
}

TEST(GridPointPosition, PointsAreCentredOnTheOriginAndStandAtTheirHeight) {
    EXPECT_FLOAT_EQ(GridCoordinate(0, 409, 1024.0f / 409.0f), -204.0f * 1024.0f / 409.0f);
    EXPECT_EQ(GridCoordinate(204, 409, 1024.0f / 409.0f), 0.0f);
    // An even count has no point at the centre: the middle two straddle it.
    EXPECT_EQ(GridCoordinate(1, 4, 256.0f), -128.0f);
    EXPECT_EQ(GridCoordinate(2, 4, 256.0f), 128.0f);
    TerrainData t;
    t.spacingX = 256.0f;
    t.spacingZ = 512.0f;
    t.heights.Resize(4, 2, 7.5f);
    const Vector3 p = GridPointPosition(t, 0, 3);
    EXPECT_TRUE(p.x == 384.0f && p.y == 7.5f && p.z == -256.0f) << p.x << " " << p.y << " " << p.z;
    // Worked out in double precision and rounded once.
    const float spacing = 1024.0f / 409.0f;
    EXPECT_EQ(GridCoordinate(305, 409, spacing), static_cast<float>(static_cast<double>(spacing) * 101.0));
}
