// landwright-cli run as a user runs it: exit codes, what it prints, what it writes.
#include "SampleTrack.h"
#include "TerrainFile.h"
#include "TestSupport.h"
#include "TrackFile.h"
#include "TrackInfo.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sys/wait.h>

namespace {

struct CliRun {
    int status = -1;
    std::string out;
};

// Runs the command line tool with the arguments (already quoted) and captures stdout and stderr.
CliRun RunCli(const std::string& arguments) {
    CliRun run;
    const std::string command = std::string("'") + LW_CLI_PATH + "' " + arguments + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return run;
    char buffer[4096];
    while (std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe))
        run.out.append(buffer, n);
    const int raw = pclose(pipe);
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return run;
}

std::string Quoted(const std::string& path) {
    return "'" + path + "'";
}

const std::string kDemo = std::string(LW_BIN_DIR) + "/tracks/Demo.cvtrack";

} // namespace

TEST(LandwrightCli, InfoSummarisesTheDemoTrackAndResaveReproducesItByteForByte) {
    const CliRun run = RunCli("info " + Quoted(kDemo));
    ASSERT_EQ(run.status, 0) << run.out;
    for (const char* expected :
         {"TRCK  length", "SCOB  length", "TERA  length", "ENVC  length",
          "Terrain:", "Size: 205 x 205 points", "teratextures\\GrassTerrain.jpg, tiling 10.00", "Water: on",
          "Reflection: 128", "Track style:", "Trees:", "Scenery objects:"})
        EXPECT_NE(run.out.find(expected), std::string::npos) << expected << "\n" << run.out;
    ScratchFolder folder;
    const CliRun resave = RunCli("resave " + Quoted(kDemo) + " " + Quoted(folder.File("copy.cvtrack")));
    ASSERT_EQ(resave.status, 0) << resave.out;
    EXPECT_EQ(ReadBytes(folder.File("copy.cvtrack")), ReadBytes(kDemo));
}

TEST(LandwrightCli, InfoCountsWhatTheTrackHolds) {
    ScratchFolder folder;
    ASSERT_TRUE(WriteTrackFile(folder.File("s.cvtrack"), MakeSampleTrack(3, 2)));
    const CliRun run = RunCli("info " + Quoted(folder.File("s.cvtrack")));
    ASSERT_EQ(run.status, 0) << run.out;
    for (const char* expected :
         {"Bezier vertices: 6\n", "Segments: 6 (track 1, station 1, lift 1, transport 1, brake 1, other 1)",
          "Supports: 2 footers, 3 rail connector groups (3 connectors), 2 free nodes, 2 tubes, 2 catwalks",
          "Heights: min -3.00, max 22.50, mean 9.75", "Environment: Meadow / Clear Day"})
        EXPECT_NE(run.out.find(expected), std::string::npos) << expected << "\n" << run.out;
}

TEST(LandwrightCli, TerrainFilesAreDescribedAndResaved) {
    ScratchFolder folder;
    TerrainRecord record;
    record.terrain = MakeSampleTerrain(6, 5);
    std::string error;
    ASSERT_TRUE(WriteTerrainFile(folder.File("t.cvtera"), record, error));
    const CliRun info = RunCli("info " + Quoted(folder.File("t.cvtera")));
    ASSERT_EQ(info.status, 0) << info.out;
    EXPECT_NE(info.out.find("Size: 6 x 5 points"), std::string::npos) << info.out;
    const CliRun resave =
        RunCli("resave " + Quoted(folder.File("t.cvtera")) + " " + Quoted(folder.File("u.cvtera")));
    ASSERT_EQ(resave.status, 0) << resave.out;
    EXPECT_EQ(ReadBytes(folder.File("u.cvtera")), ReadBytes(folder.File("t.cvtera")));
}

TEST(LandwrightCli, BadFilesGiveAMessageAndStatusOne) {
    ScratchFolder folder;
    WriteText(folder.File("junk.cvtrack"), "this is not a track");
    WriteText(folder.File("junk.cvtera"), "TERA");
    for (const std::string& path : {folder.File("junk.cvtrack"), folder.File("missing.cvtrack"),
                                    folder.File("wrong.txt"), folder.File("junk.cvtera")}) {
        const CliRun run = RunCli("info " + Quoted(path));
        EXPECT_EQ(run.status, 1) << path;
        EXPECT_NE(run.out.find("landwright-cli: "), std::string::npos) << run.out;
    }
    const CliRun resave =
        RunCli("resave " + Quoted(folder.File("junk.cvtrack")) + " " + Quoted(folder.File("out.cvtrack")));
    EXPECT_EQ(resave.status, 1);
    EXPECT_FALSE(std::filesystem::exists(folder.File("out.cvtrack")));
}

TEST(LandwrightCli, BadUsagePrintsTheUsageAndStatusTwo) {
    for (const char* arguments : {"", "info", "frobnicate x", "resave onlyone", "info a b"}) {
        const CliRun run = RunCli(arguments);
        EXPECT_EQ(run.status, 2) << arguments;
        EXPECT_NE(run.out.find("usage: landwright-cli"), std::string::npos) << arguments;
    }
}

TEST(TrackInfoText, NumbersUseAPointAndFixedDecimals) {
    EXPECT_EQ(FormatFixed(2.5, 2), "2.50");
    EXPECT_EQ(FormatFixed(-0.125, 1), "-0.1");
    EXPECT_EQ(FormatFixed(1024.0 / 409.0, 4), "2.5037");
}
