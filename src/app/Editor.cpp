#include "Editor.h"

#include "FileIO.h"
#include "PathUtil.h"
#include "TrackFile.h"

#include <algorithm>
#include <filesystem>

namespace {

constexpr const char* kWarningTitle = "Warning";

std::string WithTrailingSlash(std::string folder) {
    if (!folder.empty() && folder.back() != '/' && folder.back() != '\\') folder += '/';
    return folder;
}

} // namespace

std::string DerivedTrackFolder(const std::string& path) {
    return path.substr(0, FileNameOf(path).size());
}

Editor::Editor(Shell& shellRef, std::string programFolder)
    : shell(shellRef), programFolder_(WithTrailingSlash(std::move(programFolder))) {}

void Editor::InitPaths() {
    terrain.trackFolder = programFolder_ + "tracks";
    settings.colorTable = DefaultColourTable();
}

void Editor::LoadSettings() {
    ::LoadSettings(SettingsPath(), settings);
    // A hand-edited file may hold sculpt settings out of range.
    SetSculptTool(settings.sculptTool);
    SetSculptMode(settings.sculptMode);
    SetSculptSize(settings.sculptSize);
}

bool Editor::SaveSettings() {
    std::string error;
    if (::SaveSettings(SettingsPath(), settings, error)) return true;
    shell.ShowMessage("Error - Could not save the settings file.\n" + error, "Error", MessageIcon::Critical);
    return false;
}

void Editor::OpenTrack(const std::string& requested) {
    std::string path = requested;
    if (path.empty()) {
        FileDialogOptions options;
        options.title = "Open Track File...";
        options.filter = kTrackFilter;
        options.defaultExtension = "cvtrack";
        options.folder = terrain.trackFolder;
        options.mustExist = true;
        const std::optional<std::string> chosen = shell.ShowOpenDialog(options);
        if (!chosen || chosen->empty()) return;
        path = *chosen;
    }
    if (!HasExtension(path, ".cvtrack")) {
        shell.ShowMessage("Invalid Track Filename.", kWarningTitle, MessageIcon::Exclamation);
        return;
    }
    if (!FileExists(path)) {
        shell.ShowMessage("Track File Not Found.", kWarningTitle, MessageIcon::Exclamation);
        return;
    }
    if (!ReadTrackFile(path, track)) {
        terrain.trackPresent = false;
        shell.ShowMessage("Invalid Track File.", kWarningTitle, MessageIcon::Exclamation);
        shell.RenderScene();
        shell.UpdateUI();
        return;
    }
    terrain.trackFolder = DerivedTrackFolder(path);
    terrain.trackFilePath = path;
    AddRecentFile(path);
    // A track is present when it has at least one stretch to trace.
    terrain.trackPresent = TraceTrack(track, spine);
    terrain.terrainChanged = false;
    DecideTerrainOnOpen(terrain.terrainPresent);
    AfterTerrainReplaced();
}

void Editor::DecideTerrainOnOpen(bool hadTerrain) {
    // Undo steps belong to the terrain they were taken of: they go when another terrain replaces it.
    const bool trackHasTerrain = track.terrain.terrainInTrack;
    if (!hadTerrain) {
        if (trackHasTerrain) {
            CopyTerrainFromTrack();
            undo.Reset();
        }
        return;
    }
    if (trackHasTerrain) {
        int answer = settings.askLoadTrackTerrain;
        if (answer == 0) {
            const AskResult result = shell.AskDialog(AskKind::LoadTrackTerrain);
            if (result.dontAskAgain) settings.askLoadTrackTerrain = result.button + 1;
            answer = result.button + 1;
        }
        if (answer == 1) {
            CopyTerrainFromTrack();
            undo.Reset();
        }
        return;
    }
    int answer = settings.askLoadNoTerrain;
    if (answer == 0) {
        const AskResult result = shell.AskDialog(AskKind::LoadNoTerrain);
        if (result.dontAskAgain) settings.askLoadNoTerrain = result.button + 1;
        answer = result.button + 1;
    }
    if (answer == 1) {
        ClearTerrain(terrain);
        undo.Reset();
    }
}

std::optional<SceneGround> Editor::Ground() const {
    if (!terrain.terrainPresent || mesh.Empty()) return std::nullopt;
    return SceneGround{&mesh, terrain.spacingX, terrain.spacingZ};
}

void Editor::ResetView() {
    const std::optional<SceneGround> ground = Ground();
    ResetCamera(camera, ground ? &*ground : nullptr);
}

void Editor::UpdateCursorHeight() {
    if (!terrain.terrainPresent || terrain.heights.Empty()) {
        cursor.y = 0.0f;
        return;
    }
    cursor.y = HeightUnder(terrain, cursor.x, cursor.z);
}

void Editor::AfterTerrainReplaced(bool resetCamera) {
    if (terrain.terrainPresent)
        mesh.Build(terrain);
    else
        mesh.Clear();
    if (resetCamera) ResetView();
    shell.ReloadTextures();
    shell.RenderScene();
    shell.UpdateUI();
}

