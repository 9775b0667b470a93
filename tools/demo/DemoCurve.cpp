// Points along the circuit's Bézier stretches, read back from the stored (single precision)
// vertices so that supports and trees are placed against exactly the curve the file describes.
#include "DemoParts.h"

namespace demo {
namespace {

Vec3 ValuesAt(const BezierVertex& vertex, std::size_t first) {
    return {vertex.values[first], vertex.values[first + 1], vertex.values[first + 2]};
}

Vec3 Cubic(Vec3 p0, Vec3 c0, Vec3 c1, Vec3 p1, double t) {
    const double u = 1.0 - t;
    return p0 * (u * u * u) + c0 * (3.0 * u * u * t) + c1 * (3.0 * u * t * t) + p1 * (t * t * t);
}

} // namespace

Vec3 VertexPosition(const BezierVertex& vertex) {
    return ValuesAt(vertex, 0);
}

Vec3 StretchPoint(const std::vector<BezierVertex>& vertices, std::size_t stretch, double t) {
    const BezierVertex& from = vertices[stretch];
    const BezierVertex& to = vertices[stretch + 1];
    // From the vertex and its control point after it to the next vertex's control point before it.
    return Cubic(ValuesAt(from, 0), ValuesAt(from, 6), ValuesAt(to, 3), ValuesAt(to, 0), t);
}

Vec3 StretchHeading(const std::vector<BezierVertex>& vertices, std::size_t stretch, double t) {
    // A central difference inside the stretch; the controls never coincide with the vertices, so
    // the horizontal part never vanishes on this circuit (no vertical track).
    constexpr double kStep = 1e-3;
    const double t0 = t < kStep ? 0.0 : t - kStep;
    const double t1 = t > 1.0 - kStep ? 1.0 : t + kStep;
    Vec3 d = StretchPoint(vertices, stretch, t1) - StretchPoint(vertices, stretch, t0);
    d.y = 0.0;
    return d * (1.0 / Length(d));
}

std::vector<Vec3> SampleCircuit(const std::vector<BezierVertex>& vertices, int perStretch) {
    std::vector<Vec3> points;
    if (vertices.size() < 2) return points;
    for (std::size_t s = 0; s + 1 < vertices.size(); ++s)
        for (int k = 0; k < perStretch; ++k)
            points.push_back(StretchPoint(vertices, s, double(k) / perStretch));
    points.push_back(VertexPosition(vertices.back()));
    return points;
}

} // namespace demo
