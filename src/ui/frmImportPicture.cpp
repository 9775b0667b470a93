#include "frmImportPicture.h"

#include "Editor.h"
#include "mHeightMap.h"
#include "mTerrainPicture.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr int kPreviewSide = 256;
// The grey that becomes the water line: any grey of a picture, 50 to start with.
constexpr int kWaterHeightMaximum = 255;
constexpr int kWaterHeightStart = 50;

// A bottom-up blue-green-red picture as a top-down QImage.
QImage ToQImage(const cDIBSection& picture) {
    QImage image(picture.Width(), picture.Height(), QImage::Format_RGB888);
    for (int y = 0; y < picture.Height(); ++y) {
        const std::uint8_t* in = picture.Row(picture.Height() - 1 - y);
        uchar* out = image.scanLine(y);
        for (int x = 0; x < picture.Width(); ++x, in += 3, out += 3) {
            out[0] = in[2];
            out[1] = in[1];
            out[2] = in[0];
        }
    }
    return image;
}

} // namespace

frmImportPicture::frmImportPicture(Editor& editor, SampleGrid greys, QWidget* parent)
    : QDialog(parent), editor_(editor), greys_(std::move(greys)) {
    setObjectName("frmImportPicture");
    setWindowTitle("Import Picture");

    auto* structure = new QGroupBox("Terrain Structure", this);
    auto* structureRow = new QHBoxLayout(structure);
    const char* captions[3] = {"Low Detail", "Normal Detail", "High Detail"};
    for (std::size_t i = 0; i < optTeraStruct.size(); ++i) {
        optTeraStruct[i] = new QRadioButton(captions[i], structure);
        optTeraStruct[i]->setObjectName(QString("optTeraStruct_%1").arg(i));
        structureRow->addWidget(optTeraStruct[i]);
    }
    optTeraStruct[1]->setChecked(true);

    auto* water = new QGroupBox("Water", this);
    auto* waterGrid = new QGridLayout(water);
    chkWater = new QCheckBox("Add Water", water);
    chkWater->setObjectName("chkWater");
    hsWaterHeight = new QScrollBar(Qt::Horizontal, water);
    hsWaterHeight->setObjectName("hsWaterHeight");
    hsWaterHeight->setRange(0, kWaterHeightMaximum);
    hsWaterHeight->setPageStep(10);
    hsWaterHeight->setValue(kWaterHeightStart);
    hsWaterHeight->setEnabled(false);
    lblWaterHeight = new QLabel(QString::number(kWaterHeightStart), water);
    lblWaterHeight->setObjectName("lblWaterHeight");
    lblWaterHeight->setMinimumWidth(lblWaterHeight->fontMetrics().horizontalAdvance("0000") + 6);
    waterGrid->addWidget(chkWater, 0, 0, 1, 3);
    waterGrid->addWidget(new QLabel("Water Height:", water), 1, 0);
    waterGrid->addWidget(hsWaterHeight, 1, 1);
    waterGrid->addWidget(lblWaterHeight, 1, 2);
    waterGrid->setColumnStretch(1, 1);

    chkInvert = new QCheckBox("Invert Picture", this);
    chkInvert->setObjectName("chkInvert");

    pbMain = new QLabel(this);
    pbMain->setObjectName("pbMain");
    pbMain->setFixedSize(kPreviewSide, kPreviewSide);
    pbMain->setFrameShape(QFrame::Box);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const char* buttonCaptions[2] = {"OK", "Cancel"};
    for (std::size_t i = 0; i < btnMain.size(); ++i) {
        btnMain[i] = new QPushButton(buttonCaptions[i], this);
        btnMain[i]->setObjectName(QString("btnMain_%1").arg(i));
        buttons->addWidget(btnMain[i]);
        connect(btnMain[i], &QPushButton::clicked, this, [this, i] { btnMain_Click(i); });
    }
    btnMain[0]->setDefault(true);

    auto* controls = new QVBoxLayout;
    controls->addWidget(structure);
    controls->addWidget(water);
    controls->addWidget(chkInvert);
    controls->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(controls, 1);
    columns->addWidget(pbMain, 0, Qt::AlignTop);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(buttons);

    // A change of structure toggles two options: the preview follows the one switched on.
    for (QRadioButton* option : optTeraStruct)
        connect(option, &QRadioButton::toggled, this, [this](bool on) {
            if (on) UpdatePreview();
        });
    connect(chkWater, &QCheckBox::toggled, hsWaterHeight, &QScrollBar::setEnabled);
    connect(chkWater, &QCheckBox::toggled, this, &frmImportPicture::UpdatePreview);
    connect(chkInvert, &QCheckBox::toggled, this, &frmImportPicture::UpdatePreview);
    connect(hsWaterHeight, &QScrollBar::valueChanged, lblWaterHeight, qOverload<int>(&QLabel::setNum));
    connect(hsWaterHeight, &QScrollBar::valueChanged, this, &frmImportPicture::UpdatePreview);
    UpdatePreview();
}

void frmImportPicture::Run(Editor& editor, QWidget* parent) {
    std::optional<SampleGrid> greys = editor.BeginImportPicture();
    if (!greys) return;
    frmImportPicture dialog(editor, std::move(*greys), parent);
    dialog.exec();
}

PictureImportOptions frmImportPicture::Options() const {
    PictureImportOptions options;
    for (std::size_t i = 0; i < optTeraStruct.size(); ++i)
        if (optTeraStruct[i]->isChecked()) options.detail = static_cast<PictureDetail>(i);
    options.water = chkWater->isChecked();
    options.waterHeight = static_cast<float>(hsWaterHeight->value());
    options.invert = chkInvert->isChecked();
    return options;
}

void frmImportPicture::UpdatePreview() {
    const cDIBSection picture = RenderTerrainPicture(PictureToTerrain(greys_, Options()));
    if (picture.IsEmpty()) {
        pbMain->clear();
        return;
    }
    pbMain->setPixmap(QPixmap::fromImage(ToQImage(picture).scaled(
        kPreviewSide, kPreviewSide, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
}

void frmImportPicture::btnMain_Click(std::size_t index) {
    if (index == 1) {
        reject();
        return;
    }
    editor_.ImportPicture(greys_, Options());
    accept();
}
