// The main window's menus, their enabling by state, and their handlers.
#include "frmAbout.h"
#include "frmKeyboardShortcuts.h"
#include "frmMain.h"
#include "frmOptions.h"
#include "frmTeraSettings.h"

#include <QMenuBar>

namespace {

QAction* AddEntry(QMenu* menu, const char* name, const QString& text, const QKeySequence& shortcut = {}) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    if (!shortcut.isEmpty()) action->setShortcut(shortcut);
    // A held key acts once: a repeated F5 would start the simulator again and again.
    action->setAutoRepeat(false);
    return action;
}

} // namespace

void AddAlternativeKeys(QAction* action, const QList<QKeySequence>& keys) {
    action->setShortcuts(action->shortcuts() + keys);
}

void frmMain::BuildMenus() {
    BuildFileMenu();
    BuildEditMenu();
    BuildTerrainMenu();
    BuildSculptMenu();
    BuildToolsMenu();
    BuildViewMenu();
    BuildHelpMenu();
}

void frmMain::BuildFileMenu() {
    QMenu* menu = menuBar()->addMenu("&File");
    menu->setObjectName("mnuFile");
    menu->setToolTipsVisible(true); // a recent track's tool tip is its whole path
    mnuOpen = AddEntry(menu, "mnuOpen", "&Open...", QKeySequence::Open);
    connect(mnuOpen, &QAction::triggered, this, &frmMain::mnuOpen_Click);
    menu->addSeparator();
    for (int i = 0; i < kRecentFileCount; ++i) {
        QAction* recent = AddEntry(menu, "", QString());
        recent->setObjectName(QString("mnuRecent_%1").arg(i));
        connect(recent, &QAction::triggered, this, [this, i] { mnuRecent_Click(i); });
        mnuRecent[static_cast<std::size_t>(i)] = recent;
    }
    mnuClearRecent = AddEntry(menu, "mnuClearRecent", "Clear Recent Files");
    connect(mnuClearRecent, &QAction::triggered, this, &frmMain::mnuClearRecent_Click);
    menu->addSeparator();
    mnuSave = AddEntry(menu, "mnuSave", "&Save", Qt::Key_F2);
    AddAlternativeKeys(mnuSave, {QKeySequence(Qt::CTRL | Qt::Key_S)});
    connect(mnuSave, &QAction::triggered, this, &frmMain::mnuSave_Click);
    mnuSaveAs = AddEntry(menu, "mnuSaveAs", "Save &As...", Qt::Key_F12);
    connect(mnuSaveAs, &QAction::triggered, this, &frmMain::mnuSaveAs_Click);
    menu->addSeparator();
    BuildImportExportMenus(menu);
    menu->addSeparator();
    mnuRideTrack = AddEntry(menu, "mnuRideTrack", "&Ride Track in Simulator", Qt::Key_F5);
    connect(mnuRideTrack, &QAction::triggered, this, &frmMain::mnuRideTrack_Click);
    menu->addSeparator();
    mnuOptions = AddEntry(menu, "mnuOptions", "O&ptions...");
    connect(mnuOptions, &QAction::triggered, this, &frmMain::mnuOptions_Click);
    menu->addSeparator();
    mnuExit = AddEntry(menu, "mnuExit", "E&xit");
    connect(mnuExit, &QAction::triggered, this, &QWidget::close);
}

void frmMain::BuildTerrainMenu() {
    QMenu* menu = menuBar()->addMenu("&Terrain");
    menu->setObjectName("mnuTerrain");
    mnuNewTerrain = AddEntry(menu, "mnuNewTerrain", "&New");
    connect(mnuNewTerrain, &QAction::triggered, this, &frmMain::mnuNewTerrain_Click);
    mnuTerrainSettings = AddEntry(menu, "mnuTerrainSettings", "Terrain &Settings...");
    connect(mnuTerrainSettings, &QAction::triggered, this, &frmMain::mnuTerrainSettings_Click);
    mnuDeleteTerrain = AddEntry(menu, "mnuDeleteTerrain", "&Delete");
    connect(mnuDeleteTerrain, &QAction::triggered, this, &frmMain::mnuDeleteTerrain_Click);
    mnuReset = AddEntry(menu, "mnuReset", "R&eset...");
    connect(mnuReset, &QAction::triggered, this, &frmMain::mnuReset_Click);
    menu->addSeparator();
    mnuRemoveTrack = AddEntry(menu, "mnuRemoveTrack", "&Remove Track Data");
    connect(mnuRemoveTrack, &QAction::triggered, this, &frmMain::mnuRemoveTrack_Click);
}

QAction* frmMain::AddViewSwitch(QMenu* menu, const char* name, const QString& text, ViewSwitch which) {
    QAction* action = AddEntry(menu, name, text);
    action->setCheckable(true);
    connect(action, &QAction::toggled, this, [this, which](bool on) { editor_.SetViewSwitch(which, on); });
    viewSwitches_.emplace_back(action, which);
    return action;
}

