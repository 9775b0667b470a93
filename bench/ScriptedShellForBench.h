#pragma once
// A shell that answers nothing and shows nothing: the benchmarks drive the editor directly.
#include "Shell.h"
#include "ViewNotifications.h"

class BenchShell : public Shell, public ViewNotifications {
public:
    void ShowMessage(const std::string&, const std::string&, MessageIcon) override {}
    Answer Ask(const std::string&, const std::string&, Buttons, MessageIcon, Answer fallback) override {
        return fallback;
    }
    std::optional<std::string> ShowOpenDialog(const FileDialogOptions&) override { return std::nullopt; }
    std::optional<std::string> ShowSaveDialog(const FileDialogOptions&) override { return std::nullopt; }
    AskResult AskDialog(AskKind) override { return {}; }
    std::optional<ByteColour> ShowColourDialog(const ByteColour&) override { return std::nullopt; }
    bool StartDetached(const std::string&, const std::vector<std::string>&) override { return false; }
    bool OpenWithDesktop(const std::string&) override { return false; }
    void BeginProgress(const std::string&, int) override {}
    void SetProgress(int) override {}
    void StepProgress() override {}
    bool ProgressCancelled() override { return false; }
    void EndProgress() override {}
    void ReloadTextures() override {}
    void RenderScene() override {}
    void UpdateUI() override {}
};
