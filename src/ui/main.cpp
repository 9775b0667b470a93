// CorvantaLandwright: the terrain editor's entry point.
//
//   CorvantaLandwright [TRACK] [--screenshot FILE] [--camera X,Y,Z,PITCH,YAW]
//
// With --screenshot the editor starts, opens TRACK, draws its first frame, saves a picture of the
// main window as PNG to FILE and exits with status 0. Nobody is asked anything in that run: a box
// shown on the way is pictured into FILE-boxN.png, reported on standard error and answered by its
// default; a run that has not ended after a minute is pictured as it stands and ends with status
// 3. --camera places the camera after start-up (world units and degrees), for pictures of a chosen
// view.
#include "ScreenshotMode.h"
#include "WidgetShell.h"
#include "frmMain.h"
#include "pbOpenGL.h"

#include <QApplication>
#include <QTimer>

#include <string>

namespace {

// A screenshot run that has not ended by then is pictured as it stands and stopped.
constexpr int kScreenshotLimitMilliseconds = 60000;

struct CommandLine {
    std::string track;  // the remaining arguments as the system gave them, joined by spaces
    QString screenshot; // empty unless --screenshot was given
    QString camera;     // empty unless --camera was given
};

// Arguments are taken as bytes: a track path is a file name, whatever letters it holds.
CommandLine ParseCommandLine(int argc, char** argv) {
    CommandLine line;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--screenshot" && i + 1 < argc)
            line.screenshot = FromPath(argv[++i]);
        else if (argument == "--camera" && i + 1 < argc)
            line.camera = QString::fromUtf8(argv[++i]);
        else
            line.track += (line.track.empty() ? "" : " ") + argument;
    }
    return line;
}

void PlaceCamera(frmMain& window, const QString& placement) {
    const QStringList parts = placement.split(',');
    CameraState camera = window.Session().Camera();
    float* fields[5] = {&camera.x, &camera.y, &camera.z, &camera.pitch, &camera.yaw};
    for (qsizetype i = 0; i < parts.size() && i < 5; ++i)
        *fields[i] = parts[i].toFloat();
    window.Session().SetCamera(camera);
    window.UpdatePositionLabels();
}

} // namespace

int main(int argc, char** argv) {
    SetDefaultViewFormat();
    QApplication app(argc, argv);
    QApplication::setApplicationName("CorvantaLandwright");
    const CommandLine line = ParseCommandLine(argc, argv);

    // The window shows itself during start-up, after the splash.
    frmMain window(ProgramFolder());
    // Armed before start-up: a message box shown while starting must not wait for a person.
    if (!line.screenshot.isEmpty())
        StartScreenshotMode(&window, line.screenshot, kScreenshotLimitMilliseconds);
    if (!window.Startup(FromPath(line.track))) {
        if (InScreenshotMode()) SaveScreenshot();
        return 1;
    }
    if (!line.camera.isEmpty()) PlaceCamera(window, line.camera);

    if (InScreenshotMode()) {
        // Give the first frame time to be drawn, then grab the window and leave without the exit
        // question or writing settings.
        QTimer::singleShot(500, &window, [] { QCoreApplication::exit(SaveScreenshot() ? 0 : 1); });
    }
    return QApplication::exec();
}
