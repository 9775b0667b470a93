#pragma once
// "About CorvantaLandwright": the program's name, version and purpose, and an OK button.

#include <QDialog>

class QLabel;
class QPushButton;

class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent);

    QLabel* lblAbout = nullptr;
    QPushButton* btnOkay = nullptr;
};
