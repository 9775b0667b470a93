#pragma once
// "Custom Terrain Detail...": picks the number of grid points along each side of a custom
// terrain structure and shows the spacing that gives. OK keeps the two counts for the terrain
// settings; Cancel drops them.

#include <QDialog>

#include <array>

class QCheckBox;
class QLabel;
class QPushButton;
class QScrollBar;

class frmTeraCustom : public QDialog {
    Q_OBJECT
public:
    // columns, rows: the size to start from; a size below 1 on both sides starts at the normal
    // structure.
    frmTeraCustom(int columns, int rows, QWidget* parent);

    int Columns() const;
    int Rows() const;

    std::array<QScrollBar*, 2> hsSize{};  // 0 width (east/west), 1 height (north/south)
    std::array<QLabel*, 2> lblSize{};     // the counts
    std::array<QLabel*, 2> lblDistance{}; // the spacing in metres
    QCheckBox* chkSame = nullptr;
    QPushButton* btnOkay = nullptr;
    QPushButton* btnCancel = nullptr;

private slots:
    void chkSame_Click();

private:
    QWidget* BuildSizeFrame();
    QWidget* BuildDistanceRow();
    void hsSize_Change(std::size_t moved);
};
