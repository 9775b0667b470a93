#include "TrackFile.h"

#include "FileIO.h"
#include "PathUtil.h"
#include "TrackChunks.h"

#include <utility>

namespace {

constexpr const char* kTrackExtension = ".cvtrack";

TrackReadResult Failure(TrackReadStatus status, std::string message) {
    return {status, std::move(message)};
}

template <typename Record>
bool ReadInto(ByteReader& reader, Record& record, std::int32_t& length, std::int32_t& closing) {
    const bool ok = ReadChunk(reader, record);
    length = record.frame.length;
    closing = record.frame.subChunkCount;
    return ok;
}

// Reads a chunk of a known kind into its record; `known` is false for any other id.
bool ReadKnownChunk(const std::string& id, ByteReader& reader, TrackDocument& doc, bool& known,
                    std::int32_t& length, std::int32_t& closing) {
    known = true;
    if (id == "TRCK") return ReadInto(reader, doc.track, length, closing);
    if (id == "INFO") return ReadInto(reader, doc.info, length, closing);
    if (id == "BEZR") return ReadInto(reader, doc.bezier, length, closing);
    if (id == "SEGM") return ReadInto(reader, doc.segments, length, closing);
    if (id == "SUPP") return ReadInto(reader, doc.supports, length, closing);
    if (id == "FUND") return ReadInto(reader, doc.footers, length, closing);
    if (id == "RASC") return ReadInto(reader, doc.railConnectors, length, closing);
    if (id == "FREN") return ReadInto(reader, doc.freeNodes, length, closing);
    if (id == "TUBE") return ReadInto(reader, doc.tubes, length, closing);
    if (id == "CATW") return ReadInto(reader, doc.catwalks, length, closing);
    if (id == "SCEN") return ReadInto(reader, doc.scene, length, closing);
    if (id == "SCOB") return ReadInto(reader, doc.sceneryObjects, length, closing);
    if (id == "TERA") return ReadInto(reader, doc.terrain, length, closing);
    if (id == "ENVC") return ReadInto(reader, doc.environment, length, closing);
    known = false;
    return true;
}

std::string Printable(const std::string& id) {
    std::string shown;
    for (char c : id)
        shown += (c >= 32 && c < 127) ? c : '?';
    return shown;
}

TrackReadResult WalkChunks(ByteReader& reader, TrackDocument& doc, std::vector<ChunkListing>* listing) {
    std::string magic;
    if (!reader.ReadChunkId(magic) || magic != "CRVT")
        return Failure(TrackReadStatus::NotATrack, "not a track file: it does not begin with CRVT");
    std::int32_t count = 0;
    reader.ReadLong(doc.headerLength);
    for (std::uint8_t& b : doc.version)
        reader.ReadByte(b);
    reader.Skip(16);
    reader.ReadLong(count);
    if (!reader.Ok()) return Failure(TrackReadStatus::Corrupt, "the file ends inside its header");
    doc.headerChunkCount = count;

    // Every chunk read consumes at least eight bytes, so this loop ends with the data whatever
    // the counts say.
    for (std::int64_t left = count; left > 0;) {
        const std::size_t offset = reader.Position();
        std::string id;
        if (!reader.ReadChunkId(id))
            return Failure(TrackReadStatus::Corrupt,
                           "the file ends where another chunk was expected (at byte " +
                               std::to_string(offset) + ")");
        bool known = true;
        std::int32_t length = 0;
        std::int32_t closing = 0;
        if (!ReadKnownChunk(id, reader, doc, known, length, closing))
            return Failure(TrackReadStatus::Corrupt,
                           "chunk " + id + " at byte " + std::to_string(offset) + " is truncated or corrupt");
        if (!known) {
            // Unknown chunks are skipped by their length plus four bytes, the way the simulator's
            // tools step over them; nothing of them is kept.
            if (!reader.ReadLong(length) || length < 0)
                return Failure(TrackReadStatus::Corrupt, "unknown chunk " + Printable(id) + " at byte " +
                                                             std::to_string(offset) + " has no valid length");
            reader.Advance(static_cast<std::size_t>(length) + 4);
            closing = 0;
        }
        if (listing) listing->push_back({known ? id : Printable(id), length, offset, known});
        left += std::int64_t{closing} - 1;
    }
    return {};
}

} // namespace

TrackReadResult ParseTrack(std::span<const std::uint8_t> bytes, TrackDocument& doc,
                           std::vector<ChunkListing>* listing) {
    TrackDocument fresh;
    fresh.environment = doc.environment;
    ByteReader reader(bytes);
    TrackReadResult result = WalkChunks(reader, fresh, listing);
    if (result)
        doc = std::move(fresh);
    else
        doc.ResetKeepingEnvironment();
    return result;
}

