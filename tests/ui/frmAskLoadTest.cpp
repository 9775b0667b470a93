// The two terrain questions: only their buttons answer, and the box remembers the answer.
#include "frmAskLoad.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

// Runs the dialog and, once it is shown, lets the test act on it.
template <typename Dialog> AskResult RunWith(const std::function<void(Dialog&)>& act) {
    Dialog dialog(nullptr);
    QTimer::singleShot(0, &dialog, [&] { act(dialog); });
    return dialog.Run();
}

} // namespace

TEST(AskDialogs, CarryTheirCaptionsTextsAndButtons) {
    frmAskLoadTrackTerrain withTerrain(nullptr);
    EXPECT_EQ(withTerrain.windowTitle(), "Track Contains Terrain Data...");
    EXPECT_EQ(withTerrain.findChild<QPushButton*>("btnMain_0")->text(), "Load Tracks Terrain");
    EXPECT_EQ(withTerrain.findChild<QPushButton*>("btnMain_1")->text(), "Merge Track with Current Terrain");
    EXPECT_TRUE(withTerrain.findChild<QLabel*>("lblText")->text().startsWith("This track already contains terrain data."));
    frmAskLoadNoTerrain without(nullptr);
    EXPECT_EQ(without.windowTitle(), "Track Does Not Have Terrain...");
    EXPECT_EQ(without.findChild<QPushButton*>("btnMain_0")->text(), "Remove Terrain");
    EXPECT_EQ(without.findChild<QPushButton*>("btnMain_1")->text(), "Keep Terrain");
    EXPECT_EQ(without.findChild<QCheckBox*>("chkDontAskAgain")->text(), "Don't Ask Me Again.");
    EXPECT_TRUE(without.isModal());
}

TEST(AskDialogs, EscapeAndClosingDoNotAnswerOnlyTheButtonsDo) {
    bool stillOpenAfterEscape = false;
    bool stillOpenAfterClose = false;
    const AskResult result = RunWith<frmAskLoadNoTerrain>([&](frmAskLoadNoTerrain& d) {
        QTest::keyClick(&d, Qt::Key_Escape);
        stillOpenAfterEscape = d.isVisible();
        d.close();
        stillOpenAfterClose = d.isVisible();
        d.findChild<QCheckBox*>("chkDontAskAgain")->setChecked(true);
        QTest::mouseClick(d.findChild<QPushButton*>("btnMain_1"), Qt::LeftButton);
    });
    EXPECT_TRUE(stillOpenAfterEscape);
    EXPECT_TRUE(stillOpenAfterClose);
    EXPECT_EQ(result.button, 1);
    EXPECT_TRUE(result.dontAskAgain);
}

TEST(AskDialogs, TheFirstButtonAnswersZeroWithoutTheBox) {
    const AskResult result = RunWith<frmAskLoadTrackTerrain>(
        [](frmAskLoadTrackTerrain& d) { QTest::mouseClick(d.findChild<QPushButton*>("btnMain_0"), Qt::LeftButton); });
    EXPECT_EQ(result.button, 0);
    EXPECT_FALSE(result.dontAskAgain);
}
