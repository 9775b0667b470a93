// The status bar (the mode and what the mouse does in it, the brush size, the height under the
// terrain cursor) and the hint drawn over the empty view on how to begin.
#include "frmMain.h"
#include "pbOpenGL.h"

#include <QLabel>
#include <QRadioButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

constexpr const char* kCameraModeHelp =
    "Camera Move Mode: left-drag looks around, right button flies forward, both fly back, W A S D and "
    "arrows fly";
constexpr const char* kTerrainModeHelp =
    "Terrain Edit Mode: left-drag raises or lowers, right-drag moves the cursor, Enter brings the cursor "
    "into view";
constexpr const char* kEmptyViewHint = "No track or terrain is open.\n"
                                       "Open a track with File > Open... (Ctrl+O),\n"
                                       "or make a terrain with Terrain > New.";

QLabel* StatusLabel(QStatusBar* bar, const char* name, bool stretch) {
    auto* label = new QLabel(bar);
    label->setObjectName(name);
    if (stretch)
        bar->addWidget(label, 1);
    else
        bar->addPermanentWidget(label);
    return label;
}

} // namespace

void frmMain::BuildStatusBar() {
    QStatusBar* bar = statusBar();
    bar->setObjectName("sbStatus");
    lblStatusMode = StatusLabel(bar, "lblStatusMode", true);
    lblStatusBrush = StatusLabel(bar, "lblStatusBrush", false);
    lblStatusHeight = StatusLabel(bar, "lblStatusHeight", false);
    // The longest height text, so the bar does not shift while the cursor moves.
    lblStatusHeight->setMinimumWidth(lblStatusHeight->fontMetrics().horizontalAdvance("Height: -000.00"));

    lblEmptyHint = new QLabel(kEmptyViewHint, view);
    lblEmptyHint->setObjectName("lblEmptyHint");
    lblEmptyHint->setAlignment(Qt::AlignCenter);
    lblEmptyHint->setStyleSheet("QLabel { color: white; background: rgba(40, 40, 40, 200); "
                                "border-radius: 6px; padding: 12px; font-size: 13pt; }");
    auto* layout = new QVBoxLayout(view);
    layout->addWidget(lblEmptyHint, 0, Qt::AlignCenter);

    connect(optMode[1], &QRadioButton::toggled, this, &frmMain::UpdateStatusBar);
    UpdateStatusBar();
}

void frmMain::UpdateStatusBar() {
    const TerrainModel& terrain = editor_.Terrain();
    lblStatusMode->setText(TerrainMode() ? kTerrainModeHelp : kCameraModeHelp);
    const int radius = editor_.Settings().sculptSize;
    lblStatusBrush->setText(QString("Brush radius %1 (%2 x %2)").arg(radius).arg(2 * radius + 1));
    if (editor_.CanEditTerrain()) {
        editor_.UpdateCursorHeight();
        lblStatusHeight->setText(QString("Height: %1").arg(editor_.Cursor().y, 0, 'f', 2));
    } else {
        lblStatusHeight->setText("Height: no terrain");
    }
    lblEmptyHint->setVisible(!terrain.terrainPresent && !terrain.trackPresent);
}
