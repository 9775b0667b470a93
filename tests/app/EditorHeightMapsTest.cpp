// The height-map, picture and 16-bit commands through the scripted shell: what each asks and
// shows, what the terrain becomes, round trips through the files, and bad files and failed
// writes leaving the terrain and any existing file as they were.
#include "EditorTestFixture.h"
#include "ShownTexts.h"
#include "mBitmapFile.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<std::uint8_t>;

const ShownMessage kPictureError{
    "Error Loading Picture File.\nThe file does not appear to be a valid Picture file.", "Error",
    MessageIcon::Exclamation};

class EditorHeightMapsTest : public EditorTest {
protected:
    // A terrain of its own with every whole height -10 .. 150 somewhere, and water.
    void GiveVariedTerrain() {
        GiveEditorTerrain(13, 0.0f, true);
        EditHeight(0, 0, -10.0f);
        EditHeight(12, 12, 150.0f);
        EditHeight(5, 7, 33.0f);
        EditHeight(12, 0, 70.4f);
    }
    // The next import's overwrite question answered Yes, its open dialog with path.
    void ChooseToImport(const std::string& path) {
        if (editor.Terrain().terrainPresent) shell.askChoices.push_back({0, false});
        shell.openChoices.push_back(path);
    }
    void ExpectMessage(const ShownMessage& expected) {
        const ShownMessage& shown = OnlyMessage();
        EXPECT_EQ(shown.text, expected.text);
        EXPECT_EQ(shown.title, expected.title);
        EXPECT_EQ(shown.icon, expected.icon);
    }
    // A grey bitmap with greys[row][column], row 0 the bottom.
    std::string WriteGreyBitmap(const std::string& name, const std::vector<std::vector<int>>& greys) {
        cDIBSection picture;
        picture.Create(static_cast<int>(greys[0].size()), static_cast<int>(greys.size()));
        for (std::size_t r = 0; r < greys.size(); ++r)
            for (std::size_t c = 0; c < greys[r].size(); ++c)
                std::fill_n(picture.Row(static_cast<int>(r)) + 3 * c, 3,
                            static_cast<std::uint8_t>(greys[r][c]));
        std::string error;
        EXPECT_TRUE(SaveBitmap(folder.File(name), picture, error)) << error;
        return folder.File(name);
    }
};