TrackReadResult ReadTrackFile(const std::string& path, TrackDocument& doc,
                              std::vector<ChunkListing>* listing) {
    if (path.empty() || !HasExtension(path, kTrackExtension))
        return Failure(TrackReadStatus::InvalidName,
                       "not a track file name (it must end in .cvtrack): " + path);
    if (!FileExists(path)) return Failure(TrackReadStatus::NotFound, "no such file: " + path);
    std::vector<std::uint8_t> bytes;
    std::string error;
    if (!ReadWholeFile(path, bytes, error)) return Failure(TrackReadStatus::Unreadable, error);
    return ParseTrack(bytes, doc, listing);
}

TrackChunkLengths ComputeChunkLengths(const TrackDocument& doc) {
    TrackChunkLengths l{};
    l.info = OwnSize(doc.info);
    l.bezier = OwnSize(doc.bezier);
    l.segments = OwnSize(doc.segments);
    l.footers = OwnSize(doc.footers);
    l.railConnectors = OwnSize(doc.railConnectors);
    l.freeNodes = OwnSize(doc.freeNodes);
    l.tubes = OwnSize(doc.tubes);
    l.catwalks = OwnSize(doc.catwalks);
    l.supports = OwnSize(doc.supports) + (8 + l.footers) + (8 + l.railConnectors) + (8 + l.freeNodes) +
                 (8 + l.tubes) + (8 + l.catwalks);
    l.track = OwnSize(doc.track) + (8 + l.info) + (8 + l.bezier) + (8 + l.segments) + (8 + l.supports);
    l.sceneryObjects = OwnSize(doc.sceneryObjects);
    l.scene = OwnSize(doc.scene) + (8 + l.sceneryObjects);
    l.terrain = OwnSize(doc.terrain);
    l.environment = OwnSize(doc.environment);
    l.file = 24 + (8 + l.track) + (8 + l.scene) + (doc.terrain.terrainInTrack ? 8 + l.terrain : 0) +
             (8 + l.environment);
    return l;
}

std::vector<std::uint8_t> SerializeTrack(const TrackDocument& doc) {
    const TrackChunkLengths l = ComputeChunkLengths(doc);
    auto len = [](std::int64_t value) { return static_cast<std::int32_t>(value); };
    ByteWriter w;
    w.Reserve(static_cast<std::size_t>(l.file) + 8);
    w.WriteChunkId("CRVT");
    w.WriteLong(len(l.file));
    for (std::uint8_t b : {std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{0}, std::uint8_t{0}})
        w.WriteByte(b);
    w.WriteZeros(16);
    w.WriteLong(doc.terrain.terrainInTrack ? 4 : 3);

    WriteChunk(w, doc.track, len(l.track));
    WriteChunk(w, doc.info, len(l.info));
    WriteChunk(w, doc.bezier, len(l.bezier));
    WriteChunk(w, doc.segments, len(l.segments));
    WriteChunk(w, doc.supports, len(l.supports));
    WriteChunk(w, doc.footers, len(l.footers));
    WriteChunk(w, doc.railConnectors, len(l.railConnectors));
    WriteChunk(w, doc.freeNodes, len(l.freeNodes));
    WriteChunk(w, doc.tubes, len(l.tubes));
    WriteChunk(w, doc.catwalks, len(l.catwalks));
    WriteChunk(w, doc.scene, len(l.scene));
    WriteChunk(w, doc.sceneryObjects, len(l.sceneryObjects));
    if (doc.terrain.terrainInTrack) WriteChunk(w, doc.terrain, len(l.terrain));
    WriteChunk(w, doc.environment, len(l.environment));
    return w.Take();
}

std::string TrackWritePath(const std::string& path) {
    return HasExtension(path, kTrackExtension) ? path : path + kTrackExtension;
}

TrackWriteResult WriteTrackFile(const std::string& path, const TrackDocument& doc) {
    TrackWriteResult result;
    result.path = TrackWritePath(path);
    if (path.empty()) {
        result.message = "no file name given";
        return result;
    }
    result.ok = WriteFileAtomically(result.path, SerializeTrack(doc), result.message);
    return result;
}

void TrackDocument::ResetKeepingEnvironment() {
    EnvironmentRecord environment_ = std::move(environment);
    *this = TrackDocument{};
    environment = std::move(environment_);
}
