// The demo track: a closed, believable circuit above its landscape, supports that hold it, trees
// clear of it, and a document that is the same on every call and survives a write and a read.
#include "DemoTrack.h"
#include "TrackChunks.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <numbers>
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

// Turn from vertex i to vertex i + 1 in degrees (headings from before- to after-control): with x
// east and z south a growing heading angle turns clockwise seen from above, i.e. to the right.
double TurnAfter(const std::vector<BezierVertex>& v, std::size_t i) {
    const auto heading = [](const BezierVertex& b) {
        return std::atan2(b.values[8] - b.values[5], b.values[6] - b.values[3]);
    };
    return std::remainder(heading(v[i + 1]) - heading(v[i]), 2 * std::numbers::pi) * 180.0 / std::numbers::pi;
}

// Where a tube's end sits, or nothing when the reference names no node.
std::optional<Point> NodePosition(const TrackDocument& doc, const NodeRef& n) {
    const auto entry = static_cast<std::size_t>(n.entry), item = static_cast<std::size_t>(n.item);
    const auto& groups = doc.railConnectors.groups;
    const auto point = [](const std::array<float, 3>& p) { return Point{p[0], p[1], p[2]}; };
    if (n.entry < 0 || n.item < 0 || (n.kind != kRailConnectorNode && item != 0)) return std::nullopt;
    if (n.kind == kFooterNode && entry < doc.footers.footers.size())
        return point(doc.footers.footers[entry].position);
    if (n.kind == kFreeNode && entry < doc.freeNodes.nodes.size())
        return point(doc.freeNodes.nodes[entry].position);
    if (n.kind != kRailConnectorNode || entry >= groups.size() || item >= groups[entry].size())
        return std::nullopt;
    const RailConnector& rc = groups[entry][item];
    return CurvePoint(doc.bezier.vertices, static_cast<std::size_t>(rc.stretch), rc.parameter);
}

} // namespace

TEST(DemoTrackDocument, IsTheSameOnEveryCallReadsBackAsWrittenAndItsOptionsChangeOnlyTheTerrain) {
    const std::vector<std::uint8_t> bytes = SerializeTrack(Demo());
    EXPECT_EQ(SerializeTrack(MakeDemoTrack()), bytes);
    TrackDocument read;
    ASSERT_TRUE(ParseTrack(bytes, read));
    EXPECT_EQ(SerializeTrack(read), bytes);
    const TrackDocument bare = MakeDemoTrack({205, false});
    EXPECT_FALSE(bare.terrain.terrainInTrack);
    for (int side : {205, 409, 513}) {
        TrackDocument doc = MakeDemoTrack({side, true});
        EXPECT_EQ(doc.terrain.terrain.heights.Columns(), side);
        EXPECT_EQ(doc.terrain.terrain.heights.Rows(), side);
        EXPECT_FLOAT_EQ(doc.terrain.terrain.spacingZ, 1024.0f / static_cast<float>(side));
        doc.terrain = TerrainRecord{};
        EXPECT_EQ(SerializeTrack(doc), SerializeTrack(bare)) << side;
    }
}

TEST(DemoCircuit, IsClosedSmoothInsideTheSceneTurnsOnceAroundAndBanksIntoItsTurns) {
    const std::vector<BezierVertex>& v = Demo().bezier.vertices;
    ASSERT_GE(v.size(), 24u);
    EXPECT_EQ(v.front(), v.back());
    double total = 0.0, bestRun = 0.0; // bestRun: the largest turn within six consecutive stretches
    float steepest = 0.0f;
    for (std::size_t i = 0; i + 1 < v.size(); ++i) {
        const Point in = At(v[i], 0) - At(v[i], 3), out = At(v[i], 6) - At(v[i], 0);
        EXPECT_GT(in.Dot(out) / std::sqrt(in.Dot(in) * out.Dot(out)), 0.9999) << "kink at vertex " << i;
        total += TurnAfter(v, i);
        double run = 0.0;
        for (std::size_t j = i; j < std::min(i + 6, v.size() - 1); ++j)
            bestRun = std::max(bestRun, std::abs(run += TurnAfter(v, j)));
        if (i == 0) continue;
        // Positive roll banks to the right, into a right turn.
        const Point ahead = At(v[i + 1], 0) - At(v[i], 0), back = At(v[i], 0) - At(v[i - 1], 0);
        const double rightward = ahead.Dot({-back.z, 0.0, back.x});
        EXPECT_TRUE(v[i].Roll() == 0.0f || (v[i].Roll() > 0.0f) == (rightward > 0.0)) << "vertex " << i;
        EXPECT_LE(std::abs(v[i].Roll()), 60.0f);
        steepest = std::max(steepest, std::abs(v[i].Roll()));
    }
    EXPECT_NEAR(std::abs(total), 360.0, 1.0) << "a simple closed loop turns through one full circle";
    EXPECT_GE(bestRun, 170.0) << "a turn-around";
    EXPECT_GE(steepest, 30.0f);
    for (const Point& p : TrackSamples(Demo(), 16))
        EXPECT_TRUE(std::abs(p.x) <= 200.0 && std::abs(p.z) <= 200.0);
}

