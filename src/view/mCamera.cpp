#include "mCamera.h"

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

float GroundHeight(const SceneGround& ground, int column, int row) { return ground.mesh->Vertex(column, row).y; }

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
    const int column = std::clamp(GridIndexUnder(camera.x, ground.spacingX), 0, ground.mesh->Columns());
    const int row = std::clamp(GridIndexUnder(camera.z, ground.spacingZ), 0, ground.mesh->Rows());
    const float floor = std::max(GroundHeight(ground, column, row) + kGroundClearance, kGroundClearance);
    camera.y = std::max(camera.y, floor);
}

void ResetCamera(CameraState& camera, const SceneGround* ground) {
    camera = CameraState{};
    if (!ground || !ground->mesh || ground->mesh->Empty()) {
        camera.y = 10.0f;
        return;
    }
    const int column = std::clamp(static_cast<int>(std::nearbyint(512.0 / ground->spacingX)), 0, ground->mesh->Columns());
    const int row = std::clamp(static_cast<int>(std::nearbyint(512.0 / ground->spacingZ)), 0, ground->mesh->Rows());
    camera.y = std::max(GroundHeight(*ground, column, row) + kGroundClearance, kGroundClearance);
}

void MoveCursorIntoView(CursorState& cursor, const CameraState& camera, float spacingX) {
    const double yaw = camera.yaw * kDegreesToRadians;
    const float high = kSceneHalf - spacingX;
    cursor.x = std::clamp(static_cast<float>(camera.x - 50.0 * std::sin(yaw)), -kSceneHalf, high);
    cursor.z = std::clamp(static_cast<float>(camera.z - 50.0 * std::cos(yaw)), -kSceneHalf, high);
}

std::string FormatPositionLabel(float value) {
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, static_cast<double>(value),
                                      std::chars_format::fixed, 2);
    std::string text(buffer, result.ptr);
    // A value that rounds to zero shows no sign.
    const bool negative = !text.empty() && text[0] == '-' && text.find_first_of("123456789") != std::string::npos;
    std::string digits = text[0] == '-' ? text.substr(1) : text;
    const std::size_t point = digits.find('.');
    if (point < 3) digits.insert(0, 3 - point, '0');
    return negative ? "-" + digits : digits;
}