bool Editor::SaveTrack(const std::string& path) {
    if (!terrain.trackPresent) return false;
    CopyTerrainToTrack(false);
    const TrackWriteResult result = WriteTrackFile(path, track);
    if (!result) {
        shell.ShowMessage("Error - Could not save the track file.\n" + result.message, "Error",
                          MessageIcon::Critical);
        shell.UpdateUI();
        return false;
    }
    AddRecentFile(result.path);
    terrain.terrainChanged = false;
    shell.UpdateUI();
    return true;
}

void Editor::SaveTrackAs() {
    if (!terrain.trackPresent) return;
    FileDialogOptions options;
    options.title = "Save Track As...";
    // The pattern without a dot is deliberate: it is what the dialog has always offered.
    options.filter = "Corvanta Track Files (*.cvtrack)|*cvtrack";
    options.defaultExtension = "cvtrack";
    options.fileName = terrain.trackFilePath;
    options.folder = FolderOf(terrain.trackFilePath);
    options.confirmOverwrite = true;
    const std::optional<std::string> chosen = shell.ShowSaveDialog(options);
    if (!chosen || chosen->empty()) return;
    const std::string previous = terrain.trackFilePath;
    terrain.trackFilePath = TrackWritePath(*chosen);
    if (!SaveTrack(terrain.trackFilePath)) {
        terrain.trackFilePath = previous;
        shell.UpdateUI();
    }
}

void Editor::AddRecentFile(const std::string& path) {
    if (settings.rmbrRecents) {
        auto& paths = settings.recentPaths;
        auto& titles = settings.recentTitles;
        std::size_t found = paths.size() - 1;
        for (std::size_t i = 0; i < paths.size(); ++i)
            if (EqualsIgnoreCase(paths[i], path)) {
                found = i;
                break;
            }
        for (std::size_t i = found; i > 0; --i) {
            paths[i] = paths[i - 1];
            titles[i] = titles[i - 1];
        }
        paths[0] = path;
        titles[0] = TrackTitle(path);
    }
    shell.UpdateUI();
}

void Editor::ClearRecentFiles() {
    settings.recentPaths.fill("");
    settings.recentTitles.fill("");
    shell.UpdateUI();
}

void Editor::CopyTerrainFromTrack() {
    if (!terrain.trackPresent) return;
    if (!track.terrain.terrainInTrack) {
        terrain.terrainPresent = false;
        return;
    }
    static_cast<TerrainData&>(terrain) = track.terrain.terrain;
    terrain.terrainPresent = true;
}

void Editor::CopyTerrainToTrack(bool force) {
    if (!force && !terrain.trackPresent) return;
    if (!terrain.terrainPresent) {
        track.terrain.terrainInTrack = false;
        return;
    }
    track.terrain.terrain = static_cast<const TerrainData&>(terrain);
    track.terrain.terrainInTrack = true;
}

std::string Editor::Caption() const {
    std::string caption = kProgramName;
    if (terrain.trackPresent)
        caption += " - " + TrackTitle(terrain.trackFilePath);
    else if (terrain.terrainPresent)
        caption += " - [Terrain]";
    return caption;
}

bool Editor::ConfirmClose() {
    if (!terrain.terrainChanged) return true;
    return shell.Ask("There are unsaved changes to the terrain.\nAre you sure you wish to exit?",
                     "Are you sure?", Buttons::YesNo, MessageIcon::Question, Answer::No) == Answer::Yes;
}

void Editor::RideTrack() {
    if (!terrain.trackPresent) return;
    const std::string simulator = SimulatorPath();
    std::error_code ec;
    const auto status = std::filesystem::status(simulator, ec);
    const bool runnable =
        !ec && std::filesystem::is_regular_file(status) &&
        (status.permissions() & std::filesystem::perms::owner_exec) != std::filesystem::perms::none;
    if (!runnable) {
        shell.ShowMessage("Warning - Corvanta Simulator not found.\n"
                          "Corvanta Landwright must be in the same folder as Corvanta Simulator",
                          "Warning!", MessageIcon::Exclamation);
        return;
    }
    if (!SaveTrack(terrain.trackFilePath)) return;
    if (!shell.StartDetached(simulator, {"-s", terrain.trackFilePath}))
        shell.ShowMessage("Error - Could not start Corvanta Simulator.", "Error", MessageIcon::Critical);
}

void Editor::OpenHelpIndex() {
    shell.OpenWithDesktop(HelpIndexPath());
}

void Editor::DeleteTerrain() {
    if (!terrain.terrainPresent) return;
    if (shell.Ask("Warning!  This will completely remove the terrain structure!\nAre you sure you wish to "
                  "continue?",
                  "Warning!", Buttons::YesNo, MessageIcon::Question, Answer::No) != Answer::Yes)
        return;
    ClearTerrain(terrain);
    undo.Reset();
    // An open track would lose its terrain when saved: that is a change worth asking about at exit.
    terrain.terrainChanged = terrain.trackPresent;
    AfterTerrainReplaced();
}

void Editor::RemoveTrackData() {
    if (!terrain.trackPresent) return;
    // "tress" is the product's own wording, kept on purpose.
    if (shell.Ask(
            "Warning!  This will completely remove the track structure from the scene (including tress)!\n"
            "Are you sure you wish to continue?",
            "Warning!", Buttons::YesNo, MessageIcon::Question, Answer::No) != Answer::Yes)
        return;
    terrain.trackPresent = false;
    spine.Clear();
    shell.RenderScene();
    shell.UpdateUI();
}
