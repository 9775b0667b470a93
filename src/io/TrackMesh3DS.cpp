// The traced track as solid geometry for the 3DS export: square tubes along the spine and the
// running rails, and a square bar for every line of each cross-piece, gathered into objects that
// keep within the 16-bit counts.
#include "Mesh3DS.h"

#include "SceneGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace {

// Half the width of each square section, world units: the spine is the heaviest member, the
// running rails are slimmer and the cross-pieces slimmer still, as the view's line widths suggest.
constexpr float kSpineHalfWidth = 0.14f;
constexpr float kRailHalfWidth = 0.08f;
constexpr float kTieHalfWidth = 0.05f;
// A long rail is written as tubes of at most this many rings (neighbours share their end ring),
// so that no piece alone comes near an object's limits.
constexpr std::size_t kRingsPerTube = 256;
// Mapping: v advances by one every this many world units along a tube.
constexpr float kMappingLength = 10.0f;
constexpr double kTiny = 1e-9;

Vector3 Add(const Vector3& a, const Vector3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
Vector3 Scaled(const Vector3& v, double s) {
    return {static_cast<float>(v.x * s), static_cast<float>(v.y * s), static_cast<float>(v.z * s)};
}
Vector3 Minus(const Vector3& to, const Vector3& from) {
    Vector3 d;
    VectorSubtract(d, from, to);
    return d;
}

// A unit vector at right angles to t, leaning towards hint (any such vector when hint runs along t).
Vector3 PerpendicularTowards(const Vector3& t, const Vector3& hint) {
    Vector3 s = Minus(hint, Scaled(t, DotProduct(hint, t)));
    if (VectorLength(s) < 1e-6 * std::max(1.0, VectorLength(hint))) {
        const Vector3 axis = std::abs(t.y) < 0.9f ? Vector3{0, 1, 0} : Vector3{1, 0, 0};
        CrossProduct(s, axis, t);
    }
    Normalize(s, s);
    return s;
}

// The unit direction of the polyline at each point (central differences; one-sided at the ends);
// where the points stand still, the last good direction is kept.
std::vector<Vector3> Tangents(std::span<const Vector3> points) {
    std::vector<Vector3> tangents(points.size(), Vector3{1, 0, 0});
    Vector3 last{1, 0, 0};
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Vector3& before = points[i == 0 ? 0 : i - 1];
        const Vector3& after = points[std::min(i + 1, points.size() - 1)];
        Vector3 t = Minus(after, before);
        if (VectorLength(t) > kTiny) Normalize(last, t);
        tangents[i] = last;
    }
    return tangents;
}

// Appends a closed square tube through points to object. Each ring is turned so that one pair of
// its sides faces across hints[i]; its corners run counter-clockwise about the direction of
// travel, so the side and end faces point outwards.
void AppendTube(Object3DS& object, std::span<const Vector3> points, std::span<const Vector3> hints,
                float half, float vStart) {
    constexpr std::array<std::array<float, 2>, 4> kCorners{{{1, 1}, {-1, 1}, {-1, -1}, {1, -1}}};
    const std::vector<Vector3> tangents = Tangents(points);
    const std::size_t base = object.vertices.size();
    float v = vStart;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i > 0) v += static_cast<float>(VectorLength(Minus(points[i], points[i - 1]))) / kMappingLength;
        const Vector3 s1 = PerpendicularTowards(tangents[i], hints[i]);
        Vector3 s2;
        CrossProduct(s2, tangents[i], s1);
        for (std::size_t k = 0; k < kCorners.size(); ++k) {
            const Vector3 offset = Add(Scaled(s1, half * kCorners[k][0]), Scaled(s2, half * kCorners[k][1]));
            object.vertices.push_back(To3DSAxes(Add(points[i], offset)));
            object.mapping.push_back({static_cast<float>(k) / 4.0f, v});
        }
    }
    const auto at = [base](std::size_t ring, std::size_t corner) {
        return static_cast<std::uint16_t>(base + 4 * ring + corner % 4);
    };
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k) {
            object.faces.push_back({at(i, k), at(i, k + 1), at(i + 1, k + 1)});
            object.faces.push_back({at(i, k), at(i + 1, k + 1), at(i + 1, k)});
        }
    const std::size_t end = points.size() - 1;
    object.faces.push_back({at(0, 0), at(0, 2), at(0, 1)});
    object.faces.push_back({at(0, 0), at(0, 3), at(0, 2)});
    object.faces.push_back({at(end, 0), at(end, 1), at(end, 2)});
    object.faces.push_back({at(end, 0), at(end, 2), at(end, 3)});
}

