#include "CliTerrain.h"

#include "FileIO.h"
#include "PathUtil.h"
#include "TerrainFile.h"
#include "TrackFile.h"

#include <cstdio>

int Fail(const std::string& message) {
    std::fprintf(stderr, "landwright-cli: %s\n", message.c_str());
    return 1;
}

int UsageError(const std::string& message) {
    std::fprintf(stderr, "landwright-cli: %s\n%s", message.c_str(), UsageText().c_str());
    return 2;
}

bool LoadTerrainFor(const std::string& in, TerrainData& terrain, std::string& error) {
    TerrainRecord record;
    if (HasExtension(in, ".cvtera")) {
        const TerrainReadResult read = ReadTerrainFile(in, record);
        if (!read) {
            error = in + ": " + read.message;
            return false;
        }
    } else {
        TrackDocument doc;
        const TrackReadResult read = ReadTrackFile(in, doc);
        if (!read) {
            error = in + ": " + read.message;
            return false;
        }
        if (!doc.terrain.terrainInTrack) {
            error = in + ": the track holds no terrain";
            return false;
        }
        record = std::move(doc.terrain);
    }
    terrain = std::move(record.terrain);
    return true;
}

bool StoreImportedTerrain(const std::string& out, TerrainData terrain, std::string& error) {
    ApplyTerrainDefaults(terrain);
    TerrainRecord record;
    record.terrain = std::move(terrain);
    record.terrainInTrack = true;
    if (HasExtension(out, ".cvtera")) return WriteTerrainFile(out, record, error);
    if (!HasExtension(out, ".cvtrack") || !FileExists(out)) {
        error = out + ": the terrain goes to a terrain file (.cvtera) or an existing track (.cvtrack)";
        return false;
    }
    std::vector<std::uint8_t> image;
    if (!ReadWholeFile(out, image, error)) return false;
    if (!ReplaceTerrainInTrackImage(image, record, error)) {
        error = out + ": " + error;
        return false;
    }
    return WriteFileAtomically(out, image, error);
}
