// Tracing the track: empty and repeated traces, where the points fall, how the rails sit around
// the heartline and bank, segment types, loops, the demo circuit and the rail connectors.
#include "mCV_TraceTrack.h"
#include "DemoTrack.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace {

double Distance(const Vector3& a, const Vector3& b) {
    Vector3 d;
    VectorSubtract(d, a, b);
    return VectorLength(d);
}

// A vertex at p heading along the unit direction h, with its controls the given distances back and ahead.
BezierVertex Vertex(Vector3 p, Vector3 h, float back, float ahead, float roll = 0.0f) {
    return {{p.x, p.y, p.z, p.x - back * h.x, p.y - back * h.y, p.z - back * h.z, p.x + ahead * h.x,
             p.y + ahead * h.y, p.z + ahead * h.z, roll}};
}

TrackDocument Track(std::vector<BezierVertex> vertices, int style = 1) {
    TrackDocument doc;
    doc.bezier.vertices = std::move(vertices);
    doc.track.trackStyle = style;
    return doc;
}

TrackSpine Traced(const TrackDocument& doc) {
    TrackSpine spine;
    EXPECT_TRUE(TraceTrack(doc, spine));
    return spine;
}

// A straight stretch from a to b, controls at a third and two thirds, rolls at both ends.
TrackSpine Straight(Vector3 a, Vector3 b, float startRoll = 0.0f, float endRoll = 0.0f, int style = 1) {
    Vector3 d;
    VectorSubtract(d, a, b);
    const auto third = static_cast<float>(VectorLength(d) / 3.0);
    Normalize(d, d);
    return Traced(Track({Vertex(a, d, third, third, startRoll), Vertex(b, d, third, third, endRoll)}, style));
}

// The level test stretch: 40 units heading +x at height 10.
TrackSpine Level(float startRoll = 0.0f, float endRoll = 0.0f, int style = 1) {
    return Straight({0, 10, 0}, {40, 10, 0}, startRoll, endRoll, style);
}

// The traced points in the order of the drawn point list (a later stretch's first point left out).
std::vector<TracedPoint> InDrawnOrder(const TrackSpine& spine) {
    std::vector<TracedPoint> points;
    for (std::size_t i = 0; i < spine.segments.size(); ++i)
        points.insert(points.end(), spine.segments[i].points.begin() + (i == 0 ? 0 : 1),
                      spine.segments[i].points.end());
    return points;
}

// Column 0, 1, 2 of a frame: where local right, up and backwards point in the world.
Vector3 Column(const Matrix4& frame, int c) {
    return {frame.At(0, c), frame.At(1, c), frame.At(2, c)};
}

// Bank of a cross-section in degrees: positive when the right rail (P3) is lower than the left.
double BankDegrees(const DrawnPoint& p) {
    return std::asin((p.p2.y - p.p3.y) / Distance(p.p2, p.p3)) * 180.0 / std::numbers::pi;
}

const Vector3 kEast{1.0f, 0.0f, 0.0f}, kWest{-1.0f, 0.0f, 0.0f};

// Controls bunched at the start: the curve parameter runs unevenly along the stretch.
const TrackDocument kBunched = Track({Vertex({0, 0, 0}, kEast, 1, 0), Vertex({60, 0, 0}, kEast, 58, 1)});

} // namespace

TEST(TraceTrack, FewerThanTwoVerticesGiveNoSpineAndTracingAgainLeavesNothingOfTheOld) {
    TrackDocument doc;
    for (int vertices = 0; vertices < 3; ++vertices) {
        TrackSpine spine = Traced(MakeDemoTrack());
        EXPECT_EQ(TraceTrack(doc, spine), vertices == 2) << vertices;
        ASSERT_EQ(spine.segments.size(), vertices == 2 ? 1u : 0u) << vertices;
        EXPECT_EQ(spine.drawnPoints.size(), vertices == 2 ? spine.segments[0].points.size() : 0u);
        for (const DrawnPoint& p : spine.drawnPoints)
            EXPECT_GT(p.p2.x, 290.0f) << "a point of the old track";
        doc.bezier.vertices.push_back(
            Vertex({300.0f + 10.0f * static_cast<float>(vertices), 40, 300}, kEast, 3, 3));
    }
}

