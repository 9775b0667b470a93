#pragma once
// The main window: menus, the 3D view and the status of the editing session. It is the Shell of
// the Editor: message boxes and dialogs go through a WidgetShell (or a test's scripted shell),
// redraws and window refreshes are done here.

#include "Editor.h"
#include "Shell.h"
#include "WidgetShell.h"

#include <QMainWindow>

#include <array>
#include <memory>

class QAction;
class QMenu;
class frmSplash;
class pbOpenGL;

class frmMain : public QMainWindow, public Shell {
    Q_OBJECT
public:
    // programFolder: where settings, textures, help and the simulator are looked for.
    explicit frmMain(const QString& programFolder, QWidget* parent = nullptr);
    ~frmMain() override;

    Editor& Session() { return editor_; }

    // Runs the start-up steps with the splash: settings, the GL context, the command line (a track
    // path, double quotes removed). Returns false when no GL context could be made; the program
    // must then end.
    bool Startup(const QString& commandLine);
    bool Ready() const { return ready_; }

    // Tests put a scripted shell here to answer messages, questions and dialogs.
    void SetInteraction(Shell* interaction) { interaction_ = interaction ? interaction : &widgets_; }

    // Shell
    void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) override;
    Answer Ask(const std::string& text, const std::string& title, Buttons buttons, MessageIcon icon,
               Answer defaultAnswer) override;
    std::optional<std::string> ShowOpenDialog(const FileDialogOptions& options) override;
    std::optional<std::string> ShowSaveDialog(const FileDialogOptions& options) override;
    AskResult AskDialog(AskKind kind) override;
    std::optional<ByteColour> ShowColourDialog(const ByteColour& initial) override;
    bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) override;
    bool OpenWithDesktop(const std::string& path) override;
    void ReloadTextures() override;
    void RenderScene() override;
    void UpdateUI() override;

    pbOpenGL* view = nullptr; // objectName "pbOpenGL"

    // File
    QAction* mnuOpen = nullptr;
    std::array<QAction*, kRecentFileCount> mnuRecent{};
    QAction* mnuClearRecent = nullptr;
    QAction* mnuSave = nullptr;
    QAction* mnuSaveAs = nullptr;
    QAction* mnuRideTrack = nullptr;
    QAction* mnuOptions = nullptr;
    QAction* mnuExit = nullptr;
    // Terrain
    QAction* mnuDeleteTerrain = nullptr;
    QAction* mnuRemoveTrack = nullptr;
    // View: one checkable entry per view switch of the settings
    QAction* mnuStayAbove = nullptr;
    QAction* mnuViewTerrain = nullptr;
    QAction* mnuViewWater = nullptr;
    QAction* mnuViewSkybox = nullptr;
    QAction* mnuViewTextures = nullptr;
    QAction* mnuViewTrack = nullptr;
    QAction* mnuViewGuidelines = nullptr;
    QAction* mnuViewSupports = nullptr;
    QAction* mnuViewTrees = nullptr;
    QAction* mnuClipTerrain = nullptr;
    // Help
    QAction* mnuHelpIndex = nullptr;
    QAction* mnuKeyboardShortcuts = nullptr;
    QAction* mnuAbout = nullptr;

signals:
    // Each start-up status as the splash shows it.
    void StartupStatus(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void mnuOpen_Click();
    void mnuRecent_Click(int index);
    void mnuClearRecent_Click();
    void mnuSave_Click();
    void mnuSaveAs_Click();
    void mnuRideTrack_Click();
    void mnuOptions_Click();
    void mnuDeleteTerrain_Click();
    void mnuRemoveTrack_Click();
    void mnuHelpIndex_Click();
    void mnuKeyboardShortcuts_Click();
    void mnuAbout_Click();

private:
    void BuildMenus();
    void BuildFileMenu();
    void BuildTerrainMenu();
    void BuildViewMenu();
    void BuildHelpMenu();
    QAction* AddViewSwitch(QMenu* menu, const char* name, const QString& text, bool AppSettings::*field);
    void SyncViewSwitches();
    void SetSplashStatus(const QString& text);

    Editor editor_;
    WidgetShell widgets_;
    Shell* interaction_;
    frmSplash* splash_ = nullptr;
    bool ready_ = false;
    std::vector<std::pair<QAction*, bool AppSettings::*>> viewSwitches_;
};

// The program folder: LANDWRIGHT_HOME when set, else the executable's folder; ends in "/".
QString ProgramFolder();
