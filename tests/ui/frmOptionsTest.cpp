// The options dialog over an editor with a scripted shell: what it shows, what OK stores and
// writes, what Cancel leaves alone, the colour swatches and the tab labels.
#include "frmOptions.h"
#include "Editor.h"
#include "MainWindowFixture.h"
#include "ScriptedShell.h"
#include "TestSupport.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace {

// Every preference the dialog edits, away from its start-up value.
AppSettings Changed() {
    AppSettings s;
    s.askLoadTrackTerrain = 2;
    s.askLoadNoTerrain = 1;
    s.askImportOverwrite = 2;
    s.rmbrRecents = s.rmbrTools = false;
    s.useWaterTrans = false;
    s.waterTrans = 0.5f;
    s.noLights = true;
    s.colorTable[3] = {1.0f, 0.5f, 0.0f};
    return s;
}

// Opaque water puts the bar at its start, where it sends no change of value.
AppSettings Opaque() {
    AppSettings s;
    s.waterTrans = 1.0f;
    return s;
}

QColor SwatchColour(const QLabel* swatch) {
    return swatch->palette().color(QPalette::Window);
}

} // namespace

class OptionsDialogTest : public ::testing::Test {
protected:
    ScratchFolder folder;
    ScriptedShell shell;
    Editor editor{shell, folder.Path().string()};
    std::unique_ptr<frmOptions> dialog;

    void SetUp() override { editor.InitPaths(); }
    void TearDown() override {
        shell.ExpectAllAnswersUsed();
        dialog.reset();
    }

    void Open() {
        dialog = std::make_unique<frmOptions>(editor, nullptr);
        dialog->show();
    }

    template <typename Widget> Widget* Child(const QString& name) const {
        return ::Child<Widget>(dialog.get(), name);
    }
    QRadioButton* Option(const char* name, int index) const {
        return Child<QRadioButton>(QString("%1_%2").arg(name).arg(index));
    }
    QLabel* Swatch(int index) const { return Child<QLabel>(QString("lblColors_%1").arg(index)); }
};

TEST_F(OptionsDialogTest, OpeningShowsTheCurrentSettings) {
    struct Case {
        AppSettings settings;
        int bar;
        QString label;
        QColor swatch3;
    };
    const Case cases[] = {{AppSettings{}, 25, "25% Translucent", QColor(255, 255, 0)},
                          {Changed(), 50, "50% Translucent", QColor(255, 128, 0)},
                          {Opaque(), 0, "0% Translucent", QColor(255, 255, 0)}};
    for (const Case& c : cases) {
        const AppSettings& settings = c.settings;
        editor.settings = settings;
        Open();
        EXPECT_TRUE(Option("optAskLoadTrackTerrain", settings.askLoadTrackTerrain)->isChecked());
        EXPECT_TRUE(Option("OptAskLoadNoTerrain", settings.askLoadNoTerrain)->isChecked());
        EXPECT_TRUE(Option("optAskImport", settings.askImportOverwrite)->isChecked());
        EXPECT_EQ(Child<QCheckBox>("chkSaveRecent")->isChecked(), settings.rmbrRecents);
        EXPECT_EQ(Child<QCheckBox>("chkSaveSettings")->isChecked(), settings.rmbrViews);
        EXPECT_EQ(Child<QCheckBox>("chkSaveTools")->isChecked(), settings.rmbrTools);
        EXPECT_EQ(Child<QCheckBox>("chkUseWaterTrans")->isChecked(), settings.useWaterTrans);
        EXPECT_EQ(Child<QCheckBox>("chkNoLights")->isChecked(), settings.noLights);
        EXPECT_EQ(Child<QScrollBar>("hsWaterTrans")->value(), c.bar);
        EXPECT_EQ(Child<QLabel>("lblWaterTrans")->text(), c.label);
        EXPECT_EQ(SwatchColour(Swatch(3)), c.swatch3);
        EXPECT_EQ(SwatchColour(Swatch(10)), QColor(51, 102, 128)) << "0.2, 0.4, 0.5 scaled by 255";
    }
    EXPECT_EQ(dialog->windowTitle(), "Landwright Options...");
    // Buttons 1 and 2 stand for the stored answers of the import's overwrite question.
    EXPECT_EQ(Option("optAskImport", 1)->text(), "Always Import The New Terrain");
    EXPECT_EQ(Option("optAskImport", 2)->text(), "Never Import The New Terrain");
}

