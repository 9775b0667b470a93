// The terrain settings dialog and its custom size dialog: presets, the water switch, texture paths,
// the custom size, OK and Cancel, and the way in through the Terrain menu.
#include "frmTeraSettings.h"
#include "MainWindowFixture.h"
#include "frmTeraCustom.h"

#include <algorithm>
#include <filesystem>
#include <functional>

namespace {

// Stand-ins for every texture the presets name, so that only the files a test leaves out are missing.
void TouchPresetTextures(const std::string& programFolder) {
    std::vector<std::string> stored;
    for (const LandPreset& p : TerrainPresetTable::land)
        stored.insert(stored.end(), {p.groundTexture, p.detailTexture});
    for (const SeaPreset& p : TerrainPresetTable::sea)
        stored.push_back(p.waterTexture);
    for (std::string path : stored) {
        if (path.empty()) continue;
        std::replace(path.begin(), path.end(), '\\', '/');
        std::filesystem::create_directories(std::filesystem::path(programFolder + path).parent_path());
        WriteText(programFolder + path, "x");
    }
}

bool ShownRed(const QLineEdit* box) {
    return box->palette().color(QPalette::Text) == QColor(255, 0, 0);
}

} // namespace

class TerrainSettingsDialogTest : public DialogTest<frmTeraSettings> {
protected:
    void SetUp() override {
        DialogTest::SetUp();
        TouchPresetTextures(editor.ProgramFolder());
    }
};

TEST_F(TerrainSettingsDialogTest, EachPresetFillsItsTexturesAndBars) {
    Open();
    for (std::size_t i = 0; i < kPresetCount; ++i) {
        const LandPreset& land = TerrainPresetTable::land[i];
        Click(dialog->btnLand[i]);
        EXPECT_EQ(dialog->txtGround->text(), land.groundTexture) << i;
        EXPECT_EQ(dialog->txtDetail->text(), land.detailTexture) << i;
        EXPECT_EQ(dialog->hsGround->value(), land.groundRepeats) << i;
        EXPECT_EQ(dialog->lblDetail->text(), QString::number(land.detailRepeats)) << i;
        const SeaPreset& sea = TerrainPresetTable::sea[i];
        Click(dialog->btnSea[i]);
        EXPECT_EQ(dialog->txtWater->text(), sea.waterTexture) << i;
        EXPECT_EQ(dialog->lblWater->text(), QString::number(sea.waterRepeats)) << i;
        EXPECT_EQ(dialog->hsReflection->value(), sea.reflection) << i;
    }
    Click(dialog->btnMain[2]); // "Default Terrain Settings": the Grass and Tropical presets
    EXPECT_EQ(dialog->txtGround->text(), "teratextures\\GrassTerrain.jpg");
    EXPECT_EQ(dialog->lblReflection->text(), "128");
    EXPECT_FALSE(editor.Terrain().terrainPresent) << "the presets make no terrain";
}

TEST_F(TerrainSettingsDialogTest, TheWaterSwitchGreysEveryWaterControl) {
    Open();
    const QWidget* water[] = {dialog->txtWater,  dialog->btnWater[0],  dialog->btnWater[2],
                              dialog->hsWater,   dialog->hsReflection, dialog->lblWater,
                              dialog->btnSea[0], dialog->btnSea[8]};
    ASSERT_TRUE(dialog->chkWater->isChecked()) << "a new terrain has water unless switched off";
    for (const bool on : {false, true}) {
        dialog->chkWater->click();
        for (const QWidget* control : water)
            EXPECT_EQ(control->isEnabled(), on) << control->objectName().toStdString();
        EXPECT_TRUE(dialog->txtGround->isEnabled());
    }
}

TEST_F(TerrainSettingsDialogTest, AChosenTextureMustLieBelowTheProgramFolder) {
    const std::string home = editor.ProgramFolder();
    shell.openChoices = {home + "teratextures/Sub/Rock.tga", std::string("/elsewhere/x.jpg")};
    std::filesystem::create_directories(home + "teratextures/Sub");
    WriteText(home + "teratextures/Sub/Rock.tga", "x");
    Open();
    Click(dialog->btnDetail[0]);
    ASSERT_EQ(shell.openDialogs.size(), 1u);
    EXPECT_EQ(shell.openDialogs[0].folder, home + "teratextures");
    EXPECT_EQ(dialog->txtDetail->text(), "teratextures\\Sub\\Rock.tga");
    EXPECT_FALSE(ShownRed(dialog->txtDetail));

    Click(dialog->btnGround[0]);
    EXPECT_TRUE(ShownRed(dialog->txtGround));
    EXPECT_EQ(shell.messages.size(), 1u);
    Click(dialog->btnMain[0]);
    EXPECT_EQ(shell.messages.size(), 2u) << "OK refuses it too";
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(editor.Terrain().terrainPresent);
    Click(dialog->btnGround[2]);
    EXPECT_EQ(dialog->txtGround->text(), "");
}

TEST(CustomTerrainDetail, KeepEqualMovesBothBarsWhicheverLeads) {
    frmTeraCustom custom(205, 205, nullptr);
    EXPECT_TRUE(custom.chkSame->isChecked());
    EXPECT_EQ(custom.lblDistance[0]->text(), "5.00"); // 4.995...
    custom.hsSize[0]->setValue(150);
    custom.hsSize[1]->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(custom.Columns(), 151) << "either bar leads";
    EXPECT_EQ(custom.lblSize[0]->text(), "151");
    EXPECT_EQ(custom.lblDistance[1]->text(), "6.78");

    custom.chkSame->click();
    custom.hsSize[1]->setValue(409);
    EXPECT_EQ(custom.Columns(), 151);
    EXPECT_EQ(custom.lblDistance[1]->text(), "2.50");
    custom.chkSame->click(); // on again: the height takes the width
    EXPECT_EQ(custom.Rows(), 151);
}

