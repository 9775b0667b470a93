// The terrain-file commands and the question before an import, as a user meets them.
#include "EditorTestFixture.h"
#include "TerrainFile.h"

namespace {

struct OverwriteCase {
    bool terrainPresent;
    int setting;                     // AskImportOverwrite before
    std::optional<AskResult> answer; // when the dialog is shown
    bool goesOn;
    int settingAfter;
};

class ImportOverwriteTest : public EditorTest, public ::testing::WithParamInterface<OverwriteCase> {};

TEST_P(ImportOverwriteTest, AsksOnlyOverATerrainAndKeepsATickedAnswer) {
    const OverwriteCase c = GetParam();
    if (c.terrainPresent) GiveEditorTerrain();
    ChangeSettings([&](AppSettings& s) { s.askImportOverwrite = c.setting; });
    if (c.answer) shell.askChoices.push_back(*c.answer);
    EXPECT_EQ(editor.ConfirmImportOverwrite(), c.goesOn);
    EXPECT_EQ(shell.askDialogs, c.answer ? std::vector{AskKind::ImportOverwrite} : std::vector<AskKind>{});
    EXPECT_EQ(editor.Settings().askImportOverwrite, c.settingAfter);
    EXPECT_TRUE(shell.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(EveryCase, ImportOverwriteTest,
                         ::testing::Values(OverwriteCase{false, 0, std::nullopt, true, 0},
                                           OverwriteCase{false, 2, std::nullopt, true, 2},
                                           OverwriteCase{true, 0, AskResult{0, false}, true, 0},
                                           OverwriteCase{true, 0, AskResult{1, false}, false, 0},
                                           OverwriteCase{true, 0, AskResult{0, true}, true, 1},
                                           OverwriteCase{true, 0, AskResult{1, true}, false, 2},
                                           OverwriteCase{true, 1, std::nullopt, true, 1},
                                           OverwriteCase{true, 2, std::nullopt, false, 2}));

class TerrainFileCommandsTest : public EditorTest {
protected:
    std::string WriteTerrain(const std::string& name, const TerrainData& terrain) {
        TerrainRecord record;
        record.terrain = terrain;
        std::string error;
        EXPECT_TRUE(WriteTerrainFile(folder.File(name), record, error)) << error;
        return folder.File(name);
    }
    void ExpectTerrainUntouched() {
        EXPECT_EQ(editor.Terrain().heights, HeightGrid(3, 3, 42.0f));
        EXPECT_TRUE(editor.History().CanUndo()) << "the undo history stays with the terrain";
    }
};

TEST_F(TerrainFileCommandsTest, AnExportedTerrainImportsBackWithEveryValue) {
    editor.ReplaceTerrain(
        [](TerrainData& t) {
            t = MakeSampleTerrain(5, 4);
            return true;
        },
        {});
    EditHeight(2, 3, -4.25f);
    const TerrainData exported = editor.Terrain();
    shell.saveChoices.push_back(folder.File("out.cvtera"));
    editor.ExportTerrainFile();
    ASSERT_EQ(shell.saveDialogs.size(), 1u);
    EXPECT_EQ(shell.saveDialogs[0].title, "Export Terrain File...");
    EXPECT_EQ(shell.saveDialogs[0].filter, "Corvanta Terrain Files (*.cvtera)|*.cvtera");
    EXPECT_EQ(shell.saveDialogs[0].defaultExtension, "cvtera");
    EXPECT_TRUE(shell.saveDialogs[0].confirmOverwrite);

    GiveEditorTerrain();
    EditHeight(0, 0, 3.0f);
    editor.SetCamera({});
    shell.askChoices.push_back({0, false});
    shell.openChoices.push_back(folder.File("out.cvtera"));
    const int reloads = shell.textureReloads;
    editor.ImportTerrainFile();
    EXPECT_EQ(shell.askDialogs, std::vector{AskKind::ImportOverwrite});
    EXPECT_EQ(shell.openDialogs.at(0).title, "Import Terrain File...");
    EXPECT_TRUE(shell.openDialogs.at(0).mustExist);
    EXPECT_EQ(static_cast<const TerrainData&>(editor.Terrain()), exported);
    EXPECT_FALSE(editor.History().CanUndo());
    EXPECT_TRUE(editor.Terrain().terrainChanged) << "no track holds the imported terrain yet";
    EXPECT_GT(shell.textureReloads, reloads);
    EXPECT_EQ(editor.Mesh().Columns(), 5);
    EXPECT_NE(editor.Camera().y, CameraState{}.y) << "the camera starts over the new terrain";
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(TerrainFileCommandsTest, AnImportFillsInMissingTexturesWithTheDefaults) {
    TerrainData bare = MakeSampleTerrain(4, 4);
    bare.groundTexture.clear();
    bare.detailTiling = 0.5f;
    shell.openChoices.push_back(WriteTerrain("bare.cvtera", bare));
    editor.ImportTerrainFile();
    EXPECT_EQ(editor.Terrain().groundTexture, "teratextures\\GrassTerrain.jpg");
    EXPECT_EQ(editor.Terrain().detailTexture, "teratextures\\GrassDetail.jpg");
    EXPECT_EQ(editor.Terrain().detailTiling, 150.0f);
}

TEST_F(TerrainFileCommandsTest, BadTerrainFilesAreReportedAndChangeNothing) {
    GiveEditorTerrain();
    EditHeight(1, 1, 42.0f);
    ChangeSettings([](AppSettings& s) { s.askImportOverwrite = 1; });
    const std::string good = WriteTerrain("good.cvtera", MakeSampleTerrain(4, 4));
    std::vector<std::uint8_t> bytes = ReadBytes(good);
    WriteBytes(folder.File("cut.cvtera"), {bytes.begin(), bytes.end() - 10});
    bytes[1] = 'X';
    WriteBytes(folder.File("other.cvtera"), bytes);
    shell.openChoices = {folder.File("cut.cvtera"), folder.File("other.cvtera")};
    editor.ImportTerrainFile();
    editor.ImportTerrainFile();
    ASSERT_EQ(shell.messages.size(), 2u);
    EXPECT_EQ(shell.messages[0].text, "Notice - The file is corrupt or does not contain terrain data.");
    EXPECT_EQ(shell.messages[0].title, "Notice");
    EXPECT_EQ(shell.messages[0].icon, MessageIcon::Exclamation);
    EXPECT_EQ(shell.messages[1].text,
              "Error - The file does not appear to be a valid Corvanta Terrain file.");
    EXPECT_EQ(shell.messages[1].title, "Error");
    EXPECT_EQ(shell.messages[1].icon, MessageIcon::Critical);
    ExpectTerrainUntouched();
}

TEST_F(TerrainFileCommandsTest, NeverImportingOverATerrainShowsNothing) {
    GiveEditorTerrain();
    EditHeight(1, 1, 42.0f);
    ChangeSettings([](AppSettings& s) { s.askImportOverwrite = 2; });
    editor.ImportTerrainFile();
    editor.ImportTerrainFromTrack();
    EXPECT_TRUE(shell.openDialogs.empty());
    EXPECT_TRUE(shell.messages.empty());
    ExpectTerrainUntouched();
}

TEST_F(TerrainFileCommandsTest, ExportNeedsATerrainAndAFailedWriteKeepsTheOldFile) {
    editor.ExportTerrainFile();
    EXPECT_TRUE(shell.saveDialogs.empty());
    GiveEditorTerrain();
    WriteBytes(folder.File("old.cvtera"), {'o', 'l', 'd'});
    std::filesystem::permissions(folder.File("old.cvtera"), std::filesystem::perms::owner_read);
    shell.saveChoices.push_back(folder.File("old.cvtera"));
    editor.ExportTerrainFile();
    ASSERT_EQ(shell.messages.size(), 1u);
    EXPECT_EQ(shell.messages[0].title, "Error");
    EXPECT_NE(shell.messages[0].text.find(folder.File("old.cvtera")), std::string::npos);
    EXPECT_EQ(ReadBytes(folder.File("old.cvtera")), (std::vector<std::uint8_t>{'o', 'l', 'd'}));
}

TEST_F(TerrainFileCommandsTest, TerrainFromATrackLeavesTheOpenTrackAlone) {
    editor.OpenTrack(WriteTrack("open.cvtrack", 0));
    const std::string other = WriteTrack("other.cvtrack", 6);
    shell.openChoices.push_back(other);
    editor.ImportTerrainFromTrack();
    EXPECT_EQ(shell.openDialogs.at(0).title, "Import Terrain from Track File...");
    EXPECT_EQ(shell.openDialogs.at(0).filter, "Corvanta Track Files (*.cvtrack)|*.cvtrack");
    EXPECT_EQ(editor.Terrain().heights, MakeSampleTerrain(6, 6).heights);
    EXPECT_EQ(editor.Terrain().trackFilePath, folder.File("open.cvtrack"));
    EXPECT_TRUE(editor.Terrain().terrainChanged) << "the open track's file holds no terrain";
}

TEST_F(TerrainFileCommandsTest, TerrainFromABadTrackIsReportedAndChangesNothing) {
    GiveEditorTerrain();
    EditHeight(1, 1, 42.0f);
    ChangeSettings([](AppSettings& s) { s.askImportOverwrite = 1; });
    WriteBytes(folder.File("plain.cvtrack"), {'T', 'E', 'R', 'A', 'C', 'R', 'V', 'T'});
    shell.openChoices = {folder.File("missing.cvtrack"), folder.File("plain.cvtrack"),
                         WriteTrack("bare.cvtrack", 0)};
    for (int i = 0; i < 3; ++i)
        editor.ImportTerrainFromTrack();
    ASSERT_EQ(shell.messages.size(), 3u);
    EXPECT_EQ(shell.messages[0].text, "Error - Could not find track file.");
    EXPECT_EQ(shell.messages[0].icon, MessageIcon::Critical);
    EXPECT_EQ(shell.messages[1].text, "Error - File is not a valid Corvanta Track file.");
    EXPECT_EQ(shell.messages[1].icon, MessageIcon::Exclamation);
    EXPECT_EQ(shell.messages[2].text, "Notice - The track file does not contain terrain data.");
    EXPECT_EQ(shell.messages[2].title, "Notice");
    EXPECT_EQ(shell.messages[2].icon, MessageIcon::Information);
    ExpectTerrainUntouched();
}

} // namespace
