#pragma once
// "Terrain Filter...": a 3 x 3 convolution matrix and its divisor, picked from presets or typed,
// applied to the whole terrain or only to the effect area around the cursor.

#include "TerrainFilter.h"

#include <QDialog>

#include <array>

class Editor;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

class frmFilter : public QDialog {
    Q_OBJECT
public:
    frmFilter(Editor& editor, QWidget* parent);

    QListWidget* lstPresets = nullptr;
    std::array<QLineEdit*, 9> txtMatrix{}; // m0 .. m8, row by row
    QLineEdit* txtFactor = nullptr;
    QLabel* lblMatrixFactor = nullptr;
    QCheckBox* chkAutoFactor = nullptr;
    QCheckBox* chkEffectArea = nullptr;
    std::array<QPushButton*, 2> btnMain{}; // 0 apply, 1 cancel

    // The matrix and factor as the entries read now: each the number its text starts with, rounded
    // to the nearest whole number.
    FilterMatrix Matrix() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void lstPresets_Click();
    void lstPresets_DblClick();
    void txtMatrix_Change();
    void chkAutoFactor_Click();
    void btnMain_Click(int index);

private:
    QWidget* BuildPresetFrame();
    QWidget* BuildMatrixFrame();
    void LoadPreset(int index);

    Editor& editor_;
};
