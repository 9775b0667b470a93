#include "mCV_TraceTrack.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

// Pieces of the fine polyline that measures a stretch and maps arc length to the curve parameter.
constexpr int kLengthPieces = 128;
using LengthTable = std::array<double, kLengthPieces + 1>; // arc length from the start at t = k / pieces

// The four points of one stretch's cubic curve.
struct Curve {
    Vector3 start;
    Vector3 firstControl;
    Vector3 end;
    Vector3 secondControl;

    Vector3 At(double t) const {
        Vector3 p;
        CubicBezierPoint(p, start, firstControl, end, secondControl, t);
        return p;
    }
};

// Where the previous traced point was heading; carried from point to point along the whole track.
struct FrameState {
    bool started = false;
    double yaw = 0.0;             // radians
    Vector3 up{0.0f, 1.0f, 0.0f}; // up direction before roll
    Vector3 forward{0.0f, 0.0f, -1.0f};
};

Vector3 ValuesAt(const BezierVertex& vertex, std::size_t first) {
    return {vertex.values[first], vertex.values[first + 1], vertex.values[first + 2]};
}

// From the vertex and its control point after it to the next vertex and its control point before it.
Curve StretchCurve(const std::vector<BezierVertex>& vertices, std::size_t i) {
    return {ValuesAt(vertices[i], 0), ValuesAt(vertices[i], 6), ValuesAt(vertices[i + 1], 0),
            ValuesAt(vertices[i + 1], 3)};
}

// dB/dt of the curve.
Vector3 Derivative(const Curve& c, double t) {
    const double s = 1.0 - t;
    const double a = 3.0 * s * s, b = 6.0 * s * t, d = 3.0 * t * t;
    const auto along = [&](float p0, float c1, float c2, float p1) {
        return static_cast<float>(a * (double(c1) - p0) + b * (double(c2) - c1) + d * (double(p1) - c2));
    };
    return {along(c.start.x, c.firstControl.x, c.secondControl.x, c.end.x),
            along(c.start.y, c.firstControl.y, c.secondControl.y, c.end.y),
            along(c.start.z, c.firstControl.z, c.secondControl.z, c.end.z)};
}

LengthTable MeasureLength(const Curve& curve) {
    LengthTable table{};
    Vector3 last = curve.start;
    for (int k = 1; k <= kLengthPieces; ++k) {
        const Vector3 p = curve.At(static_cast<double>(k) / kLengthPieces);
        Vector3 piece;
        VectorSubtract(piece, last, p);
        table[static_cast<std::size_t>(k)] = table[static_cast<std::size_t>(k - 1)] + VectorLength(piece);
        last = p;
    }
    return table;
}

int StepCount(double length) {
    if (!std::isfinite(length)) return kTraceMinSteps;
    const double steps = std::ceil(length / kTraceStep);
    return static_cast<int>(std::clamp(steps, double(kTraceMinSteps), double(kTraceMaxSteps)));
}

// The curve parameter at which the given fraction (0..1) of the stretch's arc length is reached.
// A stretch of no measurable length is sampled evenly in the parameter.
double ParameterAt(const LengthTable& table, double fraction) {
    const double total = table.back();
    if (!std::isfinite(total) || total <= 0.0) return fraction;
    if (fraction >= 1.0) return 1.0;
    const double distance = fraction * total;
    const auto upper = std::lower_bound(table.begin() + 1, table.end(), distance);
    const auto k = upper - table.begin();
    const double before = table[static_cast<std::size_t>(k - 1)];
    const double piece = table[static_cast<std::size_t>(k)] - before;
    const double within = piece > 0.0 ? (distance - before) / piece : 0.0;
    return (static_cast<double>(k - 1) + within) / kLengthPieces;
}

// The direction of travel at t. Where a control point sits on its vertex the derivative vanishes
// there; the derivative a little way inside the stretch has the curve's direction then.
Vector3 Forward(const Curve& curve, double t, const FrameState& state) {
    Vector3 forward = Derivative(curve, t);
    if (VectorLength(forward) > 0.0) return forward;
    forward = Derivative(curve, t < 0.5 ? t + 1e-3 : t - 1e-3);
    if (VectorLength(forward) > 0.0) return forward;
    VectorSubtract(forward, curve.start, curve.end);
    if (VectorLength(forward) > 0.0) return forward;
    return state.forward; // a stretch of no length keeps the direction it was entered with
}

// Up direction of RotateY(yaw) * RotateX(pitch) before roll.
Vector3 UpOf(double yaw, double pitch) {
    return {static_cast<float>(std::sin(yaw) * std::sin(pitch)), static_cast<float>(std::cos(pitch)),
            static_cast<float>(std::cos(yaw) * std::sin(pitch))};
}

// Yaw and pitch (radians) that turn local -z onto forward. Straight up or down the heading cannot
// be read from forward, so the previous yaw is kept. Of the two pairs that fit, the one whose up
// direction is closer to the previous point's keeps the frame continuous through the vertical.
void Orient(const Vector3& forward, FrameState& state, double& yaw, double& pitch) {
    const double horizontal = std::hypot(double(forward.x), double(forward.z));
    const bool vertical = horizontal <= 1e-9 * VectorLength(forward);
    yaw = vertical && state.started ? state.yaw : Atan2(-double(forward.x), -double(forward.z));
    pitch = Atan2(forward.y, horizontal);
    Vector3 up = UpOf(yaw, pitch);
    if (state.started && DotProduct(up, state.up) < 0.0) {
        yaw += kPi;
        pitch = kPi - pitch;
        up = {-up.x, -up.y, -up.z};
    }
    state.started = true;
    state.yaw = yaw;
    state.up = up;
    state.forward = forward;
}

