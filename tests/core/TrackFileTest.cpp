// Track file round trips, chunk lengths and the reading rules.
#include "TestSupport.h"
#include "TrackBytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <map>

namespace {

std::vector<std::string> ChunkIds(const std::vector<std::uint8_t>& bytes) {
    std::vector<std::string> ids;
    TrackDocument doc;
    std::vector<ChunkListing> listing;
    EXPECT_TRUE(ParseTrack(bytes, doc, &listing));
    for (const ChunkListing& chunk : listing)
        ids.push_back(chunk.id);
    return ids;
}

// A hand-made file: header with version 9, 8, 7, 6 and the chunk count, then the given pieces.
std::vector<std::uint8_t> HandMade(std::int32_t chunkCount,
                                   const std::vector<std::vector<std::uint8_t>>& pieces) {
    std::vector<std::uint8_t> bytes = {'C', 'R', 'V', 'T', 0, 0, 0, 0, 9, 8, 7, 6};
    bytes.resize(32);
    SetLong(bytes, 28, chunkCount);
    for (const auto& piece : pieces)
        bytes.insert(bytes.end(), piece.begin(), piece.end());
    return bytes;
}

// An id and a length, then `body` bytes of `fill`.
std::vector<std::uint8_t> Chunk(const char* id, std::int32_t length, std::size_t body, std::uint8_t fill) {
    std::vector<std::uint8_t> bytes(id, id + 4);
    bytes.resize(8 + body, fill);
    SetLong(bytes, 4, length);
    return bytes;
}

std::vector<std::uint8_t> EnvironmentChunk(const std::string& a, const std::string& b) {
    EnvironmentRecord env;
    env.name1 = a;
    env.name2 = b;
    ByteWriter w;
    WriteChunk(w, env, static_cast<std::int32_t>(OwnSize(env)));
    return w.Take();
}

std::size_t FilesIn(const std::filesystem::path& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

} // namespace

TEST(TrackFileRoundTrip, APlainNameGetsTheExtensionAndTheFileReadsBackWithEveryValueAndTheSameBytes) {
    EXPECT_EQ(TrackWritePath("/t/ride"), "/t/ride.cvtrack");
    EXPECT_EQ(TrackWritePath("/t/ride.CvTrack"), "/t/ride.CvTrack");
    ScratchFolder folder;
    const TrackDocument original = MakeSampleTrack();
    const TrackWriteResult written = WriteTrackFile(folder.File("plain"), original);
    ASSERT_TRUE(written) << written.message;
    EXPECT_EQ(written.path, folder.File("plain.cvtrack"));
    TrackDocument read;
    ASSERT_TRUE(ReadTrackFile(folder.File("plain.cvtrack"), read));
    ExpectSameRecords(read, original);
    EXPECT_EQ(SerializeTrack(read), ReadBytes(written.path));
}

TEST(TrackFileLayout, ChunksComeInTheirFixedOrderWithClosingCountsAndTerrainOnlyWhenKept) {
    TrackDocument doc = MakeSampleTrack();
    std::vector<std::string> order = {"TRCK", "INFO", "BEZR", "SEGM", "SUPP", "FUND", "RASC",
                                      "FREN", "TUBE", "CATW", "SCEN", "SCOB", "TERA", "ENVC"};
    EXPECT_EQ(ChunkIds(SerializeTrack(doc)), order);
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(SerializeTrack(doc), read));
    EXPECT_EQ(read.track.frame.subChunkCount, 4);
    EXPECT_EQ(read.supports.frame.subChunkCount, 5);
    EXPECT_EQ(read.scene.frame.subChunkCount, 1);
    EXPECT_EQ(read.bezier.frame.subChunkCount, 0);
    EXPECT_EQ(read.headerChunkCount, 4);
    doc.terrain.terrainInTrack = false;
    const std::vector<std::uint8_t> bare = SerializeTrack(doc);
    EXPECT_EQ(GetLong(bare, 28), 3) << "three top-level chunks without a terrain";
    order.erase(order.end() - 2);
    EXPECT_EQ(ChunkIds(bare), order);
    ASSERT_TRUE(ParseTrack(bare, read));
    EXPECT_FALSE(read.terrain.terrainInTrack);
}

