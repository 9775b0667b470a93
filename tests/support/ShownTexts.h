#pragma once
// The tables of fixed texts: an editor over a scratch program folder for each row, and one row's
// expectation of the message or question a workflow shows, checked against the shell's record.

#include "Editor.h"
#include "SampleTrack.h"
#include "ScriptedShell.h"
#include "TestSupport.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

// An editor over a scratch program folder, with helpers that set up state through its commands.
struct TextSession {
    ScratchFolder folder;
    ScriptedShell shell;
    Editor editor{shell, shell, folder.Path().string()};

    TextSession() { editor.InitPaths(); }

    // Opens a sample track holding a 4 x 4 terrain; the editor had none, so it is loaded unasked.
    void OpenTrackWithTerrain() {
        const std::string path = folder.File("sample.cvtrack");
        EXPECT_TRUE(WriteTrackFile(path, MakeSampleTrack(4, 4)));
        editor.OpenTrack(path);
    }
};

// Names each case of a parameterised table after its row's `name`.
struct RowName {
    template <typename Row> std::string operator()(const ::testing::TestParamInfo<Row>& row) const {
        return row.param.name;
    }
};

struct ExpectedText {
    const char* text;
    const char* title;
    MessageIcon icon;
    std::optional<Buttons> buttons = std::nullopt; // set for a question, answered with its default
    Answer defaultAnswer = Answer::Ok;
    bool wholeText = true; // false: the shown text only starts so (a file name or a reason follows)
};

// Exactly one message (or, for a question, one question and no message) was shown, as expected.
inline void ExpectShownOnce(const ScriptedShell& shell, const ExpectedText& expected) {
    shell.ExpectAllAnswersUsed();
    std::string text, title;
    MessageIcon icon = MessageIcon::None;
    if (expected.buttons) {
        ASSERT_EQ(shell.questions.size(), 1u);
        EXPECT_TRUE(shell.messages.empty()) << shell.messages.front().text;
        const AskedQuestion& q = shell.questions.front();
        text = q.text, title = q.title, icon = q.icon;
        EXPECT_EQ(q.buttons, *expected.buttons);
        EXPECT_EQ(q.defaultAnswer, expected.defaultAnswer);
    } else {
        ASSERT_EQ(shell.messages.size(), 1u);
        EXPECT_TRUE(shell.questions.empty()) << shell.questions.front().text;
        const ShownMessage& m = shell.messages.front();
        text = m.text, title = m.title, icon = m.icon;
    }
    const std::string want = expected.text;
    EXPECT_EQ(expected.wholeText ? text : text.substr(0, want.size()), want) << "shown: " << text;
    EXPECT_EQ(title, expected.title);
    EXPECT_EQ(icon, expected.icon);
}

// One row of a table: the workflow to run in a fresh session and the one text it must show.
struct TextRow {
    const char* name;
    void (*trigger)(TextSession&);
    ExpectedText expected;
};

// Runs the row's workflow, a question answered with its default (which never destroys anything),
// and checks what it showed.
inline void ExpectRowShowsItsText(const TextRow& row) {
    TextSession session;
    if (row.expected.buttons) session.shell.answers.push_back(row.expected.defaultAnswer);
    row.trigger(session);
    ExpectShownOnce(session.shell, row.expected);
}

// One file dialog a workflow shows, cancelled.
struct FileDialogRow {
    const char* name;
    void (*trigger)(TextSession&);
    bool save; // a save dialog, else an open dialog
    const char* title;
    const char* filter;
    const char* defaultExtension;
};

inline void ExpectRowShowsItsDialog(const FileDialogRow& row) {
    TextSession session;
    ScriptedShell& shell = session.shell;
    (row.save ? shell.saveChoices : shell.openChoices).push_back(std::nullopt);
    row.trigger(session);
    shell.ExpectAllAnswersUsed();
    const std::vector<FileDialogOptions>& shown = row.save ? shell.saveDialogs : shell.openDialogs;
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].title, row.title);
    EXPECT_EQ(shown[0].filter, row.filter);
    EXPECT_EQ(shown[0].defaultExtension, row.defaultExtension);
    EXPECT_TRUE(shell.messages.empty());
}
