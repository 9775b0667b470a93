// Track file round trips, chunk lengths and the reading rules.
#include "SampleTrack.h"
#include "TestSupport.h"
#include "TrackChunks.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <map>

namespace {

std::vector<ChunkListing> ListChunks(const std::vector<std::uint8_t>& bytes) {
    TrackDocument doc;
    std::vector<ChunkListing> listing;
    EXPECT_TRUE(ParseTrack(bytes, doc, &listing));
    return listing;
}

std::map<std::string, std::int32_t> LengthsById(const std::vector<std::uint8_t>& bytes) {
    std::map<std::string, std::int32_t> lengths;
    for (const ChunkListing& chunk : ListChunks(bytes)) lengths[chunk.id] = chunk.length;
    return lengths;
}

std::int32_t BigEndianLong(const std::vector<std::uint8_t>& bytes, std::size_t at) {
    return static_cast<std::int32_t>((std::uint32_t{bytes[at]} << 24) | (std::uint32_t{bytes[at + 1]} << 16) |
                                     (std::uint32_t{bytes[at + 2]} << 8) | bytes[at + 3]);
}

void PutLong(std::vector<std::uint8_t>& bytes, std::int32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(static_cast<std::uint32_t>(value) >> shift));
}

void PutText(std::vector<std::uint8_t>& bytes, const std::string& text) { bytes.insert(bytes.end(), text.begin(), text.end()); }

// A minimal file: header with the given chunk count, then whatever the caller appends.
std::vector<std::uint8_t> Header(std::int32_t chunkCount) {
    std::vector<std::uint8_t> bytes;
    PutText(bytes, "CRVT");
    PutLong(bytes, 0);
    for (std::uint8_t b : {9, 8, 7, 6}) bytes.push_back(b);
    bytes.insert(bytes.end(), 16, 0);
    PutLong(bytes, chunkCount);
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

} // namespace

TEST(TrackFileRoundTrip, WriteReadWriteGivesIdenticalBytesAndKeepsEveryField) {
    const TrackDocument original = MakeSampleTrack();
    const std::vector<std::uint8_t> first = SerializeTrack(original);
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(first, read));
    EXPECT_EQ(SerializeTrack(read), first);

    EXPECT_EQ(read.track.trackStyle, 9);
    EXPECT_EQ(read.track.trackValue, -77);
    EXPECT_EQ(read.track.entries, original.track.entries);
    EXPECT_EQ(read.track.colours, original.track.colours);
    EXPECT_EQ(read.info.description, original.info.description);
    EXPECT_EQ(read.bezier.vertices, original.bezier.vertices);
    EXPECT_EQ(read.segments.segments, original.segments.segments);
    EXPECT_TRUE(read.segments.flag);
    EXPECT_EQ(read.footers.footers, original.footers.footers);
    EXPECT_EQ(read.railConnectors.groups, original.railConnectors.groups);
    EXPECT_EQ(read.freeNodes.nodes, original.freeNodes.nodes);
    EXPECT_EQ(read.tubes.tubes, original.tubes.tubes);
    EXPECT_EQ(read.catwalks.catwalks, original.catwalks.catwalks);
    EXPECT_EQ(read.scene.entries, original.scene.entries);
    EXPECT_EQ(read.sceneryObjects.objects, original.sceneryObjects.objects);
    EXPECT_EQ(read.terrain.terrain, original.terrain.terrain);
    EXPECT_TRUE(read.terrain.terrainInTrack);
    EXPECT_EQ(read.environment.name1, "Meadow");
    EXPECT_EQ(read.environment.name2, "Clear Day");
}

TEST(TrackFileRoundTrip, FileOnDiskReadsBackAndWritesTheSameBytes) {
    ScratchFolder folder;
    const TrackDocument original = MakeSampleTrack(7, 3);
    ASSERT_TRUE(WriteTrackFile(folder.File("a.cvtrack"), original));
    TrackDocument read;
    ASSERT_TRUE(ReadTrackFile(folder.File("a.cvtrack"), read));
    ASSERT_TRUE(WriteTrackFile(folder.File("b.cvtrack"), read));
    EXPECT_EQ(ReadBytes(folder.File("a.cvtrack")), ReadBytes(folder.File("b.cvtrack")));
}

