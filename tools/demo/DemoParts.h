#pragma once
// The pieces the demo track is assembled from, shared by the demo builder's source files.
//
// World units, y up, x east and z south (right-handed), so a right turn seen from above turns
// clockwise. Angles are degrees unless a name says radians. Everything is computed from fixed
// tables and formulas: the same call always gives the same values.

#include "TrackDocument.h"

#include <cmath>
#include <cstdint>
#include <vector>

namespace demo {

struct Vec3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec3 operator*(Vec3 a, double s) {
    return {a.x * s, a.y * s, a.z * s};
}
inline double Length(Vec3 a) {
    return std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
}

// ---- Landscape (DemoTerrain.cpp) ----

// Ground height at world (x, z): a gentle plain under the circuit, rolling hills beside it, a lake
// (below 0, the water plane) south-east of the centre, ranges rising towards the edges and a
// valley cutting through them from the lake. Defined everywhere, so footers and trees stand on
// the same ground whether or not a terrain grid is written.
double GroundHeight(double x, double z);

// The terrain grid sampled from GroundHeight: side x side points over 1024 x 1024 units.
TerrainData MakeDemoTerrain(int side);

// ---- Circuit (DemoCircuit.cpp) ----

// The Bézier vertices of the closed circuit; the last repeats the first.
std::vector<BezierVertex> MakeCircuitVertices();

// One segment per stretch of the circuit, the values of each type's own part filled in.
std::vector<Segment> MakeCircuitSegments();

// ---- Curve sampling (DemoCurve.cpp) ----

Vec3 VertexPosition(const BezierVertex& vertex);

// The point at parameter t (0..1) along stretch `stretch` (from vertex stretch to stretch + 1).
Vec3 StretchPoint(const std::vector<BezierVertex>& vertices, std::size_t stretch, double t);

// Horizontal unit direction of travel at parameter t along a stretch (x and z; y is 0).
Vec3 StretchHeading(const std::vector<BezierVertex>& vertices, std::size_t stretch, double t);

// `perStretch` points per stretch at t = 0, 1/perStretch, ..., plus the circuit's last point.
std::vector<Vec3> SampleCircuit(const std::vector<BezierVertex>& vertices, int perStretch);

// ---- Supports (DemoSupports.cpp) ----

// Fills the footers, rail connectors, free nodes, tubes and catwalks of doc for its circuit.
void AddSupports(TrackDocument& doc);

// ---- Scenery (DemoScenery.cpp) ----

// The scenery objects beside the station.
std::vector<SceneryObject> MakeSceneryObjects();

// Trees on dry land in the scene square, clear of the track points and the scenery objects.
std::vector<SceneEntry> PlaceTrees(const std::vector<Vec3>& trackPoints,
                                   const std::vector<SceneryObject>& objects);

} // namespace demo
