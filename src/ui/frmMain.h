#pragma once
// The main window: menus, the 3D view and the status of the editing session. It receives the
// Editor's view notifications (redraws, texture reloads, window refreshes); the Editor's message
// boxes and dialogs go through a WidgetShell (or a test's scripted shell).

#include "Editor.h"
#include "ViewNotifications.h"
#include "WidgetShell.h"

#include <QElapsedTimer>
#include <QKeySequence>
#include <QList>
#include <QMainWindow>
#include <QPointer>

#include <array>
#include <functional>
#include <memory>
#include <set>

class QAction;
class QLabel;
class QMenu;
class QRadioButton;
class QSlider;
class QTimer;
class QToolButton;
class frmSplash;
class pbOpenGL;

class frmMain : public QMainWindow, public ViewNotifications {
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

    // Tests put a scripted shell here to answer messages, questions and dialogs; null puts the
    // window's own dialogs back.
    void SetInteraction(Shell* interaction) { editor_.SetDialogs(interaction ? *interaction : widgets_); }

    // ViewNotifications
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
    QMenu* mnuImport = nullptr;
    QMenu* mnuExport = nullptr;
    QAction* mnuOptions = nullptr;
    QAction* mnuExit = nullptr;
    // Terrain
    QAction* mnuNewTerrain = nullptr;
    QAction* mnuTerrainSettings = nullptr;
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
    QAction* mnuResetCamera = nullptr;
    QAction* mnuMoveCursorIntoView = nullptr;
    QAction* mnuReset = nullptr; // "Reset..."
    // Edit
    QAction* mnuUndo = nullptr;
    QAction* mnuRedo = nullptr;
    QAction* mnuCopy = nullptr;
    QAction* mnuPaste = nullptr;
    // Sculpt: tool, mode and size, each a group of checked entries
    std::array<QAction*, 3> mnuSculptTool{};
    std::array<QAction*, 2> mnuSculptMode{};
    std::array<QAction*, 7> mnuSculptSize{};
    QAction* mnuToggleMode = nullptr; // R
    // Tools
    QAction* mnuFlip = nullptr;
    QAction* mnuMirror = nullptr;
    QAction* mnuInvert = nullptr;
    QAction* mnuFlattenToGround = nullptr;
    QAction* mnuFlattenToWater = nullptr;
    QAction* mnuFlatten = nullptr;
    QAction* mnuAdjustHeight = nullptr;
    QAction* mnuFilter = nullptr;
    // Help
    QAction* mnuHelpIndex = nullptr;
    QAction* mnuKeyboardShortcuts = nullptr;
    QAction* mnuAbout = nullptr;

    // Navigation bar and movement
    std::array<QRadioButton*, 2> optMode{}; // 0 camera move mode, 1 terrain edit mode
    std::array<QLabel*, 3> lblCameraPos{};
    std::array<QLabel*, 3> lblCursorPos{};
    QTimer* tmrKeyboard = nullptr;
    QTimer* tmrMouseMove = nullptr;

    // Status bar: the mode and what the mouse does in it, the brush size, the height under the
    // cursor; and, over the empty view, how to begin.
    QLabel* lblStatusMode = nullptr;
    QLabel* lblStatusBrush = nullptr;
    QLabel* lblStatusHeight = nullptr;
    QLabel* lblEmptyHint = nullptr;

    // Sculpt bar: mode and size option buttons, the custom radius slider and its label
    std::array<QToolButton*, 2> optMove{};
    std::array<QToolButton*, 7> optSize{};
    QSlider* hsSculptSize = nullptr;
    QLabel* lblSculptSize = nullptr;

