// The editing commands as the menus and the mouse run them: one undo step each, the view's mesh
// kept equal to the heights, the change mark, and nothing at all without a terrain.
#include "EditorTestFixture.h"

namespace {

// A track opened with a 16 x 16 terrain with a different height at every point; spacing 64, so
// grid point (c, r) stands at x = 64 c - 480 and the cursor on it snaps back to (c, r).
class EditCommandsTest : public EditorTest {
protected:
    std::string path;

    void SetUp() override {
        EditorTest::SetUp();
        OpenWithTerrain(false);
        PutCursorOn(8, 8);
    }

    void OpenWithTerrain(bool water) {
        TrackDocument doc = MakeSampleTrack(16, 16);
        TerrainData& t = doc.terrain.terrain;
        t.waterEnabled = water;
        for (int r = 0; r < 16; ++r)
            for (int c = 0; c < 16; ++c)
                t.heights.At(r, c) = static_cast<float>(5 + (c * 7 + r * 3) % 11);
        path = folder.File("edit.cvtrack");
        ASSERT_TRUE(WriteTrackFile(path, doc));
        ChangeSettings([](AppSettings& s) { s.askLoadTrackTerrain = 1; }); // take the track's terrain
        editor.OpenTrack(path);
        ASSERT_TRUE(editor.CanEditTerrain() && !editor.Terrain().terrainChanged);
    }

    void PutCursorOn(int column, int row) {
        editor.MoveCursorTo(64.0f * static_cast<float>(column) - 512.0f,
                            64.0f * static_cast<float>(row) - 512.0f);
    }

    // The mesh the view draws must hold the same heights as the terrain.
    void ExpectMeshMatchesHeights() const {
        const HeightGrid& h = editor.Terrain().heights;
        for (int r = 0; r < h.Rows(); ++r)
            for (int c = 0; c < h.Columns(); ++c)
                ASSERT_EQ(editor.Mesh().Vertex(c, r).y, h.At(r, c)) << "point " << c << ", " << r;
    }
};

// The area commands, each run on the area around the cursor.
const std::pair<const char*, void (Editor::*)()> kAreaCommands[] = {
    {"flip", &Editor::FlipArea},
    {"mirror", &Editor::MirrorArea},
    {"invert", &Editor::InvertArea},
    {"flatten to ground", &Editor::FlattenToGround},
    {"flatten to water", &Editor::FlattenToWater},
    {"flatten", &Editor::FlattenArea},
};

} // namespace

TEST_F(EditCommandsTest, EveryAreaCommandIsOneUndoStepRedrawnAndMarkedChanged) {
    for (const auto& [name, command] : kAreaCommands) {
        SCOPED_TRACE(name);
        const HeightGrid before = editor.Terrain().heights;
        const int steps = editor.History().UndoCount(), renders = shell.renders, updates = shell.uiUpdates;
        ASSERT_TRUE(editor.SaveTrack(path));
        (editor.*command)();
        EXPECT_EQ(editor.History().UndoCount(), steps + 1);
        EXPECT_NE(editor.Terrain().heights, before) << "changed nothing";
        EXPECT_TRUE(editor.Terrain().terrainChanged);
        EXPECT_TRUE(shell.renders > renders && shell.uiUpdates > updates);
        ExpectMeshMatchesHeights();
        editor.Undo(); // the next command starts from the same grid
    }
}

TEST_F(EditCommandsTest, UndoAndRedoSwapTheGridsAndMarkTheTerrainChangedFromTheSavedFile) {
    for (const auto& [name, command] : kAreaCommands) {
        SCOPED_TRACE(name);
        const HeightGrid before = editor.Terrain().heights;
        (editor.*command)();
        const HeightGrid edited = editor.Terrain().heights;
        ASSERT_TRUE(editor.SaveTrack(path));
        editor.Undo();
        EXPECT_EQ(editor.Terrain().heights, before);
        EXPECT_TRUE(editor.Terrain().terrainChanged);
        ExpectMeshMatchesHeights();
        ASSERT_TRUE(editor.SaveTrack(path));
        const int redos = editor.History().RedoCount();
        editor.Redo();
        EXPECT_EQ(editor.Terrain().heights, edited);
        EXPECT_TRUE(editor.Terrain().terrainChanged);
        EXPECT_EQ(editor.History().RedoCount(), redos - 1);
        ExpectMeshMatchesHeights();
        editor.Undo();
    }
}

