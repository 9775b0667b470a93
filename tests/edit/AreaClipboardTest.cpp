#include "AreaClipboard.h"
#include "EditTestGrid.h"

#include <gtest/gtest.h>

namespace {

int CountDifferences(const HeightGrid& a, const HeightGrid& b) {
    int differences = 0;
    for (std::size_t i = 0; i < a.Size(); ++i)
        differences += a.Data()[i] != b.Data()[i];
    return differences;
}

} // namespace

TEST(AreaClipboard, PastesExactlyTheCopiedSquareElsewhereAtTheRadiusKeptAtCopyTime) {
    TerrainData t = MakeTerrain(16, 16);
    NumberPoints(t);
    AreaClipboard clipboard;
    clipboard.CopyArea(t, CursorX(t, 5), CursorZ(t, 6), 2);
    ASSERT_TRUE(clipboard.HasTerrainClipboard());
    EXPECT_EQ(clipboard.RadiusX(), 2);
    EXPECT_EQ(clipboard.At(0, 0), 403.0f);
    EXPECT_EQ(clipboard.At(4, 4), 807.0f);
    const HeightGrid before = t.heights;
    EXPECT_EQ(clipboard.PasteArea(t, CursorX(t, 10), CursorZ(t, 11)), (GridRect{8, 9, 12, 13}));
    EXPECT_EQ(t.heights.At(9, 8), 403.0f);
    EXPECT_EQ(t.heights.At(13, 12), 807.0f);
    EXPECT_EQ(t.heights.At(11, 9), 604.0f);
    EXPECT_EQ(CountDifferences(before, t.heights), 25);
    clipboard.CopyArea(t, CursorX(t, 8), CursorZ(t, 8), 1);
    TerrainData target = MakeTerrain(16, 16, -1.0f);
    EXPECT_EQ(clipboard.PasteArea(target, CursorX(target, 4), CursorZ(target, 4)), (GridRect{3, 3, 5, 5}));
    EXPECT_EQ(CountDifferences(MakeTerrain(16, 16, -1.0f).heights, target.heights), 9);
}

TEST(AreaClipboard, AtTheLowEdgeAPasteDropsTheBlocksFarSideAndAtTheFarEdgeACopyLeavesItsMissingPartZero) {
    TerrainData t = MakeTerrain(16, 16);
    NumberPoints(t);
    AreaClipboard clipboard;
    clipboard.CopyArea(t, CursorX(t, 8), CursorZ(t, 8), 2);
    TerrainData target = MakeTerrain(16, 16, -1.0f);
    EXPECT_EQ(clipboard.PasteArea(target, CursorX(target, 0), CursorZ(target, 8)), (GridRect{0, 6, 2, 10}));
    EXPECT_EQ(target.heights.At(6, 0), 606.0f); // block column 0
    EXPECT_EQ(target.heights.At(6, 2), 608.0f); // block column 2; columns 3 and 4 are dropped
    EXPECT_EQ(target.heights.At(6, 3), -1.0f);
    clipboard.CopyArea(t, CursorX(t, 15), CursorZ(t, 5), 2);
    EXPECT_EQ(clipboard.At(0, 0), 313.0f);
    EXPECT_EQ(clipboard.At(2, 4), 715.0f);
    EXPECT_EQ(clipboard.At(3, 0), 0.0f);
    EXPECT_EQ(clipboard.At(4, 4), 0.0f);
    // The area's rows run on to columns - 1 here, but only the block's five are written back.
    target = MakeTerrain(16, 16, -1.0f);
    EXPECT_EQ(clipboard.PasteArea(target, CursorX(target, 15), CursorZ(target, 5)), (GridRect{13, 3, 15, 7}));
    EXPECT_EQ(target.heights.At(7, 15), 715.0f);
    EXPECT_EQ(target.heights.At(8, 15), -1.0f);
}

TEST(AreaClipboard, DoesNothingBeforeACopyOrOnAnEmptyGrid) {
    AreaClipboard clipboard;
    TerrainData t = MakeTerrain(8, 8, 2.0f);
    EXPECT_TRUE(clipboard.PasteArea(t, 0.0f, 0.0f).Empty());
    EXPECT_EQ(t.heights, MakeTerrain(8, 8, 2.0f).heights);
    clipboard.CopyArea(TerrainData{}, 0.0f, 0.0f, 2);
    EXPECT_FALSE(clipboard.HasTerrainClipboard());
    clipboard.CopyArea(t, 0.0f, 0.0f, 2);
    TerrainData empty;
    EXPECT_TRUE(clipboard.PasteArea(empty, 0.0f, 0.0f).Empty());
}
