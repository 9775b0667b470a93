#include "pbOpenGL.h"

#include <QOpenGLContext>

#include <GL/gl.h>

pbOpenGL::pbOpenGL(QWidget* parent) : QOpenGLWidget(parent) {
    setObjectName("pbOpenGL");
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(320, 240);
}

void pbOpenGL::initializeGL() {
    contextReady_ = context() != nullptr && context()->isValid();
    if (contextReady_) {
        glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
        glEnable(GL_DEPTH_TEST);
    }
    emit ContextCreated(contextReady_);
}

void pbOpenGL::resizeGL(int width, int height) { glViewport(0, 0, width, height); }

void pbOpenGL::paintGL() {
    if (!contextReady_) return;
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}
