#include "ScreenshotMode.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

struct ScreenshotState {
    QPointer<QWidget> window;
    QString file;
    int boxes = 0;
};

ScreenshotState& State() {
    static ScreenshotState state;
    return state;
}

// Time for a shown dialog to be laid out and painted before it is pictured.
constexpr int kPaintMilliseconds = 300;

// The window with the dialog drawn where it stands over it.
QPixmap PictureOf(QWidget* window, QWidget* dialog) {
    QPixmap picture = window->grab();
    if (dialog != nullptr && dialog->isVisible()) {
        QPainter painter(&picture);
        painter.drawPixmap(dialog->mapToGlobal(QPoint(0, 0)) - window->mapToGlobal(QPoint(0, 0)),
                           dialog->grab());
    }
    return picture;
}

void ReportBox(const QDialog& dialog, const QString& picture) {
    QString text;
    // The box's own words; labels of the fields of a file or colour dialog have buddies.
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        if (label->buddy() == nullptr && !label->text().trimmed().isEmpty()) text += "\n  " + label->text();
    std::fprintf(stderr, "screenshot mode: \"%s\" answered by its default (pictured in %s)%s\n",
                 qPrintable(dialog.windowTitle()), qPrintable(picture), qPrintable(text));
}

// The event loop may be stuck outside Qt's reach: a thread ends the program a little after the
// time limit if the timer could not.
void StartWatchdog(int limitMilliseconds) {
    std::thread([limitMilliseconds] {
        std::this_thread::sleep_for(std::chrono::milliseconds(limitMilliseconds + 10000));
        std::fprintf(stderr, "screenshot mode: the editor did not answer; stopped without a picture\n");
        std::_Exit(4);
    }).detach();
}

} // namespace

void StartScreenshotMode(QWidget* window, const QString& file, int limitMilliseconds) {
    State().window = window;
    State().file = file;
    QTimer::singleShot(limitMilliseconds, window, [] {
        std::fprintf(stderr, "screenshot mode: time limit reached; the window is pictured as it is\n");
        SaveScreenshot();
        std::_Exit(3);
    });
    StartWatchdog(limitMilliseconds);
}

bool InScreenshotMode() {
    return !State().file.isEmpty();
}

QString BoxPicturePath(const QString& file, int number) {
    const QFileInfo info(file);
    const QString box = QString("-box%1").arg(number);
    const QString suffix = info.suffix().isEmpty() ? QString() : "." + info.suffix();
    return file.left(file.size() - suffix.size()) + box + suffix;
}

void AnswerInScreenshotMode(QDialog& dialog, std::function<void()> answer) {
    if (!InScreenshotMode()) return;
    QTimer::singleShot(kPaintMilliseconds, &dialog, [&dialog, answer = std::move(answer)] {
        ScreenshotState& state = State();
        const QString picture = BoxPicturePath(state.file, ++state.boxes);
        QWidget* window = state.window ? state.window.data() : &dialog;
        PictureOf(window, window == &dialog ? nullptr : &dialog).save(picture, "PNG");
        ReportBox(dialog, picture);
        answer();
    });
}

void PressDefaultButton(QDialog& dialog) {
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (button->isDefault() && button->isEnabled()) {
            button->click();
            return;
        }
    dialog.reject();
}

bool SaveScreenshot() {
    const ScreenshotState& state = State();
    if (!state.window) return false;
    const bool saved = PictureOf(state.window, QApplication::activeModalWidget()).save(state.file, "PNG");
    if (!saved) std::fprintf(stderr, "could not write %s\n", qPrintable(state.file));
    return saved;
}
