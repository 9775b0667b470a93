#pragma once
// A main window started as the program starts it, over a scratch program folder, with its
// dialogs answered by a scripted shell; and helpers for driving any window by object name.

#include "ScriptedShell.h"
#include "TestSupport.h"
#include "frmMain.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>

// A control by its object name; a missing one ends the test.
template <typename Widget> Widget* Child(const QObject* parent, const QString& name) {
    auto* widget = parent->findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error("no control " + name.toStdString());
    return widget;
}

inline void Click(QWidget* widget) {
    QTest::mouseClick(widget, Qt::LeftButton);
}

class MainWindowTest : public ::testing::Test {
protected:
    ScratchFolder home;
    ScriptedShell shell;
    std::unique_ptr<frmMain> window;

    void SetUp() override { Restart(); }

    void TearDown() override {
        shell.ExpectAllAnswersUsed();
        window.reset();
    }

    void Restart() {
        window = std::make_unique<frmMain>(QString::fromStdString(home.Path().string()));
        window->SetInteraction(&shell);
        window->show();
    }

    Editor& Session() { return window->Session(); }

    void StartOnDemo() {
        ASSERT_TRUE(window->Startup(QString::fromStdString(DemoTrack())));
        ASSERT_TRUE(Session().terrain.terrainPresent);
    }

    static std::string DemoTrack() { return std::string(LW_BIN_DIR) + "/tracks/Demo.cvtrack"; }
    static std::string DemoTrackWithoutTerrain() {
        return std::string(LW_BIN_DIR) + "/tracks/DemoNoTerrain.cvtrack";
    }

    QAction* Action(const char* name) const { return Child<QAction>(window.get(), name); }

    // Lets events run until the condition holds or the time is up; returns the condition.
    static bool WaitFor(const std::function<bool()>& condition, int milliseconds = 5000) {
        QElapsedTimer clock;
        clock.start();
        while (!condition() && clock.elapsed() < milliseconds)
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        return condition();
    }
};
