// The demo track: a closed, smooth circuit above its landscape, supports that hold it, trees
// clear of it, and a document that is the same on every call and survives a write and a read.
#include "DemoTrack.h"
#include "TrackChunks.h"
#include "TrackFile.h"

#include "TerrainGrid.h"
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

namespace {

struct Point {
    double x = 0.0, y = 0.0, z = 0.0;
    Point operator-(const Point& o) const { return {x - o.x, y - o.y, z - o.z}; }
    double Dot(const Point& o) const { return x * o.x + y * o.y + z * o.z; }
};

Point At(const BezierVertex& v, std::size_t first) {
    return {v.values[first], v.values[first + 1], v.values[first + 2]};
}

// Stretch s runs from vertex s through its after-control and the next vertex's before-control.
Point CurvePoint(const std::vector<BezierVertex>& v, std::size_t s, double t) {
    const double u = 1.0 - t;
    const auto mix = [&](std::size_t k) {
        return u * u * u * v[s].values[k] + 3 * u * u * t * v[s].values[6 + k] +
               3 * u * t * t * v[s + 1].values[3 + k] + t * t * t * v[s + 1].values[k];
    };
    return {mix(0), mix(1), mix(2)};
}

std::vector<Point> TrackSamples(const TrackDocument& doc, int perStretch) {
    std::vector<Point> points;
    for (std::size_t s = 0; s + 1 < doc.bezier.vertices.size(); ++s)
        for (int k = 0; k <= perStretch; ++k)
            points.push_back(CurvePoint(doc.bezier.vertices, s, double(k) / perStretch));
    return points;
}

// Ground between grid points, interpolated from the four around (x, z).
double GroundAt(const TerrainData& t, double x, double z) {
    const double c = std::clamp(x / t.spacingX + (t.columns - 1) / 2.0, 0.0, t.columns - 1.0);
    const double r = std::clamp(z / t.spacingZ + (t.rows - 1) / 2.0, 0.0, t.rows - 1.0);
    const int c0 = std::min(static_cast<int>(c), t.columns - 2),
              r0 = std::min(static_cast<int>(r), t.rows - 2);
    const double fc = c - c0, fr = r - r0;
    const HeightGrid& h = t.heights;
    return (h.At(r0, c0) * (1 - fc) + h.At(r0, c0 + 1) * fc) * (1 - fr) +
           (h.At(r0 + 1, c0) * (1 - fc) + h.At(r0 + 1, c0 + 1) * fc) * fr;
}

// The demo as the editor makes it by default, or on the finest grid.
const TrackDocument& Demo(bool fine = false) {
    static const TrackDocument coarse = MakeDemoTrack(), finest = MakeDemoTrack({513, true});
    return fine ? finest : coarse;
}

// Where a tube's end sits, or nothing when the reference names no node.
std::optional<Point> NodePosition(const TrackDocument& doc, const NodeRef& n) {
    const auto point = [](const auto& p) { return Point{p[0], p[1], p[2]}; };
    const auto e = static_cast<std::size_t>(n.entry), i = static_cast<std::size_t>(n.item);
    const auto& g = doc.railConnectors.groups;
    if (n.entry < 0 || n.item < 0 || (n.kind != kRailConnectorNode && i != 0)) return std::nullopt;
    if (n.kind == kFooterNode && e < doc.footers.footers.size())
        return point(doc.footers.footers[e].position);
    if (n.kind == kFreeNode && e < doc.freeNodes.nodes.size()) return point(doc.freeNodes.nodes[e].position);
    if (n.kind != kRailConnectorNode || e >= g.size() || i >= g[e].size()) return std::nullopt;
    return CurvePoint(doc.bezier.vertices, static_cast<std::size_t>(g[e][i].stretch), g[e][i].parameter);
}

} // namespace

TEST(DemoTrackDocument, EveryCallGivesTheSameBytesWhichReadBackUnchanged) {
    const std::vector<std::uint8_t> bytes = SerializeTrack(Demo());
    EXPECT_EQ(SerializeTrack(MakeDemoTrack()), bytes);
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(bytes, read));
    EXPECT_EQ(SerializeTrack(read), bytes);
}

