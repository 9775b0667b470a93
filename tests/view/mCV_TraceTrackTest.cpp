// Tracing the track: empty and repeated traces, where the points fall along a stretch, how the
// rails sit around the heartline and bank, segment types, the cross-sections, loops, the demo
// circuit and the rail connectors.
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

// A straight stretch from a to b, controls at a third and two thirds, rolls at both ends.
TrackDocument Straight(Vector3 a, Vector3 b, float startRoll = 0.0f, float endRoll = 0.0f, int style = 1) {
    Vector3 d;
    VectorSubtract(d, a, b);
    const auto third = static_cast<float>(VectorLength(d) / 3.0);
    Normalize(d, d);
    return Track({Vertex(a, d, third, third, startRoll), Vertex(b, d, third, third, endRoll)}, style);
}

TrackSpine Traced(const TrackDocument& doc) {
    TrackSpine spine;
    EXPECT_TRUE(TraceTrack(doc, spine));
    return spine;
}

// The level test stretch: 40 units heading +x at height 10, with the given rolls and style.
TrackSpine Level(float startRoll = 0.0f, float endRoll = 0.0f, int style = 1) {
    return Traced(Straight({0, 10, 0}, {40, 10, 0}, startRoll, endRoll, style));
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

bool Finite(const Vector3& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

const Vector3 kEast{1.0f, 0.0f, 0.0f}, kWest{-1.0f, 0.0f, 0.0f};

} // namespace

TEST(TraceTrack, FewerThanTwoVerticesGiveNoSpineAndTracingAgainLeavesNothingOfTheOldOne) {
    TrackDocument doc;
    for (int vertices = 0; vertices < 2; ++vertices) {
        TrackSpine spine = Level();
        EXPECT_FALSE(TraceTrack(doc, spine)) << vertices;
        EXPECT_TRUE(spine.segments.empty() && spine.drawnPoints.empty()) << vertices;
        doc.bezier.vertices.push_back(Vertex({5, 5, 5}, kEast, 1, 1));
    }
    TrackSpine spine = Traced(MakeDemoTrack());
    ASSERT_TRUE(TraceTrack(Straight({300, 40, 300}, {310, 40, 300}), spine));
    ASSERT_EQ(spine.segments.size(), 1u);
    EXPECT_EQ(spine.drawnPoints.size(), spine.segments[0].points.size());
    for (const DrawnPoint& p : spine.drawnPoints)
        EXPECT_GT(p.p2.x, 290.0f);
    EXPECT_EQ(spine.style, 1);
}

TEST(TraceTrack, AStraightStretchIsSampledEvenlyAlongItsLineAndEasesItsBankFromVertexToVertex) {
    const TrackSpine spine = Level(0.0f, 40.0f);
    const std::vector<TracedPoint>& points = spine.segments.at(0).points;
    const std::vector<DrawnPoint>& p = spine.drawnPoints;
    ASSERT_EQ(points.size(), 21u); // 40 units in steps of 2
    ASSERT_EQ(p.size(), 21u);
    EXPECT_TRUE(points.front().parameter == 0.0f && points.back().parameter == 1.0f);
    for (std::size_t k = 0; k < points.size(); ++k) {
        EXPECT_NEAR(Distance(points[k].position, {2.0f * static_cast<float>(k), 10.0f, 0.0f}), 0.0, 1e-3)
            << k;
        EXPECT_NEAR(Distance(Column(points[k].frame, 2), kWest), 0.0, 1e-5) << k; // travelling along +x
        EXPECT_GE(BankDegrees(p[k]), k == 0 ? 0.0 : BankDegrees(p[k - 1]) - 1e-6) << k;
    }
    EXPECT_NEAR(BankDegrees(p.front()), 0.0, 1e-3);
    EXPECT_NEAR(BankDegrees(p[10]), 20.0, 1e-3);
    EXPECT_NEAR(BankDegrees(p.back()), 40.0, 1e-3);
    EXPECT_LT(BankDegrees(p[5]), 10.0) << "slow at the vertices, faster in between";
    EXPECT_GT(BankDegrees(p[15]), 30.0);
}

TEST(TraceTrack, PositiveRollLowersTheRightRailWhicheverWayTheTrackRuns) {
    for (const Vector3 to : {Vector3{40, 10, 0}, Vector3{-40, 10, 0}, Vector3{0, 10, 40}}) {
        const TrackSpine spine = Traced(Straight({0, 10, 0}, to, 30.0f, 30.0f));
        for (const DrawnPoint& p : spine.drawnPoints)
            EXPECT_NEAR(BankDegrees(p), 30.0, 1e-3);
        // The right rail lies to the right of the direction of travel: forward x up.
        Vector3 across, right;
        VectorSubtract(across, spine.drawnPoints.front().p2, spine.drawnPoints.front().p3);
        CrossProduct(right, {to.x, 0.0f, to.z}, {0.0f, 1.0f, 0.0f});
        EXPECT_GT(DotProduct(across, right), 0.0) << to.x << "," << to.z;
    }
}

TEST(TraceTrack, SegmentTypesFollowTheirStretchesAndMissingRecordsAreTrack) {
    TrackDocument doc = Track({Vertex({0, 5, 0}, kEast, 3, 3), Vertex({10, 5, 0}, kEast, 3, 3),
                               Vertex({20, 5, 0}, kEast, 3, 3), Vertex({30, 5, 0}, kEast, 3, 3)});
    doc.segments.segments.resize(2);
    doc.segments.segments[0].type = kLift;
    doc.segments.segments[1].type = kBrake;
    const TrackSpine spine = Traced(doc);
    ASSERT_EQ(spine.segments.size(), 3u);
    const std::int16_t expected[] = {kLift, kBrake, kTrack};
    for (std::size_t i = 0; i < 3; ++i)
        for (const TracedPoint& p : spine.segments[i].points)
            EXPECT_EQ(p.segmentType, expected[i]);
    // Where two stretches meet the drawn point ends the earlier one and carries its type.
    const std::vector<TracedPoint> order = InDrawnOrder(spine);
    ASSERT_EQ(order.size(), spine.drawnPoints.size());
    for (std::size_t k = 0; k < order.size(); ++k)
        EXPECT_EQ(spine.drawnPoints[k].segmentType, order[k].segmentType) << k;
}

TEST(TraceSampling, PointsStayNearTheStepWhereverTheControlsLieWithinAMinimumAndACap) {
    // Controls bunched at the start: sampling evenly in the curve parameter would crowd the points there.
    const TrackDocument bunched = Track({Vertex({0, 0, 0}, kEast, 1, 0), Vertex({60, 0, 0}, kEast, 58, 1)});
    const std::vector<TracedPoint> points = Traced(bunched).segments.at(0).points;
    ASSERT_EQ(points.size(), 31u);
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double gap = Distance(points[i - 1].position, points[i].position);
        EXPECT_TRUE(gap > 0.9 * kTraceStep && gap <= kTraceStep + 1e-2) << i << ": " << gap;
    }
    // A control point on its vertex still gives the direction of travel there.
    EXPECT_NEAR(Distance(Column(points[0].frame, 2), kWest), 0.0, 1e-4);
    EXPECT_EQ(Traced(Straight({0, 0, 0}, {1, 0, 0})).segments[0].points.size(),
              static_cast<std::size_t>(kTraceMinSteps) + 1);
    EXPECT_EQ(Traced(Straight({0, 0, 0}, {1000, 0, 0})).segments[0].points.size(),
              static_cast<std::size_t>(kTraceMaxSteps) + 1);
    const TrackSpine still = Traced(Track({Vertex({3, 3, 3}, kEast, 0, 0), Vertex({3, 3, 3}, kEast, 0, 0)}));
    for (const DrawnPoint& p : still.drawnPoints)
        EXPECT_TRUE(Finite(p.p1) && Finite(p.p2) && Finite(p.p7));
}

