// The main window as a user meets it: start-up, caption, menus enabled by state, recent files,
// view switches, riding the track and closing.
#include "MainWindowFixture.h"

#include "PathUtil.h"
#include "TrackFile.h"
#include "frmSplash.h"
#include "pbOpenGL.h"

#include <QCloseEvent>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QProcess>
#include <QTimer>

#include <filesystem>

namespace fs = std::filesystem;

TEST_F(MainWindowTest, StartsOnTheDemoTrackWithItsCaptionShowingEachStepOnTheSplash) {
    QStringList statuses;
    QObject::connect(window.get(), &frmMain::StartupStatus, [&](const QString& text) { statuses << text; });
    ASSERT_TRUE(window->Startup(QString::fromStdString("\"" + DemoTrack() + "\"")));
    EXPECT_EQ(statuses, (QStringList{"Initializing Settings...", "Initializing OpenGL...", "Opening Track...",
                                     "Ready."}));
    EXPECT_TRUE(window->Ready());
    EXPECT_TRUE(window->view->ContextReady());
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright - Demo");
    EXPECT_EQ(window->view->objectName(), "pbOpenGL");
    EXPECT_TRUE(Session().terrain.trackPresent);
    EXPECT_TRUE(Session().terrain.terrainPresent);
    EXPECT_EQ(Session().terrain.trackFolder, DerivedTrackFolder(DemoTrack()));
    auto* splash = Child<frmSplash>(window.get(), "frmSplash");
    EXPECT_EQ(splash->lblStatus->text(), "Ready.");
    EXPECT_TRUE(splash->tmrSplash->isActive());
    EXPECT_TRUE(WaitFor([&] { return window->findChild<frmSplash*>("frmSplash") == nullptr; }));
}

TEST_F(MainWindowTest, AMissingCommandLineFileIsIgnoredAndMenuEntriesAreEnabledByState) {
    ASSERT_TRUE(window->Startup("/no/such/track.cvtrack"));
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright");
    EXPECT_TRUE(shell.messages.empty());
    EXPECT_FALSE(Session().terrain.trackPresent);
    for (const char* name : {"mnuOpen",         "mnuClearRecent",   "mnuSave",
                             "mnuSaveAs",       "mnuRideTrack",     "mnuOptions",
                             "mnuExit",         "mnuDeleteTerrain", "mnuRemoveTrack",
                             "mnuViewTerrain",  "mnuViewWater",     "mnuViewSkybox",
                             "mnuViewTextures", "mnuViewTrack",     "mnuViewGuidelines",
                             "mnuViewSupports", "mnuViewTrees",     "mnuClipTerrain",
                             "mnuStayAbove",    "mnuHelpIndex",     "mnuKeyboardShortcuts",
                             "mnuAbout",        "mnuRecent_0",      "mnuRecent_4"})
        Action(name);
    for (const char* name : {"mnuSave", "mnuRideTrack", "mnuDeleteTerrain"})
        EXPECT_FALSE(Action(name)->isEnabled()) << name;
    EXPECT_TRUE(Action("mnuOpen")->isEnabled());
    const std::pair<const char*, Qt::Key> shortcuts[] = {
        {"mnuSave", Qt::Key_F2}, {"mnuSaveAs", Qt::Key_F12}, {"mnuRideTrack", Qt::Key_F5}};
    for (const auto& [name, key] : shortcuts)
        EXPECT_EQ(Action(name)->shortcut(), QKeySequence(key)) << name;

    Session().settings.askLoadNoTerrain = 2;
    Session().OpenTrack(DemoTrackWithoutTerrain());
    EXPECT_TRUE(Action("mnuSave")->isEnabled());
    EXPECT_TRUE(Action("mnuRemoveTrack")->isEnabled());
    EXPECT_FALSE(Action("mnuDeleteTerrain")->isEnabled());
    Session().OpenTrack(DemoTrack());
    EXPECT_TRUE(Action("mnuDeleteTerrain")->isEnabled());
}

