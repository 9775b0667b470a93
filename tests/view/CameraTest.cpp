// Flying the camera: speeds, directions, the scene bounds, the ground rule, the reset and the
// position labels.
#include "SampleTrack.h"
#include "mCamera.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

struct Ground {
    TerrainData terrain;
    RenderMesh mesh;
    SceneGround scene;
    Ground(int side, float height) {
        terrain.columns = terrain.rows = side;
        terrain.spacingX = terrain.spacingZ = 1024.0f / static_cast<float>(side);
        terrain.heights.Resize(side, side, height);
        mesh.Build(terrain);
        scene = {&mesh, terrain.spacingX, terrain.spacingZ};
    }
};

CameraState At(float x, float y, float z, float yaw = 0.0f, float pitch = 0.0f) {
    return {x, y, z, pitch, yaw};
}

CameraState Step(CameraState camera, HeldKeys keys, const SceneGround* ground = nullptr,
                 bool stayAbove = false) {
    KeyboardStep(camera, keys, ground, stayAbove, 0.02);
    return camera;
}

} // namespace

TEST(CameraMoves, ShiftBeatsControlBeatsB) {
    EXPECT_EQ(MovementSpeed({.control = true, .extraFast = true}), 0.1f);
    EXPECT_EQ(MovementSpeed({.shift = true, .control = true, .extraFast = true}), 5.0f);
}

TEST(CameraMoves, ForwardFollowsYawAndPitchWhileStrafingIsSideways) {
    const HeldKeys forward{.forward = true};
    EXPECT_NEAR(Step(At(0, 100, 0), forward).z, -1.0f, 1e-6) << "the start view looks along -z";
    EXPECT_NEAR(Step(At(0, 100, 0, 90.0f), forward).x, -1.0f, 1e-5) << "a yaw of 90 turns the view to -x";
    EXPECT_NEAR(Step(At(0, 100, 0, 0.0f, -90.0f), forward).y, 99.0f, 1e-5)
        << "looking down, forward descends";
    const CameraState moved = Step(At(0, 100, 0, 90.0f), {.left = true});
    EXPECT_NEAR(moved.x, 0.0f, 1e-5);
    EXPECT_NEAR(moved.z, 1.0f, 1e-5) << "turned to -x, left is +z";
    const CameraState turned = Step(CameraState{}, {.pitchUp = true, .yawLeft = true, .shift = true});
    EXPECT_EQ(turned.yaw, 5.0f);
    EXPECT_EQ(turned.pitch, 5.0f);
}

namespace {

// Holds keys for `ticks` steps, each `seconds` after the previous.
CameraState Hold(HeldKeys keys, int ticks, double seconds, CameraState camera = {0.0f, 100.0f, 0.0f}) {
    for (int i = 0; i < ticks; ++i)
        KeyboardStep(camera, keys, nullptr, false, seconds);
    return camera;
}

} // namespace

TEST(CameraTime, EverySpeedIsPerSecondAndALongGapCountsAsAQuarterSecond) {
    // 25 ticks of 40 ms and 100 ticks of 10 ms are both one second: 50 units at the base speed.
    EXPECT_NEAR(Hold({.forward = true}, 25, 0.040).z, -50.0f, 1e-3);
    EXPECT_NEAR(Hold({.forward = true, .shift = true}, 25, 0.040).z, -250.0f, 1e-2);
    EXPECT_NEAR(Hold({.right = true, .control = true}, 25, 0.040).x, 5.0f, 1e-3);
    EXPECT_NEAR(Hold({.up = true, .extraFast = true}, 10, 0.040).y, 100.0f + 400.0f, 1e-2);
    EXPECT_NEAR(Hold({.yawLeft = true}, 20, 0.050).yaw, 50.0f, 1e-3) << "turning is per second too";
    EXPECT_NEAR(Hold({.forward = true}, 4, 0.2).z, -40.0f, 1e-4) << "five frames a second keep the speed";
    EXPECT_NEAR(Hold({.forward = true}, 1, 5.0).z, -12.5f, 1e-4) << "a five-second gap moves 0.25 s worth";
    EXPECT_EQ(Hold({.forward = true}, 3, -0.5).z, 0.0f) << "a clock going back does not move";
}

TEST(CameraTime, TheStepClockStartsEachRunWithOneNominalTick) {
    StepClock clock;
    EXPECT_EQ(clock.Elapsed(100.0), 0.02) << "the first step is one nominal tick";
    EXPECT_NEAR(clock.Elapsed(100.04), 0.04, 1e-9);
    EXPECT_NEAR(clock.Elapsed(100.25), 0.21, 1e-9);
    clock.Restart();
    EXPECT_EQ(clock.Elapsed(300.0), 0.02) << "after a restart, a nominal tick again";
}

