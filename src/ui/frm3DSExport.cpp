#include "frm3DSExport.h"

#include "DialogButtons.h"
#include "Editor.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {

// The editor's Shell while the dialog exports: every message and question goes to the window's
// own Shell as always, only the progress report goes to the dialog's bar and Cancel button.
class ProgressInDialog : public Shell {
public:
    ProgressInDialog(Shell& inner, frm3DSExport& dialog) : inner_(inner), dialog_(dialog) {}

    void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) override {
        inner_.ShowMessage(text, title, icon);
    }
    Answer Ask(const std::string& text, const std::string& title, Buttons buttons, MessageIcon icon,
               Answer defaultAnswer) override {
        return inner_.Ask(text, title, buttons, icon, defaultAnswer);
    }
    std::optional<std::string> ShowOpenDialog(const FileDialogOptions& options) override {
        return inner_.ShowOpenDialog(options);
    }
    std::optional<std::string> ShowSaveDialog(const FileDialogOptions& options) override {
        return inner_.ShowSaveDialog(options);
    }
    AskResult AskDialog(AskKind kind) override { return inner_.AskDialog(kind); }
    std::optional<ByteColour> ShowColourDialog(const ByteColour& initial) override {
        return inner_.ShowColourDialog(initial);
    }
    bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) override {
        return inner_.StartDetached(program, arguments);
    }
    bool OpenWithDesktop(const std::string& path) override { return inner_.OpenWithDesktop(path); }

    void BeginProgress(const std::string&, int maximum) override { dialog_.BeginExportProgress(maximum); }
    void SetProgress(int value) override {
        value_ = value;
        dialog_.SetExportProgress(value);
    }
    void StepProgress() override { SetProgress(value_ + 1); }
    bool ProgressCancelled() override { return dialog_.ExportCancelled(); }
    void EndProgress() override {}

private:
    Shell& inner_;
    frm3DSExport& dialog_;
    int value_ = 0;
};

} // namespace

frm3DSExport::frm3DSExport(Editor& editor, std::string path, QWidget* parent)
    : QDialog(parent), editor_(editor), path_(std::move(path)), terraColour_(editor.Export3DSTerrainColour()),
      trackColour_(editor.Export3DSTrackColour()) {
    setObjectName("frm3DSExport");
    setWindowTitle("Export 3DStudioMax...");
    lblTerraColor = MakeSwatch();
    lblTerraColor->setObjectName("lblTerraColor");
    Paint(lblTerraColor, terraColour_);
    lblTrackColor = MakeSwatch();
    lblTrackColor->setObjectName("lblTrackColor");
    Paint(lblTrackColor, trackColour_);
    chkExportTrack = new QCheckBox("Export Track", this);
    chkExportTrack->setObjectName("chkExportTrack");
    chkExportTrack->setEnabled(editor_.CanExport3DSTrack());
    chkExportTrack->setChecked(editor_.CanExport3DSTrack());
    prgExport = new QProgressBar(this);
    prgExport->setObjectName("prgExport");
    prgExport->setRange(0, 1);
    prgExport->setValue(0);

    auto* form = new QFormLayout;
    form->addRow("Terrain Color:", lblTerraColor);
    form->addRow("Track Color:", lblTrackColor);
    form->addRow(chkExportTrack);
    form->addRow("Progress:", prgExport);
    QHBoxLayout* buttons = OkCancelRow(this, btnOkay, btnCancel);
    connect(btnOkay, &QPushButton::clicked, this, &frm3DSExport::btnOkay_Click);
    connect(btnCancel, &QPushButton::clicked, this, &frm3DSExport::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);
    setMinimumWidth(320);
}

QLabel* frm3DSExport::MakeSwatch() {
    auto* swatch = new QLabel(this);
    swatch->setFixedSize(64, 22);
    swatch->setFrameStyle(QFrame::Box | QFrame::Plain);
    swatch->setAutoFillBackground(true);
    swatch->setCursor(Qt::PointingHandCursor);
    swatch->setToolTip("Click to choose the color");
    swatch->installEventFilter(this);
    return swatch;
}

void frm3DSExport::Paint(QLabel* swatch, const ByteColour& colour) {
    QPalette palette = swatch->palette();
    palette.setColor(QPalette::Window, QColor(colour.r, colour.g, colour.b));
    swatch->setPalette(palette);
}

void frm3DSExport::ChooseColour(QLabel* swatch, ByteColour& colour) {
    if (exporting_) return;
    if (const auto chosen = editor_.Dialogs().ShowColourDialog(colour)) {
        colour = *chosen;
        Paint(swatch, colour);
    }
}

bool frm3DSExport::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        if (watched == lblTerraColor) {
            ChooseColour(lblTerraColor, terraColour_);
            return true;
        }
        if (watched == lblTrackColor) {
            ChooseColour(lblTrackColor, trackColour_);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frm3DSExport::BeginExportProgress(int maximum) {
    prgExport->setRange(0, std::max(maximum, 1));
    prgExport->setValue(0);
}

void frm3DSExport::SetExportProgress(int value) {
    prgExport->setValue(value);
}

bool frm3DSExport::ExportCancelled() {
    // The export runs on this thread: let the bar repaint and a click on Cancel arrive.
    QCoreApplication::processEvents();
    return cancelRequested_;
}

void frm3DSExport::reject() {
    if (exporting_) {
        cancelRequested_ = true;
        return;
    }
    QDialog::reject();
}

void frm3DSExport::btnOkay_Click() {
    if (exporting_) return;
    exporting_ = true;
    cancelRequested_ = false;
    btnOkay->setEnabled(false);
    chkExportTrack->setEnabled(false);
    Shell& shell = editor_.Dialogs();
    ProgressInDialog progress(shell, *this);
    editor_.SetDialogs(progress);
    const bool written = editor_.Save3DS(path_, terraColour_, trackColour_, chkExportTrack->isChecked());
    editor_.SetDialogs(shell);
    exporting_ = false;
    if (written)
        accept();
    else
        QDialog::reject();
}
