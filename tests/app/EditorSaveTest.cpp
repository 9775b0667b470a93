// Saving, the recent files, the exit question, riding the track and the Terrain menu commands.
#include "EditorTestFixture.h"

#include <filesystem>

namespace fs = std::filesystem;

TEST_F(EditorTest, SaveWritesTheEditedTerrainWithTheTrackAndClearsOnlyTheChangeMark) {
    const std::string path = WriteTrack("edit.cvtrack", 4);
    editor.OpenTrack(path);
    editor.AdjustHeights(2.5f, AdjustMode::Raise);
    ASSERT_TRUE(editor.Terrain().terrainChanged);
    ASSERT_TRUE(editor.SaveTrack(path));
    EXPECT_FALSE(editor.Terrain().terrainChanged);
    EXPECT_TRUE(editor.CanUndo()) << "steps survive saving";
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(path, saved));
    EXPECT_EQ(saved.terrain.terrain, static_cast<const TerrainData&>(editor.Terrain()));
    EXPECT_EQ(saved.bezier.vertices, MakeSampleTrack().bezier.vertices);
}

TEST_F(EditorTest, AFailedSaveIsReportedLeavingTheTerrainMarkedChanged) {
    const std::string path = WriteTrack("full.cvtrack", 40);
    editor.OpenTrack(path);
    const std::vector<std::uint8_t> before = ReadBytes(path);
    EditHeight(3, 3, 7.0f);
    {
        FileSizeLimit limit(1000);
        EXPECT_FALSE(editor.SaveTrack(path));
    }
    EXPECT_EQ(OnlyMessage().icon, MessageIcon::Critical);
    EXPECT_TRUE(editor.Terrain().terrainChanged);
    EXPECT_EQ(ReadBytes(path), before);
}

TEST_F(EditorTest, SaveAsOffersTheTrackAndSavesUnderTheChosenNameWithItsExtension) {
    const std::string path = WriteTrack("first.cvtrack", 4);
    editor.OpenTrack(path);
    shell.saveChoices = {folder.File("second"), std::nullopt};
    editor.SaveTrackAs();
    ASSERT_EQ(shell.saveDialogs.size(), 1u);
    EXPECT_EQ(shell.saveDialogs[0].fileName, path);
    EXPECT_EQ(editor.Terrain().trackFilePath, folder.File("second.cvtrack"));
    EXPECT_TRUE(fs::exists(folder.File("second.cvtrack")));
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright - second");
    EXPECT_EQ(editor.Settings().recentTitles[0], "second");
    editor.SaveTrackAs(); // cancelled
    EXPECT_EQ(editor.Terrain().trackFilePath, folder.File("second.cvtrack"));
}

TEST_F(EditorTest, RecentFilesKeepFiveNewestFirstWithoutDuplicates) {
    for (const char* name : {"a", "b", "c", "d", "e", "f"})
        editor.AddRecentFile(std::string("/t/") + name + ".cvtrack");
    using Five = std::array<std::string, kRecentFileCount>;
    EXPECT_EQ(editor.Settings().recentPaths,
              (Five{"/t/f.cvtrack", "/t/e.cvtrack", "/t/d.cvtrack", "/t/c.cvtrack", "/t/b.cvtrack"}));
    editor.AddRecentFile("/T/D.CVTRACK"); // the same file in other letter case moves to the top
    EXPECT_EQ(editor.Settings().recentPaths,
              (Five{"/T/D.CVTRACK", "/t/f.cvtrack", "/t/e.cvtrack", "/t/c.cvtrack", "/t/b.cvtrack"}));
    EXPECT_EQ(editor.Settings().recentTitles, (Five{"D", "f", "e", "c", "b"}));
    editor.ClearRecentFiles();
    EXPECT_EQ(editor.Settings().recentPaths, Five{});
    ChangeSettings(
        [](AppSettings& s) { s.rmbrRecents = false; }); // then nothing is added, but the menus are updated
    const int updates = shell.uiUpdates;
    editor.AddRecentFile("/t/z.cvtrack");
    EXPECT_TRUE(editor.Settings().recentPaths[0].empty());
    EXPECT_EQ(shell.uiUpdates, updates + 1);
}

TEST_F(EditorTest, ExitAsksOnlyOverUnsavedChangesAndNoKeepsItRunning) {
    EXPECT_TRUE(editor.ConfirmClose());
    EXPECT_TRUE(shell.questions.empty());
    GiveEditorTerrain();
    editor.FlipArea();
    shell.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(editor.ConfirmClose());
    EXPECT_TRUE(editor.ConfirmClose());
    EXPECT_EQ(shell.questions.size(), 2u);
}

