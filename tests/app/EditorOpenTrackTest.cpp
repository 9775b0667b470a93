// Opening tracks: the file checks and their messages, the terrain questions, folder and caption.
#include "EditorTestFixture.h"

TEST_F(EditorTest, OpenWithoutAPathAsksForATrackFileInTheTrackFolderAndCancelChangesNothing) {
    shell.openChoices.push_back(std::nullopt);
    editor.OpenTrack("");
    ASSERT_EQ(shell.openDialogs.size(), 1u);
    EXPECT_NE(shell.openDialogs[0].filter.find("|*.cvtrack"), std::string::npos);
    EXPECT_EQ(shell.openDialogs[0].folder, editor.ProgramFolder() + "tracks");
    EXPECT_TRUE(shell.messages.empty());
    EXPECT_FALSE(editor.Terrain().trackPresent);
}

TEST_F(EditorTest, BadNamesMissingFilesAndDamagedFilesAreReportedAndLeaveTheOpenTrackAndItsEditsAlone) {
    const std::string good = WriteTrack("good.cvtrack", 4);
    editor.OpenTrack(good);
    EditHeight(1, 1, 33.0f);
    const int updates = shell.uiUpdates;
    const std::string bad = folder.File("bad.cvtrack"), cut = folder.File("cut.cvtrack");
    WriteText(bad, "CRVT not a track");
    std::vector<std::uint8_t> bytes = ReadBytes(good);
    bytes.resize(bytes.size() - 40);
    WriteBytes(cut, bytes);
    // The reader's own reason, as the line after the file's name.
    const auto reason = [](const std::string& path) {
        TrackDocument scratch;
        return ReadTrackFile(path, scratch).message;
    };
    ASSERT_FALSE(reason(cut).empty());
    const std::pair<std::string, std::string> cases[] = {
        {folder.File("notes.txt"), "Invalid Track Filename."},
        {folder.File("absent.cvtrack"), "Track File Not Found."},
        {bad, "Invalid Track File.\n" + bad + "\n" + reason(bad)},
        {cut, "Invalid Track File.\n" + cut + "\n" + reason(cut)}};
    for (const auto& [path, message] : cases) {
        shell.messages.clear();
        editor.OpenTrack(path);
        EXPECT_EQ(OnlyMessage().text, message);
        EXPECT_EQ(OnlyMessage().title, "Warning");
        EXPECT_EQ(OnlyMessage().icon, MessageIcon::Exclamation);
    }
    EXPECT_EQ(shell.uiUpdates, updates) << "the window goes on showing the open track";
    EXPECT_EQ(editor.Settings().recentTitles[0], "good");
    EXPECT_TRUE(editor.Terrain().trackPresent && editor.Terrain().terrainChanged);
    EXPECT_EQ(editor.Track().bezier.vertices, MakeSampleTrack().bezier.vertices);
    ASSERT_TRUE(editor.SaveTrack(good)) << "the edits can still be saved";
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(good, saved));
    EXPECT_EQ(saved.terrain.terrain.heights.At(1, 1), 33.0f);
}

TEST_F(EditorTest, WithoutATerrainInTheEditorNothingIsAskedAndTheTracksTerrainIfAnyIsLoaded) {
    editor.OpenTrack(WriteTrack("Flat Ride.CVTRACK", 0));
    EXPECT_FALSE(editor.Terrain().terrainPresent);
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright - Flat Ride");
    shell.openChoices.push_back(WriteTrack("hilly.cvtrack", 6));
    editor.OpenTrack("");
    EXPECT_TRUE(shell.askDialogs.empty());
    EXPECT_TRUE(editor.Terrain().trackPresent && editor.Terrain().terrainPresent);
    EXPECT_EQ(editor.Terrain().heights, MakeSampleTerrain(6, 6).heights);
    EXPECT_FALSE(editor.Terrain().terrainChanged);
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright - hilly");
    EXPECT_GE(shell.textureReloads, 1);
}

struct TerrainChoice {
    bool trackHasTerrain;
    int setting;                     // the remembered answer, 0 asks
    std::optional<AskResult> answer; // what the user picks when asked
    int expectColumns;               // of the editor's terrain after: 5 the track's, 3 its own, 0 none
    int expectSettingAfter;
};

class EditorTerrainChoiceTest : public EditorTest, public ::testing::WithParamInterface<TerrainChoice> {};

