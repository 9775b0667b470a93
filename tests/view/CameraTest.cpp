// Flying the camera: speeds, directions, the scene bounds, the ground rule, the reset and the
// position labels.
#include "mCamera.h"

#include <gtest/gtest.h>

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

CameraState Step(CameraState camera, HeldKeys keys, const SceneGround* ground = nullptr, bool stayAbove = false) {
    KeyboardStep(camera, keys, ground, stayAbove);
    return camera;
}

} // namespace

TEST(CameraSpeed, ShiftWinsOverControlWhichWinsOverB) {
    HeldKeys keys;
    EXPECT_EQ(MovementSpeed(keys), 1.0f);
    keys.extraFast = true;
    EXPECT_EQ(MovementSpeed(keys), 20.0f);
    keys.control = true;
    EXPECT_EQ(MovementSpeed(keys), 0.1f);
    keys.shift = true;
    EXPECT_EQ(MovementSpeed(keys), 5.0f);
}

TEST(CameraMoves, ForwardFollowsYawAndPitchAndStrafingIsSideways) {
    CameraState start;
    start.y = 100.0f;
    HeldKeys forward;
    forward.forward = true;
    CameraState moved = Step(start, forward);
    EXPECT_NEAR(moved.z, -1.0f, 1e-6) << "the start view looks along -z";
    start.yaw = 90.0f;
    moved = Step(start, forward);
    EXPECT_NEAR(moved.x, -1.0f, 1e-5) << "a yaw of 90 turns the view to -x";
    start.yaw = 0.0f;
    start.pitch = -90.0f;
    moved = Step(start, forward);
    EXPECT_NEAR(moved.y, 99.0f, 1e-5) << "looking down, forward descends";
    HeldKeys left;
    left.left = true;
    moved = Step(CameraState{}, left);
    EXPECT_NEAR(moved.x, -1.0f, 1e-6);
    EXPECT_NEAR(moved.z, 0.0f, 1e-6);
    HeldKeys turn;
    turn.yawLeft = turn.pitchUp = true;
    turn.shift = true;
    moved = Step(CameraState{}, turn);
    EXPECT_EQ(moved.yaw, 5.0f);
    EXPECT_EQ(moved.pitch, 5.0f);
}

TEST(CameraBounds, PositionStopsAtTheSceneEdgesAndHeights) {
    Ground ground(256, 0.0f); // cells of 4 units
    CameraState camera;
    camera.x = 600.0f;
    camera.z = -700.0f;
    camera.y = 900.0f;
    ClampToScene(camera, ground.scene.spacingX);
    EXPECT_EQ(camera.x, 508.0f);
    EXPECT_EQ(camera.z, -512.0f);
    EXPECT_EQ(camera.y, 512.0f);
    camera.y = -50.0f;
    ClampToScene(camera, 0.0f);
    EXPECT_EQ(camera.y, -10.0f);
}

TEST(CameraGround, StaysFiveAboveTheGroundButNeverBelowFive) {
    Ground hill(64, 40.0f);
    CameraState camera;
    camera.y = 10.0f;
    ApplyGroundRule(camera, hill.scene);
    EXPECT_EQ(camera.y, 45.0f);
    Ground pit(64, -20.0f);
    camera.y = -8.0f;
    ApplyGroundRule(camera, pit.scene);
    EXPECT_EQ(camera.y, 5.0f) << "the floor is never below 5";
    // Past the far edge the extra row and column of the mesh (height 0) decide the floor.
    camera.x = 511.0f;
    camera.z = 511.0f;
    camera.y = 0.0f;
    ApplyGroundRule(camera, hill.scene);
    EXPECT_EQ(camera.y, 5.0f);
    HeldKeys down;
    down.down = true;
    CameraState flying;
    flying.y = 50.0f;
    flying = Step(flying, down, &hill.scene, true);
    EXPECT_EQ(flying.y, 49.0f);
    flying.y = 45.5f;
    flying = Step(flying, down, &hill.scene, true);
    EXPECT_EQ(flying.y, 45.0f);
    flying = Step(flying, down, &hill.scene, false);
    EXPECT_EQ(flying.y, 44.0f) << "without StayAbove the camera may go under";
}

TEST(CameraReset, StandsAboveTheCentreOrAtTenWithoutTerrain) {
    CameraState camera;
    camera.x = 3.0f;
    camera.pitch = 20.0f;
    camera.roll = 4.0f;
    ResetCamera(camera, nullptr);
    EXPECT_EQ(camera.x, 0.0f);
    EXPECT_EQ(camera.y, 10.0f);
    EXPECT_EQ(camera.pitch, 0.0f);
    EXPECT_EQ(camera.roll, 0.0f);
    Ground high(33, 70.0f);
    ResetCamera(camera, &high.scene);
    EXPECT_EQ(camera.y, 75.0f);
    Ground low(33, -9.0f);
    ResetCamera(camera, &low.scene);
    EXPECT_EQ(camera.y, 5.0f);
}

TEST(CameraCursor, MovesFiftyUnitsIntoViewAndStaysInTheScene) {
    CameraState camera;
    camera.x = 10.0f;
    camera.z = 20.0f;
    CursorState cursor;
    MoveCursorIntoView(cursor, camera, 4.0f);
    EXPECT_NEAR(cursor.x, 10.0f, 1e-5);
    EXPECT_NEAR(cursor.z, -30.0f, 1e-5);
    camera.yaw = 90.0f;
    MoveCursorIntoView(cursor, camera, 4.0f);
    EXPECT_NEAR(cursor.x, -40.0f, 1e-4);
    camera.z = -500.0f;
    camera.yaw = 0.0f;
    MoveCursorIntoView(cursor, camera, 4.0f);
    EXPECT_EQ(cursor.z, -512.0f);
}

TEST(CameraLabels, ShowThreeIntegerDigitsAndTwoDecimals) {
    EXPECT_EQ(FormatPositionLabel(3.14159f), "003.14");
    EXPECT_EQ(FormatPositionLabel(-2.5f), "-002.50");
    EXPECT_EQ(FormatPositionLabel(0.0f), "000.00");
    EXPECT_EQ(FormatPositionLabel(-0.001f), "000.00");
    EXPECT_EQ(FormatPositionLabel(511.999f), "512.00");
    EXPECT_EQ(FormatPositionLabel(1234.5f), "1234.50");
}
