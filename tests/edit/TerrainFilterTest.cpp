#include "TerrainFilter.h"
#include "EditTestGrid.h"

namespace {

enum Preset { kSoften = 0, kSmooth = 1, kRaise = 3, kLower = 4 };

GridRect FilterWhole(TerrainData& t, const FilterMatrix& matrix) {
    return FilterTerrain(t, matrix, false, 0.0f, 0.0f, 0);
}

} // namespace

TEST(FilterInPlace, LaterPointsSeeTheNewValuesOfEarlierOnes) {
    TerrainData t = MakeTerrain(16, 16);
    t.heights.At(5, 5) = 10.0f;
    EXPECT_EQ(FilterWhole(t, PresetMatrix(kSmooth)), GridRect::Whole());
    // Above the spike and before it in its row: 10 / 5. The spike: (2 + 2 + 10) / 5. After it in
    // its row and above that: they see the new values, (0.4 + 2.8) / 5 and 2 / 5.
    ExpectHeights(t, {{4, 5, 2}, {5, 4, 2}, {5, 5, 2.8f}, {4, 6, 0.4f}, {5, 6, 0.64f}});
}

TEST(FilterInPlace, PointsBeyondTheEdgeCountAsZero) {
    TerrainData t = MakeTerrain(8, 8, 5.0f);
    FilterWhole(t, PresetMatrix(kSoften));
    EXPECT_FLOAT_EQ(t.heights.At(0, 0), 35.0f / 9.0f);
    for (int i = 0; i < 8; ++i)
        EXPECT_TRUE(t.heights.At(0, i) < 5.0f && t.heights.At(i, 0) < 5.0f) << i;
}

TEST(FilterPresets, LeaveFlatZeroGroundAlone) {
    for (int preset = 0; preset < 6; ++preset) {
        TerrainData t = MakeTerrain(8, 8);
        FilterWhole(t, PresetMatrix(preset));
        EXPECT_EQ(CountNotAt(t, 0.0f), 0) << preset;
    }
}

TEST(FilterPresets, StayWithinTheToolLimits) {
    const struct {
        float level;
        FilterMatrix matrix;
        float expected;
    } cases[] = {
        {120.0f, PresetMatrix(kRaise), 150.0f},
        {-9.0f, PresetMatrix(kLower), -6.0f},
        {20.0f, FilterMatrix{{0, 0, 0, 0, -1, 0, 0, 0, 0}, 1}, -10.0f}}; // the floor even without water
    for (const auto& c : cases) {
        TerrainData t = MakeTerrain(4, 4, c.level);
        FilterWhole(t, c.matrix);
        EXPECT_EQ(CountNotAt(t, c.expected), 0) << c.level;
    }
}

TEST(FilterWholePass, StopsItsColumnsAtTheRowCount) {
    TerrainData wide = MakeTerrain(6, 4, 10.0f), tall = MakeTerrain(4, 6, 10.0f);
    FilterWhole(wide, PresetMatrix(kRaise));
    for (int z = 0; z < 4; ++z)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(wide.heights.At(z, x), x < 4 ? 15.0f : 10.0f) << x << "," << z;
    FilterWhole(tall, PresetMatrix(kRaise));
    EXPECT_EQ(CountNotAt(tall, 15.0f), 0);
}

TEST(FilterArea, ChangesOnlyTheOperationArea) {
    TerrainData t = MakeTerrain(16, 16, 10.0f);
    EXPECT_EQ(FilterTerrain(t, PresetMatrix(kRaise), true, CursorX(t, 8), CursorZ(t, 8), 1),
              (GridRect{7, 7, 9, 9}));
    EXPECT_EQ(t.heights.At(7, 9), 15.0f);
    EXPECT_EQ(CountNotAt(t, 10.0f), 9);
}

TEST(FilterArea, AZeroFactorOrAnUnknownPresetChangesNothing) {
    TerrainData t = MakeTerrain(16, 16, 10.0f);
    const HeightGrid before = t.heights;
    EXPECT_TRUE(FilterWhole(t, PresetMatrix(6)).Empty());
    EXPECT_TRUE(FilterTerrain(t, FilterMatrix{{1, 1, 1, 1, 1, 1, 1, 1, 1}, 0}, true, 0.0f, 0.0f, 2).Empty());
    EXPECT_EQ(t.heights, before);
    EXPECT_EQ(PresetMatrix(-1), FilterMatrix{});
}
