// The camera and the terrain cursor: placing them, flying and dragging. Every step keeps them in
// the scene and redraws; the window refreshes its position labels itself.
#include "Editor.h"

#include "TerrainGrid.h"

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

void Editor::FlyByKeys(const HeldKeys& keys, double elapsedSeconds) {
    const std::optional<SceneGround> ground = Ground();
    KeyboardStep(view_.camera, keys, ground ? &*ground : nullptr, settings_.stayAbove, elapsedSeconds);
    notify_.RenderScene();
}

void Editor::FlyByMouse(bool forward, const HeldKeys& modifiers, double elapsedSeconds) {
    const std::optional<SceneGround> ground = Ground();
    MouseFlyStep(view_.camera, forward, modifiers, ground ? &*ground : nullptr, settings_.stayAbove,
                 elapsedSeconds);
    notify_.RenderScene();
}

void Editor::LookByMouse(int dx, int dy) {
    MouseLookStep(view_.camera, dx, dy);
    notify_.RenderScene();
}

void Editor::MoveCursorTo(float x, float z) {
    const float high = 512.0f - Terrain().spacingX;
    view_.cursor.x = std::clamp(x, -512.0f, high);
    view_.cursor.z = std::clamp(z, -512.0f, high);
    UpdateCursorHeight();
    notify_.RenderScene();
}

void Editor::DragCursor(int dx, int dy) {
    if (!Terrain().terrainPresent) return;
    CursorDragStep(view_.cursor, view_.camera, dx, dy, Terrain().spacingX);
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
    cursor.y = HeightUnder(terrain, cursor.x, cursor.z);
}
