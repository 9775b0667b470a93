#include "frmAbout.h"

#include "Version.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setObjectName("frmAbout");
    setWindowTitle("About CorvantaLandwright");
    lblAbout = new QLabel(this);
    lblAbout->setObjectName("lblAbout");
    lblAbout->setTextFormat(Qt::RichText);
    lblAbout->setText(QString("<h2>%1</h2><p>Version %2</p>"
                              "<p>A terrain editor for the track files of the Corvanta roller-coaster "
                              "simulator: open a track, shape its terrain in 3D, and save it back.</p>")
                          .arg(kProgramName, kProgramVersion));
    lblAbout->setWordWrap(true);
    lblAbout->setMinimumWidth(360);
    btnOkay = new QPushButton("OK", this);
    btnOkay->setObjectName("btnOkay");
    btnOkay->setDefault(true);
    connect(btnOkay, &QPushButton::clicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblAbout);
    layout->addWidget(btnOkay, 0, Qt::AlignRight);
}
