// The terrain settings dialog and its custom size dialog driven by objectName: presets, the water
// switch, texture paths, the custom size, OK and Cancel, and the way in through the Terrain menu.
#include "frmTeraSettings.h"
#include "Editor.h"
#include "MainWindowFixture.h"
#include "frmTeraCustom.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

namespace {

bool ShownRed(const QLineEdit* box) {
    return box->palette().color(QPalette::Active, QPalette::Text) == QColor(255, 0, 0);
}

// Once the next modal Dialog under parent shows, lets the test act on it; one the action leaves
// open is closed, so a failing test cannot hang.
template <typename Dialog> void WhenShown(QObject* parent, std::function<void(Dialog&)> act) {
    QTimer::singleShot(0, parent, [parent, act] {
        for (Dialog* dialog : parent->findChildren<Dialog*>())
            if (dialog->isVisible()) {
                act(*dialog);
                if (dialog->isVisible()) dialog->reject();
                return;
            }
        ADD_FAILURE() << "the dialog did not open";
    });
}

} // namespace

class TerrainSettingsDialogTest : public ::testing::Test {
protected:
    ScratchFolder folder;
    ScriptedShell shell;
    Editor editor{shell, folder.Path().string()};
    std::unique_ptr<frmTeraSettings> dialog;

    void TearDown() override { shell.ExpectAllAnswersUsed(); }

    void Open() {
        dialog = std::make_unique<frmTeraSettings>(editor, nullptr);
        dialog->show();
    }
    template <typename Widget> Widget* Get(const QString& name) const {
        return Child<Widget>(dialog.get(), name);
    }
    QLineEdit* Text(const char* name) const { return Get<QLineEdit>(name); }
    QString Label(const char* name) const { return Get<QLabel>(name)->text(); }
    QPushButton* Button(const char* name, std::size_t i) const {
        return Get<QPushButton>(QString("%1_%2").arg(name).arg(i));
    }
};

TEST_F(TerrainSettingsDialogTest, PresetButtonsFillTheirTexturePairsAndSliders) {
    Open();
    EXPECT_EQ(dialog->windowTitle(), "Terrain Settings...");
    for (std::size_t i = 0; i < kPresetCount; ++i) {
        const LandPreset& land = TerrainPresetTable::land[i];
        Click(Button("btnLand", i));
        EXPECT_EQ(Text("txtGround")->text(), land.groundTexture) << i;
        EXPECT_EQ(Text("txtDetail")->text(), land.detailTexture) << i;
        EXPECT_EQ(Get<QScrollBar>("hsGround")->value(), land.groundRepeats) << i;
        EXPECT_EQ(Label("lblDetail"), QString::number(land.detailRepeats)) << "the label follows its bar";
        const SeaPreset& sea = TerrainPresetTable::sea[i];
        Click(Button("btnSea", i));
        EXPECT_EQ(Text("txtWater")->text(), sea.waterTexture) << i;
        EXPECT_EQ(Label("lblWater"), QString::number(sea.waterRepeats)) << i;
        EXPECT_EQ(Get<QScrollBar>("hsReflection")->value(), sea.reflection) << i;
    }
    Click(Button("btnMain", 2)); // "Default Terrain Settings": the Grass and Tropical presets
    EXPECT_EQ(Text("txtGround")->text(), "teratextures\\GrassTerrain.jpg");
    EXPECT_EQ(Label("lblReflection"), "128");
    EXPECT_FALSE(editor.terrain.terrainPresent) << "presets only fill the dialog";
}

TEST_F(TerrainSettingsDialogTest, TheWaterSwitchEnablesAndDisablesEveryWaterControl) {
    Open();
    QWidget* water[] = {Text("txtWater"),
                        Button("btnWater", 0),
                        Button("btnWater", 2),
                        Get<QScrollBar>("hsWater"),
                        Get<QScrollBar>("hsReflection"),
                        Get<QLabel>("lblWater"),
                        Button("btnSea", 0),
                        Button("btnSea", 8)};
    auto* chkWater = Get<QCheckBox>("chkWater");
    ASSERT_TRUE(chkWater->isChecked()) << "a new terrain has water unless switched off";
    for (const bool on : {false, true}) {
        chkWater->click();
        for (QWidget* control : water)
            EXPECT_EQ(control->isEnabled(), on) << control->objectName().toStdString();
        EXPECT_TRUE(Text("txtGround")->isEnabled());
    }
}

TEST_F(TerrainSettingsDialogTest, TexturePathsShowRedWhenAbsoluteAndOpenStoresThemRelative) {
    const std::string home = editor.ProgramFolder();
    shell.openChoices = {home + "teratextures/Sub/Rock.tga", std::string("/elsewhere/x.jpg")};
    Open();
    Click(Button("btnDetail", 0));
    ASSERT_EQ(shell.openDialogs.size(), 1u);
    EXPECT_EQ(shell.openDialogs[0].folder, home + "teratextures");
    EXPECT_EQ(Text("txtDetail")->text(), "teratextures\\Sub\\Rock.tga");
    EXPECT_FALSE(ShownRed(Text("txtDetail")));

    Click(Button("btnGround", 0));
    EXPECT_TRUE(ShownRed(Text("txtGround")));
    ASSERT_EQ(shell.messages.size(), 1u);
    EXPECT_EQ(shell.messages[0].text, "The Ground Texture is Invalid!\n\n"
                                      "Textures must be in the TeraTextures folder or a sub-folder of it.");
    Click(Button("btnMain", 0));
    EXPECT_EQ(shell.messages.size(), 2u) << "OK refuses it too";
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(editor.terrain.terrainPresent);
    Click(Button("btnGround", 2));
    EXPECT_EQ(Text("txtGround")->text(), "");
}