TEST(DemoTrackDocument, TheGridOptionsChangeOnlyTheTerrain) {
    const TrackDocument bare = MakeDemoTrack({205, false});
    for (int side : {205, 513}) {
        TrackDocument doc = MakeDemoTrack({side, true});
        EXPECT_EQ(std::pair(doc.terrain.terrain.heights.Columns(), doc.terrain.terrain.heights.Rows()),
                  std::pair(side, side));
        EXPECT_FLOAT_EQ(doc.terrain.terrain.spacingZ, 1024.0f / static_cast<float>(side));
        doc.terrain = TerrainRecord{};
        EXPECT_EQ(SerializeTrack(doc), SerializeTrack(bare)) << side;
    }
}

TEST(DemoCircuit, IsClosedWithoutAKinkAndBanksIntoItsTurns) {
    const std::vector<BezierVertex>& v = Demo().bezier.vertices;
    ASSERT_GE(v.size(), 24u);
    EXPECT_EQ(v.front(), v.back());
    for (std::size_t i = 0; i + 1 < v.size(); ++i) {
        const Point in = At(v[i], 0) - At(v[i], 3), out = At(v[i], 6) - At(v[i], 0);
        EXPECT_GT(in.Dot(out) / std::sqrt(in.Dot(in) * out.Dot(out)), 0.9999) << "kink at vertex " << i;
        if (i == 0) continue;
        // Positive roll banks to the right, into a right turn (x east, z south).
        const Point ahead = At(v[i + 1], 0) - At(v[i], 0), back = At(v[i], 0) - At(v[i - 1], 0);
        const double rightward = ahead.Dot({-back.z, 0.0, back.x});
        EXPECT_TRUE(v[i].Roll() == 0.0f || (v[i].Roll() > 0.0f) == (rightward > 0.0)) << "vertex " << i;
    }
}

TEST(DemoCircuit, HasEveryStretchTypeEachWhereItBelongs) {
    const std::vector<BezierVertex>& v = Demo().bezier.vertices;
    const std::vector<Segment>& seg = Demo().segments.segments;
    ASSERT_EQ(seg.size(), v.size() - 1);
    std::set<std::int32_t> types;
    for (std::size_t i = 0; i < seg.size(); ++i) {
        types.insert(seg[i].type);
        EXPECT_EQ(seg[i].details.size(), static_cast<std::size_t>(SegmentPartValues(seg[i].type)));
        const float rise = v[i + 1].values[1] - v[i].values[1];
        EXPECT_TRUE(seg[i].type != kStation || rise == 0.0f) << "station stretch " << i << " is level";
        EXPECT_TRUE(seg[i].type != kLift || rise > 0.0f) << "lift stretch " << i << " climbs";
    }
    EXPECT_EQ(types, (std::set<std::int32_t>{kTrack, kStation, kLift, kTransport, kBrake}));
    EXPECT_EQ(seg.front().type, kStation);
    std::set<std::int32_t> approach; // back from the station: only brakes and transport until both are passed
    for (std::size_t s = seg.size() - 1; seg[s].type == kBrake || seg[s].type == kTransport; --s)
        approach.insert(seg[s].type);
    EXPECT_EQ(approach, (std::set<std::int32_t>{kTransport, kBrake}));
}

TEST(DemoCircuit, StaysInsideTheSceneAboveTheGroundAndItsLake) {
    const HeightGrid& h = Demo().terrain.terrain.heights;
    EXPECT_LT(*std::min_element(h.Data(), h.Data() + h.Size()), -1.0f) << "a lake to keep clear of";
    for (const TrackDocument* d : {&Demo(), &Demo(true)})
        for (const Point& p : TrackSamples(*d, 32)) {
            EXPECT_TRUE(std::abs(p.x) <= 200.0 && std::abs(p.z) <= 200.0) << p.x << ", " << p.z;
            EXPECT_GE(p.y - GroundAt(d->terrain.terrain, p.x, p.z), 2.0) << p.x << ", " << p.z;
        }
}

