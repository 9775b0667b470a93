// Opening tracks: the file checks and their messages, the terrain questions, folder and caption.
#include "EditorTestFixture.h"

TEST_F(EditorTest, OpenWithoutAPathAsksWithTheTrackDialogAndCancelChangesNothing) {
    shell.openChoices.push_back(std::nullopt);
    editor.OpenTrack("");
    ASSERT_EQ(shell.openDialogs.size(), 1u);
    const FileDialogOptions& d = shell.openDialogs[0];
    EXPECT_EQ(d.title, "Open Track File...");
    EXPECT_EQ(d.filter, "Corvanta Track Files (*.cvtrack)|*.cvtrack");
    EXPECT_EQ(d.defaultExtension, "cvtrack");
    EXPECT_EQ(d.folder, editor.ProgramFolder() + "tracks");
    EXPECT_TRUE(shell.messages.empty());
    EXPECT_FALSE(editor.terrain.trackPresent);
}

TEST_F(EditorTest, BadNamesMissingFilesAndBadFilesEachGetTheirWarning) {
    struct Case {
        std::string path;
        const char* message;
    };
    WriteText(folder.File("bad.cvtrack"), "CRVX not a track");
    const Case cases[] = {{folder.File("notes.txt"), "Invalid Track Filename."},
                          {folder.File("absent.cvtrack"), "Track File Not Found."},
                          {folder.File("bad.cvtrack"), "Invalid Track File."}};
    for (const Case& c : cases) {
        shell.messages.clear();
        editor.OpenTrack(c.path);
        const ShownMessage& m = OnlyMessage();
        EXPECT_EQ(m.text, c.message);
        EXPECT_EQ(m.title, "Warning");
        EXPECT_EQ(m.icon, MessageIcon::Exclamation);
    }
    EXPECT_TRUE(editor.settings.recentPaths[0].empty());
}

TEST_F(EditorTest, InvalidFileDropsTheTrackButKeepsTheTerrain) {
    editor.OpenTrack(WriteTrack("good.cvtrack", 0));
    ASSERT_TRUE(editor.terrain.trackPresent);
    GiveEditorTerrain();
    WriteText(folder.File("bad.cvtrack"), "CRVT");
    editor.OpenTrack(folder.File("bad.cvtrack"));
    EXPECT_FALSE(editor.terrain.trackPresent);
    EXPECT_TRUE(editor.track.bezier.vertices.empty());
    EXPECT_TRUE(editor.terrain.terrainPresent);
    EXPECT_EQ(editor.terrain.heights.At(0, 0), 42.0f);
}

TEST_F(EditorTest, WithoutATerrainInTheEditorNothingIsAskedAndTheTracksTerrainIfAnyIsLoaded) {
    editor.OpenTrack(WriteTrack("Flat Ride.CVTRACK", 0));
    EXPECT_FALSE(editor.terrain.terrainPresent);
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright - Flat Ride");
    shell.openChoices.push_back(WriteTrack("hilly.cvtrack", 6));
    editor.OpenTrack("");
    EXPECT_TRUE(shell.askDialogs.empty());
    EXPECT_TRUE(editor.terrain.trackPresent);
    EXPECT_TRUE(editor.terrain.terrainPresent);
    EXPECT_EQ(editor.terrain.columns, 6);
    EXPECT_EQ(editor.terrain.heights, MakeSampleTerrain(6, 6).heights);
    EXPECT_FALSE(editor.terrain.terrainChanged);
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright - hilly");
    EXPECT_GE(shell.textureReloads, 1);
}

struct TerrainChoice {
    bool trackHasTerrain;
    int setting;                     // the remembered answer, 0 asks
    std::optional<AskResult> answer; // what the user picks when asked
    bool expectTracksTerrain;        // the editor ends with the track's terrain
    bool expectNoTerrain;            // the editor ends with no terrain
    int expectSettingAfter;
};

class EditorTerrainChoiceTest : public EditorTest, public ::testing::WithParamInterface<TerrainChoice> {};

