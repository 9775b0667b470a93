#pragma once
// The 3DS export's options: the colour of the terrain and of the track (each a swatch that opens
// the colour dialog when clicked), whether the track goes in, and a progress bar that follows the
// objects as they are written. OK writes the file chosen before the dialog opened; Cancel closes
// it, or stops an export under way without touching the file.

#include "Shell.h"

#include <QDialog>

#include <string>

class Editor;
class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;

class frm3DSExport : public QDialog {
    Q_OBJECT
public:
    frm3DSExport(Editor& editor, std::string path, QWidget* parent);

    QLabel* lblTerraColor = nullptr;
    QLabel* lblTrackColor = nullptr;
    QCheckBox* chkExportTrack = nullptr;
    QProgressBar* prgExport = nullptr;
    QPushButton* btnOkay = nullptr;
    QPushButton* btnCancel = nullptr;

    ByteColour TerraColor() const { return terraColour_; }
    ByteColour TrackColor() const { return trackColour_; }

    // Reports of the export under way, given to the bar; a Cancel pressed meanwhile stops it.
    void BeginExportProgress(int maximum);
    void SetExportProgress(int value);
    bool ExportCancelled();

public slots:
    // While an export runs, Cancel (or closing the window) asks it to stop instead.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void btnOkay_Click();

private:
    QLabel* MakeSwatch();
    void ChooseColour(QLabel* swatch, ByteColour& colour);
    static void Paint(QLabel* swatch, const ByteColour& colour);

    Editor& editor_;
    std::string path_;
    ByteColour terraColour_;
    ByteColour trackColour_;
    bool exporting_ = false;
    bool cancelRequested_ = false;
};