TEST(DemoSupports, EveryTubeJoinsTwoNodesRisingFromItsFooterHoldingEveryRailConnectorAndLift) {
    const TrackDocument& doc = Demo(true); // the supports of every grid size, on the finest ground
    EXPECT_FALSE(doc.footers.footers.empty() || doc.freeNodes.nodes.empty() || doc.catwalks.catwalks.empty());
    ASSERT_FALSE(doc.railConnectors.groups.empty() || doc.tubes.tubes.empty());
    std::set<std::pair<std::int32_t, std::int32_t>> held;
    for (const Tube& tube : doc.tubes.tubes) {
        const std::optional<Point> a = NodePosition(doc, tube.nodeA), b = NodePosition(doc, tube.nodeB);
        ASSERT_TRUE(a && b) << "tube " << &tube - doc.tubes.tubes.data() << " names a missing node";
        EXPECT_GT(std::hypot(a->x - b->x, a->y - b->y, a->z - b->z), 0.5) << "a tube joins two places";
        EXPECT_TRUE(tube.nodeA.kind != kFooterNode || b->y > a->y + 1.0) << "a tube rises from its footer";
        for (const NodeRef& n : {tube.nodeA, tube.nodeB})
            if (n.kind == kRailConnectorNode) held.insert({n.entry, n.item});
    }
    std::size_t connectors = 0;
    std::set<std::size_t> supported; // stretches with a rail connector
    for (const auto& group : doc.railConnectors.groups)
        for (const RailConnector& rc : group) {
            ++connectors;
            EXPECT_TRUE(rc.parameter >= 0.0f && rc.parameter <= 1.0f && rc.stretch >= 0 &&
                        static_cast<std::size_t>(rc.stretch) < doc.segments.segments.size());
            supported.insert(static_cast<std::size_t>(rc.stretch));
        }
    EXPECT_EQ(held.size(), connectors) << "every rail connector is held by a tube";
    for (std::size_t s = 0; s < doc.segments.segments.size(); ++s)
        EXPECT_TRUE(doc.segments.segments[s].type != kLift || supported.count(s)) << "lift stretch " << s;
}

TEST(DemoSupports, FootersStandOnDryGroundUnderTheTrack) {
    const TrackDocument& doc = Demo(true);
    const std::vector<Point> track = TrackSamples(doc, 32);
    for (const Footer& f : doc.footers.footers) {
        const double ground = GroundAt(doc.terrain.terrain, f.position[0], f.position[2]);
        EXPECT_NEAR(f.position[1], ground, 0.2);
        EXPECT_GE(ground, 0.0) << "no footer in the lake";
        const auto gap = [&](const Point& p) { return std::hypot(p.x - f.position[0], p.z - f.position[2]); };
        EXPECT_LT(gap(std::ranges::min(track, {}, gap)), 10.0) << "a footer stands under the track";
    }
}

TEST(DemoScenery, TreesStandOnDryLandInTheSceneClearOfTheTrack) {
    const TrackDocument& doc = Demo();
    const TerrainData& t = doc.terrain.terrain;
    const std::vector<Point> track = TrackSamples(doc, 64);
    ASSERT_GE(doc.scene.entries.size(), 60u);
    for (const SceneEntry& tree : doc.scene.entries) {
        const float x = tree.position[0], z = tree.position[2];
        EXPECT_TRUE(std::abs(x) <= 220.0f && std::abs(z) <= 220.0f && tree.position[1] == 0.0f);
        // Dry both between grid points and at the nearest grid point.
        const GridPoint under = GridPointUnder(t, x, z, GridClamp::None);
        const float nearest = t.heights.At(under.row, under.column);
        EXPECT_TRUE(GroundAt(t, x, z) > 0.0 && nearest > 0.0f) << x << ", " << z;
        for (const Point& p : track)
            ASSERT_FALSE(std::abs(p.x - x) < 8.0 && std::abs(p.z - z) < 8.0) << "tree at " << x << ", " << z;
    }
}