TEST_F(EditorHeightMapsTest, AHeightMapBecomesTheTerrainWithTheImportDefaults) {
    GiveEditorTerrain();
    EditHeight(0, 0, 5.0f);
    const std::string path = WriteGreyBitmap("map.bmp", {{0, 60, 255}, {110, 50, 200}});
    ChooseToImport(path);
    editor.ImportHeightMap();
    const TerrainModel& t = editor.Terrain();
    ASSERT_EQ(t.columns, 3);
    ASSERT_EQ(t.rows, 2);
    EXPECT_EQ(t.heights.At(0, 0), -10.0f);
    EXPECT_EQ(t.heights.At(0, 1), 10.0f);
    EXPECT_EQ(t.heights.At(0, 2), 150.0f);
    EXPECT_EQ(t.heights.At(1, 0), 60.0f);
    EXPECT_EQ(t.groundTexture, kDefaultGroundTexture);
    EXPECT_TRUE(t.terrainChanged);
    EXPECT_FALSE(editor.CanUndo());
    EXPECT_EQ(editor.Mesh().Columns(), 3);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(EditorHeightMapsTest, HeightMapExportAndImportRestoreWholeHeights) {
    GiveVariedTerrain();
    shell.saveChoices.push_back(folder.File("out.bmp"));
    editor.ExportHeightMap();
    const HeightGrid exported = editor.Terrain().heights;
    ChooseToImport(folder.File("out.bmp"));
    editor.ImportHeightMap();
    const HeightGrid& back = editor.Terrain().heights;
    ASSERT_EQ(back.Columns(), 13);
    EXPECT_EQ(back.At(0, 0), -10.0f);
    EXPECT_EQ(back.At(12, 12), 150.0f);
    EXPECT_EQ(back.At(5, 7), 33.0f);
    EXPECT_EQ(back.At(12, 0), 70.0f); // the fraction is lost
    EXPECT_EQ(back.At(3, 3), exported.At(3, 3));
}

TEST_F(EditorHeightMapsTest, FilesThatAreNoPictureAreRefusedAndChangeNothing) {
    GiveEditorTerrain(4, 12.0f);
    const TerrainData before = editor.Terrain();
    WriteText(folder.File("bad.bmp"), "BM this is no bitmap");
    WriteText(folder.File("bad.tga"), "not a targa either");
    for (const char* name : {"bad.bmp", "bad.tga"}) {
        shell.messages.clear();
        ChooseToImport(folder.File(name));
        editor.ImportHeightMap();
        ExpectMessage(kPictureError);
        shell.messages.clear();
        ChooseToImport(folder.File(name));
        EXPECT_FALSE(editor.BeginImportPicture().has_value());
        ExpectMessage(kPictureError);
        EXPECT_EQ(static_cast<const TerrainData&>(editor.Terrain()), before) << name;
    }
}

TEST_F(EditorHeightMapsTest, APictureBecomesTheStructureChosenWithWater) {
    const std::string path = WriteGreyBitmap("photo.bmp", {{0, 255}, {100, 100}});
    shell.openChoices.push_back(path);
    const std::optional<SampleGrid> greys = editor.BeginImportPicture();
    ASSERT_TRUE(greys.has_value());
    EXPECT_EQ(greys->columns, 2);
    EXPECT_FALSE(editor.Terrain().terrainPresent); // nothing changes before the dialog's OK
    PictureImportOptions options;
    options.detail = PictureDetail::Low;
    options.water = true;
    options.waterHeight = 20.0f;
    ASSERT_TRUE(editor.ImportPicture(*greys, options));
    const TerrainModel& t = editor.Terrain();
    EXPECT_EQ(t.columns, 102);
    EXPECT_TRUE(t.waterEnabled);
    EXPECT_EQ(t.heights.At(0, 0), -10.0f);
    EXPECT_FLOAT_EQ(t.heights.At(0, 101), 235.0f / 1.7f);
    EXPECT_FLOAT_EQ(t.heights.At(101, 0), 80.0f / 1.7f);
    EXPECT_EQ(t.waterTexture, kDefaultWaterTexture);
}

TEST_F(EditorHeightMapsTest, ImportsStopAtTheQuestionOrTheCancelledDialog) {
    GiveEditorTerrain(4, 12.0f);
    ChangeSettings([](AppSettings& s) { s.askImportOverwrite = 2; });
    editor.ImportHeightMap();
    EXPECT_FALSE(editor.BeginImportPicture().has_value());
    EXPECT_FALSE(editor.BeginImportHeightMap16().has_value());
    EXPECT_TRUE(shell.openDialogs.empty());
    ChangeSettings([](AppSettings& s) { s.askImportOverwrite = 1; });
    shell.openChoices.push_back(std::nullopt);
    EXPECT_FALSE(editor.BeginImportPicture().has_value());
    EXPECT_EQ(editor.Terrain().heights.At(0, 0), 12.0f);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(EditorHeightMapsTest, PictureExportWritesABitmapOrATargaByTheName) {
    GiveVariedTerrain();
    shell.saveChoices.push_back(folder.File("view.BMP"));
    shell.saveChoices.push_back(folder.File("view.tga"));
    editor.ExportPicture();
    editor.ExportPicture();
    const Bytes bitmap = ReadBytes(folder.File("view.BMP"));
    ASSERT_GT(bitmap.size(), 2u);
    EXPECT_EQ(bitmap[0], 'B');
    EXPECT_EQ(bitmap[1], 'M');
    const Bytes targa = ReadBytes(folder.File("view.tga"));
    EXPECT_EQ(targa.size(), 18u + 13 * 13 * 3 + 1);
    EXPECT_EQ(targa[2], 2);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(EditorHeightMapsTest, WithoutATerrainTheExportsAskNothing) {
    editor.ExportHeightMap();
    editor.ExportPicture();
    editor.ExportHeightMap16();
    EXPECT_TRUE(shell.saveDialogs.empty());
}

TEST_F(EditorHeightMapsTest, AFailedExportSaysSoAndLeavesTheOldFile) {
    GiveVariedTerrain();
    const std::string path = folder.File("kept.bmp");
    WriteText(path, "old contents");
    fs::permissions(path, fs::perms::owner_read);
    shell.saveChoices.push_back(path);
    editor.ExportHeightMap();
    ASSERT_EQ(shell.messages.size(), 1u);
    EXPECT_EQ(shell.messages[0].text.rfind("Error - Could not write the height map file.\n", 0), 0u);
    EXPECT_EQ(shell.messages[0].title, "Error");
    EXPECT_EQ(ReadText(path), "old contents");
    fs::permissions(path, fs::perms::owner_all);
}

TEST_F(EditorHeightMapsTest, SixteenBitRawRoundTripWithinTheTolerance) {
    GiveVariedTerrain();
    EditHeight(2, 3, 12.3456f);
    const HeightGrid exported = editor.Terrain().heights;
    shell.saveChoices.push_back(folder.File("map.r16"));
    editor.ExportHeightMap16();
    EXPECT_EQ(fs::file_size(folder.File("map.r16")), 2u * 13 * 13);
    ChooseToImport(folder.File("map.r16"));
    const std::optional<PendingHeightMap16> pending = editor.BeginImportHeightMap16();
    ASSERT_TRUE(pending.has_value());
    EXPECT_FALSE(pending->NeedsWidth());
    ASSERT_TRUE(editor.ImportHeightMap16(*pending, {}, 0));
    const HeightGrid& back = editor.Terrain().heights;
    ASSERT_EQ(back.Columns(), 13);
    for (int r = 0; r < 13; ++r)
        for (int c = 0; c < 13; ++c)
            EXPECT_NEAR(back.At(r, c), exported.At(r, c), 0.003f);
    EXPECT_FALSE(editor.Terrain().waterEnabled);
}

TEST_F(EditorHeightMapsTest, ARawFileThatIsNotSquareWaitsForAWidthThatFits) {
    WriteBytes(folder.File("strip.raw"), Bytes(2 * 12, 0xFF));
    shell.openChoices.push_back(folder.File("strip.raw"));
    const std::optional<PendingHeightMap16> pending = editor.BeginImportHeightMap16();
    ASSERT_TRUE(pending.has_value());
    EXPECT_TRUE(pending->NeedsWidth());
    EXPECT_FALSE(editor.ImportHeightMap16(*pending, {}, 5));
    ExpectMessage({"A width of 5 does not divide the file's 12 points into whole rows.", "Warning",
                   MessageIcon::Exclamation});
    shell.messages.clear();
    EXPECT_FALSE(editor.ImportHeightMap16(*pending, {20.0f, 20.0f}, 4));
    ExpectMessage({"The lowest height must lie below the highest.", "Warning", MessageIcon::Exclamation});
    EXPECT_FALSE(editor.Terrain().terrainPresent);
    shell.messages.clear();
    ASSERT_TRUE(editor.ImportHeightMap16(*pending, {0.0f, 100.0f}, 4));
    EXPECT_EQ(editor.Terrain().columns, 4);
    EXPECT_EQ(editor.Terrain().rows, 3);
    EXPECT_FLOAT_EQ(editor.Terrain().heights.At(1, 1), 100.0f);
}

TEST_F(EditorHeightMapsTest, SixteenBitFilesTooLargeOrUnreadableAreRefused) {
    GiveEditorTerrain(4, 12.0f);
    const TerrainData before = editor.Terrain();
    WriteBytes(folder.File("big.r16"), Bytes(2 * 514 * 514, 0));
    ChooseToImport(folder.File("big.r16"));
    EXPECT_FALSE(editor.BeginImportHeightMap16().has_value());
    ExpectMessage(
        {"Error Loading Height Map File.\nThe height map is 514 x 514 points; a terrain has at most "
         "513 x 513.",
         "Error", MessageIcon::Exclamation});
    shell.messages.clear();
    WriteBytes(folder.File("odd.raw"), Bytes(7, 0));
    ChooseToImport(folder.File("odd.raw"));
    EXPECT_FALSE(editor.BeginImportHeightMap16().has_value());
    EXPECT_EQ(
        OnlyMessage().text,
        "Error Loading Height Map File.\nA 16-bit RAW file holds two bytes per point; this one has 7 bytes.");
    EXPECT_EQ(static_cast<const TerrainData&>(editor.Terrain()), before);
}

void ImportHeightMapCommand(TextSession& s) {
    s.editor.ImportHeightMap();
}
void ExportHeightMapCommand(TextSession& s) {
    s.OpenTrackWithTerrain();
    s.editor.ExportHeightMap();
}
void ImportPictureCommand(TextSession& s) {
    s.editor.BeginImportPicture();
}
void ExportPictureCommand(TextSession& s) {
    s.OpenTrackWithTerrain();
    s.editor.ExportPicture();
}
void ImportHeightMap16Command(TextSession& s) {
    s.editor.BeginImportHeightMap16();
}
void ExportHeightMap16Command(TextSession& s) {
    s.OpenTrackWithTerrain();
    s.editor.ExportHeightMap16();
}

const FileDialogRow kDialogRows[] = {
    {"ImportHeightMap", ImportHeightMapCommand, false, "Import Height Map BMP...",
     "Windows Bitmap Files (*.bmp)|*.bmp", "bmp"},
    {"ExportHeightMap", ExportHeightMapCommand, true, "Export Height Map BMP...",
     "Windows Bitmap Files (*.bmp)|*.bmp", "bmp"},
    {"ImportPicture", ImportPictureCommand, false, "Import Picture...",
     "Picture Files (*.bmp;*.gif;*.jpg;*.tga)|*.bmp;*.gif;*.jpg;*.tga", "bmp"},
    {"ExportPicture", ExportPictureCommand, true, "Export Picture...",
     "Targa True Vision Files (*.tga)|*.tga|Windows Bitmap Files (*.bmp)|*.bmp", "bmp"},
    {"ImportHeightMap16", ImportHeightMap16Command, false, "Import Height Map (16-bit)...",
     "16-bit Height Maps (*.png;*.r16;*.raw)|*.png;*.r16;*.raw|All Files (*.*)|*.*", "png"},
    {"ExportHeightMap16", ExportHeightMap16Command, true, "Export Height Map (16-bit)...",
     "16-bit PNG Files (*.png)|*.png|16-bit RAW Files (*.r16;*.raw)|*.r16;*.raw", "png"},
};

class HeightMapDialogTest : public ::testing::TestWithParam<FileDialogRow> {};

TEST_P(HeightMapDialogTest, ShowsItsTitleFilterAndDefaultExtension) {
    ExpectRowShowsItsDialog(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, HeightMapDialogTest, ::testing::ValuesIn(kDialogRows), RowName());

} // namespace
