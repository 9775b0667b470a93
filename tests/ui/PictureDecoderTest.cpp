// Bitmaps, GIF and JPEG pictures written here with QImage, read back through LoadPictureFile and
// the Qt decoder: channel order, bottom-up rows and refusals.
#include "TestSupport.h"
#include "mPictureLoader.h"

#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

class PictureDecoderTest : public ::testing::Test {
protected:
    ScratchFolder folder;

    void SetUp() override { InstallQtPictureDecoder(); }
    void TearDown() override { SetPictureDecoder({}); }

    std::string Save(const QImage& picture, const std::string& name, int quality = -1) {
        const std::string path = folder.File(name);
        EXPECT_TRUE(picture.save(QString::fromStdString(path), nullptr, quality)) << name;
        return path;
    }
};

// Every pixel a different colour, so a swapped channel, a flipped row or a shifted column shows.
QImage Distinct(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, qRgb(40 * x + 10, 60 * y + 5, 250 - 30 * x - 20 * y));
    return picture;
}

// Qt reads GIF but cannot write it, so the test writes its own: a global colour table holding
// every colour of the picture and LZW codes that are all literals, with a clear code often
// enough that the code width stays at 9 bits.
std::vector<std::uint8_t> GifOf(const QImage& picture) {
    std::vector<QRgb> palette;
    std::vector<int> indices;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb colour = picture.pixel(x, y) | 0xFF000000u;
            auto found = std::find(palette.begin(), palette.end(), colour);
            if (found == palette.end()) found = palette.insert(palette.end(), colour);
            indices.push_back(static_cast<int>(found - palette.begin()));
        }
    }
    auto word = [](std::vector<std::uint8_t>& out, int value) {
        out.push_back(static_cast<std::uint8_t>(value & 0xFF));
        out.push_back(static_cast<std::uint8_t>(value >> 8));
    };
    std::vector<std::uint8_t> out{'G', 'I', 'F', '8', '9', 'a'};
    word(out, picture.width());
    word(out, picture.height());
    out.insert(out.end(), {0xF7, 0, 0}); // a global table of 256 colours
    for (int i = 0; i < 256; ++i) {
        const QRgb c = i < static_cast<int>(palette.size()) ? palette[i] : 0;
        out.insert(out.end(), {static_cast<std::uint8_t>(qRed(c)), static_cast<std::uint8_t>(qGreen(c)),
                               static_cast<std::uint8_t>(qBlue(c))});
    }
    out.push_back(',');
    word(out, 0);
    word(out, 0);
    word(out, picture.width());
    word(out, picture.height());
    out.insert(out.end(), {0, 8}); // no local table; minimum code size 8
    std::vector<std::uint8_t> data;
    std::uint32_t bits = 0;
    int count = 0;
    auto code = [&](int value) {
        bits |= static_cast<std::uint32_t>(value) << count;
        for (count += 9; count >= 8; count -= 8, bits >>= 8)
            data.push_back(static_cast<std::uint8_t>(bits & 0xFF));
    };
    for (std::size_t i = 0; i < indices.size(); ++i) {
        if (i % 200 == 0) code(256);
        code(indices[i]);
    }
    code(257);
    if (count > 0) data.push_back(static_cast<std::uint8_t>(bits & 0xFF));
    for (std::size_t at = 0; at < data.size(); at += 255) {
        const std::size_t size = std::min<std::size_t>(255, data.size() - at);
        out.push_back(static_cast<std::uint8_t>(size));
        out.insert(out.end(), data.begin() + static_cast<std::ptrdiff_t>(at),
                   data.begin() + static_cast<std::ptrdiff_t>(at + size));
    }
    out.insert(out.end(), {0, ';'});
    return out;
}

// Red above, blue below: after loading, row 0 (the bottom) must be blue.
QImage RedOverBlue(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, y < height / 2 ? qRgb(255, 0, 0) : qRgb(0, 0, 255));
    return picture;
}

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

TEST_F(PictureDecoderTest, BitmapsAndGifsLoadExactlyWithRowsBottomUp) {
    const QImage distinct = Distinct(5, 4); // 15-byte rows: padded in the loaded image
    Save(distinct, "distinct.bmp");
    WriteBytes(folder.File("distinct.gif"), GifOf(distinct));
    for (const char* name : {"distinct.bmp", "distinct.gif"}) {
        cDIBSection image;
        ASSERT_TRUE(LoadPictureFile(folder.File(name), image)) << name;
        ASSERT_EQ(image.Width(), 5);
        ASSERT_EQ(image.Height(), 4);
        EXPECT_EQ(LargestDifference(distinct, image), 0) << name;
    }
    cDIBSection image;
    ASSERT_TRUE(LoadPictureFile(Save(RedOverBlue(6, 6), "halves.BMP"), image));
    EXPECT_EQ(image.Row(0)[0], 255); // bottom row: blue
    EXPECT_EQ(image.Row(0)[2], 0);
    EXPECT_EQ(image.Row(5)[0], 0); // top row: red
    EXPECT_EQ(image.Row(5)[2], 255);
}

TEST_F(PictureDecoderTest, JpegPicturesLoadCloseToWhatWasSaved) {
    QImage smooth(64, 48, QImage::Format_RGB32);
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x)
            smooth.setPixel(x, y, qRgb(4 * x, 5 * y, 128 + x - y));
    cDIBSection image;
    ASSERT_TRUE(LoadPictureFile(Save(smooth, "smooth.jpg", 95), image));
    ASSERT_EQ(image.Width(), 64);
    EXPECT_LE(LargestDifference(smooth, image), 12);

    ASSERT_TRUE(LoadPictureFile(Save(RedOverBlue(16, 16), "halves.jpeg", 95), image));
    EXPECT_GT(image.Row(0)[0], 200);
    EXPECT_LT(image.Row(0)[2], 60);
    EXPECT_GT(image.Row(15)[2], 200);
    EXPECT_LT(image.Row(15)[0], 60);
}

TEST_F(PictureDecoderTest, UnreadableFilesFailAndKeepThePreviousPicture) {
    cDIBSection image;
    ASSERT_TRUE(LoadPictureFile(Save(Distinct(3, 3), "keep.bmp"), image));
    WriteText(folder.File("text.jpg"), "not a picture at all");
    std::vector<std::uint8_t> cut = ReadBytes(Save(Distinct(30, 30), "whole.bmp"));
    cut.resize(40);
    WriteBytes(folder.File("cut.bmp"), cut);
    for (const char* name : {"text.jpg", "cut.bmp", "absent.gif"}) {
        EXPECT_FALSE(LoadPictureFile(folder.File(name), image)) << name;
        EXPECT_EQ(LargestDifference(Distinct(3, 3), image), 0) << name;
    }
}
