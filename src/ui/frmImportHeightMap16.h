#pragma once
// "Import Height Map (16-bit)": the heights the darkest (0) and brightest (65535) values stand
// for, -10 and 150 to start with, and for a RAW file whose size makes no square the width of its
// rows. OK imports through Editor::ImportHeightMap16 and stays open when the editor refuses the
// width or range; Cancel changes nothing.

#include <QDialog>

#include <memory>

class Editor;
class QLabel;
class QLineEdit;
class QPushButton;
struct PendingHeightMap16;

class frmImportHeightMap16 : public QDialog {
    Q_OBJECT
public:
    frmImportHeightMap16(Editor& editor, const PendingHeightMap16& pending, QWidget* parent);
    ~frmImportHeightMap16() override;

    // The whole command from the menu: the editor's first step, then this dialog.
    static void Run(Editor& editor, QWidget* parent);

    QLabel* lblSize = nullptr; // what was read: the size, or the number of heights of a RAW file
    QLineEdit* txtLow = nullptr;
    QLineEdit* txtHigh = nullptr;
    QLineEdit* txtWidth = nullptr; // only for a RAW file that is not square
    QPushButton* btnOkay = nullptr;
    QPushButton* btnCancel = nullptr;

private:
    void btnOkay_Click();

    Editor& editor_;
    std::unique_ptr<PendingHeightMap16> pending_;
};
