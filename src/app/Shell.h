#pragma once
// The one seam between the editor and the person using it: every message box, question, file
// dialog, ask dialog, redraw request and window refresh goes through a Shell. The main window
// implements it with real widgets; tests implement it with a scripted double.

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
enum class AskKind { LoadTrackTerrain, LoadNoTerrain };

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
    // Opens a local document with the desktop's handler for it.
    virtual bool OpenWithDesktop(const std::string& path) = 0;

    // The terrain's texture paths may have changed: the view uploads them again.
    virtual void ReloadTextures() = 0;
    // Asks the view for a new frame.
    virtual void RenderScene() = 0;
    // Caption, menu enabling and the recent-files menu.
    virtual void UpdateUI() = 0;
};