TEST(TrackFileLayout, ChunksAreWrittenInTheirFixedOrderWithTheirClosingCounts) {
    const std::vector<std::uint8_t> bytes = SerializeTrack(MakeSampleTrack());
    std::vector<std::string> ids;
    std::map<std::string, std::int32_t> closing;
    TrackDocument doc;
    std::vector<ChunkListing> listing;
    ASSERT_TRUE(ParseTrack(bytes, doc, &listing));
    for (const ChunkListing& chunk : listing) ids.push_back(chunk.id);
    EXPECT_EQ(ids, (std::vector<std::string>{"TRCK", "INFO", "BEZR", "SEGM", "SUPP", "FUND", "RASC", "FREN",
                                             "TUBE", "CATW", "SCEN", "SCOB", "TERA", "ENVC"}));
    EXPECT_EQ(doc.track.frame.subChunkCount, 4);
    EXPECT_EQ(doc.supports.frame.subChunkCount, 5);
    EXPECT_EQ(doc.scene.frame.subChunkCount, 1);
    EXPECT_EQ(doc.bezier.frame.subChunkCount, 0);
    EXPECT_EQ(doc.headerChunkCount, 4);
    EXPECT_EQ((std::vector<std::uint8_t>(bytes.begin() + 8, bytes.begin() + 12)), (std::vector<std::uint8_t>{1, 3, 0, 0}));
}

TEST(TrackFileLayout, DocumentWithoutTerrainWritesThreeTopLevelChunksAndNoTerrain) {
    TrackDocument doc = MakeSampleTrack();
    doc.terrain.terrainInTrack = false;
    const std::vector<std::uint8_t> bytes = SerializeTrack(doc);
    EXPECT_EQ(BigEndianLong(bytes, 28), 3);
    EXPECT_EQ(LengthsById(bytes).count("TERA"), 0u);
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(bytes, read));
    EXPECT_FALSE(read.terrain.terrainInTrack);
}

TEST(TrackFileLengths, EveryChunkCarriesTheLengthTheSimulatorToolsWrite) {
    const TrackDocument doc = MakeSampleTrack(5, 4);
    const auto lengths = LengthsById(SerializeTrack(doc));
    // Own sizes: entries of variable size summed by hand from the sample's contents.
    const std::int32_t bezier = 40 + 60 * 6;
    const std::int32_t segments = 41 + (33 + 4) + (33 + 130) + (33 + 40) + (33 + 32) + (33 + 54) + 33;
    const std::int32_t footers = 40 + 92 * 2;
    const std::int32_t rails = 40 + (4 + 48) + 4 + (4 + 24);
    const std::int32_t freeNodes = 40 + 28 * 2;
    const std::int32_t tubes = 40 + 48 * 2;
    const std::int32_t catwalks = 40 + (28 + 12) + 28;
    const std::int32_t scob = 40 + (88 + 13 + 3) + 88;
    const std::int32_t info = 24 + 21;
    const std::int32_t supports = 36 + (8 + footers) + (8 + rails) + (8 + freeNodes) + (8 + tubes) + (8 + catwalks);
    const std::int32_t track = 64 + (28 + 10) + 28 + (8 + info) + (8 + bezier) + (8 + segments) + (8 + supports);
    const std::int32_t scene = 40 + 64 * 2 + (8 + scob);
    const std::int32_t terrain = 81 + 29 + 28 + 30 + 4 * 20;
    const std::int32_t environment = 44 + 6 + 9;
    EXPECT_EQ(lengths.at("BEZR"), bezier);
    EXPECT_EQ(lengths.at("SEGM"), segments);
    EXPECT_EQ(lengths.at("FUND"), footers);
    EXPECT_EQ(lengths.at("RASC"), rails);
    EXPECT_EQ(lengths.at("FREN"), freeNodes);
    EXPECT_EQ(lengths.at("TUBE"), tubes);
    EXPECT_EQ(lengths.at("CATW"), catwalks);
    EXPECT_EQ(lengths.at("SCOB"), scob);
    EXPECT_EQ(lengths.at("INFO"), info);
    EXPECT_EQ(lengths.at("SUPP"), supports);
    EXPECT_EQ(lengths.at("TRCK"), track);
    EXPECT_EQ(lengths.at("SCEN"), scene);
    EXPECT_EQ(lengths.at("TERA"), terrain);
    EXPECT_EQ(lengths.at("ENVC"), environment);
    const std::vector<std::uint8_t> bytes = SerializeTrack(doc);
    EXPECT_EQ(BigEndianLong(bytes, 4), 24 + (8 + track) + (8 + scene) + (8 + terrain) + (8 + environment));
}

