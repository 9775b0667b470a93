// What the window tells a new user: the hint over the empty view, the status bar's mode help,
// brush size and height under the cursor, every key listed in the shortcut dialog, the usual
// editing keys and the tools that cannot be chosen.
#include "MainWindowFixture.h"

#include "frmKeyboardShortcuts.h"
#include "pbOpenGL.h"

#include <QTableWidget>

#include <filesystem>

TEST_F(MainWindowTest, TheEmptyViewSaysHowToBeginUntilThereIsSomethingToShow) {
    ASSERT_TRUE(window->Startup(""));
    EXPECT_TRUE(window->lblEmptyHint->isVisible());
    EXPECT_TRUE(window->lblEmptyHint->text().contains("File > Open"));
    EXPECT_TRUE(window->lblEmptyHint->text().contains("Terrain > New"));
    EXPECT_EQ(window->lblStatusHeight->text(), "Height: no terrain");
    Session().OpenTrack(DemoTrack());
    EXPECT_FALSE(window->lblEmptyHint->isVisible()) << "a track is open";
    shell.answers = {Answer::Yes, Answer::Yes};
    window->mnuDeleteTerrain->trigger();
    window->mnuRemoveTrack->trigger();
    EXPECT_TRUE(window->lblEmptyHint->isVisible()) << "nothing left to show";
}

TEST_F(MainWindowTest, TheStatusBarExplainsTheModeAndTheBrushSize) {
    StartOnDemo();
    EXPECT_TRUE(window->lblStatusMode->text().startsWith("Camera Move Mode: left-drag looks around"));
    QTest::keyClick(window->view, Qt::Key_Space);
    EXPECT_EQ(window->lblStatusMode->text(),
              "Terrain Edit Mode: left-drag raises or lowers, right-drag moves "
              "the cursor, Enter brings the cursor into view");
    window->mnuSculptSize[3]->trigger();
    EXPECT_EQ(window->lblStatusBrush->text(), "Brush radius 3 (7 x 7)");
    window->hsSculptSize->setValue(13);
    EXPECT_EQ(window->lblStatusBrush->text(), "Brush radius 13 (27 x 27)");
}

TEST_F(MainWindowTest, TheStatusBarHeightFollowsTheCursorAndTheSculpting) {
    StartOnDemo();
    // West of x = 0 the ground is at 12.5, east of it at 30.25.
    Session().RunEdit([](TerrainData& terrain) {
        for (int row = 0; row < terrain.heights.Rows(); ++row)
            for (int column = 0; column < terrain.heights.Columns(); ++column)
                terrain.heights.At(row, column) = column < terrain.heights.Columns() / 2 ? 12.5f : 30.25f;
        return GridRect::Whole();
    });
    window->SetTerrainMode(true);
    Session().SetSculptMode(SculptMode::Absolute);
    Session().SetSculptSize(0);
    CameraState camera = Session().Camera();
    camera.yaw = 0.0f;
    Session().SetCamera(camera);
    Session().MoveCursorTo(-100.0f, 0.0f);
    window->UpdatePositionLabels();
    EXPECT_EQ(window->lblStatusHeight->text(), "Height: 12.50");
    window->ViewMousePress(Qt::RightButton);
    window->ViewMouseDelta(400, 0); // 200 units to the right, facing -z: east
    window->ViewMouseRelease(Qt::NoButton);
    EXPECT_EQ(window->lblStatusHeight->text(), "Height: 30.25") << "follows the cursor";
    window->ViewMousePress(Qt::LeftButton);
    window->ViewMouseDelta(0, -20); // two units up in absolute mode
    EXPECT_EQ(window->lblStatusHeight->text(), "Height: 32.25") << "follows the sculpting";
    window->ViewMouseRelease(Qt::NoButton);
}

TEST_F(MainWindowTest, TheUsualControlKeysUndoRedoCopyPasteAndSave) {
    const std::string track = home.File("edit.cvtrack");
    std::filesystem::copy_file(DemoTrack(), track);
    ASSERT_TRUE(window->Startup(QString::fromStdString(track)));
    Session().MoveCursorTo(40.0f, -60.0f);
    Activate();
    window->view->setFocus();
    Session().SetSculptSize(2);
    Session().SetSculptMode(SculptMode::Absolute);
    const HeightGrid before = Session().Terrain().heights;
    Session().BeginStroke();
    Session().StrokeMove(-30);
    const HeightGrid raised = Session().Terrain().heights;
    QTest::keyClick(kKeyboard, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Session().Terrain().heights, before) << "Ctrl+Z undoes";
    QTest::keyClick(kKeyboard, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Session().Terrain().heights, raised) << "Ctrl+Y redoes";
    QTest::keyClick(kKeyboard, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(kKeyboard, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Session().Terrain().heights, raised) << "Ctrl+Shift+Z redoes";
    EXPECT_FALSE(window->mnuPaste->isEnabled());
    QTest::keyClick(kKeyboard, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(window->mnuPaste->isEnabled()) << "Ctrl+C copies";
    const int steps = Session().History().UndoCount();
    QTest::keyClick(kKeyboard, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Session().History().UndoCount(), steps + 1) << "Ctrl+V pastes";
    QTest::keyClick(kKeyboard, Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(Session().Terrain().terrainChanged) << "Ctrl+S saves";
    EXPECT_NE(ReadText(track), ReadText(DemoTrack())) << "with the pasted heights";
}

TEST_F(MainWindowTest, NoMenuKeyRepeatsWhileHeldAndTheShortcutListNamesEveryOne) {
    frmKeyboardShortcuts dialog(window.get());
    QStringList listed;
    for (int row = 0; row < dialog.lstShortcuts->rowCount(); ++row)
        listed << dialog.lstShortcuts->item(row, 0)->text().split(' ', Qt::SkipEmptyParts);
    for (QAction* action : window->findChildren<QAction*>()) {
        EXPECT_TRUE(action->shortcuts().isEmpty() || !action->autoRepeat())
            << action->objectName().toStdString();
        for (const QKeySequence& key : action->shortcuts())
            EXPECT_TRUE(listed.contains(key.toString())) << key.toString().toStdString();
    }
}

TEST_F(MainWindowTest, ToolsThatChangeNothingCannotBeChosenNorComeBackFromTheSettings) {
    WriteText(home.File("CorvantaLandwright.ini"), "[General]\r\nRmbrTools=True\r\n"
                                                   "[Tools]\r\nSculptTool=2\r\nSculptSize=3\r\n");
    ASSERT_TRUE(window->Startup(QString::fromStdString(DemoTrack())));
    EXPECT_EQ(Session().Settings().sculptTool, 0) << "a stored curve tool falls back to the square tool";
    EXPECT_EQ(Session().Settings().sculptSize, 3) << "the rest of the file is read";
    EXPECT_TRUE(window->mnuSculptTool[0]->isChecked());
    EXPECT_TRUE(window->mnuSculptTool[0]->isEnabled());
    for (std::size_t i : {1u, 2u}) {
        EXPECT_FALSE(window->mnuSculptTool[i]->isEnabled());
        window->mnuSculptTool[i]->trigger();
        EXPECT_EQ(Session().Settings().sculptTool, 0);
    }
}