TEST_F(MainWindowTest, RecentFilesAppearInTheMenuAndReopen) {
    ASSERT_TRUE(window->Startup(""));
    Session().ClearRecentFiles();
    EXPECT_FALSE(Action("mnuRecent_0")->isVisible());
    EXPECT_FALSE(Action("mnuClearRecent")->isEnabled());
    Session().settings.askLoadTrackTerrain = 1;
    Session().settings.askLoadNoTerrain = 1;
    Session().OpenTrack(DemoTrack());
    Session().OpenTrack(DemoTrackWithoutTerrain());
    EXPECT_TRUE(Action("mnuRecent_1")->isVisible());
    EXPECT_EQ(Action("mnuRecent_0")->text(), "&1 DemoNoTerrain");
    EXPECT_EQ(Action("mnuRecent_1")->text(), "&2 Demo");
    EXPECT_FALSE(Action("mnuRecent_2")->isVisible());
    Action("mnuRecent_1")->trigger();
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright - Demo");
    EXPECT_EQ(Action("mnuRecent_0")->text(), "&1 Demo");
    Action("mnuClearRecent")->trigger();
    EXPECT_FALSE(Action("mnuRecent_0")->isVisible());
}

TEST_F(MainWindowTest, ViewSwitchesFollowAndChangeTheSettings) {
    WriteText(home.File("CorvantaLandwright.ini"),
              ";x\r\n[General]\r\nRmbrViews=True\r\n[Views]\r\nViewGuidelines=True\r\nViewWater=False\r\n");
    ASSERT_TRUE(window->Startup(""));
    EXPECT_TRUE(Action("mnuViewGuidelines")->isChecked());
    EXPECT_FALSE(Action("mnuViewWater")->isChecked());
    Action("mnuViewWater")->trigger();
    EXPECT_TRUE(Session().settings.viewWater);
    Action("mnuClipTerrain")->trigger();
    EXPECT_TRUE(Session().settings.clipTerrain);
}

TEST_F(MainWindowTest, RidingTheTrackStartsTheSimulatorWithTheSavedTrack) {
    const std::string track = home.File("ride.cvtrack");
    fs::copy_file(DemoTrack(), track);
    const std::string record = home.File("simulator-arguments.txt");
    WriteText(home.File("CorvantaSimulator.exe"), "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + record + "'\n");
    fs::permissions(home.File("CorvantaSimulator.exe"), fs::perms::owner_all);
    ASSERT_TRUE(window->Startup(QString::fromStdString(track)));
    Session().terrain.heights.At(10, 10) = 33.0f;
    Session().terrain.terrainChanged = true;
    Action("mnuRideTrack")->trigger();
    ASSERT_TRUE(WaitFor([&] { return fs::exists(record) && fs::file_size(record) > 0; }));
    EXPECT_EQ(ReadText(record), "-s\n" + track + "\n");
    EXPECT_FALSE(Session().terrain.terrainChanged);
    TrackDocument saved;
    ASSERT_TRUE(ReadTrackFile(track, saved));
    EXPECT_EQ(saved.terrain.terrain.heights.At(10, 10), 33.0f);
}

TEST_F(MainWindowTest, ClosingWithUnsavedChangesAsksAndNoKeepsTheWindow) {
    ASSERT_TRUE(window->Startup(QString::fromStdString(DemoTrack())));
    Session().terrain.terrainChanged = true;
    shell.answers = {Answer::No};
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(fs::exists(home.File("CorvantaLandwright.ini"))) << "settings are written only when closing";
    shell.answers = {Answer::Yes};
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(fs::exists(home.File("CorvantaLandwright.ini")));
    ASSERT_EQ(shell.questions.size(), 2u);
    EXPECT_EQ(shell.questions[1].title, "Are you sure?");
}

TEST_F(MainWindowTest, TheEditorRunsHeadlessAndSavesAScreenshot) {
    const QString picture = QString::fromStdString(home.File("shot.png"));
    QProcess editor;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LANDWRIGHT_HOME", QString::fromStdString(home.Path().string()));
    editor.setProcessEnvironment(environment);
    editor.start(QString(LW_BIN_DIR) + "/CorvantaLandwright",
                 {QString::fromStdString(DemoTrack()), "--screenshot", picture});
    ASSERT_TRUE(editor.waitForFinished(30000));
    EXPECT_EQ(editor.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(editor.exitCode(), 0) << editor.readAllStandardError().toStdString();
    const QImage shot(picture);
    ASSERT_FALSE(shot.isNull());
    EXPECT_GE(shot.width(), 640);
    EXPECT_FALSE(fs::exists(home.File("CorvantaLandwright.ini"))) << "a screenshot run changes no settings";
}
