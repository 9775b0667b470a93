#include "frmAskLoad.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

cAskDialog::cAskDialog(QWidget* parent, const QString& caption, const QString& text, const QString& button0,
                       const QString& button1)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setWindowTitle(caption);
    setModal(true);

    auto* icon = new QLabel(this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(48, 48));
    icon->setAlignment(Qt::AlignTop);
    lblText = new QLabel(text, this);
    lblText->setObjectName("lblText");
    lblText->setWordWrap(true);
    lblText->setMinimumWidth(380);
    auto* top = new QHBoxLayout;
    top->addWidget(icon);
    top->addWidget(lblText, 1);

    chkDontAskAgain = new QCheckBox("Don't Ask Me Again.", this);
    chkDontAskAgain->setObjectName("chkDontAskAgain");

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const QString labels[2] = {button0, button1};
    for (int i = 0; i < 2; ++i) {
        auto* button = new QPushButton(labels[i], this);
        button->setObjectName(QString("btnMain_%1").arg(i));
        connect(button, &QPushButton::clicked, this, [this, i] {
            pressed_ = i;
            answered_ = true;
            accept();
        });
        btnMain[static_cast<std::size_t>(i)] = button;
        buttons->addWidget(button);
    }
    btnMain[0]->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(chkDontAskAgain);
    layout->addLayout(buttons);
}

AskResult cAskDialog::Run() {
    exec();
    return {pressed_, chkDontAskAgain->isChecked()};
}

void cAskDialog::closeEvent(QCloseEvent* event) {
    // The window closes only once a button has answered.
    if (!answered_) event->ignore();
}

// "loosing" is the product's own wording, kept on purpose.
frmAskLoadTrackTerrain::frmAskLoadTrackTerrain(QWidget* parent)
    : cAskDialog(
          parent, "Track Contains Terrain Data...",
          "This track already contains terrain data.  Would you like to load this tracks terrain loosing "
          "the current terrain in the editor.  Or merge this track with the current terrain?",
          "Load Tracks Terrain", "Merge Track with Current Terrain") {
    setObjectName("frmAskLoadTrackTerrain");
}

frmAskLoadNoTerrain::frmAskLoadNoTerrain(QWidget* parent)
    : cAskDialog(
          parent, "Track Does Not Have Terrain...",
          "This track does not have any terrain, but there is terrain in the editor.  Would you like to "
          "remove the current terrain.  Or keep the terrain and merge it with this track?",
          "Remove Terrain", "Keep Terrain") {
    setObjectName("frmAskLoadNoTerrain");
}

// "sue" is the product's own wording, kept on purpose.
frmAskImportOverwrite::frmAskImportOverwrite(QWidget* parent)
    : cAskDialog(
          parent, "Overwrite Current Terrain...",
          "Importing terrain will overwrite the terrain currently in the editor.  Are you sue you wish to "
          "continue?",
          "Yes", "No") {
    setObjectName("frmAskImportOverwrite");
}
