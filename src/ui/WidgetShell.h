#pragma once
// The Shell's conversations with the user, done with real widgets: message boxes, file dialogs,
// the ask dialogs. The main window forwards its Shell calls for these here unless a test has put a
// scripted shell in their place.

#include "Shell.h"

#include <QSize>
#include <QString>

class QWidget;

class WidgetShell : public Shell {
public:
    explicit WidgetShell(QWidget* owner) : owner_(owner) {}

    void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) override;
    Answer Ask(const std::string& text, const std::string& title, Buttons buttons, MessageIcon icon,
               Answer defaultAnswer) override;
    std::optional<std::string> ShowOpenDialog(const FileDialogOptions& options) override;
    std::optional<std::string> ShowSaveDialog(const FileDialogOptions& options) override;
    AskResult AskDialog(AskKind kind) override;
    std::optional<ByteColour> ShowColourDialog(const ByteColour& initial) override;

    // The main window does these itself; a WidgetShell never receives them.
    bool StartDetached(const std::string&, const std::vector<std::string>&) override { return false; }
    bool OpenWithDesktop(const std::string&) override { return false; }
    void ReloadTextures() override {}
    void RenderScene() override {}
    void UpdateUI() override {}

private:
    QWidget* owner_;
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
