// CorvantaLandwright: the terrain editor's entry point.
//
//   CorvantaLandwright [TRACK] [--screenshot FILE] [--camera X,Y,Z,PITCH,YAW]
//
// With --screenshot the editor starts, opens TRACK, draws its first frame, saves a picture of the
// main window as PNG to FILE and exits with status 0. --camera places the camera after start-up
// (world units and degrees), for pictures of a chosen view.
#include "frmMain.h"
#include "pbOpenGL.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace {

struct CommandLine {
    QString track;      // the remaining arguments, joined as one command-line text
    QString screenshot; // empty unless --screenshot was given
    QString camera;     // empty unless --camera was given
};

CommandLine ParseCommandLine(const QStringList& arguments) {
    CommandLine line;
    QStringList rest;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == "--screenshot" && i + 1 < arguments.size()) line.screenshot = arguments[++i];
        else if (arguments[i] == "--camera" && i + 1 < arguments.size()) line.camera = arguments[++i];
        else rest << arguments[i];
    }
    line.track = rest.join(' ');
    return line;
}

} // namespace

int main(int argc, char** argv) {
    SetDefaultViewFormat();
    QApplication app(argc, argv);
    QApplication::setApplicationName("CorvantaLandwright");
    const CommandLine line = ParseCommandLine(QApplication::arguments());

    frmMain window(ProgramFolder());
    window.show();
    if (!window.Startup(line.track)) return 1;
    if (!line.camera.isEmpty()) {
        const QStringList parts = line.camera.split(',');
        CameraState camera = window.Session().Camera();
        float* fields[5] = {&camera.x, &camera.y, &camera.z, &camera.pitch, &camera.yaw};
        for (qsizetype i = 0; i < parts.size() && i < 5; ++i) *fields[i] = parts[i].toFloat();
        window.Session().SetCamera(camera);
        window.UpdatePositionLabels();
    }

    if (!line.screenshot.isEmpty()) {
        // Give the first frame time to be drawn, then grab the window and leave without the exit
        // question or writing settings.
        QTimer::singleShot(500, &window, [&window, &line] {
            const bool saved = window.grab().save(line.screenshot, "PNG");
            if (!saved) std::fprintf(stderr, "could not write %s\n", qPrintable(line.screenshot));
            QCoreApplication::exit(saved ? 0 : 1);
        });
    }
    return QApplication::exec();
}
