#include "pbOpenGL.h"

#include <QOpenGLContext>
#include <QSurfaceFormat>

#include <GL/gl.h>

void SetDefaultViewFormat() {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(2, 1);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(24);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    QSurfaceFormat::setDefaultFormat(format);
}

pbOpenGL::pbOpenGL(QWidget* parent) : QOpenGLWidget(parent) {
    setObjectName("pbOpenGL");
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(320, 240);
}

pbOpenGL::~pbOpenGL() {
    if (!contextReady_) return;
    makeCurrent();
    ReleaseOpenGL(state_);
    doneCurrent();
}

void pbOpenGL::RequestTextureReload() {
    texturesStale_ = true;
    update();
}

void pbOpenGL::initializeGL() {
    contextReady_ = context() != nullptr && context()->isValid();
    if (contextReady_) InitOpenGL(state_, width(), height(), kFarPlane);
    emit ContextCreated(contextReady_);
}

void pbOpenGL::resizeGL(int width, int height) {
    // The framebuffer is in device pixels.
    const qreal scale = devicePixelRatioF();
    ResizeGLScene(static_cast<int>(width * scale), static_cast<int>(height * scale), kFarPlane);
}

void pbOpenGL::LoadTextures(const RenderInput& in) {
    texturesStale_ = false;
    if (!in.terrain.terrainPresent) return;
    const TerrainModel& t = in.terrain;
    LoadTerrainTexture(state_, in.programFolder, t.groundTexture);
    if (t.waterEnabled) LoadWaterTexture(state_, in.programFolder, t.waterTexture);
}

void pbOpenGL::paintGL() {
    if (!contextReady_) return;
    if (!source_) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        return;
    }
    const RenderInput in = source_();
    if (texturesStale_) LoadTextures(in);
    RenderScene(in, state_, options_);
}