double Smoothstep(double u) {
    return u * u * (3.0 - 2.0 * u);
}

Matrix4 FrameMatrix(const Vector3& position, double yaw, double pitch, double rollDegrees) {
    Matrix4 frame;
    Matrix4 turn;
    MatrixTranslate(frame, position.x, position.y, position.z);
    MatrixRotateY(turn, static_cast<float>(yaw));
    MatrixMultiply(frame, frame, turn);
    MatrixRotateX(turn, static_cast<float>(pitch));
    MatrixMultiply(frame, frame, turn);
    // Negated: a positive turn about local z would lift the right side; a positive roll lowers it.
    MatrixRotateZ(turn, static_cast<float>(-DegToRad(rollDegrees)));
    MatrixMultiply(frame, frame, turn);
    return frame;
}

std::int16_t StretchType(const TrackDocument& track, std::size_t stretch) {
    const std::vector<Segment>& segments = track.segments.segments;
    if (stretch >= segments.size()) return kTrack;
    constexpr std::int32_t low = std::numeric_limits<std::int16_t>::min();
    constexpr std::int32_t high = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::clamp(segments[stretch].type, low, high));
}

void TraceStretch(const std::vector<BezierVertex>& vertices, std::size_t i, std::int16_t type,
                  FrameState& state, TracedStretch& out) {
    const Curve curve = StretchCurve(vertices, i);
    const LengthTable table = MeasureLength(curve);
    const int steps = StepCount(table.back());
    const double startRoll = vertices[i].Roll();
    const double endRoll = vertices[i + 1].Roll();
    out.points.reserve(static_cast<std::size_t>(steps) + 1);
    for (int j = 0; j <= steps; ++j) {
        const double fraction = static_cast<double>(j) / steps;
        const double t = ParameterAt(table, fraction);
        TracedPoint point;
        point.position = curve.At(t);
        point.parameter = static_cast<float>(t);
        point.segmentType = type;
        double yaw = 0.0;
        double pitch = 0.0;
        Orient(Forward(curve, t, state), state, yaw, pitch);
        const double roll = startRoll + (endRoll - startRoll) * Smoothstep(fraction);
        point.frame = FrameMatrix(point.position, yaw, pitch, roll);
        out.points.push_back(point);
    }
}

DrawnPoint Drawn(const TracedPoint& point, const RailLayout& layout) {
    DrawnPoint drawn;
    drawn.segmentType = point.segmentType;
    TransformPoint(drawn.p1, point.frame, layout.p1);
    TransformPoint(drawn.p2, point.frame, layout.p2);
    TransformPoint(drawn.p3, point.frame, layout.p3);
    TransformPoint(drawn.p4, point.frame, layout.p4);
    TransformPoint(drawn.p5, point.frame, layout.p5);
    TransformPoint(drawn.p6, point.frame, layout.p6);
    TransformPoint(drawn.p7, point.frame, layout.p7);
    return drawn;
}

} // namespace

static_assert(sizeof(DrawnPoint) == 88, "a drawn point is a type word and seven points");

void TrackSpine::Clear() {
    segments.clear();
    drawnPoints.clear();
    style = 0;
}

bool TraceTrack(const TrackDocument& track, TrackSpine& spine) {
    spine.Clear();
    const std::vector<BezierVertex>& vertices = track.bezier.vertices;
    if (vertices.size() < 2) return false;
    spine.style = track.track.trackStyle;
    const RailLayout& layout = RailLayoutOf(spine.style);
    spine.segments.resize(vertices.size() - 1);
    FrameState state;
    for (std::size_t i = 0; i < spine.segments.size(); ++i) {
        TraceStretch(vertices, i, StretchType(track, i), state, spine.segments[i]);
        const std::vector<TracedPoint>& points = spine.segments[i].points;
        // The first point of a later stretch is the previous stretch's last.
        for (std::size_t k = i == 0 ? 0 : 1; k < points.size(); ++k)
            spine.drawnPoints.push_back(Drawn(points[k], layout));
    }
    return true;
}

void GuidelineTop(Vector3& out, const TracedPoint& point, int style) {
    TransformPoint(out, point.frame, Vector3{0.0f, GuidelineOffset(style), 0.0f});
}

bool RailConnectorPosition(const TrackSpine& spine, int stretch, float parameter, Vector3& out) {
    if (stretch < 0 || static_cast<std::size_t>(stretch) >= spine.segments.size() || std::isnan(parameter))
        return false;
    const std::vector<TracedPoint>& points = spine.segments[static_cast<std::size_t>(stretch)].points;
    if (points.empty()) return false;
    const double t = std::clamp(static_cast<double>(parameter), 0.0, 1.0);
    const auto after =
        std::lower_bound(points.begin(), points.end(), t,
                         [](const TracedPoint& p, double value) { return p.parameter < value; });
    if (after == points.begin()) {
        out = points.front().position;
        return true;
    }
    if (after == points.end()) {
        out = points.back().position;
        return true;
    }
    const TracedPoint& a = *(after - 1);
    const TracedPoint& b = *after;
    const double span = double(b.parameter) - a.parameter;
    const double f = span > 0.0 ? (t - a.parameter) / span : 0.0;
    out = {static_cast<float>(a.position.x + f * (double(b.position.x) - a.position.x)),
           static_cast<float>(a.position.y + f * (double(b.position.y) - a.position.y)),
           static_cast<float>(a.position.z + f * (double(b.position.z) - a.position.z))};
    return true;
}
