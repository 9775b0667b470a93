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

// A file image, the document read from it and where the reader met each of its chunks.
struct LocatedTrack {
    Bytes bytes;
    TrackDocument read;
    std::vector<ChunkListing> chunks;
    std::size_t Offset(const std::string& id) const {
        for (const ChunkListing& c : chunks)
            if (c.id == id) return c.offset;
        ADD_FAILURE() << "no chunk " << id;
        return 0;
    }
};

LocatedTrack Locate(const TrackDocument& doc) {
    LocatedTrack l{SerializeTrack(doc), {}, {}};
    EXPECT_TRUE(ParseTrack(l.bytes, l.read, &l.chunks));
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

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

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

TEST(TrackFiles, AWrittenFileGetsTheExtensionOnlyWhenMissingAndReadsBackWithEveryValue) {
    EXPECT_EQ(TrackWritePath("/t/ride.CvTrack"), "/t/ride.CvTrack");
    ScratchFolder folder;
    const TrackDocument original = MakeSampleTrack();
    const TrackWriteResult written = WriteTrackFile(folder.File("plain"), original);
    ASSERT_TRUE(written) << written.message;
    ASSERT_EQ(written.path, folder.File("plain.cvtrack"));
    TrackDocument read;
    ASSERT_TRUE(ReadTrackFile(written.path, read));
    // Every value a document keeps, apart from what the reader only records (frames, version, counts).
    const auto kept = [](const TrackDocument& d) {
        return std::tie(d.track.trackStyle, d.track.trackValue, d.track.entries, d.track.colours,
                        d.info.description, d.bezier.vertices, d.segments.flag, d.segments.segments,
                        d.footers.footers, d.railConnectors.groups, d.freeNodes.nodes, d.tubes.tubes,
                        d.catwalks.catwalks, d.scene.entries, d.sceneryObjects.objects,
                        d.terrain.terrainInTrack, d.terrain.terrain, d.environment.name1,
                        d.environment.name2);
    };
    EXPECT_TRUE(kept(read) == kept(original)) << "a record differs";
    EXPECT_EQ(SerializeTrack(read), ReadBytes(written.path));
}

TEST(TrackFiles, TheNameIsCheckedBeforeTheFileIsOpened) {
    ScratchFolder folder;
    const Bytes bytes = SerializeTrack(MakeSampleTrack());
    WriteBytes(folder.File("UPPER.CVTRACK"), bytes);
    WriteBytes(folder.File("other.trk"), bytes);
    TrackDocument read;
    EXPECT_TRUE(ReadTrackFile(folder.File("UPPER.CVTRACK"), read));
    EXPECT_EQ(ReadTrackFile(folder.File("other.trk"), read).status, TrackReadStatus::InvalidName);
    EXPECT_EQ(ReadTrackFile("", read).status, TrackReadStatus::InvalidName);
    EXPECT_EQ(ReadTrackFile(folder.File("missing.cvtrack"), read).status, TrackReadStatus::NotFound);
}

TEST(TrackFiles, AFailedWriteGivesAReasonAndLeavesWhatWasThere) {
    ScratchFolder folder;
    std::filesystem::create_directory(folder.Path() / "folder.cvtrack");
    const TrackWriteResult overFolder = WriteTrackFile(folder.File("folder.cvtrack"), MakeSampleTrack());
    EXPECT_FALSE(overFolder || overFolder.message.empty());
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "folder.cvtrack"));
}

