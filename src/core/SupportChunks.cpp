// The support chunks: SUPP and its FUND, RASC, FREN, TUBE and CATW.
#include "TrackChunks.h"

#include "ChunkFraming.h"

#include <algorithm>

namespace {

constexpr std::size_t kFooterBytes = 92;
constexpr std::size_t kRailGroupMinBytes = 4;
constexpr std::size_t kRailConnectorBytes = 24;
constexpr std::size_t kFreeNodeBytes = 28;
constexpr std::size_t kTubeBytes = 48;
constexpr std::size_t kCatwalkMinBytes = 28;

void ReadNodeRef(ByteReader& reader, NodeRef& node) {
    reader.ReadLong(node.kind);
    reader.ReadLong(node.entry);
    reader.ReadLong(node.item);
}

void WriteNodeRef(ByteWriter& writer, const NodeRef& node) {
    writer.WriteLong(node.kind);
    writer.WriteLong(node.entry);
    writer.WriteLong(node.item);
}

} // namespace

// ---- SUPP ----

std::int64_t OwnSize(const SupportRecord&) {
    return 36;
}

bool ReadChunk(ByteReader& reader, SupportRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(32);
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const SupportRecord&, std::int32_t length) {
    WriteChunkStart(writer, "SUPP", length);
    writer.WriteZeros(32);
    writer.WriteLong(5);
}

// ---- FUND ----

std::int64_t OwnSize(const FooterRecord& record) {
    return 40 + 92 * static_cast<std::int64_t>(record.footers.size());
}

bool ReadChunk(ByteReader& reader, FooterRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    std::int32_t count = 0;
    if (!ReadCount(reader, count, kFooterBytes)) return false;
    record.footers.assign(static_cast<std::size_t>(count), Footer{});
    for (Footer& footer : record.footers) {
        reader.ReadByte(footer.byte1);
        reader.ReadSingle(footer.single1);
        reader.ReadByte(footer.byte2);
        reader.ReadSingle(footer.single2);
        reader.Skip(6);
        ReadSingles(reader, footer.position);
        reader.Skip(64);
    }
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const FooterRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "FUND", length);
    writer.WriteZeros(16);
    writer.WriteLong(static_cast<std::int32_t>(record.footers.size()));
    for (const Footer& footer : record.footers) {
        writer.WriteByte(footer.byte1);
        writer.WriteSingle(footer.single1);
        writer.WriteByte(footer.byte2);
        writer.WriteSingle(footer.single2);
        writer.WriteZeros(6);
        WriteSingles(writer, footer.position);
        writer.WriteZeros(64);
    }
    writer.WriteLong(0);
}

// ---- RASC ----

std::int64_t OwnSize(const RailConnectorRecord& record) {
    std::int64_t size = 40;
    for (const auto& group : record.groups)
        size += 4 + 24 * static_cast<std::int64_t>(group.size());
    return size;
}

bool ReadChunk(ByteReader& reader, RailConnectorRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    std::int32_t count = 0;
    if (!ReadCount(reader, count, kRailGroupMinBytes)) return false;
    record.groups.assign(static_cast<std::size_t>(count), {});
    for (auto& group : record.groups) {
        std::int32_t items = 0;
        if (!ReadCount(reader, items, kRailConnectorBytes)) return false;
        group.assign(static_cast<std::size_t>(items), RailConnector{});
        for (RailConnector& connector : group) {
            reader.ReadLong(connector.stretch);
            reader.ReadSingle(connector.parameter);
            reader.Skip(16);
        }
    }
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const RailConnectorRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "RASC", length);
    writer.WriteZeros(16);
    writer.WriteLong(static_cast<std::int32_t>(record.groups.size()));
    for (const auto& group : record.groups) {
        writer.WriteLong(static_cast<std::int32_t>(group.size()));
        for (const RailConnector& connector : group) {
            writer.WriteLong(connector.stretch);
            writer.WriteSingle(connector.parameter);
            writer.WriteZeros(16);
        }
    }
    writer.WriteLong(0);
}

