#pragma once
// The 3D view: a QOpenGLWidget with a compatibility-profile context on which the editing session's
// scene is drawn with fixed-function OpenGL.

#include "modRender.h"

#include <QOpenGLWidget>

class Editor;

// Asks for the context the view needs (OpenGL 2.1 compatibility profile, depth buffer, double
// buffering) for every widget made afterwards. Call before the QApplication is made.
void SetDefaultViewFormat();

class pbOpenGL : public QOpenGLWidget {
    Q_OBJECT
public:
    explicit pbOpenGL(QWidget* parent = nullptr);
    ~pbOpenGL() override;

    // The session whose scene is drawn; nothing is drawn without one.
    void SetEditor(const Editor* editor) { editor_ = editor; }
    // Whether a usable context was created when the widget was first shown.
    bool ContextReady() const { return contextReady_; }
    // The terrain's textures are loaded again before the next frame.
    void RequestTextureReload();

    const GLViewState& ViewState() const { return state_; }
    RenderOptions& Options() { return options_; }

signals:
    void ContextCreated(bool ok);

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;

private:
    void LoadTextures();

    const Editor* editor_ = nullptr;
    GLViewState state_;
    RenderOptions options_;
    bool contextReady_ = false;
    bool texturesStale_ = true;
};
