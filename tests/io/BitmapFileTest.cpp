// The bitmap reader against files built here byte by byte, one for each kind a user is likely to
// have, the writer's file layout, and damaged or lying files.
#include "PictureTestSupport.h"
#include "TestSupport.h"
#include "mBitmapFile.h"
#include "mPictureLoader.h"

#include <gtest/gtest.h>

#include <array>

// Each test bitmap names only the fields it sets; the rest keep their defaults.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace {

void Put(Bytes& out, std::size_t at, std::uint64_t value, int size) {
    if (out.size() < at + static_cast<std::size_t>(size)) out.resize(at + static_cast<std::size_t>(size), 0);
    for (int i = 0; i < size; ++i)
        out[at + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value >> (8 * i));
}

// What goes into a test bitmap; the file is laid out from it the way writers lay theirs out.
struct Bmp {
    int headerSize = 40;
    std::int64_t width = 0, height = 0;
    int bits = 24;
    std::uint32_t compression = 0;
    std::uint32_t coloursUsed = 0;
    std::vector<std::uint32_t> masks;   // red, green, blue: in the header from 52 bytes on, else after it
    std::vector<std::uint32_t> palette; // 0x00RRGGBB
    Bytes pixels;
    std::int64_t pixelsAtOverride = -1;

    Bytes File() const {
        Bytes out{'B', 'M'};
        Put(out, 14, static_cast<std::uint64_t>(headerSize), 4);
        if (headerSize == 12) {
            Put(out, 18, static_cast<std::uint64_t>(width), 2);
            Put(out, 20, static_cast<std::uint64_t>(height), 2);
            Put(out, 22, 1, 2);
            Put(out, 24, static_cast<std::uint64_t>(bits), 2);
        } else {
            Put(out, 18, static_cast<std::uint32_t>(width), 4);
            Put(out, 22, static_cast<std::uint32_t>(height), 4);
            Put(out, 26, 1, 2);
            Put(out, 28, static_cast<std::uint64_t>(bits), 2);
            Put(out, 30, compression, 4);
            Put(out, 46, coloursUsed, 4);
        }
        out.resize(14 + static_cast<std::size_t>(headerSize), 0);
        for (std::size_t i = 0; i < masks.size(); ++i)
            Put(out, headerSize >= 52 ? 54 + 4 * i : out.size(), masks[i], 4);
        for (const std::uint32_t colour : palette)
            Put(out, out.size(), colour, headerSize == 12 ? 3 : 4);
        Put(out, 10, pixelsAtOverride >= 0 ? static_cast<std::uint64_t>(pixelsAtOverride) : out.size(), 4);
        out.insert(out.end(), pixels.begin(), pixels.end());
        Put(out, 2, out.size(), 4);
        return out;
    }
};

// The colour at (x, row) of a decoded picture, row 0 the bottom, as 0x00RRGGBB.
std::uint32_t ColourAt(const cDIBSection& image, int x, int row) {
    const std::uint8_t* p = image.Row(row) + 3 * x;
    return (std::uint32_t{p[2]} << 16) | (std::uint32_t{p[1]} << 8) | p[0];
}

cDIBSection Decoded(const Bytes& file) {
    cDIBSection image;
    const BitmapReadResult read = DecodeBitmap(file, image);
    EXPECT_TRUE(read) << read.message;
    return image;
}

// 3 x 2 pixels, 24 bits, rows padded to 12 bytes: bottom row red, green, blue; top row white,
// black, grey.
Bmp TwentyFourBit(bool topDown) {
    const Bytes bottom = {0, 0, 255, 0, 255, 0, 255, 0, 0, 0, 0, 0};
    const Bytes top = {255, 255, 255, 0, 0, 0, 128, 128, 128, 0, 0, 0};
    Bmp bmp{.width = 3, .height = topDown ? -2 : 2};
    bmp.pixels = topDown ? top : bottom;
    const Bytes& second = topDown ? bottom : top;
    bmp.pixels.insert(bmp.pixels.end(), second.begin(), second.end());
    return bmp;
}

