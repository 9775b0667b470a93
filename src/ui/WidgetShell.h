#pragma once
// The Shell done with real widgets: message boxes, file and colour dialogs, the ask dialogs, a
// modal progress dialog with Cancel, and handing programs and documents to the desktop. The main
// window gives it to the Editor unless a test has put a scripted shell in its place.

#include "Shell.h"

#include <QPointer>
#include <QSize>
#include <QString>

class QProgressDialog;
class QWidget;

class WidgetShell : public Shell {
public:
    explicit WidgetShell(QWidget* owner) : owner_(owner) {}
    ~WidgetShell() override;
    WidgetShell(const WidgetShell&) = delete;
    WidgetShell& operator=(const WidgetShell&) = delete;

    void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) override;
    Answer Ask(const std::string& text, const std::string& title, Buttons buttons, MessageIcon icon,
               Answer defaultAnswer) override;
    std::optional<std::string> ShowOpenDialog(const FileDialogOptions& options) override;
    std::optional<std::string> ShowSaveDialog(const FileDialogOptions& options) override;
    AskResult AskDialog(AskKind kind) override;
    std::optional<ByteColour> ShowColourDialog(const ByteColour& initial) override;

    bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) override;
    bool OpenWithDesktop(const std::string& path) override;

    // A QProgressDialog owned by the owner window, modal, shown only once the work has lasted
    // kProgressDelayMs (short work shows nothing).
    void BeginProgress(const std::string& caption, int maximum) override;
    void SetProgress(int value) override;
    void StepProgress() override;
    bool ProgressCancelled() override;
    void EndProgress() override;
    static constexpr int kProgressDelayMs = 400;

private:
    QWidget* owner_;
    QPointer<QProgressDialog> progress_;
};

// Converts a filter of the form "Description|*.a;*.b|Other|*.c" into Qt's
// "Description (*.a *.b);;Other (*.c)".
QString ToQtFilter(const std::string& filter);

// The size a file dialog opens at on a screen of the available size: room for its columns, but
// never more than four fifths of the screen.
QSize FileDialogSize(const QSize& available);

// Text of the files and the product is single-byte; widgets show it as Latin-1.
QString FromFileText(const std::string& text);
std::string ToFileText(const QString& text);

// File-system paths are the system's bytes (UTF-8 here); widgets show them decoded as the system
// names files. Never mix these with the file-text pair: a path through Latin-1 is a wrong path.
QString FromPath(const std::string& path);
std::string ToPath(const QString& path);

// A menu entry's text showing text as written: "&" would otherwise mark a mnemonic.
QString ToMenuText(const QString& text);