// Track objects filled one after the other: a tube goes to the current object while it fits and
// starts the next one when it would not.
class TrackObjectList {
public:
    TrackObjectList(std::string material, const MeshLimits& limits)
        : material_(std::move(material)), limits_(limits) {}

    void AddTube(std::span<const Vector3> points, std::span<const Vector3> hints, float half,
                 float vStart = 0) {
        if (points.size() < 2) return;
        const std::size_t vertices = 4 * points.size();
        const std::size_t faces = 8 * (points.size() - 1) + 4;
        if (objects_.empty() || objects_.back().vertices.size() + vertices > limits_.vertices ||
            objects_.back().faces.size() + faces > limits_.faces) {
            objects_.emplace_back();
            objects_.back().name = NumberedObjectName("TRCK", objects_.size() - 1);
            objects_.back().material = material_;
        }
        AppendTube(objects_.back(), points, hints, half, vStart);
    }
    std::vector<Object3DS> Take() { return std::move(objects_); }

private:
    std::string material_;
    MeshLimits limits_;
    std::vector<Object3DS> objects_;
};

// One continuous member of the track (the spine or a rail), in tubes of at most kRingsPerTube rings.
void AddMember(TrackObjectList& list, const std::vector<Vector3>& points, const std::vector<Vector3>& across,
               float half) {
    float v = 0.0f;
    for (std::size_t first = 0; first + 1 < points.size(); first += kRingsPerTube - 1) {
        const std::size_t count = std::min(kRingsPerTube, points.size() - first);
        list.AddTube(std::span(points).subspan(first, count), std::span(across).subspan(first, count), half,
                     v);
        for (std::size_t i = first + 1; i < first + count; ++i)
            v += static_cast<float>(VectorLength(Minus(points[i], points[i - 1]))) / kMappingLength;
    }
}

} // namespace

std::vector<Object3DS> BuildTrackObjects(const TrackSpine& spine, const std::string& material,
                                         const MeshLimits& limits) {
    const std::vector<DrawnPoint>& drawn = spine.drawnPoints;
    TrackObjectList list(material, limits);
    if (drawn.size() < 2) return list.Take();
    std::vector<Vector3> spinePoints, left, right, across;
    for (const DrawnPoint& p : drawn) {
        spinePoints.push_back(p.p1);
        left.push_back(p.p2);
        right.push_back(p.p3);
        across.push_back(Minus(p.p3, p.p2));
    }
    AddMember(list, spinePoints, across, kSpineHalfWidth);
    AddMember(list, left, across, kRailHalfWidth);
    AddMember(list, right, across, kRailHalfWidth);
    // Each bar of a cross-piece lies in the cross-section, so the direction of travel is at right
    // angles to it and turns its section with the track.
    const std::vector<Vector3> forward = Tangents(spinePoints);
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        const CrossPiece piece = CrossPieceLines(drawn[i], spine.style);
        for (std::size_t l = 0; l < piece.count; ++l) {
            const std::array<Vector3, 2> ends{piece.lines[l].from, piece.lines[l].to};
            if (VectorLength(Minus(ends[1], ends[0])) < 1e-4) continue;
            const std::array<Vector3, 2> hints{forward[i], forward[i]};
            list.AddTube(ends, hints, kTieHalfWidth);
        }
    }
    return list.Take();
}
