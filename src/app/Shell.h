#pragma once
// The editor's conversations with the person using it: every message box, question, file dialog,
// colour dialog, ask dialog, progress report and hand-over to another program goes through a
// Shell. The main window's dialogs implement it with widgets; tests implement it with a scripted
// double. What the view shows is told apart, through ViewNotifications.

#include <optional>
#include <string>
#include <vector>

enum class MessageIcon { None, Information, Exclamation, Critical, Question };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

// A file dialog's settings. The filter uses the "Description|*.a;*.b" form.
struct FileDialogOptions {
    std::string title;
    std::string filter;
    std::string defaultExtension; // without the dot
    std::string folder;           // where the dialog starts
    std::string fileName;         // the name it proposes (save dialogs)
    bool mustExist = false;
    bool confirmOverwrite = false;
};

// The questions that offer "Don't Ask Me Again.".
enum class AskKind { LoadTrackTerrain, LoadNoTerrain, ImportOverwrite };

// A colour as the colour dialog works with it: red, green, blue, each 0 to 255.
struct ByteColour {
    int r = 0;
    int g = 0;
    int b = 0;
    bool operator==(const ByteColour&) const = default;
};

struct AskResult {
    int button = 0;            // 0 or 1
    bool dontAskAgain = false; // the check box was ticked
};

class Shell {
public:
    virtual ~Shell() = default;

    virtual void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) = 0;
    virtual Answer Ask(const std::string& text, const std::string& title, Buttons buttons, MessageIcon icon,
                       Answer defaultAnswer) = 0;
    virtual std::optional<std::string> ShowOpenDialog(const FileDialogOptions& options) = 0;
    virtual std::optional<std::string> ShowSaveDialog(const FileDialogOptions& options) = 0;
    virtual AskResult AskDialog(AskKind kind) = 0;
    // The colour picker, starting at initial; nothing when the user cancels.
    virtual std::optional<ByteColour> ShowColourDialog(const ByteColour& initial) = 0;

    // Starts a program without waiting for it; false when it could not be started.
    virtual bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) = 0;
    // Opens a local document with the desktop's handler for it; false when none could.
    virtual bool OpenWithDesktop(const std::string& path) = 0;

    // Progress of long work (exports, big imports), one piece of work at a time: Begin names it and
    // says how many steps it has, the work reports its step count as it goes and asks between steps
    // whether the user pressed Cancel; End closes the report, cancelled or not. A report may stay
    // hidden while the work is short.
    virtual void BeginProgress(const std::string& caption, int maximum) = 0;
    virtual void SetProgress(int value) = 0;
    virtual void StepProgress() = 0; // one step on from the last value
    virtual bool ProgressCancelled() = 0;
    virtual void EndProgress() = 0;
};