TEST(TraceTrack, AStraightStretchIsSampledEvenlyEasingItsBankSoPositiveRollLowersTheRightRail) {
    // Where a 40-unit stretch runs from (0, 10, 0), and which way is right of that.
    const std::pair<Vector3, Vector3> runs[] = {
        {{1, 0, 0}, {0, 0, 1}}, {{-1, 0, 0}, {0, 0, -1}}, {{0, 0, 1}, kWest}};
    for (const auto& [ahead, right] : runs) {
        const TrackSpine spine = Straight({0, 10, 0}, {40 * ahead.x, 10, 40 * ahead.z}, 0.0f, 40.0f);
        const std::vector<DrawnPoint>& p = spine.drawnPoints;
        ASSERT_EQ(p.size(), 21u); // 40 units in steps of 2
        for (std::size_t k = 0; k < p.size(); ++k) {
            const float along = 2.0f * static_cast<float>(k);
            EXPECT_NEAR(
                Distance(spine.segments[0].points[k].position, {along * ahead.x, 10, along * ahead.z}), 0.0,
                1e-3)
                << k;
        }
        for (const std::size_t k : {0u, 10u, 20u})
            EXPECT_NEAR(BankDegrees(p[k]), 2.0 * static_cast<double>(k), 1e-3) << k;
        EXPECT_LT(BankDegrees(p[5]), 10.0) << "slow at the vertices, faster in between";
        Vector3 across; // right rail minus left rail
        VectorSubtract(across, p.back().p2, p.back().p3);
        EXPECT_GT(DotProduct(across, right), 0.0) << ahead.x << "," << ahead.z;
    }
}

TEST(TraceTrack, SegmentTypesFollowTheirStretchesWithMissingRecordsAsTrack) {
    TrackDocument doc = Track({Vertex({0, 5, 0}, kEast, 3, 3), Vertex({10, 5, 0}, kEast, 3, 3),
                               Vertex({20, 5, 0}, kEast, 3, 3), Vertex({30, 5, 0}, kEast, 3, 3)});
    doc.segments.segments.resize(2);
    doc.segments.segments[0].type = kLift;
    doc.segments.segments[1].type = kBrake;
    const TrackSpine spine = Traced(doc);
    ASSERT_EQ(spine.segments.size(), 3u);
    // Where two stretches meet the drawn point ends the earlier one and carries its type.
    const std::int16_t expected[] = {kLift, kBrake, kTrack};
    for (std::size_t i = 0, k = 0; i < 3; ++i)
        for (std::size_t j = i == 0 ? 0 : 1; j < spine.segments[i].points.size(); ++j, ++k)
            EXPECT_TRUE(spine.segments[i].points[j].segmentType == expected[i] &&
                        spine.drawnPoints.at(k).segmentType == expected[i])
                << i << "," << j;
}

TEST(TraceSampling, PointsStayNearTheStepWhereverTheControlsLieWithinAMinimumAndACap) {
    const std::vector<TracedPoint> points = Traced(kBunched).segments.at(0).points;
    ASSERT_EQ(points.size(), 31u);
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double gap = Distance(points[i - 1].position, points[i].position);
        EXPECT_TRUE(gap > 0.9 * kTraceStep && gap <= kTraceStep + 1e-2) << i << ": " << gap;
    }
    // A control point on its vertex still gives the direction of travel there.
    EXPECT_NEAR(Distance(Column(points[0].frame, 2), kWest), 0.0, 1e-4);
    EXPECT_EQ(Straight({0, 0, 0}, {1, 0, 0}).segments[0].points.size(), kTraceMinSteps + 1u);
    EXPECT_EQ(Straight({0, 0, 0}, {1000, 0, 0}).segments[0].points.size(), kTraceMaxSteps + 1u);
    for (const DrawnPoint& p :
         Traced(Track({Vertex({3, 3, 3}, kEast, 0, 0), Vertex({3, 3, 3}, kEast, 0, 0)})).drawnPoints)
        EXPECT_TRUE(std::isfinite(p.p2.x + p.p2.y + p.p2.z + p.p7.x + p.p7.y + p.p7.z))
            << "a stretch of length 0";
}

TEST(TrackStyles, EveryStylesRailsAreCarriedThroughTheFrame) {
    for (int style = -1; style <= kStyleCount; ++style) {
        const RailLayout& l = RailLayoutOf(style);
        const DrawnPoint p = Level(0.0f, 0.0f, style).drawnPoints.at(7);
        // Heading +x: local right (+x) is world +z and local up is world +y.
        const std::pair<Vector3, Vector3> pairs[] = {{p.p1, l.p1}, {p.p2, l.p2}, {p.p3, l.p3}, {p.p4, l.p4},
                                                     {p.p5, l.p5}, {p.p6, l.p6}, {p.p7, l.p7}};
        for (const auto& [world, local] : pairs)
            EXPECT_NEAR(Distance(world, {14.0f, 10.0f + local.y, local.x}), 0.0, 1e-3) << style;
    }
}

