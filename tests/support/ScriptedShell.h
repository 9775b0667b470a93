#pragma once
// A Shell and view notifications for tests: answers questions and dialogs from queues filled by
// the test and records everything the editor showed, asked, reported as progress or told the view.
// An unexpected question fails the test.

#include "Shell.h"
#include "ViewNotifications.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

struct ShownMessage {
    std::string text, title;
    MessageIcon icon;
};

struct AskedQuestion {
    std::string text, title;
    Buttons buttons;
    MessageIcon icon;
    Answer defaultAnswer;
};

struct StartedProgram {
    std::string program;
    std::vector<std::string> arguments;
};

// One piece of long work as the editor reported it.
struct ProgressReport {
    std::string caption;
    int maximum = 0;
    std::vector<int> values; // every value reported, in order (steps included)
    int cancelQueries = 0;
    bool ended = false;
};

class ScriptedShell : public Shell, public ViewNotifications {
public:
    // Scripted answers, used front first.
    std::deque<Answer> answers;
    std::deque<std::optional<std::string>> openChoices, saveChoices;
    std::deque<AskResult> askChoices;
    std::deque<std::optional<ByteColour>> colourChoices;
    bool startSucceeds = true, openSucceeds = true;
    // ProgressCancelled answers true from this query on (1 the first), never when 0.
    int cancelAtQuery = 0;
    // Runs when an ask dialog is shown, before its scripted answer, so a test can look at the state
    // the editor is in while the user is being asked.
    std::function<void(AskKind)> whileAsking;

    // What happened.
    std::vector<ShownMessage> messages;
    std::vector<AskedQuestion> questions;
    std::vector<FileDialogOptions> openDialogs, saveDialogs;
    std::vector<AskKind> askDialogs;
    std::vector<ByteColour> colourDialogs; // the colour each colour dialog started at
    std::vector<StartedProgram> started;
    std::vector<std::string> openedDocuments;
    std::vector<ProgressReport> progress;
    int textureReloads = 0, renders = 0, uiUpdates = 0;

    void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) override {
        messages.push_back({text, title, icon});
    }
    Answer Ask(const std::string& text, const std::string& title, Buttons buttons, MessageIcon icon,
               Answer defaultAnswer) override;
    std::optional<std::string> ShowOpenDialog(const FileDialogOptions& options) override;
    std::optional<std::string> ShowSaveDialog(const FileDialogOptions& options) override;
    AskResult AskDialog(AskKind kind) override;
    std::optional<ByteColour> ShowColourDialog(const ByteColour& initial) override;
    bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) override {
        started.push_back({program, arguments});
        return startSucceeds;
    }
    bool OpenWithDesktop(const std::string& path) override {
        openedDocuments.push_back(path);
        return openSucceeds;
    }
    void BeginProgress(const std::string& caption, int maximum) override;
    void SetProgress(int value) override;
    void StepProgress() override;
    bool ProgressCancelled() override;
    void EndProgress() override;
    void ReloadTextures() override { ++textureReloads; }
    void RenderScene() override { ++renders; }
    void UpdateUI() override { ++uiUpdates; }

    // Fails the test if any scripted answer was left unused or a progress report was not ended.
    void ExpectAllAnswersUsed() const;
};
