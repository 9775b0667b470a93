// Track files: round trips, layout and chunk lengths, the reading rules, and damaged or hostile
// files, which must be refused cleanly without a crash or an allocation the data cannot hold.
#include "TrackFile.h"
#include "SampleTrack.h"
#include "TestSupport.h"
#include "TrackChunks.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <filesystem>
#include <limits>
#include <random>
#include <tuple>

namespace {

using Bytes = std::vector<std::uint8_t>;

// A file image and where the reader met each of its chunks.
struct LocatedTrack {
    Bytes bytes;
    std::vector<ChunkListing> chunks;
    std::size_t Offset(const std::string& id) const {
        for (const ChunkListing& c : chunks)
            if (c.id == id) return c.offset;
        ADD_FAILURE() << "no chunk " << id;
        return 0;
    }
};

LocatedTrack Locate(const TrackDocument& doc) {
    LocatedTrack l{SerializeTrack(doc), {}};
    TrackDocument read;
    EXPECT_TRUE(ParseTrack(l.bytes, read, &l.chunks));
    return l;
}

std::int32_t GetLong(const Bytes& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | bytes.at(at + i);
    return static_cast<std::int32_t>(value);
}

void SetLong(Bytes& bytes, std::size_t at, std::int32_t value) {
    for (std::size_t i = 0; i < 4; ++i)
        bytes.at(at + i) = static_cast<std::uint8_t>(static_cast<std::uint32_t>(value) >> (24 - 8 * i));
}

// Every value a document keeps, apart from what the reader only records (frames, version, counts).
void ExpectSameRecords(const TrackDocument& read, const TrackDocument& original) {
    const auto kept = [](const TrackDocument& d) {
        return std::tie(d.track.trackStyle, d.track.trackValue, d.track.entries, d.track.colours,
                        d.info.description, d.bezier.vertices, d.segments.flag, d.segments.segments,
                        d.footers.footers, d.railConnectors.groups, d.freeNodes.nodes, d.tubes.tubes,
                        d.catwalks.catwalks, d.scene.entries, d.sceneryObjects.objects,
                        d.terrain.terrainInTrack, d.environment.name1, d.environment.name2);
    };
    EXPECT_TRUE(kept(read) == kept(original)) << "a record differs";
    EXPECT_EQ(read.terrain.terrain, original.terrain.terrain);
}

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

// The chunk ids in the order read, and the file length the top-level chunks add up to.
std::pair<std::vector<std::string>, std::int32_t> Listed(const Bytes& bytes) {
    TrackDocument doc;
    std::vector<ChunkListing> listing;
    EXPECT_TRUE(ParseTrack(bytes, doc, &listing));
    std::pair<std::vector<std::string>, std::int32_t> listed{{}, 24};
    for (const ChunkListing& chunk : listing) {
        listed.first.push_back(chunk.id);
        if (chunk.id == "TRCK" || chunk.id == "SCEN" || chunk.id == "TERA" || chunk.id == "ENVC")
            listed.second += 8 + chunk.length;
    }
    return listed;
}

// The file with one more chunk: id, declared length and `body` bytes, put in at `at`.
Bytes WithChunk(Bytes bytes, std::size_t at, const char* id, std::int32_t length, std::size_t body) {
    Bytes chunk(id, id + 4);
    chunk.resize(8 + body, 0x5A);
    SetLong(chunk, 4, length);
    bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(at), chunk.begin(), chunk.end());
    SetLong(bytes, 28, GetLong(bytes, 28) + 1);
    return bytes;
}

bool Parses(const Bytes& bytes) {
    TrackDocument doc;
    return static_cast<bool>(ParseTrack(bytes, doc));
}

} // namespace

TEST(TrackFiles,
     APlainNameGetsTheExtensionTheFileReadsBackWithEveryValueAndTheSameBytesAndNamesAreCheckedFirst) {
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
    // The name is checked before the file is opened.
    std::filesystem::copy(written.path, folder.File("UPPER.CVTRACK"));
    std::filesystem::copy(written.path, folder.File("other.trk"));
    std::filesystem::create_directory(folder.Path() / "folder.cvtrack");
    EXPECT_TRUE(ReadTrackFile(folder.File("UPPER.CVTRACK"), read));
    EXPECT_EQ(ReadTrackFile(folder.File("other.trk"), read).status, TrackReadStatus::InvalidName);
    EXPECT_EQ(ReadTrackFile("", read).status, TrackReadStatus::InvalidName);
    EXPECT_EQ(ReadTrackFile(folder.File("missing.cvtrack"), read).status, TrackReadStatus::NotFound);
    EXPECT_EQ(ReadTrackFile(folder.File("folder.cvtrack"), read).status, TrackReadStatus::NotFound);
}