void ExpectTwentyFourBitColours(const cDIBSection& image) {
    ASSERT_EQ(image.Width(), 3);
    ASSERT_EQ(image.Height(), 2);
    EXPECT_EQ(ColourAt(image, 0, 0), 0xFF0000u);
    EXPECT_EQ(ColourAt(image, 1, 0), 0x00FF00u);
    EXPECT_EQ(ColourAt(image, 2, 0), 0x0000FFu);
    EXPECT_EQ(ColourAt(image, 0, 1), 0xFFFFFFu);
    EXPECT_EQ(ColourAt(image, 1, 1), 0x000000u);
    EXPECT_EQ(ColourAt(image, 2, 1), 0x808080u);
}

TEST(BitmapRead, TwentyFourBitRowsEitherWayUpAndTheLastRowWithoutItsPadding) {
    ExpectTwentyFourBitColours(Decoded(TwentyFourBit(false).File()));
    ExpectTwentyFourBitColours(Decoded(TwentyFourBit(true).File()));
    Bytes unpadded = TwentyFourBit(false).File();
    unpadded.resize(unpadded.size() - 3);
    ExpectTwentyFourBitColours(Decoded(unpadded));
}

TEST(BitmapRead, PaletteBitmapsOfOneFourAndEightBitsAndTheOldCoreHeader) {
    const std::vector<std::uint32_t> palette = {0x102030, 0xFF8000, 0x00FFFF, 0xABCDEF};
    // 8 bits, 5 pixels per row (padded to 8): index 4 lies beyond the four colours and is black.
    Bmp eight{.width = 5, .height = 1, .bits = 8, .coloursUsed = 4, .palette = palette};
    eight.pixels = {3, 2, 1, 0, 4, 0, 0, 0};
    const cDIBSection e = Decoded(eight.File());
    EXPECT_EQ(ColourAt(e, 0, 0), 0xABCDEFu);
    EXPECT_EQ(ColourAt(e, 3, 0), 0x102030u);
    EXPECT_EQ(ColourAt(e, 4, 0), 0u);

    // 4 bits: the high half of a byte is the left pixel.
    Bmp four{.width = 3, .height = 1, .bits = 4, .coloursUsed = 4, .palette = palette};
    four.pixels = {0x13, 0x20, 0, 0};
    const cDIBSection f = Decoded(four.File());
    EXPECT_EQ(ColourAt(f, 0, 0), 0xFF8000u);
    EXPECT_EQ(ColourAt(f, 1, 0), 0xABCDEFu);
    EXPECT_EQ(ColourAt(f, 2, 0), 0x00FFFFu);

    // 1 bit, two rows: the highest bit is the left pixel; colours used 0 means all two.
    Bmp one{.width = 10, .height = 2, .bits = 1, .palette = {0x000000, 0xFFFFFF}};
    one.pixels = {0b10100000, 0b01000000, 0, 0, 0b00000001, 0, 0, 0};
    const cDIBSection o = Decoded(one.File());
    EXPECT_EQ(ColourAt(o, 0, 0), 0xFFFFFFu);
    EXPECT_EQ(ColourAt(o, 1, 0), 0u);
    EXPECT_EQ(ColourAt(o, 9, 0), 0xFFFFFFu);
    EXPECT_EQ(ColourAt(o, 7, 1), 0xFFFFFFu);

    // The 12-byte header: 16-bit sides and 3-byte palette entries.
    Bmp core{.headerSize = 12, .width = 2, .height = 1, .bits = 8, .palette = {0x112233, 0x445566}};
    core.palette.resize(256, 0x777777);
    core.pixels = {1, 0, 0, 0};
    const cDIBSection c = Decoded(core.File());
    EXPECT_EQ(ColourAt(c, 0, 0), 0x445566u);
    EXPECT_EQ(ColourAt(c, 1, 0), 0x112233u);
}