TEST(TrackStyles, EveryStyleHangsItsMirroredRailsBelowTheHeartlineAndIsDrawnThroughTheFrame) {
    for (int style = -1; style <= kStyleCount; ++style) {
        const RailLayout& l = RailLayoutOf(style);
        SCOPED_TRACE(style);
        EXPECT_TRUE(l.p2.x == -l.p3.x && l.p2.y == l.p3.y && l.p2.x < 0.0f) << "rails mirrored, left at -x";
        EXPECT_TRUE(l.p4.x == -l.p5.x && l.p6.x == -l.p7.x) << "mirrored pairs";
        EXPECT_TRUE(-l.p2.y >= 1.1f && -l.p2.y <= 1.5f && l.p1.x == 0.0f && l.p1.y < l.p2.y);
        const DrawnPoint p = Level(0.0f, 0.0f, style).drawnPoints.at(7);
        // Heading +x: local right (+x) is world +z and local up is world +y.
        const std::pair<Vector3, Vector3> pairs[] = {{p.p1, l.p1}, {p.p2, l.p2}, {p.p3, l.p3}, {p.p4, l.p4},
                                                     {p.p5, l.p5}, {p.p6, l.p6}, {p.p7, l.p7}};
        for (const auto& [world, local] : pairs)
            EXPECT_NEAR(Distance(world, {14.0f, 10.0f + local.y, local.x}), 0.0, 1e-3);
    }
}

