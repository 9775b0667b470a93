// Flying the camera and moving the terrain cursor: the navigation bar (mode and position labels),
// the keyboard and mouse-button timers, and mouse-look with a captured, hidden pointer.
#include "frmMain.h"
#include "pbOpenGL.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCursor>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QRadioButton>
#include <QTimer>
#include <QToolBar>

namespace {

// A tick every 20 ms, the nominal tick of the camera's speeds; a slower tick moves further per step.
constexpr int kKeyboardTickMs = 20;
constexpr int kMouseTickMs = 20;

QLabel* PositionLabel(QWidget* parent, const QString& name) {
    auto* label = new QLabel("000.00", parent);
    label->setObjectName(name);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance("-0000.00"));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

} // namespace

void frmMain::BuildNavigationBar() {
    QToolBar* bar = addToolBar("Navigation");
    bar->setObjectName("tbNavigation");
    bar->setMovable(false);
    auto* group = new QButtonGroup(this);
    const char* captions[2] = {"Camera Move Mode", "Terrain Edit Mode"};
    for (int i = 0; i < 2; ++i) {
        optMode[static_cast<std::size_t>(i)] = new QRadioButton(captions[i], bar);
        optMode[static_cast<std::size_t>(i)]->setObjectName(QString("optMode_%1").arg(i));
        optMode[static_cast<std::size_t>(i)]->setFocusPolicy(Qt::NoFocus);
        group->addButton(optMode[static_cast<std::size_t>(i)], i);
        bar->addWidget(optMode[static_cast<std::size_t>(i)]);
    }
    optMode[0]->setChecked(true);
    bar->addSeparator();
    bar->addWidget(new QLabel(" Camera: ", bar));
    for (int i = 0; i < 3; ++i)
        bar->addWidget(lblCameraPos[static_cast<std::size_t>(i)] =
                           PositionLabel(bar, QString("lblCameraPos_%1").arg(i)));
    bar->addSeparator();
    bar->addWidget(new QLabel(" Cursor: ", bar));
    for (int i = 0; i < 3; ++i)
        bar->addWidget(lblCursorPos[static_cast<std::size_t>(i)] =
                           PositionLabel(bar, QString("lblCursorPos_%1").arg(i)));

    tmrKeyboard = new QTimer(this);
    tmrKeyboard->setObjectName("tmrKeyboard");
    tmrKeyboard->setInterval(kKeyboardTickMs);
    connect(tmrKeyboard, &QTimer::timeout, this, &frmMain::KeyboardTick);
    tmrMouseMove = new QTimer(this);
    tmrMouseMove->setObjectName("tmrMouseMove");
    tmrMouseMove->setInterval(kMouseTickMs);
    connect(tmrMouseMove, &QTimer::timeout, this, &frmMain::MouseMoveTick);
    steadyClock_.start();
    stepClock_ = [this] { return static_cast<double>(steadyClock_.nsecsElapsed()) * 1e-9; };
    view->installEventFilter(this);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state != Qt::ApplicationActive) ClearHeldInput();
    });
    ReturnFocusAfterMenus();
}

void frmMain::ReturnFocusAfterMenus() {
    // Esc on an open menu leaves the menu bar holding the keyboard, so the next key would pick a
    // menu instead of flying; give the keys back to the view unless another menu opened meanwhile.
    for (QAction* title : menuBar()->actions()) {
        if (title->menu() == nullptr) continue;
        connect(title->menu(), &QMenu::aboutToHide, this, [this] {
            QTimer::singleShot(0, this, [this] {
                if (QApplication::activePopupWidget() == nullptr && menuBar()->hasFocus()) view->setFocus();
            });
        });
    }
}

void frmMain::ClearHeldInput() {
    keyState_.clear();
    pressedOnce_.clear();
    tmrKeyboard->stop();
    tmrMouseMove->stop();
    mouseButtons_ = Qt::NoButton;
    mouseDirection_ = 0;
    sculpting_ = false;
    ReleaseMouse();
}

bool frmMain::TerrainMode() const {
    return optMode[1]->isChecked();
}

void frmMain::SetTerrainMode(bool on) {
    optMode[on ? 1 : 0]->setChecked(true);
}

