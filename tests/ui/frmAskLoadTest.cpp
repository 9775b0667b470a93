// The two terrain questions: only their buttons answer, and the box remembers the answer.
#include "frmAskLoad.h"

#include <QCheckBox>
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

QString ButtonText(const QWidget& dialog, const char* name) {
    return dialog.findChild<QPushButton*>(name)->text();
}

} // namespace

TEST(AskDialogs, CarryTheirCaptionsTextsAndButtons) {
    frmAskLoadTrackTerrain withTerrain(nullptr);
    frmAskLoadNoTerrain without(nullptr);
    const struct {
        const QDialog& dialog;
        QString title, first, second;
    } cases[] = {{withTerrain, "Track Contains Terrain Data...", "Load Tracks Terrain",
                  "Merge Track with Current Terrain"},
                 {without, "Track Does Not Have Terrain...", "Remove Terrain", "Keep Terrain"}};
    for (const auto& c : cases) {
        EXPECT_EQ(c.dialog.windowTitle(), c.title);
        EXPECT_EQ(ButtonText(c.dialog, "btnMain_0"), c.first) << c.title.toStdString();
        EXPECT_EQ(ButtonText(c.dialog, "btnMain_1"), c.second) << c.title.toStdString();
    }
    EXPECT_TRUE(withTerrain.findChild<QLabel*>("lblText")->text().startsWith(
        "This track already contains terrain data."));
    EXPECT_EQ(without.findChild<QCheckBox*>("chkDontAskAgain")->text(), "Don't Ask Me Again.");
    EXPECT_TRUE(without.isModal());
}

TEST(AskDialogs, EscapeAndClosingDoNotAnswerOnlyTheButtonsDo) {
    bool stillOpenAfterEscape = false;
    bool stillOpenAfterClose = false;
    AskResult result = RunWith<frmAskLoadNoTerrain>([&](frmAskLoadNoTerrain& d) {
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
    result = RunWith<frmAskLoadTrackTerrain>([](frmAskLoadTrackTerrain& d) {
        QTest::mouseClick(d.findChild<QPushButton*>("btnMain_0"), Qt::LeftButton);
    });
    EXPECT_EQ(result.button, 0) << "the first button answers zero";
    EXPECT_FALSE(result.dontAskAgain) << "without the box";
}
