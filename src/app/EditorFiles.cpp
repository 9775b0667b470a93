// The file commands of the session: opening and saving tracks, the recent files, the caption, the
// exit question, riding the track in the simulator and the manual.
#include "Editor.h"

#include "FileIO.h"
#include "PathUtil.h"
#include "TrackFile.h"

#include <filesystem>

namespace {

constexpr const char* kWarningTitle = "Warning";

} // namespace

void Editor::OpenTrack(const std::string& requested) {
    std::string path = requested;
    if (path.empty()) {
        FileDialogOptions options;
        options.title = "Open Track File...";
        options.filter = kTrackFilter;
        options.defaultExtension = "cvtrack";
        options.folder = Terrain().trackFolder;
        options.mustExist = true;
        const std::optional<std::string> chosen = Dialogs().ShowOpenDialog(options);
        if (!chosen || chosen->empty()) return;
        path = *chosen;
    }
    if (!HasExtension(path, ".cvtrack")) {
        Dialogs().ShowMessage("Invalid Track Filename.", kWarningTitle, MessageIcon::Exclamation);
        return;
    }
    if (!FileExists(path)) {
        Dialogs().ShowMessage("Track File Not Found.", kWarningTitle, MessageIcon::Exclamation);
        return;
    }
    // Read beside the open track, so that a damaged file leaves it (and its unsaved edits) alone. The
    // reader keeps the environment names of the file read before when the new one has none.
    TrackDocument opened = document_.track;
    const TrackReadResult read = ReadTrackFile(path, opened);
    if (!read) {
        Dialogs().ShowMessage("Invalid Track File.\n" + path + "\n" + read.message, kWarningTitle,
                              MessageIcon::Exclamation);
        return;
    }
    OpenTrackDocument(std::move(opened), path);
}

void Editor::OpenTrackDocument(TrackDocument opened, const std::string& path) {
    // The question comes first: until it is answered the window shows the session as it was.
    const TerrainOnOpen choice = DecideTerrainOnOpen(opened);
    TerrainModel& terrain = document_.terrain;
    // A track is present when it has at least one stretch to trace.
    terrain.trackPresent = TraceTrack(opened, view_.spine);
    document_.track = std::move(opened);
    terrain.trackFolder = DerivedTrackFolder(path);
    terrain.trackFilePath = path;
    RememberRecentFile(path);
    switch (choice) {
    case TerrainOnOpen::TakeTracks:
        // A track that cannot be traced does not hand over its terrain.
        if (terrain.trackPresent) {
            ReplaceTerrain(
                [this](TerrainData& taken) {
                    taken = Track().terrain.terrain;
                    return true;
                },
                {});
            return;
        }
        undo_.Reset();
        break;
    case TerrainOnOpen::Remove:
        ClearTerrain(terrain);
        undo_.Reset();
        break;
    case TerrainOnOpen::Keep:
        break;
    }
    // A terrain kept in the editor that the track's file does not hold (none there, or another one)
    // is lost on leaving without saving.
    const TerrainRecord& record = Track().terrain;
    terrain.terrainChanged =
        terrain.terrainPresent &&
        !(record.terrainInTrack && record.terrain == static_cast<const TerrainData&>(terrain));
    ShowTerrain(true);
}

Editor::TerrainOnOpen Editor::DecideTerrainOnOpen(const TrackDocument& opened) {
    const bool trackHasTerrain = opened.terrain.terrainInTrack;
    if (!Terrain().terrainPresent) return trackHasTerrain ? TerrainOnOpen::TakeTracks : TerrainOnOpen::Keep;
    if (trackHasTerrain)
        return RememberedOrAsked(AskKind::LoadTrackTerrain, settings_.askLoadTrackTerrain) == 1
                   ? TerrainOnOpen::TakeTracks
                   : TerrainOnOpen::Keep;
    return RememberedOrAsked(AskKind::LoadNoTerrain, settings_.askLoadNoTerrain) == 1 ? TerrainOnOpen::Remove
                                                                                      : TerrainOnOpen::Keep;
}

bool Editor::SaveTrack(const std::string& path) {
    if (!Terrain().trackPresent) return false;
    CopyTerrainToTrack();
    const TrackWriteResult result = WriteTrackFile(path, document_.track);
    if (!result) {
        Dialogs().ShowMessage("Error - Could not save the track file.\n" + result.message, "Error",
                              MessageIcon::Critical);
        notify_.UpdateUI();
        return false;
    }
    AddRecentFile(result.path);
    document_.terrain.terrainChanged = false;
    notify_.UpdateUI();
    return true;
}

