#include "AreaOperations.h"
#include "EditTestGrid.h"
#include "Sculpt.h"
#include "TerrainFilter.h"

#include <gtest/gtest.h>

namespace {

GridRect Area(const TerrainData& t, int column, int row, int radius) {
    return OperationArea(t, CursorX(t, column), CursorZ(t, row), radius);
}

using AreaOperation = GridRect (*)(TerrainData&, float, float, int);
GridRect Apply(AreaOperation op, TerrainData& t, int column, int row, int radius) {
    return op(t, CursorX(t, column), CursorZ(t, row), radius);
}

} // namespace

TEST(OperationAreaClipping, ReachingPastTheLastColumnEndsTheRowsAtColumnsMinusOne) {
    const TerrainData narrow = MakeTerrain(8, 16);
    EXPECT_EQ(Area(narrow, 2, 14, 2), (GridRect{0, 12, 4, 15}));
    EXPECT_EQ(Area(narrow, 6, 3, 2), (GridRect{4, 1, 7, 7}));
    EXPECT_EQ(SculptArea(narrow, CursorX(narrow, 6), CursorZ(narrow, 3), 2), (GridRect{4, 1, 7, 5}));
    // The centre may sit one past the last column; nothing beyond the grid is part of the area.
    EXPECT_EQ(Area(narrow, 8, 3, 1), (GridRect{7, 2, 7, 7}));
    EXPECT_TRUE(Area(narrow, 8, 3, 0).Empty());
    EXPECT_TRUE(Area(narrow, 7, 12, 1).Empty()); // rows 11..7
    const TerrainData wide = MakeTerrain(16, 8);
    EXPECT_EQ(Area(wide, 14, 2, 2), (GridRect{12, 0, 15, 7}));
    EXPECT_TRUE(Area(TerrainData{}, 0, 0, 2).Empty());
}

TEST(FlipAndMirror, FlipReversesTheRowsOfTheLopsidedArea) {
    TerrainData t = MakeTerrain(8, 16);
    NumberPoints(t);
    EXPECT_EQ(Apply(FlipArea, t, 6, 3, 2), (GridRect{4, 1, 7, 7}));
    EXPECT_EQ(t.heights.At(1, 4), 704.0f);
    EXPECT_EQ(t.heights.At(7, 7), 107.0f);
    EXPECT_EQ(t.heights.At(4, 5), 405.0f);
    EXPECT_EQ(t.heights.At(0, 4), 4.0f);
    EXPECT_EQ(t.heights.At(1, 3), 103.0f);
    EXPECT_EQ(t.heights.At(8, 4), 804.0f);
    Apply(FlipArea, t, 2, 14, 2); // near the last row only: rows 12..15
    EXPECT_EQ(t.heights.At(12, 0), 1500.0f);
    EXPECT_EQ(t.heights.At(13, 2), 1402.0f);
}

TEST(FlipAndMirror, MirrorReversesOnlyTheColumnsInsideTheGridAndEachUndoesItselfWhenAppliedTwice) {
    TerrainData t = MakeTerrain(16, 16);
    NumberPoints(t);
    EXPECT_EQ(Apply(MirrorArea, t, 14, 8, 2), (GridRect{12, 6, 15, 15}));
    EXPECT_EQ(t.heights.At(6, 12), 615.0f);
    EXPECT_EQ(t.heights.At(15, 13), 1514.0f);
    EXPECT_EQ(t.heights.At(5, 12), 512.0f);
    // Each undoes itself when applied twice.
    const HeightGrid before = t.heights;
    Apply(FlipArea, t, 7, 7, 3);
    EXPECT_EQ(t.heights.At(4, 7), 1007.0f);
    Apply(FlipArea, t, 7, 7, 3);
    EXPECT_EQ(t.heights, before);
    Apply(MirrorArea, t, 7, 7, 3);
    EXPECT_EQ(t.heights.At(7, 4), 710.0f);
    Apply(MirrorArea, t, 7, 7, 3);
    EXPECT_EQ(t.heights, before);
}

TEST(Invert, TurnsTheAreaOverWithinItsOwnRange) {
    TerrainData t = MakeTerrain(16, 16, 4.0f);
    t.heights.At(8, 8) = 10.0f;
    t.heights.At(7, 7) = 2.0f;
    const HeightGrid before = t.heights;
    EXPECT_EQ(Apply(InvertArea, t, 8, 8, 1), (GridRect{7, 7, 9, 9}));
    EXPECT_EQ(t.heights.At(9, 9), 8.0f);
    EXPECT_EQ(t.heights.At(8, 8), 2.0f);
    EXPECT_EQ(t.heights.At(7, 7), 10.0f);
    EXPECT_EQ(t.heights.At(6, 6), 4.0f);
    Apply(InvertArea, t, 8, 8, 1);
    EXPECT_EQ(t.heights, before);
    TerrainData flat = MakeTerrain(16, 16, 3.0f);
    Apply(InvertArea, flat, 8, 8, 2);
    EXPECT_EQ(flat.heights, MakeTerrain(16, 16, 3.0f).heights);
}