TEST(Guidelines, StartAtTheStyleOffsetCarriedThroughTheFrame) {
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
    const TracedPoint& top = spine.segments[2].points.back();
    EXPECT_NEAR(top.position.y, 50.0f, 1e-4f);
    EXPECT_NEAR(Column(top.frame, 1).y, -1.0f, 1e-4f);
    const std::size_t topIndex = spine.segments[0].points.size() + spine.segments[1].points.size() +
                                 spine.segments[2].points.size() - 3;
    EXPECT_GT(spine.drawnPoints.at(topIndex).p2.y, 51.0f); // the rails run above the riders' heads
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

TEST(RailConnectors, LieOnTheCurveAtTheirParameterWhichIsClampedAndMissingStretchesFail) {
    const TrackSpine spine = Level();
    Vector3 at{7.0f, 7.0f, 7.0f};
    for (const auto& [stretch, parameter] :
         {std::pair{-1, 0.5f}, std::pair{1, 0.5f}, std::pair{0, std::numeric_limits<float>::quiet_NaN()}})
        EXPECT_FALSE(RailConnectorPosition(spine, stretch, parameter, at)) << stretch << " " << parameter;
    EXPECT_EQ(Distance(at, {7.0f, 7.0f, 7.0f}), 0.0) << "a failed lookup leaves the output alone";
    for (const auto& [parameter, x] : {std::pair{1.5f, 40.0f}, std::pair{-0.2f, 0.0f}}) {
        ASSERT_TRUE(RailConnectorPosition(spine, 0, parameter, at));
        EXPECT_LT(Distance(at, {x, 10.0f, 0.0f}), 1e-5) << parameter;
    }
    // Controls bunched at the start: the curve parameter runs unevenly along the stretch.
    const TrackDocument bunched = Track({Vertex({0, 0, 0}, kEast, 1, 0), Vertex({60, 0, 0}, kEast, 58, 1)});
    for (float parameter : {0.3f, 0.77f}) {
        Vector3 expected;
        ASSERT_TRUE(RailConnectorPosition(Traced(bunched), 0, parameter, at));
        CubicBezierPoint(expected, {0, 0, 0}, {0, 0, 0}, {60, 0, 0}, {2, 0, 0}, parameter);
        EXPECT_LT(Distance(at, expected), 0.05) << parameter;
    }
}
