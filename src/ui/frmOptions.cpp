#include "frmOptions.h"
#include "DialogButtons.h"

#include "Editor.h"
#include "OptionsMath.h"

#include <QCheckBox>
#include <QEvent>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QShortcut>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// What each interface colour paints, in the order the settings keep them. The first five colour
// the track by segment type.
const char* const kColourCaptions[11] = {"Track",
                                         "Station",
                                         "Lift",
                                         "Transport",
                                         "Brake",
                                         "Supports",
                                         "Trees",
                                         "Brush Area",
                                         "Cursor",
                                         "Terrain (No Texture)",
                                         "Water (No Texture)"};

QString IndexedName(const QString& name, std::size_t index) {
    return QString("%1_%2").arg(name).arg(index);
}

QCheckBox* NewCheckBox(QWidget* parent, const QString& name, const QString& caption) {
    auto* box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    return box;
}

// The index of the checked button, or fallback when none is (a value outside 0..2 in the file
// checks none, and then OK keeps it).
int CheckedIndex(const std::array<QRadioButton*, 3>& buttons, int fallback) {
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (buttons[i]->isChecked()) return static_cast<int>(i);
    return fallback;
}

void CheckIndex(const std::array<QRadioButton*, 3>& buttons, int value) {
    if (value >= 0 && value < static_cast<int>(buttons.size()))
        buttons[static_cast<std::size_t>(value)]->setChecked(true);
}

} // namespace

frmOptions::frmOptions(Editor& editor, QWidget* parent) : QDialog(parent), editor_(editor) {
    setObjectName("frmOptions");
    setWindowTitle("Landwright Options...");

    pages_ = new QStackedLayout;
    pages_->addWidget(BuildQuestionsTab());
    pages_->addWidget(BuildPreferencesTab());
    pages_->addWidget(BuildColorsTab());

    QHBoxLayout* buttons = OkCancelRow(this, btnOkay, btnCancel);
    connect(btnOkay, &QPushButton::clicked, this, &frmOptions::btnOkay_Click);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildTabRow());
    layout->addLayout(pages_, 1);
    layout->addLayout(buttons);

    LoadControls();
    ShowTab(0);
    AddTabKeys();
}

// The tab labels take no focus, so the keyboard reaches the pages by shortcuts: Ctrl+Tab and
// Ctrl+Page Down go on, Ctrl+Shift+Tab and Ctrl+Page Up go back, Alt and a caption's first
// letter (underlined) go straight to that page.
void frmOptions::AddTabKeys() {
    const auto step = [this](int by) {
        const int count = static_cast<int>(lblMenu.size());
        ShowTab(static_cast<std::size_t>((pages_->currentIndex() + by + count) % count));
    };
    for (const QKeySequence& key :
         {QKeySequence(Qt::CTRL | Qt::Key_Tab), QKeySequence(Qt::CTRL | Qt::Key_PageDown)})
        connect(new QShortcut(key, this), &QShortcut::activated, this, [step] { step(1); });
    for (const QKeySequence& key :
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), QKeySequence(Qt::CTRL | Qt::Key_Backtab),
          QKeySequence(Qt::CTRL | Qt::Key_PageUp)})
        connect(new QShortcut(key, this), &QShortcut::activated, this, [step] { step(-1); });
    for (std::size_t i = 0; i < lblMenu.size(); ++i) {
        const QString caption = fmeTab[i]->accessibleName();
        lblMenu[i]->setText("<u>" + caption.left(1) + "</u>" + caption.mid(1));
        const QKeySequence key(QKeySequence::fromString("Alt+" + caption.left(1)));
        connect(new QShortcut(key, this), &QShortcut::activated, this, [this, i] { ShowTab(i); });
    }
}

QWidget* frmOptions::BuildTabRow() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (std::size_t i = 0; i < fmeTab.size(); ++i) {
        auto* label = new QLabel(fmeTab[i]->accessibleName(), row);
        label->setObjectName(IndexedName("lblMenu", i));
        label->setFrameStyle(QFrame::Panel | QFrame::Raised);
        label->setMargin(4);
        // Wide enough for the bold caption of the selected tab, so the row never shifts.
        QFont bold = label->font();
        bold.setBold(true);
        label->setMinimumWidth(std::max(90, QFontMetrics(bold).horizontalAdvance(label->text()) + 24));
        label->setAlignment(Qt::AlignCenter);
        label->setAutoFillBackground(true);
        label->setCursor(Qt::PointingHandCursor);
        label->installEventFilter(this);
        lblMenu.push_back(label);
        layout->addWidget(label);
    }
    layout->addStretch(1);
    return row;
}

// A page of the dialog; its caption becomes the text of its tab label.
QFrame* frmOptions::NewTab(const QString& caption) {
    auto* frame = new QFrame(this);
    frame->setObjectName(IndexedName("fmeTab", fmeTab.size()));
    frame->setAccessibleName(caption);
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    fmeTab.push_back(frame);
    return frame;
}

