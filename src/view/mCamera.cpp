#include "mCamera.h"

#include "TerrainGrid.h"
#include "mMatrix3D.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

constexpr float kSceneHalf = 512.0f;
constexpr float kLowestY = -10.0f;
constexpr float kHighestY = 512.0f;
constexpr float kGroundClearance = 5.0f;
constexpr double kDegreesToRadians = 0.0174532925;
constexpr float kLookDegreesPerPixel = 0.25f;
constexpr float kCursorUnitsPerPixel = 0.5f;

// The camera's orientation: yaw about y, then pitch about x.
Matrix4 ViewOrientation(const CameraState& camera) {
    Matrix4 identity, yaw, pitch, turned, frame;
    MatrixIdentity(identity);
    MatrixRotateY(yaw, static_cast<float>(DegToRad(camera.yaw)));
    MatrixRotateX(pitch, static_cast<float>(DegToRad(camera.pitch)));
    MatrixMultiply(turned, identity, yaw);
    MatrixMultiply(frame, turned, pitch);
    return frame;
}

float GroundHeight(const SceneGround& ground, int column, int row) {
    return ground.mesh->Vertex(column, row).y;
}

} // namespace

float MovementSpeed(const HeldKeys& keys) {
    if (keys.shift) return 5.0f;
    if (keys.control) return 0.1f;
    if (keys.extraFast) return 20.0f;
    return 1.0f;
}

float TickScale(double elapsedSeconds) {
    return static_cast<float>(std::clamp(elapsedSeconds, 0.0, kLongestStepSeconds) / kNominalTickSeconds);
}

double StepClock::Elapsed(double nowSeconds) {
    const double elapsed = started_ ? nowSeconds - previous_ : kNominalTickSeconds;
    started_ = true;
    previous_ = nowSeconds;
    return elapsed;
}

void TurnCamera(CameraState& camera, float yawDegrees, float pitchDegrees) {
    camera.yaw += yawDegrees;
    camera.pitch = std::clamp(camera.pitch + pitchDegrees, -kPitchLimit, kPitchLimit);
}

void MoveAlongView(CameraState& camera, float distance) {
    const Matrix4 frame = ViewOrientation(camera);
    Vector3 offset;
    TransformPoint(offset, frame, Vector3{0.0f, 0.0f, -distance});
    camera.x += offset.x;
    camera.y += offset.y;
    camera.z += offset.z;
}

void KeyboardStep(CameraState& camera, const HeldKeys& keys, const SceneGround* ground, bool stayAbove,
                  double elapsedSeconds) {
    const float s = MovementSpeed(keys) * TickScale(elapsedSeconds);
    if (keys.forward) MoveAlongView(camera, s);
    if (keys.backward) MoveAlongView(camera, -s);
    const double yaw = camera.yaw * kDegreesToRadians;
    if (keys.left) {
        camera.x = static_cast<float>(camera.x - s * std::cos(yaw));
        camera.z = static_cast<float>(camera.z + s * std::sin(yaw));
    }
    if (keys.right) {
        camera.x = static_cast<float>(camera.x + s * std::cos(yaw));
        camera.z = static_cast<float>(camera.z - s * std::sin(yaw));
    }
    if (keys.up) camera.y += s;
    if (keys.down) camera.y -= s;
    const float yawSigns = (keys.yawLeft ? 1.0f : 0.0f) - (keys.yawRight ? 1.0f : 0.0f);
    const float pitchSigns = (keys.pitchUp ? 1.0f : 0.0f) - (keys.pitchDown ? 1.0f : 0.0f);
    TurnCamera(camera, yawSigns * s, pitchSigns * s);
    ClampToScene(camera, ground ? ground->spacingX : 0.0f);
    if (stayAbove && ground) ApplyGroundRule(camera, *ground);
}

void ClampToScene(CameraState& camera, float spacingX) {
    const float high = kSceneHalf - spacingX;
    camera.x = std::clamp(camera.x, -kSceneHalf, high);
    camera.z = std::clamp(camera.z, -kSceneHalf, high);
    camera.y = std::clamp(camera.y, kLowestY, kHighestY);
}

