// Terrain from Terragen files, and the terrain out as a Wavefront OBJ object.
#include "Editor.h"

#include "ObjExport.h"
#include "TerragenFile.h"

namespace {

FileDialogOptions FileDialog(const char* title, const char* filter, const char* extension) {
    FileDialogOptions options;
    options.title = title;
    options.filter = filter;
    options.defaultExtension = extension;
    return options;
}

} // namespace

std::optional<SampleGrid> Editor::ImportTerragen() {
    if (!ConfirmImportOverwrite()) return std::nullopt;
    FileDialogOptions options =
        FileDialog("Import Terragen File...", "Terragen Terrain Files (*.ter)|*.ter", "ter");
    options.mustExist = true;
    const std::optional<std::string> path = Dialogs().ShowOpenDialog(options);
    if (!path || path->empty()) return std::nullopt;
    SampleGrid samples;
    const TerragenReadResult read = ReadTerragenFile(*path, samples);
    if (!read) {
        // A file that could not be read at all says why; any other is not a Terragen file we take.
        Dialogs().ShowMessage(read.unreadable ? "Error Loading Terragen File.\n" + read.reason
                                              : std::string(kTerragenInvalidMessage),
                              "Error", MessageIcon::Exclamation);
        return std::nullopt;
    }
    return samples;
}

bool Editor::TakeTerragenImport(const SampleGrid& samples, bool water, float waterHeight) {
    if (samples.Empty()) return false;
    return TakeImportedTerrain(TerrainFromTerragen(samples, water, waterHeight));
}

void Editor::ExportObj() {
    if (!CanExportTerrain()) return;
    FileDialogOptions options = FileDialog("Export 3D Object...", "OBJect Files (*.obj)|*.obj", "obj");
    options.confirmOverwrite = true;
    const std::optional<std::string> path = Dialogs().ShowSaveDialog(options);
    if (!path || path->empty()) return;
    std::string error;
    if (!WriteObjFile(*path, Terrain(), error))
        Dialogs().ShowMessage("Error - Could not write the 3D object file.\n" + error, "Error",
                              MessageIcon::Critical);
}
