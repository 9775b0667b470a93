#include "ScriptedShell.h"

#include <gtest/gtest.h>

void ScriptedShell::ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) {
    messages.push_back({text, title, icon});
}

Answer ScriptedShell::Ask(const std::string& text, const std::string& title, Buttons buttons, MessageIcon icon,
                          Answer defaultAnswer) {
    questions.push_back({text, title, buttons, icon, defaultAnswer});
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected question: " << text;
        return defaultAnswer;
    }
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<std::string> ScriptedShell::ShowOpenDialog(const FileDialogOptions& options) {
    openDialogs.push_back(options);
    if (openChoices.empty()) {
        ADD_FAILURE() << "unexpected open dialog: " << options.title;
        return std::nullopt;
    }
    auto choice = openChoices.front();
    openChoices.pop_front();
    return choice;
}

std::optional<std::string> ScriptedShell::ShowSaveDialog(const FileDialogOptions& options) {
    saveDialogs.push_back(options);
    if (saveChoices.empty()) {
        ADD_FAILURE() << "unexpected save dialog: " << options.title;
        return std::nullopt;
    }
    auto choice = saveChoices.front();
    saveChoices.pop_front();
    return choice;
}

AskResult ScriptedShell::AskDialog(AskKind kind) {
    askDialogs.push_back(kind);
    if (askChoices.empty()) {
        ADD_FAILURE() << "unexpected ask dialog " << static_cast<int>(kind);
        return {};
    }
    const AskResult result = askChoices.front();
    askChoices.pop_front();
    return result;
}

std::optional<ByteColour> ScriptedShell::ShowColourDialog(const ByteColour& initial) {
    colourDialogs.push_back(initial);
    if (colourChoices.empty()) {
        ADD_FAILURE() << "unexpected colour dialog";
        return std::nullopt;
    }
    auto choice = colourChoices.front();
    colourChoices.pop_front();
    return choice;
}

bool ScriptedShell::StartDetached(const std::string& program, const std::vector<std::string>& arguments) {
    started.push_back({program, arguments});
    return startSucceeds;
}

bool ScriptedShell::OpenWithDesktop(const std::string& path) {
    openedDocuments.push_back(path);
    return true;
}

void ScriptedShell::ExpectAllAnswersUsed() const {
    EXPECT_TRUE(answers.empty()) << answers.size() << " answers left";
    EXPECT_TRUE(openChoices.empty()) << openChoices.size() << " open dialog choices left";
    EXPECT_TRUE(saveChoices.empty()) << saveChoices.size() << " save dialog choices left";
    EXPECT_TRUE(askChoices.empty()) << askChoices.size() << " ask dialog choices left";
    EXPECT_TRUE(colourChoices.empty()) << colourChoices.size() << " colour dialog choices left";
}
