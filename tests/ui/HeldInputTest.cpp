// Held keys and buttons when the view loses the keyboard (a menu, another window), the keyboard
// after a menu is closed with Esc, and movement measured in time rather than in ticks.
#include "MainWindowFixture.h"

#include "pbOpenGL.h"

namespace {

class HeldInputTest : public MainWindowTest {
protected:
    double now = 1000.0; // the step clock, in seconds, moved by hand

    void StartLevel() {
        window->SetStepClock([this] { return now; });
        StartOnDemo();
        AppSettings settings = Session().Settings();
        settings.stayAbove = false;
        Session().ApplySettings(settings);
        Session().SetCamera({0.0f, 100.0f, 0.0f, 0.0f, 0.0f, 0.0f}); // level, looking along -z
        window->view->setFocus();
        ASSERT_TRUE(WaitFor([&] { return window->view->hasFocus(); }));
    }

    // Another window of the program takes the keyboard, then goes away.
    void ShowOtherWindow(const std::function<void()>& whileShown) {
        QDialog other; // a window of its own: a child dialog counts as active while its parent is
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        whileShown();
        other.close();
        Activate();
        window->view->setFocus();
        ASSERT_TRUE(WaitFor([&] { return window->view->hasFocus(); }));
    }
};

} // namespace

TEST_F(HeldInputTest, AKeyReleasedInAnOpenMenuCountsAsReleased) {
    StartLevel();
    QTest::keyPress(kKeyboard, Qt::Key_W);
    ASSERT_TRUE(window->tmrKeyboard->isActive());
    QMenuBar* bar = window->menuBar();
    auto* file = Child<QMenu>(window.get(), "mnuFile");
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(file->menuAction()).center());
    ASSERT_TRUE(WaitFor([&] { return file->isVisible(); }));
    EXPECT_FALSE(window->tmrKeyboard->isActive()) << "the open menu took the keyboard";
    QTest::keyRelease(kKeyboard, Qt::Key_W); // the menu hears this release, not the view
    QTest::keyClick(kKeyboard, Qt::Key_Escape);
    ASSERT_TRUE(WaitFor([&] { return !file->isVisible() && window->view->hasFocus(); }))
        << "the keyboard goes back to the view";
    EXPECT_FALSE(window->tmrKeyboard->isActive());
    const float z = Session().Camera().z;
    now += 0.040;
    window->KeyboardTick();
    EXPECT_EQ(Session().Camera().z, z) << "W counts as released";
}

TEST_F(HeldInputTest, TheFirstKeyAfterAMenuClosedByEscReachesTheView) {
    StartLevel();
    QMenuBar* bar = window->menuBar();
    auto* file = Child<QMenu>(window.get(), "mnuFile");
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(file->menuAction()).center());
    ASSERT_TRUE(WaitFor([&] { return file->isVisible(); }));
    QTest::keyClick(kKeyboard, Qt::Key_Escape);
    ASSERT_TRUE(WaitFor([&] { return !file->isVisible() && window->view->hasFocus(); }));
    QTest::keyClick(kKeyboard, Qt::Key_Space);
    EXPECT_TRUE(window->TerrainMode()) << "the first key after Esc reaches the view";
}

TEST_F(HeldInputTest, ControlReleasedInAnotherWindowNoLongerSlows) {
    StartLevel();
    QTest::keyPress(kKeyboard, Qt::Key_Control);
    ShowOtherWindow([&] {
        EXPECT_FALSE(window->tmrKeyboard->isActive()) << "no redrawing in the background";
        QTest::keyRelease(kKeyboard, Qt::Key_Control);
    });
    const float z = Session().Camera().z;
    QTest::keyPress(kKeyboard, Qt::Key_W);
    QTest::keyRelease(kKeyboard, Qt::Key_W);
    EXPECT_NEAR(Session().Camera().z, z - 1.0f, 1e-4) << "a full step: Control is not held any more";
}

TEST_F(HeldInputTest, ButtonsHeldWhenAnotherWindowTakesOverAreLetGo) {
    StartLevel();
    window->ViewMousePress(Qt::RightButton);
    ASSERT_TRUE(window->MouseCaptured() && window->tmrMouseMove->isActive());
    ShowOtherWindow([&] {
        EXPECT_FALSE(window->MouseCaptured());
        EXPECT_FALSE(window->tmrMouseMove->isActive());
    });
    window->SetTerrainMode(true);
    window->ViewMousePress(Qt::LeftButton);
    ASSERT_TRUE(window->Sculpting());
    ShowOtherWindow([&] { EXPECT_FALSE(window->Sculpting()) << "the stroke ends with the lost button"; });
}

// The speeds themselves are the camera's; these check that the window steps by its clock.
TEST_F(HeldInputTest, AHeldKeyFliesFiftyUnitsASecondOfTheClock) {
    StartLevel();
    QTest::keyPress(window->view, Qt::Key_W); // one nominal step at once
    for (int i = 0; i < 25; ++i) {            // then one second in ticks of 40 ms
        now += 0.040;
        window->KeyboardTick();
    }
    QTest::keyRelease(window->view, Qt::Key_W);
    EXPECT_NEAR(Session().Camera().z, -51.0f, 1e-3);
}

TEST_F(HeldInputTest, ShiftMakesAHeldKeyFlyFiveTimesFaster) {
    StartLevel();
    QTest::keyPress(window->view, Qt::Key_Shift); // starts the ticks; S then waits for the next
    QTest::keyPress(window->view, Qt::Key_S);
    for (int i = 0; i < 10; ++i) {
        now += 0.040;
        window->KeyboardTick();
    }
    QTest::keyRelease(window->view, Qt::Key_S);
    QTest::keyRelease(window->view, Qt::Key_Shift);
    EXPECT_NEAR(Session().Camera().z, 100.0f, 1e-3) << "250 units a second";
}

TEST_F(HeldInputTest, ARightButtonFliesByTheClockAndALongGapCountsAsAQuarterSecond) {
    StartLevel();
    window->ViewMousePress(Qt::RightButton);
    window->MouseMoveTick(); // the first tick stands for one nominal tick
    for (int i = 0; i < 10; ++i) {
        now += 0.040;
        window->MouseMoveTick();
    }
    now += 3.0; // the window was blocked for three seconds
    window->MouseMoveTick();
    window->ViewMouseRelease(Qt::NoButton);
    EXPECT_NEAR(Session().Camera().z, -(1.0f + 20.0f + 12.5f), 1e-3);
}
