// Texture paths as stored in tracks ("teratextures\GrassTerrain.jpg") turned into files to open.
#include "TexturePath.h"
#include "FileIO.h"
#include "PictureTestSupport.h"
#include "TestSupport.h"
#include "mSaveTGA.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

void Touch(const fs::path& file) {
    fs::create_directories(file.parent_path());
    WriteBytes(file.string(), {1});
}

} // namespace

TEST(TexturePath, ResolvesUnderTheProgramFolderMatchingCaseOnlyWhenTheExactNameIsMissing) {
    ScratchFolder home;
    const std::string folder = home.Path().string() + "/";
    Touch(home.Path() / "teratextures" / "rocks" / "Grey.jpg");
    const auto resolved = ResolveTexturePath(folder, "teratextures\\rocks\\Grey.jpg");
    ASSERT_TRUE(resolved.has_value());
    EXPECT_TRUE(fs::equivalent(*resolved, home.Path() / "teratextures" / "rocks" / "Grey.jpg"));
    // Forward slashes and a program folder without its final "/" work as well.
    const auto forward = ResolveTexturePath(home.Path().string(), "teratextures/rocks/Grey.jpg");
    ASSERT_TRUE(forward.has_value());
    EXPECT_TRUE(fs::equivalent(*forward, *resolved));
    // Another spelling is found while the exact one is missing, and loses to it once it exists,
    // even to a spelling that sorts first.
    Touch(home.Path() / "Ground" / "GrassTerrain.JPG");
    EXPECT_EQ(fs::path(ResolveTexturePath(folder, "ground\\grassterrain.jpg").value_or("")),
              home.Path() / "Ground" / "GrassTerrain.JPG");
    Touch(home.Path() / "Ground" / "grassterrain.jpg");
    EXPECT_EQ(fs::path(ResolveTexturePath(folder, "Ground\\grassterrain.jpg").value_or("")),
              home.Path() / "Ground" / "grassterrain.jpg");
    // A missing file resolves to the path as written.
    const auto absent = ResolveTexturePath(folder, "teratextures\\sub\\Absent.jpg");
    ASSERT_TRUE(absent.has_value());
    EXPECT_EQ(fs::path(*absent), home.Path() / "teratextures" / "sub" / "Absent.jpg");
    EXPECT_FALSE(FileExists(*absent));
}

TEST(TexturePath, AbsolutePathsAreRefused) {
    for (const char* path :
         {"C:\\textures\\a.jpg", "c:/a.jpg", "Z:a.jpg", "/etc/a.jpg", "\\teratextures\\a.jpg", ""}) {
        EXPECT_FALSE(IsRelativeTexturePath(path)) << path;
        EXPECT_FALSE(ResolveTexturePath("/opt/landwright/", path).has_value()) << path;
    }
    for (const char* path : {"teratextures\\a.jpg", "a.jpg", "1:a.jpg"})
        EXPECT_TRUE(IsRelativeTexturePath(path)) << path;
}

TEST(TexturePicture, LoadsTheResolvedFileAndRefusesAbsoluteOrMissingPathsKeepingThePicture) {
    ScratchFolder home;
    const cDIBSection stone = MakePattern(5, 3, 17);
    std::string error;
    fs::create_directories(home.Path() / "Teratextures");
    ASSERT_TRUE(SaveTGA((home.Path() / "Teratextures" / "Stone.TGA").string(), stone, error)) << error;
    cDIBSection loaded;
    ASSERT_TRUE(LoadTexturePicture(home.Path().string(), "teratextures\\stone.tga", loaded));
    EXPECT_TRUE(SamePixels(loaded, stone));
    const cDIBSection kept = loaded;
    for (const std::string path :
         {"teratextures\\missing.tga", "/teratextures/Stone.TGA", "C:\\Stone.tga", ""})
        EXPECT_FALSE(LoadTexturePicture(home.Path().string(), path, loaded)) << path;
    EXPECT_TRUE(SamePixels(loaded, kept)) << "a failed load leaves the picture alone";
}

TEST(TexturePath, NamesBeyondAsciiResolveToTheirUtf8Files) {
    ScratchFolder scratch;
    for (const char* home : {"Z\u00fcrich", "\u041a\u0438\u0440\u0438\u043b\u043b\u0438\u0446\u0430"}) {
        const fs::path folder = scratch.Path() / home;
        Touch(folder / "teratextures" / "Gr\u00fcn.jpg");
        // The track stores the name as Latin-1 text.
        const auto resolved = ResolveTexturePath(folder.string() + "/", "teratextures\\Gr\xfcn.jpg");
        ASSERT_TRUE(resolved.has_value());
        EXPECT_TRUE(FileExists(*resolved)) << *resolved;
        // A name some other tool stored as UTF-8 is still found.
        EXPECT_EQ(ResolveTexturePath(folder.string(), "teratextures\\Gr\u00fcn.jpg"), resolved);
    }
}