TEST(DemoCircuit, HasEveryStretchTypeFromStationUpTheLiftDownTheDropToBrakesAndTransport) {
    const TrackDocument& doc = Demo();
    const std::vector<BezierVertex>& v = doc.bezier.vertices;
    const std::vector<Segment>& seg = doc.segments.segments;
    ASSERT_EQ(seg.size(), v.size() - 1);
    std::size_t liftEnd = 0;
    std::set<std::int32_t> types;
    for (std::size_t s = 0; s < seg.size(); ++s) {
        types.insert(seg[s].type);
        EXPECT_EQ(seg[s].details.size(), static_cast<std::size_t>(SegmentPartValues(seg[s].type)));
        const float rise = v[s + 1].values[1] - v[s].values[1];
        if (seg[s].type == kStation) {
            EXPECT_EQ(rise, 0.0f) << "station stretch " << s << " is level";
            EXPECT_LT(v[s].values[1] - GroundAt(doc.terrain.terrain, v[s].values[0], v[s].values[2]), 6.0);
        }
        if (seg[s].type == kLift) {
            EXPECT_GT(rise, 0.0f) << "lift stretch " << s << " climbs";
            liftEnd = s + 1;
        }
    }
    EXPECT_EQ(types, (std::set<std::int32_t>{kTrack, kStation, kLift, kTransport, kBrake}));
    EXPECT_EQ(seg.front().type, kStation);
    std::set<std::int32_t> approach; // back from the station: only brakes and transport until both are passed
    for (std::size_t s = seg.size() - 1; seg[s].type == kBrake || seg[s].type == kTransport; --s)
        approach.insert(seg[s].type);
    EXPECT_EQ(approach, (std::set<std::int32_t>{kTransport, kBrake}));
    const double top = v[liftEnd].values[1];
    EXPECT_TRUE(top >= 40.0 && top <= 60.0) << top;
    double lowestAfterTop = top;
    for (const Point& p : TrackSamples(doc, 16))
        EXPECT_LE(p.y, top + 0.5) << "the lift hill is the highest point";
    for (std::size_t s = liftEnd; s < liftEnd + 3; ++s)
        for (int k = 0; k <= 16; ++k)
            lowestAfterTop = std::min(lowestAfterTop, CurvePoint(v, s, k / 16.0).y);
    EXPECT_GE(top - lowestAfterTop, 35.0) << "a big drop follows the lift";
}

TEST(DemoTerrain, IsTheSameSmoothLandscapeWithALakeAndHillsAtEveryGridSizeAndStaysBelowTheTrack) {
    const TerrainData& coarse = Demo().terrain.terrain;
    EXPECT_TRUE(coarse.waterEnabled);
    const auto [low, high] =
        std::minmax_element(coarse.heights.Data(), coarse.heights.Data() + coarse.heights.Size());
    EXPECT_TRUE(*low >= -10.0f && *low <= -5.0f) << "a lake a few units deep: " << *low;
    EXPECT_TRUE(*high >= 60.0f && *high <= 150.0f) << *high;
    const TerrainData& fine = Demo(true).terrain.terrain;
    const double coarseHalf = coarse.spacingX * (coarse.columns - 1) / 2.0;
    double roughest = 0.0; // second differences along rows: noise would make them large
    for (int r = 0; r < fine.rows; ++r)
        for (int c = 1; c + 1 < fine.columns; ++c) {
            const double x = fine.spacingX * (c - (fine.columns - 1) / 2.0),
                         z = fine.spacingZ * (r - (fine.rows - 1) / 2.0);
            const HeightGrid& h = fine.heights;
            roughest = std::max<double>(roughest, std::abs(h.At(r, c - 1) - 2 * h.At(r, c) + h.At(r, c + 1)));
            if (r % 16 == 0 && c % 16 == 0 && std::abs(x) <= coarseHalf && std::abs(z) <= coarseHalf) {
                EXPECT_NEAR(GroundAt(coarse, x, z), h.At(r, c), 0.5) << x << ", " << z;
            }
        }
    EXPECT_LT(roughest, 0.5);
    for (const TrackDocument* doc : {&Demo(), &Demo(true)})
        for (const Point& p : TrackSamples(*doc, 32))
            EXPECT_GE(p.y - GroundAt(doc->terrain.terrain, p.x, p.z), 2.0) << p.x << ", " << p.z;
}

