#include "frmImportHeightMap16.h"

#include "DialogButtons.h"
#include "Editor.h"
#include "NumberText.h"

#include <QFormLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace {

QLineEdit* NumberBox(QWidget* parent, const char* name, const QString& text) {
    auto* box = new QLineEdit(text, parent);
    box->setObjectName(name);
    box->setValidator(
        new QRegularExpressionValidator(QRegularExpression(R"([-+]?\d{0,6}(\.\d{0,4})?)"), box));
    return box;
}

QString SizeText(const PendingHeightMap16& pending) {
    if (pending.NeedsWidth())
        return QString("%1 heights, not a square: give the width of a row.").arg(pending.bytes.size() / 2);
    return QString("%1 x %2 points").arg(pending.image.width).arg(pending.image.height);
}

} // namespace

frmImportHeightMap16::frmImportHeightMap16(Editor& editor, const PendingHeightMap16& pending, QWidget* parent)
    : QDialog(parent), editor_(editor), pending_(std::make_unique<PendingHeightMap16>(pending)) {
    setObjectName("frmImportHeightMap16");
    setWindowTitle("Import Height Map (16-bit)");
    lblSize = new QLabel(SizeText(pending), this);
    lblSize->setObjectName("lblSize");
    txtLow = NumberBox(this, "txtLow", "-10");
    txtHigh = NumberBox(this, "txtHigh", "150");
    txtWidth = new QLineEdit(this);
    txtWidth->setObjectName("txtWidth");
    txtWidth->setValidator(new QIntValidator(1, 65535, txtWidth));
    txtWidth->setEnabled(pending.NeedsWidth());
    if (!pending.NeedsWidth()) txtWidth->setText(QString::number(pending.image.width));

    auto* form = new QFormLayout;
    form->addRow("Height of black (0):", txtLow);
    form->addRow("Height of white (65535):", txtHigh);
    form->addRow("Width:", txtWidth);
    QHBoxLayout* buttons = OkCancelRow(this, btnOkay, btnCancel);
    connect(btnOkay, &QPushButton::clicked, this, &frmImportHeightMap16::btnOkay_Click);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblSize);
    layout->addLayout(form);
    layout->addLayout(buttons);
}

frmImportHeightMap16::~frmImportHeightMap16() = default;

void frmImportHeightMap16::Run(Editor& editor, QWidget* parent) {
    const std::optional<PendingHeightMap16> pending = editor.BeginImportHeightMap16();
    if (!pending) return;
    frmImportHeightMap16 dialog(editor, *pending, parent);
    dialog.exec();
}

void frmImportHeightMap16::btnOkay_Click() {
    Height16Range range;
    range.low = ParseSingle(txtLow->text().toStdString());
    range.high = ParseSingle(txtHigh->text().toStdString());
    if (editor_.ImportHeightMap16(*pending_, range, txtWidth->text().toInt())) accept();
}