    bool TerrainMode() const;
    void ResetCamera();
    void SetTerrainMode(bool on);
    void UpdatePositionLabels();
    // The view's mouse, as its event handlers feed it (and tests drive it): buttons pressed, the
    // pointer's offset from the view's centre, buttons released.
    void ViewMousePress(Qt::MouseButtons buttons);
    void ViewMouseDelta(int dx, int dy);
    void ViewMouseRelease(Qt::MouseButtons remaining);
    // Whether a sculpt stroke is under way (the left button held in terrain mode).
    bool Sculpting() const { return sculpting_; }
    bool MouseCaptured() const { return mouseCaptured_; }
    // One tick of each movement timer. Each step moves as far as the time since the previous step
    // allows, read from the step clock.
    void KeyboardTick();
    void MouseMoveTick();
    // Tests drive time through this: seconds from any origin, never going back. The default reads a
    // steady clock.
    void SetStepClock(std::function<double()> secondsNow) { stepClock_ = std::move(secondsNow); }
    void UpdateStatusBar();

signals:
    // Each start-up status as the splash shows it.
    void StartupStatus(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void mnuOpen_Click();
    void mnuRecent_Click(int index);
    void mnuClearRecent_Click();
    void mnuSave_Click();
    void mnuSaveAs_Click();
    void mnuRideTrack_Click();
    void mnuOptions_Click();
    void mnuNewTerrain_Click();
    void mnuTerrainSettings_Click();
    void mnuDeleteTerrain_Click();
    void mnuRemoveTrack_Click();
    void mnuHelpIndex_Click();
    void mnuKeyboardShortcuts_Click();
    void mnuAbout_Click();
    void mnuSculptTool_Click(SculptTool tool);
    void mnuSculptMode_Click(SculptMode mode);
    void mnuSculptSize_Click(int index);
    void optMove_Click(int index);
    void optSize_Click(int index);
    void hsSculptSize_Change(int value);
    void mnuReset_Click();
    void mnuAdjustHeight_Click();
    void mnuFilter_Click();

private:
    void BuildMenus();
    void BuildFileMenu();
    // File > Import and File > Export; each entry calls its command of the session.
    void BuildImportExportMenus(QMenu* fileMenu);
    void UpdateImportExportUI();
    void BuildTerrainMenu();
    void BuildViewMenu();
    void BuildHelpMenu();
    void BuildEditMenu();
    void BuildSculptMenu();
    void BuildToolsMenu();
    void BuildSculptBar();
    // Runs an editing command of the session, then refreshes the cursor labels.
    QAction* AddEditEntry(QMenu* menu, const char* name, const QString& text, const QKeySequence& key,
                          void (Editor::*command)());
    void SyncSculptControls();
    void ReturnToView();
    void UpdateEditingUI();
    void BuildNavigationBar();
    void ReturnFocusAfterMenus();
    void BuildStatusBar();
    // Forgets held keys, pending presses and buttons, stops both movement timers and frees the
    // pointer: the view no longer hears their releases once it has lost the keyboard.
    void ClearHeldInput();
    void CaptureMouse();
    void ReleaseMouse();
    void RecentrePointer();
    bool HandleViewKey(QEvent* event);
    bool HandleViewMouse(QEvent* event);
    QAction* AddViewSwitch(QMenu* menu, const char* name, const QString& text, ViewSwitch which);
    void SyncViewSwitches();
    void SetSplashStatus(const QString& text);

    WidgetShell widgets_;
    Editor editor_;
    // Cleared by Qt when the splash closes itself (and safe while the window is being destroyed).
    QPointer<frmSplash> splash_;
    bool ready_ = false;
    std::vector<std::pair<QAction*, ViewSwitch>> viewSwitches_;
    std::set<int> keyState_;        // Qt key codes held down
    std::set<int> pressedOnce_;     // Space and Enter presses not yet acted on
    Qt::MouseButtons mouseButtons_; // buttons held in the view
    int mouseDirection_ = 0;        // 1 forward, 4 backward, 0 none
    bool mouseCaptured_ = false;
    bool sculpting_ = false; // a stroke is under way: the left button went down in terrain mode
    QElapsedTimer steadyClock_;
    std::function<double()> stepClock_;
    StepClock keyboardClock_;
    StepClock mouseClock_;
};

// Adds keys after the action's own, which stays first and is the one its menu entry shows.
void AddAlternativeKeys(QAction* action, const QList<QKeySequence>& keys);

// The program folder: LANDWRIGHT_HOME when set, else the executable's folder; ends in "/".
QString ProgramFolder();
