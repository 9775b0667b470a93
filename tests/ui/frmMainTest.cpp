// The main window as a user meets it: start-up, caption, menus enabled by state, recent files,
// view switches, riding the track and closing.
#include "MainWindowFixture.h"

#include "PathUtil.h"
#include "SampleTrack.h"
#include "TerrainFile.h"
#include "TexturePath.h"
#include "WidgetShell.h"
#include "frmSplash.h"
#include "mPictureLoader.h"
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

TEST_F(MainWindowTest, TheSplashComesFirstCentredOnTheScreenBeforeTheMainWindow) {
    window->hide(); // as the program starts: nothing shown yet
    bool checked = false;
    QObject::connect(window.get(), &frmMain::StartupStatus, window.get(), [&](const QString& status) {
        if (status != "Initializing Settings...") return;
        checked = true;
        const auto* splash = Child<frmSplash>(window.get(), "frmSplash");
        EXPECT_TRUE(splash->isVisible());
        EXPECT_FALSE(window->isVisible()) << "no blank main window before the splash";
        const QRect screen = splash->screen()->availableGeometry();
        EXPECT_LE((splash->frameGeometry().center() - screen.center()).manhattanLength(), 2);
    });
    ASSERT_TRUE(window->Startup(""));
    EXPECT_TRUE(checked);
    EXPECT_TRUE(window->isVisible());
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

namespace {

// "Zürich" and "Кириллица" as the system names them: UTF-8 bytes.
const std::string kLatinFolder = "Z\xC3\xBCrich";
const std::string kCyrillicFolder =
    "\xD0\x9A\xD0\xB8\xD1\x80\xD0\xB8\xD0\xBB\xD0\xBB\xD0\xB8\xD1\x86\xD0\xB0";

struct EditorRun {
    int status = -1;
    QString errors;
};

EditorRun RunHeadless(const std::string& programFolder, const std::string& track,
                      const std::string& picture) {
    QProcess editor;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LANDWRIGHT_HOME", FromPath(programFolder));
    editor.setProcessEnvironment(environment);
    editor.start(QString(LW_BIN_DIR) + "/CorvantaLandwright",
                 {FromPath(track), "--screenshot", FromPath(picture)});
    EXPECT_TRUE(editor.waitForFinished(60000));
    EXPECT_EQ(editor.exitStatus(), QProcess::NormalExit);
    return {editor.exitCode(), QString::fromLocal8Bit(editor.readAllStandardError())};
}

} // namespace

TEST_F(MainWindowTest, TheEditorRunsHeadlessFromFoldersBeyondAsciiAndSavesAScreenshot) {
    const fs::path program = home.Path() / kCyrillicFolder, tracks = home.Path() / kLatinFolder;
    fs::create_directories(program);
    fs::create_directories(tracks);
    const std::string track = (tracks / "Demo.cvtrack").string(), picture = (program / "shot.png").string();
    fs::copy_file(DemoTrack(), track);
    const EditorRun run = RunHeadless(program.string(), track, picture);
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_FALSE(run.errors.contains("answered")) << run.errors.toStdString();
    const QImage shot(FromPath(picture));
    ASSERT_FALSE(shot.isNull());
    EXPECT_GE(shot.width(), 640);
    EXPECT_FALSE(fs::exists(program / "CorvantaLandwright.ini")) << "a screenshot run changes no settings";
    EXPECT_FALSE(fs::exists(program / "shot-box1.png")) << "the track opened without a message";
}

TEST_F(MainWindowTest, AMessageBoxInAHeadlessRunIsPicturedAnsweredAndTheRunStillEnds) {
    const std::string broken = home.File("broken.cvtrack"), picture = home.File("shot.png");
    WriteText(broken, "not a track");
    const EditorRun run = RunHeadless(home.Path().string(), broken, picture);
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_TRUE(run.errors.contains("Invalid Track File.")) << run.errors.toStdString();
    EXPECT_FALSE(QImage(QString::fromStdString(home.File("shot-box1.png"))).isNull());
    EXPECT_FALSE(QImage(QString::fromStdString(picture)).isNull());
}

TEST(MainWindowPaths, AProgramFolderAndATrackUnderFoldersBeyondAsciiKeepSettingsTexturesAndRecentNames) {
    ScratchFolder scratch;
    ScriptedShell shell;
    const fs::path program = scratch.Path() / kCyrillicFolder, tracks = scratch.Path() / kLatinFolder;
    fs::create_directories(tracks);
    fs::create_directories(program);
    fs::create_directory_symlink(std::string(LW_BIN_DIR) + "/teratextures", program / "teratextures");
    const std::string track = (tracks / "R&D \xC3\x84rger.cvtrack").string();
    fs::copy_file(std::string(LW_BIN_DIR) + "/tracks/Demo.cvtrack", track);
    for (int session = 0; session < 2; ++session) {
        frmMain window(FromPath(program.string()));
        window.SetInteraction(&shell);
        window.show();
        ASSERT_TRUE(window.Startup(session == 0 ? FromPath(track) : QString()));
        EXPECT_EQ(window.Session().ProgramFolder(), program.string() + "/");
        // The recent entry: its title as the file is named, its "&" shown, its path as tool tip.
        EXPECT_EQ(window.mnuRecent[0]->text(), QString::fromUtf8("&1 R&&D \xC3\x84rger"));
        EXPECT_EQ(window.mnuRecent[0]->toolTip(), FromPath(track));
        const auto texture =
            ResolveTexturePath(window.Session().ProgramFolder(), "teratextures\\GrassTerrain.jpg");
        cDIBSection image;
        EXPECT_TRUE(texture && LoadPictureFile(*texture, image)) << "the textures are found";
        if (session == 0)
            EXPECT_EQ(window.windowTitle(), QString::fromUtf8("CorvantaLandwright - R&D \xC3\x84rger"));
        else
            window.mnuRecent[0]->trigger(); // the stored path opens the same file
        EXPECT_EQ(window.Session().Terrain().trackFilePath, track);
        EXPECT_TRUE(window.close());
        EXPECT_TRUE(shell.messages.empty()) << shell.messages[0].text;
    }
    EXPECT_TRUE(fs::exists(program / "CorvantaLandwright.ini"));
}

TEST_F(MainWindowTest, TheImportAndExportMenusRunTheirCommandsAndExportsNeedATerrain) {
    ASSERT_TRUE(window->Startup(""));
    EXPECT_FALSE(window->mnuExport->isEnabled());
    EXPECT_TRUE(window->mnuImport->isEnabled());
    TerrainRecord record;
    record.terrain = MakeSampleTerrain(6, 5);
    std::string error;
    ASSERT_TRUE(WriteTerrainFile(home.File("in.cvtera"), record, error));
    shell.openChoices.push_back(home.File("in.cvtera"));
    Action("mnuImportTerrainFile")->trigger();
    EXPECT_EQ(Session().Terrain().heights, record.terrain.heights);
    EXPECT_EQ(window->windowTitle(), "CorvantaLandwright - [Terrain]");
    EXPECT_TRUE(window->mnuExport->isEnabled());
    shell.saveChoices.push_back(home.File("out.cvtera"));
    Action("mnuExportTerrainFile")->trigger();
    EXPECT_EQ(ReadBytes(home.File("out.cvtera")), ReadBytes(home.File("in.cvtera")));
}