TEST(TrackFileLayout, ChunksComeInFileOrderWithTheirDeclaredSizesWithOrWithoutTheTerrain) {
    TrackDocument doc = MakeSampleTrack(5, 4);
    // Own sizes, entries of variable size summed by hand from the sample's contents.
    const int footers = 40 + 92 * 2, rails = 40 + (4 + 48) + 4 + (4 + 24), freeNodes = 40 + 28 * 2,
              tubes = 40 + 48 * 2, catwalks = 40 + (28 + 12) + 28, scob = 40 + (88 + 13 + 3) + 88;
    const int info = 24 + 21, bezier = 40 + 60 * 6, terrain = 81 + 29 + 28 + 30 + 4 * 20,
              segments = 41 + (33 + 4) + (33 + 130) + (33 + 40) + (33 + 32) + (33 + 54) + 33;
    const int supports = 36 + 5 * 8 + footers + rails + freeNodes + tubes + catwalks;
    const int track = 64 + (28 + 10) + 28 + 4 * 8 + info + bezier + segments + supports;
    const int scene = 40 + 64 * 2 + 8 + scob, environment = 44 + 6 + 9;
    std::vector<std::pair<std::string, int>> expected = {
        {"TRCK", track},   {"INFO", info},  {"BEZR", bezier},    {"SEGM", segments},   {"SUPP", supports},
        {"FUND", footers}, {"RASC", rails}, {"FREN", freeNodes}, {"TUBE", tubes},      {"CATW", catwalks},
        {"SCEN", scene},   {"SCOB", scob},  {"TERA", terrain},   {"ENVC", environment}};
    for (const bool kept : {true, false}) {
        doc.terrain.terrainInTrack = kept;
        const LocatedTrack l = Locate(doc);
        std::vector<std::pair<std::string, int>> listed;
        for (std::size_t i = 0; i < l.chunks.size(); ++i) {
            const ChunkListing& c = l.chunks[i];
            listed.emplace_back(c.id, c.length);
            // Declared length minus the bytes up to the next chunk; parents hold their children.
            const std::size_t next = i + 1 < l.chunks.size() ? l.chunks[i + 1].offset : l.bytes.size();
            const std::int64_t surplus = c.length - static_cast<std::int64_t>(next - c.offset - 8);
            const bool parent = c.id == "TRCK" || c.id == "SUPP" || c.id == "SCEN";
            const bool exact = c.id == "INFO" || c.id == "TERA" || c.id == "ENVC";
            EXPECT_TRUE(parent || surplus == (exact ? 0 : 16)) << c.id << " holds " << surplus << " less";
        }
        if (!kept) expected.erase(expected.end() - 2);
        EXPECT_EQ(listed, expected);
        // The header's file length counts the top-level chunks, each with its id and length.
        EXPECT_EQ(GetLong(l.bytes, 4), 24 + 3 * 8 + track + scene + environment + (kept ? 8 + terrain : 0));
        EXPECT_EQ(std::tuple(l.read.track.frame.subChunkCount, l.read.supports.frame.subChunkCount,
                             l.read.scene.frame.subChunkCount, l.read.bezier.frame.subChunkCount,
                             l.read.headerChunkCount, GetLong(l.bytes, 28), l.read.terrain.terrainInTrack),
                  std::tuple(4, 5, 1, 0, kept ? 4 : 3, kept ? 4 : 3, kept));
    }
}

TEST(TrackFileReading, ValuesTheReaderOnlyToleratesAreWrittenBackInTheirUsualForm) {
    LocatedTrack l = Locate(MakeSampleTrack());
    const Bytes sample = l.bytes;
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
    std::memcpy(l.bytes.data() + 8, "\x09\x08\x07\x06", 4);
    // ZZZZ: eight bytes of its own and four more eaten by the skip.
    const Bytes bytes = WithChunk(l.bytes, 32, "ZZZZ", 8, 12);
    TrackDocument doc;
    std::vector<ChunkListing> listing;
    ASSERT_TRUE(ParseTrack(bytes, doc, &listing));
    ASSERT_EQ(listing.size(), 15u);
    EXPECT_FALSE(listing[0].known);
    EXPECT_EQ(listing[1].offset, 32u + 8u + 8u + 4u);
    EXPECT_EQ(std::tuple(doc.version, doc.segments.flag, doc.track.colours[0], doc.environment.name1),
              std::tuple(std::array<std::uint8_t, 4>{9, 8, 7, 6}, true, 0x010203u, "Meadow"));
    EXPECT_EQ(SerializeTrack(doc), sample) << "zeros, 255 for true, version 1, 3, 0, 0 and no ZZZZ";
    EXPECT_TRUE(Parses(WithChunk(sample, sample.size(), "XTRA", 4, 4))) << "the last ends before its skip";
}

TEST(TrackFileReading, AFileWithOnlyAnUnknownChunkKeepsThePreviousEnvironment) {
    const Bytes sample = SerializeTrack(MakeSampleTrack());
    TrackDocument doc;
    ASSERT_TRUE(ParseTrack(sample, doc));
    Bytes header(sample.begin(), sample.begin() + 32);
    SetLong(header, 28, 0);
    ASSERT_TRUE(ParseTrack(WithChunk(header, 32, "NONE", 0, 0), doc));
    EXPECT_TRUE(doc.bezier.vertices.empty() && !doc.terrain.terrainInTrack);
    EXPECT_EQ(doc.environment.name1 + "/" + doc.environment.name2, "Meadow/Clear Day");
}

