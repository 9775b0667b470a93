// The main window's editing controls: the Edit, Sculpt and Tools menus, Terrain > Reset..., the
// sculpt bar (mode, brush size and the custom radius slider) and the two editing dialogs. Menu
// entries, bar buttons and keys all reach the same handlers, so check marks and buttons agree.
#include "frmAdjustHeight.h"
#include "frmFilter.h"
#include "frmMain.h"
#include "pbOpenGL.h"

#include <QActionGroup>
#include <QButtonGroup>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QSlider>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr const char* kToolCaptions[3] = {"Square Tool", "Pyramid Tool", "Curve Tool"};
constexpr const char* kModeCaptions[2] = {"Relational", "Absolute"};
constexpr const char* kModeTips[2] = {"Terraform Relative Heights", "Terraform Absolute Heights"};
constexpr const char* kSizeCaptions[7] = {"Tiny", "Small", "Medium", "Large", "Huge", "Gigantic", "Custom"};
// The radius "Custom" gives until the slider is moved: a step beyond "Gigantic".
constexpr int kFirstCustomRadius = 8;

// A brush-size picture: the square of points the size covers, growing with the index; the custom
// size shows a square with a slider knob.
QIcon SizeIcon(int index) {
    QPixmap picture(24, 24);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const int side = index < 6 ? 4 + index * 3 : 19;
    const QRectF square(12 - side / 2.0, 12 - side / 2.0, side, side);
    painter.setPen(QPen(QColor(60, 60, 60), 1.0));
    painter.setBrush(QColor(200, 60, 200));
    painter.drawRect(square);
    if (index == 6) {
        painter.setBrush(QColor(250, 250, 250));
        painter.drawEllipse(QPointF(12, 12), 4, 4);
    }
    return QIcon(picture);
}

QToolButton* OptionButton(QToolBar* bar, QButtonGroup* group, const QString& name, int index) {
    auto* button = new QToolButton(bar);
    button->setObjectName(QString("%1_%2").arg(name).arg(index));
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    group->addButton(button, index);
    bar->addWidget(button);
    return button;
}

} // namespace

QAction* frmMain::AddEditEntry(QMenu* menu, const char* name, const QString& text, const QKeySequence& key,
                               void (Editor::*command)()) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    if (!key.isEmpty()) action->setShortcut(key);
    // One command per key press: holding the key does not repeat it.
    action->setAutoRepeat(false);
    connect(action, &QAction::triggered, this, [this, command] {
        (editor_.*command)();
        UpdatePositionLabels();
    });
    return action;
}