TEST(CameraTurns, PitchStopsStraightUpAndDownWhileYawTurnsOnFreely) {
    EXPECT_EQ(Hold({.pitchUp = true, .shift = true}, 30, 0.02).pitch, 90.0f);
    EXPECT_EQ(Hold({.yawRight = true, .shift = true}, 100, 0.02).yaw, -500.0f);
    CameraState camera = {0.0f, 0.0f, 0.0f, 80.0f, 10.0f};
    TurnCamera(camera, 5.0f, 25.0f);
    EXPECT_EQ(camera.pitch, 90.0f);
    EXPECT_EQ(camera.yaw, 15.0f);
    TurnCamera(camera, 0.0f, -200.0f);
    TurnCamera(camera, 0.0f, 30.0f);
    EXPECT_EQ(camera.pitch, -60.0f) << "stopped at -90, then back from the limit at once";
}

TEST(CameraBounds, PositionStopsAtTheSceneEdgesAndHeights) {
    CameraState camera = At(600.0f, 900.0f, -700.0f);
    ClampToScene(camera, 4.0f);
    EXPECT_EQ(camera.x, 508.0f);
    EXPECT_EQ(camera.z, -512.0f);
    EXPECT_EQ(camera.y, 512.0f);
    camera.y = -50.0f;
    ClampToScene(camera, 0.0f);
    EXPECT_EQ(camera.y, -10.0f);
}

TEST(CameraBounds, TheCursorComesFiftyUnitsIntoViewWithinTheScene) {
    CursorState cursor;
    MoveCursorIntoView(cursor, At(10, 0, 20), 4.0f);
    EXPECT_NEAR(cursor.x, 10.0f, 1e-5);
    EXPECT_NEAR(cursor.z, -30.0f, 1e-5);
    MoveCursorIntoView(cursor, At(10, 0, 20, 90.0f), 4.0f);
    EXPECT_NEAR(cursor.x, -40.0f, 1e-4);
    MoveCursorIntoView(cursor, At(10, 0, -500), 4.0f);
    EXPECT_EQ(cursor.z, -512.0f);
}

TEST(CameraGround, StaysFiveAboveTheGroundButNeverBelowFive) {
    Ground hill(64, 40.0f), pit(64, -20.0f);
    // Past the far edges the mesh's extra row and column (height 0) decide; the floor is never below 5.
    const struct {
        const Ground& ground;
        CameraState start;
        float y;
    } floors[] = {{hill, At(0, 10, 0), 45.0f},
                  {hill, At(0, 46, 0), 46.0f},
                  {hill, At(511, 0, 0), 5.0f},
                  {hill, At(0, 0, 511), 5.0f},
                  {pit, At(0, -8, 0), 5.0f}};
    for (const auto& f : floors) {
        CameraState camera = f.start;
        ApplyGroundRule(camera, f.ground.scene);
        EXPECT_EQ(camera.y, f.y) << f.start.x << "," << f.start.y << "," << f.start.z;
    }
    const HeldKeys down{.down = true};
    EXPECT_EQ(Step(At(0, 50, 0), down, &hill.scene, true).y, 49.0f);
    EXPECT_EQ(Step(At(0, 45.5f, 0), down, &hill.scene, true).y, 45.0f);
    EXPECT_EQ(Step(At(0, 45, 0), down, &hill.scene, false).y, 44.0f) << "without StayAbove it may go under";
}

TEST(CameraGround, AResetLevelsTheViewFiveAboveTheCentre) {
    CameraState camera = At(3, 0, 0, 7.0f, 20.0f);
    camera.roll = 4.0f;
    ResetCamera(camera, nullptr);
    EXPECT_EQ(camera.x + camera.yaw + camera.pitch + camera.roll, 0.0f) << "all back to zero";
    EXPECT_EQ(camera.y, 10.0f) << "without terrain";
    Ground high(33, 70.0f);
    ResetCamera(camera, &high.scene);
    EXPECT_EQ(camera.y, 75.0f);
}

TEST(CameraLabels, ShowThreeIntegerDigitsAndTwoDecimals) {
    const std::pair<float, const char*> cases[] = {{3.14159f, "003.14"},
                                                   {-2.5f, "-002.50"},
                                                   {-0.001f, "000.00"},
                                                   {511.999f, "512.00"},
                                                   {1234.5f, "1234.50"}};
    for (const auto& [value, label] : cases)
        EXPECT_EQ(FormatPositionLabel(value), label) << value;
}

