// The options dialog over an editor with a scripted shell: what it shows and OK stores and writes,
// what Cancel leaves alone, the colour swatches and the tab labels.
#include "frmOptions.h"
#include "MainWindowFixture.h"

#include <filesystem>

namespace {

// Every preference the dialog edits, each following its own bits of code, so that over the codes 1,
// 2 and 4 no two of a kind take the same values; flip turns every one around. The colours are
// eighths of a byte step apart, so each shows as a whole byte and stores back unchanged.
AppSettings Preferences(int code, bool flip) {
    const auto on = [&](int bits) { return ((code & bits) != 0) != flip; };
    AppSettings s;
    s.askLoadTrackTerrain = on(1) ? 1 : 2;
    s.askLoadNoTerrain = on(2) ? 1 : 2;
    s.askImportOverwrite = on(4) ? 1 : 2;
    s.rmbrRecents = on(1), s.rmbrViews = on(2), s.rmbrTools = on(4);
    s.useWaterTrans = on(3), s.noLights = on(5);
    s.waterTrans = on(6) ? 0.5f : 1.0f; // opaque water puts the bar at its start, where it sends no change
    for (int i = 0; i < kStoredColourCount; ++i) {
        const float step = static_cast<float>(i) / 32.0f;
        s.colorTable[static_cast<std::size_t>(i)] =
            on(1 << (i % 3)) ? RgbColour{0.5f, step, 0.0f} : RgbColour{step, 0.5f, 0.25f};
    }
    DeriveShadedColours(s);
    return s;
}

} // namespace

using OptionsDialogTest = DialogTest<frmOptions>;

TEST_F(OptionsDialogTest, OkStoresAndWritesWhatEveryControlShows) {
    for (const int code : {1, 2, 4}) {
        editor.ApplySettings(Preferences(code, false));
        Open();
        EXPECT_EQ(dialog->lblWaterTrans->text(), code == 1 ? "0% Translucent" : "50% Translucent");
        editor.ApplySettings(Preferences(code, true)); // only the controls can carry the values to OK
        Click(dialog->btnOkay);
        EXPECT_EQ(editor.Settings(), Preferences(code, false)) << code;
        AppSettings reread;
        ASSERT_TRUE(LoadSettings(editor.SettingsPath(), reread));
        EXPECT_EQ(reread, editor.Settings());
    }
}

TEST_F(OptionsDialogTest, AChosenColourHoldsWithItsHalfShadeEvenWhenTheWriteFails) {
    std::filesystem::create_directory(editor.SettingsPath()); // a folder in the file's place
    shell.colourChoices = {ByteColour{128, 0, 0}, std::nullopt};
    Open();
    Click(dialog->lblColors[0]);
    Click(dialog->lblColors[4]);
    EXPECT_EQ(shell.colourDialogs, (std::vector<ByteColour>{{0, 0, 255}, {255, 0, 0}}))
        << "the picker starts at the swatch's colour";
    EXPECT_EQ(dialog->lblColors[0]->palette().color(QPalette::Window), QColor(128, 0, 0));
    Click(dialog->btnOkay);
    EXPECT_EQ(shell.messages.size(), 1u) << "the failed write is reported";
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(editor.Settings().colorTable[0], (RgbColour{0.5f, 0.0f, 0.0f}))
        << "the choice holds for this run";
    EXPECT_EQ(editor.Settings().colorTable[11], (RgbColour{0.25f, 0.0f, 0.0f}));
    EXPECT_EQ(editor.Settings().colorTable[4], (RgbColour{0.99609f, 0.0f, 0.0f}));
}

TEST_F(OptionsDialogTest, EachTabLabelShowsOnlyItsFrame) {
    Open();
    ASSERT_EQ(dialog->fmeTab.size(), 3u);
    ASSERT_EQ(dialog->lblMenu.size(), 3u);
    EXPECT_TRUE(dialog->fmeTab[0]->isVisible()) << "the first tab shows on opening";
    // Back to the first last, so a label that only works once is caught.
    for (const std::size_t pick : {2u, 1u, 0u}) {
        Click(dialog->lblMenu[pick]);
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_EQ(dialog->fmeTab[k]->isVisible(), k == pick) << pick << " " << k;
            EXPECT_EQ(dialog->lblMenu[k]->font().bold(), k == pick) << pick << " " << k;
        }
    }
}

TEST_F(OptionsDialogTest, CancelLeavesTheSettingsAndTheFileUntouched) {
    ASSERT_TRUE(editor.SaveSettings());
    const std::string fileBefore = ReadText(editor.SettingsPath());
    const AppSettings settingsBefore = editor.Settings();
    shell.colourChoices = {ByteColour{1, 2, 3}};
    Open();
    dialog->optAskImport[2]->click();
    dialog->chkNoLights->click();
    dialog->hsWaterTrans->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(dialog->lblWaterTrans->text(), "26% Translucent") << "the label follows the bar";
    Click(dialog->lblColors[5]);
    Click(dialog->btnCancel);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(editor.Settings(), settingsBefore);
    EXPECT_EQ(ReadText(editor.SettingsPath()), fileBefore);
}

TEST_F(OptionsDialogTest, TheKeyboardReachesEveryTab) {
    Open();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    const auto shown = [this] {
        for (std::size_t k = 0; k < dialog->fmeTab.size(); ++k)
            if (dialog->fmeTab[k]->isVisible()) return static_cast<int>(k);
        return -1;
    };
    QWidget* focus = dialog->optAskLoadTrackTerrain[0];
    focus->setFocus();
    const std::tuple<int, Qt::KeyboardModifiers, int> steps[] = {
        {Qt::Key_Tab, Qt::ControlModifier, 1},
        {Qt::Key_Tab, Qt::ControlModifier, 2},
        {Qt::Key_Tab, Qt::ControlModifier, 0}, // round again
        {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 2},
        {Qt::Key_PageUp, Qt::ControlModifier, 1},
        {Qt::Key_PageDown, Qt::ControlModifier, 2},
        {Qt::Key_Q, Qt::AltModifier, 0},
        {Qt::Key_C, Qt::AltModifier, 2},
        {Qt::Key_P, Qt::AltModifier, 1}};
    for (const auto& [key, modifiers, expected] : steps) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        EXPECT_EQ(shown(), expected) << key;
        EXPECT_TRUE(dialog->lblMenu[static_cast<std::size_t>(expected)]->font().bold());
    }
    EXPECT_TRUE(dialog->lblMenu[1]->text().startsWith("<u>P</u>"));
}
