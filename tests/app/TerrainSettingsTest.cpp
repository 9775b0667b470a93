// The terrain settings' logic headless: which size a confirm asks for, the structure question and
// its three answers, texture paths, water on and off, and the "New" question.
#include "TerrainSettings.h"

#include "EditorTestFixture.h"
#include "TexturePath.h"

#include <cmath>
#include <tuple>

namespace {

TerrainSettingsValues Fresh(TerrainStructure structure) {
    TerrainSettingsValues values = SettingsFromTerrain(TerrainModel{});
    values.structure = structure;
    return values;
}

TerrainModel Sized(int columns, int rows) {
    TerrainModel model;
    model.columns = columns;
    model.rows = rows;
    return model;
}

} // namespace

TEST(TerrainSettingsLogic, TheRequestedSizeIsTheStructuresOrAChosenUsableCustomOne) {
    using S = TerrainStructure;
    // Structure, custom columns and rows, whether a custom size was chosen, the editor's terrain, the size.
    const std::tuple<S, int, int, bool, TerrainModel, GridSize> cases[] = {
        {S::Low, 0, 0, false, Sized(300, 300), {102, 102}},
        {S::Normal, 50, 60, true, Sized(3, 3), {205, 205}},
        {S::High, 0, 0, false, TerrainModel{}, {409, 409}},
        {S::Custom, 150, 300, true, Sized(3, 3), {150, 300}},
        {S::Custom, 150, 300, false, Sized(330, 120), {330, 120}}, // nothing chosen: the editor's size
        {S::Custom, 0, 300, true, Sized(9, 9), {205, 205}},
        {S::Custom, 1, 1, true, TerrainModel{}, {1, 1}},
        {S::Custom, 900, 20, true, Sized(9, 9), {513, 20}},
    };
    for (const auto& [structure, columns, rows, chosen, model, expected] : cases) {
        TerrainSettingsValues values = Fresh(structure);
        values.customColumns = columns;
        values.customRows = rows;
        values.customSizeChosen = chosen;
        EXPECT_EQ(RequestedTerrainSize(values, model), expected)
            << static_cast<int>(structure) << " " << columns << " " << chosen;
    }
}

TEST(TerrainSettingsLogic, AChosenTextureIsStoredRelativeToTheProgramFolderInLatin1) {
    EXPECT_EQ(StoredTexturePath("/OPT/land/teratextures/sub/b.tga", "/opt/Land"), "teratextures\\sub\\b.tga");
    EXPECT_EQ(StoredTexturePath("/opt/Landmark/a.jpg", "/opt/Land/"), std::nullopt) << "a sibling folder";
    // Names are UTF-8 on disk and Latin-1 in the file; a letter Latin-1 lacks cannot be stored.
    EXPECT_EQ(StoredTexturePath("/x/\u041a\u0438\u0440/teratextures/Gr\u00fcn.jpg", "/x/\u041a\u0438\u0440/"),
              "teratextures\\Gr\xfcn.jpg");
    EXPECT_EQ(StoredTexturePath("/x/Z/teratextures/\u041a.jpg", "/x/Z/"), std::nullopt);
    EXPECT_EQ(StoredTexturePath("/x/Z/teratextures/\xfc.jpg", "/x/Z/"), std::nullopt) << "not UTF-8";
}

// Each preset's bar values are checked by the dialog test, which sees the bars clamp.
TEST(TerrainSettingsLogic, EveryPresetHasARelativeTexture) {
    for (const LandPreset& p : TerrainPresetTable::land)
        EXPECT_TRUE(IsRelativeTexturePath(p.groundTexture)) << p.caption;
    for (const SeaPreset& p : TerrainPresetTable::sea)
        EXPECT_TRUE(IsRelativeTexturePath(p.waterTexture)) << p.caption;
}

TEST(TerrainSettingsLogic, StoredTilingsShowRoundedToEvenWithinTheSliders) {
    TerrainModel model = Sized(330, 120);
    model.terrainPresent = true;
    model.groundTiling = 12.5f;
    model.detailTiling = 9999.0f;
    model.waterTiling = std::nanf(""); // from a damaged file
    const TerrainSettingsValues shown = SettingsFromTerrain(model);
    EXPECT_EQ(shown.groundRepeats, 12);
    EXPECT_EQ(shown.detailRepeats, kDetailRepeatsRange.maximum);
    EXPECT_EQ(shown.waterRepeats, kWaterRepeatsRange.minimum);
    model.terrainPresent = false; // a removed terrain's leftovers are not offered
    EXPECT_EQ(SettingsFromTerrain(model).structure, TerrainStructure::Normal);
}

