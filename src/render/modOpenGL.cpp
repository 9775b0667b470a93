#include "modOpenGL.h"

#include "TexturePath.h"
#include "cDIBSection.h"

#include <GL/gl.h>
#include <GL/glu.h>

#ifndef GL_BGR_EXT
#define GL_BGR_EXT 0x80E0
#endif

void InitOpenGL(GLViewState& state, int width, int height, double farPlane) {
    ResizeGLScene(width, height, farPlane);
    // Opaque black: the widget's picture is composed with the window, so its alpha must stay 1.
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glShadeModel(GL_FLAT); // one face normal per terrain triangle
    glClearDepth(1.0);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    const GLfloat ambient[] = {0.25f, 0.25f, 0.25f, 1.0f};
    const GLfloat diffuse[] = {0.75f, 0.75f, 0.75f, 1.0f};
    const GLfloat specular[] = {1.0f, 1.0f, 1.0f, 1.0f};
    const GLfloat position[] = {1.0f, 1.0f, 0.0f, 0.0f};
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, specular);
    glLightfv(GL_LIGHT0, GL_POSITION, position);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_CULL_FACE);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    if (!state.sceneQuadric) {
        state.sceneQuadric = gluNewQuadric();
        gluQuadricNormals(state.sceneQuadric, GLU_SMOOTH);
        gluQuadricTexture(state.sceneQuadric, GL_FALSE);
        // The same triangles every frame: compile them once.
        for (std::size_t i = 0; i < kSphereRadii.size(); ++i) {
            state.sphereLists[i] = glGenLists(1);
            glNewList(state.sphereLists[i], GL_COMPILE);
            gluSphere(state.sceneQuadric, kSphereRadii[i], 12, 12);
            glEndList();
        }
    }
    state.renderReady = true;
}

void ReleaseOpenGL(GLViewState& state) {
    if (state.sceneQuadric) gluDeleteQuadric(state.sceneQuadric);
    for (unsigned list : state.sphereLists)
        if (list != 0) glDeleteLists(list, 1);
    const GLuint names[] = {state.terrainTexture, state.waterTexture};
    glDeleteTextures(2, names);
    state = GLViewState{};
}

void ResizeGLScene(int width, int height, double farPlane) {
    if (height <= 0) height = 1;
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(kFieldOfView, static_cast<double>(width) / static_cast<double>(height), kNearPlane,
                   farPlane);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void ApplyLighting(bool lightsOn) {
    if (lightsOn) {
        glEnable(GL_LIGHTING);
        glEnable(GL_LIGHT0);
    } else {
        glDisable(GL_LIGHT0);
        glDisable(GL_LIGHTING);
    }
}

void DrawSphere(const GLViewState& state, double radius, float red, float green, float blue) {
    glColor3f(red, green, blue);
    for (std::size_t i = 0; i < kSphereRadii.size(); ++i)
        if (radius == kSphereRadii[i] && state.sphereLists[i] != 0) {
            glCallList(state.sphereLists[i]);
            return;
        }
    if (state.sceneQuadric) gluSphere(state.sceneQuadric, radius, 12, 12);
}

namespace {

bool LoadTexture(unsigned& name, const std::string& programFolder, const std::string& path) {
    cDIBSection image;
    if (!LoadTexturePicture(programFolder, path, image)) return false;
    const std::vector<std::uint8_t> pixels = image.PackedBgr();
    // The previous texture is replaced, not kept: nothing else refers to it.
    if (name != 0) glDeleteTextures(1, &name);
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1); // rows are packed without padding
    glTexImage2D(GL_TEXTURE_2D, 0, 3, image.Width(), image.Height(), 0, GL_BGR_EXT, GL_UNSIGNED_BYTE,
                 pixels.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    return true;
}

} // namespace

bool LoadTerrainTexture(GLViewState& state, const std::string& programFolder, const std::string& path) {
    return LoadTexture(state.terrainTexture, programFolder, path);
}

bool LoadWaterTexture(GLViewState& state, const std::string& programFolder, const std::string& path) {
    return LoadTexture(state.waterTexture, programFolder, path);
}

void ApplyCameraRotation(const CameraState& camera) {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glRotatef(360.0f - camera.pitch, 1.0f, 0.0f, 0.0f);
    glRotatef(360.0f - camera.yaw, 0.0f, 1.0f, 0.0f);
}

void ApplyCameraTransform(const CameraState& camera, bool withRoll) {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    if (withRoll) glRotatef(360.0f - camera.roll, 0.0f, 0.0f, 1.0f);
    glRotatef(360.0f - camera.pitch, 1.0f, 0.0f, 0.0f);
    glRotatef(360.0f - camera.yaw, 0.0f, 1.0f, 0.0f);
    glTranslatef(-camera.x, -camera.y, -camera.z);
}
