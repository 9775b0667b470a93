// The reader against damaged and hostile files: it must refuse them cleanly, never crash, hang or
// allocate what the data cannot hold.
#include "TrackBytes.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <limits>

namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

bool Parses(const std::vector<std::uint8_t>& bytes) {
    TrackDocument doc;
    return static_cast<bool>(ParseTrack(bytes, doc));
}

// A small deterministic generator, so a failing case can be replayed from its index.
std::uint64_t SplitMix(std::uint64_t& state) {
    std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

} // namespace

TEST(TrackFileDamage, EveryTruncationIsRefusedWithAMessageAndTheDocumentReset) {
    const std::vector<std::uint8_t> bytes = SerializeTrack(MakeSampleTrack());
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const std::vector<std::uint8_t> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
        TrackDocument doc;
        doc.environment.name1 = "kept";
        const TrackReadResult result = ParseTrack(cut, doc);
        ASSERT_FALSE(result) << "a file cut to " << size << " bytes was accepted";
        EXPECT_FALSE(result.message.empty());
        EXPECT_TRUE(doc.bezier.vertices.empty());
        EXPECT_EQ(doc.environment.name1, "kept");
    }
}

TEST(TrackFileDamage, SeededByteFlipsNeverCrashAndWhatIsReadWritesBackStably) {
    const std::vector<std::uint8_t> original = SerializeTrack(MakeSampleTrack(9, 7));
    std::uint64_t state = 20261122;
    int accepted = 0;
    for (int round = 0; round < 4000; ++round) {
        std::vector<std::uint8_t> bytes = original;
        const int flips = 1 + static_cast<int>(SplitMix(state) % 4);
        for (int f = 0; f < flips; ++f) {
            const std::size_t at = SplitMix(state) % bytes.size();
            bytes[at] = static_cast<std::uint8_t>(bytes[at] ^ (1u << (SplitMix(state) % 8)));
        }
        TrackDocument doc;
        if (!ParseTrack(bytes, doc)) continue;
        ++accepted;
        // Whatever the reader accepts, the writer must write as a file the reader accepts again
        // and that comes back unchanged.
        const std::vector<std::uint8_t> written = SerializeTrack(doc);
        TrackDocument again;
        ASSERT_TRUE(ParseTrack(written, again)) << "round " << round;
        ASSERT_EQ(SerializeTrack(again), written) << "round " << round;
    }
    // Most flips land in values or reserved runs and leave a readable file.
    EXPECT_GT(accepted, 1000);
}

TEST(TrackFileDamage, HugeCountsAreRefusedBeforeAnythingIsAllocated) {
    const LocatedTrack l = Locate(MakeSampleTrack());
    // Offsets of the entry count of each chunk kind, from its id.
    const std::pair<const char*, std::size_t> counts[] = {
        {"TRCK", 12}, {"BEZR", 24}, {"SEGM", 8},  {"FUND", 24}, {"RASC", 24},
        {"FREN", 24}, {"TUBE", 24}, {"CATW", 24}, {"SCEN", 24}, {"SCOB", 24}};
    for (const auto& [id, offset] : counts) {
        for (std::int32_t value : {kMax, -1, 1 << 24}) {
            std::vector<std::uint8_t> bytes = l.bytes;
            SetLong(bytes, l.Offset(id) + offset, value);
            EXPECT_FALSE(Parses(bytes)) << id << " count " << value;
        }
    }
}

TEST(TrackFileDamage, BadLengthsGridsAndChunkCountsAreRefusedAndOnlyHarmlessValuesPass) {
    const LocatedTrack l = Locate(MakeSampleTrack());
    // The first height follows the fixed fields and the three paths.
    const TerrainData t = MakeSampleTerrain(5, 4);
    const std::ptrdiff_t firstHeight = 8 + 16 + 4 + static_cast<std::ptrdiff_t>(t.groundTexture.size()) + 4 +
                                       4 + static_cast<std::ptrdiff_t>(t.detailTexture.size()) + 4 + 1 + 4 +
                                       4 + static_cast<std::ptrdiff_t>(t.waterTexture.size()) + 4 + 1 + 15;
    struct Patch {
        const char* chunk; // "" for the file header
        std::ptrdiff_t at;
        std::int32_t value;
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
        {"TERA", 16, std::bit_cast<std::int32_t>(std::numeric_limits<float>::quiet_NaN()), false,
         "NaN spacing"},
        {"TERA", 20, std::bit_cast<std::int32_t>(-2.0f), false, "negative spacing"},
        {"TERA", firstHeight, std::bit_cast<std::int32_t>(std::numeric_limits<float>::infinity()), false,
         "infinite height"},
        {"TERA", firstHeight, std::bit_cast<std::int32_t>(-9.5f), true, "an ordinary height"},
        {"", 28, 5, false, "one more top-level chunk than there is"},
        {"", 28, kMax, false, "huge top-level chunk count"},
        {"INFO", -4, kMax, false, "huge closing count of TRCK"},
        {"", 28, 0, true, "no chunks: an empty track"},
        {"", 28, -4, true, "a negative chunk count reads nothing"},
    };
    for (const Patch& p : patches) {
        std::vector<std::uint8_t> bytes = l.bytes;
        const std::size_t base = *p.chunk ? l.Offset(p.chunk) : 0;
        SetLong(bytes, static_cast<std::size_t>(static_cast<std::ptrdiff_t>(base) + p.at), p.value);
        TrackDocument doc;
        EXPECT_EQ(static_cast<bool>(ParseTrack(bytes, doc)), p.accepted) << p.what;
        if (p.accepted && !*p.chunk) {
            EXPECT_TRUE(doc.bezier.vertices.empty()) << p.what;
        }
    }
    EXPECT_TRUE(Parses(SerializeTrack(MakeSampleTrack(513, 513)))) << "the largest grid is accepted";
    // An unknown chunk must carry a length that leaves it within the file.
    std::vector<std::uint8_t> unknown = l.bytes;
    std::memcpy(unknown.data() + 32, "QQQQ", 4);
    for (std::int32_t length : {-100, kMax}) {
        SetLong(unknown, 36, length);
        EXPECT_FALSE(Parses(unknown)) << "unknown chunk of length " << length;
    }
}
