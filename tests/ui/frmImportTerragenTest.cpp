// The Terragen import dialog: its preview follows the water controls, Import makes the terrain
// from what the controls say, Cancel leaves the terrain alone; and the way in through File > Import.
#include "frmImportTerragen.h"
#include "MainWindowFixture.h"
#include "TerragenSample.h"

namespace {

// Two columns, three rows: values 10 and 200 in the bottom row, 120 and 130 in the middle row,
// 250 and 1 in the top row.
SampleGrid SmallSamples() {
    SampleGrid samples;
    samples.Resize(2, 3);
    samples.values = {10.0f, 200.0f, 120.0f, 130.0f, 250.0f, 1.0f};
    return samples;
}

} // namespace

class ImportTerragenDialogTest : public DialogTest<frmImportTerragen> {
protected:
    void OpenOn(SampleGrid samples) {
        dialog = std::make_unique<frmImportTerragen>(editor, std::move(samples), nullptr);
        dialog->show();
    }
};

TEST_F(ImportTerragenDialogTest, ThePreviewShowsTheBottomRowLastAndWaterWhereTheSliderSays) {
    OpenOn(SmallSamples());
    EXPECT_EQ(dialog->hsWaterHeight->minimum(), 0);
    EXPECT_EQ(dialog->hsWaterHeight->maximum(), 256);
    dialog->chkWater->setChecked(true);
    dialog->hsWaterHeight->setValue(125);
    EXPECT_EQ(dialog->lblWaterHeight->text(), "125");
    const QImage& preview = dialog->Preview();
    ASSERT_EQ(preview.size(), QSize(2, 3));
    // Picture line 2 is terrain row 0, where 200 is land; 120 in the middle row lies 5 under.
    EXPECT_EQ(preview.pixel(1, 2), qRgb(200, 200, 200));
    EXPECT_EQ(preview.pixel(0, 1), qRgb(0, 144, 240));
    EXPECT_EQ(preview.pixel(0, 0), qRgb(250, 250, 250));

    // Without water everything is grey, and the slider rests.
    dialog->chkWater->setChecked(false);
    EXPECT_EQ(dialog->Preview().pixel(0, 1), qRgb(120, 120, 120));
    EXPECT_FALSE(dialog->hsWaterHeight->isEnabled());
    // The label shows the scaled preview.
    EXPECT_FALSE(dialog->pbMain->pixmap().isNull());
}

TEST_F(ImportTerragenDialogTest, ImportMakesTheTerrainWithTheChosenWaterAndCancelKeepsTheOld) {
    OpenOn(SmallSamples());
    dialog->chkWater->setChecked(true);
    dialog->hsWaterHeight->setValue(120);
    Click(dialog->btnMain[1]);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(editor.Terrain().terrainPresent);

    OpenOn(SmallSamples());
    dialog->chkWater->setChecked(true);
    dialog->hsWaterHeight->setValue(120);
    Click(dialog->btnMain[0]);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    // The water at 120 is the new zero.
    const TerrainModel& t = editor.Terrain();
    ASSERT_TRUE(t.terrainPresent);
    EXPECT_EQ(t.rows, 3);
    EXPECT_TRUE(t.waterEnabled);
    EXPECT_FLOAT_EQ(t.heights.At(1, 0), 0.0f);
    EXPECT_FLOAT_EQ(t.heights.At(1, 1), 10.0f / 1.7f);
}

TEST_F(MainWindowTest, TerragenFileInTheImportMenuOpensTheDialogAfterTheFileIsRead) {
    const std::string path = home.File("hills.ter");
    WriteBytes(path, MakeTerragenFile({9, 5, false, true}, RollingTerragenElevations(9)));
    shell.openChoices.push_back(path);
    bool shown = false;
    QTimer::singleShot(0, window.get(), [&] {
        for (auto* d : window->findChildren<frmImportTerragen*>())
            if (d->isVisible()) {
                shown = true;
                d->chkWater->setChecked(false);
                Click(d->btnMain[0]);
            }
    });
    Action("mnuImportTerragen")->trigger();
    EXPECT_TRUE(shown);
    EXPECT_EQ(Session().Terrain().columns, 9);
    EXPECT_EQ(Session().Terrain().rows, 5);
    EXPECT_FALSE(Session().Terrain().waterEnabled);
    EXPECT_TRUE(Child<QMenu>(window.get(), "mnuExport")->isEnabled());
}