TEST(DemoSupports, EveryTubeJoinsTwoNodesRisingFromFootersOnDryGroundUnderTheTrackAndTheLiftIsHeld) {
    const TrackDocument& doc = Demo(true); // the supports of every grid size, on the finest ground
    EXPECT_FALSE(doc.footers.footers.empty() || doc.freeNodes.nodes.empty() || doc.catwalks.catwalks.empty());
    ASSERT_FALSE(doc.railConnectors.groups.empty() || doc.tubes.tubes.empty());
    std::set<std::pair<std::int32_t, std::int32_t>> held;
    for (const Tube& tube : doc.tubes.tubes) {
        const std::optional<Point> a = NodePosition(doc, tube.nodeA), b = NodePosition(doc, tube.nodeB);
        ASSERT_TRUE(a && b) << "tube " << &tube - doc.tubes.tubes.data() << " names a missing node";
        EXPECT_TRUE(tube.diameter >= 0.5f && tube.diameter <= 1.5f) << tube.diameter;
        EXPECT_GT(std::hypot(a->x - b->x, a->y - b->y, a->z - b->z), 0.5) << "a tube joins two places";
        EXPECT_TRUE(tube.nodeA.kind != kFooterNode || b->y > a->y + 1.0) << "a tube rises from its footer";
        for (const NodeRef& n : {tube.nodeA, tube.nodeB})
            if (n.kind == kRailConnectorNode) held.insert({n.entry, n.item});
    }
    std::size_t connectors = 0;
    std::set<std::size_t> supported; // stretches with a rail connector
    for (const auto& group : doc.railConnectors.groups) {
        EXPECT_FALSE(group.empty());
        connectors += group.size();
        for (const RailConnector& rc : group) {
            supported.insert(static_cast<std::size_t>(rc.stretch));
            EXPECT_TRUE(rc.parameter >= 0.0f && rc.parameter <= 1.0f && rc.stretch >= 0 &&
                        static_cast<std::size_t>(rc.stretch) < doc.segments.segments.size());
        }
    }
    EXPECT_EQ(held.size(), connectors) << "every rail connector is held by a tube";
    const std::vector<Point> track = TrackSamples(doc, 32);
    for (const Footer& f : doc.footers.footers) {
        const double ground = GroundAt(doc.terrain.terrain, f.position[0], f.position[2]);
        EXPECT_NEAR(f.position[1], ground, 0.2);
        EXPECT_GE(ground, 0.0) << "no footer in the lake";
        double nearest = 1e9;
        for (const Point& p : track)
            nearest = std::min(nearest, std::hypot(p.x - f.position[0], p.z - f.position[2]));
        EXPECT_LT(nearest, 10.0);
    }
    for (std::size_t s = 0; s < doc.segments.segments.size(); ++s)
        EXPECT_TRUE(doc.segments.segments[s].type != kLift || supported.count(s)) << "lift stretch " << s;
}

TEST(DemoScenery, TreesStandOnDryLandInTheSceneClearOfTheTrack) {
    const TrackDocument& doc = Demo();
    const TerrainData& t = doc.terrain.terrain;
    const std::vector<Point> track = TrackSamples(doc, 64);
    ASSERT_GE(doc.scene.entries.size(), 60u);
    std::set<float> kinds;
    for (const SceneEntry& tree : doc.scene.entries) {
        const float x = tree.position[0], z = tree.position[2], value = std::bit_cast<float>(tree.value);
        EXPECT_TRUE(std::abs(x) <= 220.0f && std::abs(z) <= 220.0f && tree.position[1] == 0.0f);
        EXPECT_TRUE(value >= 0.0f && value < 10.0f) << value;
        kinds.insert(tree.kind);
        // Dry both between grid points and at the nearest grid point.
        const float nearest = t.heights.At(GridIndexUnder(z, t.spacingZ), GridIndexUnder(x, t.spacingX));
        EXPECT_TRUE(GroundAt(t, x, z) > 0.0 && nearest > 0.0f) << x << ", " << z;
        for (const Point& p : track)
            ASSERT_FALSE(std::abs(p.x - x) < 8.0 && std::abs(p.z - z) < 8.0) << "tree at " << x << ", " << z;
    }
    EXPECT_EQ(kinds, (std::set<float>{1.0f, 2.0f, 3.0f}));
}
