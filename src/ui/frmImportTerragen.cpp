#include "frmImportTerragen.h"

#include "Editor.h"
#include "TerragenFile.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace {

// The preview is shown at this size whatever the file's point counts.
constexpr int kPreviewSide = 257;

} // namespace

frmImportTerragen::frmImportTerragen(Editor& editor, SampleGrid samples, QWidget* parent)
    : QDialog(parent), editor_(editor), samples_(std::move(samples)) {
    setObjectName("frmImportTerragen");
    setWindowTitle("Import Terragen Terrain...");

    pbMain = new QLabel(this);
    pbMain->setObjectName("pbMain");
    pbMain->setFixedSize(kPreviewSide, kPreviewSide);
    pbMain->setFrameShape(QFrame::Box);

    chkWater = new QCheckBox("Terrain Has Water", this);
    chkWater->setObjectName("chkWater");
    chkWater->setChecked(true);
    hsWaterHeight = new QSlider(Qt::Horizontal, this);
    hsWaterHeight->setObjectName("hsWaterHeight");
    hsWaterHeight->setRange(kTerragenWaterMin, kTerragenWaterMax);
    hsWaterHeight->setValue(kTerragenWaterDefault);
    lblWaterHeight = new QLabel(this);
    lblWaterHeight->setObjectName("lblWaterHeight");
    lblWaterHeight->setMinimumWidth(30);
    auto* water = new QHBoxLayout;
    water->addWidget(new QLabel("Water Height:", this));
    water->addWidget(hsWaterHeight, 1);
    water->addWidget(lblWaterHeight);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const char* captions[2] = {"Import", "Cancel"};
    for (std::size_t i = 0; i < btnMain.size(); ++i) {
        btnMain[i] = new QPushButton(captions[i], this);
        btnMain[i]->setObjectName(QString("btnMain_%1").arg(i));
        connect(btnMain[i], &QPushButton::clicked, this, [this, i] { btnMain_Click(i); });
        buttons->addWidget(btnMain[i]);
    }
    btnMain[0]->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pbMain, 0, Qt::AlignHCenter);
    layout->addWidget(chkWater);
    layout->addLayout(water);
    layout->addLayout(buttons);

    connect(hsWaterHeight, &QSlider::valueChanged, this, &frmImportTerragen::DrawPreview);
    connect(chkWater, &QCheckBox::toggled, this, &frmImportTerragen::DrawPreview);
    DrawPreview();
}

void frmImportTerragen::DrawPreview() {
    const bool water = chkWater->isChecked();
    const auto level = static_cast<float>(hsWaterHeight->value());
    lblWaterHeight->setText(QString::number(hsWaterHeight->value()));
    hsWaterHeight->setEnabled(water);
    preview_ = QImage(samples_.columns, samples_.rows, QImage::Format_RGB32);
    for (int row = 0; row < samples_.rows; ++row) {
        // Row 0 is the terrain's bottom row, so it is the picture's last line.
        auto* line = reinterpret_cast<QRgb*>(preview_.scanLine(samples_.rows - 1 - row));
        for (int column = 0; column < samples_.columns; ++column)
            line[column] = 0xFF000000u | TerragenPreviewColour(samples_.At(row, column), water, level);
    }
    pbMain->setPixmap(QPixmap::fromImage(preview_.scaled(kPreviewSide, kPreviewSide)));
}

void frmImportTerragen::btnMain_Click(std::size_t index) {
    if (index == 0) {
        editor_.TakeTerragenImport(samples_, chkWater->isChecked(),
                                   static_cast<float>(hsWaterHeight->value()));
        accept();
    } else {
        reject();
    }
}
