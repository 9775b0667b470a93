#pragma once
// The editor run only to take a picture of itself (--screenshot): nobody is there to answer, so
// every box or dialog the shell shows is pictured over the main window and answered by its
// default, and the run ends with a picture of the window within a time limit, whatever happens.

#include <QString>

#include <functional>

class QDialog;
class QWidget;

// Turns the mode on for window, whose picture goes to file (PNG). After limitMilliseconds the
// window is pictured as it is and the program ends with status 3.
void StartScreenshotMode(QWidget* window, const QString& file, int limitMilliseconds);
bool InScreenshotMode();

// In screenshot mode: once dialog has been shown and painted, it is pictured over the window into
// the next "FILE-boxN.png" beside the picture, its title and text go to standard error, and
// answer runs (it must close the dialog). Does nothing outside the mode.
void AnswerInScreenshotMode(QDialog& dialog, std::function<void()> answer);

// Presses the dialog's default button, or rejects the dialog when it has none.
void PressDefaultButton(QDialog& dialog);

// The picture of a box shown in screenshot mode: "shot.png" and 2 give "shot-box2.png".
QString BoxPicturePath(const QString& file, int number);

// Saves the window's picture (with any dialog open over it) to the file; false when it cannot.
bool SaveScreenshot();
