// Targa files: what SaveTGA writes byte for byte, the reader's twins (uncompressed, run-length
// encoded, 32-bit) and its refusals of damaged or unsupported files.
#include "FileIO.h"
#include "PictureTestSupport.h"
#include "TestSupport.h"
#include "mPictureLoader.h"
#include "mSaveTGA.h"

#include <gtest/gtest.h>

namespace {

// An image whose refusal can be seen: a failed load must leave it as it was.
cDIBSection Sentinel() {
    return MakePattern(2, 2, 99);
}

void ExpectRefused(const std::vector<std::uint8_t>& bytes, const char* what) {
    cDIBSection image = Sentinel();
    EXPECT_FALSE(DecodeTarga(bytes, image)) << what;
    EXPECT_TRUE(SamePixels(image, Sentinel())) << what;
}

} // namespace

TEST(SaveTGA, WritesHeaderRowsBottomFirstAndOneTrailingZeroRefusesWhatItCannotWriteAndReplacesOldFiles) {
    ScratchFolder folder;
    cDIBSection image = MakePattern(3, 2, 5);
    std::string error;
    ASSERT_TRUE(SaveTGA(folder.File("p.tga"), image, error)) << error;
    const std::vector<std::uint8_t> bytes = ReadBytes(folder.File("p.tga"));
    ASSERT_EQ(bytes.size(), 37u);
    EXPECT_EQ(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + 18), TargaHeader(2, 3, 2, 24))
        << "uncompressed true colour, rows bottom-up, every other header byte zero";
    // Padding of the 9-byte rows to 12 in memory must not reach the file.
    EXPECT_TRUE(std::equal(image.Row(0), image.Row(0) + 9, bytes.begin() + 18));
    EXPECT_TRUE(std::equal(image.Row(1), image.Row(1) + 9, bytes.begin() + 27));
    EXPECT_EQ(bytes.back(), 0);
    // What it cannot write is refused with a reason; an old file is replaced whole.
    const std::vector<std::uint8_t> rows(12, 7);
    EXPECT_FALSE(SaveTGA(folder.File("a.tga"), rows, 0, 1, error));
    EXPECT_FALSE(SaveTGA(folder.File("a.tga"), rows, 70000, 1, error));
    EXPECT_FALSE(SaveTGA(folder.File("a.tga"), rows, 3, 2, error)) << "18 bytes needed, 12 given";
    EXPECT_FALSE(error.empty());
    EXPECT_FALSE(FileExists(folder.File("a.tga")));
    error.clear();
    EXPECT_FALSE(SaveTGA(folder.File("missing/a.tga"), rows, 2, 2, error));
    EXPECT_FALSE(error.empty());
    WriteBytes(folder.File("old.tga"), std::vector<std::uint8_t>(500, 1));
    ASSERT_TRUE(SaveTGA(folder.File("old.tga"), rows, 2, 2, error)) << error;
    EXPECT_EQ(ReadBytes(folder.File("old.tga")).size(), 18u + 12u + 1u);
}

TEST(TargaReader, UncompressedRunLengthAnd32BitTwinsLoadToTheSamePixels) {
    ScratchFolder folder;
    const cDIBSection original = MakePattern(37, 9, 2024); // odd width: padded rows in memory
    std::string error;
    ASSERT_TRUE(SaveTGA(folder.File("plain.tga"), original, error)) << error;
    WriteBytes(folder.File("runs.tga"),
               Joined(TargaHeader(10, 37, 9, 24), EncodeRuns(PixelsOf(original, 3), 3)));
    WriteBytes(folder.File("alpha.tga"), Joined(TargaHeader(2, 37, 9, 32), PixelsOf(original, 4)));
    WriteBytes(folder.File("alpharuns.tga"),
               Joined(TargaHeader(10, 37, 9, 32), EncodeRuns(PixelsOf(original, 4), 4)));
    for (const char* name : {"plain.tga", "runs.tga", "alpha.tga", "alpharuns.tga"}) {
        cDIBSection loaded;
        ASSERT_TRUE(LoadPictureFile(folder.File(name), loaded)) << name;
        EXPECT_TRUE(SamePixels(loaded, original)) << name;
    }
    // The run-length twin really is compressed with both kinds of packet.
    EXPECT_LT(ReadBytes(folder.File("runs.tga")).size(), ReadBytes(folder.File("plain.tga")).size());
}

TEST(TargaReader, HonoursTopDownRowsSkipsTheIdentificationFieldAndStopsRunsAtThePicturesEnd) {
    const cDIBSection original = MakePattern(4, 3, 8);
    std::vector<std::uint8_t> topDown = TargaHeader(2, 4, 3, 24, 0x20);
    for (int row = original.Height() - 1; row >= 0; --row)
        topDown.insert(topDown.end(), original.Row(row), original.Row(row) + 12);
    cDIBSection loaded;
    ASSERT_TRUE(DecodeTarga(topDown, loaded));
    EXPECT_TRUE(SamePixels(loaded, original));
    std::vector<std::uint8_t> withId = TargaHeader(2, 4, 3, 24);
    withId[0] = 5;
    withId.insert(withId.end(), {'h', 'e', 'l', 'l', 'o'});
    withId = Joined(withId, PixelsOf(original, 3));
    ASSERT_TRUE(DecodeTarga(withId, loaded));
    EXPECT_TRUE(SamePixels(loaded, original));
    // 3 x 1 pixels: one raw pixel, then a repeat packet of 10 where 2 are wanted.
    std::vector<std::uint8_t> bytes = TargaHeader(10, 3, 1, 24);
    bytes.insert(bytes.end(), {0, 1, 2, 3, 128 + 9, 9, 8, 7});
    ASSERT_TRUE(DecodeTarga(bytes, loaded));
    const std::uint8_t* p = loaded.Row(0);
    EXPECT_EQ(std::vector<std::uint8_t>(p, p + 9), (std::vector<std::uint8_t>{1, 2, 3, 9, 8, 7, 9, 8, 7}));
    // A raw packet longer than the picture is cut the same way.
    bytes = TargaHeader(10, 2, 1, 24);
    bytes.insert(bytes.end(), {4, 1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4, 5, 5, 5});
    ASSERT_TRUE(DecodeTarga(bytes, loaded));
    EXPECT_EQ(loaded.Width(), 2);
    EXPECT_EQ(loaded.Row(0)[3], 2);
}