TEST_F(OptionsDialogTest, OkStoresEveryControlAndWritesTheSettingsFile) {
    Open();
    Option("optAskLoadTrackTerrain", 1)->click();
    Option("OptAskLoadNoTerrain", 2)->click();
    Option("optAskImport", 1)->click();
    Child<QCheckBox>("chkSaveRecent")->click();
    Child<QCheckBox>("chkSaveTools")->click();
    Child<QCheckBox>("chkUseWaterTrans")->click();
    Child<QCheckBox>("chkNoLights")->click();
    auto* bar = Child<QScrollBar>("hsWaterTrans");
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(Child<QLabel>("lblWaterTrans")->text(), "26% Translucent") << "the label follows the bar";
    bar->setValue(40);
    EXPECT_EQ(Child<QLabel>("lblWaterTrans")->text(), "40% Translucent");
    EXPECT_FLOAT_EQ(editor.settings.waterTrans, 0.75f) << "nothing is stored before OK";
    Click(Child<QPushButton>("btnOkay"));

    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_FALSE(dialog->isVisible());
    const AppSettings& s = editor.settings;
    EXPECT_EQ(s.askLoadTrackTerrain, 1);
    EXPECT_EQ(s.askLoadNoTerrain, 2);
    EXPECT_EQ(s.askImportOverwrite, 1);
    EXPECT_FALSE(s.rmbrRecents);
    EXPECT_TRUE(s.rmbrViews);
    EXPECT_FALSE(s.rmbrTools);
    EXPECT_FALSE(s.useWaterTrans);
    EXPECT_TRUE(s.noLights);
    EXPECT_FLOAT_EQ(s.waterTrans, 0.6f);
    // The untouched track colour (0, 0, 1) went through its swatch: shown as 255, stored as 255 / 256.
    EXPECT_FLOAT_EQ(s.colorTable[0].b, 0.99609f);
    EXPECT_FLOAT_EQ(s.colorTable[11].b, s.colorTable[0].b / 2);

    AppSettings reread;
    ASSERT_TRUE(LoadSettings(editor.SettingsPath(), reread));
    EXPECT_EQ(reread, editor.settings);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(OptionsDialogTest, AChosenSwatchColourIsStoredOnOkWithItsHalfShadeACancelledOneNot) {
    shell.colourChoices = {ByteColour{128, 0, 0}, std::nullopt, ByteColour{0, 64, 255}};
    Open();
    for (const int swatch : {0, 4, 10})
        Click(Swatch(swatch));
    ASSERT_EQ(shell.colourDialogs.size(), 3u);
    EXPECT_EQ(shell.colourDialogs[0], (ByteColour{0, 0, 255})) << "the picker starts at the swatch's colour";
    EXPECT_EQ(shell.colourDialogs[2], (ByteColour{51, 102, 128}));
    EXPECT_EQ(SwatchColour(Swatch(0)), QColor(128, 0, 0));
    EXPECT_EQ(SwatchColour(Swatch(4)), QColor(255, 0, 0)) << "the picker was cancelled";
    EXPECT_EQ(SwatchColour(Swatch(10)), QColor(0, 64, 255));
    EXPECT_EQ(editor.settings.colorTable[0], DefaultColourTable()[0]) << "nothing is stored before OK";

    Click(Child<QPushButton>("btnOkay"));
    EXPECT_EQ(editor.settings.colorTable[0], (RgbColour{0.5f, 0.0f, 0.0f}));
    EXPECT_EQ(editor.settings.colorTable[11], (RgbColour{0.25f, 0.0f, 0.0f}));
    EXPECT_EQ(editor.settings.colorTable[4], (RgbColour{0.99609f, 0.0f, 0.0f}));
    EXPECT_EQ(editor.settings.colorTable[10], (RgbColour{0.0f, 0.25f, 0.99609f}));
    AppSettings reread;
    ASSERT_TRUE(LoadSettings(editor.SettingsPath(), reread));
    EXPECT_EQ(reread.colorTable[0], (RgbColour{0.5f, 0.0f, 0.0f}));
}

TEST_F(OptionsDialogTest, CancelLeavesTheSettingsAndTheFileUntouched) {
    ASSERT_TRUE(editor.SaveSettings());
    const std::string fileBefore = ReadText(editor.SettingsPath());
    const AppSettings settingsBefore = editor.settings;
    shell.colourChoices = {ByteColour{1, 2, 3}};
    Open();
    Option("optAskImport", 2)->click();
    Child<QCheckBox>("chkNoLights")->click();
    Child<QScrollBar>("hsWaterTrans")->setValue(90);
    Click(Swatch(5));
    Click(Child<QPushButton>("btnCancel"));

    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(editor.settings, settingsBefore);
    EXPECT_EQ(ReadText(editor.SettingsPath()), fileBefore);
}

TEST_F(OptionsDialogTest, AFailedWriteIsReportedAndTheDialogStillCloses) {
    // A folder in the file's place makes the write fail.
    std::filesystem::create_directory(editor.SettingsPath());
    Open();
    Child<QCheckBox>("chkNoLights")->click();
    Click(Child<QPushButton>("btnOkay"));
    ASSERT_EQ(shell.messages.size(), 1u);
    EXPECT_EQ(shell.messages[0].icon, MessageIcon::Critical);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_TRUE(editor.settings.noLights) << "the choice holds for this run";
}

TEST_F(OptionsDialogTest, ClickingATabLabelShowsOnlyItsFrame) {
    Open();
    const int tabs = static_cast<int>(dialog->lblMenu.size());
    ASSERT_EQ(tabs, static_cast<int>(dialog->fmeTab.size()));
    ASSERT_GE(tabs, 3);
    EXPECT_TRUE(Child<QFrame>("fmeTab_0")->isVisible()) << "the first tab shows on opening";
    // Back to the first last, so a label that only works once is caught.
    for (const int pick : {2, 1, 0}) {
        Click(Child<QLabel>(QString("lblMenu_%1").arg(pick)));
        for (int k = 0; k < tabs; ++k) {
            EXPECT_EQ(Child<QFrame>(QString("fmeTab_%1").arg(k))->isVisible(), k == pick) << pick << " " << k;
            EXPECT_EQ(Child<QLabel>(QString("lblMenu_%1").arg(k))->font().bold(), k == pick)
                << pick << " " << k;
        }
    }
}
