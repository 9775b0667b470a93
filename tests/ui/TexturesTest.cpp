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
#include <vector>

namespace {

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

struct Painted {
    std::string path;
    const TextureEntry& entry;
    cDIBSection image;
};

// Every texture the build paints, loaded; a missing or unreadable one fails the test.
std::vector<Painted> LoadAll() {
    InstallQtPictureDecoder();
    std::vector<Painted> all;
    for (const TextureEntry& entry : kTextures) {
        Painted p{std::string(LW_BIN_DIR) + "/teratextures/" + std::string(entry.fileName), entry, {}};
        EXPECT_TRUE(FileExists(p.path)) << p.path << " (built by the textures target)";
        EXPECT_TRUE(LoadPictureFile(p.path, p.image)) << p.path;
        all.push_back(std::move(p));
    }
    return all;
}

} // namespace

TEST(Textures, EveryOneLoadsAtItsSize) {
    for (const Painted& p : LoadAll())
        EXPECT_TRUE(p.image.Width() == p.entry.size && p.image.Height() == p.entry.size) << p.path;
}

TEST(Textures, NoneIsFlatAndDetailTexturesAreGray) {
    for (const Painted& p : LoadAll()) {
        const cDIBSection& image = p.image;
        const int side = image.Width();
        double sum = 0, squares = 0;
        int colourful = 0;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                for (int c = 0; c < 3; ++c)
                    sum += Channel(image, x, y, c), squares += std::pow(Channel(image, x, y, c), 2);
                colourful += std::abs(Channel(image, x, y, 0) - Channel(image, x, y, 2)) > 8;
            }
        const double count = 3.0 * side * side, mean = sum / count;
        EXPECT_GT(std::sqrt(squares / count - mean * mean), 4.0) << p.path << " is nearly flat";
        if (p.entry.kind == TextureKind::Detail) {
            EXPECT_NEAR(mean, 127.5, 8.0) << p.path;
            EXPECT_LT(colourful, side * side / 100) << p.path;
        }
    }
}

TEST(Textures, EveryOneTilesWithoutASeam) {
    for (const Painted& p : LoadAll()) {
        const int side = p.image.Width();
        // A seam, a jump at the wrap, spreads over a few lines when shaded or blurred: the five line
        // pairs nearest the wrap against neighbouring lines anywhere. The allowance covers a feature
        // lying across the edge, the constant the compression's blocks, which end on the edges.
        for (const bool columns : {true, false}) {
            double typical = 0, nearWrap = 0;
            for (int i = 0; i + 1 < side; ++i)
                typical += LineDifference(p.image, i, i + 1, columns) / (side - 1);
            for (const int i : {side - 3, side - 2, side - 1, 0, 1})
                nearWrap += LineDifference(p.image, i, (i + 1) % side, columns) / 5;
            EXPECT_LE(nearWrap, 2.0 * typical + 1.0)
                << p.path << (columns ? " left to right" : " top to bottom") << ": " << nearWrap
                << " near the wrap, " << typical;
        }
    }
}

TEST(Textures, ThePathsTheDefaultsStoreFindTheirFilesInAnyLetterCase) {
    InstallQtPictureDecoder();
    for (const char* stored : {"teratextures\\GrassTerrain.jpg", "teratextures\\GrassDetail.jpg",
                               "teratextures\\TropicalWater.jpg", "TeraTextures\\multidetail.JPG"}) {
        const auto path = ResolveTexturePath(std::string(LW_BIN_DIR) + "/", stored);
        ASSERT_TRUE(path.has_value()) << stored;
        cDIBSection image;
        EXPECT_TRUE(LoadPictureFile(*path, image)) << stored << " -> " << *path;
    }
}
