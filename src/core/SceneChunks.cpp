// The scene and environment chunks: SCEN, SCOB, TERA and ENVC.
#include "TrackChunks.h"

#include "ChunkFraming.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t kSceneEntryBytes = 64;
constexpr std::size_t kSceneryObjectMinBytes = 88;

bool UsableGrid(const TerrainData& terrain) {
    return terrain.columns >= 1 && terrain.columns <= kMaxGridSide && terrain.rows >= 1 &&
           terrain.rows <= kMaxGridSide && std::isfinite(terrain.spacingX) && terrain.spacingX > 0.0f &&
           std::isfinite(terrain.spacingZ) && terrain.spacingZ > 0.0f &&
           std::isfinite(terrain.groundTiling) && std::isfinite(terrain.detailTiling) &&
           std::isfinite(terrain.waterTiling);
}

bool FiniteHeights(const HeightGrid& heights) {
    const float* values = heights.Data();
    for (std::size_t i = 0; i < heights.Size(); ++i)
        if (!std::isfinite(values[i])) return false;
    return true;
}

std::int64_t GridPoints(const TerrainData& terrain) {
    return std::int64_t{std::max(terrain.columns, 0)} * std::max(terrain.rows, 0);
}

} // namespace

// ---- SCEN ----

std::int64_t OwnSize(const SceneRecord& record) {
    return 40 + 64 * static_cast<std::int64_t>(record.entries.size());
}

bool ReadChunk(ByteReader& reader, SceneRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    std::int32_t count = 0;
    if (!ReadCount(reader, count, kSceneEntryBytes)) return false;
    record.entries.assign(static_cast<std::size_t>(count), SceneEntry{});
    for (SceneEntry& entry : record.entries) {
        ReadSingles(reader, entry.position);
        reader.ReadLong(entry.value);
        reader.ReadSingle(entry.kind);
        reader.Skip(44);
    }
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const SceneRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "SCEN", length);
    writer.WriteZeros(16);
    writer.WriteLong(static_cast<std::int32_t>(record.entries.size()));
    for (const SceneEntry& entry : record.entries) {
        WriteSingles(writer, entry.position);
        writer.WriteLong(entry.value);
        writer.WriteSingle(entry.kind);
        writer.WriteZeros(44);
    }
    writer.WriteLong(1);
}

// ---- SCOB ----

std::int64_t OwnSize(const SceneryObjectRecord& record) {
    std::int64_t size = 40;
    for (const SceneryObject& object : record.objects)
        size += 88 + static_cast<std::int64_t>(object.name1.size() + object.name2.size());
    return size;
}

bool ReadChunk(ByteReader& reader, SceneryObjectRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    std::int32_t count = 0;
    if (!ReadCount(reader, count, kSceneryObjectMinBytes)) return false;
    record.objects.assign(static_cast<std::size_t>(count), SceneryObject{});
    for (SceneryObject& object : record.objects) {
        if (!reader.ReadString(object.name1) || !reader.ReadString(object.name2)) return false;
        ReadSingles(reader, object.values);
        reader.Skip(20);
    }
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const SceneryObjectRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "SCOB", length);
    writer.WriteZeros(16);
    writer.WriteLong(static_cast<std::int32_t>(record.objects.size()));
    for (const SceneryObject& object : record.objects) {
        writer.WriteString(object.name1);
        writer.WriteString(object.name2);
        WriteSingles(writer, object.values);
        writer.WriteZeros(20);
    }
    writer.WriteLong(0);
}

// ---- TERA ----

std::int64_t OwnSize(const TerrainRecord& record) {
    const TerrainData& t = record.terrain;
    return 81 +
           static_cast<std::int64_t>(t.groundTexture.size() + t.detailTexture.size() +
                                     t.waterTexture.size()) +
           4 * GridPoints(t);
}

bool ReadChunk(ByteReader& reader, TerrainRecord& record) {
    TerrainData t;
    reader.ReadLong(record.frame.length);
    reader.ReadLong(t.columns);
    reader.ReadLong(t.rows);
    reader.ReadSingle(t.spacingX);
    reader.ReadSingle(t.spacingZ);
    reader.ReadString(t.groundTexture);
    reader.ReadSingle(t.groundTiling);
    reader.ReadString(t.detailTexture);
    reader.ReadSingle(t.detailTiling);
    reader.ReadBool(t.waterEnabled);
    reader.Skip(4);
    reader.ReadString(t.waterTexture);
    reader.ReadSingle(t.waterTiling);
    reader.ReadByte(t.reflection);
    reader.Skip(15);
    if (!reader.Ok() || !UsableGrid(t)) return false;
    const std::int64_t points = std::int64_t{t.columns} * t.rows;
    if (!reader.CanHold(points, 4)) return false;
    t.heights.Resize(t.columns, t.rows);
    reader.ReadSingles(t.heights.Data(), t.heights.Size());
    reader.Skip(16);
    if (!ReadChunkEnd(reader, record.frame) || !FiniteHeights(t.heights)) return false;
    record.terrain = std::move(t);
    record.terrainInTrack = true;
    return true;
}

void WriteChunk(ByteWriter& writer, const TerrainRecord& record, std::int32_t length) {
    const TerrainData& t = record.terrain;
    WriteChunkStart(writer, "TERA", length);
    writer.WriteLong(t.columns);
    writer.WriteLong(t.rows);
    writer.WriteSingle(t.spacingX);
    writer.WriteSingle(t.spacingZ);
    writer.WriteString(t.groundTexture);
    writer.WriteSingle(t.groundTiling);
    writer.WriteString(t.detailTexture);
    writer.WriteSingle(t.detailTiling);
    writer.WriteBool(t.waterEnabled);
    writer.WriteZeros(4);
    writer.WriteString(t.waterTexture);
    writer.WriteSingle(t.waterTiling);
    writer.WriteByte(t.reflection);
    writer.WriteZeros(15);
    // The header's columns x rows decide how many heights follow; a grid that disagrees is padded
    // with zeros (or cut) so that the chunk stays readable.
    const auto points = static_cast<std::size_t>(GridPoints(t));
    const std::size_t stored = std::min(points, t.heights.Size());
    writer.WriteSingles(t.heights.Data(), stored);
    writer.WriteZeros(4 * (points - stored));
    writer.WriteZeros(16);
    writer.WriteLong(0);
}

void WriteTerrainChunk(ByteWriter& writer, const TerrainRecord& record) {
    WriteChunk(writer, record, static_cast<std::int32_t>(OwnSize(record)));
}

// ---- ENVC ----

std::int64_t OwnSize(const EnvironmentRecord& record) {
    return 44 + static_cast<std::int64_t>(record.name1.size() + record.name2.size());
}

bool ReadChunk(ByteReader& reader, EnvironmentRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    reader.ReadString(record.name1);
    reader.ReadString(record.name2);
    reader.Skip(16);
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const EnvironmentRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "ENVC", length);
    writer.WriteZeros(16);
    writer.WriteString(record.name1);
    writer.WriteString(record.name2);
    writer.WriteZeros(16);
    writer.WriteLong(0);
}
