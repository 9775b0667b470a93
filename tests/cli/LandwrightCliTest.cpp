// landwright-cli run as a user runs it: exit codes, what it prints, what it writes.
#include "CliRun.h"
#include "SampleTrack.h"
#include "TerrainFile.h"
#include "TestSupport.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

TEST(LandwrightCli, InfoSummarisesTracksAndTerrainsAndResaveReproducesThemByteForByte) {
    const std::string demo = std::string(LW_BIN_DIR) + "/tracks/Demo.cvtrack";
    ExpectPrinted(RunCli("info", {demo}),
                  {"TRCK  length", "TERA  length", "ENVC  length", "Size: 205 x 205 points",
                   "teratextures\\GrassTerrain.jpg, tiling 10.00", "Water: on", "Reflection: 128"});
    ScratchFolder folder;
    ASSERT_TRUE(WriteTrackFile(folder.File("s.cvtrack"), MakeSampleTrack(3, 2)));
    ExpectPrinted(
        RunCli("info", {folder.File("s.cvtrack")}),
        {"Track style: 9\nBezier vertices: 6\n", "Trees: 2\nScenery objects: 2\n",
         "Segments: 6 (track 1, station 1, lift 1, transport 1, brake 1, other 1)",
         "Supports: 2 footers, 3 rail connector groups (3 connectors), 2 free nodes, 2 tubes, 2 catwalks",
         "Heights: min -3.00, max 22.50, mean 9.75", "Environment: Meadow / Clear Day"});
    TerrainRecord record;
    record.terrain = MakeSampleTerrain(6, 5);
    std::string error;
    ASSERT_TRUE(WriteTerrainFile(folder.File("t.cvtera"), record, error));
    ExpectPrinted(RunCli("info", {folder.File("t.cvtera")}), {"Size: 6 x 5 points"});
    for (const std::string& in : {demo, folder.File("t.cvtera")}) {
        const std::string out = folder.File(in.ends_with(".cvtera") ? "u.cvtera" : "copy.cvtrack");
        ExpectPrinted(RunCli("resave", {in, out}), {});
        EXPECT_EQ(ReadBytes(out), ReadBytes(in));
    }
}

TEST(LandwrightCli, BadFilesGiveAMessageAndStatusOneAndBadUsageTheUsageAndStatusTwo) {
    ScratchFolder folder;
    WriteText(folder.File("junk.cvtrack"), "this is not a track");
    WriteText(folder.File("junk.cvtera"), "TERA");
    for (const std::string& path : {folder.File("junk.cvtrack"), folder.File("missing.cvtrack"),
                                    folder.File("wrong.txt"), folder.File("junk.cvtera")}) {
        const CliRun run = RunCli("info", {path});
        EXPECT_EQ(run.status, 1) << path;
        EXPECT_NE(run.out.find("landwright-cli: "), std::string::npos) << run.out;
    }
    EXPECT_EQ(RunCli("resave", {folder.File("junk.cvtrack"), folder.File("out.cvtrack")}).status, 1);
    EXPECT_FALSE(std::filesystem::exists(folder.File("out.cvtrack")));
    for (const char* arguments : {"", "info", "frobnicate x", "resave onlyone", "info a b"}) {
        const CliRun run = RunCli(arguments);
        EXPECT_EQ(run.status, 2) << arguments;
        EXPECT_NE(run.out.find("usage: landwright-cli"), std::string::npos) << arguments;
    }
}

TEST(LandwrightCli, HelpListsEveryVerbOnItsOwnLine) {
    const CliRun run = RunCli("--help");
    ASSERT_EQ(run.status, 0);
    for (const char* verb : {"info", "resave", "export-terrain", "import-terrain"})
        EXPECT_NE(run.out.find(std::string("landwright-cli ") + verb + " "), std::string::npos) << verb;
}

TEST(LandwrightCli, TerrainVerbsMoveTheTerrainBetweenTracksAndTerrainFiles) {
    ScratchFolder folder;
    TrackDocument source = MakeSampleTrack(7, 5);
    ASSERT_TRUE(WriteTrackFile(folder.File("source.cvtrack"), source));
    ExpectPrinted(RunCli("export-terrain", {folder.File("source.cvtrack"), folder.File("t.cvtera")}), {});
    TerrainRecord read;
    ASSERT_TRUE(ReadTerrainFile(folder.File("t.cvtera"), read));
    EXPECT_EQ(read.terrain, source.terrain.terrain);

    // Into an existing track: the terrain is replaced and the rest of the track stays as it was.
    TrackDocument target = MakeSampleTrack(3, 3);
    target.terrain.terrainInTrack = false;
    ASSERT_TRUE(WriteTrackFile(folder.File("target.cvtrack"), target));
    ExpectPrinted(RunCli("import-terrain", {folder.File("t.cvtera"), folder.File("target.cvtrack")}), {});
    target.terrain = source.terrain;
    EXPECT_EQ(ReadBytes(folder.File("target.cvtrack")), SerializeTrack(target));

    // Into a terrain file, from a track.
    ExpectPrinted(RunCli("import-terrain", {folder.File("source.cvtrack"), folder.File("u.cvtera")}), {});
    EXPECT_EQ(ReadBytes(folder.File("u.cvtera")), ReadBytes(folder.File("t.cvtera")));
}

TEST(LandwrightCli, TerrainVerbsRefuseWhatTheyCannotReadOrWrite) {
    ScratchFolder folder;
    TrackDocument bare = MakeSampleTrack(3, 3);
    bare.terrain.terrainInTrack = false;
    ASSERT_TRUE(WriteTrackFile(folder.File("bare.cvtrack"), bare));
    const std::vector<std::uint8_t> bareBytes = ReadBytes(folder.File("bare.cvtrack"));
    const CliRun noTerrain = RunCli("export-terrain", {folder.File("bare.cvtrack"), folder.File("t.cvtera")});
    EXPECT_EQ(noTerrain.status, 1);
    EXPECT_NE(noTerrain.out.find("holds no terrain"), std::string::npos) << noTerrain.out;
    // A missing track as OUT, or an OUT of another kind, is not made up.
    ASSERT_TRUE(WriteTrackFile(folder.File("full.cvtrack"), MakeSampleTrack(4, 4)));
    for (const char* out : {"new.cvtrack", "t.bmp"}) {
        EXPECT_EQ(RunCli("import-terrain", {folder.File("full.cvtrack"), folder.File(out)}).status, 1) << out;
        EXPECT_FALSE(std::filesystem::exists(folder.File(out)));
    }
    WriteText(folder.File("junk.cvtrack"), "CRVT not really");
    EXPECT_EQ(RunCli("import-terrain", {folder.File("full.cvtrack"), folder.File("junk.cvtrack")}).status, 1);
    EXPECT_EQ(ReadText(folder.File("junk.cvtrack")), "CRVT not really");
    EXPECT_EQ(RunCli("export-terrain", {folder.File("full.cvtrack"), folder.File("t.txt")}).status, 2);
    EXPECT_EQ(RunCli("import-terrain", {folder.File("full.cvtrack")}).status, 2);
    EXPECT_EQ(ReadBytes(folder.File("bare.cvtrack")), bareBytes);
}