TEST(BitmapRead, SixteenAndThirtyTwoBitPixelsByDefaultOrByTheirMasks) {
    // 5-5-5 by default: 0x7C00 full red, 0x0010 blue 16 of 31 -> 132.
    Bmp plain16{.width = 2, .height = 1, .bits = 16};
    plain16.pixels = {0x00, 0x7C, 0x10, 0x00};
    const cDIBSection p = Decoded(plain16.File());
    EXPECT_EQ(ColourAt(p, 0, 0), 0xFF0000u);
    EXPECT_EQ(ColourAt(p, 1, 0), 0x000084u);

    // 5-6-5 masks after a 40-byte header: green 32 of 63 -> 130.
    Bmp masked16{.width = 1, .height = 1, .bits = 16, .compression = 3, .masks = {0xF800, 0x07E0, 0x001F}};
    masked16.pixels = {0x00, 0x04, 0, 0};
    EXPECT_EQ(ColourAt(Decoded(masked16.File()), 0, 0), 0x008200u);

    // Plain: blue, green, red and a fourth byte that is dropped.
    Bmp plain32{.width = 1, .height = 1, .bits = 32};
    plain32.pixels = {0x11, 0x22, 0x33, 0x99};
    EXPECT_EQ(ColourAt(Decoded(plain32.File()), 0, 0), 0x332211u);

    // Red in the lowest byte, blue in the third, alpha on top: the masks decide, after the header
    // or inside it.
    for (const int headerSize : {40, 56, 108, 124}) {
        Bmp masked{.headerSize = headerSize,
                   .width = 1,
                   .height = 1,
                   .bits = 32,
                   .compression = 3,
                   .masks = {0x000000FF, 0x0000FF00, 0x00FF0000}};
        masked.pixels = {0x11, 0x22, 0x33, 0x80};
        EXPECT_EQ(ColourAt(Decoded(masked.File()), 0, 0), 0x112233u) << headerSize;
    }
}

TEST(BitmapRead, RunLengthEncodedEightAndFourBitPictures) {
    const std::vector<std::uint32_t> palette = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF};
    // 4 x 3, 8 bits: row 0 a run of three 1s, then three 2s as they are, cut at the edge; the end of
    // the row; a move two to the right and one up, so a run of two 3s lands on row 2; the end mark.
    Bmp eight{.width = 4, .height = 3, .bits = 8, .compression = 1, .palette = palette};
    eight.pixels = {3, 1, 0, 3, 2, 2, 2, 0, 0, 0, 0, 2, 2, 1, 2, 3, 0, 1};
    const cDIBSection e = Decoded(eight.File());
    EXPECT_EQ(ColourAt(e, 2, 0), 0xFF0000u);
    EXPECT_EQ(ColourAt(e, 3, 0), 0x00FF00u);
    EXPECT_EQ(ColourAt(e, 1, 1), 0u); // skipped pixels stay black
    EXPECT_EQ(ColourAt(e, 1, 2), 0u);
    EXPECT_EQ(ColourAt(e, 2, 2), 0x0000FFu);
    EXPECT_EQ(ColourAt(e, 3, 2), 0x0000FFu);

    // 5 x 1, 4 bits: a run of three alternating 1, 2, then three nibbles 3, 1, 2 as they are, the last
    // one cut at the edge.
    Bmp four{.width = 5, .height = 1, .bits = 4, .compression = 2, .coloursUsed = 4, .palette = palette};
    four.pixels = {3, 0x12, 0, 3, 0x31, 0x20, 0, 1};
    const cDIBSection f = Decoded(four.File());
    const std::uint32_t expected[5] = {0xFF0000u, 0x00FF00u, 0xFF0000u, 0x0000FFu, 0xFF0000u};
    for (int x = 0; x < 5; ++x)
        EXPECT_EQ(ColourAt(f, x, 0), expected[x]) << x;
}

