// Terrain in and out as terrain files: the question before an import replaces the terrain, the
// ".cvtera" import and export, and taking the terrain out of another track file.
#include "Editor.h"

#include "FileIO.h"
#include "TerrainFile.h"

namespace {

constexpr const char* kTerrainFilter = "Corvanta Terrain Files (*.cvtera)|*.cvtera";
constexpr const char* kErrorTitle = "Error";
constexpr const char* kNoticeTitle = "Notice";

} // namespace

bool Editor::ConfirmImportOverwrite() {
    if (!Terrain().terrainPresent) return true;
    return RememberedOrAsked(AskKind::ImportOverwrite, settings_.askImportOverwrite) == 1;
}

bool Editor::TakeImportedTerrain(TerrainData imported) {
    TerrainReplacement how;
    how.applyDefaults = true;
    how.resetCamera = true;
    // No file holds the imported terrain yet: leaving without saving or exporting would lose it.
    how.changed = true;
    return ReplaceTerrain(
        [&imported](TerrainData& fresh) {
            fresh = std::move(imported);
            return true;
        },
        how);
}

void Editor::ExportTerrainFile() {
    if (!CanExportTerrain()) return;
    FileDialogOptions options;
    options.title = "Export Terrain File...";
    options.filter = kTerrainFilter;
    options.defaultExtension = "cvtera";
    options.confirmOverwrite = true;
    const std::optional<std::string> path = Dialogs().ShowSaveDialog(options);
    if (!path || path->empty()) return;
    TerrainRecord record = Track().terrain;
    record.terrain = static_cast<const TerrainData&>(Terrain());
    record.terrainInTrack = true;
    std::string error;
    if (!WriteTerrainFile(*path, record, error))
        Dialogs().ShowMessage("Error - Could not write the terrain file.\n" + error, kErrorTitle,
                              MessageIcon::Critical);
}

void Editor::ImportTerrainFile() {
    if (!ConfirmImportOverwrite()) return;
    FileDialogOptions options;
    options.title = "Import Terrain File...";
    options.filter = kTerrainFilter;
    options.defaultExtension = "cvtera";
    options.mustExist = true;
    const std::optional<std::string> path = Dialogs().ShowOpenDialog(options);
    if (!path || path->empty()) return;
    TerrainRecord record;
    const TerrainReadResult read = ReadTerrainFile(*path, record);
    if (read.status == TerrainReadStatus::Corrupt) {
        Dialogs().ShowMessage("Notice - The file is corrupt or does not contain terrain data.", kNoticeTitle,
                              MessageIcon::Exclamation);
    } else if (!read) {
        Dialogs().ShowMessage("Error - The file does not appear to be a valid Corvanta Terrain file.",
                              kErrorTitle, MessageIcon::Critical);
    } else {
        TakeImportedTerrain(std::move(record.terrain));
        return;
    }
    notify_.RenderScene();
    notify_.UpdateUI();
}

void Editor::ImportTerrainFromTrack() {
    if (!ConfirmImportOverwrite()) return;
    FileDialogOptions options;
    options.title = "Import Terrain from Track File...";
    options.filter = kTrackFilter;
    options.defaultExtension = "cvtrack";
    const std::optional<std::string> path = Dialogs().ShowOpenDialog(options);
    if (!path || path->empty()) return;
    if (!FileExists(*path)) {
        Dialogs().ShowMessage("Error - Could not find track file.", kErrorTitle, MessageIcon::Critical);
        return;
    }
    std::vector<std::uint8_t> bytes;
    std::string error;
    TerrainRecord record;
    const TerrainReadResult read = ReadWholeFile(*path, bytes, error)
                                       ? ScanTrackForTerrain(bytes, record)
                                       : TerrainReadResult{TerrainReadStatus::Unreadable, error};
    switch (read.status) {
    case TerrainReadStatus::Ok:
        TakeImportedTerrain(std::move(record.terrain));
        return;
    case TerrainReadStatus::NoTerrain:
        Dialogs().ShowMessage("Notice - The track file does not contain terrain data.", kNoticeTitle,
                              MessageIcon::Information);
        break;
    case TerrainReadStatus::Corrupt:
        Dialogs().ShowMessage("Notice - The file is corrupt or does not contain terrain data.", kNoticeTitle,
                              MessageIcon::Exclamation);
        break;
    case TerrainReadStatus::Unreadable:
        Dialogs().ShowMessage("Error - Could not read the track file.\n" + read.message, kErrorTitle,
                              MessageIcon::Critical);
        break;
    case TerrainReadStatus::NotATrack:
    case TerrainReadStatus::NotATerrain:
        Dialogs().ShowMessage("Error - File is not a valid Corvanta Track file.", kErrorTitle,
                              MessageIcon::Exclamation);
        break;
    }
    notify_.RenderScene();
}
