#include "AreaClipboard.h"
#include "EditTestGrid.h"

TEST(AreaClipboard, PastesTheCopiedSquareAtTheCursorAndClipsItAtEitherEdgeOfTheGrid) {
    TerrainData t = MakeTerrain(16, 16), target;
    NumberPoints(t);
    AreaClipboard clipboard;
    clipboard.CopyArea(t, CursorX(t, 5), CursorZ(t, 6), 2);
    EXPECT_EQ(clipboard.RadiusX(), 2);
    EXPECT_TRUE(clipboard.At(0, 0) == 403.0f && clipboard.At(4, 4) == 807.0f);
    target = MakeTerrain(16, 16, -1.0f);
    EXPECT_EQ(clipboard.PasteArea(target, CursorX(t, 10), CursorZ(t, 11)), (GridRect{8, 9, 12, 13}));
    ExpectHeights(target, {{9, 8, 403}, {11, 9, 604}, {13, 12, 807}});
    EXPECT_EQ(CountNotAt(target, -1.0f), 25);
    // At the low edge a paste drops the block's far side.
    clipboard.CopyArea(t, CursorX(t, 8), CursorZ(t, 8), 2);
    target = MakeTerrain(16, 16, -1.0f);
    EXPECT_EQ(clipboard.PasteArea(target, CursorX(t, 0), CursorZ(t, 8)), (GridRect{0, 6, 2, 10}));
    ExpectHeights(target, {{6, 0, 606}, {10, 2, 1008}});
    EXPECT_EQ(CountNotAt(target, -1.0f), 15);
    // At the far edge a copy leaves the missing part zero. The area's rows run on to columns - 1
    // there, but only the block's five are written back.
    clipboard.CopyArea(t, CursorX(t, 15), CursorZ(t, 5), 2);
    EXPECT_TRUE(clipboard.At(0, 0) == 313.0f && clipboard.At(2, 4) == 715.0f && clipboard.At(3, 0) == 0.0f);
    target = MakeTerrain(16, 16, -1.0f);
    EXPECT_EQ(clipboard.PasteArea(target, CursorX(t, 15), CursorZ(t, 5)), (GridRect{13, 3, 15, 7}));
    ExpectHeights(target, {{7, 15, 715}});
    EXPECT_EQ(CountNotAt(target, -1.0f), 15);
}

TEST(AreaClipboard, DoesNothingBeforeACopyOrOnAnEmptyGrid) {
    AreaClipboard clipboard;
    TerrainData t = MakeTerrain(8, 8, 2.0f), empty;
    EXPECT_TRUE(clipboard.PasteArea(t, 0.0f, 0.0f).Empty());
    EXPECT_EQ(CountNotAt(t, 2.0f), 0);
    clipboard.CopyArea(empty, 0.0f, 0.0f, 2);
    EXPECT_FALSE(clipboard.HasTerrainClipboard());
    clipboard.CopyArea(t, 0.0f, 0.0f, 2);
    ASSERT_TRUE(clipboard.HasTerrainClipboard());
    EXPECT_TRUE(clipboard.PasteArea(empty, 0.0f, 0.0f).Empty());
}
