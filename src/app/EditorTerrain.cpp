// The terrain commands of the session: a new terrain, the terrain settings, deleting the terrain,
// removing the track data, and ReplaceTerrain, the one way a new terrain takes the editor's place.
#include "Editor.h"

#include "TerrainSettings.h"

bool Editor::ReplaceTerrain(const TerrainFill& fill, const TerrainReplacement& how) {
    TerrainModel& terrain = document_.terrain;
    if (terrain.terrainPresent && how.confirmOverwrite && !how.confirmOverwrite()) return false;
    TerrainData replacement;
    if (!fill(replacement)) return false;
    if (how.applyDefaults) ApplyTerrainDefaults(replacement);
    static_cast<TerrainData&>(terrain) = std::move(replacement);
    terrain.terrainPresent = true;
    terrain.terrainChanged = how.changed;
    // Undo steps belong to the terrain they were taken of.
    undo_.Reset();
    ShowTerrain(how.resetCamera);
    return true;
}

void Editor::ShowTerrain(bool resetCamera) {
    if (Terrain().terrainPresent)
        view_.mesh.Build(Terrain());
    else
        view_.mesh.Clear();
    if (resetCamera) PlaceCameraAtStart();
    notify_.ReloadTextures();
    notify_.RenderScene();
    notify_.UpdateUI();
}

bool Editor::NewTerrain() {
    if (!Terrain().terrainPresent) return true;
    return Dialogs().Ask("Warning!  This will completely remove the current terrain structure!\n"
                         "Are you sure you wish to continue?",
                         "Warning!", Buttons::YesNo, MessageIcon::Question, Answer::No) == Answer::Yes;
}

TerrainApplyResult Editor::ApplyTerrainSettings(const TerrainSettingsValues& values,
                                                TerrainSettingsPurpose purpose) {
    const std::string refused = InvalidTextureMessage(values);
    if (!refused.empty()) {
        Dialogs().ShowMessage(refused, kInvalidTextureTitle, MessageIcon::Exclamation);
        return TerrainApplyResult::InvalidTexture;
    }
    const GridSize size = RequestedTerrainSize(values, Terrain());
    const bool forNew = purpose == TerrainSettingsPurpose::New;
    if (Terrain().terrainPresent && !forNew) {
        if (size == GridSize{Terrain().columns, Terrain().rows}) return RestyleTerrain(values);
        const Answer answer =
            Dialogs().Ask("Terrain structure specified is different than terrain in editor.\n"
                          "Clear the current terrain in the editor?",
                          "Warning!", Buttons::YesNoCancel, MessageIcon::Question, Answer::Cancel);
        if (answer == Answer::No) return RestyleTerrain(values);
        if (answer != Answer::Yes) return TerrainApplyResult::Cancelled;
    }
    TerrainReplacement how;
    // As with deleting: a new terrain in place of an open track's is a change worth asking about
    // at exit.
    how.changed = forNew && Terrain().trackPresent;
    ReplaceTerrain(
        [&](TerrainData& fresh) {
            StoreTexturesAndWater(fresh, values);
            NewTerrainGrid(fresh, size.columns, size.rows);
            DefaultEmptyTextures(fresh);
            return true;
        },
        how);
    return TerrainApplyResult::NewGrid;
}

TerrainApplyResult Editor::RestyleTerrain(const TerrainSettingsValues& values) {
    TerrainModel& terrain = document_.terrain;
    const TerrainData before = terrain;
    StoreTexturesAndWater(terrain, values);
    DefaultEmptyTextures(terrain);
    if (!SameAppearance(terrain, before)) terrain.terrainChanged = true;
    ShowTerrain(false);
    return TerrainApplyResult::SameGrid;
}

void Editor::DeleteTerrain() {
    TerrainModel& terrain = document_.terrain;
    if (!terrain.terrainPresent) return;
    if (Dialogs().Ask(
            "Warning!  This will completely remove the terrain structure!\nAre you sure you wish to "
            "continue?",
            "Warning!", Buttons::YesNo, MessageIcon::Question, Answer::No) != Answer::Yes)
        return;
    ClearTerrain(terrain);
    undo_.Reset();
    // An open track would lose its terrain when saved: that is a change worth asking about at exit.
    terrain.terrainChanged = terrain.trackPresent;
    ShowTerrain(true);
}

void Editor::RemoveTrackData() {
    if (!Terrain().trackPresent) return;
    // "tress" is the product's own spelling of the question, kept as it is.
    if (Dialogs().Ask(
            "Warning!  This will completely remove the track structure from the scene (including tress)!\n"
            "Are you sure you wish to continue?",
            "Warning!", Buttons::YesNo, MessageIcon::Question, Answer::No) != Answer::Yes)
        return;
    document_.terrain.trackPresent = false;
    view_.spine.Clear();
    notify_.RenderScene();
    notify_.UpdateUI();
}
