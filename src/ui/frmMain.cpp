#include "frmMain.h"

#include "frmSplash.h"
#include "mPictureLoader.h"
#include "RenderInputFromEditor.h"
#include "pbOpenGL.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

QString ProgramFolder() {
    QString folder = qEnvironmentVariable("LANDWRIGHT_HOME");
    if (folder.isEmpty()) folder = QCoreApplication::applicationDirPath();
    folder = QDir::cleanPath(QDir(folder).absolutePath());
    return folder.endsWith('/') ? folder : folder + '/';
}

frmMain::frmMain(const QString& programFolder, QWidget* parent)
    : QMainWindow(parent), editor_(*this, ToPath(programFolder)), widgets_(this), interaction_(&widgets_) {
    setObjectName("frmMain");
    InstallQtPictureDecoder();
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
        ShowMessage("Error - Could Not Initialize OpenGL Render Context!", "OpenGL Error",
                    MessageIcon::Critical);
        return false;
    }
    ready_ = true;
    editor_.terrain.terrainPresent = false;
    editor_.terrain.trackPresent = false;
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

void frmMain::ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) {
    interaction_->ShowMessage(text, title, icon);
}

Answer frmMain::Ask(const std::string& text, const std::string& title, Buttons buttons, MessageIcon icon,
                    Answer defaultAnswer) {
    return interaction_->Ask(text, title, buttons, icon, defaultAnswer);
}

std::optional<std::string> frmMain::ShowOpenDialog(const FileDialogOptions& options) {
    return interaction_->ShowOpenDialog(options);
}

std::optional<std::string> frmMain::ShowSaveDialog(const FileDialogOptions& options) {
    return interaction_->ShowSaveDialog(options);
}

AskResult frmMain::AskDialog(AskKind kind) {
    return interaction_->AskDialog(kind);
}

std::optional<ByteColour> frmMain::ShowColourDialog(const ByteColour& initial) {
    return interaction_->ShowColourDialog(initial);
}

bool frmMain::StartDetached(const std::string& program, const std::vector<std::string>& arguments) {
    QStringList list;
    for (const std::string& argument : arguments)
        list << FromPath(argument);
    return QProcess::startDetached(FromPath(program), list);
}

bool frmMain::OpenWithDesktop(const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(FromPath(path)));
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
    RenderScene();
}