TEST(TrackFileLayout, ChunksComeInTheirFixedOrderWithClosingCountsAndTerrainOnlyWhenKept) {
    TrackDocument doc = MakeSampleTrack();
    std::vector<std::string> order = {"TRCK", "INFO", "BEZR", "SEGM", "SUPP", "FUND", "RASC",
                                      "FREN", "TUBE", "CATW", "SCEN", "SCOB", "TERA", "ENVC"};
    const Bytes full = SerializeTrack(doc);
    EXPECT_EQ(Listed(full), std::pair(order, GetLong(full, 4)));
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(full, read));
    EXPECT_EQ(std::tuple(read.track.frame.subChunkCount, read.supports.frame.subChunkCount,
                         read.scene.frame.subChunkCount, read.bezier.frame.subChunkCount,
                         read.headerChunkCount),
              std::tuple(4, 5, 1, 0, 4));
    doc.terrain.terrainInTrack = false;
    const Bytes bare = SerializeTrack(doc);
    EXPECT_EQ(GetLong(bare, 28), 3) << "three top-level chunks without a terrain";
    order.erase(order.end() - 2);
    EXPECT_EQ(Listed(bare), std::pair(order, GetLong(bare, 4)));
    ASSERT_TRUE(ParseTrack(bare, read));
    EXPECT_FALSE(read.terrain.terrainInTrack);
}

TEST(TrackFileLengths, EveryChunkDeclaresItsOwnSizeAndNineHoldSixteenBytesLess) {
    const LocatedTrack l = Locate(MakeSampleTrack(5, 4));
    // Own sizes, entries of variable size summed by hand from the sample's contents.
    const int footers = 40 + 92 * 2, rails = 40 + (4 + 48) + 4 + (4 + 24), freeNodes = 40 + 28 * 2,
              tubes = 40 + 48 * 2, catwalks = 40 + (28 + 12) + 28, scob = 40 + (88 + 13 + 3) + 88;
    const int info = 24 + 21, bezier = 40 + 60 * 6, terrain = 81 + 29 + 28 + 30 + 4 * 20,
              segments = 41 + (33 + 4) + (33 + 130) + (33 + 40) + (33 + 32) + (33 + 54) + 33;
    const int supports = 36 + 5 * 8 + footers + rails + freeNodes + tubes + catwalks;
    const int track = 64 + (28 + 10) + 28 + 4 * 8 + info + bezier + segments + supports;
    std::vector<int> lengths;
    for (std::size_t i = 0; i < l.chunks.size(); ++i) {
        const ChunkListing& c = l.chunks[i];
        lengths.push_back(c.length);
        // Declared length minus the bytes up to the next chunk; parents hold their children.
        const std::size_t next = i + 1 < l.chunks.size() ? l.chunks[i + 1].offset : l.bytes.size();
        const std::int64_t surplus = c.length - static_cast<std::int64_t>(next - c.offset - 8);
        const bool parent = c.id == "TRCK" || c.id == "SUPP" || c.id == "SCEN";
        const bool exact = c.id == "INFO" || c.id == "TERA" || c.id == "ENVC";
        EXPECT_TRUE(parent || surplus == (exact ? 0 : 16)) << c.id << " holds " << surplus << " bytes less";
    }
    EXPECT_EQ(lengths,
              (std::vector<int>{track, info, bezier, segments, supports, footers, rails, freeNodes, tubes,
                                catwalks, 40 + 64 * 2 + 8 + scob, scob, terrain, 44 + 6 + 9}));
}

TEST(TrackFileValues, ReservedRunsTrailingBytesAnyNonZeroBoolColoursFirstByteAndIdCaseWriteBackAsBefore) {
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
    std::memcpy(l.bytes.data() + l.Offset("TRCK"), "trck", 4);
    std::memcpy(l.bytes.data() + l.Offset("ENVC"), "EnvC", 4);
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(l.bytes, read));
    EXPECT_TRUE(read.segments.flag);
    EXPECT_EQ(read.track.colours[0], 0x010203u);
    EXPECT_EQ(read.environment.name1, "Meadow");
    EXPECT_EQ(SerializeTrack(read), SerializeTrack(doc)) << "zeros, 255 for true and the lengths unchanged";
}

