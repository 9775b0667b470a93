// Targa files: what SaveTGA writes byte for byte, the reader's twins (uncompressed, run-length
// encoded, 32-bit) and its refusals of damaged or unsupported files.
#include "FileIO.h"
#include "PictureTestSupport.h"
#include "TestSupport.h"
#include "mPictureLoader.h"
#include "mSaveTGA.h"

#include <gtest/gtest.h>

namespace {

// A failed load must leave the picture as it was.
void ExpectRefused(const Bytes& bytes, const std::string& what) {
    cDIBSection image = MakePattern(2, 2, 99);
    EXPECT_FALSE(DecodeTarga(bytes, image)) << what;
    EXPECT_TRUE(SamePixels(image, MakePattern(2, 2, 99))) << what;
}

Bytes Decoded(const Bytes& bytes) {
    cDIBSection image;
    EXPECT_TRUE(DecodeTarga(bytes, image));
    return image.PackedBgr();
}

} // namespace

TEST(SaveTGA, WritesTheHeaderThenTheRowsBottomFirstAndOneTrailingZero) {
    ScratchFolder folder;
    const cDIBSection image = MakePattern(3, 2, 5);
    std::string error;
    ASSERT_TRUE(SaveTGA(folder.File("p.tga"), image, error)) << error;
    // Uncompressed true colour, rows bottom-up, every other header byte zero; the padding of the
    // 9-byte rows to 12 in memory must not reach the file.
    Bytes expected = Targa(2, 3, 2, 24);
    for (int row = 0; row < 2; ++row)
        expected.insert(expected.end(), image.Row(row), image.Row(row) + 9);
    expected.push_back(0);
    EXPECT_EQ(ReadBytes(folder.File("p.tga")), expected);
}

TEST(SaveTGA, RefusesWhatItCannotWriteWithAReason) {
    ScratchFolder folder;
    std::string error;
    const Bytes rows(12, 7);
    EXPECT_FALSE(SaveTGA(folder.File("a.tga"), rows, 0, 1, error));
    EXPECT_FALSE(SaveTGA(folder.File("a.tga"), rows, 70000, 1, error));
    EXPECT_FALSE(SaveTGA(folder.File("a.tga"), rows, 3, 2, error)) << "18 bytes needed, 12 given";
    EXPECT_FALSE(error.empty() || FileExists(folder.File("a.tga")));
    error.clear();
    EXPECT_FALSE(SaveTGA(folder.File("missing/a.tga"), rows, 2, 2, error) || error.empty());
}

TEST(SaveTGA, ReplacesAnOldFileWhole) {
    ScratchFolder folder;
    std::string error;
    const Bytes rows(12, 7);
    WriteBytes(folder.File("old.tga"), Bytes(500, 1));
    ASSERT_TRUE(SaveTGA(folder.File("old.tga"), rows, 2, 2, error)) << error;
    EXPECT_EQ(ReadBytes(folder.File("old.tga")).size(), 18u + 12u + 1u);
}

TEST(TargaReader, UncompressedRunLengthAnd32BitTwinsLoadToTheSamePixels) {
    ScratchFolder folder;
    const cDIBSection original = MakePattern(37, 9, 2024); // odd width: padded rows in memory
    std::string error;
    ASSERT_TRUE(SaveTGA(folder.File("plain.tga"), original, error)) << error;
    const Bytes runs = Targa(10, 37, 9, 24, EncodeRuns(PixelsOf(original, 3), 3));
    WriteBytes(folder.File("runs.tga"), runs);
    WriteBytes(folder.File("alpha.tga"), Targa(2, 37, 9, 32, PixelsOf(original, 4)));
    WriteBytes(folder.File("alpharuns.tga"), Targa(10, 37, 9, 32, EncodeRuns(PixelsOf(original, 4), 4)));
    for (const char* name : {"plain.tga", "runs.tga", "alpha.tga", "alpharuns.tga"}) {
        cDIBSection loaded;
        ASSERT_TRUE(LoadPictureFile(folder.File(name), loaded)) << name;
        EXPECT_TRUE(SamePixels(loaded, original)) << name;
    }
    EXPECT_LT(runs.size(), ReadBytes(folder.File("plain.tga")).size()) << "the runs really compress";
}

TEST(TargaReader, HonoursTheTopDownFlag) {
    const cDIBSection original = MakePattern(4, 3, 8);
    Bytes topDown;
    for (int row = original.Height() - 1; row >= 0; --row)
        topDown.insert(topDown.end(), original.Row(row), original.Row(row) + 12);
    EXPECT_EQ(Decoded(Targa(2, 4, 3, 24, topDown, 0x20)), original.PackedBgr());
}

