#include "TerragenFile.h"
#include "TerragenSample.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

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

} // namespace

TEST(TerragenFile, BytePairsDecodeToTheEditorsValuesAndTheFirstPairGoesToTheLastRow) {
    // Three columns, two rows: the first three pairs are the top row (row 1), then row 0.
    const std::vector<std::uint8_t> pairs = {50, 0, 100, 0, 200, 0, 128, 0, 10, 2, 255, 4};
    const Parsed p = Parse(MakeTerragenFileFromPairs(3, 2, pairs));
    ASSERT_TRUE(p.result) << p.result.reason;
    ASSERT_EQ(p.grid.columns, 3);
    ASSERT_EQ(p.grid.rows, 2);
    // 50 + 128, 100 + 128, 200 - 128; 128 is still moved up, 10 + 1/2 + 128, 255 + 1/4 - 128.
    EXPECT_EQ(p.grid.values, (std::vector<float>{256.0f, 138.5f, 127.25f, 178.0f, 228.0f, 72.0f}));
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
}

TEST(TerragenFile, FilesOutOfLayoutShortOrLyingAboutTheirCountsAreRefusedAndTheGridKept) {
    const std::vector<std::uint8_t> good = MakeTerragenFile({4, 3, false, true}, {});
    ASSERT_TRUE(Parse(good).result);

    std::vector<std::vector<std::uint8_t>> bad;
    bad.push_back(MakeTerragenFile({4, 3, true, true}, {}));        // no scale, radius, curvature blocks
    bad.emplace_back(good.begin(), good.begin() + 80);              // header only, shorter than 81
    bad.emplace_back(good.begin(), good.begin() + 80 + 2 * 12 - 1); // one elevation byte short
    for (const std::size_t at : {std::size_t{14}, std::size_t{24}, std::size_t{35}, std::size_t{72}}) {
        bad.push_back(good);
        bad.back()[at] = 'Q'; // a letter of TERRAGENTERRAIN, XPTS, YPTS or ALTW
    }
    for (const std::size_t at :
         {std::size_t{28}, std::size_t{36}}) // the column and the row count, below 2 and above 513
        for (const std::uint8_t high : {std::uint8_t{0}, std::uint8_t{2}}) {
            bad.push_back(good);
            bad.back()[at] = high == 0 ? std::uint8_t{1} : std::uint8_t{2}; // 1, or 2 + 2 * 256 = 514
            bad.back()[at + 1] = high;
        }
    for (std::size_t i = 0; i < bad.size(); ++i) {
        const Parsed p = Parse(bad[i]);
        EXPECT_FALSE(p.result) << "case " << i;
        EXPECT_FALSE(p.result.reason.empty()) << "case " << i;
        EXPECT_FALSE(p.result.unreadable) << "case " << i;
        EXPECT_EQ(p.grid.values, std::vector<float>{-7.0f}) << "case " << i;
    }
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
    // 89.5 - 100 = -10.5 is held at -10.
    const float expected[] = {-10.0f, 0.0f, 10.0f, -10.0f, 156.0f / 1.7f, -10.0f};
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_FLOAT_EQ(wet.heights.Data()[i], expected[i]) << i;

    // Without water the heights count from 0, whatever water height the slider showed.
    const TerrainData dry = TerrainFromTerragen(samples, false, 100.0f);
    EXPECT_FALSE(dry.waterEnabled);
    EXPECT_FLOAT_EQ(dry.heights.At(0, 0), 50.0f / 1.7f);
    EXPECT_FLOAT_EQ(dry.heights.At(1, 2), 1.0f / 1.7f);
}

TEST(TerragenConversion, ThePreviewShowsWaterDarkerWithDepthAndLandInGrey) {
    // Water pixels: intensity 255 - (W - value) * 3 in blue, 3/5 of it in green, clamped at black.
    EXPECT_EQ(TerragenPreviewColour(90.0f, true, 100.0f), 0x0087E1u);
    EXPECT_EQ(TerragenPreviewColour(99.5f, true, 100.0f) & 0xFFu, 254u); // 253.5 to even
    EXPECT_EQ(TerragenPreviewColour(1.0f, true, 100.0f), 0u);
    // Land, and everything without water, in grey.
    EXPECT_EQ(TerragenPreviewColour(100.0f, true, 100.0f), 0x646464u);
    EXPECT_EQ(TerragenPreviewColour(90.0f, false, 100.0f), 0x5A5A5Au);
    EXPECT_EQ(TerragenPreviewColour(256.0f, false, 0.0f), 0xFFFFFFu);
}
