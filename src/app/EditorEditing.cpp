// The editing commands of the session: undo and redo, the sculpt stroke, the area and whole-terrain
// operations, copy and paste, and the filter. Every command that changes heights goes through
// RunEdit, so they all store one undo step first and refresh the same way afterwards.
#include "Editor.h"

#include <algorithm>

bool Editor::RunEdit(const std::function<GridRect(TerrainData&)>& change) {
    if (!CanEditTerrain()) return false;
    PushUndo();
    RefreshMesh(change(document_.terrain));
    document_.terrain.terrainChanged = true;
    notify_.RenderScene();
    notify_.UpdateUI();
    return true;
}

void Editor::PushUndo() {
    undo_.PushUndo(document_.terrain.heights);
    document_.terrain.terrainChanged = true;
}

void Editor::ResetUndoHistory() {
    undo_.Reset();
    document_.terrain.terrainChanged = false;
}

void Editor::RefreshMesh(const GridRect& changed) {
    const TerrainModel& terrain = document_.terrain;
    if (changed.whole || view_.mesh.Empty()) {
        if (terrain.terrainPresent) view_.mesh.Build(terrain);
        return;
    }
    if (changed.Empty()) return;
    view_.mesh.UpdateArea(terrain, changed.firstColumn, changed.firstRow, changed.lastColumn,
                          changed.lastRow);
}

void Editor::Undo() {
    if (!CanUndo()) return;
    undo_.Undo(document_.terrain.heights);
    // The terrain now differs from what was saved (or opened): leaving without saving must ask.
    document_.terrain.terrainChanged = true;
    RefreshMesh(GridRect::Whole());
    notify_.RenderScene();
    notify_.UpdateUI();
}

void Editor::Redo() {
    if (!CanRedo()) return;
    undo_.Redo(document_.terrain.heights);
    document_.terrain.terrainChanged = true; // the redo stores an undo step, which counts as an edit
    RefreshMesh(GridRect::Whole());
    notify_.RenderScene();
    notify_.UpdateUI();
}

void Editor::BeginStroke() {
    if (!CanEditTerrain()) return;
    PushUndo();
    notify_.UpdateUI();
}

void Editor::StrokeMove(int dy) {
    if (!CanEditTerrain() || dy == 0) return;
    // Moving the mouse up (negative dy) raises the terrain, a tenth of a unit per pixel.
    const auto delta = static_cast<float>(-dy * 0.1);
    const CursorState& cursor = view_.cursor;
    RefreshMesh(ApplySculpt(document_.terrain, cursor.x, cursor.z, CurrentSculptTool(), CurrentSculptMode(),
                            settings_.sculptSize, delta));
    document_.terrain.terrainChanged = true;
    notify_.RenderScene();
}

void Editor::FlipArea() {
    RunEdit([this](TerrainData& t) { return ::FlipArea(t, Cursor().x, Cursor().z, settings_.sculptSize); });
}

void Editor::MirrorArea() {
    RunEdit([this](TerrainData& t) { return ::MirrorArea(t, Cursor().x, Cursor().z, settings_.sculptSize); });
}

void Editor::InvertArea() {
    RunEdit([this](TerrainData& t) { return ::InvertArea(t, Cursor().x, Cursor().z, settings_.sculptSize); });
}

void Editor::FlattenToGround() {
    RunEdit([this](TerrainData& t) {
        return ::FlattenArea(t, Cursor().x, Cursor().z, settings_.sculptSize, GroundLevel(t));
    });
}

void Editor::FlattenToWater() {
    RunEdit([this](TerrainData& t) {
        return ::FlattenArea(t, Cursor().x, Cursor().z, settings_.sculptSize, WaterLevel(t));
    });
}

void Editor::FlattenArea() {
    RunEdit([this](TerrainData& t) {
        return FlattenToArea(t, Cursor().x, Cursor().z, settings_.sculptSize, CurrentSculptMode());
    });
}

void Editor::CopyArea() {
    if (!CanEditTerrain()) return;
    clipboard_.CopyArea(document_.terrain, Cursor().x, Cursor().z, settings_.sculptSize);
    notify_.UpdateUI();
}

void Editor::PasteArea() {
    if (!CanPaste()) return;
    RunEdit([this](TerrainData& t) { return clipboard_.PasteArea(t, Cursor().x, Cursor().z); });
}

void Editor::ResetTerrain() {
    if (!CanEditTerrain()) return;
    if (Dialogs().Ask("Warning!  This will flatten all the terrain.\nAre you sure you wish to continue?",
                      "Warning!", Buttons::YesNoCancel, MessageIcon::Question, Answer::No) != Answer::Yes)
        return;
    RunEdit([](TerrainData& t) { return ::ResetTerrain(t); });
}

void Editor::AdjustHeights(float amount, AdjustMode mode) {
    RunEdit([&](TerrainData& t) { return ::AdjustHeights(t, amount, mode); });
}

void Editor::FilterTerrain(const FilterMatrix& matrix, bool onlyInArea) {
    // A factor of 0 cannot divide the sums; the dialog refuses it, and here it changes nothing.
    if (matrix.factor == 0) return;
    RunEdit([&](TerrainData& t) {
        return ::FilterTerrain(t, matrix, onlyInArea, Cursor().x, Cursor().z, settings_.sculptSize);
    });
}

void Editor::SetSculptTool(SculptTool tool) {
    settings_.sculptTool = static_cast<int>(tool);
}

void Editor::SetSculptMode(SculptMode mode) {
    settings_.sculptMode = static_cast<int>(mode);
}

void Editor::SetSculptSize(int radius) {
    settings_.sculptSize = std::clamp(radius, 0, kMaxSculptRadius);
}

SculptTool Editor::CurrentSculptTool() const {
    return static_cast<SculptTool>(std::clamp(settings_.sculptTool, 0, 2));
}

SculptMode Editor::CurrentSculptMode() const {
    return static_cast<SculptMode>(std::clamp(settings_.sculptMode, 0, 1));
}
