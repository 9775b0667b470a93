// The window's own Shell: starting a program for real, and the progress dialog of long work.
#include "WidgetShell.h"
#include "TestSupport.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProgressDialog>
#include <QWidget>

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

TEST(WidgetShell, StartsAProgramWithItsArgumentsAndSaysWhenItCannot) {
    ScratchFolder folder;
    const std::string record = folder.File("arguments.txt"), program = folder.File("simulator");
    WriteText(program, "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + record + "'\n");
    fs::permissions(program, fs::perms::owner_all);
    WidgetShell shell(nullptr);
    ASSERT_TRUE(shell.StartDetached(program, {"-s", "/tracks/my ride.cvtrack"}));
    QElapsedTimer clock;
    clock.start();
    while (!(fs::exists(record) && fs::file_size(record) > 0) && clock.elapsed() < 5000)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_EQ(ReadText(record), "-s\n/tracks/my ride.cvtrack\n") << "each argument whole, spaces kept";
    EXPECT_FALSE(shell.StartDetached(folder.File("absent"), {}));
}

TEST(WidgetShell, ProgressIsAModalDialogWithCancelThatEndRemoves) {
    QWidget owner;
    WidgetShell shell(&owner);
    EXPECT_FALSE(shell.ProgressCancelled()) << "no work under way";
    shell.BeginProgress("Exporting 3DS Model...", 10);
    auto* dialog = owner.findChild<QProgressDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->labelText(), "Exporting 3DS Model...");
    EXPECT_EQ(dialog->maximum(), 10);
    EXPECT_NE(dialog->windowModality(), Qt::NonModal);
    shell.SetProgress(3);
    shell.StepProgress();
    EXPECT_EQ(dialog->value(), 4);
    EXPECT_FALSE(shell.ProgressCancelled());
    dialog->cancel(); // as the Cancel button does
    EXPECT_TRUE(shell.ProgressCancelled());
    shell.EndProgress();
    EXPECT_EQ(owner.findChild<QProgressDialog*>(), nullptr);
    shell.SetProgress(5); // after the end: nothing to report to, and no failure
    shell.BeginProgress("Importing...", 2);
    EXPECT_FALSE(shell.ProgressCancelled()) << "a new piece of work starts uncancelled";
    shell.EndProgress();
}