TEST(TrackFileLengths, NineChunkKindsDeclareSixteenBytesMoreThanTheyHold) {
    // The declared length of a leaf chunk minus the bytes between its length field and the next
    // chunk's id: 16 for the kinds that carry the surplus, 0 for the others.
    const TrackDocument doc = MakeSampleTrack();
    const std::vector<std::uint8_t> bytes = SerializeTrack(doc);
    const std::vector<ChunkListing> listing = ListChunks(bytes);
    std::map<std::string, std::int64_t> surplus;
    for (std::size_t i = 0; i < listing.size(); ++i) {
        const std::size_t next = i + 1 < listing.size() ? listing[i + 1].offset : bytes.size();
        const auto held = static_cast<std::int64_t>(next - listing[i].offset - 8);
        surplus[listing[i].id] = listing[i].length - held;
    }
    for (const char* id : {"BEZR", "SEGM", "FUND", "RASC", "FREN", "TUBE", "CATW", "SCOB"})
        EXPECT_EQ(surplus[id], 16) << id;
    for (const char* id : {"INFO", "TERA", "ENVC"}) EXPECT_EQ(surplus[id], 0) << id;
}

TEST(TrackFileLengths, TerrainChunkOfTwoHundredFivePointsMatchesItsFormula) {
    TerrainRecord record;
    record.terrain = MakeSampleTerrain(205, 205);
    record.terrain.groundTexture = std::string(29, 'g');
    record.terrain.detailTexture = std::string(28, 'd');
    record.terrain.waterTexture = std::string(30, 'w');
    EXPECT_EQ(OwnSize(record), 168268);
    ByteWriter w;
    WriteTerrainChunk(w, record);
    EXPECT_EQ(w.Size(), 8u + 168268u);
}

TEST(TrackFileLengths, SegmentPartsHaveTheirFixedSizes) {
    EXPECT_EQ(SegmentPartBytes(0), 4);
    EXPECT_EQ(SegmentPartBytes(1), 130);
    EXPECT_EQ(SegmentPartBytes(2), 40);
    EXPECT_EQ(SegmentPartBytes(3), 32);
    EXPECT_EQ(SegmentPartBytes(4), 54);
    EXPECT_EQ(SegmentPartBytes(7), 0);
    EXPECT_EQ(SegmentPartBytes(-1), 0);
    SegmentRecord one;
    one.segments = {Segment{}};
    one.segments[0].type = 1;
    SegmentRecord seven = one;
    seven.segments[0].type = 7;
    ByteWriter a, b;
    WriteChunk(a, one, 0);
    WriteChunk(b, seven, 0);
    EXPECT_EQ(a.Size() - b.Size(), 130u);
    EXPECT_EQ(b.Size(), 8u + 4 + 1 + 16 + 33 + 4);
}

TEST(TrackFileValues, ReservedRunsAndCatwalkBytesComeBackAsZerosWithLengthsUnchanged) {
    TrackDocument doc = MakeSampleTrack();
    std::vector<std::uint8_t> bytes = SerializeTrack(doc);
    const std::vector<ChunkListing> listing = ListChunks(bytes);
    std::size_t catw = 0;
    for (const ChunkListing& c : listing)
        if (c.id == "CATW") catw = c.offset;
    // First catwalk: id, length, 16 reserved, count, seven longs, then its 12 trailing bytes.
    const std::size_t trailing = catw + 8 + 16 + 4 + 28;
    ASSERT_EQ(BigEndianLong(bytes, trailing - 4), 12);
    std::memset(bytes.data() + trailing, 0xAB, 12);
    std::memset(bytes.data() + catw + 8, 0xCD, 16); // the chunk's own reserved run
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(bytes, read));
    const std::vector<std::uint8_t> again = SerializeTrack(read);
    EXPECT_EQ(again, SerializeTrack(doc));
    EXPECT_EQ(again.size(), bytes.size());
}

