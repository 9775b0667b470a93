#pragma once
// The 3D view: a QOpenGLWidget with a compatibility-profile context on which the scene is drawn
// with fixed-function OpenGL. Until the scene renderer arrives it clears to black.

#include <QOpenGLWidget>

#include <functional>

class pbOpenGL : public QOpenGLWidget {
    Q_OBJECT
public:
    explicit pbOpenGL(QWidget* parent = nullptr);

    // Whether a usable context was created when the widget was first shown.
    bool ContextReady() const { return contextReady_; }

signals:
    void ContextCreated(bool ok);

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;

private:
    bool contextReady_ = false;
};
