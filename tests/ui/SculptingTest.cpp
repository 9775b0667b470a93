// Editing as the user does it in the main window: strokes dragged in the view, the sculpt menus and
// bar kept in step, the editing keys, and the Adjust Height and Terrain Filter dialogs driven by
// their controls.
#include "MainWindowFixture.h"

#include "frmAdjustHeight.h"
#include "frmFilter.h"
#include "pbOpenGL.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <QToolButton>

namespace {

class SculptingTest : public MainWindowTest {
protected:
    void StartOnDemo() {
        MainWindowTest::StartOnDemo();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        Session().cursor = {40.0f, 0.0f, -60.0f};
    }

    float HeightUnderCursor() {
        Session().UpdateCursorHeight();
        return Session().cursor.y;
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

TEST_F(SculptingTest, DraggingLooksAroundInCameraModeAndRaisesTheGroundAsOneUndoStepInTerrainMode) {
    StartOnDemo();
    EXPECT_FALSE(Action("mnuUndo")->isEnabled());
    const HeightGrid before = Session().terrain.heights;
    DragInView(-10, 3);
    EXPECT_EQ(Session().terrain.heights, before) << "camera mode leaves the terrain alone";
    EXPECT_EQ(Session().undo.UndoCount(), 0);
    EXPECT_GT(Session().camera.pitch, 0.0f) << "and looks up";
    const float start = HeightUnderCursor();
    window->SetTerrainMode(true);
    Session().settings.sculptMode = 1;
    DragInView(-10, 5); // five moves of 10 pixels up: 5 units in absolute mode
    EXPECT_NEAR(HeightUnderCursor(), std::min(start + 5.0f, 150.0f), 1e-3);
    EXPECT_FALSE(window->Sculpting());
    EXPECT_FALSE(window->MouseCaptured());
    EXPECT_TRUE(Action("mnuUndo")->isEnabled());
    EXPECT_EQ(Session().undo.UndoCount(), 1) << "one press, one step";
    EXPECT_TRUE(Session().terrain.terrainChanged);
    EXPECT_EQ(Session().mesh.Vertex(102, 102).y, Session().terrain.heights.At(102, 102));
    DragInView(20, 2); // down again
    EXPECT_EQ(Session().undo.UndoCount(), 2);
    QTest::keyClick(window->view, Qt::Key_Z);
    QTest::keyClick(window->view, Qt::Key_Z);
    EXPECT_EQ(Session().terrain.heights, before) << "Z undoes both strokes";
    EXPECT_FALSE(Action("mnuUndo")->isEnabled());
    EXPECT_TRUE(Action("mnuRedo")->isEnabled());
    QTest::keyClick(window->view, Qt::Key_X);
    EXPECT_NEAR(HeightUnderCursor(), std::min(start + 5.0f, 150.0f), 1e-3) << "X redoes the first stroke";
}

TEST_F(SculptingTest, MenusBarAndKeysKeepTheSculptSettingsInStep) {
    StartOnDemo();
    Action("mnuSculptMode_1")->trigger();
    EXPECT_EQ(Session().settings.sculptMode, 1);
    EXPECT_TRUE(Child<QToolButton>(window.get(), "optMove_1")->isChecked());
    Child<QToolButton>(window.get(), "optMove_0")->click();
    EXPECT_EQ(Session().settings.sculptMode, 0);
    EXPECT_TRUE(Action("mnuSculptMode_0")->isChecked());
    QTest::keyClick(window->view, Qt::Key_R);
    EXPECT_EQ(Session().settings.sculptMode, 1) << "R toggles the mode";
    EXPECT_TRUE(Action("mnuSculptMode_1")->isChecked());

    QTest::keyClick(window->view, Qt::Key_6);
    EXPECT_EQ(Session().settings.sculptSize, 5);
    EXPECT_TRUE(Child<QToolButton>(window.get(), "optSize_5")->isChecked());
    EXPECT_EQ(Child<QToolButton>(window.get(), "optSize_5")->toolTip(), "Effect Area: Gigantic");
    Child<QToolButton>(window.get(), "optSize_1")->click();
    EXPECT_EQ(Session().settings.sculptSize, 1);
    EXPECT_TRUE(Action("mnuSculptSize_1")->isChecked());

    auto* slider = Child<QSlider>(window.get(), "hsSculptSize");
    slider->setValue(13);
    EXPECT_EQ(Session().settings.sculptSize, 13) << "the slider sets the radius whichever size is ticked";
    EXPECT_EQ(Child<QLabel>(window.get(), "lblSculptSize")->text(), "13");
    EXPECT_TRUE(Action("mnuSculptSize_1")->isChecked()) << "without ticking Custom";
    Action("mnuSculptSize_3")->trigger();
    EXPECT_EQ(Session().settings.sculptSize, 3);
    Action("mnuSculptSize_6")->trigger();
    EXPECT_EQ(Session().settings.sculptSize, 13) << "Custom takes the slider's radius";
    EXPECT_TRUE(Child<QToolButton>(window.get(), "optSize_6")->isChecked());

    Action("mnuSculptTool_2")->trigger();
    EXPECT_EQ(Session().settings.sculptTool, 2);
    EXPECT_FALSE(Action("mnuSculptTool_0")->isChecked());
}

TEST_F(SculptingTest, TheSculptSettingsComeBackOnTheNextStart) {
    window->close(); // writes the settings file
    WriteText(
        home.File("CorvantaLandwright.ini"),
        ";x\r\n[General]\r\nRmbrTools=True\r\n[Tools]\r\nSculptTool=1\r\nSculptMode=1\r\nSculptSize=12\r\n");
    Restart();
    ASSERT_TRUE(window->Startup(""));
    EXPECT_TRUE(Action("mnuSculptTool_1")->isChecked());
    EXPECT_TRUE(Action("mnuSculptMode_1")->isChecked());
    EXPECT_TRUE(Child<QToolButton>(window.get(), "optMove_1")->isChecked());
    EXPECT_TRUE(Action("mnuSculptSize_6")->isChecked());
    EXPECT_EQ(Child<QSlider>(window.get(), "hsSculptSize")->value(), 12);
    Action("mnuSculptSize_2")->trigger();
    window->close();
    EXPECT_NE(ReadText(home.File("CorvantaLandwright.ini")).find("SculptSize=2"), std::string::npos);
}

TEST_F(SculptingTest, EditingKeysAndToolsEntriesActOnTheAreaUnderTheCursor) {
    StartOnDemo();
    Session().settings.sculptSize = 3;
    const HeightGrid before = Session().terrain.heights;
    QTest::keyClick(window->view, Qt::Key_F);
    EXPECT_NE(Session().terrain.heights, before);
    QTest::keyClick(window->view, Qt::Key_F);
    EXPECT_EQ(Session().terrain.heights, before) << "flipping twice restores the area";
    QTest::keyClick(window->view, Qt::Key_M);
    QTest::keyClick(window->view, Qt::Key_M);
    QTest::keyClick(window->view, Qt::Key_I);
    EXPECT_EQ(Session().undo.UndoCount(), 5);
    EXPECT_FALSE(Action("mnuPaste")->isEnabled());
    QTest::keyClick(window->view, Qt::Key_C);
    EXPECT_TRUE(Action("mnuPaste")->isEnabled());
    Action("mnuFlattenToGround")->trigger();
    EXPECT_EQ(HeightUnderCursor(), Session().terrain.waterEnabled ? 0.5f : 0.0f);
    QTest::keyClick(window->view, Qt::Key_V);
    EXPECT_NE(HeightUnderCursor(), Session().terrain.waterEnabled ? 0.5f : 0.0f) << "the copied hill is back";
    EXPECT_EQ(Session().undo.UndoCount(), 7);
}

TEST_F(SculptingTest, ResetAndTheEditingEntriesNeedATerrain) {
    ASSERT_TRUE(window->Startup(""));
    for (const char* name :
         {"mnuCopy", "mnuFlip", "mnuMirror", "mnuInvert", "mnuFlatten", "mnuFlattenToGround",
          "mnuFlattenToWater", "mnuAdjustHeight", "mnuFilter", "mnuReset", "mnuUndo", "mnuRedo"})
        EXPECT_FALSE(Action(name)->isEnabled()) << name;
    Session().OpenTrack(DemoTrack());
    EXPECT_TRUE(Action("mnuReset")->isEnabled());
    shell.answers.push_back(Answer::No);
    Action("mnuReset")->trigger();
    EXPECT_FALSE(Action("mnuUndo")->isEnabled()) << "a refused reset leaves nothing to undo";
}

TEST_F(SculptingTest, AdjustHeightAppliesTheChosenModeAndCancelChangesNothing) {
    StartOnDemo();
    const HeightGrid before = Session().terrain.heights;
    {
        frmAdjustHeight dialog(Session(), window.get());
        Child<QLineEdit>(&dialog, "txtHeight")->setText("7");
        Child<QRadioButton>(&dialog, "optMode_2")->setChecked(true);
        Child<QPushButton>(&dialog, "btnCancel")->click();
    }
    EXPECT_EQ(Session().terrain.heights, before);
    EXPECT_FALSE(Action("mnuUndo")->isEnabled());
    frmAdjustHeight dialog(Session(), window.get());
    EXPECT_EQ(dialog.windowTitle(), "Adjust Height");
    EXPECT_EQ(Child<QRadioButton>(&dialog, "optMode_1")->text(), "Lower by this ammount");
    auto* height = Child<QLineEdit>(&dialog, "txtHeight");
    height->clear();
    QTest::keyClicks(height, "2x5");
    EXPECT_EQ(height->text(), "25") << "letters cannot be typed";
    Child<QRadioButton>(&dialog, "optMode_1")->setChecked(true);
    Child<QPushButton>(&dialog, "btnOkay")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(Session().terrain.heights.At(10, 10), std::max(before.At(10, 10) - 25.0f, -10.0f));
    EXPECT_TRUE(Action("mnuUndo")->isEnabled());
}

TEST_F(SculptingTest,
       TheFilterDialogLoadsPresetsFiltersKeysRefusesAZeroFactorAndAppliesADoubleClickedPreset) {
    StartOnDemo();
    frmFilter dialog(Session(), window.get());
    EXPECT_EQ(dialog.windowTitle(), "Terrain Filter...");
    EXPECT_EQ(dialog.Matrix(), PresetMatrix(0)) << "opens on Soften Sharp Edges";
    auto* presets = Child<QListWidget>(&dialog, "lstPresets");
    ASSERT_EQ(presets->count(), 6);
    presets->setCurrentRow(5);
    EXPECT_EQ(dialog.Matrix(), PresetMatrix(5));
    EXPECT_EQ(Child<QLineEdit>(&dialog, "txtMatrix_1")->text(), "-1");

    auto* entry = Child<QLineEdit>(&dialog, "txtMatrix_4");
    entry->clear();
    QTest::keyClicks(entry, "a1b2-");
    EXPECT_EQ(entry->text(), "12-") << "only digits and the minus sign";
    auto* automatic = Child<QCheckBox>(&dialog, "chkAutoFactor");
    automatic->setChecked(true);
    EXPECT_FALSE(Child<QLineEdit>(&dialog, "txtFactor")->isEnabled());
    EXPECT_EQ(Child<QLineEdit>(&dialog, "txtFactor")->text(), "6") << "ticking alone does not recompute";
    entry->setText("4");
    EXPECT_EQ(Child<QLineEdit>(&dialog, "txtFactor")->text(), "0") << "the sum of the entries";

    const HeightGrid before = Session().terrain.heights;
    Child<QPushButton>(&dialog, "btnMain_0")->click();
    ASSERT_EQ(shell.messages.size(), 1u);
    EXPECT_EQ(shell.messages[0].title, "Warning");
    EXPECT_EQ(dialog.result(), 0) << "the dialog stays open";
    EXPECT_EQ(Session().terrain.heights, before);
    EXPECT_FALSE(Action("mnuUndo")->isEnabled());

    automatic->setChecked(false);
    Child<QCheckBox>(&dialog, "chkEffectArea")->setChecked(true);
    presets->setCurrentRow(3); // raise features, only around the cursor
    Child<QPushButton>(&dialog, "btnMain_0")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(Session().undo.UndoCount(), 1);
    const HeightGrid& after = Session().terrain.heights;
    EXPECT_EQ(after.At(0, 0), before.At(0, 0)) << "far from the cursor";
    EXPECT_NE(after, before);

    const HeightGrid filtered = after;
    frmFilter again(Session(), window.get());
    auto* list = Child<QListWidget>(&again, "lstPresets");
    Child<QCheckBox>(&again, "chkEffectArea")->setChecked(false);
    list->setCurrentRow(4);
    emit list->itemDoubleClicked(list->item(4));
    EXPECT_EQ(again.result(), QDialog::Accepted) << "a double-click applies the preset";
    EXPECT_FLOAT_EQ(after.At(100, 3), std::max(-10.0f, filtered.At(100, 3) * 2.0f / 3.0f))
        << "lower features: 2/3, over the whole terrain";
    EXPECT_EQ(Session().undo.UndoCount(), 2);
}
