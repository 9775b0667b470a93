// The Terragen import and the OBJ export as commands of the editor: the questions, dialogs and
// messages, what the terrain becomes, and what a refused or failed file leaves behind.
#include "EditorTestFixture.h"
#include "ObjExport.h"
#include "TerragenFile.h"
#include "TerragenSample.h"

#include <filesystem>

TEST_F(EditorTest, TerragenImportAsksFirstShowsItsDialogAndRefusesAFileOutOfLayoutKeepingTheTerrain) {
    GiveEditorTerrain(3, 42.0f);
    // The question's No stops everything.
    shell.askChoices.push_back({1, false});
    EXPECT_FALSE(editor.ImportTerragen());
    EXPECT_TRUE(shell.openDialogs.empty());

    const std::string bad = folder.File("blocks.ter");
    TerragenSampleOptions noOptionalBlocks;
    noOptionalBlocks.omitOptionalBlocks = true;
    WriteBytes(bad, MakeTerragenFile(noOptionalBlocks, {}));
    shell.askChoices.push_back({0, false});
    shell.openChoices.push_back(bad);
    EXPECT_FALSE(editor.ImportTerragen());
    ASSERT_EQ(shell.openDialogs.size(), 1u);
    EXPECT_EQ(shell.openDialogs[0].title, "Import Terragen File...");
    EXPECT_EQ(shell.openDialogs[0].filter, "Terragen Terrain Files (*.ter)|*.ter");
    EXPECT_EQ(shell.openDialogs[0].defaultExtension, "ter");
    EXPECT_EQ(OnlyMessage().text, "Error Loading Terragen File.\nThe file does not appear to be a valid "
                                  "Terragen Terrain file.");
    EXPECT_EQ(OnlyMessage().title, "Error");
    EXPECT_EQ(OnlyMessage().icon, MessageIcon::Exclamation);
    EXPECT_EQ(editor.Terrain().heights, HeightGrid(3, 3, 42.0f));

    // Cancelling the file dialog shows nothing more.
    shell.askChoices.push_back({0, false});
    shell.openChoices.push_back(std::nullopt);
    EXPECT_FALSE(editor.ImportTerragen());
    EXPECT_EQ(shell.messages.size(), 1u);
}

TEST_F(EditorTest, AFileThatCannotBeReadSaysWhyAndNoTerrainMeansNoQuestion) {
    shell.openChoices.push_back(folder.File("gone.ter"));
    EXPECT_FALSE(editor.ImportTerragen());
    EXPECT_TRUE(shell.askDialogs.empty());
    EXPECT_EQ(OnlyMessage().text.rfind("Error Loading Terragen File.\n", 0), 0u);
    EXPECT_NE(OnlyMessage().text.find("gone.ter"), std::string::npos) << OnlyMessage().text;
    EXPECT_FALSE(editor.Terrain().terrainPresent);
}

TEST_F(EditorTest, ATerragenFileBecomesATerrainOfItsOwnSizeWithDefaultsAndAFreshUndoHistory) {
    GiveEditorTerrain(3, 42.0f);
    EditHeight(1, 1, 5.0f);
    ASSERT_TRUE(editor.CanUndo());
    const HeightGrid before = editor.Terrain().heights;
    const std::string path = folder.File("land.ter");
    WriteBytes(path, MakeTerragenFile({257, 257, false, true}, RollingTerragenElevations(257)));
    shell.askChoices.push_back({0, false});
    shell.openChoices.push_back(path);
    const std::optional<SampleGrid> samples = editor.ImportTerragen();
    ASSERT_TRUE(samples);
    EXPECT_EQ(editor.Terrain().heights, before) << "nothing changes before the confirm";
    ASSERT_TRUE(editor.TakeTerragenImport(*samples, true, 100.0f));

    const TerrainModel& t = editor.Terrain();
    EXPECT_EQ(t.columns, 257);
    EXPECT_EQ(t.heights, TerrainFromTerragen(*samples, true, 100.0f).heights);
    EXPECT_TRUE(t.waterEnabled);
    EXPECT_EQ(t.groundTexture, kDefaultGroundTexture);
    EXPECT_EQ(t.waterTexture, kDefaultWaterTexture);
    EXPECT_FALSE(editor.CanUndo());
    EXPECT_TRUE(t.terrainChanged);
    EXPECT_EQ(editor.Mesh().Columns(), 257);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(EditorTest, ObjExportNeedsATerrainAndWritesWhatTheViewDraws) {
    editor.ExportObj();
    EXPECT_TRUE(shell.saveDialogs.empty());

    GiveEditorTerrain(5, 0.0f, true);
    EditHeight(2, 3, 7.75f);
    const std::string path = folder.File("terrain.obj");
    shell.saveChoices.push_back(path);
    editor.ExportObj();
    ASSERT_EQ(shell.saveDialogs.size(), 1u);
    EXPECT_EQ(shell.saveDialogs[0].title, "Export 3D Object...");
    EXPECT_EQ(shell.saveDialogs[0].filter, "OBJect Files (*.obj)|*.obj");
    EXPECT_EQ(shell.saveDialogs[0].defaultExtension, "obj");
    EXPECT_TRUE(shell.saveDialogs[0].confirmOverwrite);
    EXPECT_TRUE(shell.messages.empty());

    // The edited point (row 2, column 3) is in the file: x, z, then the height.
    EXPECT_NE(ReadText(path).find("\r\nv 204.800003 0. 7.75\r\n"), std::string::npos);
}

TEST_F(EditorTest, AFailedObjExportIsReportedAndKeepsTheFileThatWasThere) {
    GiveEditorTerrain(3, 1.0f);
    const std::string path = folder.File("kept.obj");
    WriteText(path, "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    shell.saveChoices.push_back(path);
    editor.ExportObj();
    EXPECT_EQ(OnlyMessage().title, "Error");
    EXPECT_EQ(OnlyMessage().icon, MessageIcon::Critical);
    EXPECT_EQ(OnlyMessage().text.rfind("Error - Could not write the 3D object file.\n", 0), 0u);
    EXPECT_NE(OnlyMessage().text.find("kept.obj"), std::string::npos);
}