TEST(BitmapRead, DamagedAndLyingFilesAreRefusedAndLeaveThePictureAlone) {
    const auto file = [](Bmp bmp, std::size_t pixelBytes) {
        bmp.pixels.resize(pixelBytes);
        return bmp.File();
    };
    const Bytes good = TwentyFourBit(false).File();
    Bmp pixelsBeyondEnd = TwentyFourBit(false);
    pixelsBeyondEnd.pixelsAtOverride = 5000;
    Bytes notBitmap = good;
    notBitmap[1] = 'X';
    const std::vector<std::pair<const char*, Bytes>> files = {
        {"truncated", Bytes(good.begin(), good.end() - 8)},
        {"header cut", Bytes(good.begin(), good.begin() + 30)},
        {"not a bitmap", notBitmap},
        {"empty", Bytes{}},
        {"no width", file({.width = 0, .height = 2}, 16)},
        {"beyond the limit", file({.width = 20000, .height = 2}, 64)},
        {"huge runs",
         file({.width = 16000, .height = 16000, .bits = 8, .compression = 1, .palette = {0}}, 2)},
        {"jpeg inside", file({.width = 2, .height = 2, .compression = 4}, 16)},
        {"seven bits", file({.width = 2, .height = 2, .bits = 7}, 16)},
        {"palette cut",
         file({.width = 2, .height = 1, .bits = 8, .coloursUsed = 200, .pixelsAtOverride = 0}, 0)},
        {"pixels beyond the end", pixelsBeyondEnd.File()}};
    const cDIBSection before = MakePattern(4, 4, 7);
    for (const auto& [name, bytes] : files) {
        cDIBSection image = before;
        const BitmapReadResult read = DecodeBitmap(bytes, image);
        EXPECT_FALSE(read) << name;
        EXPECT_FALSE(read.message.empty()) << name;
        EXPECT_TRUE(SamePixels(image, before)) << name;
    }
}

TEST(BitmapWrite, TwentyFourBitBottomUpWithTheInfoHeader) {
    const cDIBSection picture = MakePattern(5, 3, 11);
    const Bytes file = EncodeBitmap(picture);
    // 14 + 40 header bytes, then three rows of 15 pixel bytes padded to 16.
    ASSERT_EQ(file.size(), 54u + 3 * 16);
    EXPECT_EQ(file[0], 'B');
    EXPECT_EQ(file[2], 54 + 48);
    EXPECT_EQ(file[10], 54);
    EXPECT_EQ(file[14], 40);
    EXPECT_EQ(file[18], 5);
    EXPECT_EQ(file[22], 3);
    EXPECT_EQ(file[28], 24);
    EXPECT_EQ(file[30], 0);
    // The first pixel of the file is the bottom row's first.
    EXPECT_TRUE(std::equal(file.begin() + 54, file.begin() + 57, picture.Row(0)));
    EXPECT_TRUE(SamePixels(Decoded(file), picture));
    EXPECT_TRUE(EncodeBitmap(cDIBSection{}).empty());
}

TEST(BitmapLoad, LoadPictureFileReadsABitmapByItsSignatureWithoutADecoder) {
    ScratchFolder folder;
    SetPictureDecoder({});
    const cDIBSection picture = MakePattern(7, 4, 3);
    std::string error;
    ASSERT_TRUE(SaveBitmap(folder.File("terrain.pic"), picture, error)) << error;
    cDIBSection loaded;
    ASSERT_TRUE(LoadPictureFile(folder.File("terrain.pic"), loaded));
    EXPECT_TRUE(SamePixels(loaded, picture));
    // Not a bitmap and no decoder: nothing reads it.
    WriteText(folder.File("other.bmp"), "GIF89a");
    EXPECT_FALSE(LoadPictureFile(folder.File("other.bmp"), loaded));
    EXPECT_TRUE(SamePixels(loaded, picture));
}

} // namespace
