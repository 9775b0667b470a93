// The 3DS export: the save dialog, then (after the window's export dialog) the scene built from the
// terrain and the traced track and written with a progress report.
#include "Editor.h"

#include "Mesh3DS.h"
#include "OptionsMath.h"

#include <algorithm>

namespace {

Colour24 ToColour24(const ByteColour& c) {
    const auto byte = [](int v) { return static_cast<std::uint8_t>(std::clamp(v, 0, 255)); };
    return {byte(c.r), byte(c.g), byte(c.b)};
}

} // namespace

std::optional<std::string> Editor::Export3DS() {
    if (!CanExportTerrain()) return std::nullopt;
    FileDialogOptions options;
    options.title = "Export 3DStudioMax...";
    options.filter = "3DStudioMax Files (*.3ds)|*.3ds";
    options.defaultExtension = "3ds";
    options.confirmOverwrite = true;
    std::optional<std::string> path = Dialogs().ShowSaveDialog(options);
    if (!path || path->empty()) return std::nullopt;
    return path;
}

ByteColour Editor::Export3DSTerrainColour() const {
    return ColourToSwatch(settings_.colorTable[kColourTerrain]);
}

ByteColour Editor::Export3DSTrackColour() const {
    return ColourToSwatch(settings_.colorTable[kColourTrack]);
}

bool Editor::Save3DS(const std::string& path, const ByteColour& terrainColour, const ByteColour& trackColour,
                     bool includeTrack) {
    if (!CanExportTerrain()) return false;
    Export3DSOptions options;
    options.terrainColour = ToColour24(terrainColour);
    options.trackColour = ToColour24(trackColour);
    options.includeTrack = includeTrack && CanExport3DSTrack();
    const Scene3DS scene = Build3DSScene(Terrain(), options.includeTrack ? &Spine() : nullptr, options);
    Shell& shell = Dialogs();
    shell.BeginProgress("Exporting 3DS objects...", static_cast<int>(scene.objects.size()));
    const Save3DSResult result = Save3DSObject(path, scene, [&shell](std::size_t written) {
        shell.SetProgress(static_cast<int>(written));
        return !shell.ProgressCancelled();
    });
    shell.EndProgress();
    switch (result.status) {
    case Save3DSStatus::Ok:
    case Save3DSStatus::Cancelled: // the user knows; the file was left alone
        break;
    case Save3DSStatus::Overflow:
        shell.ShowMessage("Error - The 3DS file was not written.\n" + result.message, "Error",
                          MessageIcon::Critical);
        break;
    case Save3DSStatus::WriteFailed:
        shell.ShowMessage("Error - Could not write the 3DS file.\n" + result.message, "Error",
                          MessageIcon::Critical);
        break;
    }
    return static_cast<bool>(result);
}