TEST_P(EditorTerrainChoiceTest, FollowsTheSettingOrTheAnswerAndASaveWritesTheTerrainKept) {
    const TerrainChoice c = GetParam();
    const std::string path = WriteTrack("t.cvtrack", c.trackHasTerrain ? 5 : 0);
    GiveEditorTerrain(3, 41.0f);
    editor.AdjustHeights(1.0f, AdjustMode::Raise);
    const auto setting =
        c.trackHasTerrain ? &AppSettings::askLoadTrackTerrain : &AppSettings::askLoadNoTerrain;
    ChangeSettings([&](AppSettings& s) { s.*setting = c.setting; });
    if (c.answer) shell.askChoices.push_back(*c.answer);
    editor.OpenTrack(path);
    const std::vector<AskKind> asked{c.trackHasTerrain ? AskKind::LoadTrackTerrain : AskKind::LoadNoTerrain};
    EXPECT_EQ(shell.askDialogs, c.answer ? asked : std::vector<AskKind>{});
    EXPECT_EQ(editor.Terrain().terrainPresent ? editor.Terrain().columns : 0, c.expectColumns);
    EXPECT_TRUE(c.expectColumns != 3 || editor.Terrain().heights == HeightGrid(3, 3, 42.0f));
    EXPECT_EQ(editor.History().CanUndo(), c.expectColumns == 3)
        << "undo steps go with the terrain they were taken of";
    EXPECT_EQ(editor.Settings().*setting, c.expectSettingAfter);
    EXPECT_TRUE(editor.Terrain().trackPresent);
    EXPECT_EQ(editor.Terrain().terrainChanged, c.expectColumns == 3)
        << "a kept terrain the track's file does not hold is an unsaved change";
    if (c.expectColumns == 3) shell.answers.push_back(Answer::No);
    EXPECT_EQ(editor.ConfirmClose(), c.expectColumns != 3) << "leaving asks, and No stays";
    // Saving writes the terrain the editor ended with into the track, or none.
    ASSERT_TRUE(editor.SaveTrack(path));
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(path, saved));
    ASSERT_EQ(saved.terrain.terrainInTrack, editor.Terrain().terrainPresent);
    EXPECT_TRUE(!saved.terrain.terrainInTrack || saved.terrain.terrain == editor.Terrain());
}

INSTANTIATE_TEST_SUITE_P(
    EveryCombination, EditorTerrainChoiceTest,
    ::testing::Values(
        // The track has terrain and so has the editor.
        TerrainChoice{true, 0, AskResult{0, false}, 5, 0}, TerrainChoice{true, 0, AskResult{1, false}, 3, 0},
        TerrainChoice{true, 0, AskResult{0, true}, 5, 1}, TerrainChoice{true, 0, AskResult{1, true}, 3, 2},
        TerrainChoice{true, 1, std::nullopt, 5, 1}, TerrainChoice{true, 2, std::nullopt, 3, 2},
        // The track has none but the editor has.
        TerrainChoice{false, 0, AskResult{0, false}, 0, 0},
        TerrainChoice{false, 0, AskResult{1, false}, 3, 0}, TerrainChoice{false, 0, AskResult{0, true}, 0, 1},
        TerrainChoice{false, 0, AskResult{1, true}, 3, 2}, TerrainChoice{false, 1, std::nullopt, 0, 1},
        TerrainChoice{false, 2, std::nullopt, 3, 2}));

TEST_F(EditorTest, KeepingTheTerrainTheTrackHoldsIsNoChangeAndTheWindowChangesOnlyOnceTheOpenIsDone) {
    const std::string first = WriteTrack("first.cvtrack", 5);
    editor.OpenTrack(first);
    ChangeSettings([](AppSettings& s) { s.askLoadTrackTerrain = 2; });
    editor.OpenTrack(first);
    EXPECT_FALSE(editor.Terrain().terrainChanged) << "the kept terrain is the one the file holds";

    const int updates = shell.uiUpdates;
    ChangeSettings([](AppSettings& s) { s.askLoadTrackTerrain = 0; });
    shell.askChoices.push_back({0, false});
    int updatesWhileAsked = -1;
    std::string captionWhileAsked;
    shell.whileAsking = [&](AskKind) {
        updatesWhileAsked = shell.uiUpdates;
        captionWhileAsked = editor.Caption();
    };
    editor.OpenTrack(WriteTrack("second.cvtrack", 6));
    EXPECT_EQ(updatesWhileAsked, updates + 1) << "no window refresh but the settings' own";
    EXPECT_EQ(captionWhileAsked, "CorvantaLandwright - first");
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright - second");
    EXPECT_GT(shell.uiUpdates, updatesWhileAsked);
}

TEST_F(EditorTest, TrackFolderTakesAsManyCharactersAsTheFileNameHas) {
    EXPECT_EQ(DerivedTrackFolder("C:\\ab\\c.cvtrack"), "C:\\ab\\c.c");
    EXPECT_EQ(DerivedTrackFolder("/trk/abc.cvtrack"), "/trk/abc.cv");
    EXPECT_EQ(DerivedTrackFolder("/abcdefg/x.cvtrack"), "/abcdefg/") << "equal lengths give the folder";
    const std::string path = WriteTrack("x.cvtrack", 0);
    editor.OpenTrack(path);
    EXPECT_EQ(editor.Terrain().trackFolder, path.substr(0, std::string("x.cvtrack").size()));
}

TEST_F(EditorTest, ATrackWithOneVertexOpensButIsNotPresent) {
    TrackDocument doc = MakeSampleTrack();
    doc.bezier.vertices.resize(1);
    doc.terrain.terrainInTrack = false;
    ASSERT_TRUE(WriteTrackFile(folder.File("dot.cvtrack"), doc));
    editor.OpenTrack(folder.File("dot.cvtrack"));
    EXPECT_TRUE(shell.messages.empty());
    EXPECT_FALSE(editor.Terrain().trackPresent);
    EXPECT_EQ(editor.Settings().recentTitles[0], "dot");
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright");
}
