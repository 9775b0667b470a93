// Flying and steering as the user does it: keys held in the view, the mode switch, mouse-look,
// cursor drags and the position labels.
#include "MainWindowFixture.h"

#include "pbOpenGL.h"

#include "TerrainGrid.h"

#include <algorithm>
#include <filesystem>

TEST_F(MainWindowTest, AHeldKeyFliesAtOnceAndUntilItIsReleased) {
    StartOnDemo();
    Editor& editor = Session();
    const CameraState start = editor.Camera();
    QTest::keyPress(window->view, Qt::Key_W);
    EXPECT_TRUE(window->tmrKeyboard->isActive());
    EXPECT_NEAR(editor.Camera().z, start.z - 1.0f, 1e-4) << "a press moves one step at once";
    WaitFor([&] { return editor.Camera().z < start.z - 5.0f; }, 3000);
    QTest::keyRelease(window->view, Qt::Key_W);
    EXPECT_LT(editor.Camera().z, start.z - 5.0f) << "holding W keeps flying forward";
    EXPECT_TRUE(WaitFor([&] { return !window->tmrKeyboard->isActive(); }, 1000))
        << "the timer stops with no key held";
    EXPECT_NEAR(window->lblCameraPos[2]->text().toDouble(), editor.Camera().z, 0.005) << "the label follows";
}

TEST_F(MainWindowTest, SpaceSwitchesTheModeOncePerPressAndReturnBringsTheCursorIntoView) {
    StartOnDemo();
    Editor& editor = Session();
    QTest::keyClick(window->view, Qt::Key_Space);
    EXPECT_TRUE(window->TerrainMode());
    EXPECT_TRUE(window->optMode[1]->isChecked());
    QTest::keyClick(window->view, Qt::Key_Space);
    EXPECT_FALSE(window->TerrainMode());
    editor.SetCamera({100.0f, editor.Camera().y, 40.0f, editor.Camera().pitch, 0.0f, 0.0f});
    QTest::keyClick(window->view, Qt::Key_Return);
    EXPECT_NEAR(editor.Cursor().x, 100.0f, 1e-4);
    EXPECT_NEAR(editor.Cursor().z, -10.0f, 1e-4);
    EXPECT_EQ(window->lblCursorPos[2]->text(), "-010.00");
}

TEST_F(MainWindowTest, FlyingDownStopsFiveUnitsAboveTheGroundWhenAskedTo) {
    StartOnDemo();
    Editor& editor = Session();
    editor.SetViewSwitch(ViewSwitch::StayAbove, true);
    CameraState low = editor.Camera();
    low.y = 6.0f;
    editor.SetCamera(low);
    for (int i = 0; i < 20; ++i)
        window->KeyboardTick(), QTest::keyPress(window->view, Qt::Key_PageDown);
    QTest::keyRelease(window->view, Qt::Key_PageDown);
    const float ground = HeightUnder(editor.Terrain(), editor.Camera().x, editor.Camera().z);
    EXPECT_EQ(editor.Camera().y, std::max(ground + 5.0f, 5.0f));
}

TEST_F(MainWindowTest, TheLeftButtonLooksTheRightButtonFliesAndOneReleaseLetsGo) {
    StartOnDemo();
    Editor& editor = Session();
    window->ViewMousePress(Qt::LeftButton);
    EXPECT_TRUE(window->MouseCaptured());
    EXPECT_FALSE(window->tmrMouseMove->isActive()) << "the left button alone only looks";
    window->ViewMouseDelta(40, -20);
    EXPECT_FLOAT_EQ(editor.Camera().yaw, -10.0f) << "right turns right";
    EXPECT_FLOAT_EQ(editor.Camera().pitch, 5.0f) << "up looks up";
    for (int i = 0; i < 2; ++i) {
        window->ViewMouseRelease(Qt::NoButton);
        EXPECT_FALSE(window->MouseCaptured()) << "release " << i + 1;
    }
    window->ViewMousePress(Qt::RightButton);
    EXPECT_TRUE(window->tmrMouseMove->isActive());
    const CameraState before = editor.Camera();
    window->MouseMoveTick();
    EXPECT_NE(editor.Camera().x, before.x) << "the right button flies along the view";
    window->ViewMouseRelease(Qt::NoButton);
    EXPECT_FALSE(window->tmrMouseMove->isActive());
}

TEST_F(MainWindowTest, InTerrainModeTheRightButtonDragsTheCursor) {
    StartOnDemo();
    Editor& editor = Session();
    window->SetTerrainMode(true);
    CameraState north = editor.Camera();
    north.yaw = 0.0f;
    editor.SetCamera(north);
    editor.MoveCursorTo(0.0f, 0.0f);
    window->ViewMousePress(Qt::RightButton);
    EXPECT_FALSE(window->tmrMouseMove->isActive());
    window->ViewMouseDelta(10, -20);
    window->ViewMouseRelease(Qt::NoButton);
    EXPECT_FLOAT_EQ(editor.Cursor().x, 5.0f) << "right in the view is +x when facing -z";
    EXPECT_FLOAT_EQ(editor.Cursor().z, -10.0f) << "up in the view is away from the camera";
    EXPECT_EQ(window->lblCursorPos[0]->text(), "005.00");
}

TEST_F(MainWindowTest, EveryViewSwitchChangesThePicture) {
    std::filesystem::create_directory_symlink(std::string(LW_BIN_DIR) + "/teratextures",
                                              home.File("teratextures"));
    StartOnDemo();
    Session().SetCamera({0.0f, 330.0f, 480.0f, -38.0f, 0.0f, 0.0f});
    Session().SetViewSwitch(ViewSwitch::Guidelines, false);
    window->UpdateUI();
    auto frame = [&] { return window->view->grabFramebuffer(); };
    for (const char* name :
         {"mnuViewTerrain", "mnuViewWater", "mnuViewTextures", "mnuViewTrack", "mnuViewSupports",
          "mnuViewGuidelines", "mnuViewTrees", "mnuClipTerrain", "mnuViewSkybox"}) {
        const QImage before = frame();
        Action(name)->trigger();
        EXPECT_NE(frame(), before) << name;
        Action(name)->trigger();
        EXPECT_EQ(frame(), before) << name << " back again";
    }
}