TEST_F(EditorTest, ANewGridStandsAtTheGroundLevelWithItsSpacingAndThePresetsTextures) {
    TerrainSettingsValues values = Fresh(TerrainStructure::Low);
    ApplySeaPreset(values, 6);
    values.groundTexture.clear();
    values.detailTexture.clear();
    EXPECT_EQ(editor.ApplyTerrainSettings(values, TerrainSettingsPurpose::Edit), TerrainApplyResult::NewGrid);
    const TerrainModel& t = editor.Terrain();
    EXPECT_TRUE(shell.questions.empty()) << "no terrain was there to lose";
    EXPECT_EQ(t.heights, HeightGrid(102, 102, 1.0f)) << "the ground level with water";
    EXPECT_FLOAT_EQ(t.spacingX, 1024.0f / 102.0f);
    const SeaPreset& sea = TerrainPresetTable::sea[6];
    EXPECT_TRUE(t.waterTexture == sea.waterTexture && t.waterTiling == static_cast<float>(sea.waterRepeats) &&
                t.reflection == sea.reflection);
    EXPECT_EQ(t.groundTexture, kDefaultGroundTexture) << "an empty ground path takes the default";
    EXPECT_EQ(t.detailTexture, "") << "an empty detail path means no detail texture";
    EXPECT_TRUE(t.terrainPresent && !t.terrainChanged && shell.textureReloads == 1 && shell.renders >= 1);
    EXPECT_EQ(editor.Caption(), "CorvantaLandwright - [Terrain]");
}

TEST_F(EditorTest, AnotherSizeAsksFirstCancelChangesNothingAndYesMakesANewGrid) {
    GiveEditorTerrain(3, 42.0f);
    const TerrainModel& t = editor.Terrain();
    const TerrainModel before = t;
    shell.answers = {Answer::Cancel, Answer::Yes};
    TerrainSettingsValues values = Fresh(TerrainStructure::Custom);
    values.customColumns = 64;
    values.customRows = 32;
    values.customSizeChosen = true;
    values.waterEnabled = false;
    values.waterTexture = "C:\\water\\sea.jpg"; // ignored while the water is off
    EXPECT_EQ(editor.ApplyTerrainSettings(values, TerrainSettingsPurpose::Edit),
              TerrainApplyResult::Cancelled);
    EXPECT_FALSE(DialogMayClose(TerrainApplyResult::Cancelled));
    EXPECT_EQ(static_cast<const TerrainData&>(t), static_cast<const TerrainData&>(before));
    EXPECT_EQ(editor.ApplyTerrainSettings(values, TerrainSettingsPurpose::Edit), TerrainApplyResult::NewGrid);
    EXPECT_EQ(shell.questions.size(), 2u);
    EXPECT_EQ(t.heights, HeightGrid(64, 32, 0.0f)) << "no water: the ground starts at 0";
    EXPECT_TRUE(t.spacingZ == 32.0f && !t.terrainChanged && shell.messages.empty());
    EXPECT_TRUE(t.waterTexture.empty() && t.waterTiling == 1.0f && t.reflection == 0);
}

TEST_F(EditorTest, NoKeepsTheGridAndItsHeightsButAppliesTexturesAndWater) {
    GiveEditorTerrain(3, 42.0f);
    shell.answers = {Answer::No};
    TerrainSettingsValues values = Fresh(TerrainStructure::Low);
    ApplyLandPreset(values, 4);
    ApplySeaPreset(values, 3);
    EXPECT_EQ(editor.ApplyTerrainSettings(values, TerrainSettingsPurpose::Edit),
              TerrainApplyResult::SameGrid);
    const TerrainModel& t = editor.Terrain();
    const LandPreset& land = TerrainPresetTable::land[4];
    EXPECT_EQ(t.heights, HeightGrid(3, 3, 42.0f));
    EXPECT_TRUE(t.groundTexture == land.groundTexture &&
                t.groundTiling == static_cast<float>(land.groundRepeats));
    EXPECT_TRUE(t.waterEnabled && t.waterTexture == TerrainPresetTable::sea[3].waterTexture);
    EXPECT_TRUE(t.terrainChanged) << "the kept terrain now looks different";
    // The size in the editor asks nothing.
    EXPECT_EQ(
        editor.ApplyTerrainSettings(SettingsFromTerrain(editor.Terrain()), TerrainSettingsPurpose::Edit),
        TerrainApplyResult::SameGrid);
    EXPECT_EQ(shell.questions.size(), 1u);
}

