#pragma once
// A main window started as the program starts it, over a scratch program folder, with its
// dialogs answered by a scripted shell.

#include "ScriptedShell.h"
#include "TestSupport.h"
#include "frmMain.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

class MainWindowTest : public ::testing::Test {
protected:
    ScratchFolder home;
    ScriptedShell shell;
    std::unique_ptr<frmMain> window;

    void SetUp() override {
        window = std::make_unique<frmMain>(QString::fromStdString(home.Path().string()));
        window->SetInteraction(&shell);
        window->show();
    }

    void TearDown() override {
        shell.ExpectAllAnswersUsed();
        window.reset();
    }

    static std::string DemoTrack() { return std::string(LW_BIN_DIR) + "/tracks/Demo.cvtrack"; }
    static std::string DemoTrackWithoutTerrain() { return std::string(LW_BIN_DIR) + "/tracks/DemoNoTerrain.cvtrack"; }

    QAction* Action(const char* name) const {
        auto* action = window->findChild<QAction*>(name);
        EXPECT_NE(action, nullptr) << name;
        return action;
    }

    // Lets events run until the condition holds or the time is up; returns the condition.
    static bool WaitFor(const std::function<bool()>& condition, int milliseconds = 5000) {
        QElapsedTimer clock;
        clock.start();
        while (!condition() && clock.elapsed() < milliseconds) QApplication::processEvents(QEventLoop::AllEvents, 20);
        return condition();
    }
};
