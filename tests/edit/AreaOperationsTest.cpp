#include "AreaOperations.h"
#include "EditTestGrid.h"
#include "Sculpt.h"
#include "TerrainFilter.h"

namespace {

using AreaEdit = GridRect (*)(TerrainData&, float, float, int);

GridRect Apply(AreaEdit op, TerrainData& t, int column, int row, int radius) {
    return op(t, CursorX(t, column), CursorZ(t, row), radius);
}

GridRect Area(const TerrainData& t, int column, int row, int radius) {
    return OperationArea(t, CursorX(t, column), CursorZ(t, row), radius);
}

} // namespace

TEST(OperationAreaClipping, ReachingPastTheLastColumnEndsTheRowsAtColumnsMinusOne) {
    const TerrainData narrow = MakeTerrain(8, 16), wide = MakeTerrain(16, 8);
    EXPECT_EQ(Area(narrow, 2, 14, 2), (GridRect{0, 12, 4, 15}));
    EXPECT_EQ(Area(narrow, 6, 3, 2), (GridRect{4, 1, 7, 7}));
    EXPECT_EQ(SculptArea(narrow, CursorX(narrow, 6), CursorZ(narrow, 3), 2), (GridRect{4, 1, 7, 5}));
    // The centre may sit one past the last column; nothing beyond the grid is part of the area.
    EXPECT_EQ(Area(narrow, 8, 3, 1), (GridRect{7, 2, 7, 7}));
    EXPECT_TRUE(Area(narrow, 8, 3, 0).Empty());
    EXPECT_TRUE(Area(narrow, 7, 12, 1).Empty()); // rows 11..7
    EXPECT_EQ(Area(wide, 14, 2, 2), (GridRect{12, 0, 15, 7}));
    EXPECT_TRUE(Area(TerrainData{}, 0, 0, 2).Empty());
}

TEST(FlipArea, ReversesTheRowsOfTheLopsidedArea) {
    TerrainData t = MakeTerrain(8, 16);
    NumberPoints(t);
    EXPECT_EQ(Apply(FlipArea, t, 6, 3, 2), (GridRect{4, 1, 7, 7}));
    ExpectHeights(t, {{1, 4, 704}, {7, 7, 107}, {3, 6, 506}, {0, 4, 4}, {1, 3, 103}, {8, 4, 804}});
    Apply(FlipArea, t, 2, 14, 2); // near the last row only: rows 12..15
    ExpectHeights(t, {{12, 0, 1500}, {13, 2, 1402}});
}

TEST(MirrorArea, ReversesTheColumnsOfTheLopsidedArea) {
    TerrainData t = MakeTerrain(16, 16);
    NumberPoints(t);
    EXPECT_EQ(Apply(MirrorArea, t, 14, 8, 2), (GridRect{12, 6, 15, 15}));
    ExpectHeights(t, {{6, 12, 615}, {15, 13, 1514}, {5, 12, 512}});
}

TEST(FlipAndMirror, EachUndoesItself) {
    TerrainData t = MakeTerrain(16, 16);
    NumberPoints(t);
    const HeightGrid before = t.heights;
    Apply(FlipArea, t, 7, 7, 3);
    ExpectHeights(t, {{4, 7, 1007}});
    Apply(FlipArea, t, 7, 7, 3);
    EXPECT_EQ(t.heights, before);
    Apply(MirrorArea, t, 7, 7, 3);
    ExpectHeights(t, {{7, 4, 710}});
    Apply(MirrorArea, t, 7, 7, 3);
    EXPECT_EQ(t.heights, before);
}

namespace {

// A level 4 with a peak of 10 and a dip of 2 in the area around (8, 8).
TerrainData PeakAndDip() {
    TerrainData t = MakeTerrain(16, 16, 4.0f);
    t.heights.At(8, 8) = 10.0f;
    t.heights.At(7, 7) = 2.0f;
    return t;
}

} // namespace

TEST(InvertArea, TurnsTheAreaOverWithinItsRange) {
    TerrainData t = PeakAndDip();
    const TerrainData start = t;
    EXPECT_EQ(Apply(InvertArea, t, 8, 8, 1), (GridRect{7, 7, 9, 9}));
    ExpectHeights(t, {{7, 7, 10}, {8, 8, 2}, {9, 9, 8}, {6, 6, 4}, {10, 10, 4}});
    Apply(InvertArea, t, 8, 8, 1);
    EXPECT_EQ(t.heights, start.heights);
    TerrainData flat = MakeTerrain(16, 16, 3.0f);
    Apply(InvertArea, flat, 8, 8, 2);
    EXPECT_EQ(CountNotAt(flat, 3.0f), 0);
}

