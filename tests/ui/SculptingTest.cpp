// Editing as the user does it in the main window: strokes dragged in the view, the sculpt menus and
// bar kept in step, the editing keys, and the Adjust Height and Terrain Filter dialogs driven by
// their controls.
#include "MainWindowFixture.h"

#include "frmAdjustHeight.h"
#include "frmFilter.h"
#include "pbOpenGL.h"

namespace {

class SculptingTest : public MainWindowTest {
protected:
    float HeightUnderCursor() {
        Session().UpdateCursorHeight();
        return Session().Cursor().y;
    }

    // Presses the left button in the middle of the view, moves the pointer by dy pixels `moves`
    // times (each time from the centre, where the view puts the pointer back) and releases.
    void DragInView(int dy, int moves) {
        const QPoint centre(window->view->width() / 2, window->view->height() / 2);
        QTest::mousePress(window->view, Qt::LeftButton, {}, centre);
        for (int i = 0; i < moves; ++i) {
            const QPoint to = centre + QPoint(0, dy);
            QMouseEvent move(QEvent::MouseMove, to, window->view->mapToGlobal(to), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window->view, &move);
        }
        QTest::mouseRelease(window->view, Qt::LeftButton, {}, centre);
    }
};

} // namespace

TEST_F(SculptingTest, ACameraModeDragLooksAndLeavesTheTerrainAlone) {
    StartOnDemo();
    const HeightGrid before = Session().Terrain().heights;
    DragInView(-10, 3);
    EXPECT_EQ(Session().Terrain().heights, before);
    EXPECT_EQ(Session().History().UndoCount(), 0);
    EXPECT_GT(Session().Camera().pitch, 0.0f) << "and looks up";
}

TEST_F(SculptingTest, ATerrainModeDragIsOneUndoStepThatZUndoesAndXRedoes) {
    StartOnDemo();
    const HeightGrid before = Session().Terrain().heights;
    const float start = HeightUnderCursor();
    window->SetTerrainMode(true);
    Session().SetSculptMode(SculptMode::Absolute);
    DragInView(-10, 5); // five moves of 10 pixels up: 5 units in absolute mode
    EXPECT_NEAR(HeightUnderCursor(), std::min(start + 5.0f, 150.0f), 1e-3);
    EXPECT_FALSE(window->Sculpting() || window->MouseCaptured()) << "the release ends the stroke";
    EXPECT_TRUE(window->mnuUndo->isEnabled());
    EXPECT_EQ(Session().History().UndoCount(), 1) << "one press, one step";
    DragInView(20, 2); // down again
    EXPECT_EQ(Session().History().UndoCount(), 2);
    QTest::keyClicks(window->view, "zz");
    EXPECT_EQ(Session().Terrain().heights, before) << "Z undoes both strokes";
    EXPECT_FALSE(window->mnuUndo->isEnabled());
    EXPECT_TRUE(window->mnuRedo->isEnabled());
    QTest::keyClick(window->view, Qt::Key_X);
    EXPECT_NEAR(HeightUnderCursor(), std::min(start + 5.0f, 150.0f), 1e-3) << "X redoes the first stroke";
}

TEST_F(SculptingTest, TheAreaKeysRunTheirOwnOperationOnTheAreaUnderTheCursor) {
    StartOnDemo();
    Session().SetSculptSize(3);
    // Each key's heights match its command's on the same area.
    for (const auto& [key, command] :
         {std::pair{Qt::Key_F, &Editor::FlipArea}, std::pair{Qt::Key_M, &Editor::MirrorArea},
          std::pair{Qt::Key_I, &Editor::InvertArea}}) {
        (Session().*command)();
        const HeightGrid expected = Session().Terrain().heights;
        Session().Undo();
        QTest::keyClick(window->view, key);
        EXPECT_EQ(Session().Terrain().heights, expected) << QKeySequence(key).toString().toStdString();
    }
    EXPECT_EQ(Session().History().UndoCount(), 3) << "one step per key";
}

TEST_F(SculptingTest, CCopiesTheAreaAndVPastesItBack) {
    StartOnDemo();
    Session().SetSculptSize(3);
    EXPECT_FALSE(window->mnuPaste->isEnabled());
    QTest::keyClick(window->view, Qt::Key_C);
    EXPECT_TRUE(window->mnuPaste->isEnabled());
    EXPECT_EQ(Session().History().UndoCount(), 0) << "a copy is no edit";
    const HeightGrid hill = Session().Terrain().heights;
    window->mnuFlattenToGround->trigger();
    ASSERT_NE(Session().Terrain().heights, hill);
    QTest::keyClick(window->view, Qt::Key_V);
    EXPECT_EQ(Session().Terrain().heights, hill) << "the copied hill is back";
    EXPECT_EQ(Session().History().UndoCount(), 2);
}

TEST_F(SculptingTest, TheModeMenuTheBarAndTheRKeyAgree) {
    StartOnDemo();
    window->mnuSculptMode[1]->trigger();
    EXPECT_EQ(Session().Settings().sculptMode, 1);
    EXPECT_TRUE(window->optMove[1]->isChecked());
    window->optMove[0]->click();
    EXPECT_EQ(Session().Settings().sculptMode, 0);
    EXPECT_TRUE(window->mnuSculptMode[0]->isChecked());
    QTest::keyClick(window->view, Qt::Key_R);
    EXPECT_EQ(Session().Settings().sculptMode, 1) << "R toggles the mode";
    EXPECT_TRUE(window->mnuSculptMode[1]->isChecked());
}

