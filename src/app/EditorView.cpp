// The camera and the terrain cursor: placing them, flying and dragging. Every step keeps them in
// the scene and redraws; the window refreshes its position labels itself.
#include "Editor.h"

#include <algorithm>

std::optional<SceneGround> Editor::Ground() const {
    if (!Terrain().terrainPresent || view_.mesh.Empty()) return std::nullopt;
    return SceneGround{&view_.mesh, Terrain().spacingX, Terrain().spacingZ};
}

void Editor::PlaceCameraAtStart() {
    const std::optional<SceneGround> ground = Ground();
    ::ResetCamera(view_.camera, ground ? &*ground : nullptr);
}

void Editor::ResetView() {
    PlaceCameraAtStart();
    notify_.RenderScene();
}

void Editor::SetCamera(const CameraState& camera) {
    view_.camera = camera;
    notify_.RenderScene();
}

void Editor::FlyByKeys(const HeldKeys& keys) {
    const std::optional<SceneGround> ground = Ground();
    KeyboardStep(view_.camera, keys, ground ? &*ground : nullptr, settings_.stayAbove);
    notify_.RenderScene();
}

void Editor::FlyAlongView(float distance) {
    MoveAlongView(view_.camera, distance);
    const std::optional<SceneGround> ground = Ground();
    ClampToScene(view_.camera, ground ? ground->spacingX : 0.0f);
    if (ground && settings_.stayAbove) ApplyGroundRule(view_.camera, *ground);
    notify_.RenderScene();
}

void Editor::TurnCamera(float yawDegrees, float pitchDegrees) {
    view_.camera.yaw += yawDegrees;
    view_.camera.pitch += pitchDegrees;
    notify_.RenderScene();
}

void Editor::MoveCursorTo(float x, float z) {
    const float high = 512.0f - Terrain().spacingX;
    view_.cursor.x = std::clamp(x, -512.0f, high);
    view_.cursor.z = std::clamp(z, -512.0f, high);
    UpdateCursorHeight();
    notify_.RenderScene();
}

void Editor::DragCursor(float right, float ahead) {
    if (!Terrain().terrainPresent) return;
    ::DragCursor(view_.cursor, view_.camera, right, ahead, Terrain().spacingX);
    UpdateCursorHeight();
    notify_.RenderScene();
}

void Editor::MoveCursorIntoView() {
    if (!Terrain().terrainPresent) return;
    ::MoveCursorIntoView(view_.cursor, view_.camera, Terrain().spacingX);
    UpdateCursorHeight();
    notify_.RenderScene();
}

void Editor::UpdateCursorHeight() {
    const TerrainModel& terrain = Terrain();
    CursorState& cursor = view_.cursor;
    if (!terrain.terrainPresent || terrain.heights.Empty()) {
        cursor.y = 0.0f;
        return;
    }
    const int column =
        std::clamp(GridIndexUnder(cursor.x, terrain.spacingX), 0, terrain.heights.Columns() - 1);
    const int row = std::clamp(GridIndexUnder(cursor.z, terrain.spacingZ), 0, terrain.heights.Rows() - 1);
    cursor.y = terrain.heights.At(row, column);
}
