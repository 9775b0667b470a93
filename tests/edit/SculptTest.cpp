#include "Sculpt.h"
#include "EditTestGrid.h"

#include <tuple>

namespace {

constexpr SculptTool kSquare = SculptTool::Square;
constexpr SculptMode kRelational = SculptMode::Relational;
constexpr SculptMode kAbsolute = SculptMode::Absolute;

GridRect Stroke(TerrainData& t, int column, int row, SculptMode mode, int radius, float delta,
                SculptTool tool = kSquare) {
    return ApplySculpt(t, CursorX(t, column), CursorZ(t, row), tool, mode, radius, delta);
}

} // namespace

TEST(SculptRelational, RaisingPullsTheAreaUpToItsTopWhichStaysPutThenTheLevelAreaRisesAsAWhole) {
    TerrainData t = MakeTerrain(16, 16);
    t.heights.At(8, 9) = 10.0f;
    EXPECT_EQ(Stroke(t, 8, 8, kRelational, 2, 1.0f), (GridRect{6, 6, 10, 10}));
    ExpectHeights(t, {{6, 6, 1.1f}, {8, 9, 10}, {8, 11, 0}}); // (10 - 0) * 0.1 + 0 + 0.1
    int strokes = 1;
    for (; strokes < 60 && CountNotAt(t, 10.0f) > 256 - 25; ++strokes) {
        Stroke(t, 8, 8, kRelational, 2, 1.0f);
        ASSERT_EQ(t.heights.At(8, 9), 10.0f);
    }
    EXPECT_LT(strokes, 60) << "the whole area reaches the top";
    // Now level, the top is lifted by delta: (11 - 10) * 0.1 + 10 + 0.1.
    Stroke(t, 8, 8, kRelational, 2, 1.0f);
    EXPECT_EQ(CountNotAt(t, 10.2f), 256 - 25);
    // Lowering is the mirror image: towards the bottom, which stays put.
    t = MakeTerrain(16, 16, 5.0f);
    t.heights.At(8, 8) = 2.0f;
    Stroke(t, 8, 8, kRelational, 1, -1.0f);
    ExpectHeights(t, {{7, 7, 4.6f}, {8, 8, 2}, {8, 10, 5}}); // (5 - 2) * -0.1 + 5 - 0.1
}

TEST(SculptStep, EachModeStopsOnlyAtTheBoundItCouldCross) {
    // Height, mode, delta, water, expected height after one step at radius 0.
    const std::tuple<float, SculptMode, float, bool, float, const char*> cases[] = {
        {4.0f, kRelational, 2.0f, false, 4.6f, "radius 0 rises by delta * k + k: 4 + 2 * 0.2 + 0.2"},
        {4.0f, kRelational, 20.0f, false, 24.0f, "4 + 20 * 2 + 2, capped at 4 + 20"},
        {3.0f, kRelational, -2.0f, false, 2.4f, "a flat point lowers towards 3 - 2"},
        {149.0f, kRelational, 5.0f, false, 150.0f, "the ceiling"},
        {-5.0f, kRelational, 1.0f, false, -4.8f, "raising never lifts to the floor"},
        {1.0f, kRelational, -5.0f, false, 0.0f, "the floor without water"},
        {1.0f, kRelational, -5.0f, true, -2.0f, "above the floor with water"},
        {-8.0f, kRelational, -5.0f, true, -10.0f, "the floor with water"},
        {200.0f, kRelational, -1.0f, false, 199.8f, "lowering never cuts to the ceiling"},
        {148.0f, kAbsolute, 5.0f, false, 150.0f, "absolute: the ceiling"},
        {3.0f, kAbsolute, -5.0f, false, 0.0f, "absolute: the floor without water"},
        {3.0f, kAbsolute, -5.0f, true, -2.0f, "absolute: the full step with water"},
        {-8.0f, kAbsolute, -5.0f, true, -10.0f, "absolute: the floor with water"},
    };
    for (const auto& [height, mode, delta, water, expected, what] : cases) {
        TerrainData t = MakeTerrain(4, 4, height, water);
        Stroke(t, 1, 1, mode, 0, delta);
        EXPECT_FLOAT_EQ(t.heights.At(1, 1), expected) << what;
    }
}

TEST(SculptStep, ToolsWithoutAShapeAnEmptyGridOrAStepThatIsNotANumberChangeNothing) {
    TerrainData t = MakeTerrain(8, 8, 1.0f), empty;
    for (SculptTool tool : {SculptTool::Pyramid, SculptTool::Curve})
        EXPECT_TRUE(Stroke(t, 4, 4, kAbsolute, 2, 3.0f, tool).Empty()) << "tool " << static_cast<int>(tool);
    EXPECT_TRUE(Stroke(t, 4, 4, kRelational, 2, std::nanf("")).Empty());
    EXPECT_EQ(CountNotAt(t, 1.0f), 0);
    EXPECT_TRUE(ApplySculpt(empty, 0.0f, 0.0f, kSquare, kAbsolute, 2, 1.0f).Empty());
}

TEST(SculptArea, IsClippedAtEveryCornerOfTheGrid) {
    TerrainData t = MakeTerrain(16, 16);
    EXPECT_EQ(Stroke(t, 0, 0, kAbsolute, 5, 1.0f), (GridRect{0, 0, 5, 5}));
    EXPECT_EQ(CountNotAt(t, 0.0f), 36);
    EXPECT_EQ(Stroke(t, 15, 15, kAbsolute, 5, 1.0f), (GridRect{10, 10, 15, 15}));
    // A cursor beyond the grid acts on the nearest edge point.
    EXPECT_EQ(Stroke(t, 40, -3, kAbsolute, 1, 1.0f), (GridRect{14, 0, 15, 1}));
}
