#include "frmSplash.h"

#include "Version.h"

#include <QGuiApplication>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace {
constexpr int kSplashMilliseconds = 800;
}

frmSplash::frmSplash(QWidget* owner) : QWidget(owner, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName("frmSplash");
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(460, 260);
    lblStatus = new QLabel(this);
    lblStatus->setObjectName("lblStatus");
    lblStatus->setStyleSheet("color: white; background: transparent;");
    auto* layout = new QVBoxLayout(this);
    layout->addStretch(1);
    layout->addWidget(lblStatus);
    tmrSplash = new QTimer(this);
    tmrSplash->setObjectName("tmrSplash");
    tmrSplash->setSingleShot(true);
    connect(tmrSplash, &QTimer::timeout, this, &QWidget::close);
    // Centred on the screen the program starts on, not at its corner.
    if (const QScreen* screen = owner != nullptr ? owner->screen() : QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void frmSplash::SetStatus(const QString& text) {
    lblStatus->setText(text);
    repaint();
}

void frmSplash::CloseMe() {
    tmrSplash->start(kSplashMilliseconds);
}

void frmSplash::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0.0, QColor(24, 52, 96));
    sky.setColorAt(1.0, QColor(120, 170, 210));
    p.fillRect(rect(), sky);
    // Rolling hills and a coaster's rail over them.
    QPainterPath hills(QPointF(0, 200));
    hills.cubicTo(90, 150, 170, 220, 260, 185);
    hills.cubicTo(340, 155, 400, 200, 460, 175);
    hills.lineTo(460, 260);
    hills.lineTo(0, 260);
    p.fillPath(hills, QColor(60, 120, 60));
    QPainterPath rail(QPointF(20, 170));
    rail.cubicTo(80, 40, 120, 40, 170, 150);
    rail.cubicTo(210, 230, 280, 90, 330, 120);
    rail.cubicTo(380, 150, 400, 110, 440, 100);
    p.setPen(QPen(QColor(230, 120, 20), 3));
    p.drawPath(rail);
    p.setPen(Qt::white);
    QFont title = font();
    title.setPointSize(22);
    title.setBold(true);
    p.setFont(title);
    p.drawText(QRect(0, 24, width(), 40), Qt::AlignHCenter, "CorvantaLandwright");
    QFont small = font();
    small.setPointSize(10);
    p.setFont(small);
    p.drawText(QRect(0, 64, width(), 20), Qt::AlignHCenter,
               QString("Terrain editor for Corvanta tracks, version ") + kProgramVersion);
}
