#include "frmTeraCustom.h"
#include "DialogButtons.h"

#include "TerrainSettings.h"
#include "WidgetShell.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

QString IndexedName(const char* name, std::size_t index) {
    return QString("%1_%2").arg(name).arg(index);
}

// A label wide enough for the widest text it will hold, so the row does not shift while a bar moves.
QLabel* NewValueLabel(QWidget* parent, const QString& name, const QString& widest) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest) + 6);
    return label;
}

} // namespace

frmTeraCustom::frmTeraCustom(int columns, int rows, QWidget* parent) : QDialog(parent) {
    setObjectName("frmTeraCustom");
    setWindowTitle("Custom Terrain Detail...");

    QHBoxLayout* buttons = OkCancelRow(this, btnOkay, btnCancel);
    connect(btnOkay, &QPushButton::clicked, this, &QDialog::accept);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildSizeFrame());
    layout->addLayout(buttons);

    if (columns < 1 && rows < 1) columns = rows = kNormalDetailSide;
    chkSame->setChecked(columns == rows);
    hsSize[0]->setValue(columns);
    hsSize[1]->setValue(rows);
    // The bars may already stand at these values and then send no change.
    hsSize_Change(0);
    connect(chkSame, &QCheckBox::clicked, this, &frmTeraCustom::chkSame_Click);
}

QWidget* frmTeraCustom::BuildSizeFrame() {
    auto* frame = new QGroupBox("Number of Control Points", this);
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(10);
    grid->setColumnMinimumWidth(3, 12);
    grid->addWidget(new QLabel("Control Points Approximately Every:", frame), 0, 4);
    const char* captions[2] = {"Width (East/West):", "Height (North/South):"};
    for (std::size_t i = 0; i < hsSize.size(); ++i) {
        const int row = static_cast<int>(i) + 1;
        hsSize[i] = new QScrollBar(Qt::Horizontal, frame);
        hsSize[i]->setObjectName(IndexedName("hsSize", i));
        hsSize[i]->setRange(kCustomSideRange.minimum, kCustomSideRange.maximum);
        hsSize[i]->setPageStep(16);
        hsSize[i]->setMinimumWidth(260);
        lblSize[i] = NewValueLabel(frame, IndexedName("lblSize", i), "0000");
        lblDistance[i] = NewValueLabel(frame, IndexedName("lblDistance", i), "000.00");
        grid->addWidget(new QLabel(captions[i], frame), row, 0);
        grid->addWidget(hsSize[i], row, 1);
        grid->addWidget(lblSize[i], row, 2);
        auto* spacing = new QHBoxLayout;
        spacing->setSpacing(6);
        spacing->addWidget(lblDistance[i]);
        spacing->addWidget(new QLabel("metres", frame));
        spacing->addStretch(1);
        grid->addLayout(spacing, row, 4);
        connect(hsSize[i], &QScrollBar::valueChanged, this, [this, i] { hsSize_Change(i); });
    }
    chkSame = new QCheckBox("Keep Width and Height Equal.", frame);
    chkSame->setObjectName("chkSame");
    grid->addWidget(chkSame, 3, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    return frame;
}

int frmTeraCustom::Columns() const {
    return hsSize[0]->value();
}
int frmTeraCustom::Rows() const {
    return hsSize[1]->value();
}

void frmTeraCustom::hsSize_Change(std::size_t moved) {
    // The other bar's own change comes back here with nothing left to move.
    if (chkSame->isChecked()) hsSize[1 - moved]->setValue(hsSize[moved]->value());
    for (std::size_t i = 0; i < hsSize.size(); ++i) {
        lblSize[i]->setNum(hsSize[i]->value());
        lblDistance[i]->setText(FromFileText(SpacingText(hsSize[i]->value())));
    }
}

void frmTeraCustom::chkSame_Click() {
    if (!chkSame->isChecked()) return;
    hsSize[1]->setValue(hsSize[0]->value());
    hsSize_Change(0);
}