TEST_F(SculptingTest, TheSizeMenuTheBarTheSliderAndTheDigitKeysAgree) {
    StartOnDemo();
    QTest::keyClick(window->view, Qt::Key_6);
    EXPECT_EQ(Session().Settings().sculptSize, 5);
    EXPECT_TRUE(window->optSize[5]->isChecked());
    window->optSize[1]->click();
    EXPECT_EQ(Session().Settings().sculptSize, 1);
    EXPECT_TRUE(window->mnuSculptSize[1]->isChecked());
    window->hsSculptSize->setValue(13);
    EXPECT_EQ(Session().Settings().sculptSize, 13) << "the slider sets the radius whichever size is ticked";
    EXPECT_EQ(window->lblSculptSize->text(), "13");
    EXPECT_TRUE(window->mnuSculptSize[1]->isChecked()) << "without ticking Custom";
    window->mnuSculptSize[3]->trigger();
    EXPECT_EQ(Session().Settings().sculptSize, 3);
    window->mnuSculptSize[6]->trigger();
    EXPECT_EQ(Session().Settings().sculptSize, 13) << "Custom takes the slider's radius";
    EXPECT_TRUE(window->optSize[6]->isChecked());
}

TEST_F(SculptingTest, TheNextStartShowsTheSculptSettingsLeft) {
    StartOnDemo();
    window->mnuSculptMode[1]->trigger();
    window->hsSculptSize->setValue(13);
    window->mnuSculptSize[6]->trigger();
    window->close(); // writes the settings file
    Restart();
    ASSERT_TRUE(window->Startup(""));
    EXPECT_TRUE(window->mnuSculptMode[1]->isChecked());
    EXPECT_TRUE(window->optMove[1]->isChecked());
    EXPECT_TRUE(window->mnuSculptSize[6]->isChecked());
    EXPECT_EQ(window->hsSculptSize->value(), 13);
}

TEST_F(SculptingTest, TheFilterDialogShowsPresetsTakesOnlyDigitsAndSumsTheAutomaticFactor) {
    StartOnDemo();
    frmFilter dialog(Session(), window.get());
    EXPECT_EQ(dialog.Matrix(), PresetMatrix(0)) << "opens on Soften Sharp Edges";
    dialog.lstPresets->setCurrentRow(5);
    EXPECT_EQ(dialog.Matrix(), PresetMatrix(5));
    QLineEdit* entry = dialog.txtMatrix[4];
    entry->clear();
    QTest::keyClicks(entry, "a1b2-");
    EXPECT_EQ(entry->text(), "12-") << "only digits and the minus sign";
    dialog.chkAutoFactor->setChecked(true);
    EXPECT_FALSE(dialog.txtFactor->isEnabled());
    entry->setText("4");
    EXPECT_EQ(dialog.txtFactor->text(), "0") << "the sum of the entries";
}

TEST_F(SculptingTest, TheFilterDialogStaysOpenOnAZeroFactorAndChangesNothing) {
    StartOnDemo();
    frmFilter dialog(Session(), window.get());
    dialog.chkAutoFactor->setChecked(false);
    dialog.txtFactor->setText("0");
    const HeightGrid before = Session().Terrain().heights;
    dialog.btnMain[0]->click();
    EXPECT_EQ(shell.messages.size(), 1u);
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_EQ(Session().Terrain().heights, before);
    EXPECT_FALSE(window->mnuUndo->isEnabled());
}

TEST_F(SculptingTest, TheFilterAppliesAroundTheCursorOrByDoubleClickOverTheWholeTerrain) {
    StartOnDemo();
    const HeightGrid before = Session().Terrain().heights;
    frmFilter dialog(Session(), window.get());
    dialog.chkEffectArea->setChecked(true);
    dialog.lstPresets->setCurrentRow(3); // raise features, only around the cursor
    dialog.btnMain[0]->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(Session().History().UndoCount(), 1);
    const HeightGrid& after = Session().Terrain().heights;
    EXPECT_EQ(after.At(0, 0), before.At(0, 0)) << "far from the cursor";
    EXPECT_NE(after, before);

    const HeightGrid filtered = after;
    frmFilter again(Session(), window.get());
    again.chkEffectArea->setChecked(false);
    again.lstPresets->setCurrentRow(4);
    emit again.lstPresets->itemDoubleClicked(again.lstPresets->item(4));
    EXPECT_EQ(again.result(), QDialog::Accepted);
    EXPECT_FLOAT_EQ(after.At(100, 3), std::max(-10.0f, filtered.At(100, 3) * 2.0f / 3.0f))
        << "lower features: 2/3, over the whole terrain";
    EXPECT_EQ(Session().History().UndoCount(), 2);
}

TEST_F(SculptingTest, AdjustHeightCancelledChangesNothing) {
    StartOnDemo();
    const HeightGrid before = Session().Terrain().heights;
    frmAdjustHeight cancelled(Session(), window.get());
    cancelled.txtHeight->setText("7");
    cancelled.optMode[2]->setChecked(true);
    cancelled.btnCancel->click();
    EXPECT_EQ(Session().Terrain().heights, before);
    EXPECT_EQ(Session().History().UndoCount(), 0);
}

TEST_F(SculptingTest, AdjustHeightLowersByTheTypedDigits) {
    StartOnDemo();
    const HeightGrid before = Session().Terrain().heights;
    frmAdjustHeight adjust(Session(), window.get());
    adjust.txtHeight->clear();
    QTest::keyClicks(adjust.txtHeight, "2x5");
    EXPECT_EQ(adjust.txtHeight->text(), "25") << "letters cannot be typed";
    adjust.optMode[1]->setChecked(true);
    adjust.btnOkay->click();
    EXPECT_EQ(Session().Terrain().heights.At(10, 10), std::max(before.At(10, 10) - 25.0f, -10.0f));
    EXPECT_EQ(Session().History().UndoCount(), 1);
}
