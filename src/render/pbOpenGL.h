#pragma once
// The 3D view: a QOpenGLWidget with a compatibility-profile context on which a scene is drawn with
// fixed-function OpenGL. What it draws comes from a RenderInput that its owner supplies each frame.

#include "modRender.h"

#include <QOpenGLWidget>

#include <functional>

// Asks for the context the view needs (OpenGL 2.1 compatibility profile, depth buffer, double
// buffering) for every widget made afterwards. Call before the QApplication is made.
void SetDefaultViewFormat();

class pbOpenGL : public QOpenGLWidget {
    Q_OBJECT
public:
    explicit pbOpenGL(QWidget* parent = nullptr);
    ~pbOpenGL() override;

    // Gives what to draw, asked for at every frame; nothing is drawn without a source.
    using InputSource = std::function<RenderInput()>;
    void SetInputSource(InputSource source) { source_ = std::move(source); }
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
    void LoadTextures(const RenderInput& in);

    InputSource source_;
    GLViewState state_;
    RenderOptions options_;
    bool contextReady_ = false;
    bool texturesStale_ = true;
};