TEST(Flatten, RelationalGoesToTheMiddleAbsoluteToTheBottomOfTheStrokeAreaAcrossTheOperationArea) {
    for (int mode : {0, 1}) {
        TerrainData t = MakeTerrain(16, 16, 4.0f);
        t.heights.At(8, 8) = 10.0f;
        t.heights.At(7, 7) = 2.0f;
        EXPECT_EQ(FlattenToArea(t, CursorX(t, 8), CursorZ(t, 8), 1, mode), (GridRect{7, 7, 9, 9}));
        const float level = mode == 0 ? 6.0f : 2.0f;
        EXPECT_EQ(t.heights.At(7, 7), level);
        EXPECT_EQ(t.heights.At(9, 9), level);
        EXPECT_EQ(t.heights.At(10, 10), 4.0f);
    }
    // The level is measured over the stroke area but the operation area is flattened.
    TerrainData t = MakeTerrain(8, 16);
    t.heights.At(7, 6) = 100.0f; // inside the operation area only
    t.heights.At(3, 5) = 10.0f;
    EXPECT_EQ(FlattenToArea(t, CursorX(t, 6), CursorZ(t, 3), 2, 0), (GridRect{4, 1, 7, 7}));
    EXPECT_EQ(t.heights.At(7, 6), 5.0f);
    EXPECT_EQ(t.heights.At(1, 4), 5.0f);
    EXPECT_EQ(t.heights.At(8, 6), 0.0f);
}

TEST(Flatten, WaterAndGroundLevelsDependOnWater) {
    TerrainData dry = MakeTerrain(16, 16, 7.0f);
    FlattenArea(dry, CursorX(dry, 8), CursorZ(dry, 8), 0, WaterLevel(dry));
    EXPECT_EQ(dry.heights.At(8, 8), 0.0f);
    EXPECT_EQ(GroundLevel(dry), 0.0f);
    const TerrainData wet = MakeTerrain(4, 4, 0.0f, true);
    EXPECT_EQ(WaterLevel(wet), -10.0f);
    EXPECT_EQ(GroundLevel(wet), 0.5f);
}

TEST(WholeGrid, ResetAndAdjustTouchEveryPointWithinTheToolLimits) {
    TerrainData t = MakeTerrain(8, 4, 0.0f, true);
    NumberPoints(t);
    EXPECT_EQ(ResetTerrain(t), GridRect::Whole());
    EXPECT_EQ(t.heights, MakeTerrain(8, 4, 0.5f).heights);
    EXPECT_EQ(AdjustHeights(t, 2.5f, 0), GridRect::Whole());
    EXPECT_EQ(t.heights.At(3, 7), 3.0f);
    TerrainData dry = MakeTerrain(8, 4, 20.0f);
    AdjustHeights(dry, 200.0f, 1);
    EXPECT_EQ(dry.heights, MakeTerrain(8, 4, -10.0f).heights);
    AdjustHeights(dry, 500.0f, 2);
    EXPECT_EQ(dry.heights, MakeTerrain(8, 4, 150.0f).heights);
    TerrainData empty;
    EXPECT_TRUE(ResetTerrain(empty).Empty());
    EXPECT_TRUE(AdjustHeights(empty, 1.0f, 0).Empty());
}

TEST(EveryOperation, LeavesEveryPointFiniteAndTheGridItsSize) {
    TerrainData t = MakeTerrain(8, 16, 0.0f, true);
    NumberPoints(t);
    for (int column : {-5, 0, 3, 7, 8, 30})
        for (int radius : {0, 2, 5, 40}) {
            const float x = CursorX(t, column), z = CursorZ(t, column + 4);
            ApplySculpt(t, x, z, 0, 0, radius, 60.0f);
            ApplySculpt(t, x, z, 0, 0, radius, -60.0f);
            ApplySculpt(t, x, z, 0, 1, radius, -300.0f);
            FlipArea(t, x, z, radius);
            MirrorArea(t, x, z, radius);
            InvertArea(t, x, z, radius);
            FlattenToArea(t, x, z, radius, radius % 2);
            for (int preset = 0; preset < 6; ++preset)
                FilterTerrain(t, PresetMatrix(preset), true, x, z, radius);
        }
    FilterTerrain(t, PresetMatrix(5), false, 0.0f, 0.0f, 0);
    EXPECT_TRUE(AllFinite(t));
    EXPECT_EQ(t.heights.Size(), 128u);
}
