// landwright-cli run as a user runs it: exit codes, what it prints, what it writes.
#include "CliRun.h"
#include "ObjExport.h"
#include "SampleTrack.h"
#include "TerragenFile.h"
#include "TerragenSample.h"
#include "TerrainFile.h"
#include "TestSupport.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

TEST(LandwrightCli, InfoSummarisesTracksAndTerrains) {
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
}

TEST(LandwrightCli, ResaveReproducesTracksAndTerrainsByteForByte) {
    const std::string demo = std::string(LW_BIN_DIR) + "/tracks/Demo.cvtrack";
    ScratchFolder folder;
    TerrainRecord record;
    record.terrain = MakeSampleTerrain(6, 5);
    std::string error;
    ASSERT_TRUE(WriteTerrainFile(folder.File("t.cvtera"), record, error));
    for (const std::string& in : {demo, folder.File("t.cvtera")}) {
        const std::string out = folder.File(in.ends_with(".cvtera") ? "u.cvtera" : "copy.cvtrack");
        ExpectPrinted(RunCli("resave", {in, out}), {});
        EXPECT_EQ(ReadBytes(out), ReadBytes(in));
    }
}

TEST(LandwrightCli, BadFilesGiveAMessageAndStatusOne) {
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
}

TEST(LandwrightCli, BadUsageGivesTheUsageAndStatusTwo) {
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

TEST(LandwrightCli, ImportTerragenMakesTheTerrainTheDialogWouldWithOrWithoutWater) {
    ScratchFolder folder;
    const std::string ter = folder.File("hills.ter");
    WriteBytes(ter, MakeTerragenFile({9, 6, false, true}, RollingTerragenElevations(9)));
    SampleGrid samples;
    ASSERT_TRUE(ReadTerragenFile(ter, samples));
    ExpectPrinted(RunCli("import-terragen", {ter, folder.File("wet.cvtera"), "--water", "100.5"}), {});
    TerrainRecord wet;
    ASSERT_TRUE(ReadTerrainFile(folder.File("wet.cvtera"), wet));
    EXPECT_EQ(wet.terrain.columns, 9);
    EXPECT_EQ(wet.terrain.rows, 6);
    EXPECT_TRUE(wet.terrain.waterEnabled);
    EXPECT_EQ(wet.terrain.groundTexture, kDefaultGroundTexture);
    EXPECT_EQ(wet.terrain.heights, TerrainFromTerragen(samples, true, 100.5f).heights);

    // Into an existing track, without water.
    ASSERT_TRUE(WriteTrackFile(folder.File("t.cvtrack"), MakeSampleTrack(3, 3)));
    ExpectPrinted(RunCli("import-terragen", {ter, folder.File("t.cvtrack")}), {});
    TrackDocument track;
    ASSERT_TRUE(ReadTrackFile(folder.File("t.cvtrack"), track));
    EXPECT_FALSE(track.terrain.terrain.waterEnabled);
    EXPECT_EQ(track.terrain.terrain.heights, TerrainFromTerragen(samples, false, 0.0f).heights);

    const CliRun help = RunCli("--help");
    for (const char* verb : {"import-terragen IN.ter OUT [--water H]", "export-obj IN OUT.obj"})
        EXPECT_NE(help.out.find(verb), std::string::npos) << verb;
}

TEST(LandwrightCli, ExportObjWritesTheTerrainsTextAndBothVerbsRefuseBadFilesAndUsage) {
    ScratchFolder folder;
    const TrackDocument track = MakeSampleTrack(5, 4);
    ASSERT_TRUE(WriteTrackFile(folder.File("t.cvtrack"), track));
    ExpectPrinted(RunCli("export-obj", {folder.File("t.cvtrack"), folder.File("t.obj")}), {});
    EXPECT_EQ(ReadText(folder.File("t.obj")), MakeObjText(track.terrain.terrain));

    TerragenSampleOptions shortLayout;
    shortLayout.omitOptionalBlocks = true;
    WriteBytes(folder.File("short.ter"), MakeTerragenFile(shortLayout, {}));
    const CliRun refused = RunCli("import-terragen", {folder.File("short.ter"), folder.File("x.cvtera")});
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.out.find("short.ter"), std::string::npos) << refused.out;
    EXPECT_EQ(RunCli("import-terragen", {folder.File("none.ter"), folder.File("x.cvtera")}).status, 1);
    EXPECT_FALSE(std::filesystem::exists(folder.File("x.cvtera")));
    EXPECT_EQ(RunCli("export-obj", {folder.File("none.cvtrack"), folder.File("n.obj")}).status, 1);
    EXPECT_EQ(RunCli("export-obj", {folder.File("t.cvtrack"), folder.File("no/such/dir.obj")}).status, 1);

    WriteBytes(folder.File("ok.ter"), MakeTerragenFile({3, 3, false, true}, {}));
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{folder.File("ok.ter")},
          {folder.File("ok.ter"), folder.File("y.cvtera"), "--water", "300"},
          {folder.File("ok.ter"), folder.File("y.cvtera"), "--water", "deep"},
          {folder.File("ok.ter"), folder.File("y.cvtera"), "--water"},
          {folder.File("ok.ter"), folder.File("y.cvtera"), "--depth", "3"}})
        EXPECT_EQ(RunCli("import-terragen", args).status, 2) << args.size();
    EXPECT_EQ(RunCli("export-obj", {folder.File("t.cvtrack"), folder.File("t.txt")}).status, 2);
    EXPECT_EQ(RunCli("export-obj", {folder.File("t.cvtrack")}).status, 2);
    EXPECT_FALSE(std::filesystem::exists(folder.File("y.cvtera")));
}
