// The two terrain questions: only their buttons answer, and the box remembers the answer.
#include "frmAskLoad.h"

#include <QCheckBox>
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

TEST(AskDialogs, OnlyTheButtonsAnswerNeitherEscapeNorClosing) {
    bool stillOpen = false;
    AskResult result = RunWith<frmAskLoadNoTerrain>([&](frmAskLoadNoTerrain& d) {
        QTest::keyClick(&d, Qt::Key_Escape);
        d.close();
        stillOpen = d.isVisible();
        d.chkDontAskAgain->setChecked(true);
        // The editor reads answer 1 as keeping the terrain.
        EXPECT_EQ(d.btnMain[1]->text(), "Keep Terrain");
        QTest::mouseClick(d.btnMain[1], Qt::LeftButton);
    });
    EXPECT_TRUE(stillOpen);
    EXPECT_EQ(result.button, 1);
    EXPECT_TRUE(result.dontAskAgain);
    result = RunWith<frmAskLoadTrackTerrain>([](frmAskLoadTrackTerrain& d) {
        EXPECT_EQ(d.btnMain[0]->text(), "Load Tracks Terrain");
        QTest::mouseClick(d.btnMain[0], Qt::LeftButton);
    });
    EXPECT_EQ(result.button, 0);
    EXPECT_FALSE(result.dontAskAgain) << "without the box";
}
