#include "ScriptedShell.h"

#include <gtest/gtest.h>

namespace {

// The next scripted choice; without one the test fails and `fallback` is returned.
template <typename T> T Next(std::deque<T>& queue, T fallback, const std::string& what) {
    if (queue.empty()) {
        ADD_FAILURE() << "unexpected " << what;
        return fallback;
    }
    T next = std::move(queue.front());
    queue.pop_front();
    return next;
}

// The report under way; reports outside Begin and End fail the test.
ProgressReport* Current(std::vector<ProgressReport>& reports, const char* what) {
    if (reports.empty() || reports.back().ended) {
        ADD_FAILURE() << what << " without BeginProgress";
        return nullptr;
    }
    return &reports.back();
}

} // namespace

Answer ScriptedShell::Ask(const std::string& text, const std::string& title, Buttons buttons,
                          MessageIcon icon, Answer defaultAnswer) {
    questions.push_back({text, title, buttons, icon, defaultAnswer});
    return Next(answers, defaultAnswer, "question: " + text);
}

std::optional<std::string> ScriptedShell::ShowOpenDialog(const FileDialogOptions& options) {
    openDialogs.push_back(options);
    return Next(openChoices, {}, "open dialog: " + options.title);
}

std::optional<std::string> ScriptedShell::ShowSaveDialog(const FileDialogOptions& options) {
    saveDialogs.push_back(options);
    return Next(saveChoices, {}, "save dialog: " + options.title);
}

AskResult ScriptedShell::AskDialog(AskKind kind) {
    askDialogs.push_back(kind);
    if (whileAsking) whileAsking(kind);
    return Next(askChoices, {}, "ask dialog " + std::to_string(static_cast<int>(kind)));
}

std::optional<ByteColour> ScriptedShell::ShowColourDialog(const ByteColour& initial) {
    colourDialogs.push_back(initial);
    return Next(colourChoices, {}, "colour dialog");
}

void ScriptedShell::BeginProgress(const std::string& caption, int maximum) {
    EXPECT_TRUE(progress.empty() || progress.back().ended)
        << "progress begun inside " << progress.back().caption;
    progress.push_back({caption, maximum, {}, 0, false});
}

void ScriptedShell::SetProgress(int value) {
    if (ProgressReport* report = Current(progress, "SetProgress")) report->values.push_back(value);
}

void ScriptedShell::StepProgress() {
    if (ProgressReport* report = Current(progress, "StepProgress"))
        report->values.push_back(report->values.empty() ? 1 : report->values.back() + 1);
}

bool ScriptedShell::ProgressCancelled() {
    ProgressReport* report = Current(progress, "ProgressCancelled");
    if (!report) return false;
    ++report->cancelQueries;
    return cancelAtQuery > 0 && report->cancelQueries >= cancelAtQuery;
}

void ScriptedShell::EndProgress() {
    if (ProgressReport* report = Current(progress, "EndProgress")) report->ended = true;
}

void ScriptedShell::ExpectAllAnswersUsed() const {
    EXPECT_TRUE(answers.empty()) << answers.size() << " answers left";
    EXPECT_TRUE(openChoices.empty()) << openChoices.size() << " open dialog choices left";
    EXPECT_TRUE(saveChoices.empty()) << saveChoices.size() << " save dialog choices left";
    EXPECT_TRUE(askChoices.empty()) << askChoices.size() << " ask dialog choices left";
    EXPECT_TRUE(colourChoices.empty()) << colourChoices.size() << " colour dialog choices left";
    EXPECT_TRUE(progress.empty() || progress.back().ended) << "progress not ended";
}
