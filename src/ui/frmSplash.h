#pragma once
// The start-up window: the product's picture and a status line saying what is being done.

#include <QWidget>

class QLabel;
class QTimer;

class frmSplash : public QWidget {
    Q_OBJECT
public:
    explicit frmSplash(QWidget* owner);

    // Shows the text at once, without waiting for the event loop.
    void SetStatus(const QString& text);
    // Starts tmrSplash; its first tick closes the splash.
    void CloseMe();

    QLabel* lblStatus = nullptr;
    QTimer* tmrSplash = nullptr;

protected:
    void paintEvent(QPaintEvent* event) override;
};