TEST(TrackStyles, GuidelinesStartAtTheStylesOffsetCarriedThroughTheFrame) {
    Vector3 top;
    GuidelineTop(top, Level().segments[0].points[3], 2); // style 2 starts 0.6 above the heartline
    EXPECT_NEAR(Distance(top, {6.0f, 10.6f, 0.0f}), 0.0, 1e-4);
    // Banked a quarter turn to the right, local down points to the left (-z when heading +x).
    GuidelineTop(top, Level(90.0f, 90.0f).segments[0].points[3], 5); // style 5: 1 below
    EXPECT_NEAR(Distance(top, {6.0f, 10.0f, -1.0f}), 0.0, 1e-4);
}

TEST(TraceTrack, ALoopKeepsItsRightSideAndTurnsTheRidersOverAtTheTop) {
    // A vertical loop of radius 20 in the x-y plane, entered heading +x.
    const float k = 0.5523f * 20.0f;
    const Vector3 up{0, 1, 0}, down{0, -1, 0};
    const TrackSpine spine = Traced(Track(
        {Vertex({-40, 10, 0}, kEast, 10, 13), Vertex({0, 10, 0}, kEast, 13, k), Vertex({20, 30, 0}, up, k, k),
         Vertex({0, 50, 0}, kWest, k, k), Vertex({-20, 30, 0}, down, k, k), Vertex({0, 10, 0}, kEast, k, 13),
         Vertex({40, 10, 0}, kEast, 13, 10)}));
    const std::vector<TracedPoint> points = InDrawnOrder(spine);
    for (std::size_t i = 1; i < points.size(); ++i) {
        EXPECT_GT(Column(points[i].frame, 0).z, 0.99f) << i; // local right stays world +z
        EXPECT_GT(DotProduct(Column(points[i].frame, 1), Column(points[i - 1].frame, 1)), 0.9) << i;
    }
    const std::size_t top = spine.segments[0].points.size() + spine.segments[1].points.size() +
                            spine.segments[2].points.size() - 3;
    EXPECT_NEAR(points.at(top).position.y, 50.0f, 1e-4f);
    EXPECT_NEAR(Column(points[top].frame, 1).y, -1.0f, 1e-4f);
    EXPECT_GT(spine.drawnPoints.at(top).p2.y, 51.0f); // the rails run above the riders' heads
}

TEST(TraceDemo, TheCircuitClosesWithEveryRailPointNearItsHeartlineAndNoneUpsideDown) {
    const TrackDocument doc = MakeDemoTrack();
    const TrackSpine spine = Traced(doc);
    ASSERT_EQ(spine.segments.size(), doc.bezier.vertices.size() - 1);
    const std::vector<TracedPoint> points = InDrawnOrder(spine);
    ASSERT_EQ(points.size(), spine.drawnPoints.size());
    ASSERT_GT(points.size(), 100u);
    EXPECT_EQ(Distance(points.front().position, points.back().position), 0.0);
    EXPECT_LT(Distance(spine.drawnPoints.front().p3, spine.drawnPoints.back().p3), 1e-3);
    for (std::size_t k = 1; k < points.size(); ++k) {
        const DrawnPoint& p = spine.drawnPoints[k];
        for (const Vector3& v : {p.p1, p.p2, p.p3, p.p4, p.p5, p.p6, p.p7})
            ASSERT_LT(Distance(v, points[k].position), 3.0) << k;
        EXPECT_LT(Distance(p.p2, spine.drawnPoints[k - 1].p2), 1.5 * kTraceStep) << k;
        EXPECT_GT(Column(points[k].frame, 1).y, 0.3f) << k;
    }
}

TEST(RailConnectors, LieOnTheCurveAtTheirClampedParameterAndAMissingOneLeavesTheOutputAlone) {
    const TrackSpine spine = Level();
    Vector3 at{7.0f, 7.0f, 7.0f};
    for (const auto& [stretch, parameter] :
         {std::pair{-1, 0.5f}, std::pair{1, 0.5f}, std::pair{0, std::numeric_limits<float>::quiet_NaN()}})
        EXPECT_FALSE(RailConnectorPosition(spine, stretch, parameter, at)) << stretch << " " << parameter;
    EXPECT_EQ(Distance(at, {7.0f, 7.0f, 7.0f}), 0.0);
    for (const auto& [parameter, x] : {std::pair{1.5f, 40.0f}, std::pair{-0.2f, 0.0f}}) {
        ASSERT_TRUE(RailConnectorPosition(spine, 0, parameter, at));
        EXPECT_LT(Distance(at, {x, 10.0f, 0.0f}), 1e-5) << parameter;
    }
    for (float parameter : {0.3f, 0.77f}) {
        Vector3 expected;
        ASSERT_TRUE(RailConnectorPosition(Traced(kBunched), 0, parameter, at));
        CubicBezierPoint(expected, {0, 0, 0}, {0, 0, 0}, {60, 0, 0}, {2, 0, 0}, parameter);
        EXPECT_LT(Distance(at, expected), 0.05) << parameter;
    }
}
