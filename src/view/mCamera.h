#pragma once
// The free camera flown over the terrain, and the terrain cursor's position.
//
// Positions in world units (y up); angles in degrees. The view applies pitch and yaw as rotations by
// 360 minus the angle, so a positive yaw turns left and a positive pitch looks up. Speeds are per
// nominal timer tick of 20 ms; each step is scaled by the time it stands for, so the speed per
// second is the same however long a frame takes.

#include "RenderMesh.h"

#include <string>
#include <vector>

struct CameraState {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
    float pitch = 0.0f;
    float yaw = 0.0f;
    float roll = 0.0f; // only ever reset, never changed by the user
};

struct CursorState {
    float x = 0.0f;
    float y = 0.0f; // follows the terrain under (x, z) every frame
    float z = 0.0f;
};

// The keys that steer the camera, as held at a timer tick.
struct HeldKeys {
    bool forward = false;   // W
    bool backward = false;  // S
    bool left = false;      // A
    bool right = false;     // D
    bool up = false;        // Page Up
    bool down = false;      // Page Down
    bool pitchUp = false;   // Up arrow: pitch grows (the shortcut list calls it "Look Down")
    bool pitchDown = false; // Down arrow
    bool yawLeft = false;   // Left arrow: yaw grows
    bool yawRight = false;  // Right arrow
    bool shift = false;     // faster
    bool control = false;   // slower
    bool extraFast = false; // B
};

// What the camera needs to know of the ground: the mesh (with its extra row and column, which
// the ground rule may read) and the grid spacing. Null when there is no terrain.
struct SceneGround {
    const RenderMesh* mesh = nullptr;
    float spacingX = 0.0f;
    float spacingZ = 0.0f;
};

// The tick the per-tick speeds are given for: 1 unit a tick is 50 units a second.
inline constexpr double kNominalTickSeconds = 0.02;
// The longest time one step makes up for, so the speed holds down to four frames a second; a
// longer gap (the window was blocked by a dialog, the machine stalled) counts as this much, so the
// camera never jumps.
inline constexpr double kLongestStepSeconds = 0.25;
// The highest and lowest pitch: straight up and straight down.
inline constexpr float kPitchLimit = 90.0f;

// Shift 5, else Control 0.1, else B 20, else 1 (units or degrees per nominal tick).
float MovementSpeed(const HeldKeys& keys);

// How many nominal ticks a step after elapsedSeconds stands for: the time clamped to
// 0 .. kLongestStepSeconds, divided by kNominalTickSeconds.
float TickScale(double elapsedSeconds);

// The time between movement steps, read from a steady clock by the caller (seconds, any origin).
// The first step after Restart stands for one nominal tick, so a tap moves one step at once.
class StepClock {
public:
    void Restart() { started_ = false; }
    // The seconds since the previous step (kNominalTickSeconds for the first), and now becomes
    // the previous step.
    double Elapsed(double nowSeconds);

private:
    bool started_ = false;
    double previous_ = 0.0;
};

// One keyboard step, elapsedSeconds after the previous: move, turn, clamp to the scene, keep above
// the ground.
void KeyboardStep(CameraState& camera, const HeldKeys& keys, const SceneGround* ground, bool stayAbove,
                  double elapsedSeconds);

// Turns by the given degrees; the pitch stops at straight up and straight down, the yaw is free.
void TurnCamera(CameraState& camera, float yawDegrees, float pitchDegrees);

// Moves along the view direction by distance (negative: backwards), following the pitch.
void MoveAlongView(CameraState& camera, float distance);

// x and z in -512 .. 512 - spacingX (the x cell size for both axes), y in -10 .. 512.
void ClampToScene(CameraState& camera, float spacingX);

// Keeps the camera at least 5 units above the grid point under it, and never below 5.
void ApplyGroundRule(CameraState& camera, const SceneGround& ground);

// Back to the start: level, looking along -z from above the centre of the grid (or at height 10
// with no terrain).
void ResetCamera(CameraState& camera, const SceneGround* ground);

// Puts the cursor 50 units ahead of the camera, clamped like the camera.
void MoveCursorIntoView(CursorState& cursor, const CameraState& camera, float spacingX);

// Mouse-look: a quarter of a degree per pixel the pointer moved from the view's centre; right
// turns right, up looks up.
void MouseLookStep(CameraState& camera, int dx, int dy);

// One tick of flying with the mouse buttons: forward or backward along the view at the speed the
// modifier keys choose, scaled by the time since the previous tick (TickScale), then clamped to the
// scene and, with stayAbove, kept above the ground.
void MouseFlyStep(CameraState& camera, bool forward, const HeldKeys& modifiers, const SceneGround* ground,
                  bool stayAbove, double elapsedSeconds);

// Dragging the terrain cursor: half a unit per pixel, right in the view to the camera's right and
// up away from the camera (along the camera's yaw only), clamped like the camera.
void CursorDragStep(CursorState& cursor, const CameraState& camera, int dx, int dy, float spacingX);

// The grid points the brush of radius size covers around the grid point under the cursor (each
// axis clamped into the grid), row by row: where the brush points are drawn. A point below the
// water line sits on the water surface (height 0) when onWater.
std::vector<Vector3> BrushPoints(const TerrainData& terrain, const CursorState& cursor, int size,
                                 bool onWater);

// A position as the labels show it: at least three integer digits and two decimals ("003.14",
// "-002.50").
std::string FormatPositionLabel(float value);
