// cDIBSection: its limits, its row layout, its random fill and Resample, which must keep what any
// good filter keeps when enlarging and shrinking.
#include "PictureTestSupport.h"
#include "cDIBSection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

namespace {

// A picture whose byte of channel c at (x, row) is paint(x, row, c).
template <typename Paint> cDIBSection Painted(int width, int height, Paint paint) {
    cDIBSection image;
    image.Create(width, height);
    for (int row = 0; row < height; ++row)
        for (int i = 0; i < 3 * width; ++i)
            image.Row(row)[i] = static_cast<std::uint8_t>(paint(i / 3, row, i % 3));
    return image;
}

cDIBSection Uniform(int width, int height) {
    return Painted(width, height, [](int, int, int c) { return c == 0 ? 10 : c == 1 ? 128 : 250; });
}

double Mean(const cDIBSection& image) {
    double sum = 0;
    for (int row = 0; row < image.Height(); ++row)
        for (int i = 0; i < image.Width() * 3; ++i)
            sum += image.Row(row)[i];
    return sum / (image.Width() * image.Height() * 3);
}

} // namespace

TEST(DIBSection, RowsArePaddedToFourBytesInMemoryButPackedWithoutPadding) {
    for (int width = 1; width <= 9; ++width) {
        const int bytes = cDIBSection::ScanLineBytes(width);
        EXPECT_TRUE(bytes % 4 == 0 && bytes >= width * 3 && bytes < width * 3 + 4) << width << ": " << bytes;
    }
    const cDIBSection image = MakePattern(5, 3, 6);
    EXPECT_EQ(image.BytesPerScanLine(), 16);
    EXPECT_EQ(image.SizeInBytes(), 48u);
    EXPECT_EQ(image.Row(0), image.Bits());
    EXPECT_EQ(image.Row(2) - image.Row(1), 16);
    EXPECT_EQ(image.PackedBgr(), PixelsOf(image, 3));
}

TEST(DIBSection, CreateRefusesEmptyOrAbsurdSizesLeavingTheImageEmpty) {
    cDIBSection image;
    for (auto [w, h] :
         std::vector<std::pair<int, int>>{{0, 5}, {5, 0}, {-1, 5}, {16385, 1}, {1, 16385}, {16384, 16384}}) {
        ASSERT_TRUE(image.Create(2, 2));
        EXPECT_FALSE(image.Create(w, h)) << w << " x " << h;
        EXPECT_TRUE(image.IsEmpty() && image.Width() == 0 && image.Bits() == nullptr) << w << " x " << h;
    }
    EXPECT_TRUE(image.Create(16384, 1));
    EXPECT_TRUE(image.Create(1, 16384));
    image.ClearUp();
    EXPECT_TRUE(image.IsEmpty() && image.Height() == 0);
}

TEST(DIBSection, RandomiseBitsFillsPixelsGrayOrColouredButNeverThePadding) {
    cDIBSection gray;
    ASSERT_TRUE(gray.Create(7, 6));
    RandomSource random(42);
    gray.RandomiseBits(true, random);
    std::set<int> values;
    for (int row = 0; row < gray.Height(); ++row) {
        const std::uint8_t* p = gray.Row(row);
        for (int x = 0; x < gray.Width(); ++x) {
            EXPECT_TRUE(p[3 * x] == p[3 * x + 1] && p[3 * x] == p[3 * x + 2]) << x << "," << row;
            values.insert(p[3 * x]);
        }
        EXPECT_EQ(p[21] + p[22] + p[23], 0) << "padding";
    }
    EXPECT_GT(values.size(), 20u);
    const cDIBSection colour = MakePattern(7, 6, 42); // random colours, every third row repeated
    int unequal = 0;
    for (int row = 0; row < colour.Height(); ++row)
        for (int x = 0; x < colour.Width() && row % 3 != 0; ++x)
            unequal += colour.Row(row)[3 * x] != colour.Row(row)[3 * x + 1];
    EXPECT_GT(unequal, 20) << "of 28 random pixels";
    EXPECT_TRUE(SamePixels(MakePattern(9, 4, 1), MakePattern(9, 4, 1)));
    EXPECT_FALSE(SamePixels(MakePattern(9, 4, 1), MakePattern(9, 4, 2)));
}