TEST(TrackFileValues, BoolsReadAnyNonZeroAndWrite255ColoursDropTheirFirstByte) {
    TrackDocument doc;
    doc.segments.flag = true;
    std::vector<std::uint8_t> bytes = SerializeTrack(doc);
    const std::vector<ChunkListing> listing = ListChunks(bytes);
    std::size_t segm = 0, trck = 0;
    for (const ChunkListing& c : listing) {
        if (c.id == "SEGM") segm = c.offset;
        if (c.id == "TRCK") trck = c.offset;
    }
    ASSERT_EQ(bytes[segm + 12], 255);
    bytes[segm + 12] = 7;
    // The first of TRCK's eight colours follows style, count and value (no entries).
    const std::size_t colour = trck + 8 + 12;
    bytes[colour] = 0x99;
    bytes[colour + 3] = 0x42;
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(bytes, read));
    EXPECT_TRUE(read.segments.flag);
    EXPECT_EQ(read.track.colours[0], 0x42u);
    const std::vector<std::uint8_t> again = SerializeTrack(read);
    EXPECT_EQ(again[segm + 12], 255);
    EXPECT_EQ(again[colour], 0);
}

TEST(TrackFileValues, EmptyDescriptionIsWrittenAsALengthAlone) {
    TrackDocument doc;
    const auto lengths = LengthsById(SerializeTrack(doc));
    EXPECT_EQ(lengths.at("INFO"), 24);
}

TEST(TrackFileReading, LowerCaseChunkIdsAreReadAsUpperCase) {
    std::vector<std::uint8_t> bytes = SerializeTrack(MakeSampleTrack());
    TrackDocument doc;
    std::vector<ChunkListing> listing;
    ASSERT_TRUE(ParseTrack(bytes, doc, &listing));
    std::memcpy(bytes.data() + listing[0].offset, "trck", 4);
    std::memcpy(bytes.data() + listing.back().offset, "EnvC", 4);
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(bytes, read));
    EXPECT_EQ(read.track.trackStyle, 9);
    EXPECT_EQ(read.environment.name1, "Meadow");
}

TEST(TrackFileReading, UnknownChunkIsSkippedFourBytesPastItsEndAndDroppedOnSaving) {
    std::vector<std::uint8_t> bytes = Header(2);
    PutText(bytes, "ZZZZ");
    PutLong(bytes, 8);
    bytes.insert(bytes.end(), 8, 0x5A);
    bytes.insert(bytes.end(), 4, 0xEE); // eaten by the skip
    const std::vector<std::uint8_t> env = EnvironmentChunk("Dunes", "Dusk");
    bytes.insert(bytes.end(), env.begin(), env.end());
    TrackDocument doc;
    std::vector<ChunkListing> listing;
    ASSERT_TRUE(ParseTrack(bytes, doc, &listing));
    ASSERT_EQ(listing.size(), 2u);
    EXPECT_FALSE(listing[0].known);
    EXPECT_EQ(listing[1].offset, 32u + 8u + 8u + 4u);
    EXPECT_EQ(doc.environment.name1, "Dunes");
    for (const ChunkListing& chunk : ListChunks(SerializeTrack(doc))) EXPECT_NE(chunk.id, "ZZZZ");
}

TEST(TrackFileReading, UnknownLastChunkMayEndBeforeItsSkip) {
    std::vector<std::uint8_t> bytes = Header(1);
    PutText(bytes, "XTRA");
    PutLong(bytes, 4);
    PutLong(bytes, 0);
    TrackDocument doc;
    EXPECT_TRUE(ParseTrack(bytes, doc));
}

