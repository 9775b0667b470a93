#pragma once
// "Landwright Options...": the answers to the terrain questions, what to remember between runs,
// water translucency, lighting and the eleven interface colours. OK stores the values and writes
// the settings file at once; Cancel changes nothing.

#include "Shell.h"

#include <QDialog>

#include <array>
#include <vector>

class Editor;
class QCheckBox;
class QFrame;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QStackedLayout;

class frmOptions : public QDialog {
    Q_OBJECT
public:
    frmOptions(Editor& editor, QWidget* parent);

    std::array<QRadioButton*, 3> optAskLoadTrackTerrain{};
    std::array<QRadioButton*, 3> OptAskLoadNoTerrain{};
    std::array<QRadioButton*, 3> optAskImport{};
    QCheckBox* chkSaveRecent = nullptr;
    QCheckBox* chkSaveSettings = nullptr;
    QCheckBox* chkSaveTools = nullptr;
    QCheckBox* chkUseWaterTrans = nullptr;
    QScrollBar* hsWaterTrans = nullptr;
    QLabel* lblWaterTrans = nullptr;
    QCheckBox* chkNoLights = nullptr;
    std::array<QLabel*, 11> lblColors{};
    std::vector<QLabel*> lblMenu;
    std::vector<QFrame*> fmeTab;
    QPushButton* btnOkay = nullptr;
    QPushButton* btnCancel = nullptr;

protected:
    // The tab labels and the colour swatches are plain labels: a press on one acts as a click.
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void btnOkay_Click();
    void hsWaterTrans_Change(int value);

private:
    QWidget* BuildTabRow();
    void AddTabKeys();
    QFrame* BuildQuestionsTab();
    QFrame* BuildPreferencesTab();
    QFrame* BuildColorsTab();
    QGroupBox* BuildQuestion(const QString& title, const QString& name, std::array<QRadioButton*, 3>& buttons,
                             const QString& always, const QString& never);
    QGroupBox* BuildColourGroup(const QString& title, int first, int last);
    QFrame* NewTab(const QString& caption);
    void ShowTab(std::size_t index);
    void lblColors_Click(std::size_t index);
    void SetSwatch(std::size_t index, const ByteColour& colour);
    void LoadControls();

    Editor& editor_;
    QStackedLayout* pages_ = nullptr; // the fmeTab frames, one shown at a time
    // What each swatch shows; stored into the settings only on OK.
    std::array<ByteColour, 11> swatch_{};
};
