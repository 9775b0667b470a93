// The verbs on height maps and pictures: 8-bit height-map bitmaps, pictures turned into terrain,
// the terrain's picture, and 16-bit height maps (PNG and RAW), through the conversions the
// editor's commands use.
#include "CliTerrain.h"
#include "FileIO.h"
#include "PathUtil.h"
#include "mBitmapFile.h"
#include "mHeightMap.h"
#include "mHeightMap16.h"
#include "mPictureLoader.h"
#include "mSaveTGA.h"
#include "mTerrainPicture.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace {

// GIF, JPEG and PNG pictures and 16-bit PNG files need the picture codecs of lw_io_qt, linked
// when the build has Qt.
void InstallCodecs() {
#ifdef LW_CLI_QT_CODECS
    static const bool installed = [] {
        InstallQtPictureDecoder();
        InstallQtPng16Codec();
        return true;
    }();
    (void)installed;
#endif
}

// A whole text as one number, or nothing.
std::optional<double> NumberOf(const std::string& text) {
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

// The terrain of IN, or the status of the failure.
int WithTerrainOf(const std::string& in, TerrainData& terrain) {
    std::string error;
    return LoadTerrainFor(in, terrain, error) ? 0 : Fail(error);
}

int Written(bool ok, const std::string& error) {
    return ok ? 0 : Fail(error);
}

// export-heightmap IN OUT.bmp
int ExportHeightMap(const std::vector<std::string>& args) {
    if (args.size() != 2) return UsageError("export-heightmap takes IN and OUT.bmp");
    if (!HasExtension(args[1], ".bmp"))
        return UsageError("export-heightmap writes a bitmap: OUT must end in .bmp");
    TerrainData terrain;
    if (const int failed = WithTerrainOf(args[0], terrain)) return failed;
    std::string error;
    return Written(SaveBitmap(args[1], TerrainToHeightMap(terrain), error), error);
}

// export-picture IN OUT.tga|OUT.bmp
int ExportPicture(const std::vector<std::string>& args) {
    if (args.size() != 2) return UsageError("export-picture takes IN and OUT.tga or OUT.bmp");
    TerrainData terrain;
    if (const int failed = WithTerrainOf(args[0], terrain)) return failed;
    const cDIBSection picture = RenderTerrainPicture(terrain);
    std::string error;
    const bool bitmap = HasExtension(args[1], ".bmp");
    return Written(bitmap ? SaveBitmap(args[1], picture, error) : SaveTGA(args[1], picture, error), error);
}

// The picture IN, or the status of the failure.
int WithPictureOf(const std::string& in, cDIBSection& picture) {
    InstallCodecs();
    if (LoadPictureFile(in, picture)) return 0;
    if (!FileExists(in)) return Fail(in + ": no such file");
    const BitmapReadResult bitmap = LoadBitmapFile(in, picture);
    return Fail(in + ": " +
                (bitmap.message.empty() || bitmap.message == "the file is not a bitmap"
                     ? std::string("not a picture this program reads")
                     : bitmap.message));
}

int Store(const std::string& out, TerrainData terrain) {
    std::string error;
    return Written(StoreImportedTerrain(out, std::move(terrain), error), error);
}

// import-heightmap IN OUT
int ImportHeightMap(const std::vector<std::string>& args) {
    if (args.size() != 2) return UsageError("import-heightmap takes IN and OUT");
    cDIBSection picture;
    if (const int failed = WithPictureOf(args[0], picture)) return failed;
    return Store(args[1], HeightMapToTerrain(picture));
}

// The options of import-picture after IN and OUT; false for one it does not know.
bool ParsePictureOptions(const std::vector<std::string>& args, PictureImportOptions& options) {
    for (std::size_t i = 2; i < args.size(); ++i) {
        const std::string& option = args[i];
        const bool hasValue = i + 1 < args.size();
        if (option == "--invert") {
            options.invert = true;
        } else if (option == "--detail" && hasValue) {
            const std::string& detail = args[++i];
            if (detail == "low")
                options.detail = PictureDetail::Low;
            else if (detail == "normal")
                options.detail = PictureDetail::Normal;
            else if (detail == "high")
                options.detail = PictureDetail::High;
            else
                return false;
        } else if (option == "--water" && hasValue) {
            const std::optional<double> level = NumberOf(args[++i]);
            if (!level) return false;
            options.water = true;
            options.waterHeight = static_cast<float>(*level);
        } else {
            return false;
        }
    }
    return true;
}

// import-picture IN OUT [--detail low|normal|high] [--water H] [--invert]
int ImportPicture(const std::vector<std::string>& args) {
    PictureImportOptions options;
    if (args.size() < 2 || !ParsePictureOptions(args, options))
        return UsageError(
            "import-picture takes IN and OUT, then --detail low|normal|high, --water H, --invert");
    cDIBSection picture;
    if (const int failed = WithPictureOf(args[0], picture)) return failed;
    return Store(args[1], PictureToTerrain(PictureGreys(picture), options));
}

// export-heightmap16 IN OUT.png|OUT.r16
int ExportHeightMap16(const std::vector<std::string>& args) {
    if (args.size() != 2) return UsageError("export-heightmap16 takes IN and OUT.png or OUT.r16");
    InstallCodecs();
    TerrainData terrain;
    if (const int failed = WithTerrainOf(args[0], terrain)) return failed;
    std::string error;
    return Written(WriteHeightMap16(args[1], terrain, error), error);
}

// The options of import-heightmap16 after IN and OUT; false for one it does not know.
bool ParseHeightMap16Options(const std::vector<std::string>& args, Height16Range& range, int& width) {
    for (std::size_t i = 2; i + 1 < args.size(); i += 2) {
        const std::string& value = args[i + 1];
        if (args[i] == "--range") {
            const std::size_t comma = value.find(',');
            if (comma == std::string::npos) return false;
            const std::optional<double> low = NumberOf(value.substr(0, comma));
            const std::optional<double> high = NumberOf(value.substr(comma + 1));
            if (!low || !high || !(*low < *high)) return false;
            range = {static_cast<float>(*low), static_cast<float>(*high)};
        } else if (args[i] == "--width") {
            const std::optional<double> n = NumberOf(value);
            if (!n || *n < 1 || *n > kMaxGridSide || std::trunc(*n) != *n) return false;
            width = static_cast<int>(*n);
        } else {
            return false;
        }
    }
    return args.size() % 2 == 0;
}

// import-heightmap16 IN.png|IN.r16 OUT [--range LOW,HIGH] [--width N]
int ImportHeightMap16(const std::vector<std::string>& args) {
    Height16Range range;
    int width = 0;
    if (args.size() < 2 || !ParseHeightMap16Options(args, range, width))
        return UsageError("import-heightmap16 takes IN and OUT, then --range LOW,HIGH (LOW below HIGH) and "
                          "--width N (1 to 513)");
    InstallCodecs();
    Grey16Image image;
    const Grey16ReadResult read = ReadHeightMap16(args[0], IsPng16Path(args[0]) ? 0 : width, image);
    if (!read) return Fail(args[0] + ": " + read.message);
    return Store(args[1], Grey16ToTerrain(image, range));
}

constexpr std::array kPictureVerbs{
    CliVerb{"export-heightmap", "IN OUT.bmp", "the terrain as a height-map bitmap (grey = height + 50)",
            ExportHeightMap},
    CliVerb{"export-picture", "IN OUT.tga|OUT.bmp", "a picture of the terrain (Targa, or a bitmap for .bmp)",
            ExportPicture},
    CliVerb{"export-heightmap16", "IN OUT.png|OUT.r16",
            "the terrain as a 16-bit height map (-10..150 = 0..65535)", ExportHeightMap16},
    CliVerb{"import-heightmap", "IN OUT", "a height-map picture (grey - 50 = height) into OUT",
            ImportHeightMap},
    CliVerb{"import-picture", "IN OUT [--detail low|normal|high] [--water H] [--invert]",
            "a picture into OUT as the Import Picture dialog makes it", ImportPicture},
    CliVerb{"import-heightmap16", "IN.png|IN.r16 OUT [--range LOW,HIGH] [--width N]",
            "a 16-bit height map into OUT (0..65535 = LOW..HIGH, -10..150 unless given)", ImportHeightMap16},
};

} // namespace

std::span<const CliVerb> PictureVerbs() {
    return kPictureVerbs;
}
