#include "frmMain.h"

#include "RenderInputFromEditor.h"
#include "frmSplash.h"
#include "mHeightMap16.h"
#include "mPictureLoader.h"
#include "pbOpenGL.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>

QString ProgramFolder() {
    QString folder = qEnvironmentVariable("LANDWRIGHT_HOME");
    if (folder.isEmpty()) folder = QCoreApplication::applicationDirPath();
    folder = QDir::cleanPath(QDir(folder).absolutePath());
    return folder.endsWith('/') ? folder : folder + '/';
}

frmMain::frmMain(const QString& programFolder, QWidget* parent)
    : QMainWindow(parent), widgets_(this), editor_(widgets_, *this, ToPath(programFolder)) {
    setObjectName("frmMain");
    InstallQtPictureDecoder();
    InstallQtPng16Codec();
    view = new pbOpenGL(this);
    view->SetInputSource([this] { return MakeRenderInput(editor_); });
    setCentralWidget(view);
    BuildMenus();
    BuildNavigationBar();
    BuildSculptBar();
    BuildStatusBar();
    SyncSculptControls();
    resize(1024, 768);
    setWindowTitle(FromPath(editor_.Caption()));
}

frmMain::~frmMain() = default;

void frmMain::SetSplashStatus(const QString& text) {
    if (splash_) splash_->SetStatus(text);
    emit StartupStatus(text);
}

bool frmMain::Startup(const QString& commandLine) {
    ready_ = false;
    splash_ = new frmSplash(this);
    splash_->show();
    QApplication::processEvents();

    SetSplashStatus("Initializing Settings...");
    editor_.InitPaths();
    editor_.LoadSettings();
    SyncViewSwitches();
    SyncSculptControls();
    QApplication::processEvents();

    SetSplashStatus("Initializing OpenGL...");
    if (!isVisible()) show();
    QApplication::processEvents();
    if (!view->ContextReady()) {
        editor_.Dialogs().ShowMessage("Error - Could Not Initialize OpenGL Render Context!", "OpenGL Error",
                                      MessageIcon::Critical);
        return false;
    }
    ready_ = true;
    editor_.ResetView();
    UpdateUI();

    QString path = commandLine;
    path.remove('"');
    if (!path.isEmpty() && QFileInfo(path).isFile()) {
        SetSplashStatus("Opening Track...");
        editor_.OpenTrack(ToPath(path));
    }
    editor_.ResetUndoHistory();
    UpdateUI();
    SetSplashStatus("Ready.");
    if (splash_) splash_->CloseMe();
    return true;
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (!editor_.ConfirmClose()) {
        event->ignore();
        return;
    }
    editor_.SaveSettings();
    ReleaseMouse();
    event->accept();
}

void frmMain::ReloadTextures() {
    view->RequestTextureReload();
}

void frmMain::RenderScene() {
    if (ready_) view->update();
    UpdateStatusBar();
}

void frmMain::ResetCamera() {
    editor_.ResetView();
    UpdatePositionLabels();
}