void frmMain::BuildViewMenu() {
    QMenu* menu = menuBar()->addMenu("&View");
    menu->setObjectName("mnuView");
    mnuViewTerrain = AddViewSwitch(menu, "mnuViewTerrain", "&Terrain", ViewSwitch::Terrain);
    mnuViewWater = AddViewSwitch(menu, "mnuViewWater", "&Water", ViewSwitch::Water);
    mnuViewTextures = AddViewSwitch(menu, "mnuViewTextures", "Te&xtures", ViewSwitch::Textures);
    mnuViewSkybox = AddViewSwitch(menu, "mnuViewSkybox", "S&kybox", ViewSwitch::Skybox);
    menu->addSeparator();
    mnuViewTrack = AddViewSwitch(menu, "mnuViewTrack", "Tr&ack", ViewSwitch::Track);
    mnuViewSupports = AddViewSwitch(menu, "mnuViewSupports", "&Supports", ViewSwitch::Supports);
    mnuViewGuidelines = AddViewSwitch(menu, "mnuViewGuidelines", "&Guidelines", ViewSwitch::Guidelines);
    mnuViewTrees = AddViewSwitch(menu, "mnuViewTrees", "T&rees", ViewSwitch::Trees);
    menu->addSeparator();
    mnuClipTerrain =
        AddViewSwitch(menu, "mnuClipTerrain", "&Clip Terrain to CV Scene Area", ViewSwitch::ClipTerrain);
    mnuStayAbove = AddViewSwitch(menu, "mnuStayAbove", "Keep Camera &Above Ground", ViewSwitch::StayAbove);
    menu->addSeparator();
    mnuResetCamera = AddEntry(menu, "mnuResetCamera", "&Reset Camera");
    connect(mnuResetCamera, &QAction::triggered, this, &frmMain::ResetCamera);
    mnuMoveCursorIntoView = AddEntry(menu, "mnuMoveCursorIntoView", "&Move Cursor Into View");
    connect(mnuMoveCursorIntoView, &QAction::triggered, this, [this] {
        editor_.MoveCursorIntoView();
        UpdatePositionLabels();
    });
}

void frmMain::BuildHelpMenu() {
    QMenu* menu = menuBar()->addMenu("&Help");
    menu->setObjectName("mnuHelp");
    mnuHelpIndex = AddEntry(menu, "mnuHelpIndex", "&Help Index", QKeySequence::HelpContents);
    connect(mnuHelpIndex, &QAction::triggered, this, &frmMain::mnuHelpIndex_Click);
    mnuKeyboardShortcuts = AddEntry(menu, "mnuKeyboardShortcuts", "&Keyboard Shortcuts");
    connect(mnuKeyboardShortcuts, &QAction::triggered, this, &frmMain::mnuKeyboardShortcuts_Click);
    menu->addSeparator();
    mnuAbout = AddEntry(menu, "mnuAbout", "&About CorvantaLandwright");
    connect(mnuAbout, &QAction::triggered, this, &frmMain::mnuAbout_Click);
}

void frmMain::SyncViewSwitches() {
    for (const auto& [action, which] : viewSwitches_) {
        const QSignalBlocker quiet(action);
        action->setChecked(editor_.ViewSwitchOn(which));
    }
}

void frmMain::UpdateUI() {
    setWindowTitle(FromPath(editor_.Caption()));
    const TerrainModel& t = editor_.Terrain();
    mnuSave->setEnabled(t.trackPresent);
    mnuSaveAs->setEnabled(t.trackPresent);
    mnuRideTrack->setEnabled(t.trackPresent);
    mnuRemoveTrack->setEnabled(t.trackPresent);
    mnuDeleteTerrain->setEnabled(t.terrainPresent);
    mnuMoveCursorIntoView->setEnabled(t.terrainPresent);
    mnuTerrainSettings->setEnabled(t.terrainPresent);
    bool anyRecent = false;
    for (std::size_t i = 0; i < mnuRecent.size(); ++i) {
        const std::string& path = editor_.Settings().recentPaths[i];
        mnuRecent[i]->setVisible(!path.empty());
        mnuRecent[i]->setText(
            QString("&%1 %2").arg(i + 1).arg(ToMenuText(FromPath(editor_.Settings().recentTitles[i]))));
        mnuRecent[i]->setToolTip(FromPath(path));
        anyRecent = anyRecent || !path.empty();
    }
    mnuClearRecent->setEnabled(anyRecent);
    UpdateImportExportUI();
    SyncViewSwitches();
    UpdateEditingUI();
    UpdatePositionLabels();
}

void frmMain::mnuOpen_Click() {
    editor_.OpenTrack("");
}

void frmMain::mnuRecent_Click(int index) {
    const std::string path = editor_.Settings().recentPaths[static_cast<std::size_t>(index)];
    if (!path.empty()) editor_.OpenTrack(path);
}

void frmMain::mnuClearRecent_Click() {
    editor_.ClearRecentFiles();
}
void frmMain::mnuSave_Click() {
    editor_.SaveTrack(editor_.Terrain().trackFilePath);
}
void frmMain::mnuSaveAs_Click() {
    editor_.SaveTrackAs();
}
void frmMain::mnuRideTrack_Click() {
    editor_.RideTrack();
}
void frmMain::mnuDeleteTerrain_Click() {
    editor_.DeleteTerrain();
}
void frmMain::mnuRemoveTrack_Click() {
    editor_.RemoveTrackData();
}
void frmMain::mnuHelpIndex_Click() {
    editor_.OpenHelpIndex();
}

void frmMain::mnuNewTerrain_Click() {
    // The question only: the terrain goes when the settings' OK makes the new one.
    if (!editor_.NewTerrain()) return;
    frmTeraSettings dialog(editor_, this, TerrainSettingsPurpose::New);
    dialog.exec();
}

void frmMain::mnuTerrainSettings_Click() {
    frmTeraSettings dialog(editor_, this);
    dialog.exec();
}

void frmMain::mnuOptions_Click() {
    frmOptions dialog(editor_, this);
    dialog.exec();
}

void frmMain::mnuKeyboardShortcuts_Click() {
    frmKeyboardShortcuts dialog(this);
    dialog.exec();
}

void frmMain::mnuAbout_Click() {
    frmAbout dialog(this);
    dialog.exec();
}
