// Every fixed text the editing session shows: each message and question with its title, icon and
// buttons, and each file dialog's title, filter and default extension. Each row runs the real
// workflow that shows the text, and the expected texts are written out here, so an edited word in
// the program fails the row that names it.
#include "ShownTexts.h"
#include "TerrainSettings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

namespace fs = std::filesystem;

namespace {

using Session = TextSession;

// A track with terrain open, then the command.
template <auto Command> void OnOpenTrack(Session& s) {
    s.OpenTrackWithTerrain();
    (s.editor.*Command)();
}

TerrainSettingsValues NormalGrassSettings() {
    TerrainSettingsValues values;
    ApplyLandPreset(values, 0);
    ApplySeaPreset(values, 0);
    return values;
}

// Each row's workflow shows exactly one text.
const TextRow kTextRows[] = {
    {"OpenAnotherExtension",
     [](Session& s) { s.editor.OpenTrack(s.folder.File("notes.txt")); },
     {"Invalid Track Filename.", "Warning", MessageIcon::Exclamation}},
    {"OpenMissingTrack",
     [](Session& s) { s.editor.OpenTrack(s.folder.File("absent.cvtrack")); },
     {"Track File Not Found.", "Warning", MessageIcon::Exclamation}},
    {"OpenDamagedTrack",
     [](Session& s) {
         WriteText(s.folder.File("bad.cvtrack"), "CRVT not a track");
         s.editor.OpenTrack(s.folder.File("bad.cvtrack"));
     },
     {"Invalid Track File.", "Warning", MessageIcon::Exclamation, std::nullopt, Answer::Ok, false}},
    {"SaveIntoMissingFolder",
     [](Session& s) {
         s.OpenTrackWithTerrain();
         s.editor.SaveTrack(s.folder.File("gone/sample.cvtrack"));
     },
     {"Error - Could not save the track file.\n", "Error", MessageIcon::Critical, std::nullopt, Answer::Ok,
      false}},
    {"SaveSettingsOverAFolder",
     [](Session& s) {
         fs::create_directory(s.folder.File("CorvantaLandwright.ini"));
         s.editor.SaveSettings();
     },
     {"Error - Could not save the settings file.\n", "Error", MessageIcon::Critical, std::nullopt, Answer::Ok,
      false}},
    {"RideWithoutSimulator",
     OnOpenTrack<&Editor::RideTrack>,
     {"Warning - Corvanta Simulator not found.\n"
      "Corvanta Landwright must be in the same folder as Corvanta Simulator",
      "Warning!", MessageIcon::Exclamation}},
    {"RideWhenSimulatorDoesNotStart",
     [](Session& s) {
         const std::string simulator = s.folder.File("CorvantaSimulator.exe");
         WriteText(simulator, "#!/bin/sh\n");
         fs::permissions(simulator, fs::perms::owner_all);
         s.shell.startSucceeds = false;
         s.OpenTrackWithTerrain();
         s.editor.RideTrack();
     },
     {"Error - Could not start Corvanta Simulator.", "Error", MessageIcon::Critical}},
    {"ConfirmAbsoluteTexturePaths",
     [](Session& s) {
         TerrainSettingsValues values = NormalGrassSettings();
         values.groundTexture = "C:\\textures\\ground.jpg";
         values.detailTexture = "/textures/detail.jpg";
         values.waterTexture = "D:\\water.jpg";
         s.editor.ApplyTerrainSettings(values, TerrainSettingsPurpose::Edit);
     },
     {"The Ground Texture is Invalid!\nThe Detail Texture is Invalid!\nThe Water Texture is Invalid!\n\n"
      "Textures must be in the TeraTextures folder or a sub-folder of it.",
      "Invalid Texture", MessageIcon::Exclamation}},
    {"ExitWithUnsavedTerrain",
     [](Session& s) {
         s.OpenTrackWithTerrain();
         s.editor.AdjustHeights(1.0f, AdjustMode::Raise);
         s.editor.ConfirmClose();
     },
     {"There are unsaved changes to the terrain.\nAre you sure you wish to exit?", "Are you sure?",
      MessageIcon::Question, Buttons::YesNo, Answer::No}},
    {"DeleteTerrain",
     OnOpenTrack<&Editor::DeleteTerrain>,
     {"Warning!  This will completely remove the terrain structure!\nAre you sure you wish to continue?",
      "Warning!", MessageIcon::Question, Buttons::YesNo, Answer::No}},
    {"NewTerrainOverTerrain",
     OnOpenTrack<&Editor::NewTerrain>,
     {"Warning!  This will completely remove the current terrain structure!\n"
      "Are you sure you wish to continue?",
      "Warning!", MessageIcon::Question, Buttons::YesNo, Answer::No}},
    {"RemoveTrackData",
     OnOpenTrack<&Editor::RemoveTrackData>,
     // "tress" is the product's own wording.
     {"Warning!  This will completely remove the track structure from the scene (including tress)!\n"
      "Are you sure you wish to continue?",
      "Warning!", MessageIcon::Question, Buttons::YesNo, Answer::No}},
    {"ResetTerrain",
     OnOpenTrack<&Editor::ResetTerrain>,
     {"Warning!  This will flatten all the terrain.\nAre you sure you wish to continue?", "Warning!",
      MessageIcon::Question, Buttons::YesNoCancel, Answer::No}},
    {"ConfirmAnotherStructure",
     [](Session& s) {
         s.OpenTrackWithTerrain();
         s.editor.ApplyTerrainSettings(NormalGrassSettings(), TerrainSettingsPurpose::Edit);
     },
     {"Terrain structure specified is different than terrain in editor.\n"
      "Clear the current terrain in the editor?",
      "Warning!", MessageIcon::Question, Buttons::YesNoCancel, Answer::Cancel}},
};

class FixedTextsTest : public ::testing::TestWithParam<TextRow> {};

TEST_P(FixedTextsTest, ShowsItsTextTitleIconAndButtons) {
    ExpectRowShowsItsText(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, FixedTextsTest, ::testing::ValuesIn(kTextRows), RowName());

const FileDialogRow kFileDialogRows[] = {
    {"OpenTrack", [](Session& s) { s.editor.OpenTrack(""); }, false, "Open Track File...",
     "Corvanta Track Files (*.cvtrack)|*.cvtrack", "cvtrack"},
    // The pattern without a dot is the product's own.
    {"SaveTrackAs", OnOpenTrack<&Editor::SaveTrackAs>, true, "Save Track As...",
     "Corvanta Track Files (*.cvtrack)|*cvtrack", "cvtrack"},
};

class FixedFileDialogTextsTest : public ::testing::TestWithParam<FileDialogRow> {};

TEST_P(FixedFileDialogTextsTest, ShowsItsTitleFilterAndDefaultExtension) {
    ExpectRowShowsItsDialog(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, FixedFileDialogTextsTest, ::testing::ValuesIn(kFileDialogRows), RowName());

} // namespace
