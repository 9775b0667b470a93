#include "TerrainFilter.h"
#include "EditTestGrid.h"

#include <gtest/gtest.h>

namespace {

enum Preset { kSoften = 0, kSmooth = 1, kRaise = 3, kLower = 4 };

GridRect FilterWhole(TerrainData& t, int preset) {
    return FilterTerrain(t, PresetMatrix(preset), false, 0.0f, 0.0f, 0);
}

} // namespace

TEST(FilterInPlace, LaterPointsSeeTheNewValuesOfEarlierOnes) {
    TerrainData t = MakeTerrain(16, 16);
    t.heights.At(5, 5) = 10.0f;
    EXPECT_EQ(FilterWhole(t, kSmooth), GridRect::Whole());
    EXPECT_FLOAT_EQ(t.heights.At(4, 5), 2.0f);  // above the spike
    EXPECT_FLOAT_EQ(t.heights.At(5, 4), 2.0f);  // before it in its row
    EXPECT_FLOAT_EQ(t.heights.At(5, 5), 2.8f);  // (2 + 2 + 10) / 5
    EXPECT_FLOAT_EQ(t.heights.At(4, 6), 0.4f);  // sees the new 2 on its left
    EXPECT_FLOAT_EQ(t.heights.At(5, 6), 0.64f); // (0.4 + 2.8) / 5
}

TEST(FilterPresets, LeaveFlatZeroGroundAloneAndTreatThePointsBeyondTheEdgeAsZero) {
    for (int preset = 0; preset < 6; ++preset) {
        TerrainData t = MakeTerrain(8, 8);
        FilterWhole(t, preset);
        EXPECT_EQ(t.heights, MakeTerrain(8, 8).heights)
            << FilterPresets()[static_cast<std::size_t>(preset)].text;
    }
    TerrainData t = MakeTerrain(8, 8, 5.0f);
    FilterWhole(t, kSoften);
    EXPECT_FLOAT_EQ(t.heights.At(0, 0), 35.0f / 9.0f);
    for (int i = 0; i < 8; ++i) {
        EXPECT_LT(t.heights.At(0, i), 5.0f);
        EXPECT_LT(t.heights.At(i, 0), 5.0f);
    }
}

TEST(FilterPresets, ResultsStayWithinTheToolLimits) {
    TerrainData high = MakeTerrain(4, 4, 120.0f);
    FilterWhole(high, kRaise);
    EXPECT_EQ(high.heights, MakeTerrain(4, 4, 150.0f).heights);
    TerrainData low = MakeTerrain(4, 4, -9.0f);
    FilterWhole(low, kLower);
    EXPECT_EQ(low.heights, MakeTerrain(4, 4, -6.0f).heights);
    TerrainData dry = MakeTerrain(4, 4, 20.0f); // the floor is -10 with or without water
    FilterTerrain(dry, FilterMatrix{{0, 0, 0, 0, -1, 0, 0, 0, 0}, 1}, false, 0.0f, 0.0f, 0);
    EXPECT_EQ(dry.heights, MakeTerrain(4, 4, -10.0f).heights);
}

TEST(FilterWholePass, StopsItsColumnsAtTheRowCount) {
    TerrainData wide = MakeTerrain(6, 4, 10.0f);
    FilterWhole(wide, kRaise);
    for (int z = 0; z < 4; ++z)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(wide.heights.At(z, x), x < 4 ? 15.0f : 10.0f) << x << "," << z;
    TerrainData tall = MakeTerrain(4, 6, 10.0f);
    FilterWhole(tall, kRaise);
    EXPECT_EQ(tall.heights, MakeTerrain(4, 6, 15.0f).heights);
}

TEST(FilterArea, ChangesOnlyTheOperationAreaAndAZeroFactorOrAnUnknownPresetChangesNothing) {
    TerrainData t = MakeTerrain(16, 16, 10.0f);
    const GridRect area = FilterTerrain(t, PresetMatrix(kRaise), true, CursorX(t, 8), CursorZ(t, 8), 1);
    EXPECT_EQ(area, (GridRect{7, 7, 9, 9}));
    EXPECT_EQ(t.heights.At(7, 9), 15.0f);
    EXPECT_EQ(t.heights.At(6, 8), 10.0f);
    EXPECT_EQ(t.heights.At(8, 10), 10.0f);
    // A factor of zero or an unknown preset changes nothing.
    const HeightGrid before = t.heights;
    EXPECT_TRUE(FilterWhole(t, 6).Empty());
    EXPECT_TRUE(FilterTerrain(t, FilterMatrix{{1, 1, 1, 1, 1, 1, 1, 1, 1}, 0}, true, 0.0f, 0.0f, 2).Empty());
    EXPECT_EQ(t.heights, before);
    EXPECT_EQ(PresetMatrix(-1), FilterMatrix{});
}