QFrame* frmOptions::BuildQuestionsTab() {
    QFrame* tab = NewTab("Questions");
    auto* layout = new QVBoxLayout(tab);
    // "Overwritting" is the product's own wording, kept on purpose.
    layout->addWidget(BuildQuestion(
        "When Loading a Track With Terrain and Terrain is Already in the Editor", "optAskLoadTrackTerrain",
        optAskLoadTrackTerrain, "Always Load The Terrain With The Track Overwritting Terrain In The Editor",
        "Always Keep The Terrain In The Editor And Ignore Terrain In Track File"));
    layout->addWidget(
        BuildQuestion("When Loading a Track Without Terrain and Terrain is Already in the Editor",
                      "OptAskLoadNoTerrain", OptAskLoadNoTerrain, "Always Remove The Terrain From The Editor",
                      "Always Keep The Terrain In The Editor"));
    // Button 1 and 2 are the stored answers of the import's overwrite question: 1 imports, 2 never does.
    layout->addWidget(BuildQuestion("When Importing Terrain and Terrain is Already in the Editor",
                                    "optAskImport", optAskImport, "Always Import The New Terrain",
                                    "Never Import The New Terrain"));
    layout->addStretch(1);
    return tab;
}

QGroupBox* frmOptions::BuildQuestion(const QString& title, const QString& name,
                                     std::array<QRadioButton*, 3>& buttons, const QString& always,
                                     const QString& never) {
    auto* group = new QGroupBox(title, this);
    auto* layout = new QVBoxLayout(group);
    const QString captions[3] = {"Ask Me What To Do", always, never};
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        buttons[i] = new QRadioButton(captions[i], group);
        buttons[i]->setObjectName(IndexedName(name, i));
        layout->addWidget(buttons[i]);
    }
    return group;
}

QFrame* frmOptions::BuildPreferencesTab() {
    QFrame* tab = NewTab("Preferences");

    auto* remember = new QGroupBox("Between Sessions", tab);
    auto* rememberLayout = new QVBoxLayout(remember);
    chkSaveRecent = NewCheckBox(remember, "chkSaveRecent", "Remember Recent Files");
    chkSaveSettings = NewCheckBox(remember, "chkSaveSettings", "Remember My View Settings");
    chkSaveTools = NewCheckBox(remember, "chkSaveTools", "Remember My Sculpt Settings");
    rememberLayout->addWidget(chkSaveRecent);
    rememberLayout->addWidget(chkSaveSettings);
    rememberLayout->addWidget(chkSaveTools);

    auto* water = new QGroupBox("Water", tab);
    auto* waterLayout = new QGridLayout(water);
    chkUseWaterTrans = NewCheckBox(water, "chkUseWaterTrans", "Use Translucent Water");
    hsWaterTrans = new QScrollBar(Qt::Horizontal, water);
    hsWaterTrans->setObjectName("hsWaterTrans");
    hsWaterTrans->setRange(0, 100);
    hsWaterTrans->setPageStep(10);
    hsWaterTrans->setMinimumWidth(240);
    lblWaterTrans = new QLabel(water);
    lblWaterTrans->setObjectName("lblWaterTrans");
    // Wide enough for "100% Translucent", so the bar does not shift while it moves.
    lblWaterTrans->setMinimumWidth(lblWaterTrans->fontMetrics().horizontalAdvance("100% Translucent") + 8);
    connect(hsWaterTrans, &QScrollBar::valueChanged, this, &frmOptions::hsWaterTrans_Change);
    waterLayout->addWidget(chkUseWaterTrans, 0, 0, 1, 2);
    waterLayout->addWidget(hsWaterTrans, 1, 0);
    waterLayout->addWidget(lblWaterTrans, 1, 1);
    waterLayout->setColumnStretch(0, 1);

    auto* lighting = new QGroupBox("Lighting", tab);
    auto* lightingLayout = new QHBoxLayout(lighting);
    chkNoLights = NewCheckBox(lighting, "chkNoLights", "Disable Lighting");
    // Broken by hand: left to word wrap, "division-by-zero" splits at a hyphen.
    auto* note = new QLabel("Note: users of some video chipsets who get\n"
                            "division-by-zero errors should disable lighting.",
                            lighting);
    note->setObjectName("lblNoLightsNote");
    lightingLayout->addWidget(chkNoLights, 0, Qt::AlignTop);
    lightingLayout->addSpacing(12);
    lightingLayout->addWidget(note, 1);

    auto* layout = new QVBoxLayout(tab);
    layout->addWidget(remember);
    layout->addWidget(water);
    layout->addWidget(lighting);
    layout->addStretch(1);
    return tab;
}

QFrame* frmOptions::BuildColorsTab() {
    QFrame* tab = NewTab("Colors");
    auto* groups = new QHBoxLayout;
    groups->addWidget(BuildColourGroup("Track Colors", 0, 4), 0, Qt::AlignTop);
    groups->addWidget(BuildColourGroup("Scene Colors", 5, 10), 0, Qt::AlignTop);
    auto* hint = new QLabel("Click a color to change it.", tab);
    auto* layout = new QVBoxLayout(tab);
    layout->addLayout(groups);
    layout->addStretch(1);
    layout->addWidget(hint);
    return tab;
}

