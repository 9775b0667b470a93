#pragma once
// Reading and writing whole track files (".cvtrack").
//
// The file: magic "CRVT", a long with the bytes that follow it, four version bytes, 16 reserved
// bytes, the number of top-level chunks, then the chunks. Sub-chunks follow their parent and are
// walked as if they were top-level: each chunk read adds its closing sub-chunk count to the
// number of chunks still to read. Everything is big-endian.

#include "TrackDocument.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

enum class TrackReadStatus { Ok, InvalidName, NotFound, Unreadable, NotATrack, Corrupt };

struct TrackReadResult {
    TrackReadStatus status = TrackReadStatus::Ok;
    std::string message; // says what failed and where, for logs and the command line
    explicit operator bool() const { return status == TrackReadStatus::Ok; }
};

// One chunk as the reader met it, for listings.
struct ChunkListing {
    std::string id;
    std::int32_t length = 0;
    std::size_t offset = 0; // of the id
    bool known = true;
};

// Parses a whole track file image into doc. On failure doc is left reset (the environment names
// of the previously read file kept, as on success when the file has none).
TrackReadResult ParseTrack(std::span<const std::uint8_t> bytes, TrackDocument& doc,
                           std::vector<ChunkListing>* listing = nullptr);

// Refuses an empty path, one not ending in ".cvtrack" (any case) and a missing file before
// reading; then parses the file.
TrackReadResult ReadTrackFile(const std::string& path, TrackDocument& doc,
                              std::vector<ChunkListing>* listing = nullptr);

// Lengths of every chunk as the writer computes them, sub-chunks included for containers.
struct TrackChunkLengths {
    std::int64_t track, info, bezier, segments, supports, footers, railConnectors, freeNodes, tubes, catwalks,
        scene, sceneryObjects, terrain, environment, file;
};
TrackChunkLengths ComputeChunkLengths(const TrackDocument& doc);

// The whole file image for doc: version 1, 3, 0, 0, reserved runs zero, lengths recomputed,
// "TERA" only when doc.terrain.terrainInTrack.
std::vector<std::uint8_t> SerializeTrack(const TrackDocument& doc);

// The path a track is written to: ".cvtrack" appended unless it already ends so (any case).
std::string TrackWritePath(const std::string& path);

struct TrackWriteResult {
    bool ok = false;
    std::string path;    // the path written (or attempted)
    std::string message; // the reason when not ok
    explicit operator bool() const { return ok; }
};

// Writes doc atomically: a failed write leaves any previous file untouched.
TrackWriteResult WriteTrackFile(const std::string& path, const TrackDocument& doc);
