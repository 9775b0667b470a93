#pragma once
// Reader, writer and length of each chunk kind of the track file.
//
// A chunk is: four id bytes, a long L (the bytes that follow it up to the end of the chunk,
// sub-chunks included), the chunk's own fields, and a closing long with the number of sub-chunks
// that follow it. Readers start after the id and walk the fields without ever trusting L; they
// fail (return false) on data that runs out or counts that cannot fit in what is left. Writers
// write the id, the given L, the fields and the closing count.
//
// OwnSize gives the length the simulator's tools write for each chunk before its sub-chunks are
// added. For BEZR, SEGM, FUND, RASC, FREN, TUBE, CATW, SCEN and SCOB that is 16 more than the
// bytes of the fields: files must carry the same lengths, so the surplus is kept and it carries
// up into the lengths of TRCK, SUPP, SCEN and the file header.

#include "ByteStream.h"
#include "TrackDocument.h"

#include <cstdint>

std::int64_t OwnSize(const TrackRecord& record);
std::int64_t OwnSize(const InfoRecord& record);
std::int64_t OwnSize(const BezierRecord& record);
std::int64_t OwnSize(const SegmentRecord& record);
std::int64_t OwnSize(const SupportRecord& record);
std::int64_t OwnSize(const FooterRecord& record);
std::int64_t OwnSize(const RailConnectorRecord& record);
std::int64_t OwnSize(const FreeNodeRecord& record);
std::int64_t OwnSize(const TubeRecord& record);
std::int64_t OwnSize(const CatwalkRecord& record);
std::int64_t OwnSize(const SceneRecord& record);
std::int64_t OwnSize(const SceneryObjectRecord& record);
std::int64_t OwnSize(const TerrainRecord& record);
std::int64_t OwnSize(const EnvironmentRecord& record);

// Bytes of the type-specific part of a segment of the given type (0 for types without one).
int SegmentPartBytes(std::int32_t type);
// Number of kept values in that part.
int SegmentPartValues(std::int32_t type);

bool ReadChunk(ByteReader& reader, TrackRecord& record);
bool ReadChunk(ByteReader& reader, InfoRecord& record);
bool ReadChunk(ByteReader& reader, BezierRecord& record);
bool ReadChunk(ByteReader& reader, SegmentRecord& record);
bool ReadChunk(ByteReader& reader, SupportRecord& record);
bool ReadChunk(ByteReader& reader, FooterRecord& record);
bool ReadChunk(ByteReader& reader, RailConnectorRecord& record);
bool ReadChunk(ByteReader& reader, FreeNodeRecord& record);
bool ReadChunk(ByteReader& reader, TubeRecord& record);
bool ReadChunk(ByteReader& reader, CatwalkRecord& record);
bool ReadChunk(ByteReader& reader, SceneRecord& record);
bool ReadChunk(ByteReader& reader, SceneryObjectRecord& record);
// Sets terrainInTrack only when the whole chunk was read and the grid is usable (1 to 513 points
// per side, positive finite spacings, finite heights).
bool ReadChunk(ByteReader& reader, TerrainRecord& record);
bool ReadChunk(ByteReader& reader, EnvironmentRecord& record);

void WriteChunk(ByteWriter& writer, const TrackRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const InfoRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const BezierRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const SegmentRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const SupportRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const FooterRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const RailConnectorRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const FreeNodeRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const TubeRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const CatwalkRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const SceneRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const SceneryObjectRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const TerrainRecord& record, std::int32_t length);
void WriteChunk(ByteWriter& writer, const EnvironmentRecord& record, std::int32_t length);

// The whole "TERA" chunk (id included) as a track file carries it; a terrain file is exactly this.
void WriteTerrainChunk(ByteWriter& writer, const TerrainRecord& record);