class TerrainSettingsOnATerrainTest : public TerrainSettingsDialogTest {
protected:
    void SetUp() override {
        TerrainSettingsDialogTest::SetUp();
        editor.ReplaceTerrain(
            [](TerrainData& t) {
                NewTerrainGrid(t, 330, 120);
                t.groundTexture = "teratextures\\MudTerrain.jpg";
                t.groundTiling = 100.0f;
                return true;
            },
            {});
        Open();
    }
};

TEST_F(TerrainSettingsOnATerrainTest, OpensShowingTheTerrainsSizeTexturesAndWater) {
    EXPECT_TRUE(dialog->optTeraStruct[3]->isChecked());
    EXPECT_EQ(dialog->lblCustomX->text() + "x" + dialog->lblCustomZ->text(), "330x120");
    EXPECT_EQ(dialog->txtGround->text(), "teratextures\\MudTerrain.jpg");
    EXPECT_EQ(dialog->lblGround->text(), "100");
    EXPECT_FALSE(dialog->chkWater->isChecked());
}

TEST_F(TerrainSettingsOnATerrainTest, AnEditedCustomSizeIsMadeOnlyOnceTheQuestionIsAnsweredYes) {
    shell.answers = {Answer::Cancel, Answer::Yes};
    dialog->optTeraStruct[2]->click();
    EXPECT_EQ(dialog->Values().structure, TerrainStructure::High);
    // Unequal sides open the custom dialog without "keep equal", so each bar sets its own side.
    WhenShown<frmTeraCustom>(dialog.get(), [](frmTeraCustom& custom) {
        custom.hsSize[0]->setValue(64);
        custom.hsSize[1]->setValue(300);
        Click(custom.btnOkay);
    });
    Click(dialog->btnCustomEdit);
    EXPECT_TRUE(dialog->optTeraStruct[3]->isChecked());
    WhenShown<frmTeraCustom>(dialog.get(), [](frmTeraCustom& custom) {
        custom.hsSize[0]->setValue(20);
        Click(custom.btnCancel);
    });
    Click(dialog->btnCustomEdit);
    EXPECT_EQ(dialog->lblCustomX->text() + "x" + dialog->lblCustomZ->text(), "64x300") << "Cancel drops it";

    Click(dialog->btnMain[0]);
    EXPECT_TRUE(dialog->isVisible()) << "Cancel in the question keeps the dialog open";
    EXPECT_EQ(editor.Terrain().columns, 330);
    Click(dialog->btnMain[0]);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(editor.Terrain().columns, 64);
    EXPECT_EQ(editor.Terrain().rows, 300);
}

TEST_F(TerrainSettingsDialogTest, APathNamingNoFileShowsRedUnlessFoundInAnotherLetterCase) {
    Open();
    dialog->txtGround->setText("teratextures\\Missing.jpg");
    EXPECT_TRUE(ShownRed(dialog->txtGround));
    dialog->txtGround->setText("TeraTextures\\grassterrain.JPG");
    EXPECT_FALSE(ShownRed(dialog->txtGround));
}

TEST_F(TerrainSettingsDialogTest, OkAsksBeforeKeepingTexturesThatNameNoFile) {
    Open();
    dialog->txtGround->setText("teratextures\\Missing.jpg");
    dialog->txtWater->setText("teratextures\\Gone.jpg");
    shell.answers = {Answer::No, Answer::Yes};
    Click(dialog->btnMain[0]);
    ASSERT_EQ(shell.questions.size(), 1u);
    for (const char* named : {"Ground Texture was not found: teratextures\\Missing.jpg",
                              "Water Texture was not found: teratextures\\Gone.jpg", "simulator"})
        EXPECT_NE(shell.questions[0].text.find(named), std::string::npos) << shell.questions[0].text;
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(editor.Terrain().terrainPresent) << "No keeps the dialog open and changes nothing";
    Click(dialog->btnMain[0]);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(editor.Terrain().groundTexture, "teratextures\\Missing.jpg") << "the user may go on";
}

TEST_F(MainWindowTest, TerrainNewMakesTheTerrainItsSettingsDescribe) {
    TouchPresetTextures(Session().ProgramFolder());
    ASSERT_TRUE(window->Startup(""));
    EXPECT_FALSE(window->mnuTerrainSettings->isEnabled());
    WhenShown<frmTeraSettings>(window.get(), [](frmTeraSettings& d) {
        d.optTeraStruct[0]->click();
        Click(d.btnMain[0]);
    });
    window->mnuNewTerrain->trigger();
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright - [Terrain]");
    EXPECT_EQ(Session().Terrain().columns, 102);
    EXPECT_TRUE(window->mnuTerrainSettings->isEnabled());
}

TEST_F(MainWindowTest, TerrainNewCancelledInTheSettingsLeavesEverythingAsItWas) {
    StartOnDemo();
    Action("mnuFlip")->trigger();
    const HeightGrid heights = Session().Terrain().heights;
    shell.answers = {Answer::Yes};
    WhenShown<frmTeraSettings>(window.get(), [](frmTeraSettings& d) { Click(d.btnMain[1]); });
    window->mnuNewTerrain->trigger();
    EXPECT_EQ(Session().Terrain().heights, heights);
    EXPECT_TRUE(Session().Terrain().terrainPresent && Session().CanUndo());
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright - Demo");
}