TEST(Resample, ToTheSameSizeIsACopy) {
    const cDIBSection pattern = MakePattern(17, 9, 31);
    EXPECT_TRUE(SamePixels(pattern.Resample(9, 17), pattern));
}

TEST(Resample, UniformPicturesStayUniformAndGradientsMonotonicWithinTheirRange) {
    // Blue rising from left to right, red rising from bottom to top, green uneven on purpose.
    const cDIBSection source = Painted(20, 16, [](int x, int row, int c) {
        return c == 0 ? 255 * x * x / (19 * 19) : c == 1 ? (x * 7 + row * 3) % 256 : 255 * row / 15;
    });
    for (auto [width, height] :
         std::vector<std::pair<int, int>>{{40, 30}, {7, 5}, {3, 90}, {90, 2}, {1, 1}, {13, 13}, {21, 16}}) {
        EXPECT_TRUE(SamePixels(Uniform(13, 11).Resample(height, width), Uniform(width, height)))
            << width << " x " << height;
        const cDIBSection result = source.Resample(height, width);
        ASSERT_EQ(result.Width(), width);
        ASSERT_EQ(result.Height(), height);
        for (int row = 0; row < height; ++row)
            for (int x = 0; x < width; ++x) {
                const std::uint8_t* p = result.Row(row) + 3 * x;
                EXPECT_TRUE((x == 0 || p[0] >= p[-3]) && (row == 0 || p[2] >= result.Row(row - 1)[3 * x + 2]))
                    << width << "x" << height << " at " << x << "," << row;
            }
        if (width >= source.Width() && height >= source.Height()) {
            // Enlarging keeps the extremes at the corners: nothing is pulled in from beyond the edges.
            EXPECT_EQ(result.Row(0)[0], 0);
            EXPECT_EQ(result.Row(height - 1)[3 * (width - 1)], 255);
            EXPECT_EQ(result.Row(height - 1)[3 * (width - 1) + 2], 255);
        }
    }
}

TEST(Resample, ShrinkingAveragesEveryCoveredPixel) {
    // A one-pixel checkerboard of black and white halves to an even gray, not to one of them.
    const cDIBSection board = Painted(8, 6, [](int x, int row, int) { return (x + row) % 2 ? 0 : 255; });
    for (auto [width, height] : std::vector<std::pair<int, int>>{{4, 3}, {2, 2}, {1, 1}}) {
        const cDIBSection result = board.Resample(height, width);
        for (int row = 0; row < height; ++row)
            for (int i = 0; i < width * 3; ++i)
                EXPECT_NEAR(result.Row(row)[i], 128, 1) << width << " x " << height;
    }
    // Thin lines in every third column fade to a third of their brightness; none is skipped.
    const cDIBSection thirds =
        Painted(12, 2, [](int x, int, int) { return x % 3 == 1 ? 255 : 0; }).Resample(2, 4);
    for (int i = 0; i < 12; ++i)
        EXPECT_NEAR(thirds.Row(0)[i], 255.0 / 3, 1) << i;
    // An uneven factor still keeps the mean of a picture.
    const cDIBSection pattern = MakePattern(30, 21, 9);
    EXPECT_NEAR(Mean(pattern.Resample(7, 11)), Mean(pattern), 1.5);
}

TEST(Resample, AMirrorSymmetricPictureStaysSymmetricSoNothingShiftsByHalfAPixel) {
    const cDIBSection ridge = Painted(5, 1, [](int x, int, int) { return 60 * std::min(x, 4 - x); });
    for (int width : {15, 8, 3}) {
        const cDIBSection result = ridge.Resample(1, width);
        for (int x = 0; x < width; ++x)
            EXPECT_EQ(result.Row(0)[3 * x], result.Row(0)[3 * (width - 1 - x)]) << width << " at " << x;
    }
}

TEST(Resample, RefusedSizesAndEmptySourcesGiveEmptyPictures) {
    const cDIBSection pattern = MakePattern(4, 4, 2);
    EXPECT_TRUE(pattern.Resample(0, 4).IsEmpty());
    EXPECT_TRUE(pattern.Resample(4, -2).IsEmpty());
    EXPECT_TRUE(pattern.Resample(4, 20000).IsEmpty());
    EXPECT_TRUE(cDIBSection().Resample(4, 4).IsEmpty());
}
