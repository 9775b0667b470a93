#pragma once
// The fixed OpenGL state of the 3D view, the projection, the shared sphere and the two terrain
// textures. All calls need the view's context to be current.

#include "mCamera.h"

#include <array>
#include <string>

struct GLUquadric;

// The sphere sizes the view draws (support nodes, brush points, the cursor marker); each is kept
// compiled in a display list.
inline constexpr std::array<double, 3> kSphereRadii = {0.4, 0.5, 1.0};

inline constexpr double kFieldOfView = 45.0; // vertical, degrees
inline constexpr double kNearPlane = 0.1;
inline constexpr double kFarPlane = 2560.0;

struct GLViewState {
    bool renderReady = false;
    GLUquadric* sceneQuadric = nullptr;
    std::array<unsigned, kSphereRadii.size()> sphereLists{}; // 0 until compiled
    unsigned terrainTexture = 0; // 0: none loaded, the terrain is drawn in its plain colour
    unsigned waterTexture = 0;
};

// The state set once when the context is made: clear values, flat shading, depth test, light 0,
// back-face culling, the blend function; creates the sphere quadric.
void InitOpenGL(GLViewState& state, int width, int height, double farPlane = kFarPlane);
void ReleaseOpenGL(GLViewState& state);

// Viewport and perspective projection; a height of 0 counts as 1.
void ResizeGLScene(int width, int height, double farPlane = kFarPlane);

// Lighting on or off (the NoLights preference).
void ApplyLighting(bool lightsOn);

// A sphere of the given radius at the current model-view origin, 12 slices and 12 stacks.
void DrawSphere(const GLViewState& state, double radius, float red, float green, float blue);

// Loads the picture at a stored texture path (relative to the program folder, backslashes kept)
// into a new texture; false, leaving the current texture, when the picture cannot be loaded.
bool LoadTerrainTexture(GLViewState& state, const std::string& programFolder, const std::string& path);
bool LoadWaterTexture(GLViewState& state, const std::string& programFolder, const std::string& path);

// Model-view := the camera transform: rotations by 360 minus pitch (about x) and yaw (about y),
// then the translation by minus the position; withRoll adds the roll (about z) first.
void ApplyCameraTransform(const CameraState& camera, bool withRoll);
// Model-view := the camera's pitch and yaw only; callers subtract the camera position themselves.
void ApplyCameraRotation(const CameraState& camera);
