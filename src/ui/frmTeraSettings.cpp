#include "frmTeraSettings.h"

#include "Editor.h"
#include "FileIO.h"
#include "TexturePath.h"
#include "WidgetShell.h"
#include "frmTeraCustom.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

QString IndexedName(const QString& name, std::size_t index) {
    return QString("%1_%2").arg(name).arg(index);
}

QPushButton* NewButton(QWidget* parent, const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QLabel* NewLabel(QWidget* parent, const QString& name, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

constexpr const char* kStructureCaptions[4] = {"Low Detail", "Normal Detail", "High Detail", "Custom"};

} // namespace

frmTeraSettings::frmTeraSettings(Editor& editor, QWidget* parent, TerrainSettingsPurpose purpose)
    : QDialog(parent), editor_(editor), purpose_(purpose) {
    setObjectName("frmTeraSettings");
    setWindowTitle("Terrain Settings...");

    auto* left = new QVBoxLayout;
    left->addWidget(BuildStructureFrame());
    left->addWidget(BuildTextureFrame("Ground Texture", "Ground", txtGround, btnGround));
    left->addWidget(BuildTextureFrame("Detail Texture", "Detail", txtDetail, btnDetail));
    left->addWidget(BuildWaterFrame());
    auto* right = new QVBoxLayout;
    right->addWidget(BuildPresetFrame("Land Textures", "btnLand", btnLand));
    right->addWidget(BuildPresetFrame("Water Texture", "btnSea", btnSea));
    right->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(BuildButtonRow());

    ShowValues(SettingsForDialog(editor_.Terrain(), purpose_));
}

QGroupBox* frmTeraSettings::BuildStructureFrame() {
    auto* frame = new QGroupBox("Terrain Structure", this);
    auto* grid = new QGridLayout(frame);
    for (std::size_t i = 0; i < optTeraStruct.size(); ++i) {
        optTeraStruct[i] = new QRadioButton(kStructureCaptions[i], frame);
        optTeraStruct[i]->setObjectName(IndexedName("optTeraStruct", i));
        connect(optTeraStruct[i], &QRadioButton::toggled, this, &frmTeraSettings::optTeraStruct_Click);
    }
    grid->addWidget(optTeraStruct[0], 0, 0);
    grid->addWidget(optTeraStruct[1], 0, 1);
    grid->addWidget(optTeraStruct[2], 0, 2);
    grid->addWidget(optTeraStruct[3], 1, 0);

    lblCustomX = NewLabel(frame, "lblCustomX", "");
    lblCustomZ = NewLabel(frame, "lblCustomZ", "");
    btnCustomEdit = NewButton(frame, "btnCustomEdit", "Edit...");
    connect(btnCustomEdit, &QPushButton::clicked, this, &frmTeraSettings::btnCustomEdit_Click);
    auto* custom = new QHBoxLayout;
    custom->addWidget(lblCustomX);
    lblCustomBy_ = NewLabel(frame, "lblCustomBy", "x");
    custom->addWidget(lblCustomBy_);
    custom->addWidget(lblCustomZ);
    custom->addStretch(1);
    custom->addWidget(btnCustomEdit);
    grid->addLayout(custom, 1, 1, 1, 2);
    return frame;
}

void frmTeraSettings::AddTextureRow(QGridLayout* grid, int row, const QString& name, QLineEdit*& box,
                                    std::array<QPushButton*, 3>& buttons) {
    QWidget* frame = grid->parentWidget();
    box = new QLineEdit(frame);
    box->setObjectName("txt" + name);
    box->setMinimumWidth(260);
    connect(box, &QLineEdit::textChanged, this, [this, box] { txtTexture_Change(box); });
    buttons[0] = NewButton(frame, IndexedName("btn" + name, 0), "Open");
    buttons[2] = NewButton(frame, IndexedName("btn" + name, 2), "Clear");
    const QByteArray which = name.toLatin1();
    for (const std::size_t index : {std::size_t{0}, std::size_t{2}})
        connect(buttons[index], &QPushButton::clicked, this,
                [this, box, which, index] { btnTexture_Click(box, which.constData(), index); });
    auto* line = new QHBoxLayout;
    line->addWidget(box, 1);
    line->addWidget(buttons[0]);
    line->addWidget(buttons[2]);
    grid->addLayout(line, row, 0, 1, 3);
}

QScrollBar* frmTeraSettings::AddSliderRow(QGridLayout* grid, int row, const QString& name, SliderRange range,
                                          QLabel*& valueLabel, QLabel** caption) {
    QWidget* frame = grid->parentWidget();
    const bool reflection = name == "Reflection";
    QLabel* title = NewLabel(frame, reflection ? "lblReflectionCaption" : "lbl" + name + "Repeats",
                             reflection ? "Reflection:" : "Repeats:");
    if (caption) *caption = title;
    // One width for every caption, so the bars of all the frames line up.
    title->setMinimumWidth(title->fontMetrics().horizontalAdvance("Reflection:") + 8);
    auto* bar = new QScrollBar(Qt::Horizontal, frame);
    bar->setObjectName("hs" + name);
    bar->setRange(range.minimum, range.maximum);
    bar->setPageStep(10);
    valueLabel = NewLabel(frame, "lbl" + name, "");
    valueLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    valueLabel->setMinimumWidth(valueLabel->fontMetrics().horizontalAdvance("0000") + 6);
    // The label follows every change, whether typed, dragged or set from a preset.
    connect(bar, &QScrollBar::valueChanged, valueLabel, qOverload<int>(&QLabel::setNum));
    grid->addWidget(title, row, 0);
    grid->addWidget(bar, row, 1);
    grid->addWidget(valueLabel, row, 2);
    return bar;
}

QGroupBox* frmTeraSettings::BuildTextureFrame(const QString& title, const QString& name, QLineEdit*& box,
                                              std::array<QPushButton*, 3>& buttons) {
    auto* frame = new QGroupBox(title, this);
    auto* grid = new QGridLayout(frame);
    AddTextureRow(grid, 0, name, box, buttons);
    QLabel* value = nullptr;
    QScrollBar* bar =
        AddSliderRow(grid, 1, name, name == "Ground" ? kGroundRepeatsRange : kDetailRepeatsRange, value);
    (name == "Ground" ? hsGround : hsDetail) = bar;
    (name == "Ground" ? lblGround : lblDetail) = value;
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* frmTeraSettings::BuildWaterFrame() {
    auto* frame = new QGroupBox("Water", this);
    auto* grid = new QGridLayout(frame);
    chkWater = new QCheckBox("Enable Water", frame);
    chkWater->setObjectName("chkWater");
    connect(chkWater, &QCheckBox::toggled, this, &frmTeraSettings::chkWater_Click);
    grid->addWidget(chkWater, 0, 0, 1, 3);
    AddTextureRow(grid, 1, "Water", txtWater, btnWater);
    hsWater = AddSliderRow(grid, 2, "Water", kWaterRepeatsRange, lblWater, &lblWaterRepeats);
    hsReflection =
        AddSliderRow(grid, 3, "Reflection", kReflectionRange, lblReflection, &lblReflectionCaption);
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* frmTeraSettings::BuildPresetFrame(const QString& title, const QString& name,
                                             std::array<QPushButton*, kPresetCount>& buttons) {
    auto* frame = new QGroupBox(title, this);
    auto* grid = new QGridLayout(frame);
    const bool land = name == "btnLand";
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const char* caption = land ? TerrainPresetTable::land[i].caption : TerrainPresetTable::sea[i].caption;
        buttons[i] = NewButton(frame, IndexedName(name, i), caption);
        buttons[i]->setMinimumWidth(84);
        connect(buttons[i], &QPushButton::clicked, this,
                [this, land, i] { land ? btnLand_Click(i) : btnSea_Click(i); });
        grid->addWidget(buttons[i], static_cast<int>(i / 3), static_cast<int>(i % 3));
    }
    return frame;
}

QLayout* frmTeraSettings::BuildButtonRow() {
    const char* captions[3] = {"OK", "Cancel", "Default Terrain Settings"};
    for (std::size_t i = 0; i < btnMain.size(); ++i) {
        btnMain[i] = NewButton(this, IndexedName("btnMain", i), captions[i]);
        connect(btnMain[i], &QPushButton::clicked, this, [this, i] { btnMain_Click(i); });
    }
    btnMain[0]->setDefault(true);
    auto* row = new QHBoxLayout;
    row->addWidget(btnMain[2]);
    row->addStretch(1);
    row->addWidget(btnMain[0]);
    row->addWidget(btnMain[1]);
    return row;
}

void frmTeraSettings::ShowValues(const TerrainSettingsValues& values) {
    optTeraStruct[static_cast<std::size_t>(values.structure)]->setChecked(true);
    lblCustomX->setNum(values.customColumns);
    lblCustomZ->setNum(values.customRows);
    txtGround->setText(FromFileText(values.groundTexture));
    txtDetail->setText(FromFileText(values.detailTexture));
    txtWater->setText(FromFileText(values.waterTexture));
    hsGround->setValue(values.groundRepeats);
    hsDetail->setValue(values.detailRepeats);
    hsWater->setValue(values.waterRepeats);
    hsReflection->setValue(values.reflection);
    chkWater->setChecked(values.waterEnabled);
    // Controls that already hold these values send no change: bring their followers up to date.
    for (QLineEdit* box : {txtGround, txtDetail, txtWater})
        txtTexture_Change(box);
    for (auto [bar, label] : {std::pair{hsGround, lblGround}, std::pair{hsDetail, lblDetail},
                              std::pair{hsWater, lblWater}, std::pair{hsReflection, lblReflection}})
        label->setNum(bar->value());
    chkWater_Click();
    optTeraStruct_Click();
}

TerrainSettingsValues frmTeraSettings::Values() const {
    TerrainSettingsValues values;
    for (std::size_t i = 0; i < optTeraStruct.size(); ++i)
        if (optTeraStruct[i]->isChecked()) values.structure = static_cast<TerrainStructure>(i);
    values.customColumns = lblCustomX->text().toInt();
    values.customRows = lblCustomZ->text().toInt();
    values.customSizeChosen = customSizeChosen_;
    values.groundTexture = ToFileText(txtGround->text());
    values.groundRepeats = hsGround->value();
    values.detailTexture = ToFileText(txtDetail->text());
    values.detailRepeats = hsDetail->value();
    values.waterEnabled = chkWater->isChecked();
    values.waterTexture = ToFileText(txtWater->text());
    values.waterRepeats = hsWater->value();
    values.reflection = hsReflection->value();
    return values;
}

void frmTeraSettings::btnMain_Click(std::size_t index) {
    switch (index) {
    case 0:
        if (MissingTexturesAccepted() && DialogMayClose(editor_.ApplyTerrainSettings(Values(), purpose_)))
            accept();
        break;
    case 1:
        reject();
        break;
    default:
        btnLand_Click(0);
        btnSea_Click(0);
        break;
    }
}

void frmTeraSettings::btnLand_Click(std::size_t index) {
    const LandPreset& preset = TerrainPresetTable::land.at(index);
    txtGround->setText(preset.groundTexture);
    txtDetail->setText(preset.detailTexture);
    hsGround->setValue(preset.groundRepeats);
    hsDetail->setValue(preset.detailRepeats);
}

void frmTeraSettings::btnSea_Click(std::size_t index) {
    const SeaPreset& preset = TerrainPresetTable::sea.at(index);
    txtWater->setText(preset.waterTexture);
    hsWater->setValue(preset.waterRepeats);
    hsReflection->setValue(preset.reflection);
}

void frmTeraSettings::btnTexture_Click(QLineEdit* box, const char* which, std::size_t index) {
    if (index == 2) {
        box->clear();
        return;
    }
    FileDialogOptions options;
    options.title = "Select Texture...";
    options.filter = "Texture Files (*.jpg;*.tga)|*.jpg;*.tga";
    options.defaultExtension = "jpg";
    options.folder = editor_.ProgramFolder() + "teratextures";
    options.mustExist = true;
    const std::optional<std::string> chosen = editor_.Dialogs().ShowOpenDialog(options);
    if (!chosen || chosen->empty()) return;
    if (const auto stored = StoredTexturePath(*chosen, editor_.ProgramFolder())) {
        box->setText(FromFileText(*stored));
        return;
    }
    // Shown as chosen, in red, so the user sees which file was refused.
    box->setText(FromPath(*chosen));
    editor_.Dialogs().ShowMessage(InvalidTextureLine(which) + "\n" + kTextureFolderRule, kInvalidTextureTitle,
                                  MessageIcon::Exclamation);
}

bool frmTeraSettings::TextureFound(const QLineEdit* box) const {
    const std::optional<std::string> file =
        ResolveTexturePath(editor_.ProgramFolder(), ToFileText(box->text()));
    return file && FileExists(*file);
}

// A path that is well formed but names no file may be kept (the file may come later), but not
// without a word: neither the editor nor the simulator will find it.
bool frmTeraSettings::MissingTexturesAccepted() {
    std::string lines;
    const std::pair<const QLineEdit*, const char*> boxes[] = {
        {txtGround, "Ground"}, {txtDetail, "Detail"}, {txtWater, "Water"}};
    for (const auto& [box, which] : boxes) {
        const std::string path = ToFileText(box->text());
        if (!box->isEnabled() || !IsRelativeTexturePath(path) || TextureFound(box)) continue;
        lines += std::string("The ") + which + " Texture was not found: " + path + "\n";
    }
    if (lines.empty()) return true;
    return editor_.Dialogs().Ask(
               lines + "\nThe terrain will be drawn without it, and the simulator will not find it either.\n"
                       "Keep it anyway?",
               "Texture Not Found", Buttons::YesNo, MessageIcon::Exclamation, Answer::No) == Answer::Yes;
}

void frmTeraSettings::txtTexture_Change(QLineEdit* box) {
    // Red for a path that cannot be stored and for one naming no file.
    const bool valid = IsRelativeTexturePath(ToFileText(box->text())) && TextureFound(box);
    QPalette palette = box->palette();
    const QColor normal = QApplication::palette(box).color(QPalette::Active, QPalette::Text);
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::Text, valid ? normal : QColor(255, 0, 0));
    box->setPalette(palette);
}

void frmTeraSettings::chkWater_Click() {
    const bool on = chkWater->isChecked();
    for (QWidget* control :
         std::initializer_list<QWidget*>{txtWater, btnWater[0], btnWater[2], hsWater, hsReflection, lblWater,
                                         lblReflection, lblWaterRepeats, lblReflectionCaption})
        control->setEnabled(on);
    for (QPushButton* button : btnSea)
        button->setEnabled(on);
}

void frmTeraSettings::optTeraStruct_Click() {
    const bool custom = optTeraStruct[3]->isChecked();
    lblCustomX->setEnabled(custom);
    lblCustomZ->setEnabled(custom);
    lblCustomBy_->setEnabled(custom);
}

void frmTeraSettings::btnCustomEdit_Click() {
    int columns = lblCustomX->text().toInt();
    int rows = lblCustomZ->text().toInt();
    if (columns < 1 || rows < 1) {
        columns = editor_.Terrain().columns;
        rows = editor_.Terrain().rows;
    }
    frmTeraCustom custom(columns, rows, this);
    if (custom.exec() != QDialog::Accepted) return;
    lblCustomX->setNum(custom.Columns());
    lblCustomZ->setNum(custom.Rows());
    if (custom.Columns() != editor_.Terrain().columns || custom.Rows() != editor_.Terrain().rows)
        customSizeChosen_ = true;
    // Picking a size means wanting it: the custom structure is selected with it.
    optTeraStruct[3]->setChecked(true);
}
