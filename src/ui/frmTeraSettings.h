#pragma once
// "Terrain Settings...": the structure (grid size) of a new terrain, its ground, detail and water
// textures with their repeat counts, the water switch and the reflection strength, with two rows
// of preset buttons. OK applies them through Editor::ApplyTerrainSettings and closes unless the
// editor keeps it open (an invalid texture, or Cancel in the structure question); Cancel closes
// without changes.

#include "TerrainSettings.h"

#include <QDialog>

#include <array>

class Editor;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;

class frmTeraSettings : public QDialog {
    Q_OBJECT
public:
    frmTeraSettings(Editor& editor, QWidget* parent,
                    TerrainSettingsPurpose purpose = TerrainSettingsPurpose::Edit);

    // Low, Normal, High, Custom, in the order of TerrainStructure.
    std::array<QRadioButton*, 4> optTeraStruct{};
    QLabel* lblCustomX = nullptr; // the custom size: columns
    QLabel* lblCustomZ = nullptr; // and rows
    QPushButton* btnCustomEdit = nullptr;

    QLineEdit* txtGround = nullptr;
    QLineEdit* txtDetail = nullptr;
    QLineEdit* txtWater = nullptr;
    // Per texture: 0 "Open", 2 "Clear". Index 1 stays empty: there is no texture viewer to show.
    std::array<QPushButton*, 3> btnGround{};
    std::array<QPushButton*, 3> btnDetail{};
    std::array<QPushButton*, 3> btnWater{};

    QScrollBar* hsGround = nullptr;
    QScrollBar* hsDetail = nullptr;
    QScrollBar* hsWater = nullptr;
    QScrollBar* hsReflection = nullptr;
    // Each bar's value, shown beside it.
    QLabel* lblGround = nullptr;
    QLabel* lblDetail = nullptr;
    QLabel* lblWater = nullptr;
    QLabel* lblReflection = nullptr;
    // The captions of the water bars, which go grey with them.
    QLabel* lblWaterRepeats = nullptr;
    QLabel* lblReflectionCaption = nullptr;

    QCheckBox* chkWater = nullptr;
    std::array<QPushButton*, kPresetCount> btnLand{};
    std::array<QPushButton*, kPresetCount> btnSea{};
    // 0 "OK", 1 "Cancel", 2 "Default Terrain Settings".
    std::array<QPushButton*, 3> btnMain{};

    // The dialog's values as OK would apply them.
    TerrainSettingsValues Values() const;

private:
    QGroupBox* BuildStructureFrame();
    QGroupBox* BuildTextureFrame(const QString& title, const QString& name, QLineEdit*& box,
                                 std::array<QPushButton*, 3>& buttons);
    QGroupBox* BuildWaterFrame();
    QGroupBox* BuildPresetFrame(const QString& title, const QString& name,
                                std::array<QPushButton*, kPresetCount>& buttons);
    QLayout* BuildButtonRow();
    void AddTextureRow(QGridLayout* grid, int row, const QString& name, QLineEdit*& box,
                       std::array<QPushButton*, 3>& buttons);
    QScrollBar* AddSliderRow(QGridLayout* grid, int row, const QString& name, SliderRange range,
                             QLabel*& valueLabel, QLabel** caption = nullptr);
    void ShowValues(const TerrainSettingsValues& values);

    void btnMain_Click(std::size_t index);
    void btnLand_Click(std::size_t index);
    void btnSea_Click(std::size_t index);
    void btnTexture_Click(QLineEdit* box, const char* which, std::size_t index);
    void txtTexture_Change(QLineEdit* box);
    bool TextureFound(const QLineEdit* box) const;
    bool MissingTexturesAccepted();
    void chkWater_Click();
    void optTeraStruct_Click();
    void btnCustomEdit_Click();

    Editor& editor_;
    TerrainSettingsPurpose purpose_;
    QLabel* lblCustomBy_ = nullptr; // the "x" between the custom counts
    bool customSizeChosen_ = false; // from the custom dialog's OK until this dialog's confirm
};
