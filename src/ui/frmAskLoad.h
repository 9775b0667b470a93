#pragma once
// The questions asked before a terrain in the editor would be replaced: by opening a track (two
// kinds) or by an import. Each is modal, can be closed only by one of its two buttons, and offers
// "Don't Ask Me Again.".

#include "Shell.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QLabel;
class QPushButton;

class cAskDialog : public QDialog {
    Q_OBJECT
public:
    // Shows the dialog modally; returns the button pressed (0 or 1) and the check box.
    AskResult Run();

    std::array<QPushButton*, 2> btnMain{};
    QCheckBox* chkDontAskAgain = nullptr;
    QLabel* lblText = nullptr;

protected:
    cAskDialog(QWidget* parent, const QString& caption, const QString& text, const QString& button0,
               const QString& button1);
    void reject() override {} // Escape and the close box do nothing: only the buttons answer
    void closeEvent(QCloseEvent* event) override;

private:
    int pressed_ = 0;
    bool answered_ = false;
};

class frmAskLoadTrackTerrain : public cAskDialog {
    Q_OBJECT
public:
    explicit frmAskLoadTrackTerrain(QWidget* parent);
};

class frmAskLoadNoTerrain : public cAskDialog {
    Q_OBJECT
public:
    explicit frmAskLoadNoTerrain(QWidget* parent);
};

class frmAskImportOverwrite : public cAskDialog {
    Q_OBJECT
public:
    explicit frmAskImportOverwrite(QWidget* parent);
};
