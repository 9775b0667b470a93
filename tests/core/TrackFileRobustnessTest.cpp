// The reader against damaged and hostile files: it must refuse them cleanly, never crash, hang or
// allocate what the data cannot hold.
#include "SampleTrack.h"
#include "TrackChunks.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace {

struct Located {
    std::vector<std::uint8_t> bytes;
    std::vector<ChunkListing> chunks;
    std::size_t Offset(const std::string& id) const {
        for (const ChunkListing& c : chunks)
            if (c.id == id) return c.offset;
        ADD_FAILURE() << "no chunk " << id;
        return 0;
    }
};

Located Sample() {
    Located l;
    l.bytes = SerializeTrack(MakeSampleTrack());
    TrackDocument doc;
    EXPECT_TRUE(ParseTrack(l.bytes, doc, &l.chunks));
    return l;
}

void SetLong(std::vector<std::uint8_t>& bytes, std::size_t at, std::int32_t value) {
    if (at + 4 > bytes.size()) throw std::out_of_range("long past the end");
    const auto raw = static_cast<std::uint32_t>(value);
    const std::uint8_t big[4] = {static_cast<std::uint8_t>(raw >> 24), static_cast<std::uint8_t>(raw >> 16),
                                 static_cast<std::uint8_t>(raw >> 8), static_cast<std::uint8_t>(raw)};
    std::memcpy(bytes.data() + at, big, 4);
}

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

TEST(TrackFileDamage, EveryTruncationIsRefused) {
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
    const Located l = Sample();
    // Offsets of the entry count of each chunk kind, from its id.
    const std::pair<const char*, std::size_t> counts[] = {
        {"TRCK", 12}, {"BEZR", 24}, {"SEGM", 8},  {"FUND", 24}, {"RASC", 24}, {"FREN", 24},
        {"TUBE", 24}, {"CATW", 24}, {"SCEN", 24}, {"SCOB", 24}};
    for (const auto& [id, offset] : counts) {
        for (std::int32_t value : {std::numeric_limits<std::int32_t>::max(), -1, 1 << 24}) {
            std::vector<std::uint8_t> bytes = l.bytes;
            SetLong(bytes, l.Offset(id) + offset, value);
            EXPECT_FALSE(Parses(bytes)) << id << " count " << value;
        }
    }
}

TEST(TrackFileDamage, BadLengthsInsideRecordsAreRefused) {
    const Located l = Sample();
    auto refusedWith = [&](std::size_t at, std::int32_t value) {
        std::vector<std::uint8_t> bytes = l.bytes;
        SetLong(bytes, at, value);
        return !Parses(bytes);
    };
    const std::size_t info = l.Offset("INFO") + 8 + 16;
    EXPECT_TRUE(refusedWith(info, -5)) << "negative string length";
    EXPECT_TRUE(refusedWith(info, 1 << 30)) << "string longer than the file";
    const std::size_t rasc = l.Offset("RASC") + 28;
    EXPECT_TRUE(refusedWith(rasc, std::numeric_limits<std::int32_t>::max())) << "rail connector items";
    const std::size_t catw = l.Offset("CATW") + 28 + 24;
    EXPECT_TRUE(refusedWith(catw, -12)) << "negative catwalk bytes";
    EXPECT_TRUE(refusedWith(catw, 1 << 30)) << "catwalk bytes past the end";
}

TEST(TrackFileDamage, TerrainGridsMustBeUsable) {
    const Located l = Sample();
    const std::size_t tera = l.Offset("TERA") + 8;
    auto withLong = [&](std::size_t at, std::int32_t value) {
        std::vector<std::uint8_t> bytes = l.bytes;
        SetLong(bytes, at, value);
        return bytes;
    };
    EXPECT_FALSE(Parses(withLong(tera, 514))) << "more columns than the undo store holds";
    EXPECT_FALSE(Parses(withLong(tera + 4, 514)));
    EXPECT_FALSE(Parses(withLong(tera, 0)));
    EXPECT_FALSE(Parses(withLong(tera + 4, -3)));
    EXPECT_FALSE(Parses(withLong(tera + 8, std::bit_cast<std::int32_t>(std::numeric_limits<float>::quiet_NaN()))));
    EXPECT_FALSE(Parses(withLong(tera + 12, std::bit_cast<std::int32_t>(-2.0f))));
    // The first height follows the fixed fields and the three paths.
    const TerrainData t = MakeSampleTerrain(5, 4);
    const std::size_t firstHeight =
        tera + 16 + 4 + t.groundTexture.size() + 4 + 4 + t.detailTexture.size() + 4 + 1 + 4 + 4 +
        t.waterTexture.size() + 4 + 1 + 15;
    EXPECT_FALSE(Parses(withLong(firstHeight, std::bit_cast<std::int32_t>(std::numeric_limits<float>::infinity()))));
    EXPECT_TRUE(Parses(withLong(firstHeight, std::bit_cast<std::int32_t>(-9.5f))));
    // The largest grid is accepted.
    TrackDocument big = MakeSampleTrack(513, 513);
    EXPECT_TRUE(Parses(SerializeTrack(big)));
}

TEST(TrackFileDamage, ChunkCountsThatLieAreHandled) {
    const Located l = Sample();
    std::vector<std::uint8_t> more = l.bytes;
    SetLong(more, 28, 5); // one more top-level chunk than there is
    EXPECT_FALSE(Parses(more));
    std::vector<std::uint8_t> huge = l.bytes;
    SetLong(huge, 28, std::numeric_limits<std::int32_t>::max());
    EXPECT_FALSE(Parses(huge));
    std::vector<std::uint8_t> closing = l.bytes;
    SetLong(closing, l.Offset("INFO") - 4, std::numeric_limits<std::int32_t>::max()); // TRCK's closing count
    EXPECT_FALSE(Parses(closing));
    std::vector<std::uint8_t> none = l.bytes;
    SetLong(none, 28, 0);
    TrackDocument doc;
    EXPECT_TRUE(ParseTrack(none, doc)) << "a file declaring no chunks is an empty track";
    EXPECT_TRUE(doc.bezier.vertices.empty());
    std::vector<std::uint8_t> negative = l.bytes;
    SetLong(negative, 28, -4);
    EXPECT_TRUE(Parses(negative));
}

TEST(TrackFileDamage, UnknownChunkWithNegativeLengthIsRefused) {
    std::vector<std::uint8_t> bytes = Sample().bytes;
    std::memcpy(bytes.data() + 32, "QQQQ", 4);
    SetLong(bytes, 36, -100);
    EXPECT_FALSE(Parses(bytes));
    SetLong(bytes, 36, std::numeric_limits<std::int32_t>::max());
    EXPECT_FALSE(Parses(bytes)) << "skipped past the end with chunks still to read";
}