TEST_F(EditorTest, RidingWithoutASimulatorWarnsAndSavesNothing) {
    const std::string path = WriteTrack("ride.cvtrack", 4);
    editor.OpenTrack(path);
    EditHeight(1, 1, 12.25f);
    const std::vector<std::uint8_t> before = ReadBytes(path);
    editor.RideTrack();
    EXPECT_EQ(OnlyMessage().icon, MessageIcon::Exclamation);
    shell.messages.clear();
    WriteText(editor.SimulatorPath(), "#!/bin/sh\n");
    fs::permissions(editor.SimulatorPath(), fs::perms::owner_read | fs::perms::owner_write);
    editor.RideTrack();
    EXPECT_NE(OnlyMessage().text.find("not executable"), std::string::npos) << OnlyMessage().text;
    EXPECT_NE(OnlyMessage().text.find(editor.SimulatorPath()), std::string::npos) << "names the file";
    EXPECT_EQ(OnlyMessage().icon, MessageIcon::Exclamation);
    EXPECT_TRUE(shell.started.empty());
    EXPECT_EQ(ReadBytes(path), before);
}

TEST_F(EditorTest, RidingSavesFirstThenStartsTheSimulatorOnTheTrack) {
    const std::string path = WriteTrack("ride.cvtrack", 4);
    editor.OpenTrack(path);
    EditHeight(1, 1, 12.25f);
    WriteText(editor.SimulatorPath(), "#!/bin/sh\n");
    fs::permissions(editor.SimulatorPath(), fs::perms::owner_all);
    editor.RideTrack();
    ASSERT_EQ(shell.started.size(), 1u);
    EXPECT_EQ(shell.started[0].program, folder.File("CorvantaSimulator.exe"));
    EXPECT_EQ(shell.started[0].arguments, (std::vector<std::string>{"-s", path}));
    EXPECT_FALSE(editor.Terrain().terrainChanged);
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(path, saved));
    EXPECT_EQ(saved.terrain.terrain.heights.At(1, 1), 12.25f);
}

TEST_F(EditorTest, DeletingTheTerrainAsksFirstAndTheNextSaveDropsItsChunk) {
    const std::string path = WriteTrack("t.cvtrack", 4);
    editor.OpenTrack(path);
    editor.FlipArea();
    shell.answers = {Answer::No, Answer::Yes};
    editor.DeleteTerrain();
    EXPECT_TRUE(editor.Terrain().terrainPresent && editor.CanUndo());
    editor.DeleteTerrain();
    EXPECT_FALSE(editor.Terrain().terrainPresent || editor.History().CanUndo());
    EXPECT_TRUE(editor.Terrain().terrainChanged);
    ASSERT_TRUE(editor.SaveTrack(path));
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(path, saved));
    EXPECT_FALSE(saved.terrain.terrainInTrack);
}

TEST_F(EditorTest, RemovingTheTrackAsksFirstAndLeavesNothingToSave) {
    editor.OpenTrack(WriteTrack("t.cvtrack", 0));
    shell.answers = {Answer::No, Answer::Yes};
    editor.RemoveTrackData();
    EXPECT_TRUE(editor.Terrain().trackPresent);
    editor.RemoveTrackData();
    EXPECT_FALSE(editor.Terrain().trackPresent);
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright");
    GiveEditorTerrain();
    editor.FlipArea();
    EXPECT_FALSE(editor.SaveTrack(folder.File("nothing.cvtrack")));
    EXPECT_FALSE(fs::exists(folder.File("nothing.cvtrack")));
    EXPECT_TRUE(editor.Terrain().terrainChanged);
    editor.SaveTrackAs();
    EXPECT_TRUE(shell.saveDialogs.empty());
}

TEST_F(EditorTest, HelpSaysWhereTheManualBelongsWhenItIsMissingOrCannotBeShown) {
    const std::string manual = folder.File("help/landwright/index.htm");
    editor.OpenHelpIndex();
    EXPECT_TRUE(shell.openedDocuments.empty());
    EXPECT_NE(OnlyMessage().text.find(manual), std::string::npos)
        << "a missing manual: " << OnlyMessage().text;
    fs::create_directories(folder.File("help/landwright"));
    WriteText(manual, "<html></html>");
    shell.messages.clear();
    shell.openSucceeds = false; // no browser
    editor.OpenHelpIndex();
    EXPECT_NE(OnlyMessage().text.find(manual), std::string::npos)
        << "nothing to show it: " << OnlyMessage().text;
    EXPECT_EQ(OnlyMessage().icon, MessageIcon::Exclamation);
}

TEST_F(EditorTest, HelpOpensTheManualBesideTheProgram) {
    const std::string manual = folder.File("help/landwright/index.htm");
    fs::create_directories(folder.File("help/landwright"));
    WriteText(manual, "<html></html>");
    editor.OpenHelpIndex();
    EXPECT_TRUE(shell.messages.empty());
    EXPECT_EQ(shell.openedDocuments, (std::vector<std::string>{manual}));
}