TEST(TrackFileLengths, EveryChunkDeclaresWhatTheSimulatorToolsWriteAndNineHoldSixteenBytesLess) {
    const LocatedTrack l = Locate(MakeSampleTrack(5, 4));
    // Own sizes: entries of variable size summed by hand from the sample's contents.
    const std::int32_t bezier = 40 + 60 * 6;
    const std::int32_t segments = 41 + (33 + 4) + (33 + 130) + (33 + 40) + (33 + 32) + (33 + 54) + 33;
    const std::int32_t footers = 40 + 92 * 2, rails = 40 + (4 + 48) + 4 + (4 + 24), freeNodes = 40 + 28 * 2;
    const std::int32_t tubes = 40 + 48 * 2, catwalks = 40 + (28 + 12) + 28, scob = 40 + (88 + 13 + 3) + 88;
    const std::int32_t info = 24 + 21, terrain = 81 + 29 + 28 + 30 + 4 * 20, environment = 44 + 6 + 9;
    const std::int32_t supports =
        36 + (8 + footers) + (8 + rails) + (8 + freeNodes) + (8 + tubes) + (8 + catwalks);
    const std::int32_t track =
        64 + (28 + 10) + 28 + (8 + info) + (8 + bezier) + (8 + segments) + (8 + supports);
    const std::int32_t scene = 40 + 64 * 2 + (8 + scob);
    std::map<std::string, std::int32_t> lengths;
    std::map<std::string, std::int64_t> surplus; // declared length minus the bytes up to the next chunk
    for (std::size_t i = 0; i < l.chunks.size(); ++i) {
        const std::size_t next = i + 1 < l.chunks.size() ? l.chunks[i + 1].offset : l.bytes.size();
        lengths[l.chunks[i].id] = l.chunks[i].length;
        surplus[l.chunks[i].id] =
            l.chunks[i].length - static_cast<std::int64_t>(next - l.chunks[i].offset - 8);
    }
    EXPECT_EQ(lengths, (std::map<std::string, std::int32_t>{{"TRCK", track},
                                                            {"INFO", info},
                                                            {"BEZR", bezier},
                                                            {"SEGM", segments},
                                                            {"SUPP", supports},
                                                            {"FUND", footers},
                                                            {"RASC", rails},
                                                            {"FREN", freeNodes},
                                                            {"TUBE", tubes},
                                                            {"CATW", catwalks},
                                                            {"SCEN", scene},
                                                            {"SCOB", scob},
                                                            {"TERA", terrain},
                                                            {"ENVC", environment}}));
    EXPECT_EQ(GetLong(l.bytes, 4), 24 + (8 + track) + (8 + scene) + (8 + terrain) + (8 + environment));
    for (const char* id : {"BEZR", "SEGM", "FUND", "RASC", "FREN", "TUBE", "CATW", "SCOB"})
        EXPECT_EQ(surplus[id], 16) << id;
    for (const char* id : {"INFO", "TERA", "ENVC"})
        EXPECT_EQ(surplus[id], 0) << id;
}

TEST(TrackFileValues, ReservedRunsTrailingBytesAnyNonZeroBoolAndAColoursFirstByteWriteBackAsBefore) {
    const TrackDocument doc = MakeSampleTrack();
    LocatedTrack l = Locate(doc);
    // First catwalk: id, length, 16 reserved, count, seven longs, then its 12 trailing bytes.
    const std::size_t catw = l.Offset("CATW"), trailing = catw + 8 + 16 + 4 + 28;
    ASSERT_EQ(GetLong(l.bytes, trailing - 4), 12);
    std::memset(l.bytes.data() + trailing, 0xAB, 12);
    std::memset(l.bytes.data() + catw + 8, 0xCD, 16); // the chunk's own reserved run
    const std::size_t flag = l.Offset("SEGM") + 12;
    ASSERT_EQ(l.bytes[flag], 255);
    l.bytes[flag] = 7;
    // TRCK's first colour follows style, count, value and the two entries.
    const std::size_t colour = l.Offset("TRCK") + 8 + 12 + (28 + 10) + 28;
    ASSERT_EQ(GetLong(l.bytes, colour), 0x010203);
    l.bytes[colour] = 0x99;
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(l.bytes, read));
    EXPECT_TRUE(read.segments.flag);
    EXPECT_EQ(read.track.colours[0], 0x010203u);
    EXPECT_EQ(SerializeTrack(read), SerializeTrack(doc)) << "zeros, 255 for true and the lengths unchanged";
}

TEST(TrackFileReading, LowerCaseChunkIdsAreReadAsUpperCase) {
    LocatedTrack l = Locate(MakeSampleTrack());
    std::memcpy(l.bytes.data() + l.Offset("TRCK"), "trck", 4);
    std::memcpy(l.bytes.data() + l.Offset("ENVC"), "EnvC", 4);
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(l.bytes, read));
    EXPECT_EQ(read.track.trackStyle, 9);
    EXPECT_EQ(read.environment.name1, "Meadow");
}