TEST_F(EditCommandsTest, WithoutATerrainNoCommandActsOrStoresAStep) {
    shell.answers = {Answer::Yes};
    editor.DeleteTerrain();
    ASSERT_TRUE(editor.SaveTrack(path));
    // Reset would ask first if it acted.
    for (void (Editor::*command)() :
         {&Editor::FlipArea, &Editor::MirrorArea, &Editor::InvertArea, &Editor::FlattenArea,
          &Editor::CopyArea, &Editor::PasteArea, &Editor::BeginStroke, &Editor::ResetTerrain})
        (editor.*command)();
    editor.AdjustHeights(5.0f, AdjustMode::Raise);
    editor.FilterTerrain(PresetMatrix(0), false);
    editor.StrokeMove(-10);
    EXPECT_EQ(editor.History().UndoCount(), 0);
    EXPECT_FALSE(editor.Terrain().terrainChanged || editor.CanPaste() || editor.CanUndo());
}

TEST_F(EditCommandsTest, AStrokeIsOneUndoStepHoweverLongTheDrag) {
    const HeightGrid before = editor.Terrain().heights;
    editor.SetSculptMode(SculptMode::Absolute); // every move adds its full delta
    editor.SetSculptSize(1);
    editor.BeginStroke();
    for (int i = 0; i < 30; ++i) {
        editor.StrokeMove(-2); // the pointer moves up: the terrain rises 0.2 a move
        ExpectMeshMatchesHeights();
    }
    editor.StrokeMove(0); // no vertical movement does nothing
    EXPECT_EQ(editor.History().UndoCount(), 1);
    EXPECT_NEAR(editor.Terrain().heights.At(8, 8), before.At(8, 8) + 6.0f, 1e-3);
    EXPECT_EQ(editor.Terrain().heights.At(8, 10), before.At(8, 10)) << "outside the small brush";
    EXPECT_TRUE(editor.Terrain().terrainChanged);
    editor.Undo();
    EXPECT_EQ(editor.Terrain().heights, before);
}

TEST_F(EditCommandsTest, PasteWritesTheCopiedBlockAtTheCursorAsTheOnlyStep) {
    EXPECT_FALSE(editor.CanPaste());
    editor.SetSculptSize(2);
    editor.CopyArea();
    EXPECT_EQ(editor.History().UndoCount(), 0);
    EXPECT_TRUE(editor.CanPaste());
    const HeightGrid source = editor.Terrain().heights;
    PutCursorOn(4, 11);
    editor.SetSculptSize(5); // the block keeps the size it was copied with
    editor.PasteArea();
    EXPECT_EQ(editor.History().UndoCount(), 1);
    for (int dz = -2; dz <= 2; ++dz)
        for (int dx = -2; dx <= 2; ++dx)
            EXPECT_EQ(editor.Terrain().heights.At(11 + dz, 4 + dx), source.At(8 + dz, 8 + dx));
    EXPECT_EQ(editor.Terrain().heights.At(11, 7), source.At(11, 7)) << "beyond the 5 x 5 block";
    ExpectMeshMatchesHeights();
}

TEST_F(EditCommandsTest, ResetAsksAndOnlyAYesLevelsTheGridAtTheGroundLevel) {
    OpenWithTerrain(true);
    const HeightGrid before = editor.Terrain().heights;
    shell.answers = {Answer::No, Answer::Cancel, Answer::Yes};
    for (int refusal = 0; refusal < 2; ++refusal) {
        editor.ResetTerrain();
        EXPECT_EQ(editor.Terrain().heights, before);
        EXPECT_EQ(editor.History().UndoCount(), 0) << "a refused reset stores no step";
    }
    editor.ResetTerrain();
    EXPECT_EQ(shell.questions.size(), 3u);
    EXPECT_EQ(editor.Terrain().heights, HeightGrid(16, 16, 0.5f)) << "the ground level with water";
    ExpectMeshMatchesHeights();
}

TEST_F(EditCommandsTest, AdjustAndFilterWorkOnTheWholeGridWithinTheHeightLimits) {
    editor.AdjustHeights(200.0f, AdjustMode::Lower);
    EXPECT_EQ(editor.Terrain().heights, HeightGrid(16, 16, -10.0f));
    editor.AdjustHeights(3.0f, AdjustMode::Set);
    editor.FilterTerrain(PresetMatrix(3), false); // raise features: 1.5 times
    EXPECT_EQ(editor.Terrain().heights, HeightGrid(16, 16, 4.5f));
    EXPECT_EQ(editor.History().UndoCount(), 3);
    ExpectMeshMatchesHeights();
}

TEST_F(EditCommandsTest, AFilterWithAZeroFactorChangesNothingAndStoresNoStep) {
    const HeightGrid before = editor.Terrain().heights;
    FilterMatrix zero = PresetMatrix(3);
    zero.factor = 0;
    editor.FilterTerrain(zero, false);
    EXPECT_EQ(editor.Terrain().heights, before);
    EXPECT_EQ(editor.History().UndoCount(), 0);
}
