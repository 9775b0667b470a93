// The track's own chunks: TRCK, INFO, BEZR and SEGM.
#include "TrackChunks.h"

#include "ChunkFraming.h"

#include <bit>
#include <span>

namespace {

// Layout of a segment's type-specific part: runs of reserved bytes ('z') and of kept values
// (singles 'f', bytes 'b', bools 'o').
struct FieldRun {
    char kind;
    int count;
};

constexpr FieldRun kType0[] = {{'z', 4}};
constexpr FieldRun kType1[] = {{'z', 4}, {'f', 4}, {'b', 2}, {'o', 1}, {'b', 1}, {'f', 1}, {'z', 4}, {'o', 1},
                               {'f', 1}, {'z', 4}, {'f', 2}, {'z', 4}, {'o', 1}, {'f', 3}, {'z', 64}};
constexpr FieldRun kType2[] = {{'z', 7}, {'b', 1}, {'f', 3}, {'z', 4}, {'o', 2}, {'z', 14}};
constexpr FieldRun kType3[] = {{'z', 4}, {'f', 3}, {'z', 3}, {'b', 1}, {'o', 2}, {'z', 10}};
constexpr FieldRun kType4[] = {{'z', 4}, {'f', 3}, {'z', 4}, {'f', 1},
                               {'o', 2}, {'f', 3}, {'o', 3}, {'z', 13}};

std::span<const FieldRun> SegmentLayout(std::int32_t type) {
    switch (type) {
    case kTrack:
        return kType0;
    case kStation:
        return kType1;
    case kLift:
        return kType2;
    case kTransport:
        return kType3;
    case kBrake:
        return kType4;
    default:
        return {};
    }
}

int RunBytes(const FieldRun& run) {
    return run.kind == 'f' ? 4 * run.count : run.count;
}

void ReadSegmentPart(ByteReader& reader, Segment& segment) {
    segment.details.clear();
    for (const FieldRun& run : SegmentLayout(segment.type)) {
        if (run.kind == 'z') {
            reader.Skip(static_cast<std::size_t>(run.count));
            continue;
        }
        for (int i = 0; i < run.count; ++i) {
            std::uint32_t raw = 0;
            if (run.kind == 'f') {
                float value = 0.0f;
                reader.ReadSingle(value);
                raw = std::bit_cast<std::uint32_t>(value);
            } else {
                std::uint8_t value = 0;
                reader.ReadByte(value);
                raw = run.kind == 'o' ? (value != 0 ? 1u : 0u) : value;
            }
            segment.details.push_back(raw);
        }
    }
}

void WriteSegmentPart(ByteWriter& writer, const Segment& segment) {
    std::size_t next = 0;
    for (const FieldRun& run : SegmentLayout(segment.type)) {
        if (run.kind == 'z') {
            writer.WriteZeros(static_cast<std::size_t>(run.count));
            continue;
        }
        for (int i = 0; i < run.count; ++i, ++next) {
            // A segment built in code may carry fewer values than its type holds: the rest are 0.
            const std::uint32_t raw = next < segment.details.size() ? segment.details[next] : 0;
            if (run.kind == 'f')
                writer.WriteLong(static_cast<std::int32_t>(raw));
            else if (run.kind == 'o')
                writer.WriteBool(raw != 0);
            else
                writer.WriteByte(static_cast<std::uint8_t>(raw));
        }
    }
}

constexpr std::size_t kTrackEntryMinBytes = 28;
constexpr std::size_t kBezierVertexBytes = 60;
constexpr std::size_t kSegmentMinBytes = 33;

} // namespace

int SegmentPartBytes(std::int32_t type) {
    int bytes = 0;
    for (const FieldRun& run : SegmentLayout(type))
        bytes += RunBytes(run);
    return bytes;
}

int SegmentPartValues(std::int32_t type) {
    int values = 0;
    for (const FieldRun& run : SegmentLayout(type))
        if (run.kind != 'z') values += run.count;
    return values;
}

// ---- TRCK ----

std::int64_t OwnSize(const TrackRecord& record) {
    std::int64_t size = 64;
    for (const TrackEntry& entry : record.entries)
        size += 28 + static_cast<std::int64_t>(entry.name.size());
    return size;
}

