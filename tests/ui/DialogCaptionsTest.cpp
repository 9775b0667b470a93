// The fixed texts of the windows: each window's caption, the texts of the two terrain questions and
// the captions kept with their own spelling, and the messages and file dialog the dialogs show
// themselves. The expected texts are written out here, so an edited word fails the row naming it.
#include "ShownTexts.h"
#include "frm3DSExport.h"
#include "frmAbout.h"
#include "frmAdjustHeight.h"
#include "frmAskLoad.h"
#include "frmFilter.h"
#include "frmImportHeightMap16.h"
#include "frmImportPicture.h"
#include "frmImportTerragen.h"
#include "frmKeyboardShortcuts.h"
#include "frmMain.h"
#include "frmOptions.h"
#include "frmTeraCustom.h"
#include "frmTeraSettings.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

using Home = TextSession;

using MakeWindow = std::unique_ptr<QWidget> (*)(Editor&);

template <typename Window> std::unique_ptr<QWidget> Make(Editor& editor) {
    if constexpr (std::is_constructible_v<Window, Editor&, QWidget*>)
        return std::make_unique<Window>(editor, nullptr);
    else
        return std::make_unique<Window>(nullptr);
}

std::unique_ptr<QWidget> MakeCustomSize(Editor&) {
    return std::make_unique<frmTeraCustom>(205, 205, nullptr);
}

std::unique_ptr<QWidget> MakeImportTerragen(Editor& editor) {
    SampleGrid samples;
    samples.Resize(2, 2, 100.0f);
    return std::make_unique<frmImportTerragen>(editor, samples, nullptr);
}

std::unique_ptr<QWidget> Make3DSExport(Editor& editor) {
    return std::make_unique<frm3DSExport>(editor, "scene.3ds", nullptr);
}

std::unique_ptr<QWidget> MakeImportPicture(Editor& editor) {
    SampleGrid greys;
    greys.Resize(2, 2, 128.0f);
    return std::make_unique<frmImportPicture>(editor, greys, nullptr);
}

std::unique_ptr<QWidget> MakeImportHeightMap16(Editor& editor) {
    PendingHeightMap16 pending;
    pending.image = {2, 2, {0, 1, 2, 3}};
    return std::make_unique<frmImportHeightMap16>(editor, pending, nullptr);
}

std::unique_ptr<QWidget> MakeMainWindow(Editor& editor) {
    return std::make_unique<frmMain>(QString::fromStdString(editor.ProgramFolder()));
}

std::string TextOf(const QWidget* control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(control))
        return button->text().toStdString();
    if (const auto* label = qobject_cast<const QLabel*>(control)) return label->text().toStdString();
    ADD_FAILURE() << "no text on " << control->objectName().toStdString();
    return {};
}

struct CaptionRow {
    const char* name;
    MakeWindow make;
    const char* caption;
};

const CaptionRow kCaptionRows[] = {
    {"MainWindowWithoutTrack", MakeMainWindow, "CorvantaLandwright"},
    {"Options", Make<frmOptions>, "Landwright Options..."},
    {"TerrainSettings", Make<frmTeraSettings>, "Terrain Settings..."},
    {"CustomTerrainSize", MakeCustomSize, "Custom Terrain Detail..."},
    {"AdjustHeight", Make<frmAdjustHeight>, "Adjust Height"},
    {"Filter", Make<frmFilter>, "Terrain Filter..."},
    {"About", Make<frmAbout>, "About CorvantaLandwright"},
    {"KeyboardShortcuts", Make<frmKeyboardShortcuts>, "Keyboard Shortcuts"},
    {"AskLoadTrackTerrain", Make<frmAskLoadTrackTerrain>, "Track Contains Terrain Data..."},
    {"AskLoadNoTerrain", Make<frmAskLoadNoTerrain>, "Track Does Not Have Terrain..."},
    {"AskImportOverwrite", Make<frmAskImportOverwrite>, "Overwrite Current Terrain..."},
    {"ImportTerragen", MakeImportTerragen, "Import Terragen Terrain..."},
    {"Export3DS", Make3DSExport, "Export 3DStudioMax..."},
    {"ImportPicture", MakeImportPicture, "Import Picture"},
    {"ImportHeightMap16", MakeImportHeightMap16, "Import Height Map (16-bit)"},
};