TEST(TrackFileReading,
     UnknownChunksAreSkippedFourBytesPastTheirEndVersionsAreNotWrittenAndEnvironmentsCarryOver) {
    const Bytes sample = SerializeTrack(MakeSampleTrack());
    // ZZZZ: eight bytes of its own and four more eaten by the skip.
    Bytes bytes = WithChunk(sample, 32, "ZZZZ", 8, 12);
    std::memcpy(bytes.data() + 8, "\x09\x08\x07\x06", 4);
    TrackDocument doc;
    std::vector<ChunkListing> listing;
    ASSERT_TRUE(ParseTrack(bytes, doc, &listing));
    ASSERT_EQ(listing.size(), 15u);
    EXPECT_FALSE(listing[0].known);
    EXPECT_EQ(listing[1].offset, 32u + 8u + 8u + 4u);
    EXPECT_EQ(doc.version, (std::array<std::uint8_t, 4>{9, 8, 7, 6}));
    EXPECT_EQ(SerializeTrack(doc), sample) << "written as version 1, 3, 0, 0 and without ZZZZ";
    EXPECT_TRUE(Parses(WithChunk(sample, sample.size(), "XTRA", 4, 4)))
        << "a last chunk may end before its skip";
    // A file whose only chunk is unknown has no environment of its own: the previous one stays.
    Bytes header(sample.begin(), sample.begin() + 32);
    SetLong(header, 28, 0);
    ASSERT_TRUE(ParseTrack(WithChunk(header, 32, "NONE", 0, 0), doc));
    EXPECT_TRUE(doc.bezier.vertices.empty() && !doc.terrain.terrainInTrack);
    EXPECT_EQ(doc.environment.name1 + "/" + doc.environment.name2, "Meadow/Clear Day");
}

TEST(TrackFileWriting, AFailedWriteGivesAReasonAndLeavesThePreviousFileOrFolderAsItWas) {
    ScratchFolder folder;
    const std::string path = folder.File("keep.cvtrack");
    WriteBytes(path, {1, 2, 3});
    std::filesystem::create_directory(folder.Path() / "taken.cvtrack");
    const TrackWriteResult overFolder = WriteTrackFile(folder.File("taken.cvtrack"), MakeSampleTrack());
    EXPECT_FALSE(overFolder || overFolder.message.empty());
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "taken.cvtrack"));
    {
        // A file-size limit makes the write fail part-way, whatever rights the test runs with.
        FileSizeLimit limit(1000);
        const TrackWriteResult partWay = WriteTrackFile(path, MakeSampleTrack(40, 40));
        EXPECT_FALSE(partWay || partWay.message.empty());
    }
    EXPECT_EQ(ReadBytes(path), (Bytes{1, 2, 3}));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 2)
        << "no temporary left";
}

TEST(TrackFileDamage, EveryTruncationIsRefusedWithAMessageAndTheDocumentReset) {
    const Bytes bytes = SerializeTrack(MakeSampleTrack());
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        TrackDocument doc = MakeSampleTrack();
        doc.environment.name1 = "kept";
        const TrackReadResult result = ParseTrack(std::span(bytes.data(), size), doc);
        ASSERT_FALSE(result) << "a file cut to " << size << " bytes was accepted";
        EXPECT_FALSE(result.message.empty());
        EXPECT_TRUE(doc.bezier.vertices.empty() && doc.environment.name1 == "kept") << size;
    }
}

TEST(TrackFileDamage, SeededByteFlipsNeverCrashAndWhatIsReadWritesBackStably) {
    const Bytes original = SerializeTrack(MakeSampleTrack(9, 7));
    std::mt19937_64 random(20261122); // the same sequence everywhere, so a failing round replays
    int accepted = 0;
    for (int round = 0; round < 4000; ++round) {
        Bytes bytes = original;
        for (std::uint64_t flips = 1 + random() % 4; flips > 0; --flips)
            bytes[random() % bytes.size()] ^= static_cast<std::uint8_t>(1u << (random() % 8));
        TrackDocument doc;
        if (!ParseTrack(bytes, doc)) continue;
        ++accepted;
        // Whatever the reader accepts is written as a file that reads back unchanged.
        const Bytes written = SerializeTrack(doc);
        TrackDocument again;
        ASSERT_TRUE(ParseTrack(written, again)) << "round " << round;
        ASSERT_EQ(SerializeTrack(again), written) << "round " << round;
    }
    EXPECT_GT(accepted, 1000) << "most flips land in values or reserved runs";
}