TEST(TrackFileReading, UnknownChunksAreSkippedFourBytesPastTheirEndAndVersionBytesAreReadButNotWritten) {
    // ZZZZ: eight bytes of its own and four more eaten by the skip.
    std::vector<std::uint8_t> unknown = Chunk("ZZZZ", 8, 8, 0x5A);
    unknown.insert(unknown.end(), 4, 0xEE);
    TrackDocument doc;
    std::vector<ChunkListing> listing;
    ASSERT_TRUE(ParseTrack(HandMade(2, {unknown, EnvironmentChunk("Dunes", "Dusk")}), doc, &listing));
    ASSERT_EQ(listing.size(), 2u);
    EXPECT_FALSE(listing[0].known);
    EXPECT_EQ(listing[1].offset, 32u + 8u + 8u + 4u);
    EXPECT_EQ(doc.environment.name1, "Dunes");
    EXPECT_EQ(doc.version, (std::array<std::uint8_t, 4>{9, 8, 7, 6}));
    const std::vector<std::uint8_t> written = SerializeTrack(doc);
    EXPECT_EQ(std::vector<std::uint8_t>(written.begin() + 8, written.begin() + 12),
              (std::vector<std::uint8_t>{1, 3, 0, 0}));
    for (const std::string& id : ChunkIds(written))
        EXPECT_NE(id, "ZZZZ");
    EXPECT_TRUE(ParseTrack(HandMade(1, {Chunk("XTRA", 4, 4, 0)}), doc))
        << "a last chunk may end before its skip";
}

TEST(TrackFileReading, EnvironmentCarriesOverFromThePreviousFile) {
    TrackDocument doc;
    const std::vector<std::uint8_t> withNames = SerializeTrack(MakeSampleTrack());
    ASSERT_TRUE(ParseTrack(withNames, doc));
    // A file whose only chunk is unknown has no environment of its own.
    ASSERT_TRUE(ParseTrack(HandMade(1, {Chunk("NONE", 0, 0, 0)}), doc));
    EXPECT_TRUE(doc.bezier.vertices.empty());
    EXPECT_FALSE(doc.terrain.terrainInTrack);
    EXPECT_EQ(doc.environment.name1, "Meadow");
    // A refused file leaves the document reset, still with the carried names.
    ASSERT_TRUE(ParseTrack(withNames, doc));
    std::vector<std::uint8_t> wrongMagic = withNames;
    wrongMagic[0] = 'X';
    EXPECT_FALSE(ParseTrack(wrongMagic, doc));
    EXPECT_TRUE(doc.bezier.vertices.empty());
    EXPECT_FALSE(doc.terrain.terrainInTrack);
    EXPECT_EQ(doc.environment.name2, "Clear Day");
}

TEST(TrackFileReading, NamesAreCheckedBeforeTheFileIsOpened) {
    ScratchFolder folder;
    const std::vector<std::uint8_t> bytes = SerializeTrack(MakeSampleTrack());
    WriteBytes(folder.File("UPPER.CVTRACK"), bytes);
    WriteBytes(folder.File("other.trk"), bytes);
    std::filesystem::create_directory(folder.Path() / "folder.cvtrack");
    TrackDocument doc;
    EXPECT_TRUE(ReadTrackFile(folder.File("UPPER.CVTRACK"), doc));
    EXPECT_EQ(ReadTrackFile(folder.File("other.trk"), doc).status, TrackReadStatus::InvalidName);
    EXPECT_EQ(ReadTrackFile("", doc).status, TrackReadStatus::InvalidName);
    EXPECT_EQ(ReadTrackFile(folder.File("missing.cvtrack"), doc).status, TrackReadStatus::NotFound);
    EXPECT_EQ(ReadTrackFile(folder.File("folder.cvtrack"), doc).status, TrackReadStatus::NotFound);
}

TEST(TrackFileWriting, AFailedWriteGivesAReasonAndLeavesThePreviousFileOrFolderAsItWas) {
    ScratchFolder folder;
    const std::string path = folder.File("keep.cvtrack");
    WriteBytes(path, {1, 2, 3});
    std::filesystem::create_directory(folder.Path() / "taken.cvtrack");
    const TrackWriteResult overFolder = WriteTrackFile(folder.File("taken.cvtrack"), MakeSampleTrack());
    EXPECT_FALSE(overFolder);
    EXPECT_FALSE(overFolder.message.empty());
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "taken.cvtrack"));
    {
        // A file-size limit makes the write fail part-way, whatever rights the test runs with.
        FileSizeLimit limit(1000);
        const TrackWriteResult partWay = WriteTrackFile(path, MakeSampleTrack(40, 40));
        EXPECT_FALSE(partWay);
        EXPECT_FALSE(partWay.message.empty());
    }
    EXPECT_EQ(ReadBytes(path), (std::vector<std::uint8_t>{1, 2, 3}));
    EXPECT_EQ(FilesIn(folder.Path()), 2u) << "no temporary left";
}
