// Safe saving: links, permission bits, read-only files and folders, no temporary left behind,
// messages that name the file the user saved; and the size limit on reading.
#include "FileIO.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

// The names in a folder, so a left temporary file shows.
std::vector<std::string> Entries(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

fs::perms Mode(const std::string& path) {
    return fs::status(path).permissions();
}

} // namespace

TEST(SafeSaving, ALinkStaysALinkAndTheFileAtTheEndOfTheChainIsReplaced) {
    ScratchFolder folder;
    fs::create_directory(folder.Path() / "real");
    WriteText(folder.File("real/track.cvtrack"), "old");
    fs::create_symlink("real/track.cvtrack", folder.Path() / "first");
    fs::create_symlink(folder.Path() / "first", folder.Path() / "second"); // absolute, to a link
    std::string error;
    ASSERT_TRUE(WriteFileAtomically(folder.File("second"), std::string("new"), error)) << error;
    EXPECT_TRUE(fs::is_symlink(folder.Path() / "second"));
    EXPECT_TRUE(fs::is_symlink(folder.Path() / "first"));
    EXPECT_EQ(fs::read_symlink(folder.Path() / "first"), fs::path("real/track.cvtrack"));
    EXPECT_EQ(ReadText(folder.File("real/track.cvtrack")), "new");
}

TEST(SafeSaving, ALinkToAFileNotMadeYetMakesItWhereTheLinkPoints) {
    ScratchFolder folder;
    fs::create_directory(folder.Path() / "real");
    std::string error;
    fs::create_symlink("real/later.cvtrack", folder.Path() / "dangling");
    ASSERT_TRUE(WriteFileAtomically(folder.File("dangling"), std::string("made"), error)) << error;
    EXPECT_TRUE(fs::is_symlink(folder.Path() / "dangling"));
    EXPECT_EQ(ReadText(folder.File("real/later.cvtrack")), "made");
    EXPECT_EQ(Entries(folder.Path() / "real"), std::vector<std::string>{"later.cvtrack"});
}

TEST(SafeSaving, ALoopOfLinksIsRefusedNamingTheLink) {
    ScratchFolder folder;
    std::string error;
    fs::create_symlink("loopB", folder.Path() / "loopA");
    fs::create_symlink("loopA", folder.Path() / "loopB");
    EXPECT_FALSE(WriteFileAtomically(folder.File("loopA"), std::string("x"), error));
    EXPECT_NE(error.find(folder.File("loopA")), std::string::npos) << error;
}

TEST(SafeSaving, PermissionBitsAreKeptWhileANewFileGetsTheUsualOnes) {
    ScratchFolder folder;
    const std::string path = folder.File("settings.ini");
    WriteText(path, "A=1");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    std::string error;
    ASSERT_TRUE(WriteFileAtomically(path, std::string("A=2"), error)) << error;
    EXPECT_EQ(Mode(path), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(ReadText(path), "A=2");

    const std::string fresh = folder.File("fresh.ini");
    ASSERT_TRUE(WriteFileAtomically(fresh, std::string("B=1"), error)) << error;
    EXPECT_NE(Mode(fresh) & fs::perms::owner_write, fs::perms::none);
}

TEST(SafeSaving, AReadOnlyFileIsRefusedNamingItAndKeptAsItWas) {
    ScratchFolder folder;
    const std::string path = folder.File("locked.cvtrack");
    WriteText(path, "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    std::string error;
    // Refused by its bits even when the tests run as root, who could write it.
    EXPECT_FALSE(WriteFileAtomically(path, std::string("new"), error));
    EXPECT_NE(error.find(path), std::string::npos) << error;
    EXPECT_NE(error.find("read-only"), std::string::npos) << error;
    EXPECT_EQ(ReadText(path), "old");
}

TEST(SafeSaving, AFileInAReadOnlyFolderIsRefusedNamingItAndKeptAsItWas) {
    ScratchFolder folder;
    std::string error;
    fs::create_directory(folder.Path() / "shut");
    const std::string inside = folder.File("shut/track.cvtrack");
    WriteText(inside, "old");
    fs::permissions(folder.Path() / "shut", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_FALSE(WriteFileAtomically(inside, std::string("new"), error));
    EXPECT_NE(error.find(inside), std::string::npos) << error;
    fs::permissions(folder.Path() / "shut", fs::perms::owner_all);
    EXPECT_EQ(ReadText(inside), "old");
    EXPECT_EQ(Entries(folder.Path() / "shut"), std::vector<std::string>{"track.cvtrack"});
    EXPECT_EQ(Entries(folder.Path()), std::vector<std::string>{"shut"});
}

TEST(SafeSaving, AWriteFailingPartWayLeavesTheOldFileAloneNamingIt) {
    ScratchFolder folder;
    const std::string path = folder.File("ride.cvtrack");
    WriteText(path, "old");
    std::string error;
    {
        FileSizeLimit limit(100);
        EXPECT_FALSE(WriteFileAtomically(path, std::string(5000, 'x'), error));
    }
    EXPECT_NE(error.find(path), std::string::npos) << error;
    EXPECT_EQ(error.find(".tmp"), std::string::npos) << error;
    EXPECT_EQ(ReadText(path), "old");
    EXPECT_EQ(Entries(folder.Path()), std::vector<std::string>{"ride.cvtrack"});
    // A folder that does not exist gets the same kind of message.
    const std::string nowhere = folder.File("missing/ride.cvtrack");
    EXPECT_FALSE(WriteFileAtomically(nowhere, std::string("x"), error));
    EXPECT_EQ(error.rfind("cannot write " + nowhere + ": ", 0), 0u) << error;
}

TEST(FileReading, FilesOverTheLimitAreRefusedBeforeReadingWithTheSizeInTheReason) {
    ScratchFolder folder;
    const std::string path = folder.File("huge.cvtrack");
    WriteText(path, "");
    fs::resize_file(path, kMaxFileBytes + 1); // sparse: no disk space is used
    std::vector<std::uint8_t> bytes;
    std::string error;
    EXPECT_FALSE(ReadWholeFile(path, bytes, error));
    EXPECT_TRUE(bytes.empty());
    EXPECT_NE(error.find(std::to_string(64 * 1024 * 1024 + 1)), std::string::npos) << error;
    EXPECT_NE(error.find(path), std::string::npos) << error;
    fs::resize_file(path, kMaxFileBytes);
    EXPECT_TRUE(CheckFileSize(path, error));
}
