#pragma once
// "Adjust Height": raises, lowers or sets every height of the terrain by a typed amount, as one
// undoable edit. Cancel changes nothing.

#include <QDialog>

#include <array>

class Editor;
class QLineEdit;
class QPushButton;
class QRadioButton;

class frmAdjustHeight : public QDialog {
    Q_OBJECT
public:
    frmAdjustHeight(Editor& editor, QWidget* parent);

    std::array<QRadioButton*, 3> optMode{}; // raise, lower, set
    QLineEdit* txtHeight = nullptr;
    QPushButton* btnOkay = nullptr;
    QPushButton* btnCancel = nullptr;

private slots:
    void btnOkay_Click();

private:
    Editor& editor_;
};