TEST(TrackFileDamage, SeededByteFlipsNeverCrashAndWhatIsReadWritesBackStably) {
    const Bytes original = SerializeTrack(MakeSampleTrack(9, 7));
    std::mt19937_64 random(20261122); // the same sequence everywhere, so a failing round replays
    int accepted = 0;
    for (int round = 0; round < 4000; ++round) {
        Bytes flipped = original;
        for (std::uint64_t flips = 1 + random() % 4; flips > 0; --flips)
            flipped[random() % flipped.size()] ^= static_cast<std::uint8_t>(1u << (random() % 8));
        TrackDocument doc, again;
        if (!ParseTrack(flipped, doc)) continue;
        ++accepted;
        const Bytes written = SerializeTrack(doc);
        ASSERT_TRUE(ParseTrack(written, again)) << "round " << round;
        ASSERT_EQ(SerializeTrack(again), written) << "round " << round;
    }
    EXPECT_GT(accepted, 1000) << "most flips land in values or reserved runs";
}

TEST(TrackFileDamage, AFileCutShortAnywhereIsRefusedWithAReasonLeavingNoTrack) {
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

TEST(TrackFileDamage, BadLengthsCountsAndGridsAreRefusedWhileHarmlessValuesPass) {
    const LocatedTrack l = Locate(MakeSampleTrack());
    // h: the first height, followed by the other 19, 16 reserved bytes and the closing count.
    const std::int32_t h = 8 + GetLong(l.bytes, l.Offset("TERA") + 4) - 20 - 4 * 20, big = 1 << 30;
    const auto single = [](float f) { return std::bit_cast<std::int32_t>(f); };
    const std::int32_t nan = single(std::numeric_limits<float>::quiet_NaN()), neg = single(-2.0f),
                       inf = single(std::numeric_limits<float>::infinity());
    // Lengths, counts, grid sizes and values the reader must refuse ("" patches the file header),
    // then every chunk kind's entry count.
    using Patch = std::tuple<const char*, std::int32_t, std::int32_t>;
    std::vector<Patch> refused = {
        {"INFO", 24, -5},  {"INFO", 24, big}, {"RASC", 28, kMax}, {"CATW", 52, -12}, {"CATW", 52, big},
        {"TERA", 8, 514},  {"TERA", 12, 514}, {"TERA", 8, 0},     {"TERA", 12, -3},  {"TERA", 16, nan},
        {"TERA", 20, neg}, {"TERA", h, inf},  {"INFO", -4, kMax}, {"", 28, 5},       {"", 28, kMax}};
    const std::pair<const char*, std::int32_t> counts[] = {
        {"TRCK", 12}, {"BEZR", 24}, {"SEGM", 8},  {"FUND", 24}, {"RASC", 24},
        {"FREN", 24}, {"TUBE", 24}, {"CATW", 24}, {"SCEN", 24}, {"SCOB", 24}};
    for (const auto& [id, at] : counts)
        for (std::int32_t value : {kMax, -1, 1 << 24})
            refused.emplace_back(id, at, value);
    // An ordinary height, and no chunks or a negative count for an empty track.
    const Patch harmless[] = {{"TERA", h, single(-9.5f)}, {"", 28, 0}, {"", 28, -4}};
    for (const auto& [patches, accepted] : {std::pair(std::span<const Patch>(refused), false),
                                            std::pair(std::span<const Patch>(harmless), true)})
        for (const auto& [chunk, at, value] : patches) {
            Bytes bytes = l.bytes;
            SetLong(bytes, (*chunk ? l.Offset(chunk) : 0) + static_cast<std::size_t>(at), value);
            TrackDocument doc;
            EXPECT_EQ(!ParseTrack(bytes, doc), !accepted) << chunk << " +" << at << ": " << value;
            EXPECT_TRUE(*chunk || doc.bezier.vertices.empty()) << "header count " << value;
        }
    EXPECT_TRUE(Parses(SerializeTrack(MakeSampleTrack(513, 513)))) << "the largest grid is accepted";
    // A whole grid one point too wide or too long: the header patches above are refused for being short.
    EXPECT_FALSE(Parses(SerializeTrack(MakeSampleTrack(514, 2))) ||
                 Parses(SerializeTrack(MakeSampleTrack(2, 514))));
    for (std::int32_t length : {-100, kMax}) // an unknown chunk must end within the file
        EXPECT_FALSE(Parses(WithChunk(l.bytes, 32, "QQQQ", length, 0))) << "unknown chunk length " << length;
}
