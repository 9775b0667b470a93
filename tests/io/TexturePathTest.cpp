// Texture paths as stored in tracks ("teratextures\GrassTerrain.jpg") turned into files to open.
#include "TexturePath.h"
#include "FileIO.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

void Touch(const fs::path& file) {
    fs::create_directories(file.parent_path());
    WriteBytes(file.string(), {1});
}

std::string Folder(const ScratchFolder& home) {
    return home.Path().string() + "/";
}

} // namespace

TEST(TexturePath, BackslashesBecomeFoldersUnderTheProgramFolder) {
    ScratchFolder home;
    Touch(home.Path() / "teratextures" / "rocks" / "Grey.jpg");
    const auto resolved = ResolveTexturePath(Folder(home), "teratextures\\rocks\\Grey.jpg");
    ASSERT_TRUE(resolved.has_value());
    EXPECT_TRUE(fs::equivalent(*resolved, home.Path() / "teratextures" / "rocks" / "Grey.jpg"));
    // Forward slashes and a program folder without its final "/" work as well.
    const auto forward = ResolveTexturePath(home.Path().string(), "teratextures/rocks/Grey.jpg");
    ASSERT_TRUE(forward.has_value());
    EXPECT_TRUE(fs::equivalent(*forward, *resolved));
}

TEST(TexturePath, NamesDifferingInCaseAreFoundWhenTheExactOneIsMissing) {
    ScratchFolder home;
    Touch(home.Path() / "TeraTextures" / "grassterrain.JPG");
    const auto resolved = ResolveTexturePath(Folder(home), "teratextures\\GrassTerrain.jpg");
    ASSERT_TRUE(resolved.has_value());
    EXPECT_EQ(fs::path(*resolved), home.Path() / "TeraTextures" / "grassterrain.JPG");
    EXPECT_TRUE(FileExists(*resolved));

    // Where the exact name exists it wins over another spelling.
    Touch(home.Path() / "TeraTextures" / "GrassTerrain.jpg");
    EXPECT_EQ(fs::path(*ResolveTexturePath(Folder(home), "TeraTextures\\GrassTerrain.jpg")),
              home.Path() / "TeraTextures" / "GrassTerrain.jpg");
}

TEST(TexturePath, AMissingFileResolvesToThePathAsWritten) {
    ScratchFolder home;
    Touch(home.Path() / "teratextures" / "Other.jpg");
    const auto resolved = ResolveTexturePath(Folder(home), "teratextures\\sub\\Absent.jpg");
    ASSERT_TRUE(resolved.has_value());
    EXPECT_EQ(fs::path(*resolved), home.Path() / "teratextures" / "sub" / "Absent.jpg");
    EXPECT_FALSE(FileExists(*resolved));
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