void Editor::SaveTrackAs() {
    if (!Terrain().trackPresent) return;
    FileDialogOptions options;
    options.title = "Save Track As...";
    // The pattern without a dot is deliberate: it is what the dialog has always offered.
    options.filter = "Corvanta Track Files (*.cvtrack)|*cvtrack";
    options.defaultExtension = "cvtrack";
    options.fileName = Terrain().trackFilePath;
    options.folder = FolderOf(Terrain().trackFilePath);
    options.confirmOverwrite = true;
    const std::optional<std::string> chosen = Dialogs().ShowSaveDialog(options);
    if (!chosen || chosen->empty()) return;
    std::string& trackFilePath = document_.terrain.trackFilePath;
    const std::string previous = trackFilePath;
    trackFilePath = TrackWritePath(*chosen);
    if (!SaveTrack(trackFilePath)) {
        trackFilePath = previous;
        notify_.UpdateUI();
    }
}

void Editor::AddRecentFile(const std::string& path) {
    RememberRecentFile(path);
    notify_.UpdateUI();
}

void Editor::RememberRecentFile(const std::string& path) {
    if (settings_.rmbrRecents) {
        auto& paths = settings_.recentPaths;
        auto& titles = settings_.recentTitles;
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
}

void Editor::ClearRecentFiles() {
    settings_.recentPaths.fill("");
    settings_.recentTitles.fill("");
    notify_.UpdateUI();
}

void Editor::CopyTerrainToTrack() {
    TerrainRecord& record = document_.track.terrain;
    record.terrainInTrack = Terrain().terrainPresent;
    // Without a terrain the record is left as it was: the file is written without "TERA".
    if (record.terrainInTrack) record.terrain = static_cast<const TerrainData&>(Terrain());
}

std::string Editor::Caption() const {
    std::string caption = kProgramName;
    if (Terrain().trackPresent)
        caption += " - " + TrackTitle(Terrain().trackFilePath);
    else if (Terrain().terrainPresent)
        caption += " - [Terrain]";
    return caption;
}

bool Editor::ConfirmClose() {
    if (!Terrain().terrainChanged) return true;
    return Dialogs().Ask("There are unsaved changes to the terrain.\nAre you sure you wish to exit?",
                         "Are you sure?", Buttons::YesNo, MessageIcon::Question, Answer::No) == Answer::Yes;
}

void Editor::RideTrack() {
    if (!Terrain().trackPresent) return;
    const std::string simulator = SimulatorPath();
    std::error_code ec;
    const auto status = std::filesystem::status(simulator, ec);
    if (ec || !std::filesystem::is_regular_file(status)) {
        Dialogs().ShowMessage("Warning - Corvanta Simulator not found.\n"
                              "Corvanta Landwright must be in the same folder as Corvanta Simulator",
                              "Warning!", MessageIcon::Exclamation);
        return;
    }
    // Found but not allowed to run (copied without its permissions, say): a different fix for the user.
    if ((status.permissions() & std::filesystem::perms::owner_exec) == std::filesystem::perms::none) {
        Dialogs().ShowMessage(
            "Warning - Corvanta Simulator cannot be started: the file is not executable.\n" + simulator,
            "Warning!", MessageIcon::Exclamation);
        return;
    }
    if (!SaveTrack(Terrain().trackFilePath)) return;
    if (!Dialogs().StartDetached(simulator, {"-s", Terrain().trackFilePath}))
        Dialogs().ShowMessage("Error - Could not start Corvanta Simulator.", "Error", MessageIcon::Critical);
}

void Editor::OpenHelpIndex() {
    const std::string manual = HelpIndexPath();
    if (!FileExists(manual)) {
        Dialogs().ShowMessage("The manual was not found. It belongs here:\n" + manual, kWarningTitle,
                              MessageIcon::Exclamation);
        return;
    }
    if (!Dialogs().OpenWithDesktop(manual))
        Dialogs().ShowMessage("The manual could not be shown: no program to open it was found.\n"
                              "Open this file in a web browser:\n" +
                                  manual,
                              kWarningTitle, MessageIcon::Exclamation);
}