TEST_F(TerrainSettingsDialogTest, OpeningOnATerrainShowsItAndCancelInTheQuestionKeepsTheDialogOpen) {
    NewTerrainGrid(editor.terrain, 330, 120);
    editor.terrain.groundTexture = "teratextures\\MudTerrain.jpg";
    editor.terrain.groundTiling = 100.0f;
    shell.answers = {Answer::Cancel, Answer::Yes};
    Open();
    EXPECT_TRUE(Get<QRadioButton>("optTeraStruct_3")->isChecked());
    EXPECT_EQ(Label("lblCustomX") + "x" + Label("lblCustomZ"), "330x120");
    EXPECT_EQ(Text("txtGround")->text(), "teratextures\\MudTerrain.jpg");
    EXPECT_EQ(Label("lblGround"), "100");
    EXPECT_FALSE(Get<QCheckBox>("chkWater")->isChecked());

    Get<QRadioButton>("optTeraStruct_2")->click();
    Click(Button("btnMain", 0));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(editor.terrain.columns, 330);
    Click(Button("btnMain", 0));
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(editor.terrain.columns, 409);
}

TEST(CustomTerrainDetail, KeepEqualMovesBothBarsAndTheLabelsShowCountAndSpacing) {
    frmTeraCustom custom(205, 205, nullptr);
    EXPECT_EQ(custom.windowTitle(), "Custom Terrain Detail...");
    auto* same = Child<QCheckBox>(&custom, "chkSame");
    auto* height = Child<QScrollBar>(&custom, "hsSize_1");
    EXPECT_TRUE(same->isChecked());
    EXPECT_EQ(Child<QLabel>(&custom, "lblDistance_0")->text(), "5.00"); // 4.995...

    Child<QScrollBar>(&custom, "hsSize_0")->setValue(150);
    height->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(custom.Columns(), 151) << "either bar leads";
    EXPECT_EQ(Child<QLabel>(&custom, "lblSize_0")->text(), "151");
    EXPECT_EQ(Child<QLabel>(&custom, "lblDistance_1")->text(), "6.78");

    same->click();
    height->setValue(409);
    EXPECT_EQ(custom.Columns(), 151);
    EXPECT_EQ(Child<QLabel>(&custom, "lblDistance_1")->text(), "2.50");
    same->click(); // on again: the height takes the width
    EXPECT_EQ(custom.Rows(), 151);
    EXPECT_FALSE(frmTeraCustom(330, 120, nullptr).chkSame->isChecked());
}

TEST_F(TerrainSettingsDialogTest, EditPicksACustomSizeThatOkThenCreates) {
    Open();
    WhenShown<frmTeraCustom>(dialog.get(), [](frmTeraCustom& custom) {
        custom.chkSame->click();
        custom.hsSize[0]->setValue(64);
        custom.hsSize[1]->setValue(300);
        Click(custom.btnOkay);
    });
    Click(Get<QPushButton>("btnCustomEdit"));
    EXPECT_TRUE(Get<QRadioButton>("optTeraStruct_3")->isChecked());
    WhenShown<frmTeraCustom>(dialog.get(), [](frmTeraCustom& custom) {
        custom.hsSize[0]->setValue(20);
        Click(custom.btnCancel);
    });
    Click(Get<QPushButton>("btnCustomEdit"));
    EXPECT_EQ(Label("lblCustomX") + "x" + Label("lblCustomZ"), "64x300") << "Cancel drops its change";

    Click(Button("btnMain", 0));
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(editor.terrain.columns, 64);
    EXPECT_EQ(editor.terrain.rows, 300);
}

TEST_F(MainWindowTest, TerrainNewOpensTheSettingsAndOkCreatesTheTerrain) {
    ASSERT_TRUE(window->Startup(""));
    EXPECT_FALSE(Action("mnuTerrainSettings")->isEnabled());
    EXPECT_EQ(window->findChild<QMenu*>("mnuTerrain")->actions().first(), Action("mnuNewTerrain"));
    WhenShown<frmTeraSettings>(window.get(), [](frmTeraSettings& d) {
        d.optTeraStruct[0]->click();
        Click(d.btnMain[0]);
    });
    Action("mnuNewTerrain")->trigger();
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright - [Terrain]");
    EXPECT_EQ(window->Session().terrain.columns, 102);
    EXPECT_TRUE(Action("mnuTerrainSettings")->isEnabled());

    // With a terrain present "New" asks: No opens nothing, Yes removes it before the dialog opens.
    shell.answers = {Answer::No, Answer::Yes};
    Action("mnuNewTerrain")->trigger();
    EXPECT_TRUE(window->Session().terrain.terrainPresent);
    bool presentWhileOpen = true;
    WhenShown<frmTeraSettings>(window.get(), [&](frmTeraSettings& d) {
        presentWhileOpen = window->Session().terrain.terrainPresent;
        Click(d.btnMain[1]);
    });
    Action("mnuNewTerrain")->trigger();
    EXPECT_FALSE(presentWhileOpen);
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright");
}
