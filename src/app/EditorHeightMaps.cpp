// Terrain in and out as pictures: height-map bitmaps, pictures turned into terrain through
// frmImportPicture, the terrain's picture, and 16-bit height maps (PNG and RAW).
#include "Editor.h"

#include "PathUtil.h"
#include "mBitmapFile.h"
#include "mPictureLoader.h"
#include "mSaveTGA.h"
#include "mTerrainPicture.h"

#include <algorithm>
#include <cctype>

namespace {

constexpr const char* kErrorTitle = "Error";
constexpr const char* kBitmapFilter = "Windows Bitmap Files (*.bmp)|*.bmp";
constexpr const char* kHeightMap16Filter =
    "16-bit PNG Files (*.png)|*.png|16-bit RAW Files (*.r16;*.raw)|*.r16;*.raw";

FileDialogOptions Dialog(const char* title, const char* filter, const char* extension, bool save) {
    FileDialogOptions options;
    options.title = title;
    options.filter = filter;
    options.defaultExtension = extension;
    options.mustExist = !save;
    options.confirmOverwrite = save;
    return options;
}

// A reason from a reader as a sentence of a message.
std::string Sentence(std::string reason) {
    if (!reason.empty()) reason[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(reason[0])));
    if (!reason.empty() && reason.back() != '.') reason += '.';
    return reason;
}

// The picture at path, or nothing once the user was told it is no picture.
std::optional<cDIBSection> LoadPictureOrSay(Shell& shell, const std::string& path) {
    cDIBSection picture;
    if (LoadPictureFile(path, picture)) return picture;
    shell.ShowMessage("Error Loading Picture File.\nThe file does not appear to be a valid Picture file.",
                      kErrorTitle, MessageIcon::Exclamation);
    return std::nullopt;
}

// Writes an exported picture as a bitmap or a Targa file, saying so when it cannot.
void SaveExportedPicture(Shell& shell, const cDIBSection& picture, const std::string& path, bool asBitmap,
                         const std::string& what) {
    if (picture.IsEmpty()) {
        shell.ShowMessage("Error - Could not create Image Handle.", kErrorTitle, MessageIcon::Critical);
        return;
    }
    std::string error;
    const bool written = asBitmap ? SaveBitmap(path, picture, error) : SaveTGA(path, picture, error);
    if (!written)
        shell.ShowMessage("Error - Could not write the " + what + " file.\n" + error, kErrorTitle,
                          MessageIcon::Critical);
}

} // namespace

void Editor::ImportHeightMap() {
    if (!ConfirmImportOverwrite()) return;
    const std::optional<std::string> path =
        Dialogs().ShowOpenDialog(Dialog("Import Height Map BMP...", kBitmapFilter, "bmp", false));
    if (!path || path->empty()) return;
    const std::optional<cDIBSection> picture = LoadPictureOrSay(Dialogs(), *path);
    if (!picture) return;
    TakeImportedTerrain(HeightMapToTerrain(*picture));
}

std::optional<SampleGrid> Editor::BeginImportPicture() {
    if (!ConfirmImportOverwrite()) return std::nullopt;
    const std::optional<std::string> path = Dialogs().ShowOpenDialog(
        Dialog("Import Picture...", "Picture Files (*.bmp;*.gif;*.jpg;*.tga)|*.bmp;*.gif;*.jpg;*.tga", "bmp",
               false));
    if (!path || path->empty()) return std::nullopt;
    const std::optional<cDIBSection> picture = LoadPictureOrSay(Dialogs(), *path);
    if (!picture) return std::nullopt;
    return PictureGreys(*picture);
}

bool Editor::ImportPicture(const SampleGrid& greys, const PictureImportOptions& options) {
    if (greys.Empty()) return false;
    return TakeImportedTerrain(PictureToTerrain(greys, options));
}

void Editor::ExportHeightMap() {
    if (!CanExportTerrain()) return;
    const std::optional<std::string> path =
        Dialogs().ShowSaveDialog(Dialog("Export Height Map BMP...", kBitmapFilter, "bmp", true));
    if (!path || path->empty()) return;
    SaveExportedPicture(Dialogs(), TerrainToHeightMap(Terrain()), *path, true, "height map");
}

void Editor::ExportPicture() {
    if (!CanExportTerrain()) return;
    const std::optional<std::string> path = Dialogs().ShowSaveDialog(
        Dialog("Export Picture...",
               "Targa True Vision Files (*.tga)|*.tga|Windows Bitmap Files (*.bmp)|*.bmp", "bmp", true));
    if (!path || path->empty()) return;
    SaveExportedPicture(Dialogs(), RenderTerrainPicture(Terrain()), *path, HasExtension(*path, ".bmp"),
                        "picture");
}

std::optional<PendingHeightMap16> Editor::BeginImportHeightMap16() {
    if (!ConfirmImportOverwrite()) return std::nullopt;
    const std::optional<std::string> path = Dialogs().ShowOpenDialog(
        Dialog("Import Height Map (16-bit)...",
               "16-bit Height Maps (*.png;*.r16;*.raw)|*.png;*.r16;*.raw|All Files (*.*)|*.*", "png", false));
    if (!path || path->empty()) return std::nullopt;
    PendingHeightMap16 pending;
    pending.path = *path;
    Grey16ReadResult read = ReadHeightMap16Bytes(*path, pending.bytes);
    const bool png = IsPng16Path(*path);
    // A RAW file of whole points that make no square waits for the width the user gives.
    const std::size_t size = pending.bytes.size();
    const bool waitsForWidth = !png && size > 0 && size % 2 == 0 && SquareRaw16Side(size) == 0;
    if (read && !waitsForWidth) {
        read = DecodeHeightMap16(pending.bytes, png, 0, pending.image);
        pending.bytes.clear();
    }
    if (!read) {
        Dialogs().ShowMessage("Error Loading Height Map File.\n" + Sentence(read.message), kErrorTitle,
                              MessageIcon::Exclamation);
        return std::nullopt;
    }
    return pending;
}

bool Editor::ImportHeightMap16(const PendingHeightMap16& pending, const Height16Range& range, int width) {
    if (!(range.low < range.high)) {
        Dialogs().ShowMessage("The lowest height must lie below the highest.", "Warning",
                              MessageIcon::Exclamation);
        return false;
    }
    Grey16Image decoded;
    if (pending.NeedsWidth()) {
        const Grey16ReadResult read = DecodeRaw16(pending.bytes, std::max(width, 1), decoded);
        if (!read) {
            Dialogs().ShowMessage(Sentence(read.message), "Warning", MessageIcon::Exclamation);
            return false;
        }
    }
    return TakeImportedTerrain(Grey16ToTerrain(pending.NeedsWidth() ? decoded : pending.image, range));
}

void Editor::ExportHeightMap16() {
    if (!CanExportTerrain()) return;
    const std::optional<std::string> path =
        Dialogs().ShowSaveDialog(Dialog("Export Height Map (16-bit)...", kHeightMap16Filter, "png", true));
    if (!path || path->empty()) return;
    std::string error;
    if (!WriteHeightMap16(*path, Terrain(), error))
        Dialogs().ShowMessage("Error - Could not write the height map file.\n" + error, kErrorTitle,
                              MessageIcon::Critical);
}
