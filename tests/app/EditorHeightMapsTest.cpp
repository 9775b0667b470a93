// The height-map, picture and 16-bit commands through the scripted shell: what each asks and
// shows, what the terrain becomes, the files they write, and bad files and failed writes leaving
// the terrain and any existing file as they were.
#include "EditorTestFixture.h"
#include "ShownTexts.h"
#include "mBitmapFile.h"

#include <filesystem>
#include <tuple>

namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<std::uint8_t>;

class EditorHeightMapsTest : public EditorTest {
protected:
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
        shell.messages.clear();
    }
};

TEST_F(EditorHeightMapsTest, AHeightMapBecomesTheTerrainWithTheImportDefaults) {
    GiveEditorTerrain();
    cDIBSection picture;
    picture.Create(3, 2);
    const std::uint8_t greys[] = {0, 60, 255};
    for (int c = 0; c < 3; ++c)
        std::fill_n(picture.Row(0) + 3 * c, 3, greys[c]);
    std::string error;
    ASSERT_TRUE(SaveBitmap(folder.File("map.bmp"), picture, error)) << error;
    ChooseToImport(folder.File("map.bmp"));
    editor.ImportHeightMap();
    const TerrainModel& t = editor.Terrain();
    EXPECT_EQ(
        std::tuple(t.rows, editor.Mesh().Columns(), t.groundTexture, t.terrainChanged, editor.CanUndo()),
        std::tuple(2, 3, std::string(kDefaultGroundTexture), true, false));
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(EditorHeightMapsTest, FilesThatAreNoPictureAreRefusedAndChangeNothing) {
    GiveEditorTerrain(4, 12.0f);
    const TerrainData before = editor.Terrain();
    const ShownMessage pictureError{
        "Error Loading Picture File.\nThe file does not appear to be a valid Picture file.", "Error",
        MessageIcon::Exclamation};
    WriteText(folder.File("bad.bmp"), "BM this is no bitmap");
    WriteText(folder.File("bad.tga"), "not a targa either");
    ChooseToImport(folder.File("bad.bmp"));
    editor.ImportHeightMap();
    ExpectMessage(pictureError);
    ChooseToImport(folder.File("bad.tga"));
    EXPECT_FALSE(editor.BeginImportPicture().has_value());
    ExpectMessage(pictureError);
    EXPECT_EQ(static_cast<const TerrainData&>(editor.Terrain()), before);
}

TEST_F(EditorHeightMapsTest, APictureBecomesTheStructureChosenWithWater) {
    cDIBSection picture;
    picture.Create(2, 2);
    std::fill_n(picture.Row(0) + 3, 3, std::uint8_t{255});
    std::string error;
    ASSERT_TRUE(SaveBitmap(folder.File("photo.bmp"), picture, error)) << error;
    shell.openChoices.push_back(folder.File("photo.bmp"));
    const std::optional<SampleGrid> greys = editor.BeginImportPicture();
    ASSERT_TRUE(greys.has_value());
    EXPECT_FALSE(editor.Terrain().terrainPresent); // nothing changes before the dialog's OK
    PictureImportOptions options;
    options.detail = PictureDetail::Low;
    options.water = true;
    options.waterHeight = 20.0f;
    ASSERT_TRUE(editor.ImportPicture(*greys, options));
    const TerrainModel& t = editor.Terrain();
    EXPECT_TRUE(t.columns == 102 && t.waterEnabled && t.waterTexture == kDefaultWaterTexture);
}

TEST_F(EditorHeightMapsTest, ImportsStopAtTheQuestionOrTheCancelledDialogAndExportsWithoutATerrain) {
    editor.ExportHeightMap();
    editor.ExportPicture();
    editor.ExportHeightMap16();
    EXPECT_TRUE(shell.saveDialogs.empty());
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

TEST_F(EditorHeightMapsTest, ExportsWriteTheirFilesAndAFailedOneSaysSoAndLeavesTheOldFile) {
    GiveEditorTerrain(13, 0.0f, true);
    EditHeight(5, 7, 33.0f);
    for (const char* name : {"map.bmp", "view.BMP", "view.tga", "map.r16"})
        shell.saveChoices.push_back(folder.File(name));
    editor.ExportHeightMap();
    editor.ExportPicture();
    editor.ExportPicture();
    editor.ExportHeightMap16();
    EXPECT_TRUE(shell.messages.empty());
    // The terrain's own heights in the height map; the extension picks the format.
    cDIBSection heightMap;
    ASSERT_TRUE(LoadBitmapFile(folder.File("map.bmp"), heightMap));
    EXPECT_EQ(heightMap.Row(5)[3 * 7], 83);
    EXPECT_EQ(ReadBytes(folder.File("view.BMP"))[0], 'B');
    EXPECT_EQ(ReadBytes(folder.File("view.tga"))[2], 2) << "an uncompressed true-colour Targa";
    EXPECT_EQ(fs::file_size(folder.File("map.r16")), 2u * 13 * 13);

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

TEST_F(EditorHeightMapsTest, ASquareRawFileImportsAtOnceAndAnotherWaitsForAWidthThatFits) {
    Bytes square(2 * 4, 0);
    square[0] = square[1] = 0xFF; // the top row's first point
    WriteBytes(folder.File("square.r16"), square);
    shell.openChoices.push_back(folder.File("square.r16"));
    const std::optional<PendingHeightMap16> direct = editor.BeginImportHeightMap16();
    ASSERT_TRUE(direct.has_value());
    EXPECT_FALSE(direct->NeedsWidth());
    ASSERT_TRUE(editor.ImportHeightMap16(*direct, {}, 0));
    EXPECT_EQ(editor.Terrain().columns, 2);

    WriteBytes(folder.File("strip.raw"), Bytes(2 * 12, 0xFF));
    ChooseToImport(folder.File("strip.raw"));
    const std::optional<PendingHeightMap16> pending = editor.BeginImportHeightMap16();
    ASSERT_TRUE(pending.has_value());
    EXPECT_TRUE(pending->NeedsWidth());
    EXPECT_FALSE(editor.ImportHeightMap16(*pending, {}, 5));
    ExpectMessage({"A width of 5 does not divide the file's 12 points into whole rows.", "Warning",
                   MessageIcon::Exclamation});
    EXPECT_FALSE(editor.ImportHeightMap16(*pending, {20.0f, 20.0f}, 4));
    ExpectMessage({"The lowest height must lie below the highest.", "Warning", MessageIcon::Exclamation});
    EXPECT_EQ(editor.Terrain().columns, 2);
    ASSERT_TRUE(editor.ImportHeightMap16(*pending, {0.0f, 100.0f}, 4));
    EXPECT_EQ(editor.Terrain().heights, HeightGrid(4, 3, 100.0f)) << "4 x 3 at the top of the chosen range";
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
    WriteBytes(folder.File("odd.raw"), Bytes(7, 0));
    ChooseToImport(folder.File("odd.raw"));
    EXPECT_FALSE(editor.BeginImportHeightMap16().has_value());
    EXPECT_EQ(
        OnlyMessage().text,
        "Error Loading Height Map File.\nA 16-bit RAW file holds two bytes per point; this one has 7 bytes.");
    EXPECT_EQ(static_cast<const TerrainData&>(editor.Terrain()), before);
}

// An export command, on a terrain: without one it asks nothing.
template <void (Editor::*command)()> void Exporting(TextSession& s) {
    s.OpenTrackWithTerrain();
    (s.editor.*command)();
}

const FileDialogRow kDialogRows[] = {
    {"ImportHeightMap", [](TextSession& s) { s.editor.ImportHeightMap(); }, false, "Import Height Map BMP...",
     "Windows Bitmap Files (*.bmp)|*.bmp", "bmp"},
    {"ExportHeightMap", Exporting<&Editor::ExportHeightMap>, true, "Export Height Map BMP...",
     "Windows Bitmap Files (*.bmp)|*.bmp", "bmp"},
    {"ImportPicture", [](TextSession& s) { s.editor.BeginImportPicture(); }, false, "Import Picture...",
     "Picture Files (*.bmp;*.gif;*.jpg;*.tga)|*.bmp;*.gif;*.jpg;*.tga", "bmp"},
    {"ExportPicture", Exporting<&Editor::ExportPicture>, true, "Export Picture...",
     "Targa True Vision Files (*.tga)|*.tga|Windows Bitmap Files (*.bmp)|*.bmp", "bmp"},
    {"ImportHeightMap16", [](TextSession& s) { s.editor.BeginImportHeightMap16(); }, false,
     "Import Height Map (16-bit)...",
     "16-bit Height Maps (*.png;*.r16;*.raw)|*.png;*.r16;*.raw|All Files (*.*)|*.*", "png"},
    {"ExportHeightMap16", Exporting<&Editor::ExportHeightMap16>, true, "Export Height Map (16-bit)...",
     "16-bit PNG Files (*.png)|*.png|16-bit RAW Files (*.r16;*.raw)|*.r16;*.raw", "png"},
};

class HeightMapDialogTest : public ::testing::TestWithParam<FileDialogRow> {};

TEST_P(HeightMapDialogTest, ShowsItsTitleFilterAndDefaultExtension) {
    ExpectRowShowsItsDialog(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, HeightMapDialogTest, ::testing::ValuesIn(kDialogRows), RowName());

} // namespace
