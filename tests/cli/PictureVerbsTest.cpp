// The height-map, picture and 16-bit verbs of landwright-cli as a user runs them: what they write,
// the options they take, and their statuses for bad files and wrong usage.
#include "CliRun.h"
#include "SampleTrack.h"
#include "TerrainFile.h"
#include "TrackFile.h"
#include "mBitmapFile.h"

#include <algorithm>
#include <cmath>

namespace {

class PictureVerbsTest : public ::testing::Test {
protected:
    ScratchFolder folder;
    TrackDocument track = MakeSampleTrack(7, 5);
    std::string trackPath = folder.File("source.cvtrack");

    void SetUp() override { ASSERT_TRUE(WriteTrackFile(trackPath, track)); }

    TerrainData ReadTerrain(const std::string& name) {
        TerrainRecord record;
        EXPECT_TRUE(ReadTerrainFile(folder.File(name), record));
        return record.terrain;
    }
    const HeightGrid& SourceHeights() const { return track.terrain.terrain.heights; }
};

TEST_F(PictureVerbsTest, ExportsWriteTheirFilesAndImportsTakeTheirOptions) {
    ExpectPrinted(RunCli("export-heightmap", {trackPath, folder.File("map.bmp")}), {});
    ExpectPrinted(RunCli("import-heightmap", {folder.File("map.bmp"), folder.File("map.cvtera")}), {});
    const TerrainData back = ReadTerrain("map.cvtera");
    ASSERT_EQ(back.columns, 7);
    ASSERT_EQ(back.rows, 5);
    EXPECT_EQ(back.groundTexture, kDefaultGroundTexture);
    EXPECT_EQ(back.heights.At(2, 3), std::clamp(std::trunc(SourceHeights().At(2, 3)), -10.0f, 150.0f));
    ExpectPrinted(RunCli("export-picture", {trackPath, folder.File("view.bmp")}), {});
    ExpectPrinted(RunCli("export-picture", {trackPath, folder.File("view.tga")}), {});
    EXPECT_EQ(ReadBytes(folder.File("view.bmp"))[0], 'B');
    EXPECT_EQ(ReadBytes(folder.File("view.tga")).size(), 18u + 7 * 5 * 3 + 1);
    ExpectPrinted(RunCli("export-heightmap16", {trackPath, folder.File("map.r16")}), {});
    EXPECT_EQ(ReadBytes(folder.File("map.r16")).size(), 2u * 7 * 5);

    cDIBSection picture;
    picture.Create(2, 1);
    std::fill_n(picture.Row(0), 3, std::uint8_t{200}); // left grey 200, right black
    std::string error;
    ASSERT_TRUE(SaveBitmap(folder.File("photo.bmp"), picture, error));
    ExpectPrinted(RunCli("import-picture", {folder.File("photo.bmp"), folder.File("p.cvtera"), "--detail",
                                            "low", "--water", "40", "--invert"}),
                  {});
    const TerrainData t = ReadTerrain("p.cvtera");
    EXPECT_EQ(t.columns, 102);
    EXPECT_TRUE(t.waterEnabled);
    EXPECT_FLOAT_EQ(t.heights.At(0, 0), 15.0f / 1.7f); // 255 - 200 - 40
    ExpectPrinted(RunCli("import-picture", {folder.File("photo.bmp"), folder.File("q.cvtera")}), {});
    EXPECT_EQ(ReadTerrain("q.cvtera").columns, 205);
    EXPECT_FALSE(ReadTerrain("q.cvtera").waterEnabled);

    // Six points, two rows: the top row first, 0 and 65535 onto 0 .. 100.
    WriteBytes(folder.File("tiny.raw"), {0, 0, 0xFF, 0x7F, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0});
    ExpectPrinted(RunCli("import-heightmap16", {folder.File("tiny.raw"), folder.File("tiny.cvtera"),
                                                "--range", "0,100", "--width", "3"}),
                  {});
    const TerrainData tiny = ReadTerrain("tiny.cvtera");
    ASSERT_EQ(tiny.columns, 3);
    EXPECT_FLOAT_EQ(tiny.heights.At(1, 1), 32767.0f / 65535.0f * 100.0f);
    EXPECT_FLOAT_EQ(tiny.heights.At(1, 2), 100.0f);
    EXPECT_FLOAT_EQ(tiny.heights.At(0, 2), 0.0f);
}

TEST_F(PictureVerbsTest, BadFilesGiveStatusOneAndWrongUsageStatusTwo) {
    WriteText(folder.File("junk.bmp"), "BM" + std::string(40, 'x')); // a header of no known size
    WriteBytes(folder.File("big.r16"), std::vector<std::uint8_t>(2 * 514 * 514, 0));
    WriteBytes(folder.File("strip.raw"), std::vector<std::uint8_t>(2 * 6, 0));
    const std::string out = folder.File("out.cvtera");
    const std::vector<std::pair<std::vector<std::string>, const char*>> failures = {
        {{"import-heightmap", folder.File("junk.bmp"), out}, "junk.bmp: the bitmap"},
        {{"import-picture", folder.File("missing.jpg"), out}, "missing.jpg: no such file"},
        {{"import-heightmap16", folder.File("big.r16"), out}, "514 x 514 points"},
        {{"import-heightmap16", folder.File("strip.raw"), out}, "give its width"},
        {{"import-heightmap16", folder.File("strip.raw"), out, "--width", "4"}, "does not divide"},
        {{"export-heightmap", folder.File("none.cvtrack"), folder.File("x.bmp")}, "none.cvtrack"},
        {{"export-picture", trackPath, folder.File("no/such/folder/x.tga")}, "x.tga"},
    };
    for (const auto& [args, message] : failures) {
        const CliRun run = RunCli(args.front(), {args.begin() + 1, args.end()});
        EXPECT_EQ(run.status, 1) << args.front() << " " << args[1];
        EXPECT_NE(run.out.find(message), std::string::npos) << run.out;
    }
    EXPECT_FALSE(std::filesystem::exists(out));
    for (const char* usage :
         {"export-heightmap a", "export-heightmap a b.png", "import-picture a b --detail ultra",
          "import-picture a b --water", "import-picture a b --water deep",
          "import-heightmap16 a b --range 5,1", "import-heightmap16 a b --width 0",
          "import-heightmap16 a b --width", "export-heightmap16 a"}) {
        const CliRun run = RunCli(usage);
        EXPECT_EQ(run.status, 2) << usage;
        EXPECT_NE(run.out.find("usage: landwright-cli"), std::string::npos) << usage;
    }
}

} // namespace
