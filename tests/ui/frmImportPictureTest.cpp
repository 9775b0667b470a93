// The picture import dialog and the 16-bit range dialog: their controls, the live preview, OK and
// Cancel, the way in through File > Import, and 16-bit PNG files through the picture codec.
#include "frmImportPicture.h"
#include "MainWindowFixture.h"
#include "frmImportHeightMap16.h"
#include "mBitmapFile.h"
#include "mHeightMap.h"
#include "mHeightMap16.h"

#include <algorithm>
#include <cmath>

namespace {

// Greys dark on the left half, white on the right, side x side.
SampleGrid HalfDark(int side) {
    SampleGrid greys;
    greys.Resize(side, side, 255.0f);
    for (int r = 0; r < side; ++r)
        for (int c = 0; c < side / 2; ++c)
            greys.At(r, c) = 10.0f;
    return greys;
}

QColor PreviewColour(const frmImportPicture& dialog, int x, int y) {
    return dialog.pbMain->pixmap().toImage().pixelColor(x, y);
}

} // namespace

class ImportPictureDialogTest : public DialogTest<frmImportPicture> {
protected:
    void OpenWith(SampleGrid greys) {
        dialog = std::make_unique<frmImportPicture>(editor, std::move(greys), nullptr);
        dialog->show();
    }
};

TEST_F(ImportPictureDialogTest, CancelChangesNothingThePreviewFollowsWaterAndInversionAndOkImports) {
    OpenWith(HalfDark(8));
    dialog->chkWater->click();
    Click(dialog->btnMain[1]);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(editor.Terrain().terrainPresent);

    OpenWith(HalfDark(8));
    EXPECT_TRUE(dialog->optTeraStruct[1]->isChecked());
    EXPECT_FALSE(dialog->hsWaterHeight->isEnabled());
    // Dark ground on the left is low land: green, not blue.
    QColor left = PreviewColour(*dialog, 10, 128);
    EXPECT_GT(left.green(), left.blue());
    dialog->chkWater->click();
    EXPECT_TRUE(dialog->hsWaterHeight->isEnabled());
    dialog->hsWaterHeight->setValue(40);
    EXPECT_EQ(dialog->lblWaterHeight->text(), "40");
    // Greys of 10 under a water line of 40: water.
    left = PreviewColour(*dialog, 10, 128);
    EXPECT_GT(left.blue(), left.red() + 60);
    // Inverted, the left half stands high and the white right half goes under water.
    dialog->chkInvert->click();
    EXPECT_LT(PreviewColour(*dialog, 10, 128).blue(), PreviewColour(*dialog, 10, 128).red());
    const QColor right = PreviewColour(*dialog, 245, 128);
    EXPECT_GT(right.blue(), right.red() + 60);

    Click(dialog->optTeraStruct[2]);
    dialog->chkInvert->click();
    dialog->hsWaterHeight->setValue(30);
    Click(dialog->btnMain[0]);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    const TerrainModel& t = editor.Terrain();
    EXPECT_EQ(t.columns, 409);
    EXPECT_TRUE(t.waterEnabled);
    EXPECT_FLOAT_EQ(t.heights.At(0, 408), 225.0f / 1.7f);
}

class ImportFromMenuTest : public MainWindowTest {};

TEST_F(ImportFromMenuTest, PictureFromTheMenuThroughItsDialog) {
    cDIBSection picture;
    picture.Create(4, 4);
    std::fill_n(picture.Bits(), picture.SizeInBytes(), std::uint8_t{170});
    std::string error;
    ASSERT_TRUE(SaveBitmap(home.File("photo.bmp"), picture, error));
    shell.openChoices.push_back(home.File("photo.bmp"));
    WhenShown<frmImportPicture>(window.get(), [](frmImportPicture& d) {
        Click(d.optTeraStruct[0]);
        Click(d.btnMain[0]);
    });
    Action("mnuImportPicture")->trigger();
    EXPECT_EQ(Session().Terrain().columns, 102);
    EXPECT_TRUE(window->mnuExport->isEnabled());
}

TEST_F(ImportFromMenuTest, ARawFileThatIsNotSquareAsksForItsWidthUntilOneFits) {
    std::vector<std::uint8_t> raw(2 * 6, 0);
    raw[10] = raw[11] = 0xFF; // the last point, on the bottom row
    WriteBytes(home.File("strip.r16"), raw);
    shell.openChoices.push_back(home.File("strip.r16"));
    WhenShown<frmImportHeightMap16>(window.get(), [this](frmImportHeightMap16& d) {
        EXPECT_TRUE(d.txtWidth->isEnabled());
        d.txtWidth->setText("4");
        Click(d.btnOkay);
        EXPECT_TRUE(d.isVisible());
        EXPECT_EQ(shell.messages.size(), 1u);
        d.txtWidth->setText("3");
        d.txtHigh->setText("90");
        Click(d.btnOkay);
        EXPECT_FALSE(d.isVisible());
    });
    Action("mnuImportHeightMap16")->trigger();
    const TerrainModel& t = Session().Terrain();
    ASSERT_EQ(t.columns, 3);
    EXPECT_FLOAT_EQ(t.heights.At(0, 2), 90.0f);
    EXPECT_FLOAT_EQ(t.heights.At(1, 0), -10.0f); // the low end stays at its start
}

TEST_F(ImportFromMenuTest, SixteenBitPngRoundTripWithinTheTolerance) {
    StartOnDemo();
    const HeightGrid exported = Session().Terrain().heights;
    shell.saveChoices.push_back(home.File("demo.png"));
    Action("mnuExportHeightMap16")->trigger();
    ASSERT_TRUE(shell.messages.empty());
    // A PNG of 16-bit greys, by its header: colour type 0, bit depth 16.
    const std::vector<std::uint8_t> file = ReadBytes(home.File("demo.png"));
    ASSERT_GT(file.size(), 26u);
    EXPECT_EQ(file[24], 16);
    EXPECT_EQ(file[25], 0);

    shell.askChoices.push_back({0, false});
    shell.openChoices.push_back(home.File("demo.png"));
    WhenShown<frmImportHeightMap16>(window.get(), [](frmImportHeightMap16& d) {
        EXPECT_FALSE(d.txtWidth->isEnabled());
        Click(d.btnOkay);
    });
    Action("mnuImportHeightMap16")->trigger();
    const HeightGrid& back = Session().Terrain().heights;
    ASSERT_EQ(back.Columns(), exported.Columns());
    ASSERT_EQ(back.Rows(), exported.Rows());
    float worst = 0.0f;
    for (int r = 0; r < back.Rows(); ++r)
        for (int c = 0; c < back.Columns(); ++c)
            worst = std::max(worst, std::abs(back.At(r, c) - std::clamp(exported.At(r, c), -10.0f, 150.0f)));
    EXPECT_LT(worst, 0.003f);
}

TEST(Png16Codec, APngLargerThanTheLargestTerrainIsRefusedByItsHeader) {
    InstallQtPng16Codec();
    QImage big(600, 20, QImage::Format_Grayscale16);
    big.fill(0);
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(big.save(&buffer, "png"));
    Grey16Image image;
    const std::vector<std::uint8_t> bytes(data.begin(), data.end());
    const Grey16ReadResult read = DecodeHeightMap16(bytes, true, 0, image);
    EXPECT_FALSE(read);
    EXPECT_EQ(read.message, "the height map is 600 x 20 points; a terrain has at most 513 x 513");
    EXPECT_FALSE(DecodeHeightMap16(std::vector<std::uint8_t>{0x89, 'P', 'N', 'G'}, true, 0, image));
    EXPECT_TRUE(image.Empty());
}
