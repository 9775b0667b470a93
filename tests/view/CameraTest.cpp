// Flying the camera: speeds, directions, the scene bounds, the ground rule, the reset and the
// position labels.
#include "mCamera.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

struct Ground {
    TerrainData terrain;
    RenderMesh mesh;
    SceneGround scene;
    Ground(int side, float height) {
        terrain.columns = terrain.rows = side;
        terrain.spacingX = terrain.spacingZ = 1024.0f / static_cast<float>(side);
        terrain.groundTiling = terrain.waterTiling = 10.0f;
        terrain.heights.Resize(side, side, height);
        mesh.Build(terrain);
        scene = {&mesh, terrain.spacingX, terrain.spacingZ};
    }
};

CameraState At(float x, float y, float z, float yaw = 0.0f, float pitch = 0.0f) {
    CameraState camera;
    camera.x = x;
    camera.y = y;
    camera.z = z;
    camera.yaw = yaw;
    camera.pitch = pitch;
    return camera;
}

CameraState Step(CameraState camera, HeldKeys keys, const SceneGround* ground = nullptr,
                 bool stayAbove = false) {
    KeyboardStep(camera, keys, ground, stayAbove);
    return camera;
}

} // namespace

TEST(CameraMoves, ShiftBeatsControlBeatsBAndForwardFollowsYawAndPitchWhileStrafingIsSideways) {
    HeldKeys keys;
    EXPECT_EQ(MovementSpeed(keys), 1.0f);
    keys.extraFast = true;
    EXPECT_EQ(MovementSpeed(keys), 20.0f);
    keys.control = true;
    EXPECT_EQ(MovementSpeed(keys), 0.1f);
    keys.shift = true;
    EXPECT_EQ(MovementSpeed(keys), 5.0f);
    HeldKeys forward;
    forward.forward = true;
    EXPECT_NEAR(Step(At(0, 100, 0), forward).z, -1.0f, 1e-6) << "the start view looks along -z";
    EXPECT_NEAR(Step(At(0, 100, 0, 90.0f), forward).x, -1.0f, 1e-5) << "a yaw of 90 turns the view to -x";
    EXPECT_NEAR(Step(At(0, 100, 0, 0.0f, -90.0f), forward).y, 99.0f, 1e-5)
        << "looking down, forward descends";
    HeldKeys left;
    left.left = true;
    const CameraState moved = Step(CameraState{}, left);
    EXPECT_NEAR(moved.x, -1.0f, 1e-6);
    EXPECT_NEAR(moved.z, 0.0f, 1e-6);
    HeldKeys turn;
    turn.yawLeft = turn.pitchUp = turn.shift = true;
    const CameraState turned = Step(CameraState{}, turn);
    EXPECT_EQ(turned.yaw, 5.0f);
    EXPECT_EQ(turned.pitch, 5.0f);
}

TEST(CameraBounds, PositionStopsAtTheSceneEdgesAndHeightsAndTheCursorMovesFiftyIntoView) {
    CameraState camera = At(600.0f, 900.0f, -700.0f);
    ClampToScene(camera, 4.0f);
    EXPECT_EQ(camera.x, 508.0f);
    EXPECT_EQ(camera.z, -512.0f);
    EXPECT_EQ(camera.y, 512.0f);
    camera.y = -50.0f;
    ClampToScene(camera, 0.0f);
    EXPECT_EQ(camera.y, -10.0f);
    CursorState cursor;
    MoveCursorIntoView(cursor, At(10, 0, 20), 4.0f);
    EXPECT_NEAR(cursor.x, 10.0f, 1e-5);
    EXPECT_NEAR(cursor.z, -30.0f, 1e-5);
    MoveCursorIntoView(cursor, At(10, 0, 20, 90.0f), 4.0f);
    EXPECT_NEAR(cursor.x, -40.0f, 1e-4);
    MoveCursorIntoView(cursor, At(10, 0, -500), 4.0f);
    EXPECT_EQ(cursor.z, -512.0f);
}

TEST(CameraGround, StaysFiveAboveTheGroundButNeverBelowFiveAndResetsAboveTheCentre) {
    Ground hill(64, 40.0f), pit(64, -20.0f);
    CameraState camera = At(0, 10, 0);
    ApplyGroundRule(camera, hill.scene);
    EXPECT_EQ(camera.y, 45.0f);
    camera.y = -8.0f;
    ApplyGroundRule(camera, pit.scene);
    EXPECT_EQ(camera.y, 5.0f) << "the floor is never below 5";
    // Past the far edge the extra row and column of the mesh (height 0) decide the floor.
    camera = At(511, 0, 511);
    ApplyGroundRule(camera, hill.scene);
    EXPECT_EQ(camera.y, 5.0f);
    HeldKeys down;
    down.down = true;
    EXPECT_EQ(Step(At(0, 50, 0), down, &hill.scene, true).y, 49.0f);
    EXPECT_EQ(Step(At(0, 45.5f, 0), down, &hill.scene, true).y, 45.0f);
    EXPECT_EQ(Step(At(0, 45, 0), down, &hill.scene, false).y, 44.0f) << "without StayAbove it may go under";

    camera = At(3, 0, 0, 0, 20.0f);
    camera.roll = 4.0f;
    ResetCamera(camera, nullptr);
    EXPECT_EQ(camera.x, 0.0f);
    EXPECT_EQ(camera.y, 10.0f) << "without terrain";
    EXPECT_EQ(camera.pitch, 0.0f);
    EXPECT_EQ(camera.roll, 0.0f);
    Ground high(33, 70.0f), low(33, -9.0f);
    ResetCamera(camera, &high.scene);
    EXPECT_EQ(camera.y, 75.0f);
    ResetCamera(camera, &low.scene);
    EXPECT_EQ(camera.y, 5.0f);
}

TEST(CameraLabels, ShowThreeIntegerDigitsAndTwoDecimals) {
    const std::pair<float, const char*> cases[] = {{3.14159f, "003.14"}, {-2.5f, "-002.50"},
                                                   {0.0f, "000.00"},     {-0.001f, "000.00"},
                                                   {511.999f, "512.00"}, {1234.5f, "1234.50"}};
    for (const auto& [value, label] : cases)
        EXPECT_EQ(FormatPositionLabel(value), label) << value;
}