class WindowCaptionTest : public ::testing::TestWithParam<CaptionRow> {};

TEST_P(WindowCaptionTest, IsTheProductsOwn) {
    Home home;
    const std::unique_ptr<QWidget> window = GetParam().make(home.editor);
    EXPECT_EQ(window->windowTitle().toStdString(), GetParam().caption);
}

INSTANTIATE_TEST_SUITE_P(Texts, WindowCaptionTest, ::testing::ValuesIn(kCaptionRows), RowName());

struct ControlTextRow {
    const char* name;
    MakeWindow make;
    const char* control; // object name
    const char* text;
};

// The questions' texts, and every caption that keeps its own spelling ("loosing", "ammount",
// "Overwritting" are the product's wording).
const ControlTextRow kControlTextRows[] = {
    {"AskLoadTrackTerrainText", Make<frmAskLoadTrackTerrain>, "lblText",
     "This track already contains terrain data.  Would you like to load this tracks terrain loosing the "
     "current terrain in the editor.  Or merge this track with the current terrain?"},
    {"AskLoadTrackTerrainLoad", Make<frmAskLoadTrackTerrain>, "btnMain_0", "Load Tracks Terrain"},
    {"AskLoadTrackTerrainMerge", Make<frmAskLoadTrackTerrain>, "btnMain_1",
     "Merge Track with Current Terrain"},
    {"AskLoadTrackTerrainDontAsk", Make<frmAskLoadTrackTerrain>, "chkDontAskAgain", "Don't Ask Me Again."},
    {"AskLoadNoTerrainText", Make<frmAskLoadNoTerrain>, "lblText",
     "This track does not have any terrain, but there is terrain in the editor.  Would you like to remove "
     "the current terrain.  Or keep the terrain and merge it with this track?"},
    {"AskLoadNoTerrainRemove", Make<frmAskLoadNoTerrain>, "btnMain_0", "Remove Terrain"},
    {"AskLoadNoTerrainKeep", Make<frmAskLoadNoTerrain>, "btnMain_1", "Keep Terrain"},
    {"AskLoadNoTerrainDontAsk", Make<frmAskLoadNoTerrain>, "chkDontAskAgain", "Don't Ask Me Again."},
    {"AskImportOverwriteText", Make<frmAskImportOverwrite>, "lblText",
     "Importing terrain will overwrite the terrain currently in the editor.  Are you sue you wish to "
     "continue?"},
    {"AskImportOverwriteYes", Make<frmAskImportOverwrite>, "btnMain_0", "Yes"},
    {"AskImportOverwriteNo", Make<frmAskImportOverwrite>, "btnMain_1", "No"},
    {"AskImportOverwriteDontAsk", Make<frmAskImportOverwrite>, "chkDontAskAgain", "Don't Ask Me Again."},
    {"AdjustRaise", Make<frmAdjustHeight>, "optMode_0", "Raise by this ammount"},
    {"AdjustLower", Make<frmAdjustHeight>, "optMode_1", "Lower by this ammount"},
    {"AdjustSet", Make<frmAdjustHeight>, "optMode_2", "Set to exactly this ammount"},
    {"ImportPictureLow", MakeImportPicture, "optTeraStruct_0", "Low Detail"},
    {"ImportPictureNormal", MakeImportPicture, "optTeraStruct_1", "Normal Detail"},
    {"ImportPictureHigh", MakeImportPicture, "optTeraStruct_2", "High Detail"},
    {"ImportPictureWater", MakeImportPicture, "chkWater", "Add Water"},
    {"ImportPictureInvert", MakeImportPicture, "chkInvert", "Invert Picture"},
    {"ImportPictureOk", MakeImportPicture, "btnMain_0", "OK"},
    {"ImportPictureCancel", MakeImportPicture, "btnMain_1", "Cancel"},
    {"ImportHeightMap16Size", MakeImportHeightMap16, "lblSize", "2 x 2 points"},
    {"OptionsAlwaysLoadTrackTerrain", Make<frmOptions>, "optAskLoadTrackTerrain_1",
     "Always Load The Terrain With The Track Overwritting Terrain In The Editor"},
    {"ImportTerragenWater", MakeImportTerragen, "chkWater", "Terrain Has Water"},
    {"ImportTerragenImport", MakeImportTerragen, "btnMain_0", "Import"},
    {"ImportTerragenCancel", MakeImportTerragen, "btnMain_1", "Cancel"},
    {"Export3DSTrack", Make3DSExport, "chkExportTrack", "Export Track"},
    {"Export3DSOkay", Make3DSExport, "btnOkay", "OK"},
    {"Export3DSCancel", Make3DSExport, "btnCancel", "Cancel"},
};