void frmMain::BuildEditMenu() {
    QMenu* menu = menuBar()->addMenu("&Edit");
    menu->setObjectName("mnuEdit");
    mnuUndo = AddEditEntry(menu, "mnuUndo", "&Undo", Qt::Key_Z, &Editor::Undo);
    mnuRedo = AddEditEntry(menu, "mnuRedo", "&Redo", Qt::Key_X, &Editor::Redo);
    menu->addSeparator();
    mnuCopy = AddEditEntry(menu, "mnuCopy", "&Copy", Qt::Key_C, &Editor::CopyArea);
    mnuCopy->setToolTip("Copy Terrain Effect Area");
    mnuPaste = AddEditEntry(menu, "mnuPaste", "&Paste", Qt::Key_V, &Editor::PasteArea);
    mnuPaste->setToolTip("Paste Terrain Effect Area");
    // The usual keys as well; the single keys stay first, so the menu shows them.
    AddAlternativeKeys(mnuUndo, {QKeySequence(Qt::CTRL | Qt::Key_Z)});
    AddAlternativeKeys(mnuRedo,
                       {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    AddAlternativeKeys(mnuCopy, {QKeySequence(Qt::CTRL | Qt::Key_C)});
    AddAlternativeKeys(mnuPaste, {QKeySequence(Qt::CTRL | Qt::Key_V)});
}

void frmMain::BuildSculptMenu() {
    QMenu* sculpt = menuBar()->addMenu("&Sculpt");
    sculpt->setObjectName("mnuSculpt");
    auto addGroup = [this](QMenu* menu, const char* name, const char* const* captions, int count,
                           auto* entries, auto pick) {
        auto* group = new QActionGroup(this);
        for (int i = 0; i < count; ++i) {
            QAction* action = menu->addAction(captions[i]);
            action->setObjectName(QString("%1_%2").arg(name).arg(i));
            action->setCheckable(true);
            action->setAutoRepeat(false);
            group->addAction(action);
            connect(action, &QAction::triggered, this, [pick, i] { pick(i); });
            (*entries)[static_cast<std::size_t>(i)] = action;
        }
    };
    QMenu* tools = sculpt->addMenu("Sculpt &Tool");
    tools->setObjectName("mnuSculptToolMenu");
    addGroup(tools, "mnuSculptTool", kToolCaptions, 3, &mnuSculptTool,
             [this](int i) { mnuSculptTool_Click(static_cast<SculptTool>(i)); });
    // Only the square tool changes heights: the other two are listed, but cannot be chosen.
    mnuSculptTool[1]->setEnabled(false);
    mnuSculptTool[2]->setEnabled(false);
    QMenu* modes = sculpt->addMenu("&Mode");
    modes->setObjectName("mnuSculptModeMenu");
    addGroup(modes, "mnuSculptMode", kModeCaptions, 2, &mnuSculptMode,
             [this](int i) { mnuSculptMode_Click(static_cast<SculptMode>(i)); });
    modes->addSeparator();
    mnuToggleMode = modes->addAction("&Toggle Relational/Absolute");
    mnuToggleMode->setObjectName("mnuToggleMode");
    mnuToggleMode->setShortcut(Qt::Key_R);
    mnuToggleMode->setAutoRepeat(false);
    connect(mnuToggleMode, &QAction::triggered, this, [this] {
        mnuSculptMode_Click(editor_.CurrentSculptMode() == SculptMode::Relational ? SculptMode::Absolute
                                                                                  : SculptMode::Relational);
    });
    QMenu* sizes = sculpt->addMenu("&Size");
    sizes->setObjectName("mnuSculptSizeMenu");
    addGroup(sizes, "mnuSculptSize", kSizeCaptions, 7, &mnuSculptSize,
             [this](int i) { mnuSculptSize_Click(i); });
    for (int i = 0; i < 6; ++i)
        mnuSculptSize[static_cast<std::size_t>(i)]->setShortcut(Qt::Key_1 + i);
}

void frmMain::BuildToolsMenu() {
    QMenu* menu = menuBar()->addMenu("T&ools");
    menu->setObjectName("mnuTools");
    mnuFlip = AddEditEntry(menu, "mnuFlip", "&Flip", Qt::Key_F, &Editor::FlipArea);
    mnuMirror = AddEditEntry(menu, "mnuMirror", "&Mirror", Qt::Key_M, &Editor::MirrorArea);
    mnuInvert = AddEditEntry(menu, "mnuInvert", "&Invert", Qt::Key_I, &Editor::InvertArea);
    menu->addSeparator();
    mnuFlattenToGround =
        AddEditEntry(menu, "mnuFlattenToGround", "Flatten to &Ground", {}, &Editor::FlattenToGround);
    mnuFlattenToWater =
        AddEditEntry(menu, "mnuFlattenToWater", "Flatten to &Water", {}, &Editor::FlattenToWater);
    mnuFlatten = AddEditEntry(menu, "mnuFlatten", "F&latten", {}, &Editor::FlattenArea);
    mnuFlatten->setToolTip("Flatten Terrain");
    menu->addSeparator();
    mnuAdjustHeight = menu->addAction("&Adjust Height...");
    mnuAdjustHeight->setObjectName("mnuAdjustHeight");
    connect(mnuAdjustHeight, &QAction::triggered, this, &frmMain::mnuAdjustHeight_Click);
    mnuFilter = menu->addAction("Fil&ter...");
    mnuFilter->setObjectName("mnuFilter");
    mnuFilter->setToolTip("Apply Filter to Terrain");
    connect(mnuFilter, &QAction::triggered, this, &frmMain::mnuFilter_Click);
}

void frmMain::BuildSculptBar() {
    // A row of its own under the navigation bar, so that neither is cut short in a narrow window.
    addToolBarBreak();
    QToolBar* bar = addToolBar("Sculpt");
    bar->setObjectName("tbSculpt");
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto* modes = new QButtonGroup(this);
    for (int i = 0; i < 2; ++i) {
        QToolButton* button = optMove[static_cast<std::size_t>(i)] = OptionButton(bar, modes, "optMove", i);
        button->setText(i == 0 ? "Relative" : "Absolute");
        button->setToolTip(kModeTips[i]);
    }
    connect(modes, &QButtonGroup::idClicked, this, &frmMain::optMove_Click);
    bar->addSeparator();
    auto* sizes = new QButtonGroup(this);
    for (int i = 0; i < 7; ++i) {
        QToolButton* button = optSize[static_cast<std::size_t>(i)] = OptionButton(bar, sizes, "optSize", i);
        button->setIcon(SizeIcon(i));
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setToolTip(QString("Effect Area: %1").arg(kSizeCaptions[i]));
    }
    connect(sizes, &QButtonGroup::idClicked, this, &frmMain::optSize_Click);
    hsSculptSize = new QSlider(Qt::Horizontal, bar);
    hsSculptSize->setObjectName("hsSculptSize");
    hsSculptSize->setRange(0, kMaxSculptRadius);
    hsSculptSize->setPageStep(4);
    hsSculptSize->setValue(kFirstCustomRadius);
    hsSculptSize->setFixedWidth(120);
    hsSculptSize->setFocusPolicy(Qt::NoFocus);
    hsSculptSize->setToolTip("Custom Effect Area radius, in grid points");
    bar->addWidget(hsSculptSize);
    lblSculptSize = new QLabel(QString::number(kFirstCustomRadius), bar);
    lblSculptSize->setObjectName("lblSculptSize");
    lblSculptSize->setMinimumWidth(lblSculptSize->fontMetrics().horizontalAdvance("000"));
    lblSculptSize->setAlignment(Qt::AlignCenter);
    bar->addWidget(lblSculptSize);
    connect(hsSculptSize, &QSlider::valueChanged, this, &frmMain::hsSculptSize_Change);
    bar->addSeparator();
    for (QAction* action : {mnuCopy, mnuPaste, mnuFlatten, mnuFilter})
        bar->addAction(action);
}

void frmMain::SyncSculptControls() {
    const int radius = editor_.Settings().sculptSize;
    const int sizeIndex = radius <= 5 ? radius : 6;
    const auto mode = static_cast<std::size_t>(editor_.CurrentSculptMode());
    mnuSculptTool[static_cast<std::size_t>(editor_.CurrentSculptTool())]->setChecked(true);
    mnuSculptMode[mode]->setChecked(true);
    optMove[mode]->setChecked(true);
    mnuSculptSize[static_cast<std::size_t>(sizeIndex)]->setChecked(true);
    optSize[static_cast<std::size_t>(sizeIndex)]->setChecked(true);
    if (sizeIndex == 6) {
        const QSignalBlocker quiet(hsSculptSize);
        hsSculptSize->setValue(radius);
        lblSculptSize->setText(QString::number(radius));
    }
}

void frmMain::mnuSculptTool_Click(SculptTool tool) {
    editor_.SetSculptTool(tool);
    mnuSculptTool[static_cast<std::size_t>(editor_.CurrentSculptTool())]->setChecked(true);
}

void frmMain::mnuSculptMode_Click(SculptMode mode) {
    editor_.SetSculptMode(mode);
    const auto index = static_cast<std::size_t>(editor_.CurrentSculptMode());
    mnuSculptMode[index]->setChecked(true);
    optMove[index]->setChecked(true);
}

void frmMain::mnuSculptSize_Click(int index) {
    index = std::clamp(index, 0, 6);
    editor_.SetSculptSize(index >= 6 ? hsSculptSize->value() : index);
    mnuSculptSize[static_cast<std::size_t>(index)]->setChecked(true);
    optSize[static_cast<std::size_t>(index)]->setChecked(true);
    RenderScene(); // the highlight and the brush points show the new area
}

void frmMain::optMove_Click(int index) {
    view->setFocus();
    mnuSculptMode_Click(static_cast<SculptMode>(index));
}

void frmMain::optSize_Click(int index) {
    view->setFocus();
    mnuSculptSize_Click(index);
}

void frmMain::hsSculptSize_Change(int value) {
    // The slider sets the radius at once, whichever size is ticked: dragging it is how the user
    // tries sizes out, and ticking "Custom" as well would hide which preset was chosen.
    editor_.SetSculptSize(value);
    lblSculptSize->setText(QString::number(value));
    UpdateUI();
    RenderScene();
}

void frmMain::UpdateEditingUI() {
    const bool editable = editor_.CanEditTerrain();
    mnuUndo->setEnabled(editor_.CanUndo());
    mnuRedo->setEnabled(editor_.CanRedo());
    mnuPaste->setEnabled(editor_.CanPaste());
    for (QAction* action : {mnuCopy, mnuFlip, mnuMirror, mnuInvert, mnuFlattenToGround, mnuFlattenToWater,
                            mnuFlatten, mnuAdjustHeight, mnuFilter, mnuReset})
        action->setEnabled(editable);
}

void frmMain::ReturnToView() {
    // Keys go back to the view after a dialog, so flying and the editing keys work at once.
    activateWindow();
    view->setFocus();
    UpdatePositionLabels();
}

void frmMain::mnuReset_Click() {
    editor_.ResetTerrain();
    UpdatePositionLabels();
}

void frmMain::mnuAdjustHeight_Click() {
    if (!editor_.CanEditTerrain()) return;
    frmAdjustHeight dialog(editor_, this);
    dialog.exec();
    ReturnToView();
}

void frmMain::mnuFilter_Click() {
    if (!editor_.CanEditTerrain()) return;
    frmFilter dialog(editor_, this);
    dialog.exec();
    ReturnToView();
}
