#include "frmAdjustHeight.h"

#include "DialogButtons.h"
#include "Editor.h"
#include "NumberText.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

frmAdjustHeight::frmAdjustHeight(Editor& editor, QWidget* parent) : QDialog(parent), editor_(editor) {
    setObjectName("frmAdjustHeight");
    setWindowTitle("Adjust Height");
    // "ammount" is the product's own wording, kept on purpose.
    const char* captions[3] = {"Raise by this ammount", "Lower by this ammount",
                               "Set to exactly this ammount"};
    auto* modes = new QGroupBox(this);
    auto* modeLayout = new QVBoxLayout(modes);
    for (std::size_t i = 0; i < optMode.size(); ++i) {
        optMode[i] = new QRadioButton(captions[i], modes);
        optMode[i]->setObjectName(QString("optMode_%1").arg(i));
        modeLayout->addWidget(optMode[i]);
    }
    optMode[0]->setChecked(true);

    txtHeight = new QLineEdit("1", this);
    txtHeight->setObjectName("txtHeight");
    // Only what can start a number may be typed: a sign, digits and one decimal point.
    txtHeight->setValidator(
        new QRegularExpressionValidator(QRegularExpression(R"([-+]?\d{0,6}(\.\d{0,4})?)"), txtHeight));
    auto* form = new QFormLayout;
    form->addRow("Height:", txtHeight);

    QHBoxLayout* buttons = OkCancelRow(this, btnOkay, btnCancel);
    connect(btnOkay, &QPushButton::clicked, this, &frmAdjustHeight::btnOkay_Click);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(modes);
    layout->addLayout(form);
    layout->addLayout(buttons);
    txtHeight->setFocus();
    txtHeight->selectAll();
}

void frmAdjustHeight::btnOkay_Click() {
    AdjustMode mode = AdjustMode::Raise;
    for (std::size_t i = 0; i < optMode.size(); ++i)
        if (optMode[i]->isChecked()) mode = static_cast<AdjustMode>(i);
    // The amount is the number the text starts with; an empty text counts as 0.
    editor_.AdjustHeights(ParseSingle(txtHeight->text().toStdString()), mode);
    accept();
}
