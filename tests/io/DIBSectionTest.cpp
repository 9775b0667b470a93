// cDIBSection: its limits, its row layout and its random fill.
#include "PictureTestSupport.h"
#include "cDIBSection.h"

#include <gtest/gtest.h>

#include <set>

TEST(DIBSection, RowsArePaddedToFourBytesInMemoryAndPackedWithoutPadding) {
    for (int width = 1; width <= 9; ++width) {
        const int bytes = cDIBSection::ScanLineBytes(width);
        EXPECT_TRUE(bytes % 4 == 0 && bytes >= width * 3 && bytes < width * 3 + 4) << width << ": " << bytes;
    }
    const cDIBSection image = MakePattern(5, 3, 6);
    EXPECT_EQ(image.BytesPerScanLine(), 16);
    EXPECT_EQ(image.SizeInBytes(), 48u);
    EXPECT_EQ(image.Row(0), image.Bits());
    EXPECT_EQ(image.Row(2) - image.Row(1), 16);
    const std::vector<std::uint8_t> packed = image.PackedBgr();
    ASSERT_EQ(packed.size(), 45u);
    for (int row = 0; row < 3; ++row)
        EXPECT_TRUE(std::equal(image.Row(row), image.Row(row) + 15, packed.begin() + 15 * row)) << row;
}

TEST(DIBSection, CreateRefusesEmptyAndAbsurdSizesAndLeavesTheImageEmpty) {
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

TEST(DIBSection, RandomiseBitsFillsPixelsGrayOrColouredButNotPaddingAndSeedsRepeat) {
    cDIBSection gray;
    ASSERT_TRUE(gray.Create(7, 6));
    XorShiftRandom random(42);
    gray.RandomiseBits(true, std::ref(random));
    std::set<int> values;
    for (int row = 0; row < gray.Height(); ++row) {
        const std::uint8_t* p = gray.Row(row);
        for (int x = 0; x < gray.Width(); ++x) {
            EXPECT_TRUE(p[3 * x] == p[3 * x + 1] && p[3 * x] == p[3 * x + 2]) << x << "," << row;
            values.insert(p[3 * x]);
        }
        for (int i = gray.Width() * 3; i < gray.BytesPerScanLine(); ++i)
            EXPECT_EQ(p[i], 0) << "padding";
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
    XorShiftRandom zero(0);
    EXPECT_NE(zero(), zero()) << "a zero seed must not stick at zero";
}