// ---- FREN ----

std::int64_t OwnSize(const FreeNodeRecord& record) {
    return 40 + 28 * static_cast<std::int64_t>(record.nodes.size());
}

bool ReadChunk(ByteReader& reader, FreeNodeRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    std::int32_t count = 0;
    if (!ReadCount(reader, count, kFreeNodeBytes)) return false;
    record.nodes.assign(static_cast<std::size_t>(count), FreeNode{});
    for (FreeNode& node : record.nodes) {
        ReadSingles(reader, node.position);
        reader.Skip(16);
    }
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const FreeNodeRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "FREN", length);
    writer.WriteZeros(16);
    writer.WriteLong(static_cast<std::int32_t>(record.nodes.size()));
    for (const FreeNode& node : record.nodes) {
        WriteSingles(writer, node.position);
        writer.WriteZeros(16);
    }
    writer.WriteLong(0);
}

// ---- TUBE ----

std::int64_t OwnSize(const TubeRecord& record) {
    return 40 + 48 * static_cast<std::int64_t>(record.tubes.size());
}

bool ReadChunk(ByteReader& reader, TubeRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    std::int32_t count = 0;
    if (!ReadCount(reader, count, kTubeBytes)) return false;
    record.tubes.assign(static_cast<std::size_t>(count), Tube{});
    for (Tube& tube : record.tubes) {
        ReadNodeRef(reader, tube.nodeA);
        reader.Skip(4);
        ReadNodeRef(reader, tube.nodeB);
        reader.Skip(4);
        ReadLongs(reader, tube.longs);
        reader.ReadSingle(tube.diameter);
        reader.Skip(4);
    }
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const TubeRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "TUBE", length);
    writer.WriteZeros(16);
    writer.WriteLong(static_cast<std::int32_t>(record.tubes.size()));
    for (const Tube& tube : record.tubes) {
        WriteNodeRef(writer, tube.nodeA);
        writer.WriteZeros(4);
        WriteNodeRef(writer, tube.nodeB);
        writer.WriteZeros(4);
        WriteLongs(writer, tube.longs);
        writer.WriteSingle(tube.diameter);
        writer.WriteZeros(4);
    }
    writer.WriteLong(0);
}

// ---- CATW ----

std::int64_t OwnSize(const CatwalkRecord& record) {
    std::int64_t size = 40;
    for (const Catwalk& catwalk : record.catwalks)
        size += 28 + static_cast<std::int64_t>(std::max(catwalk.trailingBytes, 0));
    return size;
}

bool ReadChunk(ByteReader& reader, CatwalkRecord& record) {
    reader.ReadLong(record.frame.length);
    reader.Skip(16);
    std::int32_t count = 0;
    if (!ReadCount(reader, count, kCatwalkMinBytes)) return false;
    record.catwalks.assign(static_cast<std::size_t>(count), Catwalk{});
    for (Catwalk& catwalk : record.catwalks) {
        ReadLongs(reader, catwalk.longs);
        reader.ReadLong(catwalk.trailingBytes);
        // The trailing bytes carry nothing the editor keeps; a negative count is a damaged file.
        if (catwalk.trailingBytes < 0 || !reader.Skip(static_cast<std::size_t>(catwalk.trailingBytes)))
            return false;
    }
    return ReadChunkEnd(reader, record.frame);
}

void WriteChunk(ByteWriter& writer, const CatwalkRecord& record, std::int32_t length) {
    WriteChunkStart(writer, "CATW", length);
    writer.WriteZeros(16);
    writer.WriteLong(static_cast<std::int32_t>(record.catwalks.size()));
    for (const Catwalk& catwalk : record.catwalks) {
        WriteLongs(writer, catwalk.longs);
        writer.WriteLong(catwalk.trailingBytes);
        writer.WriteZeros(static_cast<std::size_t>(std::max(catwalk.trailingBytes, 0)));
    }
    writer.WriteLong(0);
}
