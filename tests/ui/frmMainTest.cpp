// The main window as a user meets it: start-up, caption, menus enabled by state, recent files,
// view switches, riding the track and closing.
#include "MainWindowFixture.h"

#include "PathUtil.h"
#include "frmSplash.h"
#include "pbOpenGL.h"

#include <filesystem>

namespace fs = std::filesystem;

TEST_F(MainWindowTest, StartsOnAQuotedTrackShowsReadyOnTheSplashAndClosingWithUnsavedChangesAsks) {
    ASSERT_TRUE(window->Startup(QString::fromStdString("\"" + DemoTrack() + "\"")));
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright - Demo");
    EXPECT_TRUE(Session().Terrain().terrainPresent);
    EXPECT_EQ(Session().Terrain().trackFolder, DerivedTrackFolder(DemoTrack()));
    EXPECT_EQ(Child<frmSplash>(window.get(), "frmSplash")->lblStatus->text(), "Ready.");
    EXPECT_TRUE(WaitFor([&] { return window->findChild<frmSplash*>("frmSplash") == nullptr; }));

    Session().FlipArea();
    ASSERT_TRUE(Session().Terrain().terrainChanged);
    shell.answers = {Answer::No};
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(fs::exists(home.File("CorvantaLandwright.ini"))) << "settings are written only when closing";
    shell.answers = {Answer::Yes};
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(fs::exists(home.File("CorvantaLandwright.ini")));
}

TEST_F(MainWindowTest, AMissingCommandLineFileIsIgnoredAndMenusFollowTheStateTheSettingsAndTheRecentFiles) {
    WriteText(home.File("CorvantaLandwright.ini"), ";x\r\n[General]\r\nRmbrViews=True\r\nRmbrRecents=True\r\n"
                                                   "[Views]\r\nViewGuidelines=True\r\nViewWater=False\r\n");
    ASSERT_TRUE(window->Startup("/no/such/track.cvtrack"));
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright");
    EXPECT_TRUE(shell.messages.empty());
    for (const char* name :
         {"mnuSave", "mnuRideTrack", "mnuDeleteTerrain", "mnuClearRecent", "mnuCopy", "mnuFlip", "mnuMirror",
          "mnuInvert", "mnuFlatten", "mnuFlattenToGround", "mnuFlattenToWater", "mnuAdjustHeight",
          "mnuFilter", "mnuReset", "mnuUndo", "mnuRedo"})
        EXPECT_FALSE(Action(name)->isEnabled()) << name;
    EXPECT_FALSE(window->mnuRecent[0]->isVisible());
    const std::pair<QAction*, Qt::Key> shortcuts[] = {
        {window->mnuSave, Qt::Key_F2}, {window->mnuSaveAs, Qt::Key_F12}, {window->mnuRideTrack, Qt::Key_F5}};
    for (const auto& [action, key] : shortcuts)
        EXPECT_EQ(action->shortcut(), QKeySequence(key)) << action->objectName().toStdString();
    EXPECT_TRUE(window->mnuViewGuidelines->isChecked());
    EXPECT_FALSE(window->mnuViewWater->isChecked());
    window->mnuViewWater->trigger();
    EXPECT_TRUE(Session().Settings().viewWater);
    window->mnuClipTerrain->trigger();
    EXPECT_TRUE(Session().Settings().clipTerrain);

    AppSettings keepTerrain = Session().Settings();
    keepTerrain.askLoadNoTerrain = 2;
    Session().ApplySettings(keepTerrain);
    Session().OpenTrack(DemoTrack("DemoNoTerrain"));
    EXPECT_TRUE(window->mnuSave->isEnabled());
    EXPECT_TRUE(window->mnuRemoveTrack->isEnabled());
    EXPECT_FALSE(window->mnuDeleteTerrain->isEnabled());
    Session().OpenTrack(DemoTrack());
    EXPECT_TRUE(window->mnuDeleteTerrain->isEnabled());
    EXPECT_EQ(window->mnuRecent[0]->text(), "&1 Demo");
    EXPECT_EQ(window->mnuRecent[1]->text(), "&2 DemoNoTerrain");
    EXPECT_TRUE(window->mnuRecent[1]->isVisible());
    EXPECT_FALSE(window->mnuRecent[2]->isVisible());
    window->mnuRecent[1]->trigger();
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright - DemoNoTerrain");
    EXPECT_EQ(window->mnuRecent[0]->text(), "&1 DemoNoTerrain");
    window->mnuClearRecent->trigger();
    EXPECT_FALSE(window->mnuRecent[0]->isVisible());
}

TEST_F(MainWindowTest, RidingTheTrackFromTheMenuStartsTheSimulatorOnIt) {
    const std::string track = home.File("ride.cvtrack");
    fs::copy_file(DemoTrack(), track);
    WriteText(home.File("CorvantaSimulator.exe"), "#!/bin/sh\n");
    fs::permissions(home.File("CorvantaSimulator.exe"), fs::perms::owner_all);
    ASSERT_TRUE(window->Startup(QString::fromStdString(track)));
    window->mnuRideTrack->trigger();
    ASSERT_EQ(shell.started.size(), 1u);
    EXPECT_EQ(shell.started[0].arguments, (std::vector<std::string>{"-s", track}));
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