// Swatches first to last, each beside the caption that says what it paints.
QGroupBox* frmOptions::BuildColourGroup(const QString& title, int first, int last) {
    auto* group = new QGroupBox(title, this);
    auto* layout = new QGridLayout(group);
    layout->setHorizontalSpacing(10);
    for (int i = first; i <= last; ++i) {
        const auto index = static_cast<std::size_t>(i);
        auto* swatch = new QLabel(group);
        swatch->setObjectName(IndexedName("lblColors", index));
        swatch->setFixedSize(48, 22);
        swatch->setFrameStyle(QFrame::Box | QFrame::Plain);
        swatch->setAutoFillBackground(true);
        swatch->setCursor(Qt::PointingHandCursor);
        swatch->setToolTip("Click to choose the color");
        swatch->installEventFilter(this);
        lblColors[index] = swatch;
        layout->addWidget(swatch, i - first, 0);
        layout->addWidget(new QLabel(kColourCaptions[index], group), i - first, 1);
    }
    layout->setColumnStretch(1, 1);
    return group;
}

void frmOptions::LoadControls() {
    const AppSettings& settings = editor_.Settings();
    CheckIndex(optAskLoadTrackTerrain, settings.askLoadTrackTerrain);
    CheckIndex(OptAskLoadNoTerrain, settings.askLoadNoTerrain);
    CheckIndex(optAskImport, settings.askImportOverwrite);
    chkSaveRecent->setChecked(settings.rmbrRecents);
    chkSaveSettings->setChecked(settings.rmbrViews);
    chkSaveTools->setChecked(settings.rmbrTools);
    chkUseWaterTrans->setChecked(settings.useWaterTrans);
    hsWaterTrans->setValue(WaterTransToPercent(settings.waterTrans));
    // The bar may already stand at that value and then sends no change.
    hsWaterTrans_Change(hsWaterTrans->value());
    chkNoLights->setChecked(settings.noLights);
    for (std::size_t i = 0; i < lblColors.size(); ++i)
        SetSwatch(i, ColourToSwatch(settings.colorTable[i]));
}

void frmOptions::ShowTab(std::size_t index) {
    for (std::size_t i = 0; i < lblMenu.size(); ++i) {
        const bool selected = i == index;
        QFont font = lblMenu[i]->font();
        font.setBold(selected);
        lblMenu[i]->setFont(font);
        lblMenu[i]->setBackgroundRole(selected ? QPalette::Highlight : QPalette::Button);
        lblMenu[i]->setForegroundRole(selected ? QPalette::HighlightedText : QPalette::ButtonText);
    }
    pages_->setCurrentIndex(static_cast<int>(index)); // shows that frame and hides the others
}

void frmOptions::SetSwatch(std::size_t index, const ByteColour& colour) {
    swatch_[index] = colour;
    QPalette palette = lblColors[index]->palette();
    palette.setColor(QPalette::Window, QColor(colour.r, colour.g, colour.b));
    lblColors[index]->setPalette(palette);
}

bool frmOptions::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonPress ||
        static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
        return QDialog::eventFilter(watched, event);
    const auto menu = std::find(lblMenu.begin(), lblMenu.end(), watched);
    if (menu != lblMenu.end()) {
        ShowTab(static_cast<std::size_t>(menu - lblMenu.begin()));
        return true;
    }
    const auto swatch = std::find(lblColors.begin(), lblColors.end(), watched);
    if (swatch != lblColors.end()) {
        lblColors_Click(static_cast<std::size_t>(swatch - lblColors.begin()));
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmOptions::lblColors_Click(std::size_t index) {
    if (const auto chosen = editor_.Dialogs().ShowColourDialog(swatch_[index])) SetSwatch(index, *chosen);
}

void frmOptions::hsWaterTrans_Change(int value) {
    lblWaterTrans->setText(QString::fromStdString(TranslucencyLabel(value)));
}

void frmOptions::btnOkay_Click() {
    AppSettings settings = editor_.Settings();
    settings.askLoadTrackTerrain = CheckedIndex(optAskLoadTrackTerrain, settings.askLoadTrackTerrain);
    settings.askLoadNoTerrain = CheckedIndex(OptAskLoadNoTerrain, settings.askLoadNoTerrain);
    settings.askImportOverwrite = CheckedIndex(optAskImport, settings.askImportOverwrite);
    settings.rmbrRecents = chkSaveRecent->isChecked();
    settings.rmbrViews = chkSaveSettings->isChecked();
    settings.rmbrTools = chkSaveTools->isChecked();
    settings.useWaterTrans = chkUseWaterTrans->isChecked();
    settings.waterTrans = PercentToWaterTrans(hsWaterTrans->value());
    settings.noLights = chkNoLights->isChecked();
    for (std::size_t i = 0; i < swatch_.size(); ++i)
        settings.colorTable[i] = SwatchToColour(swatch_[i]);
    editor_.ApplySettings(settings);
    // A failed write is reported by the editor; the values stay in effect for this run either way.
    editor_.SaveSettings();
    accept();
}