TEST(TargaReader, RefusesUnsupportedKindsTruncatedAndOversizedFilesLeavingThePictureAlone) {
    const cDIBSection picture = MakePattern(5, 4, 4);
    for (std::uint8_t bits : {8, 15, 16, 40}) {
        const std::vector<std::uint8_t> pixels(5 * 4 * 5, 0x55);
        ExpectRefused(Joined(TargaHeader(2, 5, 4, bits), pixels), "bits per pixel");
    }
    for (std::uint8_t type : {0, 1, 3, 9, 11, 32})
        ExpectRefused(Joined(TargaHeader(type, 5, 4, 24), PixelsOf(picture, 3)), "type");
    const std::vector<std::uint8_t> plain = Joined(TargaHeader(2, 5, 4, 24), PixelsOf(picture, 3));
    const std::vector<std::uint8_t> runs =
        Joined(TargaHeader(10, 5, 4, 24), EncodeRuns(PixelsOf(picture, 3), 3));
    for (const std::vector<std::uint8_t>* file : {&plain, &runs}) {
        for (std::size_t size = 0; size < file->size(); ++size) {
            const std::vector<std::uint8_t> cut(file->begin(),
                                                file->begin() + static_cast<std::ptrdiff_t>(size));
            cDIBSection image = Sentinel();
            ASSERT_FALSE(DecodeTarga(cut, image)) << "cut at " << size << " of " << file->size();
            ASSERT_TRUE(SamePixels(image, Sentinel()));
        }
    }
    // A header promising 65535 x 65535 pixels or a side above the limit, with few or all bytes.
    ExpectRefused(Joined(TargaHeader(2, 65535, 65535, 24), std::vector<std::uint8_t>(3000, 1)),
                  "huge, short");
    ExpectRefused(Joined(TargaHeader(10, 65535, 65535, 24), std::vector<std::uint8_t>(3000, 255)),
                  "huge runs");
    ExpectRefused(Joined(TargaHeader(2, 20000, 1, 24), std::vector<std::uint8_t>(60000, 1)), "too wide");
    ExpectRefused(Joined(TargaHeader(2, 0, 4, 24), {}), "no columns");
    ExpectRefused(Joined(TargaHeader(2, 4, 0, 24), {}), "no rows");
    // An identification field longer than the file.
    std::vector<std::uint8_t> badId = plain;
    badId[0] = 255;
    badId.resize(18 + 100);
    ExpectRefused(badId, "identification field past the end");
}

TEST(PictureFiles, ChooseTheReaderByTheEndOfThePath) {
    ScratchFolder folder;
    const cDIBSection original = MakePattern(6, 2, 12);
    std::string error;
    ASSERT_TRUE(SaveTGA(folder.File("UPPER.TGA"), original, error)) << error;
    cDIBSection loaded;
    EXPECT_TRUE(LoadPictureFile(folder.File("UPPER.TGA"), loaded));
    EXPECT_TRUE(SamePixels(loaded, original));
    EXPECT_FALSE(LoadPictureFile(folder.File("UPPER.TGA") + "/", loaded));
    EXPECT_FALSE(LoadPictureFile(folder.File("UPPER.TGA") + "\\", loaded));
    EXPECT_FALSE(LoadPictureFile("", loaded));
    EXPECT_FALSE(LoadPictureFile(folder.File("absent.tga"), loaded));

    // Everything else goes to the registered decoder, and fails without one.
    SetPictureDecoder({});
    EXPECT_FALSE(LoadPictureFile(folder.File("p.jpg"), loaded));
    std::vector<std::string> asked;
    SetPictureDecoder([&](const std::string& path, cDIBSection& image) {
        asked.push_back(path);
        if (path.ends_with("bad.bmp")) return false;
        image = MakePattern(3, 3, 77);
        return true;
    });
    EXPECT_TRUE(LoadPictureFile(folder.File("p.jpg"), loaded));
    EXPECT_TRUE(SamePixels(loaded, MakePattern(3, 3, 77)));
    EXPECT_FALSE(LoadPictureFile(folder.File("bad.bmp"), loaded));
    EXPECT_TRUE(SamePixels(loaded, MakePattern(3, 3, 77))) << "a failed load keeps the previous picture";
    EXPECT_EQ(asked, (std::vector<std::string>{folder.File("p.jpg"), folder.File("bad.bmp")}));
    SetPictureDecoder({});
}
