#pragma once
// Track file images for the core tests: chunks found by id, big-endian longs read and patched in
// place, and two documents compared record by record.

#include "SampleTrack.h"
#include "TrackChunks.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

#include <stdexcept>

// A file image and where the reader met each of its chunks.
struct LocatedTrack {
    std::vector<std::uint8_t> bytes;
    std::vector<ChunkListing> chunks;
    std::size_t Offset(const std::string& id) const {
        for (const ChunkListing& c : chunks)
            if (c.id == id) return c.offset;
        ADD_FAILURE() << "no chunk " << id;
        return 0;
    }
};

inline LocatedTrack Locate(const TrackDocument& doc) {
    LocatedTrack l{SerializeTrack(doc), {}};
    TrackDocument read;
    EXPECT_TRUE(ParseTrack(l.bytes, read, &l.chunks));
    return l;
}

inline std::int32_t GetLong(const std::vector<std::uint8_t>& bytes, std::size_t at) {
    return static_cast<std::int32_t>((std::uint32_t{bytes.at(at)} << 24) |
                                     (std::uint32_t{bytes.at(at + 1)} << 16) |
                                     (std::uint32_t{bytes.at(at + 2)} << 8) | bytes.at(at + 3));
}

inline void SetLong(std::vector<std::uint8_t>& bytes, std::size_t at, std::int32_t value) {
    if (bytes.size() < 4 || at > bytes.size() - 4) throw std::out_of_range("long past the end");
    for (int i = 0; i < 4; ++i)
        bytes[at + static_cast<std::size_t>(i)] =
            static_cast<std::uint8_t>(static_cast<std::uint32_t>(value) >> (24 - 8 * i));
}

// Every value a document keeps, apart from what the reader only records (frames, version, counts).
inline void ExpectSameRecords(const TrackDocument& read, const TrackDocument& original) {
    EXPECT_EQ(read.track.trackStyle, original.track.trackStyle);
    EXPECT_EQ(read.track.trackValue, original.track.trackValue);
    EXPECT_EQ(read.track.entries, original.track.entries);
    EXPECT_EQ(read.track.colours, original.track.colours);
    EXPECT_EQ(read.info.description, original.info.description);
    EXPECT_EQ(read.bezier.vertices, original.bezier.vertices);
    EXPECT_EQ(read.segments.flag, original.segments.flag);
    EXPECT_EQ(read.segments.segments, original.segments.segments);
    EXPECT_EQ(read.footers.footers, original.footers.footers);
    EXPECT_EQ(read.railConnectors.groups, original.railConnectors.groups);
    EXPECT_EQ(read.freeNodes.nodes, original.freeNodes.nodes);
    EXPECT_EQ(read.tubes.tubes, original.tubes.tubes);
    EXPECT_EQ(read.catwalks.catwalks, original.catwalks.catwalks);
    EXPECT_EQ(read.scene.entries, original.scene.entries);
    EXPECT_EQ(read.sceneryObjects.objects, original.sceneryObjects.objects);
    EXPECT_EQ(read.terrain.terrainInTrack, original.terrain.terrainInTrack);
    EXPECT_EQ(read.terrain.terrain, original.terrain.terrain);
    EXPECT_EQ(read.environment.name1 + "/" + read.environment.name2,
              original.environment.name1 + "/" + original.environment.name2);
}
