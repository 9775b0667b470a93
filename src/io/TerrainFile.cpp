#include "TerrainFile.h"

#include "FileIO.h"
#include "TrackChunks.h"
#include "TrackFile.h"

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

namespace {

constexpr std::size_t kLengthField = 4;      // the long after "CRVT": the bytes that follow it
constexpr std::size_t kChunkCountField = 28; // the number of top-level chunks

void PutLong(std::vector<std::uint8_t>& image, std::size_t at, std::int64_t value) {
    const auto v = static_cast<std::uint32_t>(value);
    for (std::size_t i = 0; i < 4; ++i)
        image[at + i] = static_cast<std::uint8_t>(v >> (8 * (3 - i)));
}

std::int64_t GetLong(const std::vector<std::uint8_t>& image, std::size_t at) {
    std::uint32_t v = 0;
    for (std::size_t i = 0; i < 4; ++i)
        v = (v << 8) | image[at + i];
    return static_cast<std::int32_t>(v);
}

} // namespace

bool ReplaceTerrainInTrackImage(std::vector<std::uint8_t>& image, const TerrainRecord& record,
                                std::string& error) {
    TrackDocument doc;
    std::vector<ChunkListing> chunks;
    const TrackReadResult read = ParseTrack(image, doc, &chunks);
    if (!read) {
        error = read.message;
        return false;
    }
    std::size_t begin = image.size();
    std::size_t end = image.size();
    bool replacing = false;
    for (std::size_t i = 0; i < chunks.size(); ++i) {
        if (chunks[i].id == "TERA") {
            begin = chunks[i].offset;
            end = i + 1 < chunks.size() ? chunks[i + 1].offset : image.size();
            replacing = true;
            break;
        }
        if (chunks[i].id == "ENVC") begin = end = chunks[i].offset;
    }
    TerrainRecord written = record;
    written.terrainInTrack = true;
    const std::vector<std::uint8_t> chunk = SerializeTerrainFile(written);
    const auto removed = static_cast<std::ptrdiff_t>(end - begin);
    image.erase(image.begin() + static_cast<std::ptrdiff_t>(begin),
                image.begin() + static_cast<std::ptrdiff_t>(end));
    image.insert(image.begin() + static_cast<std::ptrdiff_t>(begin), chunk.begin(), chunk.end());
    PutLong(image, kLengthField,
            GetLong(image, kLengthField) + static_cast<std::ptrdiff_t>(chunk.size()) - removed);
    if (!replacing) PutLong(image, kChunkCountField, GetLong(image, kChunkCountField) + 1);
    return true;
}

std::vector<std::uint8_t> SerializeTerrainFile(const TerrainRecord& record) {
    ByteWriter writer;
    WriteTerrainChunk(writer, record);
    return writer.Take();
}

bool WriteTerrainFile(const std::string& path, const TerrainRecord& record, std::string& error) {
    return WriteFileAtomically(path, SerializeTerrainFile(record), error);
}
