// cDIBSection: its limits, its row layout and its random fill.
#include "PictureTestSupport.h"
#include "cDIBSection.h"

#include <gtest/gtest.h>

#include <set>

TEST(DIBSection, RowsArePaddedToFourBytes) {
    cDIBSection image;
    ASSERT_TRUE(image.Create(5, 3));
    EXPECT_EQ(image.BytesPerScanLine(), 16);
    EXPECT_EQ(image.SizeInBytes(), 48u);
    for (int width = 1; width <= 9; ++width) {
        const int bytes = cDIBSection::ScanLineBytes(width);
        EXPECT_EQ(bytes % 4, 0) << width;
        EXPECT_GE(bytes, width * 3) << width;
        EXPECT_LT(bytes, width * 3 + 4) << width;
    }
    EXPECT_EQ(image.Row(0), image.Bits());
    EXPECT_EQ(image.Row(2) - image.Row(1), 16);
}

TEST(DIBSection, CreateRefusesEmptyAndAbsurdSizes) {
    cDIBSection image;
    for (auto [w, h] :
         std::vector<std::pair<int, int>>{{0, 5}, {5, 0}, {-1, 5}, {16385, 1}, {1, 16385}, {16384, 16384}}) {
        ASSERT_TRUE(image.Create(2, 2));
        EXPECT_FALSE(image.Create(w, h)) << w << " x " << h;
        EXPECT_TRUE(image.IsEmpty());
        EXPECT_EQ(image.Width(), 0);
        EXPECT_EQ(image.Bits(), nullptr);
    }
    EXPECT_TRUE(image.Create(16384, 1));
    EXPECT_TRUE(image.Create(1, 16384));
    image.ClearUp();
    EXPECT_TRUE(image.IsEmpty());
    EXPECT_EQ(image.Height(), 0);
}

TEST(DIBSection, RandomiseBitsFillsPixelsButNotPadding) {
    cDIBSection gray;
    ASSERT_TRUE(gray.Create(7, 6));
    XorShiftRandom random(42);
    gray.RandomiseBits(true, std::ref(random));
    std::set<int> values;
    for (int row = 0; row < gray.Height(); ++row) {
        const std::uint8_t* p = gray.Row(row);
        for (int x = 0; x < gray.Width(); ++x) {
            EXPECT_EQ(p[3 * x], p[3 * x + 1]);
            EXPECT_EQ(p[3 * x], p[3 * x + 2]);
            values.insert(p[3 * x]);
        }
        for (int i = gray.Width() * 3; i < gray.BytesPerScanLine(); ++i)
            EXPECT_EQ(p[i], 0) << "padding";
    }
    EXPECT_GT(values.size(), 20u);

    cDIBSection colour;
    ASSERT_TRUE(colour.Create(7, 6));
    XorShiftRandom other(42);
    colour.RandomiseBits(false, std::ref(other));
    int unequal = 0;
    for (int row = 0; row < colour.Height(); ++row)
        for (int x = 0; x < colour.Width(); ++x)
            unequal += colour.Row(row)[3 * x] != colour.Row(row)[3 * x + 1];
    EXPECT_GT(unequal, 30);
}

TEST(DIBSection, SeededRandomSourcesRepeatAndDiffer) {
    EXPECT_TRUE(SamePixels(MakePattern(9, 4, 1), MakePattern(9, 4, 1)));
    EXPECT_FALSE(SamePixels(MakePattern(9, 4, 1), MakePattern(9, 4, 2)));
    XorShiftRandom zero(0);
    EXPECT_NE(zero(), zero()) << "a zero seed must not stick at zero";
}

TEST(DIBSection, PackedBgrDropsThePadding) {
    const cDIBSection image = MakePattern(5, 3, 6);
    const std::vector<std::uint8_t> packed = image.PackedBgr();
    ASSERT_EQ(packed.size(), 45u);
    for (int row = 0; row < 3; ++row)
        EXPECT_TRUE(std::equal(image.Row(row), image.Row(row) + 15, packed.begin() + 15 * row)) << row;
}
