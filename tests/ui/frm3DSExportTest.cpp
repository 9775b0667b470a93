// The 3DS export dialog: the colour swatches, the track box, OK with its progress bar, Cancel
// before and during the export, and the way in through File > Export.
#include "frm3DSExport.h"
#include "Chunk3DSReader.h"
#include "MainWindowFixture.h"
#include "SampleTrack.h"
#include "TrackFile.h"

#include <filesystem>

namespace {

class Export3DSDialogTest : public ::testing::Test {
protected:
    ScratchFolder folder;
    ScriptedShell shell;
    Editor editor{shell, shell, folder.Path().string()};
    std::string path = folder.File("out.3ds");
    std::unique_ptr<frm3DSExport> dialog;

    void SetUp() override {
        editor.InitPaths();
        editor.ReplaceTerrain(
            [](TerrainData& t) {
                NewTerrainGrid(t, 6, 6);
                return true;
            },
            {});
    }
    void TearDown() override { shell.ExpectAllAnswersUsed(); }

    void OpenTrack() {
        const std::string track = folder.File("ride.cvtrack");
        ASSERT_TRUE(WriteTrackFile(track, MakeSampleTrack(6, 6)));
        shell.askChoices.push_back({0, false}); // take the track's terrain
        editor.OpenTrack(track);
    }
    void Open() {
        dialog = std::make_unique<frm3DSExport>(editor, path, nullptr);
        dialog->show();
    }
    static QColor Shown(const QLabel* swatch) { return swatch->palette().color(QPalette::Window); }
};

} // namespace

TEST_F(Export3DSDialogTest, WithoutATrackTheBoxIsOffAndTheChosenTerrainColourIsWritten) {
    Open();
    EXPECT_FALSE(dialog->chkExportTrack->isEnabled());
    EXPECT_FALSE(dialog->chkExportTrack->isChecked());
    const ByteColour start = editor.Export3DSTerrainColour();
    EXPECT_EQ(Shown(dialog->lblTerraColor), QColor(start.r, start.g, start.b));

    shell.colourChoices.push_back(std::nullopt); // cancelled: the colour stays
    Click(dialog->lblTerraColor);
    EXPECT_EQ(Shown(dialog->lblTerraColor), QColor(start.r, start.g, start.b));
    shell.colourChoices.push_back(ByteColour{12, 200, 34});
    Click(dialog->lblTerraColor);
    EXPECT_EQ(Shown(dialog->lblTerraColor), QColor(12, 200, 34));
    ASSERT_EQ(shell.colourDialogs.size(), 2u);
    EXPECT_EQ(shell.colourDialogs[1], start);

    Click(dialog->btnOkay);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(Summarise3DS(path).diffuse, (std::vector<std::array<int, 3>>{{12, 200, 34}}));
    EXPECT_EQ(dialog->prgExport->value(), dialog->prgExport->maximum());
}

TEST_F(Export3DSDialogTest, WithATrackTheBoxStartsTickedAndUntickingLeavesTheTrackOut) {
    OpenTrack();
    Open();
    ASSERT_TRUE(dialog->chkExportTrack->isEnabled());
    EXPECT_TRUE(dialog->chkExportTrack->isChecked());
    shell.colourChoices.push_back(ByteColour{255, 0, 128});
    Click(dialog->lblTrackColor);
    Click(dialog->btnOkay);
    const Export3DSSummary written = Summarise3DS(path);
    EXPECT_EQ(written.objects.at(1), "TRCK0000");
    EXPECT_EQ(written.diffuse.at(1), (std::array<int, 3>{255, 0, 128}));

    Open();
    dialog->chkExportTrack->click();
    Click(dialog->btnOkay);
    EXPECT_EQ(Summarise3DS(path).objects, std::vector<std::string>{"TERA0000"});
}

TEST_F(Export3DSDialogTest, CancelBeforeOrDuringTheExportWritesNothing) {
    Open();
    Click(dialog->btnCancel);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(std::filesystem::exists(path));

    WriteText(path, "older");
    Open();
    // Pressed while the export runs: the dialog looks for it between objects.
    QTimer::singleShot(0, dialog.get(), [this] { dialog->btnCancel->click(); });
    dialog->btnOkay->click();
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(ReadText(path), "older");
    EXPECT_TRUE(shell.messages.empty());
}

TEST_F(MainWindowTest, FileExport3DSAsksForTheFileThenExportsFromTheDialog) {
    StartOnDemo();
    const std::string path = home.File("demo.3ds");
    shell.saveChoices.push_back(path);
    bool shown = false;
    QTimer::singleShot(0, window.get(), [&] {
        for (frm3DSExport* d : window->findChildren<frm3DSExport*>())
            if (d->isVisible()) {
                shown = true;
                EXPECT_TRUE(d->chkExportTrack->isChecked());
                d->btnOkay->click();
            }
    });
    Action("mnuExport3DS")->trigger();
    EXPECT_TRUE(shown);
    ASSERT_TRUE(std::filesystem::exists(path));
    EXPECT_FALSE(Summarise3DS(path).objects.empty());
}
