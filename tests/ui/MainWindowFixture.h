#pragma once
// A main window started as the program starts it, over a scratch program folder, with its
// dialogs answered by a scripted shell; a dialog over an editor of its own; and helpers for
// driving any window by object name.

#include "ScriptedShell.h"
#include "TestSupport.h"
#include "frmMain.h"

#include <QElapsedTimer>
#include <QTest>
#include <QtWidgets/QtWidgets>

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

// Keys sent to this go where a real key goes: to an open menu, else to the widget with the keyboard.
inline QWidget* const kKeyboard = nullptr;

inline void Click(QWidget* widget) {
    QTest::mouseClick(widget, Qt::LeftButton);
}

class MainWindowTest : public ::testing::Test {
protected:
    ScratchFolder home;
    ScriptedShell shell;
    std::unique_ptr<frmMain> window;

    void SetUp() override { Restart(); }
    void TearDown() override { shell.ExpectAllAnswersUsed(); }

    void Restart() {
        window = std::make_unique<frmMain>(QString::fromStdString(home.Path().string()));
        window->SetInteraction(&shell);
        window->show();
    }

    Editor& Session() { return window->Session(); }
    void StartOnDemo() {
        ASSERT_TRUE(window->Startup(QString::fromStdString(DemoTrack())));
        ASSERT_TRUE(Session().Terrain().terrainPresent);
        Session().MoveCursorTo(40.0f, -60.0f); // in front of the start, on ground to edit
        Activate();
    }

    // Menu shortcuts reach only the active window.
    void Activate() {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    static std::string DemoTrack(const char* name = "Demo") {
        return std::string(LW_BIN_DIR) + "/tracks/" + name + ".cvtrack";
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

// Once the next modal Dialog under parent shows, lets the test act on it; one the action leaves
// open is closed, so a failing test cannot hang.
template <typename Dialog> void WhenShown(QObject* parent, std::function<void(Dialog&)> act) {
    QTimer::singleShot(0, parent, [parent, act] {
        for (Dialog* dialog : parent->findChildren<Dialog*>())
            if (dialog->isVisible()) {
                act(*dialog);
                if (dialog->isVisible()) dialog->reject();
                return;
            }
        ADD_FAILURE() << "the dialog did not open";
    });
}

// A Dialog over an editor of its own, with its questions answered by a scripted shell.
template <typename Dialog> class DialogTest : public ::testing::Test {
protected:
    ScratchFolder folder;
    ScriptedShell shell;
    Editor editor{shell, shell, folder.Path().string()};
    std::unique_ptr<Dialog> dialog;

    void SetUp() override { editor.InitPaths(); }
    void TearDown() override { shell.ExpectAllAnswersUsed(); }

    void Open() {
        dialog = std::make_unique<Dialog>(editor, nullptr);
        dialog->show();
    }
};
