#include "TerrainFile.h"

#include "FileIO.h"
#include "TrackChunks.h"

#include <algorithm>
#include <iterator>

TerrainReadResult ParseTerrainFile(std::span<const std::uint8_t> bytes, TerrainRecord& record) {
    ByteReader reader(bytes);
    std::string id;
    if (!reader.ReadChunkId(id) || id != "TERA")
        return {TerrainReadStatus::NotATerrain, "not a terrain file: it does not begin with TERA"};
    TerrainRecord read;
    if (!ReadChunk(reader, read) || !read.terrainInTrack)
        return {TerrainReadStatus::Corrupt, "the terrain chunk is truncated or corrupt"};
    record = std::move(read);
    return {};
}

TerrainReadResult ScanTrackForTerrain(std::span<const std::uint8_t> bytes, TerrainRecord& record) {
    constexpr std::uint8_t kTrackMagic[] = {'C', 'R', 'V', 'T'};
    constexpr std::uint8_t kTerrainId[] = {'T', 'E', 'R', 'A'};
    if (bytes.size() < 4 || !std::equal(std::begin(kTrackMagic), std::end(kTrackMagic), bytes.begin()))
        return {TerrainReadStatus::NotATrack, "not a track file: it does not begin with CRVT"};
    const auto found =
        std::search(bytes.begin() + 4, bytes.end(), std::begin(kTerrainId), std::end(kTerrainId));
    if (found == bytes.end()) return {TerrainReadStatus::NoTerrain, "the track file holds no terrain"};
    const auto at = static_cast<std::size_t>(found - bytes.begin());
    ByteReader reader(bytes, at + 4);
    TerrainRecord read;
    if (!ReadChunk(reader, read) || !read.terrainInTrack)
        return {TerrainReadStatus::Corrupt,
                "the terrain chunk at byte " + std::to_string(at) + " is truncated or corrupt"};
    record = std::move(read);
    return {};
}

TerrainReadResult ReadTerrainFile(const std::string& path, TerrainRecord& record) {
    std::vector<std::uint8_t> bytes;
    std::string error;
    if (!ReadWholeFile(path, bytes, error)) return {TerrainReadStatus::Unreadable, error};
    return ParseTerrainFile(bytes, record);
}

std::vector<std::uint8_t> SerializeTerrainFile(const TerrainRecord& record) {
    ByteWriter writer;
    WriteTerrainChunk(writer, record);
    return writer.Take();
}

bool WriteTerrainFile(const std::string& path, const TerrainRecord& record, std::string& error) {
    return WriteFileAtomically(path, SerializeTerrainFile(record), error);
}
