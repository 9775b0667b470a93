#pragma once
// Running landwright-cli as a user runs it, for the command-line tests: its status and what it
// printed.

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <initializer_list>
#include <string>
#include <sys/wait.h>
#include <vector>

struct CliRun {
    int status = -1;
    std::string out;
};

// Runs the command line tool with the given paths (quoted here) and captures stdout and stderr.
inline CliRun RunCli(const std::string& command, const std::vector<std::string>& paths = {}) {
    ScratchFolder folder;
    std::string line = std::string("'") + LW_CLI_PATH + "' " + command;
    for (const std::string& path : paths)
        line += " '" + path + "'";
    const int raw = std::system((line + " > '" + folder.File("out") + "' 2>&1").c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, ReadText(folder.File("out"))};
}

inline void ExpectPrinted(const CliRun& run, std::initializer_list<const char*> lines) {
    ASSERT_EQ(run.status, 0) << run.out;
    for (const char* line : lines)
        EXPECT_NE(run.out.find(line), std::string::npos) << line << "\n" << run.out;
}