TEST(TrackFileDamage, BadCountsLengthsGridsAndChunkCountsAreRefusedAndOnlyHarmlessValuesPass) {
    const LocatedTrack l = Locate(MakeSampleTrack());
    // The entry count of each chunk kind, from its id.
    const std::pair<const char*, std::size_t> counts[] = {
        {"TRCK", 12}, {"BEZR", 24}, {"SEGM", 8},  {"FUND", 24}, {"RASC", 24},
        {"FREN", 24}, {"TUBE", 24}, {"CATW", 24}, {"SCEN", 24}, {"SCOB", 24}};
    for (const auto& [id, offset] : counts) {
        for (std::int32_t value : {kMax, -1, 1 << 24}) {
            Bytes bytes = l.bytes;
            SetLong(bytes, l.Offset(id) + offset, value);
            EXPECT_FALSE(Parses(bytes)) << id << " count " << value;
        }
    }
    // The heights are followed by 16 reserved bytes and the closing count.
    const std::int32_t firstHeight = 8 + GetLong(l.bytes, l.Offset("TERA") + 4) - 20 - 4 * 20;
    const auto single = [](float f) { return std::bit_cast<std::int32_t>(f); };
    struct Patch {
        const char* chunk; // "" for the file header
        std::int32_t at, value;
        bool accepted;
        const char* what;
    };
    const Patch patches[] = {
        {"INFO", 24, -5, false, "negative string length"},
        {"INFO", 24, 1 << 30, false, "string longer than the file"},
        {"RASC", 28, kMax, false, "rail connector items"},
        {"CATW", 52, -12, false, "negative catwalk bytes"},
        {"CATW", 52, 1 << 30, false, "catwalk bytes past the end"},
        {"TERA", 8, 514, false, "more columns than the undo store holds"},
        {"TERA", 12, 514, false, "more rows than the undo store holds"},
        {"TERA", 8, 0, false, "no columns"},
        {"TERA", 12, -3, false, "negative rows"},
        {"TERA", 16, single(std::numeric_limits<float>::quiet_NaN()), false, "NaN spacing"},
        {"TERA", 20, single(-2.0f), false, "negative spacing"},
        {"TERA", firstHeight, single(std::numeric_limits<float>::infinity()), false, "infinite height"},
        {"TERA", firstHeight, single(-9.5f), true, "an ordinary height"},
        {"", 28, 5, false, "one more top-level chunk than there is"},
        {"", 28, kMax, false, "huge top-level chunk count"},
        {"INFO", -4, kMax, false, "huge closing count of TRCK"},
        {"", 28, 0, true, "no chunks: an empty track"},
        {"", 28, -4, true, "a negative chunk count reads nothing"},
    };
    for (const Patch& p : patches) {
        Bytes bytes = l.bytes;
        SetLong(bytes, (*p.chunk ? l.Offset(p.chunk) : 0) + static_cast<std::size_t>(p.at), p.value);
        TrackDocument doc;
        EXPECT_EQ(static_cast<bool>(ParseTrack(bytes, doc)), p.accepted) << p.what;
        EXPECT_TRUE(*p.chunk || doc.bezier.vertices.empty()) << p.what;
    }
    EXPECT_TRUE(Parses(SerializeTrack(MakeSampleTrack(513, 513)))) << "the largest grid is accepted";
    EXPECT_FALSE(Parses(SerializeTrack(MakeSampleTrack(514, 2))) ||
                 Parses(SerializeTrack(MakeSampleTrack(2, 514))));
    // An unknown chunk must carry a length that leaves it within the file.
    Bytes unknown = l.bytes;
    std::memcpy(unknown.data() + 32, "QQQQ", 4);
    for (std::int32_t length : {-100, kMax}) {
        SetLong(unknown, 36, length);
        EXPECT_FALSE(Parses(unknown)) << "unknown chunk of length " << length;
    }
}
