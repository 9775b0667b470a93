#pragma once
// "Import Picture": how a picture becomes the terrain. The structure (102, 205 or 409 points
// square), water with the grey that becomes the water line, and inversion (dark becomes high);
// the preview shows the terrain the choices make, drawn as the picture export draws a terrain,
// and follows every change. OK imports through Editor::ImportPicture; Cancel changes nothing.

#include "SampleGrid.h"

#include <QDialog>

#include <array>

class Editor;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QScrollBar;
struct PictureImportOptions;

class frmImportPicture : public QDialog {
    Q_OBJECT
public:
    frmImportPicture(Editor& editor, SampleGrid greys, QWidget* parent);

    // The whole command from the menu: the editor's first step (question, file, reading), then
    // this dialog when a picture was read.
    static void Run(Editor& editor, QWidget* parent);

    // Low, Normal, High Detail.
    std::array<QRadioButton*, 3> optTeraStruct{};
    QScrollBar* hsWaterHeight = nullptr;
    QLabel* lblWaterHeight = nullptr; // the slider's value
    QCheckBox* chkWater = nullptr;
    QCheckBox* chkInvert = nullptr;
    QLabel* pbMain = nullptr; // the preview
    // 0 "OK", 1 "Cancel".
    std::array<QPushButton*, 2> btnMain{};

    PictureImportOptions Options() const;

private:
    void UpdatePreview();
    void btnMain_Click(std::size_t index);

    Editor& editor_;
    SampleGrid greys_;
};