TEST(FlattenToArea, LevelsTheAreaToTheMiddleOrTheBottomOfItsRange) {
    for (SculptMode mode :
         {SculptMode::Relational, SculptMode::Absolute}) { // the middle of the range, its bottom
        TerrainData t = PeakAndDip();
        EXPECT_EQ(FlattenToArea(t, CursorX(t, 8), CursorZ(t, 8), 1, mode), (GridRect{7, 7, 9, 9}));
        EXPECT_EQ(CountNotAt(t, 4.0f), 9);
        EXPECT_EQ(CountNotAt(t, mode == SculptMode::Relational ? 6.0f : 2.0f), 256 - 9);
    }
}

TEST(FlattenToArea, MeasuresTheStrokeAreaButLevelsTheOperationArea) {
    TerrainData t = MakeTerrain(8, 16);
    t.heights.At(7, 6) = 100.0f; // inside the operation area only
    t.heights.At(3, 5) = 10.0f;
    EXPECT_EQ(FlattenToArea(t, CursorX(t, 6), CursorZ(t, 3), 2, SculptMode::Relational),
              (GridRect{4, 1, 7, 7}));
    ExpectHeights(t, {{7, 6, 5}, {1, 4, 5}, {8, 6, 0}});
}

TEST(WholeGrid, ResetGoesToTheGroundLevel) {
    TerrainData t = MakeTerrain(8, 4, 0.0f, true), dry = MakeTerrain(8, 4, 20.0f), empty;
    EXPECT_EQ(WaterLevel(t), -10.0f);
    EXPECT_EQ(WaterLevel(dry) + GroundLevel(dry), 0.0f);
    NumberPoints(t);
    EXPECT_EQ(ResetTerrain(t), GridRect::Whole());
    EXPECT_EQ(CountNotAt(t, 0.5f), 0);
    EXPECT_TRUE(ResetTerrain(empty).Empty());
}

TEST(WholeGrid, AdjustStaysWithinTheToolLimits) {
    TerrainData t = MakeTerrain(8, 4, 0.5f, true), dry = MakeTerrain(8, 4, 20.0f), empty;
    EXPECT_EQ(AdjustHeights(t, 2.5f, AdjustMode::Raise), GridRect::Whole());
    EXPECT_EQ(CountNotAt(t, 3.0f), 0);
    AdjustHeights(dry, 200.0f, AdjustMode::Lower);
    EXPECT_EQ(CountNotAt(dry, -10.0f), 0);
    AdjustHeights(dry, 500.0f, AdjustMode::Set);
    EXPECT_EQ(CountNotAt(dry, 150.0f), 0);
    EXPECT_TRUE(AdjustHeights(empty, 1.0f, AdjustMode::Raise).Empty());
}

TEST(EveryOperation, LeavesEveryPointFiniteAndTheGridItsSize) {
    TerrainData t = MakeTerrain(8, 16, 0.0f, true);
    NumberPoints(t);
    for (int column : {-5, 0, 3, 7, 8, 30})
        for (int radius : {0, 2, 5, 40}) {
            const float x = CursorX(t, column), z = CursorZ(t, column + 4);
            for (float delta : {60.0f, -60.0f})
                ApplySculpt(t, x, z, SculptTool::Square, SculptMode::Relational, radius, delta);
            ApplySculpt(t, x, z, SculptTool::Square, SculptMode::Absolute, radius, -300.0f);
            for (AreaEdit op : {FlipArea, MirrorArea, InvertArea})
                op(t, x, z, radius);
            FlattenToArea(t, x, z, radius, static_cast<SculptMode>(radius % 2));
            for (int preset = 0; preset < 6; ++preset)
                FilterTerrain(t, PresetMatrix(preset), true, x, z, radius);
        }
    FilterTerrain(t, PresetMatrix(5), false, 0.0f, 0.0f, 0);
    EXPECT_TRUE(AllFinite(t));
    EXPECT_EQ(t.heights.Size(), 128u);
}