class ControlTextTest : public ::testing::TestWithParam<ControlTextRow> {};

TEST_P(ControlTextTest, IsTheProductsOwn) {
    Home home;
    const std::unique_ptr<QWidget> window = GetParam().make(home.editor);
    const auto* control = window->findChild<QWidget*>(GetParam().control);
    ASSERT_NE(control, nullptr) << GetParam().control;
    EXPECT_EQ(TextOf(control), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Texts, ControlTextTest, ::testing::ValuesIn(kControlTextRows), RowName());

template <typename Control> Control* Find(const QWidget& window, const char* name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr) ADD_FAILURE() << "no control " << name;
    return control;
}

void FilterWithFactorZero(Home& home) {
    frmFilter dialog(home.editor, nullptr);
    if (Find<QCheckBox>(dialog, "chkAutoFactor")->isChecked())
        Find<QCheckBox>(dialog, "chkAutoFactor")->click();
    Find<QLineEdit>(dialog, "txtFactor")->setText("0");
    Find<QAbstractButton>(dialog, "btnMain_0")->click();
}

void OpenGroundTextureOutsideProgramFolder(Home& home) {
    home.shell.openChoices.push_back(std::string("/elsewhere/ground.jpg"));
    frmTeraSettings dialog(home.editor, nullptr);
    Find<QAbstractButton>(dialog, "btnGround_0")->click();
}

void ConfirmMissingGroundTexture(Home& home) {
    frmTeraSettings dialog(home.editor, nullptr);
    Find<QLineEdit>(dialog, "txtGround")->setText("teratextures\\Missing.jpg");
    Find<QLineEdit>(dialog, "txtDetail")->clear();
    Find<QLineEdit>(dialog, "txtWater")->clear();
    Find<QAbstractButton>(dialog, "btnMain_0")->click();
}

const TextRow kTextRows[] = {
    {"FilterFactorZero",
     FilterWithFactorZero,
     {"The matrix factor cannot be 0: the filtered heights are divided by it.\n"
      "Type a factor other than 0, or change the matrix.",
      "Warning", MessageIcon::Exclamation}},
    {"TextureOutsideProgramFolder",
     OpenGroundTextureOutsideProgramFolder,
     {"The Ground Texture is Invalid!\n\nTextures must be in the TeraTextures folder or a sub-folder of it.",
      "Invalid Texture", MessageIcon::Exclamation}},
    {"MissingTextureOnConfirm",
     ConfirmMissingGroundTexture,
     {"The Ground Texture was not found: teratextures\\Missing.jpg\n\n"
      "The terrain will be drawn without it, and the simulator will not find it either.\nKeep it anyway?",
      "Texture Not Found", MessageIcon::Exclamation, Buttons::YesNo, Answer::No}},
};

class DialogTextTest : public ::testing::TestWithParam<TextRow> {};

TEST_P(DialogTextTest, ShowsItsTextTitleIconAndButtons) {
    ExpectRowShowsItsText(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, DialogTextTest, ::testing::ValuesIn(kTextRows), RowName());

void OpenDetailTexture(Home& home) {
    frmTeraSettings dialog(home.editor, nullptr);
    Find<QAbstractButton>(dialog, "btnDetail_0")->click();
}

const FileDialogRow kFileDialogRows[] = {
    {"SelectTexture", OpenDetailTexture, false, "Select Texture...",
     "Texture Files (*.jpg;*.tga)|*.jpg;*.tga", "jpg"},
};

class DialogFileDialogTest : public ::testing::TestWithParam<FileDialogRow> {};

TEST_P(DialogFileDialogTest, ShowsItsTitleFilterAndDefaultExtension) {
    ExpectRowShowsItsDialog(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, DialogFileDialogTest, ::testing::ValuesIn(kFileDialogRows), RowName());

} // namespace
