#pragma once
// The Terragen import's second step: a preview of the file's samples, the water height and whether
// the terrain gets water. Import hands the samples to the editor, which makes them the terrain;
// Cancel leaves the terrain as it was.

#include "SampleGrid.h"

#include <QDialog>

#include <array>

class Editor;
class QCheckBox;
class QLabel;
class QPushButton;
class QSlider;

class frmImportTerragen : public QDialog {
    Q_OBJECT
public:
    frmImportTerragen(Editor& editor, SampleGrid samples, QWidget* parent);

    QSlider* hsWaterHeight = nullptr; // the water height in the samples' units
    QLabel* lblWaterHeight = nullptr; // the slider's value
    QCheckBox* chkWater = nullptr;
    QLabel* pbMain = nullptr;              // the preview, one pixel per sample, row 0 at the bottom
    std::array<QPushButton*, 2> btnMain{}; // Import, Cancel

    // The preview at one pixel per sample, as last drawn.
    const QImage& Preview() const { return preview_; }

private slots:
    void DrawPreview();
    void btnMain_Click(std::size_t index);

private:
    Editor& editor_;
    SampleGrid samples_;
    QImage preview_;
};