bool ReadChunk(ByteReader& reader, TrackRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.ReadLong(record.trackStyle);
    std::int32_t count = 0;
    reader.ReadLong(count);
    reader.ReadLong(record.trackValue);
    if (!reader.CanHold(count, kTrackEntryMinBytes)) return false;
    record.entries.assign(static_cast<std::size_t>(count), TrackEntry{});
    for (TrackEntry& entry : record.entries) {
        reader.ReadBool(entry.flag);
        reader.Skip(7);
        if (!reader.ReadString(entry.name)) return false;
        ReadColours(reader, entry.colours);
    }
    ReadColours(reader, record.colours);
    reader.Skip(16);
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const TrackRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "TRCK", length);
    writer.WriteLong(record.trackStyle);
    writer.WriteLong(static_cast<std::int32_t>(record.entries.size()));
    writer.WriteLong(record.trackValue);
    for (const TrackEntry& entry : record.entries) {
        writer.WriteBool(entry.flag);
        writer.WriteZeros(7);
        writer.WriteString(entry.name);
        WriteColours(writer, entry.colours);
    }
    WriteColours(writer, record.colours);
    writer.WriteZeros(16);
    writer.WriteLong(4);
}

// ---- INFO ----

std::int64_t OwnSize(const InfoRecord& record) {
    return 24 + static_cast<std::int64_t>(record.description.size());
}

bool ReadChunk(ByteReader& reader, InfoRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    reader.ReadString(record.description);
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const InfoRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "INFO", length);
    writer.WriteZeros(16);
    writer.WriteString(record.description);
    writer.WriteLong(0);
}

// ---- BEZR ----

std::int64_t OwnSize(const BezierRecord& record) {
    return 40 + 60 * static_cast<std::int64_t>(record.vertices.size());
}

bool ReadChunk(ByteReader& reader, BezierRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    std::int32_t count = 0;
    if (!ReadCount(reader, count, kBezierVertexBytes)) return false;
    record.vertices.assign(static_cast<std::size_t>(count), BezierVertex{});
    for (BezierVertex& vertex : record.vertices) {
        ReadSingles(reader, vertex.values);
        for (bool& flag : vertex.flags)
            reader.ReadBool(flag);
        reader.Skip(17);
    }
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const BezierRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "BEZR", length);
    writer.WriteZeros(16);
    writer.WriteLong(static_cast<std::int32_t>(record.vertices.size()));
    for (const BezierVertex& vertex : record.vertices) {
        WriteSingles(writer, vertex.values);
        for (bool flag : vertex.flags)
            writer.WriteBool(flag);
        writer.WriteZeros(17);
    }
    writer.WriteLong(0);
}

// ---- SEGM ----

std::int64_t OwnSize(const SegmentRecord& record) {
    std::int64_t size = 41;
    for (const Segment& segment : record.segments)
        size += 33 + SegmentPartBytes(segment.type);
    return size;
}

bool ReadChunk(ByteReader& reader, SegmentRecord& record) {
    reader.ReadLong(record.frame.length);
    std::int32_t count = 0;
    if (!ReadCount(reader, count, kSegmentMinBytes)) return false;
    reader.ReadBool(record.flag);
    reader.Skip(16);
    record.segments.assign(static_cast<std::size_t>(count), Segment{});
    for (Segment& segment : record.segments) {
        reader.ReadLong(segment.type);
        reader.ReadBool(segment.flag1);
        ReadColours(reader, segment.colours);
        reader.ReadBool(segment.flag2);
        reader.Skip(15);
        if (!reader.Ok()) return false;
        ReadSegmentPart(reader, segment);
    }
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const SegmentRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "SEGM", length);
    writer.WriteLong(static_cast<std::int32_t>(record.segments.size()));
    writer.WriteBool(record.flag);
    writer.WriteZeros(16);
    for (const Segment& segment : record.segments) {
        writer.WriteLong(segment.type);
        writer.WriteBool(segment.flag1);
        WriteColours(writer, segment.colours);
        writer.WriteBool(segment.flag2);
        writer.WriteZeros(15);
        WriteSegmentPart(writer, segment);
    }
    writer.WriteLong(0);
}