TEST(CameraMouse, LookTurnsAQuarterDegreePerPixelUpToStraightUp) {
    CameraState camera = At(0.0f, 50.0f, 0.0f, 10.0f);
    MouseLookStep(camera, 8, -4); // right and up
    EXPECT_FLOAT_EQ(camera.yaw, 8.0f);
    EXPECT_FLOAT_EQ(camera.pitch, 1.0f) << "pointer up looks up";
    MouseLookStep(camera, 0, -400);
    EXPECT_FLOAT_EQ(camera.pitch, 90.0f);
}

TEST(CameraMouse, FlyingMovesAlongTheViewByTheTickWithinTheSceneAndAboveGround) {
    const auto fly = [](CameraState c, bool forward, HeldKeys modifiers = {},
                        const SceneGround* ground = nullptr, bool stayAbove = false) {
        MouseFlyStep(c, forward, modifiers, ground, stayAbove, 0.02); // one nominal tick
        return c;
    };
    CameraState slow = At(0, 50, 0);
    MouseFlyStep(slow, true, {}, nullptr, false, 0.04);
    EXPECT_NEAR(slow.z, -2.0f, 1e-5f) << "a tick twice as long flies twice as far";
    EXPECT_NEAR(fly(At(0, 50, 0), false, {.shift = true}).z, 5.0f, 1e-5f) << "backward, at Shift speed";
    EXPECT_EQ(fly(At(0, 50, -511.5f), true).z, -512.0f) << "the scene's edge stops it";
    const Ground high(33, 100.0f);
    EXPECT_EQ(fly(At(0, 50, 0), true, {}, &high.scene, true).y, 105.0f);
    EXPECT_EQ(fly(At(0, 50, 0), true, {}, &high.scene, false).y, 50.0f) << "the ground rule only when asked";
}

TEST(CursorDrag, MovesHalfAUnitPerPixelRightAndAwayFromTheCameraAndStopsAtTheSceneEdges) {
    struct Case {
        float yaw;
        int dx, dy;
        float x, z; // the cursor, starting at (0, 0)
    };
    // At yaw 0 the camera looks along -z with +x on its right; at yaw 90 it looks along -x.
    const Case cases[] = {{0, 4, 6, 2, 3}, {90, 10, 0, 0, -5}, {90, 0, -10, -5, 0}};
    for (const Case& c : cases) {
        CursorState cursor;
        CursorDragStep(cursor, At(0, 10, 0, c.yaw), c.dx, c.dy, 4.0f);
        EXPECT_NEAR(cursor.x, c.x, 1e-4f) << c.yaw << " " << c.dx << " " << c.dy;
        EXPECT_NEAR(cursor.z, c.z, 1e-4f) << c.yaw << " " << c.dx << " " << c.dy;
    }
    CursorState cursor{500.0f, 0.0f, -500.0f};
    CursorDragStep(cursor, At(0, 10, 0), 40, 40, 4.0f);
    EXPECT_EQ(cursor.x, 508.0f) << "512 less one cell";
    CursorDragStep(cursor, At(0, 10, 0), -4000, -4000, 4.0f);
    EXPECT_TRUE(cursor.x == -512.0f && cursor.z == -512.0f);
}

TEST(BrushPoints, CoverTheSquareAroundThePointUnderTheCursorCutAtTheGridAndSitOnTheWater) {
    TerrainData t = MakeNumberedTerrain(5, 5, 256.0f);
    t.heights.At(3, 3) = -4.0f;
    std::vector<Vector3> points = BrushPoints(t, {0.0f, 0.0f, 0.0f}, 1, false);
    ASSERT_EQ(points.size(), 9u) << "rows and columns 1 to 3 around point (2, 2)";
    EXPECT_TRUE(points[0].x == -256.0f && points[0].y == 11.0f && points[0].z == -256.0f);
    EXPECT_TRUE(points[1].x == 0.0f && points[1].y == 12.0f) << "along the row first";
    EXPECT_EQ(points[8].y, -4.0f);
    EXPECT_EQ(BrushPoints(t, {0.0f, 0.0f, 0.0f}, 1, true)[8].y, 0.0f) << "on the water surface";
    points = BrushPoints(t, {900.0f, 0.0f, 900.0f}, 2, false);
    ASSERT_EQ(points.size(), 9u) << "the corner point (4, 4), cut at the grid's edges";
    EXPECT_TRUE(points[8].x == 512.0f && points[8].z == 512.0f && points[8].y == 44.0f);
    EXPECT_TRUE(BrushPoints(TerrainData{}, {}, 3, false).empty());
}
