#include "frmFilter.h"

#include "Editor.h"
#include "NumberText.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

// The whole number a text starts with, rounded to nearest (ties to even) and kept within int.
int WholeEntry(const QString& text) {
    const double value = std::nearbyint(ParseNumber(text.toStdString()));
    return static_cast<int>(std::clamp(value, static_cast<double>(INT_MIN), static_cast<double>(INT_MAX)));
}

bool AllowedInEntry(QChar c) {
    return c.isDigit() || c == '-';
}

QLineEdit* NewEntry(QWidget* parent, const QString& name, QObject* keyFilter) {
    auto* entry = new QLineEdit("0", parent);
    entry->setObjectName(name);
    entry->setAlignment(Qt::AlignRight);
    entry->setMaximumWidth(entry->fontMetrics().horizontalAdvance("-000000") + 12);
    entry->installEventFilter(keyFilter);
    // Text pasted in keeps only what could have been typed.
    QObject::connect(entry, &QLineEdit::textEdited, entry, [entry](const QString& text) {
        QString kept;
        for (QChar c : text)
            if (AllowedInEntry(c)) kept += c;
        if (kept != text) entry->setText(kept);
    });
    return entry;
}

} // namespace

frmFilter::frmFilter(Editor& editor, QWidget* parent) : QDialog(parent), editor_(editor) {
    setObjectName("frmFilter");
    setWindowTitle("Terrain Filter...");
    auto* columns = new QHBoxLayout;
    columns->addWidget(BuildPresetFrame(), 1);
    columns->addWidget(BuildMatrixFrame());

    chkEffectArea = new QCheckBox("Filter Only Inside Cursor Effect Area", this);
    chkEffectArea->setObjectName("chkEffectArea");
    btnMain[0] = new QPushButton("Apply", this);
    btnMain[1] = new QPushButton("Cancel", this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(chkEffectArea);
    buttons->addStretch(1);
    for (int i = 0; i < 2; ++i) {
        QPushButton* button = btnMain[static_cast<std::size_t>(i)];
        button->setObjectName(QString("btnMain_%1").arg(i));
        button->setAutoDefault(false);
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, i] { btnMain_Click(i); });
    }
    btnMain[0]->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(buttons);

    // The dialog opens on the first preset.
    lstPresets->setCurrentRow(0);
    LoadPreset(0);
}

QWidget* frmFilter::BuildPresetFrame() {
    auto* frame = new QGroupBox("Preset Filters", this);
    lstPresets = new QListWidget(frame);
    lstPresets->setObjectName("lstPresets");
    for (const FilterPreset& preset : FilterPresets())
        lstPresets->addItem(preset.text);
    lstPresets->setMinimumWidth(lstPresets->sizeHintForColumn(0) + 24);
    connect(lstPresets, &QListWidget::itemClicked, this, &frmFilter::lstPresets_Click);
    connect(lstPresets, &QListWidget::currentRowChanged, this, &frmFilter::lstPresets_Click);
    connect(lstPresets, &QListWidget::itemDoubleClicked, this, &frmFilter::lstPresets_DblClick);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(lstPresets);
    return frame;
}

QWidget* frmFilter::BuildMatrixFrame() {
    auto* frame = new QGroupBox("Filter Matrix", this);
    auto* grid = new QGridLayout;
    for (std::size_t i = 0; i < txtMatrix.size(); ++i) {
        txtMatrix[i] = NewEntry(frame, QString("txtMatrix_%1").arg(i), this);
        grid->addWidget(txtMatrix[i], static_cast<int>(i / 3), static_cast<int>(i % 3));
        connect(txtMatrix[i], &QLineEdit::textChanged, this, &frmFilter::txtMatrix_Change);
    }
    lblMatrixFactor = new QLabel("Matrix Factor:", frame);
    lblMatrixFactor->setObjectName("lblMatrixFactor");
    txtFactor = NewEntry(frame, "txtFactor", this);
    chkAutoFactor = new QCheckBox("Auto:", frame);
    chkAutoFactor->setObjectName("chkAutoFactor");
    chkAutoFactor->setLayoutDirection(Qt::RightToLeft);
    connect(chkAutoFactor, &QCheckBox::toggled, this, &frmFilter::chkAutoFactor_Click);
    auto* factorRow = new QHBoxLayout;
    factorRow->addWidget(chkAutoFactor);
    factorRow->addStretch(1);
    factorRow->addWidget(lblMatrixFactor);
    factorRow->addWidget(txtFactor);
    auto* layout = new QVBoxLayout(frame);
    layout->addLayout(grid);
    layout->addLayout(factorRow);
    layout->addStretch(1);
    return frame;
}

bool frmFilter::eventFilter(QObject* watched, QEvent* event) {
    // The entries take digits, the minus sign and Backspace; any other typed character is dropped.
    if (event->type() == QEvent::KeyPress && qobject_cast<QLineEdit*>(watched)) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        const bool typesCharacter = !text.isEmpty() && text.at(0).isPrint();
        if (typesCharacter && !(key->modifiers() & Qt::ControlModifier) && !AllowedInEntry(text.at(0)))
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmFilter::LoadPreset(int index) {
    const FilterMatrix preset = PresetMatrix(index);
    for (std::size_t i = 0; i < txtMatrix.size(); ++i)
        txtMatrix[i]->setText(QString::number(preset.m[i]));
    // After the entries, so that an automatic factor does not overwrite the preset's own.
    txtFactor->setText(QString::number(preset.factor));
}

void frmFilter::lstPresets_Click() {
    LoadPreset(lstPresets->currentRow());
}

void frmFilter::lstPresets_DblClick() {
    LoadPreset(lstPresets->currentRow());
    btnMain_Click(0);
}

void frmFilter::txtMatrix_Change() {
    if (!chkAutoFactor->isChecked()) return;
    // The running sum is kept a 16-bit whole number, as the factor entry holds.
    double sum = 0.0;
    for (const QLineEdit* entry : txtMatrix)
        sum = std::clamp(std::nearbyint(sum + ParseNumber(entry->text().toStdString())), -32768.0, 32767.0);
    txtFactor->setText(QString::number(static_cast<int>(sum)));
}

void frmFilter::chkAutoFactor_Click() {
    const bool automatic = chkAutoFactor->isChecked();
    lblMatrixFactor->setEnabled(!automatic);
    txtFactor->setEnabled(!automatic);
}

FilterMatrix frmFilter::Matrix() const {
    FilterMatrix matrix;
    for (std::size_t i = 0; i < txtMatrix.size(); ++i)
        matrix.m[i] = WholeEntry(txtMatrix[i]->text());
    matrix.factor = WholeEntry(txtFactor->text());
    return matrix;
}

void frmFilter::btnMain_Click(int index) {
    if (index == 0) {
        const FilterMatrix matrix = Matrix();
        if (matrix.factor == 0) {
            editor_.Dialogs().ShowMessage(
                "The matrix factor cannot be 0: the filtered heights are divided by it.\n"
                "Type a factor other than 0, or change the matrix.",
                "Warning", MessageIcon::Exclamation);
            txtFactor->setFocus();
            return;
        }
        editor_.FilterTerrain(matrix, chkEffectArea->isChecked());
    }
    if (index == 0)
        accept();
    else
        reject();
}
