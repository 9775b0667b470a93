// Bitmap, GIF and JPEG pictures read back through LoadPictureFile and the Qt decoder: channel
// order, bottom-up rows, padded rows and refusals.
#include "TestSupport.h"
#include "mPictureLoader.h"

#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <vector>

namespace {

// Every pixel a different colour, so a swapped channel, a flipped row or a shifted column shows.
QImage Distinct(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, qRgb(40 * x + 10, 60 * y + 5, 250 - 30 * x - 20 * y));
    return picture;
}

// Distinct(3, 2) as a GIF, which Qt reads but cannot write.
// clang-format off
const std::vector<std::uint8_t> kDistinctGif = {
    'G', 'I', 'F', '8', '9', 'a', 3, 0, 2, 0, 0xF2, 0, 0, // 3 x 2 with a table of eight colours
    10, 5, 250, 50, 5, 220, 90, 5, 190, 10, 65, 230, 50, 65, 200, 90, 65, 170, 0, 0, 0, 0, 0, 0,
    ',', 0, 0, 0, 0, 3, 0, 2, 0, 0, 3, // the whole picture, no table of its own, 3-bit indices
    4, 0x08, 0x21, 0x43, 0x95, 0, ';'}; // one block of 4-bit codes, low first: clear, 0 to 5, end
// clang-format on

// The largest difference of any channel between the picture and the loaded image.
int LargestDifference(const QImage& picture, const cDIBSection& image) {
    int largest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const std::uint8_t* row = image.Row(picture.height() - 1 - y);
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb p = picture.pixel(x, y);
            largest = std::max({largest, std::abs(row[3 * x] - qBlue(p)),
                                std::abs(row[3 * x + 1] - qGreen(p)), std::abs(row[3 * x + 2] - qRed(p))});
        }
    }
    return largest;
}

} // namespace

class QtPictureDecoderTest : public ::testing::Test {
protected:
    ScratchFolder folder;
    QImage smooth{64, 48, QImage::Format_RGB32};

    void SetUp() override {
        InstallQtPictureDecoder();
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 64; ++x)
                smooth.setPixel(x, y, qRgb(4 * x, 5 * y, 128 + x - y));
        ASSERT_TRUE(Distinct(5, 4).save(QString::fromStdString(folder.File("distinct.BMP")), "BMP"));
        WriteBytes(folder.File("distinct.gif"), kDistinctGif);
        ASSERT_TRUE(smooth.save(QString::fromStdString(folder.File("smooth.jpg")), nullptr, 95));
    }
};

TEST_F(QtPictureDecoderTest, BitmapsAndGifsLoadExactlyJpegsClosely) {
    const std::tuple<const char*, QImage, int> cases[] = {
        {"distinct.BMP", Distinct(5, 4), 0}, // 15-byte rows: padded in the loaded image
        {"distinct.gif", Distinct(3, 2), 0},
        {"smooth.jpg", smooth, 12}};
    cDIBSection image;
    for (const auto& [name, picture, tolerance] : cases) {
        ASSERT_TRUE(LoadPictureFile(folder.File(name), image)) << name;
        ASSERT_EQ(QSize(image.Width(), image.Height()), picture.size()) << name;
        EXPECT_LE(LargestDifference(picture, image), tolerance) << name;
    }
}

TEST_F(QtPictureDecoderTest, AnUnreadableFileLeavesThePictureAsItWas) {
    WriteText(folder.File("text.jpg"), "not a picture at all");
    std::vector<std::uint8_t> cut = ReadBytes(folder.File("distinct.BMP"));
    cut.resize(40);
    WriteBytes(folder.File("cut.bmp"), cut);
    cDIBSection image;
    ASSERT_TRUE(LoadPictureFile(folder.File("distinct.gif"), image));
    for (const char* name : {"text.jpg", "cut.bmp", "absent.gif"}) {
        EXPECT_FALSE(LoadPictureFile(folder.File(name), image)) << name;
        EXPECT_EQ(LargestDifference(Distinct(3, 2), image), 0) << name;
    }
}