void ApplyGroundRule(CameraState& camera, const SceneGround& ground) {
    if (!ground.mesh || ground.mesh->Empty()) return;
    // The upper clamp is the point count, not count - 1: the mesh's extra row and column (at
    // height 0) answer there, so the camera can go down to the minimum over the far edges.
    const GridPoint p = GridPointUnder(camera.x, camera.z, ground.spacingX, ground.spacingZ,
                                       ground.mesh->Columns(), ground.mesh->Rows(), GridClamp::OnePastLast);
    const float floor = std::max(GroundHeight(ground, p.column, p.row) + kGroundClearance, kGroundClearance);
    camera.y = std::max(camera.y, floor);
}

void ResetCamera(CameraState& camera, const SceneGround* ground) {
    camera = CameraState{};
    if (!ground || !ground->mesh || ground->mesh->Empty()) {
        camera.y = 10.0f;
        return;
    }
    // Above the point under the centre, with the same rule (and clamp) as the ground rule.
    const GridPoint p = GridPointUnder(0.0f, 0.0f, ground->spacingX, ground->spacingZ,
                                       ground->mesh->Columns(), ground->mesh->Rows(), GridClamp::OnePastLast);
    camera.y = std::max(GroundHeight(*ground, p.column, p.row) + kGroundClearance, kGroundClearance);
}

void MoveCursorIntoView(CursorState& cursor, const CameraState& camera, float spacingX) {
    const double yaw = camera.yaw * kDegreesToRadians;
    const float high = kSceneHalf - spacingX;
    cursor.x = std::clamp(static_cast<float>(camera.x - 50.0 * std::sin(yaw)), -kSceneHalf, high);
    cursor.z = std::clamp(static_cast<float>(camera.z - 50.0 * std::cos(yaw)), -kSceneHalf, high);
}

void MouseLookStep(CameraState& camera, int dx, int dy) {
    // Pointer right turns right, pointer up looks up; the pitch stops at straight up and down.
    TurnCamera(camera, -static_cast<float>(dx) * kLookDegreesPerPixel,
               -static_cast<float>(dy) * kLookDegreesPerPixel);
}

void MouseFlyStep(CameraState& camera, bool forward, const HeldKeys& modifiers, const SceneGround* ground,
                  bool stayAbove, double elapsedSeconds) {
    const float s = MovementSpeed(modifiers) * TickScale(elapsedSeconds);
    MoveAlongView(camera, forward ? s : -s);
    ClampToScene(camera, ground ? ground->spacingX : 0.0f);
    if (ground && stayAbove) ApplyGroundRule(camera, *ground);
}

void CursorDragStep(CursorState& cursor, const CameraState& camera, int dx, int dy, float spacingX) {
    const double yaw = camera.yaw * kDegreesToRadians;
    const double right = static_cast<float>(dx) * kCursorUnitsPerPixel;
    const double ahead = static_cast<float>(-dy) * kCursorUnitsPerPixel;
    const float high = kSceneHalf - spacingX;
    cursor.x = std::clamp(static_cast<float>(cursor.x + right * std::cos(yaw) - ahead * std::sin(yaw)),
                          -kSceneHalf, high);
    cursor.z = std::clamp(static_cast<float>(cursor.z - right * std::sin(yaw) - ahead * std::cos(yaw)),
                          -kSceneHalf, high);
}

std::vector<Vector3> BrushPoints(const TerrainData& terrain, const CursorState& cursor, int size,
                                 bool onWater) {
    std::vector<Vector3> points;
    if (terrain.heights.Empty()) return points;
    const GridPoint centre = GridPointUnder(terrain, cursor.x, cursor.z, GridClamp::ToLastPoint);
    const int lastRow = std::min(centre.row + size, terrain.heights.Rows() - 1);
    const int lastColumn = std::min(centre.column + size, terrain.heights.Columns() - 1);
    for (int row = std::max(centre.row - size, 0); row <= lastRow; ++row)
        for (int column = std::max(centre.column - size, 0); column <= lastColumn; ++column) {
            Vector3 p = GridPointPosition(terrain, row, column);
            if (p.y < 0.0f && onWater) p.y = 0.0f;
            points.push_back(p);
        }
    return points;
}

std::string FormatPositionLabel(float value) {
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, static_cast<double>(value),
                                      std::chars_format::fixed, 2);
    std::string text(buffer, result.ptr);
    // A value that rounds to zero shows no sign.
    const bool negative =
        !text.empty() && text[0] == '-' && text.find_first_of("123456789") != std::string::npos;
    std::string digits = text[0] == '-' ? text.substr(1) : text;
    const std::size_t point = digits.find('.');
    if (point < 3) digits.insert(0, 3 - point, '0');
    return negative ? "-" + digits : digits;
}
