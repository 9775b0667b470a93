// Saving, the recent files, the exit question, riding the track and the Terrain menu commands.
#include "EditorTestFixture.h"

#include <filesystem>

namespace fs = std::filesystem;

TEST_F(EditorTest, SavingWithoutATrackWritesNothing) {
    GiveEditorTerrain();
    editor.terrain.terrainChanged = true;
    EXPECT_FALSE(editor.SaveTrack(folder.File("nothing.cvtrack")));
    EXPECT_FALSE(fs::exists(folder.File("nothing.cvtrack")));
    EXPECT_TRUE(editor.terrain.terrainChanged);
    editor.SaveTrackAs();
    EXPECT_TRUE(shell.saveDialogs.empty());
}

TEST_F(EditorTest, SaveWritesTheEditedTerrainWithTheTrackClearsTheChangeMarkAndKeepsTheUndoSteps) {
    const std::string path = WriteTrack("edit.cvtrack", 4);
    editor.OpenTrack(path);
    editor.AdjustHeights(2.5f, 0);
    ASSERT_TRUE(editor.terrain.terrainChanged);
    ASSERT_TRUE(editor.SaveTrack(path));
    EXPECT_FALSE(editor.terrain.terrainChanged);
    EXPECT_TRUE(editor.CanUndo()) << "steps survive saving";
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(path, saved));
    EXPECT_NE(saved.terrain.terrain.heights, MakeSampleTerrain(4, 4).heights);
    EXPECT_EQ(saved.terrain.terrain, static_cast<const TerrainData&>(editor.terrain))
        << "the editor's terrain";
    EXPECT_EQ(saved.bezier.vertices, MakeSampleTrack().bezier.vertices);
}

TEST_F(EditorTest, AFailedSaveIsReportedAndTheTerrainStaysChanged) {
    const std::string path = WriteTrack("full.cvtrack", 40);
    editor.OpenTrack(path);
    const std::vector<std::uint8_t> before = ReadBytes(path);
    editor.terrain.heights.At(3, 3) = 7.0f;
    editor.terrain.terrainChanged = true;
    {
        FileSizeLimit limit(1000);
        EXPECT_FALSE(editor.SaveTrack(path));
    }
    const ShownMessage& m = OnlyMessage();
    EXPECT_EQ(m.title, "Error");
    EXPECT_EQ(m.icon, MessageIcon::Critical);
    EXPECT_EQ(m.text.rfind("Error - Could not save the track file.", 0), 0u) << m.text;
    EXPECT_TRUE(editor.terrain.terrainChanged);
    EXPECT_EQ(ReadBytes(path), before);
}

TEST_F(EditorTest, SaveAsOffersTheTrackDialogAndSavesUnderTheNewName) {
    const std::string path = WriteTrack("first.cvtrack", 4);
    editor.OpenTrack(path);
    shell.saveChoices.push_back(folder.File("second"));
    editor.SaveTrackAs();
    ASSERT_EQ(shell.saveDialogs.size(), 1u);
    EXPECT_EQ(shell.saveDialogs[0].title, "Save Track As...");
    EXPECT_EQ(shell.saveDialogs[0].filter, "Corvanta Track Files (*.cvtrack)|*cvtrack");
    EXPECT_EQ(shell.saveDialogs[0].defaultExtension, "cvtrack");
    EXPECT_EQ(shell.saveDialogs[0].fileName, path);
    EXPECT_EQ(editor.terrain.trackFilePath, folder.File("second.cvtrack"));
    EXPECT_TRUE(fs::exists(folder.File("second.cvtrack")));
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright - second");
    EXPECT_EQ(editor.settings.recentTitles[0], "second");
    shell.saveChoices.push_back(std::nullopt);
    editor.SaveTrackAs();
    EXPECT_EQ(editor.terrain.trackFilePath, folder.File("second.cvtrack"));
}

TEST_F(EditorTest, RecentFilesKeepFiveNewestFirstWithoutDuplicates) {
    for (const char* name : {"a", "b", "c", "d", "e", "f"})
        editor.AddRecentFile(std::string("/t/") + name + ".cvtrack");
    using Five = std::array<std::string, kRecentFileCount>;
    EXPECT_EQ(editor.settings.recentPaths,
              (Five{"/t/f.cvtrack", "/t/e.cvtrack", "/t/d.cvtrack", "/t/c.cvtrack", "/t/b.cvtrack"}));
    editor.AddRecentFile("/T/D.CVTRACK"); // the same file in other letter case moves to the top
    EXPECT_EQ(editor.settings.recentPaths,
              (Five{"/T/D.CVTRACK", "/t/f.cvtrack", "/t/e.cvtrack", "/t/c.cvtrack", "/t/b.cvtrack"}));
    EXPECT_EQ(editor.settings.recentTitles, (Five{"D", "f", "e", "c", "b"}));
    editor.ClearRecentFiles();
    EXPECT_EQ(editor.settings.recentPaths, Five{});
    editor.settings.rmbrRecents = false; // then nothing is added, but the menus are updated
    const int updates = shell.uiUpdates;
    editor.AddRecentFile("/t/z.cvtrack");
    EXPECT_TRUE(editor.settings.recentPaths[0].empty());
    EXPECT_EQ(shell.uiUpdates, updates + 1);
}

