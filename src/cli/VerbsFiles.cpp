// The verbs on whole files: a summary of a track or terrain file, and writing one back.
#include "CliTerrain.h"
#include "PathUtil.h"
#include "TerrainFile.h"
#include "TrackFile.h"
#include "TrackInfo.h"

#include <array>
#include <cstdio>

namespace {

bool IsTerrainFile(const std::string& path) {
    return HasExtension(path, ".cvtera");
}

int Info(const std::vector<std::string>& args) {
    if (args.size() != 1) return UsageError("info takes one FILE");
    const std::string& path = args[0];
    if (IsTerrainFile(path)) {
        TerrainRecord record;
        const TerrainReadResult result = ReadTerrainFile(path, record);
        if (!result) return Fail(path + ": " + result.message);
        std::printf("%s\nTerrain:\n%s", path.c_str(), DescribeTerrain(record.terrain).c_str());
        return 0;
    }
    TrackDocument doc;
    std::vector<ChunkListing> chunks;
    const TrackReadResult result = ReadTrackFile(path, doc, &chunks);
    if (!result) return Fail(path + ": " + result.message);
    std::printf("%s\n%s", path.c_str(), DescribeTrack(doc, chunks).c_str());
    return 0;
}

int Resave(const std::vector<std::string>& args) {
    if (args.size() != 2) return UsageError("resave takes IN and OUT");
    const std::string& in = args[0];
    const std::string& out = args[1];
    if (IsTerrainFile(in)) {
        TerrainRecord record;
        const TerrainReadResult read = ReadTerrainFile(in, record);
        if (!read) return Fail(in + ": " + read.message);
        std::string error;
        if (!WriteTerrainFile(out, record, error)) return Fail(error);
        return 0;
    }
    TrackDocument doc;
    const TrackReadResult read = ReadTrackFile(in, doc);
    if (!read) return Fail(in + ": " + read.message);
    const TrackWriteResult written = WriteTrackFile(out, doc);
    if (!written) return Fail(written.message);
    if (written.path != out) std::printf("written to %s\n", written.path.c_str());
    return 0;
}

// export-terrain IN OUT.cvtera
int ExportTerrain(const std::vector<std::string>& args) {
    if (args.size() != 2) return UsageError("export-terrain takes IN and OUT.cvtera");
    if (!IsTerrainFile(args[1]))
        return UsageError("export-terrain writes a terrain file: OUT must end in .cvtera");
    TerrainRecord record;
    std::string error;
    if (!LoadTerrainFor(args[0], record.terrain, error)) return Fail(error);
    record.terrainInTrack = true;
    if (!WriteTerrainFile(args[1], record, error)) return Fail(error);
    return 0;
}

// import-terrain IN.cvtera|IN.cvtrack OUT
int ImportTerrain(const std::vector<std::string>& args) {
    if (args.size() != 2) return UsageError("import-terrain takes IN and OUT");
    TerrainData terrain;
    std::string error;
    if (!LoadTerrainFor(args[0], terrain, error)) return Fail(error);
    if (!StoreImportedTerrain(args[1], std::move(terrain), error)) return Fail(error);
    return 0;
}

constexpr std::array kFileVerbs{
    CliVerb{"info", "FILE", "summary of a track (.cvtrack) or terrain (.cvtera) file", Info},
    CliVerb{"resave", "IN OUT", "read a track or terrain file and write it back as OUT", Resave},
};

constexpr std::array kTerrainFileVerbs{
    CliVerb{"export-terrain", "IN OUT.cvtera", "the terrain of a track or terrain file as a terrain file",
            ExportTerrain},
    CliVerb{"import-terrain", "IN OUT", "the terrain of IN (.cvtera or .cvtrack) into OUT", ImportTerrain},
};

} // namespace

std::span<const CliVerb> FileVerbs() {
    return kFileVerbs;
}

std::span<const CliVerb> TerrainFileVerbs() {
    return kTerrainFileVerbs;
}
