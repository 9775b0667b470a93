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
    return Next(askChoices, {}, "ask dialog " + std::to_string(static_cast<int>(kind)));
}

std::optional<ByteColour> ScriptedShell::ShowColourDialog(const ByteColour& initial) {
    colourDialogs.push_back(initial);
    return Next(colourChoices, {}, "colour dialog");
}

void ScriptedShell::ExpectAllAnswersUsed() const {
    EXPECT_TRUE(answers.empty()) << answers.size() << " answers left";
    EXPECT_TRUE(openChoices.empty()) << openChoices.size() << " open dialog choices left";
    EXPECT_TRUE(saveChoices.empty()) << saveChoices.size() << " save dialog choices left";
    EXPECT_TRUE(askChoices.empty()) << askChoices.size() << " ask dialog choices left";
    EXPECT_TRUE(colourChoices.empty()) << colourChoices.size() << " colour dialog choices left";
}
