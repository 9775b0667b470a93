// The verbs of the Terragen import and the OBJ export, with the code the editor's commands use.
#include "CliTerrain.h"
#include "ObjExport.h"
#include "PathUtil.h"
#include "TerragenFile.h"

#include <array>
#include <charconv>

namespace {

// A water height as typed after --water: a plain number within the slider's range.
bool ParseWaterHeight(const std::string& text, float& height) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, height);
    return error == std::errc{} && stop == end && height >= static_cast<float>(kTerragenWaterMin) &&
           height <= static_cast<float>(kTerragenWaterMax);
}

// import-terragen IN.ter OUT [--water H]: without --water the terrain has no water.
int ImportTerragen(const std::vector<std::string>& args) {
    bool water = false;
    float height = 0.0f;
    if (args.size() == 4 && args[2] == "--water") {
        if (!ParseWaterHeight(args[3], height))
            return UsageError("--water takes a height from " + std::to_string(kTerragenWaterMin) + " to " +
                              std::to_string(kTerragenWaterMax));
        water = true;
    } else if (args.size() != 2) {
        return UsageError("import-terragen takes IN.ter, OUT and optionally --water H");
    }
    SampleGrid samples;
    const TerragenReadResult read = ReadTerragenFile(args[0], samples);
    if (!read) {
        if (read.unreadable) return Fail(read.reason);
        return Fail(args[0] + ": not a Terragen terrain file we can read (" + read.reason + ")");
    }
    std::string error;
    if (!StoreImportedTerrain(args[1], TerrainFromTerragen(samples, water, height), error))
        return Fail(error);
    return 0;
}

// export-obj IN OUT.obj
int ExportObj(const std::vector<std::string>& args) {
    if (args.size() != 2) return UsageError("export-obj takes IN and OUT.obj");
    if (!HasExtension(args[1], ".obj"))
        return UsageError("export-obj writes an OBJ file: OUT must end in .obj");
    TerrainData terrain;
    std::string error;
    if (!LoadTerrainFor(args[0], terrain, error)) return Fail(error);
    if (!WriteObjFile(args[1], terrain, error)) return Fail(error);
    return 0;
}

constexpr std::array kTerragenObjVerbs{
    CliVerb{"import-terragen", "IN.ter OUT [--water H]",
            "a Terragen terrain file into OUT, with water at H (0 to 256) if given", ImportTerragen},
    CliVerb{"export-obj", "IN OUT.obj", "the terrain of a track or terrain file as a Wavefront OBJ object",
            ExportObj},
};

} // namespace

std::span<const CliVerb> TerragenObjVerbs() {
    return kTerragenObjVerbs;
}
