// The editing commands of the session: undo and redo, the sculpt stroke, the area and whole-terrain
// operations, copy and paste, and the filter. Every command that changes heights goes through
// RunEdit, so they all store one undo step first and refresh the same way afterwards.
#include "Editor.h"

#include "AreaOperations.h"
#include "Sculpt.h"

#include <algorithm>

bool Editor::RunEdit(const std::function<GridRect()>& change) {
    if (!CanEditTerrain()) return false;
    PushUndo();
    RefreshMesh(change());
    terrain.terrainChanged = true;
    shell.RenderScene();
    shell.UpdateUI();
    return true;
}

void Editor::PushUndo() {
    undo.PushUndo(terrain.heights);
    terrain.terrainChanged = true;
}

void Editor::ResetUndoHistory() {
    undo.Reset();
    terrain.terrainChanged = false;
}

void Editor::RefreshMesh(const GridRect& changed) {
    if (changed.whole || mesh.Empty()) {
        if (terrain.terrainPresent) mesh.Build(terrain);
        return;
    }
    if (changed.Empty()) return;
    mesh.UpdateArea(terrain, changed.firstColumn, changed.firstRow, changed.lastColumn, changed.lastRow);
}

void Editor::Undo() {
    if (!CanUndo()) return;
    undo.Undo(terrain.heights);
    // The terrain now differs from what was saved (or opened): leaving without saving must ask.
    terrain.terrainChanged = true;
    RefreshMesh(GridRect::Whole());
    shell.RenderScene();
    shell.UpdateUI();
}

void Editor::Redo() {
    if (!CanRedo()) return;
    undo.Redo(terrain.heights);
    terrain.terrainChanged = true; // the redo stores an undo step, which counts as an edit
    RefreshMesh(GridRect::Whole());
    shell.RenderScene();
    shell.UpdateUI();
}

void Editor::BeginStroke() {
    if (!CanEditTerrain()) return;
    PushUndo();
    shell.UpdateUI();
}

void Editor::StrokeMove(int dy) {
    if (!CanEditTerrain() || dy == 0) return;
    // Moving the mouse up (negative dy) raises the terrain, a tenth of a unit per pixel.
    const auto delta = static_cast<float>(-dy * 0.1);
    RefreshMesh(ApplySculpt(terrain, cursor.x, cursor.z, CurrentSculptTool(), CurrentSculptMode(),
                            settings.sculptSize, delta));
    terrain.terrainChanged = true;
    shell.RenderScene();
}

void Editor::FlipArea() {
    RunEdit([this] { return ::FlipArea(terrain, cursor.x, cursor.z, settings.sculptSize); });
}

void Editor::MirrorArea() {
    RunEdit([this] { return ::MirrorArea(terrain, cursor.x, cursor.z, settings.sculptSize); });
}

void Editor::InvertArea() {
    RunEdit([this] { return ::InvertArea(terrain, cursor.x, cursor.z, settings.sculptSize); });
}

void Editor::FlattenToGround() {
    RunEdit([this] {
        return ::FlattenArea(terrain, cursor.x, cursor.z, settings.sculptSize, GroundLevel(terrain));
    });
}

void Editor::FlattenToWater() {
    RunEdit([this] {
        return ::FlattenArea(terrain, cursor.x, cursor.z, settings.sculptSize, WaterLevel(terrain));
    });
}

void Editor::FlattenArea() {
    RunEdit([this] {
        return FlattenToArea(terrain, cursor.x, cursor.z, settings.sculptSize, CurrentSculptMode());
    });
}

void Editor::CopyArea() {
    if (!CanEditTerrain()) return;
    areaClipboard.CopyArea(terrain, cursor.x, cursor.z, settings.sculptSize);
    shell.UpdateUI();
}

void Editor::PasteArea() {
    if (!CanPaste()) return;
    RunEdit([this] { return areaClipboard.PasteArea(terrain, cursor.x, cursor.z); });
}

void Editor::ResetTerrain() {
    if (!CanEditTerrain()) return;
    if (shell.Ask("Warning!  This will flatten all the terrain.\nAre you sure you wish to continue?",
                  "Warning!", Buttons::YesNoCancel, MessageIcon::Question, Answer::No) != Answer::Yes)
        return;
    RunEdit([this] { return ::ResetTerrain(terrain); });
}

void Editor::AdjustHeights(float amount, AdjustMode mode) {
    RunEdit([&] { return ::AdjustHeights(terrain, amount, mode); });
}

void Editor::FilterTerrain(const FilterMatrix& matrix, bool onlyInArea) {
    // A factor of 0 cannot divide the sums; the dialog refuses it, and here it changes nothing.
    if (matrix.factor == 0) return;
    RunEdit([&] {
        return ::FilterTerrain(terrain, matrix, onlyInArea, cursor.x, cursor.z, settings.sculptSize);
    });
}

void Editor::SetSculptTool(SculptTool tool) {
    settings.sculptTool = static_cast<int>(tool);
}

void Editor::SetSculptMode(SculptMode mode) {
    settings.sculptMode = static_cast<int>(mode);
}

SculptTool Editor::CurrentSculptTool() const {
    return static_cast<SculptTool>(std::clamp(settings.sculptTool, 0, 2));
}

SculptMode Editor::CurrentSculptMode() const {
    return static_cast<SculptMode>(std::clamp(settings.sculptMode, 0, 1));
}

void Editor::SetSculptSize(int radius) {
    settings.sculptSize = std::clamp(radius, 0, kMaxSculptRadius);
}
