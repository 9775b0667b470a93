#include "TerrainFile.h"

#include "FileIO.h"
#include "TrackChunks.h"

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