TEST(TargaReader, SkipsTheIdentificationField) {
    const cDIBSection original = MakePattern(4, 3, 8);
    Bytes withId = Targa(2, 4, 3, 24, Bytes{'h', 'e', 'l', 'l', 'o'});
    withId[0] = 5;
    const Bytes pixels = PixelsOf(original, 3);
    withId.insert(withId.end(), pixels.begin(), pixels.end());
    EXPECT_EQ(Decoded(withId), original.PackedBgr());
}

TEST(TargaReader, StopsRunsAtThePicturesEnd) {
    // 3 x 1 pixels: one raw pixel, then a repeat packet of 10 where 2 are wanted; 2 x 1 pixels from
    // a raw packet of 5.
    EXPECT_EQ(Decoded(Targa(10, 3, 1, 24, {0, 1, 2, 3, 128 + 9, 9, 8, 7})),
              (Bytes{1, 2, 3, 9, 8, 7, 9, 8, 7}));
    EXPECT_EQ(Decoded(Targa(10, 2, 1, 24, {4, 1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4, 5, 5, 5})),
              (Bytes{1, 1, 1, 2, 2, 2}));
}

TEST(TargaReader, RefusesUnsupportedKindsTruncatedAndOversizedFilesLeavingThePictureAlone) {
    const cDIBSection picture = MakePattern(5, 4, 4);
    for (int bits : {8, 15, 16, 40})
        ExpectRefused(Targa(2, 5, 4, static_cast<std::uint8_t>(bits), Bytes(5 * 4 * 5, 0x55)),
                      "bits per pixel " + std::to_string(bits));
    for (int type : {0, 1, 3, 9, 11, 32})
        ExpectRefused(Targa(static_cast<std::uint8_t>(type), 5, 4, 24, PixelsOf(picture, 3)),
                      "type " + std::to_string(type));
    const Bytes plain = Targa(2, 5, 4, 24, PixelsOf(picture, 3));
    for (const Bytes& file : {plain, Targa(10, 5, 4, 24, EncodeRuns(PixelsOf(picture, 3), 3))})
        for (std::size_t size = 0; size < file.size(); ++size)
            ExpectRefused(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size)),
                          "cut at " + std::to_string(size) + " of " + std::to_string(file.size()));
    // A header promising 65535 x 65535 pixels or a side above the limit, with few or all bytes.
    ExpectRefused(Targa(2, 65535, 65535, 24, Bytes(3000, 1)), "huge, short");
    ExpectRefused(Targa(10, 65535, 65535, 24, Bytes(3000, 255)), "huge runs");
    ExpectRefused(Targa(2, 20000, 1, 24, Bytes(60000, 1)), "too wide");
    ExpectRefused(Targa(2, 0, 4, 24), "no columns");
    ExpectRefused(Targa(2, 4, 0, 24), "no rows");
    Bytes badId = plain;
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
    for (const std::string& path : {folder.File("UPPER.TGA") + "/", folder.File("UPPER.TGA") + "\\",
                                    std::string(), folder.File("absent.tga")})
        EXPECT_FALSE(LoadPictureFile(path, loaded)) << path;
    // Everything else goes to the registered decoder, and fails without one.
    WriteText(folder.File("p.jpg"), "x");
    WriteText(folder.File("bad.bmp"), "x");
    SetPictureDecoder({});
    EXPECT_FALSE(LoadPictureFile(folder.File("p.jpg"), loaded));
    std::vector<std::string> asked;
    SetPictureDecoder([&](const std::string& path, cDIBSection& image) {
        asked.push_back(path);
        image = MakePattern(3, 3, 77);
        return !path.ends_with("bad.bmp");
    });
    EXPECT_TRUE(LoadPictureFile(folder.File("p.jpg"), loaded));
    EXPECT_TRUE(SamePixels(loaded, MakePattern(3, 3, 77)));
    loaded = original;
    EXPECT_FALSE(LoadPictureFile(folder.File("bad.bmp"), loaded));
    EXPECT_TRUE(SamePixels(loaded, original)) << "a failed load keeps the previous picture";
    EXPECT_EQ(asked, (std::vector<std::string>{folder.File("p.jpg"), folder.File("bad.bmp")}));
    SetPictureDecoder({});
}

TEST(PictureFiles, FilesOverTheSizeLimitAreRefusedBeforeAnyReaderOpensThem) {
    ScratchFolder folder;
    bool asked = false;
    SetPictureDecoder([&](const std::string&, cDIBSection& image) {
        asked = true;
        image = MakePattern(3, 3, 1);
        return true;
    });
    cDIBSection loaded;
    for (const char* name : {"huge.png", "huge.tga"}) {
        WriteBytes(folder.File(name), {});
        std::filesystem::resize_file(folder.File(name), kMaxFileBytes + 1); // sparse
        EXPECT_FALSE(LoadPictureFile(folder.File(name), loaded)) << name;
    }
    EXPECT_FALSE(asked);
    SetPictureDecoder({});
}