TEST_F(EditorTest, AnAbsoluteTexturePathIsRefusedBeforeAnythingIsAskedOrApplied) {
    GiveEditorTerrain(3, 42.0f);
    const TerrainModel before = editor.Terrain();
    TerrainSettingsValues values = Fresh(TerrainStructure::Low);
    values.groundTexture = "C:\\textures\\a.jpg";
    values.detailTexture = "\\detail.jpg";
    values.waterTexture = "/usr/share/water.jpg";
    EXPECT_EQ(editor.ApplyTerrainSettings(values, TerrainSettingsPurpose::Edit),
              TerrainApplyResult::InvalidTexture);
    EXPECT_EQ(OnlyMessage().text.rfind("The Ground Texture is Invalid!\nThe Detail Texture is Invalid!\n"
                                       "The Water Texture is Invalid!\n",
                                       0),
              0u)
        << OnlyMessage().text;
    EXPECT_TRUE(shell.questions.empty());
    EXPECT_EQ(static_cast<const TerrainData&>(editor.Terrain()), static_cast<const TerrainData&>(before));
}

TEST_F(EditorTest, NewAsksOnlyOverATerrainThenItsSettingsMakeANewGridWithoutTheStructureQuestion) {
    EXPECT_TRUE(editor.NewTerrain());
    EXPECT_TRUE(shell.questions.empty()) << "nothing to lose";
    editor.OpenTrack(WriteTrack("t.cvtrack", 4));
    editor.FlipArea();
    const TerrainModel before = editor.Terrain();
    shell.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(editor.NewTerrain());
    EXPECT_TRUE(editor.NewTerrain());
    // Yes alone applies nothing: terrain, track and undo steps stay until the settings' OK.
    EXPECT_EQ(static_cast<const TerrainData&>(editor.Terrain()), static_cast<const TerrainData&>(before));
    EXPECT_TRUE(editor.Terrain().terrainPresent && editor.Terrain().trackPresent && editor.CanUndo());
    shell.questions.clear();
    TerrainSettingsValues values = SettingsForDialog(editor.Terrain(), TerrainSettingsPurpose::New);
    EXPECT_EQ(values.groundTexture, TerrainPresetTable::land[0].groundTexture);
    values.structure = TerrainStructure::Custom;
    EXPECT_EQ(editor.ApplyTerrainSettings(values, TerrainSettingsPurpose::New), TerrainApplyResult::NewGrid);
    EXPECT_TRUE(shell.questions.empty());
    EXPECT_EQ(editor.Terrain().heights, HeightGrid(4, 4, 1.0f)) << "a new grid at the water's ground level";
    EXPECT_FALSE(editor.CanUndo());
    EXPECT_TRUE(editor.Terrain().terrainChanged) << "the open track's file holds another terrain";
}

namespace {

bool FillFourByFour(TerrainData& t) {
    NewTerrainGrid(t, 4, 4);
    return true;
}

} // namespace

TEST_F(EditorTest, ReplaceTerrainAsksOnlyOverATerrainAndKeepsItWhenRefusedOrTheFillFails) {
    bool overwrite = false;
    int asked = 0;
    TerrainReplacement how;
    how.confirmOverwrite = [&] { return ++asked, overwrite; };
    how.applyDefaults = true;
    EXPECT_TRUE(editor.ReplaceTerrain(FillFourByFour, how));
    EXPECT_EQ(asked, 0) << "nothing to overwrite";
    EXPECT_EQ(editor.Terrain().groundTexture, kDefaultGroundTexture) << "the defaults filled in";
    editor.FlipArea();
    const TerrainModel before = editor.Terrain();
    EXPECT_FALSE(editor.ReplaceTerrain(FillFourByFour, how));
    EXPECT_FALSE(editor.ReplaceTerrain([](TerrainData&) { return false; }, {}));
    EXPECT_EQ(static_cast<const TerrainData&>(editor.Terrain()), static_cast<const TerrainData&>(before));
    EXPECT_TRUE(editor.CanUndo() && editor.Terrain().terrainChanged);
    overwrite = true;
    EXPECT_TRUE(editor.ReplaceTerrain(FillFourByFour, how));
    EXPECT_EQ(asked, 2);
    EXPECT_FALSE(editor.CanUndo() || editor.Terrain().terrainChanged) << "steps go with the old terrain";
}