TEST_F(EditorTest, ExitAsksOnlyWithUnsavedChangesAndNoKeepsRunning) {
    EXPECT_TRUE(editor.ConfirmClose());
    EXPECT_TRUE(shell.questions.empty());
    editor.terrain.terrainChanged = true;
    shell.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(editor.ConfirmClose());
    EXPECT_TRUE(editor.ConfirmClose());
    ASSERT_EQ(shell.questions.size(), 2u);
    const AskedQuestion& q = shell.questions[0];
    EXPECT_EQ(q.text, "There are unsaved changes to the terrain.\nAre you sure you wish to exit?");
    EXPECT_EQ(q.title, "Are you sure?");
    EXPECT_EQ(q.buttons, Buttons::YesNo);
    EXPECT_EQ(q.icon, MessageIcon::Question);
    EXPECT_EQ(q.defaultAnswer, Answer::No);
}

TEST_F(EditorTest, RidingWarnsWithoutARunnableSimulatorElseSavesFirstAndStartsItOnTheTrack) {
    const std::string path = WriteTrack("ride.cvtrack", 4);
    editor.OpenTrack(path);
    editor.terrain.heights.At(1, 1) = 12.25f;
    editor.terrain.terrainChanged = true;
    const std::vector<std::uint8_t> before = ReadBytes(path);
    WriteText(editor.SimulatorPath(), "#!/bin/sh\n");
    editor.RideTrack();
    const ShownMessage& m = OnlyMessage();
    EXPECT_EQ(m.text, "Warning - Corvanta Simulator not found.\nCorvanta Landwright must be in the same "
                      "folder as Corvanta Simulator");
    EXPECT_EQ(m.title, "Warning!");
    EXPECT_EQ(m.icon, MessageIcon::Exclamation);
    EXPECT_TRUE(shell.started.empty());
    EXPECT_EQ(ReadBytes(path), before) << "nothing saved";
    fs::permissions(editor.SimulatorPath(), fs::perms::owner_all);
    editor.RideTrack();
    ASSERT_EQ(shell.started.size(), 1u);
    EXPECT_EQ(shell.started[0].program, folder.File("CorvantaSimulator.exe"));
    EXPECT_EQ(shell.started[0].arguments, (std::vector<std::string>{"-s", path}));
    EXPECT_FALSE(editor.terrain.terrainChanged);
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(path, saved));
    EXPECT_EQ(saved.terrain.terrain.heights.At(1, 1), 12.25f);
}

TEST_F(EditorTest, DeletingTheTerrainAndRemovingTheTrackAskFirstAndASaveThenDropsTheTerrainChunk) {
    const std::string path = WriteTrack("t.cvtrack", 4);
    editor.OpenTrack(path);
    shell.answers = {Answer::No, Answer::Yes, Answer::No, Answer::Yes};
    editor.DeleteTerrain();
    EXPECT_TRUE(editor.terrain.terrainPresent);
    editor.DeleteTerrain();
    EXPECT_FALSE(editor.terrain.terrainPresent);
    EXPECT_TRUE(editor.terrain.terrainChanged);
    ASSERT_TRUE(editor.SaveTrack(path));
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(path, saved));
    EXPECT_FALSE(saved.terrain.terrainInTrack);
    EXPECT_EQ(
        shell.questions[0].text,
        "Warning!  This will completely remove the terrain structure!\nAre you sure you wish to continue?");
    editor.RemoveTrackData();
    EXPECT_TRUE(editor.terrain.trackPresent);
    editor.RemoveTrackData();
    EXPECT_FALSE(editor.terrain.trackPresent);
    EXPECT_EQ(shell.questions[2].text,
              "Warning!  This will completely remove the track structure from the scene "
              "(including tress)!\nAre you sure you wish to continue?");
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright");
}

TEST_F(EditorTest, HelpOpensTheManualBesideTheProgram) {
    editor.OpenHelpIndex();
    EXPECT_EQ(shell.openedDocuments, (std::vector<std::string>{folder.File("help/landwright/index.htm")}));
}
