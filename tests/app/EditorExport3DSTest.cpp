// File > Export > 3D Studio: the save dialog, the file with and without the track, the progress
// report, Cancel and a failed write.
#include "Chunk3DSReader.h"
#include "EditorTestFixture.h"

#include <filesystem>

namespace {

class Export3DSTest : public EditorTest {
protected:
    void OpenSampleTrack() {
        editor.OpenTrack(WriteTrack("ride.cvtrack", 5));
        ASSERT_TRUE(editor.CanExport3DSTrack());
    }
};

TEST_F(Export3DSTest, SaveDialogAsksFor3dsFilesAndNothingWithoutTerrain) {
    EXPECT_EQ(editor.Export3DS(), std::nullopt);
    EXPECT_TRUE(shell.saveDialogs.empty());

    GiveEditorTerrain();
    shell.saveChoices.push_back(std::nullopt);
    EXPECT_EQ(editor.Export3DS(), std::nullopt);
    shell.saveChoices.push_back(folder.File("out.3ds"));
    EXPECT_EQ(editor.Export3DS(), folder.File("out.3ds"));
    ASSERT_EQ(shell.saveDialogs.size(), 2u);
    EXPECT_EQ(shell.saveDialogs[0].title, "Export 3DStudioMax...");
    EXPECT_EQ(shell.saveDialogs[0].filter, "3DStudioMax Files (*.3ds)|*.3ds");
    EXPECT_EQ(shell.saveDialogs[0].defaultExtension, "3ds");
    EXPECT_TRUE(shell.saveDialogs[0].confirmOverwrite);
}

TEST_F(Export3DSTest, TrackObjectsFollowTheTerrainOnlyWhenTheTrackIsIncludedAndThere) {
    GiveEditorTerrain(5);
    const std::string path = folder.File("scene.3ds");
    ASSERT_TRUE(editor.Save3DS(path, {1, 2, 3}, {250, 128, 0}, true));
    EXPECT_EQ(Summarise3DS(path).objects, std::vector<std::string>{"TERA0000"});

    shell.askChoices.push_back({0, false}); // take the track's terrain
    OpenSampleTrack();
    ASSERT_TRUE(editor.Save3DS(path, {1, 2, 3}, {250, 128, 0}, true));
    const Export3DSSummary with = Summarise3DS(path);
    ASSERT_GE(with.objects.size(), 2u);
    EXPECT_EQ(with.objects[1], "TRCK0000");
    EXPECT_EQ(with.diffuse, (std::vector<std::array<int, 3>>{{1, 2, 3}, {250, 128, 0}}));

    ASSERT_TRUE(editor.Save3DS(path, {1, 2, 3}, {250, 128, 0}, false));
    const Export3DSSummary without = Summarise3DS(path);
    EXPECT_EQ(without.objects, std::vector<std::string>{"TERA0000"});
    EXPECT_EQ(without.diffuse.size(), 1u);
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(Export3DSTest, ProgressCountsEveryObjectWrittenAndCancelLeavesTheExistingFile) {
    OpenSampleTrack();
    const std::string path = folder.File("keep.3ds");
    ASSERT_TRUE(editor.Save3DS(path, {}, {}, true));
    const int objects = static_cast<int>(Summarise3DS(path).objects.size());
    ASSERT_EQ(shell.progress.size(), 1u);
    const ProgressReport& report = shell.progress[0];
    EXPECT_EQ(report.maximum, objects);
    ASSERT_EQ(report.values.size(), static_cast<std::size_t>(objects));
    EXPECT_EQ(report.values.back(), objects);
    EXPECT_EQ(report.cancelQueries, objects);
    EXPECT_TRUE(report.ended);

    WriteText(path, "previous export");
    shell.cancelAtQuery = 1;
    EXPECT_FALSE(editor.Save3DS(path, {}, {}, true));
    EXPECT_EQ(ReadText(path), "previous export");
    EXPECT_TRUE(shell.messages.empty());
    EXPECT_TRUE(shell.progress.at(1).ended);
}

TEST_F(Export3DSTest, FailedWriteIsReportedAndLeavesNoFile) {
    GiveEditorTerrain();
    const std::string path = folder.File("missing/sub/out.3ds");
    EXPECT_FALSE(editor.Save3DS(path, {}, {}, false));
    const ShownMessage& message = OnlyMessage();
    EXPECT_EQ(message.text.rfind("Error - Could not write the 3DS file.\n", 0), 0u) << message.text;
    EXPECT_NE(message.text.find("out.3ds"), std::string::npos) << message.text;
    EXPECT_EQ(message.title, "Error");
    EXPECT_EQ(message.icon, MessageIcon::Critical);
    EXPECT_FALSE(std::filesystem::exists(path));
}

} // namespace
