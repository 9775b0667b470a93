// Height maps and pictures as terrain: the grey rule, the 512 limit, the height rules of both
// importers, the sampling of a picture, the exported terrain picture, and the 16-bit mapping with
// its RAW files.
#include "PictureTestSupport.h"
#include "mBitmapFile.h"
#include "mHeightMap.h"
#include "mHeightMap16.h"
#include "mTerrainPicture.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <span>

namespace {

cDIBSection Filled(int width, int height, std::uint8_t b, std::uint8_t g, std::uint8_t r) {
    cDIBSection picture;
    picture.Create(width, height);
    for (int row = 0; row < height; ++row)
        for (int x = 0; x < width; ++x) {
            std::uint8_t* p = picture.Row(row) + 3 * x;
            p[0] = b;
            p[1] = g;
            p[2] = r;
        }
    return picture;
}

void SetGrey(cDIBSection& picture, int x, int row, std::uint8_t grey) {
    std::fill_n(picture.Row(row) + 3 * x, 3, grey);
}

TerrainData Grid(int columns, int rows, float height = 0.0f) {
    TerrainData t;
    t.columns = columns;
    t.rows = rows;
    t.spacingX = 1024.0f / static_cast<float>(columns);
    t.spacingZ = 1024.0f / static_cast<float>(rows);
    t.heights.Resize(columns, rows, height);
    return t;
}

TEST(HeightMapImport, GreysRoundedFromTheChannelsBecomeHeightsFiftyBelowWithinTheLimits) {
    // The grey of a pixel: the mean of its channels rounded to the nearest.
    const std::pair<std::array<std::uint8_t, 3>, int> greys[] = {
        {{0, 0, 1}, 0}, {{0, 1, 1}, 1}, {{10, 20, 31}, 20}, {{10, 20, 32}, 21}, {{255, 255, 254}, 255}};
    for (const auto& [bgr, grey] : greys)
        EXPECT_EQ(GreyOf(bgr.data()), grey) << grey;

    cDIBSection picture = Filled(4, 2, 60, 60, 60);
    SetGrey(picture, 0, 0, 255);
    SetGrey(picture, 1, 0, 0);
    SetGrey(picture, 2, 1, 120);
    const TerrainData t = HeightMapToTerrain(picture);
    ASSERT_EQ(t.columns, 4);
    ASSERT_EQ(t.rows, 2);
    EXPECT_FLOAT_EQ(t.spacingX, 256.0f);
    EXPECT_FLOAT_EQ(t.spacingZ, 512.0f);
    EXPECT_EQ(t.heights.At(0, 0), 150.0f); // white, limited
    EXPECT_EQ(t.heights.At(0, 1), -10.0f); // black, limited
    EXPECT_EQ(t.heights.At(0, 2), 10.0f);  // grey 60
    EXPECT_EQ(t.heights.At(1, 2), 70.0f);  // picture row 1 is grid row 1
    EXPECT_FALSE(t.waterEnabled);

    // Beyond 512 the first 512 columns and rows are taken.
    cDIBSection wide = Filled(600, 700, 100, 100, 100);
    SetGrey(wide, 511, 511, 200);
    const TerrainData cut = HeightMapToTerrain(wide);
    EXPECT_EQ(cut.columns, 512);
    EXPECT_EQ(cut.rows, 512);
    EXPECT_EQ(cut.heights.At(511, 511), 150.0f);
}

TEST(HeightMapExport, WholeHeightsRoundTripExactlyAndOthersAreCutAndClamped) {
    // Row 0 holds every whole height -10 .. 150; row 1 others, cut towards zero and clamped.
    const std::pair<float, int> others[] = {
        {12.7f, 62}, {-3.5f, 47}, {300.0f, 255}, {-80.0f, 0}, {1e20f, 255}};
    TerrainData t = Grid(161, 2);
    for (int c = 0; c < 161; ++c)
        t.heights.At(0, c) = static_cast<float>(c - 10);
    for (int i = 0; i < 5; ++i)
        t.heights.At(1, i) = others[i].first;
    const cDIBSection picture = TerrainToHeightMap(t);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(picture.Row(1)[3 * i], others[i].second) << others[i].first;
    cDIBSection reread;
    ASSERT_TRUE(DecodeBitmap(EncodeBitmap(picture), reread));
    const TerrainData back = HeightMapToTerrain(reread);
    for (int c = 0; c < 161; ++c)
        ASSERT_EQ(back.heights.At(0, c), t.heights.At(0, c)) << c;
}

TEST(PictureImport, EachPointTakesTheNearestSampleAtTheStructuresStep) {
    // 205 samples onto 102 points: a step of 2.0098; point 51 falls on 102.5 and takes 102 (halves
    // to even), point 101 on 203.0.
    SampleGrid greys;
    greys.Resize(205, 1);
    for (int c = 0; c < 205; ++c)
        greys.At(0, c) = static_cast<float>(c);
    PictureImportOptions low;
    low.detail = PictureDetail::Low;
    const TerrainData t = PictureToTerrain(greys, low);
    ASSERT_EQ(t.columns, 102);
    ASSERT_EQ(t.rows, 102);
    EXPECT_FLOAT_EQ(t.spacingX, 1024.0f / 102.0f);
    EXPECT_FLOAT_EQ(t.heights.At(0, 51), 102.0f / 1.7f);
    EXPECT_FLOAT_EQ(t.heights.At(0, 50), 100.0f / 1.7f);    // 100.49 -> 100
    EXPECT_FLOAT_EQ(t.heights.At(101, 101), 203.0f / 1.7f); // one sample row serves every row

    // A smaller picture is stretched: 2 samples onto 409 points.
    SampleGrid two;
    two.Resize(2, 2);
    two.At(1, 1) = 170.0f;
    PictureImportOptions high;
    high.detail = PictureDetail::High;
    const TerrainData big = PictureToTerrain(two, high);
    EXPECT_EQ(big.columns, 409);
    EXPECT_FLOAT_EQ(big.heights.At(408, 408), 100.0f);
}

TEST(PictureImport, InvertWaterAndTheFloorShapeTheHeights) {
    SampleGrid greys;
    greys.Resize(4, 1);
    greys.values = {0.0f, 45.0f, 85.0f, 255.0f};
    const auto heights = [&](bool water, float level, bool invert) {
        PictureImportOptions options;
        options.detail = PictureDetail::Low;
        options.water = water;
        options.waterHeight = level;
        options.invert = invert;
        const TerrainData t = PictureToTerrain(greys, options);
        EXPECT_EQ(t.waterEnabled, water);
        // Points 0, 26, 51 and 77 take samples 0, 1, 2 and 3 (steps of 4 / 102).
        return std::vector<float>{t.heights.At(0, 0), t.heights.At(0, 26), t.heights.At(0, 51),
                                  t.heights.At(0, 77)};
    };
    // With water at 50: 0 - 50 stops at -10, 45 - 50 = -5 stays, 85 - 50 = 35 / 1.7.
    EXPECT_EQ(heights(true, 50, false), (std::vector<float>{-10.0f, -5.0f, 35.0f / 1.7f, 205.0f / 1.7f}));
    // The water height counts only with water on.
    EXPECT_EQ(heights(false, 200, false)[3], 255.0f / 1.7f);
    EXPECT_EQ(heights(false, 0, true),
              (std::vector<float>{255.0f / 1.7f, 210.0f / 1.7f, 170.0f / 1.7f, 0.0f}));
}

// The brightness of a pixel: the sum of its channels.
int Brightness(const cDIBSection& picture, int x, int row) {
    const std::uint8_t* p = picture.Row(row) + 3 * x;
    return p[0] + p[1] + p[2];
}

TEST(TerrainPicture, SnowOnTheHighestGroundAndSlopesFacingTheLightBrighter) {
    // The water and land colours show in the picture import dialog's preview, tested there.
    const cDIBSection snow = RenderTerrainPicture(Grid(3, 3, 150.0f));
    EXPECT_GE(*std::min_element(snow.Row(1) + 3, snow.Row(1) + 6), 240);
    // Two ramps through the same height at their middle: the one rising to +x faces the light
    // from -x and is the brighter, level ground lies between.
    TerrainData up = Grid(3, 3), down = Grid(3, 3), level = Grid(3, 3, 60.0f);
    for (int row = 0; row < 3; ++row)
        for (int c = 0; c < 3; ++c) {
            up.heights.At(row, c) = 60.0f + 100.0f * static_cast<float>(c - 1);
            down.heights.At(row, c) = 60.0f - 100.0f * static_cast<float>(c - 1);
        }
    const int lit = Brightness(RenderTerrainPicture(up), 1, 1);
    const int flat = Brightness(RenderTerrainPicture(level), 1, 1);
    const int shaded = Brightness(RenderTerrainPicture(down), 1, 1);
    EXPECT_GT(lit, flat);
    EXPECT_GT(flat, shaded);
}

TEST(HeightMap16, MinusTenToOneFiftySpreadOverSixteenBitsAndBackOverTheChosenRange) {
    EXPECT_EQ(HeightToGrey16(-10.0f), 0);
    EXPECT_EQ(HeightToGrey16(150.0f), 65535);
    EXPECT_EQ(HeightToGrey16(70.0f), 32768); // 32767.5, halves to even
    EXPECT_EQ(HeightToGrey16(0.0f), 4096);   // 4095.94
    EXPECT_EQ(HeightToGrey16(-50.0f), 0);
    EXPECT_EQ(HeightToGrey16(400.0f), 65535);
    EXPECT_EQ(HeightToGrey16(std::nanf("")), 0);

    Grey16Image image{2, 1, {0, 65535}};
    const TerrainData narrow = Grey16ToTerrain(image, {0.0f, 100.0f});
    EXPECT_FLOAT_EQ(narrow.heights.At(0, 0), 0.0f);
    EXPECT_FLOAT_EQ(narrow.heights.At(0, 1), 100.0f);
    const TerrainData wide = Grey16ToTerrain(image, {-100.0f, 300.0f}); // the terrain's limits hold
    EXPECT_FLOAT_EQ(wide.heights.At(0, 0), -10.0f);
    EXPECT_FLOAT_EQ(wide.heights.At(0, 1), 150.0f);
}

TEST(HeightMap16, RawFilesHoldTheTopRowFirstLittleEndianAndRoundTripWithinTheTolerance) {
    TerrainData t = Grid(5, 4);
    RandomSource random(99);
    for (float& h : std::span(t.heights.Data(), t.heights.Size()))
        h = static_cast<float>(-10.0 + 160.0 * random.Unit());
    t.heights.At(3, 0) = 150.0f; // the top row's first point comes first
    t.heights.At(0, 0) = -10.0f;
    const Bytes raw = EncodeRaw16(TerrainToGrey16(t));
    ASSERT_EQ(raw.size(), 40u);
    EXPECT_EQ(raw[0], 0xFF);
    EXPECT_EQ(raw[1], 0xFF);
    EXPECT_EQ(raw[30], 0x00); // grid row 0 is the file's last row
    EXPECT_EQ(raw[31], 0x00);

    Grey16Image image;
    ASSERT_TRUE(DecodeRaw16(raw, 5, image));
    const TerrainData back = Grey16ToTerrain(image, {});
    ASSERT_EQ(back.columns, 5);
    ASSERT_EQ(back.rows, 4);
    EXPECT_FLOAT_EQ(back.spacingZ, 256.0f);
    for (int row = 0; row < 4; ++row)
        for (int c = 0; c < 5; ++c)
            EXPECT_NEAR(back.heights.At(row, c), t.heights.At(row, c), 0.003f);
}

TEST(HeightMap16, RawSizesSquareByDefaultOtherwiseByTheGivenWidth) {
    EXPECT_EQ(SquareRaw16Side(2 * 513 * 513), 513);
    EXPECT_EQ(SquareRaw16Side(8), 2);
    EXPECT_EQ(SquareRaw16Side(7), 0);

    Grey16Image image;
    EXPECT_TRUE(DecodeRaw16(Bytes(12, 1), 3, image));
    EXPECT_EQ(image.height, 2);
    const Grey16Image before = image;
    const std::tuple<std::size_t, int, const char*> refusals[] = {
        {12, 4, "a width of 4 does not divide the file's 6 points into whole rows"},
        {12, 0, "the file's 6 points make no square: give its width"},
        {13, 0, "a 16-bit RAW file holds two bytes per point; this one has 13 bytes"},
        {2 * 514 * 514, 0, "the height map is 514 x 514 points; a terrain has at most 513 x 513"},
        {2 * 600, 1, "the height map is 1 x 600 points; a terrain has at most 513 x 513"}};
    for (const auto& [size, width, message] : refusals) {
        const Grey16ReadResult read = DecodeRaw16(Bytes(size, 1), width, image);
        EXPECT_FALSE(read) << message;
        EXPECT_EQ(read.message, message);
        EXPECT_EQ(image.values, before.values) << message;
    }
}

} // namespace
