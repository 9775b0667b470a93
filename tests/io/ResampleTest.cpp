// cDIBSection::Resample: what any good filter must keep when enlarging and shrinking.
#include "PictureTestSupport.h"
#include "cDIBSection.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace {

cDIBSection Filled(int width, int height, std::uint8_t b, std::uint8_t g, std::uint8_t r) {
    cDIBSection image;
    image.Create(width, height);
    for (int row = 0; row < height; ++row)
        for (int x = 0; x < width; ++x)
            std::copy_n(std::array<std::uint8_t, 3>{b, g, r}.begin(), 3, image.Row(row) + 3 * x);
    return image;
}

// Blue rising from left to right, red rising from bottom to top, green uneven on purpose.
cDIBSection Gradient(int width, int height) {
    cDIBSection image;
    image.Create(width, height);
    for (int row = 0; row < height; ++row)
        for (int x = 0; x < width; ++x) {
            image.Row(row)[3 * x] = static_cast<std::uint8_t>(255 * x * x / ((width - 1) * (width - 1)));
            image.Row(row)[3 * x + 1] = static_cast<std::uint8_t>((x * 7 + row * 3) % 256);
            image.Row(row)[3 * x + 2] = static_cast<std::uint8_t>(255 * row / (height - 1));
        }
    return image;
}

const std::vector<std::pair<int, int>> kSizes{{40, 30}, {7, 5}, {3, 90}, {90, 2}, {1, 1}, {13, 13}, {21, 16}};

} // namespace

TEST(Resample, SameSizeIsACopyUniformPicturesStayUniformAndGradientsStayMonotonicWithinTheirRange) {
    const cDIBSection pattern = MakePattern(17, 9, 31);
    EXPECT_TRUE(SamePixels(pattern.Resample(9, 17), pattern));
    const cDIBSection uniform = Filled(13, 11, 10, 128, 250), source = Gradient(20, 16);
    for (auto [width, height] : kSizes) {
        EXPECT_TRUE(SamePixels(uniform.Resample(height, width), Filled(width, height, 10, 128, 250)))
            << width << " x " << height;
        const cDIBSection result = source.Resample(height, width);
        ASSERT_EQ(result.Width(), width);
        ASSERT_EQ(result.Height(), height);
        for (int row = 0; row < height; ++row) {
            for (int x = 0; x < width; ++x) {
                const std::uint8_t* p = result.Row(row) + 3 * x;
                if (x > 0) {
                    EXPECT_GE(p[0], p[-3]) << width << "x" << height << " at " << x << "," << row;
                }
                if (row > 0) {
                    EXPECT_GE(p[2], result.Row(row - 1)[3 * x + 2]) << width << "x" << height;
                }
            }
        }
        if (width >= source.Width() && height >= source.Height()) {
            // Enlarging keeps the extremes at the corners, rows and columns in their order: nothing is
            // pulled in from beyond the edges.
            EXPECT_EQ(result.Row(0)[0], 0);
            EXPECT_EQ(result.Row(height - 1)[3 * (width - 1)], 255);
            EXPECT_EQ(result.Row(height - 1)[3 * (width - 1) + 2], 255);
        }
    }
}

TEST(Resample, ShrinkingAveragesEveryCoveredPixel) {
    // A one-pixel checkerboard of black and white halves to an even gray, not to one of them.
    cDIBSection board = Filled(8, 6, 0, 0, 0);
    for (int row = 0; row < 6; ++row)
        for (int x = (row % 2); x < 8; x += 2)
            std::fill_n(board.Row(row) + 3 * x, 3, std::uint8_t{255});
    for (auto [width, height] : std::vector<std::pair<int, int>>{{4, 3}, {2, 2}, {1, 1}}) {
        const cDIBSection result = board.Resample(height, width);
        for (int row = 0; row < height; ++row)
            for (int i = 0; i < width * 3; ++i)
                EXPECT_NEAR(result.Row(row)[i], 128, 1) << width << " x " << height;
    }
    // Thin lines in every third column fade to a third of their brightness; none is skipped.
    cDIBSection lines = Filled(12, 2, 0, 0, 0);
    for (int row = 0; row < 2; ++row)
        for (int x = 1; x < 12; x += 3)
            std::fill_n(lines.Row(row) + 3 * x, 3, std::uint8_t{255});
    const cDIBSection thirds = lines.Resample(2, 4);
    for (int i = 0; i < 12; ++i)
        EXPECT_NEAR(thirds.Row(0)[i], 255.0 / 3, 1) << i;
    // An uneven factor still keeps the mean of a picture.
    const cDIBSection pattern = MakePattern(30, 21, 9);
    const cDIBSection small = pattern.Resample(7, 11);
    auto mean = [](const cDIBSection& image) {
        double sum = 0;
        for (int row = 0; row < image.Height(); ++row)
            for (int i = 0; i < image.Width() * 3; ++i)
                sum += image.Row(row)[i];
        return sum / (image.Width() * image.Height() * 3);
    };
    EXPECT_NEAR(mean(small), mean(pattern), 1.5);
}

TEST(Resample, RefusedSizesAndEmptySourcesGiveEmptyPictures) {
    const cDIBSection pattern = MakePattern(4, 4, 2);
    EXPECT_TRUE(pattern.Resample(0, 4).IsEmpty());
    EXPECT_TRUE(pattern.Resample(4, -2).IsEmpty());
    EXPECT_TRUE(pattern.Resample(4, 20000).IsEmpty());
    EXPECT_TRUE(cDIBSection().Resample(4, 4).IsEmpty());
}