TEST_P(EditorTerrainChoiceTest, FollowsTheSettingOrTheAnswerAndASaveWritesTheTerrainKept) {
    const TerrainChoice c = GetParam();
    const std::string path = WriteTrack("t.cvtrack", c.trackHasTerrain ? 5 : 0);
    GiveEditorTerrain(3, 42.0f);
    int& setting = c.trackHasTerrain ? editor.settings.askLoadTrackTerrain : editor.settings.askLoadNoTerrain;
    setting = c.setting;
    if (c.answer) shell.askChoices.push_back(*c.answer);
    editor.OpenTrack(path);
    if (c.answer) {
        ASSERT_EQ(shell.askDialogs.size(), 1u);
        EXPECT_EQ(shell.askDialogs[0],
                  c.trackHasTerrain ? AskKind::LoadTrackTerrain : AskKind::LoadNoTerrain);
    } else {
        EXPECT_TRUE(shell.askDialogs.empty());
    }
    if (c.expectNoTerrain) {
        EXPECT_FALSE(editor.terrain.terrainPresent);
    } else if (c.expectTracksTerrain) {
        EXPECT_EQ(editor.terrain.columns, 5);
    } else {
        ASSERT_TRUE(editor.terrain.terrainPresent);
        EXPECT_EQ(editor.terrain.columns, 3);
        EXPECT_EQ(editor.terrain.heights.At(1, 1), 42.0f);
    }
    EXPECT_EQ(setting, c.expectSettingAfter);
    EXPECT_TRUE(editor.terrain.trackPresent);
    // Saving writes the terrain the editor ended with into the track, or none.
    ASSERT_TRUE(editor.SaveTrack(path));
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(path, saved));
    ASSERT_EQ(saved.terrain.terrainInTrack, editor.terrain.terrainPresent);
    EXPECT_TRUE(!saved.terrain.terrainInTrack || saved.terrain.terrain == editor.terrain)
        << "the editor's terrain";
}

INSTANTIATE_TEST_SUITE_P(EveryCombination, EditorTerrainChoiceTest,
                         ::testing::Values(
                             // The track has terrain and so has the editor.
                             TerrainChoice{true, 0, AskResult{0, false}, true, false, 0},
                             TerrainChoice{true, 0, AskResult{1, false}, false, false, 0},
                             TerrainChoice{true, 0, AskResult{0, true}, true, false, 1},
                             TerrainChoice{true, 0, AskResult{1, true}, false, false, 2},
                             TerrainChoice{true, 1, std::nullopt, true, false, 1},
                             TerrainChoice{true, 2, std::nullopt, false, false, 2},
                             // The track has none but the editor has.
                             TerrainChoice{false, 0, AskResult{0, false}, false, true, 0},
                             TerrainChoice{false, 0, AskResult{1, false}, false, false, 0},
                             TerrainChoice{false, 0, AskResult{0, true}, false, true, 1},
                             TerrainChoice{false, 0, AskResult{1, true}, false, false, 2},
                             TerrainChoice{false, 1, std::nullopt, false, true, 1},
                             TerrainChoice{false, 2, std::nullopt, false, false, 2}));

TEST_F(EditorTest, TrackFolderTakesAsManyCharactersAsTheFileNameHas) {
    EXPECT_EQ(DerivedTrackFolder("C:\\ab\\c.cvtrack"), "C:\\ab\\c.c");
    EXPECT_EQ(DerivedTrackFolder("/trk/abc.cvtrack"), "/trk/abc.cv");
    EXPECT_EQ(DerivedTrackFolder("/abcdefg/x.cvtrack"), "/abcdefg/") << "equal lengths give the folder";
    const std::string path = WriteTrack("x.cvtrack", 0);
    editor.OpenTrack(path);
    EXPECT_EQ(editor.terrain.trackFolder, path.substr(0, std::string("x.cvtrack").size()));
}

TEST_F(EditorTest, ATrackWithOneVertexOpensButIsNotPresent) {
    TrackDocument doc = MakeSampleTrack();
    doc.bezier.vertices.resize(1);
    doc.terrain.terrainInTrack = false;
    ASSERT_TRUE(WriteTrackFile(folder.File("dot.cvtrack"), doc));
    editor.OpenTrack(folder.File("dot.cvtrack"));
    EXPECT_TRUE(shell.messages.empty());
    EXPECT_FALSE(editor.terrain.trackPresent);
    EXPECT_EQ(editor.settings.recentTitles[0], "dot");
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright");
}
