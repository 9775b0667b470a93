// The textures the build paints beside the executable: all present, loadable, of their size, not
// flat, and tiling without a visible seam; detail textures centred on middle gray.
#include "FileIO.h"
#include "TexturePath.h"
#include "mPictureLoader.h"

#include "../../tools/textures/TextureList.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

namespace {

class TexturesTest : public ::testing::Test {
protected:
    void SetUp() override { InstallQtPictureDecoder(); }
    void TearDown() override { SetPictureDecoder({}); }
};

std::string TexturePath(std::string_view name) {
    return std::string(LW_BIN_DIR) + "/teratextures/" + std::string(name);
}

int Channel(const cDIBSection& image, int x, int y, int c) {
    return image.Row(y)[3 * x + c];
}

// Mean absolute difference between column a and column b (rows, when columns is false).
double LineDifference(const cDIBSection& image, int a, int b, bool columns) {
    const int length = columns ? image.Height() : image.Width();
    double sum = 0;
    for (int i = 0; i < length; ++i)
        for (int c = 0; c < 3; ++c)
            sum += columns ? std::abs(Channel(image, a, i, c) - Channel(image, b, i, c))
                           : std::abs(Channel(image, i, a, c) - Channel(image, i, b, c));
    return sum / (3.0 * length);
}

// A seam is a jump at the wrap. Shading and blurring spread a seam over a few lines, so the five
// line pairs nearest the wrap are measured, against the mean difference of neighbouring lines
// anywhere in the picture. A feature that happens to lie across the edge (a crack, a bubble)
// raises them too, which the allowance covers; a seam in the noise raises them several times.
struct Seam {
    double nearWrap = 0;
    double typical = 0;
};

Seam MeasureSeam(const cDIBSection& image, bool columns) {
    const int n = columns ? image.Width() : image.Height();
    Seam seam;
    for (int i = 0; i + 1 < n; ++i)
        seam.typical += LineDifference(image, i, i + 1, columns) / (n - 1);
    for (const int i : {n - 3, n - 2, n - 1, 0, 1})
        seam.nearWrap += LineDifference(image, i, (i + 1) % n, columns) / 5;
    return seam;
}

double MeanGray(const cDIBSection& image) {
    double sum = 0;
    for (int y = 0; y < image.Height(); ++y)
        for (int x = 0; x < image.Width(); ++x)
            sum += Channel(image, x, y, 0) + Channel(image, x, y, 1) + Channel(image, x, y, 2);
    return sum / (3.0 * image.Width() * image.Height());
}

double Spread(const cDIBSection& image) {
    const double mean = MeanGray(image);
    double squares = 0;
    for (int y = 0; y < image.Height(); ++y)
        for (int x = 0; x < image.Width(); ++x)
            for (int c = 0; c < 3; ++c)
                squares += std::pow(Channel(image, x, y, c) - mean, 2);
    return std::sqrt(squares / (3.0 * image.Width() * image.Height()));
}

} // namespace

TEST_F(TexturesTest, EveryTextureLoadsAtItsSizeIsNotFlatTilesWithoutASeamAndDetailIsGray) {
    for (const TextureEntry& entry : kTextures) {
        const std::string path = TexturePath(entry.fileName);
        ASSERT_TRUE(FileExists(path)) << path << " (built by the textures target)";
        cDIBSection image;
        ASSERT_TRUE(LoadPictureFile(path, image)) << path;
        EXPECT_EQ(image.Width(), entry.size) << path;
        EXPECT_EQ(image.Height(), entry.size) << path;
        EXPECT_GT(Spread(image), 4.0) << path << " is nearly flat";
        for (const bool columns : {true, false}) {
            const Seam seam = MeasureSeam(image, columns);
            // The constant leaves room for the compression, whose block edges lie on the picture's edges.
            EXPECT_LE(seam.nearWrap, 2.0 * seam.typical + 1.0)
                << path << (columns ? " left to right" : " top to bottom") << ": " << seam.nearWrap
                << " near the wrap, " << seam.typical << " typical";
        }
        if (entry.kind != TextureKind::Detail) continue;
        EXPECT_NEAR(MeanGray(image), 127.5, 8.0) << path;
        int colourful = 0;
        for (int y = 0; y < image.Height(); ++y)
            for (int x = 0; x < image.Width(); ++x)
                colourful += std::abs(Channel(image, x, y, 0) - Channel(image, x, y, 2)) > 8;
        EXPECT_LT(colourful, image.Width() * image.Height() / 100) << path;
    }
}

TEST_F(TexturesTest, TheDefaultTexturePathsResolveUnderTheProgramFolder) {
    for (const char* stored : {"teratextures\\GrassTerrain.jpg", "teratextures\\GrassDetail.jpg",
                               "teratextures\\TropicalWater.jpg", "TeraTextures\\multidetail.JPG"}) {
        const auto path = ResolveTexturePath(std::string(LW_BIN_DIR) + "/", stored);
        ASSERT_TRUE(path.has_value()) << stored;
        cDIBSection image;
        EXPECT_TRUE(LoadPictureFile(*path, image)) << stored << " -> " << *path;
    }
}
