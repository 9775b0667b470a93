#include "TerragenFile.h"
#include "TerragenSample.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// Parses bytes into a grid that starts out holding a marker, so an untouched grid shows.
struct Parsed {
    TerragenReadResult result;
    SampleGrid grid;
};

Parsed Parse(const std::vector<std::uint8_t>& bytes) {
    Parsed parsed;
    parsed.grid.Resize(1, 1, -7.0f);
    parsed.result = ParseTerragenFile(bytes, parsed.grid);
    return parsed;
}

void PutLong(std::vector<std::uint8_t>& bytes, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

} // namespace

TEST(TerragenFile, BytePairsDecodeToTheEditorsValuesAndTheFirstPairGoesToTheLastRow) {
    // Three columns, two rows: the first three pairs are the top row (row 1), then row 0.
    const std::vector<std::uint8_t> pairs = {50, 0, 100, 0, 200, 0, 128, 0, 10, 2, 255, 4};
    const Parsed p = Parse(MakeTerragenFileFromPairs(3, 2, pairs));
    ASSERT_TRUE(p.result) << p.result.reason;
    ASSERT_EQ(p.grid.columns, 3);
    ASSERT_EQ(p.grid.rows, 2);
    EXPECT_FLOAT_EQ(p.grid.At(1, 0), 178.0f);  // 50 + 128
    EXPECT_FLOAT_EQ(p.grid.At(1, 1), 228.0f);  // 100 + 128
    EXPECT_FLOAT_EQ(p.grid.At(1, 2), 72.0f);   // 200 - 128
    EXPECT_FLOAT_EQ(p.grid.At(0, 0), 256.0f);  // 128 is still moved up
    EXPECT_FLOAT_EQ(p.grid.At(0, 1), 138.5f);  // 10 + 1/2 + 128
    EXPECT_FLOAT_EQ(p.grid.At(0, 2), 127.25f); // 255 + 1/4 - 128

    EXPECT_FLOAT_EQ(DecodeTerragenSample(129, 0), 1.0f);
    EXPECT_FLOAT_EQ(DecodeTerragenSample(0, 0), 128.0f);
    EXPECT_FLOAT_EQ(DecodeTerragenSample(128, 1), 1.0f); // 129 lies above 128
    EXPECT_FLOAT_EQ(DecodeTerragenSample(127, 3), 255.0f + 1.0f / 3.0f);
}

TEST(TerragenFile, AFileOfAnotherProgramReadsAtItsOwnSizeFromOffsetEightyOne) {
    // Elevations written as 16-bit values from offset 80: every pair read one byte later joins
    // an elevation's high byte with the next one's low byte.
    const std::vector<std::int16_t> elevations = {0x0305, 0x0102, -2, 0x7F10};
    const Parsed p = Parse(MakeTerragenFile({2, 2, false, true}, elevations));
    ASSERT_TRUE(p.result) << p.result.reason;
    EXPECT_FLOAT_EQ(p.grid.At(1, 0), 3.0f + 1.0f / 2.0f + 128.0f);
    EXPECT_FLOAT_EQ(p.grid.At(1, 1), 1.0f + 1.0f / 254.0f + 128.0f);
    EXPECT_FLOAT_EQ(p.grid.At(0, 0), 255.0f + 1.0f / 16.0f - 128.0f);
    // The last pair's second byte is the first letter of "EOF ".
    EXPECT_FLOAT_EQ(p.grid.At(0, 1), 127.0f + 1.0f / 'E' + 128.0f);

    // Without the marker the last byte lies past the end and counts as 0.
    const Parsed bare = Parse(MakeTerragenFile({2, 2, false, false}, elevations));
    ASSERT_TRUE(bare.result) << bare.result.reason;
    EXPECT_FLOAT_EQ(bare.grid.At(0, 1), 255.0f);

    const Parsed large = Parse(MakeTerragenFile({257, 257, false, true}, RollingTerragenElevations(257)));
    ASSERT_TRUE(large.result);
    EXPECT_EQ(large.grid.columns, 257);
    EXPECT_EQ(large.grid.rows, 257);
    EXPECT_EQ(large.grid.values.size(), 257u * 257u);
}

