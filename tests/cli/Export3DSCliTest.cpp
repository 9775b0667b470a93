// landwright-cli export-3ds: the objects and colours it writes, and what it refuses.
#include "Chunk3DSReader.h"
#include "CliRun.h"
#include "SampleTrack.h"
#include "TerrainFile.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

class Export3DSCli : public ::testing::Test {
protected:
    ScratchFolder folder;
    std::string track = folder.File("ride.cvtrack");
    std::string out = folder.File("ride.3ds");
    void SetUp() override { ASSERT_TRUE(WriteTrackFile(track, MakeSampleTrack(6, 6))); }
};

} // namespace

TEST_F(Export3DSCli, TrackFileGivesTerrainAndTrackInTheColoursAsked) {
    const CliRun run =
        RunCli("export-3ds", {track, out, "--terrain-color", "1,2,3", "--track-color", "255,128,0"});
    ASSERT_EQ(run.status, 0) << run.out;
    const Export3DSSummary written = Summarise3DS(out);
    EXPECT_EQ(written.objects.at(1), "TRCK0000");
    EXPECT_EQ(written.diffuse, (std::vector<std::array<int, 3>>{{1, 2, 3}, {255, 128, 0}}));

    ASSERT_EQ(RunCli("export-3ds", {track, out, "--no-track"}).status, 0);
    const Export3DSSummary alone = Summarise3DS(out);
    EXPECT_EQ(alone.objects, std::vector<std::string>{"TERA0000"});
    EXPECT_EQ(alone.diffuse, (std::vector<std::array<int, 3>>{{76, 128, 76}}));
}

TEST_F(Export3DSCli, TerrainFileHasNoTrackToInclude) {
    TerrainRecord record;
    record.terrain = MakeSampleTerrain(5, 4);
    record.terrainInTrack = true;
    std::string error;
    ASSERT_TRUE(WriteTerrainFile(folder.File("t.cvtera"), record, error)) << error;
    ASSERT_EQ(RunCli("export-3ds", {folder.File("t.cvtera"), out}).status, 0);
    EXPECT_EQ(Summarise3DS(out).objects, std::vector<std::string>{"TERA0000"});
}

TEST_F(Export3DSCli, WrongUsageIsStatusTwoAndFilesThatFailAreStatusOne) {
    WriteText(out, "kept");
    for (const std::string& arguments :
         {"'" + track + "'", "'" + track + "' '" + folder.File("x.obj") + "'",
          "'" + track + "' '" + out + "' --terrain-color 300,0,0",
          "'" + track + "' '" + out + "' --track-color 1,2", "'" + track + "' '" + out + "' --track-color",
          "'" + track + "' '" + out + "' --wireframe"}) {
        const CliRun run = RunCli("export-3ds " + arguments);
        EXPECT_EQ(run.status, 2) << arguments << "\n" << run.out;
        EXPECT_NE(run.out.find("usage: landwright-cli"), std::string::npos) << run.out;
    }
    const CliRun missing = RunCli("export-3ds", {folder.File("none.cvtrack"), out});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.out.find("none.cvtrack"), std::string::npos) << missing.out;
    const CliRun unwritable = RunCli("export-3ds", {track, folder.File("no/such/folder.3ds")});
    EXPECT_EQ(unwritable.status, 1);
    EXPECT_NE(unwritable.out.find("folder.3ds"), std::string::npos) << unwritable.out;
    EXPECT_EQ(ReadText(out), "kept");
    EXPECT_NE(RunCli("--help").out.find("landwright-cli export-3ds IN OUT.3ds"), std::string::npos);
}