TEST(TrackFileReading, VersionBytesAreKeptButWrittenAsOneThreeZeroZero) {
    std::vector<std::uint8_t> bytes = Header(1);
    const std::vector<std::uint8_t> env = EnvironmentChunk("A", "B");
    bytes.insert(bytes.end(), env.begin(), env.end());
    TrackDocument doc;
    ASSERT_TRUE(ParseTrack(bytes, doc));
    EXPECT_EQ(doc.version, (std::array<std::uint8_t, 4>{9, 8, 7, 6}));
    const std::vector<std::uint8_t> written = SerializeTrack(doc);
    EXPECT_EQ(written[8], 1);
    EXPECT_EQ(written[9], 3);
}

TEST(TrackFileReading, EnvironmentCarriesOverFromThePreviousFile) {
    TrackDocument doc;
    TrackDocument withNames = MakeSampleTrack();
    ASSERT_TRUE(ParseTrack(SerializeTrack(withNames), doc));
    // A file whose only chunk is unknown has no environment of its own.
    std::vector<std::uint8_t> bare = Header(1);
    PutText(bare, "NONE");
    PutLong(bare, 0);
    ASSERT_TRUE(ParseTrack(bare, doc));
    EXPECT_TRUE(doc.bezier.vertices.empty());
    EXPECT_FALSE(doc.terrain.terrainInTrack);
    EXPECT_EQ(doc.environment.name1, "Meadow");
    // A refused file leaves the document reset, still with the carried names.
    ASSERT_TRUE(ParseTrack(SerializeTrack(withNames), doc));
    std::vector<std::uint8_t> wrongMagic = SerializeTrack(withNames);
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
    TrackDocument doc;
    EXPECT_TRUE(ReadTrackFile(folder.File("UPPER.CVTRACK"), doc));
    EXPECT_EQ(ReadTrackFile(folder.File("other.trk"), doc).status, TrackReadStatus::InvalidName);
    EXPECT_EQ(ReadTrackFile("", doc).status, TrackReadStatus::InvalidName);
    EXPECT_EQ(ReadTrackFile(folder.File("missing.cvtrack"), doc).status, TrackReadStatus::NotFound);
    std::filesystem::create_directory(folder.Path() / "folder.cvtrack");
    EXPECT_EQ(ReadTrackFile(folder.File("folder.cvtrack"), doc).status, TrackReadStatus::NotFound);
}

TEST(TrackFileWriting, ExtensionIsAppendedOnlyWhenMissing) {
    EXPECT_EQ(TrackWritePath("/t/ride"), "/t/ride.cvtrack");
    EXPECT_EQ(TrackWritePath("/t/ride.CvTrack"), "/t/ride.CvTrack");
    ScratchFolder folder;
    const TrackWriteResult result = WriteTrackFile(folder.File("plain"), MakeSampleTrack());
    ASSERT_TRUE(result);
    EXPECT_EQ(result.path, folder.File("plain.cvtrack"));
    EXPECT_TRUE(std::filesystem::exists(folder.File("plain.cvtrack")));
}

TEST(TrackFileWriting, FailedWriteLeavesThePreviousFileIntact) {
    ScratchFolder folder;
    const std::string path = folder.File("keep.cvtrack");
    const std::vector<std::uint8_t> before = {1, 2, 3};
    WriteBytes(path, before);
    // A file-size limit makes the write fail part-way, whatever rights the test runs with.
    FileSizeLimit limit(1000);
    const TrackWriteResult result = WriteTrackFile(path, MakeSampleTrack(40, 40));
    EXPECT_FALSE(result);
    EXPECT_FALSE(result.message.empty());
    EXPECT_EQ(ReadBytes(path), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1) << "no temporary left";
}

TEST(TrackFileWriting, WritingOverAFolderFailsWithAReason) {
    ScratchFolder folder;
    std::filesystem::create_directory(folder.Path() / "taken.cvtrack");
    const TrackWriteResult result = WriteTrackFile(folder.File("taken.cvtrack"), MakeSampleTrack());
    EXPECT_FALSE(result);
    EXPECT_FALSE(result.message.empty());
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "taken.cvtrack"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}