TEST(TerragenFile, FilesOutOfLayoutShortOrLyingAboutTheirCountsAreRefusedAndTheGridKept) {
    const std::vector<std::uint8_t> good = MakeTerragenFile({4, 3, false, true}, {});
    ASSERT_TRUE(Parse(good).result);

    std::vector<std::vector<std::uint8_t>> bad;
    bad.push_back(MakeTerragenFile({4, 3, true, true}, {}));        // no scale, radius, curvature blocks
    bad.emplace_back(good.begin(), good.begin() + 80);              // header only, shorter than 81
    bad.emplace_back(good.begin(), good.begin() + 80 + 2 * 12 - 1); // one elevation byte short
    bad.emplace_back();
    for (std::size_t at :
         {std::size_t{0}, std::size_t{14}, std::size_t{24}, std::size_t{35}, std::size_t{72}}) {
        bad.push_back(good);
        bad.back()[at] = 'Q'; // a letter of TERRAGENTERRAIN, XPTS, YPTS or ALTW
    }
    for (std::uint32_t count : {0u, 1u, 514u, 0x7FFFFFFFu, 0xFFFFFFFFu, 0x00010004u}) {
        bad.push_back(good);
        PutLong(bad.back(), 28, count);
        bad.push_back(good);
        PutLong(bad.back(), 36, count);
    }
    for (std::size_t i = 0; i < bad.size(); ++i) {
        const Parsed p = Parse(bad[i]);
        EXPECT_FALSE(p.result) << "case " << i;
        EXPECT_FALSE(p.result.reason.empty()) << "case " << i;
        EXPECT_FALSE(p.result.unreadable) << "case " << i;
        EXPECT_EQ(p.grid.values, std::vector<float>{-7.0f}) << "case " << i;
    }
}

TEST(TerragenFile, ReadingByPathTellsAMissingFileFromARefusedOne) {
    ScratchFolder folder;
    SampleGrid grid;
    const TerragenReadResult missing = ReadTerragenFile(folder.File("none.ter"), grid);
    EXPECT_FALSE(missing);
    EXPECT_TRUE(missing.unreadable);
    WriteText(folder.File("text.ter"), "TERRAGENTERRAIN but nothing else");
    const TerragenReadResult refused = ReadTerragenFile(folder.File("text.ter"), grid);
    EXPECT_FALSE(refused);
    EXPECT_FALSE(refused.unreadable);
    WriteBytes(folder.File("good.ter"), MakeTerragenFile({5, 6, false, true}, {}));
    ASSERT_TRUE(ReadTerragenFile(folder.File("good.ter"), grid));
    EXPECT_EQ(grid.columns, 5);
    EXPECT_EQ(grid.rows, 6);
}

TEST(TerragenConversion, WaterSetsTheZeroLandAboveItIsFlattenedAndTheDepthStopsAtMinusTen) {
    SampleGrid samples;
    samples.Resize(3, 2);
    samples.values = {50.0f, 100.0f, 117.0f, 89.5f, 256.0f, 1.0f};
    const TerrainData wet = TerrainFromTerragen(samples, true, 100.0f);
    EXPECT_TRUE(wet.waterEnabled);
    EXPECT_EQ(wet.columns, 3);
    EXPECT_EQ(wet.rows, 2);
    EXPECT_FLOAT_EQ(wet.spacingX, 1024.0f / 3.0f);
    EXPECT_FLOAT_EQ(wet.spacingZ, 512.0f);
    EXPECT_FLOAT_EQ(wet.heights.At(0, 0), -10.0f);
    EXPECT_FLOAT_EQ(wet.heights.At(0, 1), 0.0f);
    EXPECT_FLOAT_EQ(wet.heights.At(0, 2), 10.0f);
    EXPECT_FLOAT_EQ(wet.heights.At(1, 0), -10.0f); // -10.5 held at -10
    EXPECT_FLOAT_EQ(wet.heights.At(1, 1), 156.0f / 1.7f);
    EXPECT_TRUE(wet.groundTexture.empty()) << "left for the defaults";

    // Without water the heights count from 0, whatever water height the slider showed.
    const TerrainData dry = TerrainFromTerragen(samples, false, 100.0f);
    EXPECT_FALSE(dry.waterEnabled);
    EXPECT_FLOAT_EQ(dry.heights.At(0, 0), 50.0f / 1.7f);
    EXPECT_FLOAT_EQ(dry.heights.At(1, 2), 1.0f / 1.7f);
}

TEST(TerragenConversion, ThePreviewShowsWaterDarkerWithDepthAndLandInGrey) {
    // Water pixels: intensity 255 - (W - value) * 3 in blue, clamped at black.
    EXPECT_EQ(TerragenPreviewColour(90.0f, true, 100.0f) & 0xFFu, 225u);
    EXPECT_EQ(TerragenPreviewColour(99.5f, true, 100.0f) & 0xFFu, 254u); // 253.5 to even
    EXPECT_EQ(TerragenPreviewColour(1.0f, true, 100.0f) & 0xFFu, 0u);
    EXPECT_EQ(TerragenPreviewColour(90.0f, true, 100.0f) >> 16, 0u) << "no red in water";
    // Land, and everything without water, in grey.
    EXPECT_EQ(TerragenPreviewColour(100.0f, true, 100.0f), 0x646464u);
    EXPECT_EQ(TerragenPreviewColour(90.0f, false, 100.0f), 0x5A5A5Au);
    EXPECT_EQ(TerragenPreviewColour(256.0f, false, 0.0f), 0xFFFFFFu);
}