void frmMain::UpdatePositionLabels() {
    editor_.UpdateCursorHeight();
    const CameraState& c = editor_.Camera();
    const CursorState& k = editor_.Cursor();
    const float camera[3] = {c.x, c.y, c.z};
    const float cursor[3] = {k.x, k.y, k.z};
    for (std::size_t i = 0; i < 3; ++i) {
        lblCameraPos[i]->setText(QString::fromStdString(FormatPositionLabel(camera[i])));
        lblCursorPos[i]->setText(QString::fromStdString(FormatPositionLabel(cursor[i])));
    }
    UpdateStatusBar();
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view) {
        if (event->type() == QEvent::FocusOut) ClearHeldInput();
        if (HandleViewKey(event) || HandleViewMouse(event)) return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

bool frmMain::HandleViewKey(QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->isAutoRepeat()) return true; // held keys are polled by the timer
    if (event->type() == QEvent::KeyPress) {
        keyState_.insert(key->key());
        // A quick tap must still count even if it is released before the next tick.
        if (key->key() == Qt::Key_Space || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
            pressedOnce_.insert(key->key());
        if (!tmrKeyboard->isActive() || pressedOnce_.count(key->key())) {
            if (!tmrKeyboard->isActive()) keyboardClock_.Restart();
            KeyboardTick(); // the first step at once, so a tap moves
            tmrKeyboard->start();
        }
    } else {
        keyState_.erase(key->key());
    }
    return true;
}

void frmMain::KeyboardTick() {
    auto held = [this](int key) { return keyState_.count(key) > 0; };
    HeldKeys keys;
    keys.forward = held(Qt::Key_W);
    keys.backward = held(Qt::Key_S);
    keys.left = held(Qt::Key_A);
    keys.right = held(Qt::Key_D);
    keys.up = held(Qt::Key_PageUp);
    keys.down = held(Qt::Key_PageDown);
    keys.pitchUp = held(Qt::Key_Up);
    keys.pitchDown = held(Qt::Key_Down);
    keys.yawLeft = held(Qt::Key_Left);
    keys.yawRight = held(Qt::Key_Right);
    keys.shift = held(Qt::Key_Shift);
    keys.control = held(Qt::Key_Control);
    keys.extraFast = held(Qt::Key_B);
    editor_.FlyByKeys(keys, keyboardClock_.Elapsed(stepClock_()));
    // Space and Enter act once per press.
    if (pressedOnce_.erase(Qt::Key_Space)) SetTerrainMode(!TerrainMode());
    if (pressedOnce_.erase(Qt::Key_Return) + pressedOnce_.erase(Qt::Key_Enter) > 0)
        editor_.MoveCursorIntoView();
    keyState_.erase(Qt::Key_Space);
    keyState_.erase(Qt::Key_Return);
    keyState_.erase(Qt::Key_Enter);
    UpdatePositionLabels();
    RenderScene();
    if (keyState_.empty() && pressedOnce_.empty()) tmrKeyboard->stop();
}

bool frmMain::HandleViewMouse(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        ViewMousePress(static_cast<QMouseEvent*>(event)->buttons());
        return true;
    case QEvent::MouseButtonRelease:
        ViewMouseRelease(static_cast<QMouseEvent*>(event)->buttons());
        return true;
    case QEvent::MouseMove: {
        if (!mouseCaptured_) return true;
        const QPoint centre(view->width() / 2, view->height() / 2);
        const QPoint delta = static_cast<QMouseEvent*>(event)->position().toPoint() - centre;
        if (delta.isNull()) return true; // the move caused by re-centring the pointer
        ViewMouseDelta(delta.x(), delta.y());
        RecentrePointer();
        return true;
    }
    default:
        return false;
    }
}

void frmMain::ViewMousePress(Qt::MouseButtons buttons) {
    // In terrain mode the left button sculpts: its press stores the one undo step of the stroke.
    const bool startsStroke =
        TerrainMode() && (buttons & Qt::LeftButton) && !(mouseButtons_ & Qt::LeftButton);
    mouseButtons_ = buttons;
    CaptureMouse();
    if (startsStroke) {
        sculpting_ = true;
        editor_.BeginStroke();
    }
    // Camera move mode: the right button flies forward, both buttons fly backward; the left button
    // alone only looks around.
    mouseDirection_ = 0;
    if (!TerrainMode() && (buttons & Qt::RightButton)) mouseDirection_ = (buttons & Qt::LeftButton) ? 4 : 1;
    if (mouseDirection_ == 0) {
        tmrMouseMove->stop();
    } else if (!tmrMouseMove->isActive()) {
        mouseClock_.Restart();
        tmrMouseMove->start();
    }
}

void frmMain::ViewMouseDelta(int dx, int dy) {
    if (TerrainMode() && sculpting_) {
        // Only the vertical movement sculpts; the cursor stays where the stroke began.
        editor_.StrokeMove(dy);
        UpdatePositionLabels();
        return;
    }
    if (TerrainMode()) {
        editor_.DragCursor(dx, dy);
    } else {
        editor_.LookByMouse(dx, dy);
    }
    UpdatePositionLabels();
}

void frmMain::ViewMouseRelease(Qt::MouseButtons remaining) {
    mouseButtons_ = remaining;
    if (!(remaining & Qt::LeftButton)) sculpting_ = false;
    if (remaining == Qt::NoButton) {
        tmrMouseMove->stop();
        mouseDirection_ = 0;
        ReleaseMouse();
    } else {
        ViewMousePress(remaining);
    }
}

void frmMain::MouseMoveTick() {
    if (mouseDirection_ == 0 || !(mouseButtons_ & (Qt::LeftButton | Qt::RightButton))) return;
    HeldKeys modifiers;
    const Qt::KeyboardModifiers held = QApplication::queryKeyboardModifiers();
    modifiers.shift = held & Qt::ShiftModifier;
    modifiers.control = held & Qt::ControlModifier;
    modifiers.extraFast = keyState_.count(Qt::Key_B) > 0;
    editor_.FlyByMouse(mouseDirection_ == 1, modifiers, mouseClock_.Elapsed(stepClock_()));
    UpdatePositionLabels();
}

void frmMain::CaptureMouse() {
    if (mouseCaptured_) return;
    view->grabMouse();
    view->setCursor(Qt::BlankCursor);
    mouseCaptured_ = true;
    RecentrePointer();
}

void frmMain::ReleaseMouse() {
    if (!mouseCaptured_) return;
    view->releaseMouse();
    view->unsetCursor();
    mouseCaptured_ = false;
}

void frmMain::RecentrePointer() {
    QCursor::setPos(view->mapToGlobal(QPoint(view->width() / 2, view->height() / 2)));
}
