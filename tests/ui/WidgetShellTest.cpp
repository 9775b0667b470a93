// The shell's real widgets: filters as the file dialog shows them, paths and texts across the Qt
// boundary, the dialog's size, boxes answered by their default when only a picture is taken,
// starting a program for real, and the progress dialog of long work.
#include "WidgetShell.h"
#include "MainWindowFixture.h"
#include "ScreenshotMode.h"
#include "TestSupport.h"

#include <QApplication>
#include <QColorDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QProgressDialog>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

TEST(WidgetShell, StartsAProgramWithEachArgumentWholeOrSaysItCannot) {
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

namespace {

// "Zürich" and "Кириллица" as the system names them: UTF-8 bytes.
const std::string kLatinFolder = "Z\xC3\xBCrich";
const std::string kCyrillicFolder =
    "\xD0\x9A\xD0\xB8\xD1\x80\xD0\xB8\xD0\xBB\xD0\xBB\xD0\xB8\xD1\x86\xD0\xB0";

} // namespace

TEST(WidgetShellText, FiltersShowThePatternsThatApply) {
    EXPECT_EQ(ToQtFilter("Corvanta Track Files (*.cvtrack)|*.cvtrack"), "Corvanta Track Files (*.cvtrack)");
    // The patterns that apply are the ones shown, even where the description says otherwise.
    EXPECT_EQ(ToQtFilter("Corvanta Track Files (*.cvtrack)|*cvtrack"), "Corvanta Track Files (*cvtrack)");
    EXPECT_EQ(ToQtFilter("Texture Files (*.jpg;*.tga)|*.jpg;*.tga|Targa|*.tga"),
              "Texture Files (*.jpg *.tga);;Targa (*.tga)");
    EXPECT_EQ(ToQtFilter("Heights (16 bit) raw|*.raw"), "Heights (16 bit) raw (*.raw)");
}

TEST(WidgetShellText, MenuTextKeepsItsAmpersands) {
    EXPECT_EQ(ToMenuText("R&D & Co"), "R&&D && Co");
}

TEST(WidgetShellText, TheFileDialogTakesAtMostFourFifthsOfTheScreen) {
    EXPECT_EQ(FileDialogSize({1280, 1024}), QSize(900, 550));
    EXPECT_EQ(FileDialogSize({800, 600}), QSize(640, 480));
}

TEST(WidgetShellText, PathsCrossAsTheSystemsBytes) {
    for (const std::string& folder : {kLatinFolder, kCyrillicFolder}) {
        const std::string path = "/home/u/" + folder + "/ride.cvtrack";
        const QString shown = FromPath(path);
        EXPECT_EQ(shown, QString::fromUtf8(path.c_str())) << path;
        EXPECT_EQ(ToPath(shown), path) << "a path comes back as the same bytes";
    }
    EXPECT_EQ(FromPath("Z\xC3\xBCrich").size(), 6) << "one letter, not two";
}

TEST(WidgetShellText, TextInFilesIsLatin1) {
    // Byte 0xFC is the letter ü, and back.
    EXPECT_EQ(FromFileText("Gr\xFCn"), QString::fromUtf8("Gr\xC3\xBCn"));
    EXPECT_EQ(ToFileText(QString::fromUtf8("Gr\xC3\xBCn")), "Gr\xFCn");
}

// A file dialog answered as a person answers it, by typing the name and pressing Enter: the chosen
// path comes back as the system's bytes. The dialog's size fits the screen.
TEST(WidgetShellDialogs, AFileChosenUnderFoldersWithLettersBeyondAsciiComesBackAsItsBytes) {
    ScratchFolder scratch;
    const fs::path folder = scratch.Path() / kLatinFolder / kCyrillicFolder;
    fs::create_directories(folder);
    const std::string name = "Stra\xC3\x9F"
                             "e.cvtrack";
    WriteText((folder / name).string(), "x");
    WidgetShell shell(nullptr);
    QSize opened;
    bool typed = false;
    QElapsedTimer clock;
    clock.start();
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        if (clock.elapsed() > 10000) { // never hang the run: give up and let the test fail
            dialog->reject();
            return;
        }
        auto* edit = dialog->findChild<QLineEdit*>("fileNameEdit");
        if (typed || edit == nullptr || !edit->isVisible()) return;
        typed = true;
        opened = dialog->size();
        edit->setFocus();
        edit->setText(FromPath(name));
        QTest::keyClick(edit, Qt::Key_Return);
    });
    poll.start(50);
    FileDialogOptions options;
    options.folder = folder.string();
    options.filter = "Corvanta Track Files (*.cvtrack)|*.cvtrack";
    options.mustExist = true;
    EXPECT_EQ(shell.ShowOpenDialog(options), (folder / name).string());
    EXPECT_TRUE(typed) << "the dialog showed its own widgets, with a file name box";
    EXPECT_EQ(opened, FileDialogSize(QGuiApplication::primaryScreen()->availableSize()));
}

// With nobody to answer, every box is pictured over the window and answered by its default.
TEST(WidgetShellDialogs, InScreenshotModeEachBoxIsPicturedAndAnsweredByItsDefault) {
    ScratchFolder scratch;
    QWidget window;
    window.resize(400, 300);
    window.show();
    const QString picture = QString::fromStdString(scratch.File("shot.png"));
    StartScreenshotMode(&window, picture, 600000);
    ASSERT_TRUE(InScreenshotMode());
    WidgetShell shell(&window);
    const std::tuple<Buttons, Answer> asked[] = {{Buttons::YesNo, Answer::No},
                                                 {Buttons::YesNo, Answer::Yes},
                                                 {Buttons::OkCancel, Answer::Cancel},
                                                 {Buttons::YesNoCancel, Answer::Cancel},
                                                 {Buttons::Ok, Answer::Ok}};
    for (const auto& [buttons, answer] : asked)
        EXPECT_EQ(shell.Ask("Sure?", "Question", buttons, MessageIcon::Question, answer), answer);
    shell.ShowMessage("Track File Not Found.", "Warning", MessageIcon::Exclamation);
    EXPECT_EQ(shell.ShowOpenDialog({}), std::nullopt) << "a file dialog is cancelled";
    EXPECT_EQ(shell.ShowColourDialog({1, 2, 3}), std::nullopt);
    const AskResult ask = shell.AskDialog(AskKind::LoadTrackTerrain);
    EXPECT_EQ(ask.button, 0);
    EXPECT_FALSE(ask.dontAskAgain);
    // Nine boxes, nine pictures, each the window's size.
    for (int i = 1; i <= 9; ++i) {
        const QImage shot(BoxPicturePath(picture, i));
        EXPECT_EQ(shot.size(), window.size()) << i;
    }
    EXPECT_FALSE(fs::exists(BoxPicturePath(picture, 10).toStdString()));
    EXPECT_EQ(BoxPicturePath("/a/b.c/shot.png", 2), "/a/b.c/shot-box2.png");
    EXPECT_EQ(BoxPicturePath("/a/shot", 1), "/a/shot-box1");
}
