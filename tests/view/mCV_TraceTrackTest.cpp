// Tracing the track: empty and repeated traces, where the points fall along a stretch, how the
// rails sit around the heartline and bank, segment types, the per-style cross-sections, loops, the
// demo circuit and the rail connectors.
#include "mCV_TraceTrack.h"
#include "DemoTrack.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace {

Vector3 Plus(Vector3 a, Vector3 b, float scale = 1.0f) {
    return {a.x + scale * b.x, a.y + scale * b.y, a.z + scale * b.z};
}

double Distance(const Vector3& a, const Vector3& b) {
    Vector3 d;
    VectorSubtract(d, a, b);
    return VectorLength(d);
}

// A vertex at p heading along the unit direction, with its controls the given distances back and ahead.
BezierVertex Vertex(Vector3 p, Vector3 heading, float back, float ahead, float roll = 0.0f) {
    const Vector3 before = Plus(p, heading, -back), after = Plus(p, heading, ahead);
    BezierVertex v;
    v.values = {p.x, p.y, p.z, before.x, before.y, before.z, after.x, after.y, after.z, roll};
    return v;
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

// The traced points in the order of the drawn point list (a later stretch's first point left out).
std::vector<TracedPoint> InDrawnOrder(const TrackSpine& spine) {
    std::vector<TracedPoint> points;
    for (std::size_t i = 0; i < spine.segments.size(); ++i)
        for (std::size_t k = i == 0 ? 0 : 1; k < spine.segments[i].points.size(); ++k)
            points.push_back(spine.segments[i].points[k]);
    return points;
}

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

const Vector3 kEast{1.0f, 0.0f, 0.0f};

// The level test stretch: 40 units heading +x at height 10, with the given rolls and style.
TrackSpine Level(float startRoll = 0.0f, float endRoll = 0.0f, int style = 1) {
    return Traced(Straight({0, 10, 0}, {40, 10, 0}, startRoll, endRoll, style));
}

Vector3 Ahead(const TracedPoint& p) { // local -z is the direction of travel
    Vector3 ahead;
    TransformPoint(ahead, p.frame, {0.0f, 0.0f, -1.0f});
    return ahead;
}

} // namespace

TEST(TraceTrack, FewerThanTwoVerticesGiveNoSpineAndTracingAgainLeavesNothingOfTheOldOne) {
    TrackDocument doc;
    for (int vertices = 0; vertices < 2; ++vertices) {
        TrackSpine spine = Level();
        ASSERT_FALSE(spine.drawnPoints.empty());
        EXPECT_FALSE(TraceTrack(doc, spine)) << vertices;
        EXPECT_TRUE(spine.segments.empty()) << vertices;
        EXPECT_TRUE(spine.drawnPoints.empty()) << vertices;
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

TEST(TraceTrack, AStraightLevelStretchIsSampledEvenlyOnTheLineWithRailsHangingSymmetricallyBelow) {
    const TrackSpine spine = Level();
    const std::vector<TracedPoint>& points = spine.segments.at(0).points;
    ASSERT_EQ(points.size(), 21u); // 40 units in steps of 2
    ASSERT_EQ(InDrawnOrder(spine).size(), spine.drawnPoints.size());
    EXPECT_EQ(points.front().parameter, 0.0f);
    EXPECT_EQ(points.back().parameter, 1.0f);
    for (std::size_t k = 0; k < points.size(); ++k) {
        const Vector3& heart = points[k].position;
        const DrawnPoint& p = spine.drawnPoints[k];
        EXPECT_NEAR(Distance(heart, {2.0f * static_cast<float>(k), 10.0f, 0.0f}), 0.0, 1e-3) << k;
        EXPECT_NEAR(Distance(Ahead(points[k]), Plus(heart, kEast)), 0.0, 1e-5) << k;
        EXPECT_NEAR(p.p2.y, p.p3.y, 1e-5f) << k;
        EXPECT_NEAR(Distance(p.p2, heart), Distance(p.p3, heart), 1e-5) << k;
        EXPECT_TRUE(heart.y - p.p2.y >= 1.1f && heart.y - p.p2.y <= 1.5f) << k;
        EXPECT_NEAR(p.p3.z, -p.p2.z, 1e-5f) << k;
        EXPECT_GT(p.p3.z, 0.0f) << "heading +x, the right side is +z";
        EXPECT_NEAR(p.p2.x, heart.x, 1e-5f) << k;
    }
}

TEST(TraceTrack, PositiveRollLowersTheRightRailWhicheverWayTheTrackRunsAndEasesBetweenVertices) {
    for (const Vector3 to : {Vector3{40, 10, 0}, Vector3{-40, 10, 0}, Vector3{0, 10, 40}}) {
        const TrackSpine spine = Traced(Straight({0, 10, 0}, to, 30.0f, 30.0f));
        for (const DrawnPoint& p : spine.drawnPoints) {
            EXPECT_LT(p.p3.y, p.p2.y);
            EXPECT_NEAR(BankDegrees(p), 30.0, 1e-3);
        }
        // The right rail lies to the right of the direction of travel: forward x up.
        const DrawnPoint& p = spine.drawnPoints.front();
        Vector3 across, forward{to.x, 0.0f, to.z}, right;
        VectorSubtract(across, p.p2, p.p3);
        Normalize(forward, forward);
        CrossProduct(right, forward, {0.0f, 1.0f, 0.0f});
        EXPECT_GT(DotProduct(across, right), 0.0) << to.x << "," << to.z;
    }
    const std::vector<DrawnPoint> p = Level(0.0f, 40.0f).drawnPoints;
    ASSERT_EQ(p.size(), 21u);
    EXPECT_NEAR(BankDegrees(p.front()), 0.0, 1e-3);
    EXPECT_NEAR(BankDegrees(p[10]), 20.0, 1e-3);
    EXPECT_NEAR(BankDegrees(p.back()), 40.0, 1e-3);
    EXPECT_LT(BankDegrees(p[5]), 10.0) << "slow at the vertices, faster in between";
    EXPECT_GT(BankDegrees(p[15]), 30.0);
    for (std::size_t k = 1; k < p.size(); ++k)
        EXPECT_GE(BankDegrees(p[k]), BankDegrees(p[k - 1]) - 1e-6) << k;
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
    const std::vector<TracedPoint> order = InDrawnOrder(spine);
    ASSERT_EQ(order.size(), spine.drawnPoints.size());
    for (std::size_t k = 0; k < order.size(); ++k)
        EXPECT_EQ(spine.drawnPoints[k].segmentType, order[k].segmentType) << k;
    // Where two stretches meet the point ends the earlier one and carries its type.
    const std::size_t joint = spine.segments[0].points.size() - 1;
    EXPECT_EQ(spine.drawnPoints[joint].segmentType, kLift);
    EXPECT_EQ(spine.drawnPoints[joint + 1].segmentType, kBrake);
}

TEST(TraceSampling, PointsStayNearTheStepWhereverTheControlsLieWithinAMinimumAndACap) {
    // Controls bunched at the start: sampling evenly in the curve parameter would crowd the points there.
    const TrackDocument bunched = Track({Vertex({0, 0, 0}, kEast, 1, 0), Vertex({60, 0, 0}, kEast, 58, 1)});
    const float k = 0.5523f * 30.0f; // a quarter circle of radius 30
    const TrackDocument bend = Track({Vertex({0, 0, 0}, kEast, k, k), Vertex({30, 0, 30}, {0, 0, 1}, k, k)});
    for (const TrackDocument* doc : {&bunched, &bend}) {
        const std::vector<TracedPoint> points = Traced(*doc).segments.at(0).points;
        ASSERT_GE(points.size(), 20u);
        for (std::size_t i = 1; i < points.size(); ++i) {
            const double gap = Distance(points[i - 1].position, points[i].position);
            EXPECT_TRUE(gap > 0.9 * kTraceStep && gap <= kTraceStep + 1e-2) << i << ": " << gap;
        }
        for (const TracedPoint& p : points)
            EXPECT_TRUE(Finite(Column(p.frame, 0)) && Finite(Column(p.frame, 2)));
    }
    // A control point on its vertex still gives the direction of travel there.
    const TracedPoint first = Traced(bunched).segments[0].points.front();
    EXPECT_NEAR(Distance(Ahead(first), Plus(first.position, kEast)), 0.0, 1e-4);

    EXPECT_EQ(Traced(Straight({0, 0, 0}, {1, 0, 0})).segments[0].points.size(),
              static_cast<std::size_t>(kTraceMinSteps) + 1);
    EXPECT_EQ(Traced(Straight({0, 0, 0}, {1000, 0, 0})).segments[0].points.size(),
              static_cast<std::size_t>(kTraceMaxSteps) + 1);
    const TrackSpine still = Traced(Track({Vertex({3, 3, 3}, kEast, 0, 0), Vertex({3, 3, 3}, kEast, 0, 0)}));
    for (const DrawnPoint& p : still.drawnPoints)
        EXPECT_TRUE(Finite(p.p1) && Finite(p.p2) && Finite(p.p7));
}

TEST(TrackStyles, EveryStyleHasAPlausibleCrossSectionLaidOutAroundTheHeartline) {
    for (int style = -1; style <= kStyleCount; ++style) {
        const RailLayout& l = RailLayoutOf(style);
        SCOPED_TRACE(style);
        EXPECT_TRUE(l.p2.x == -l.p3.x && l.p2.y == l.p3.y && l.p2.x < 0.0f) << "rails mirrored, left at -x";
        EXPECT_TRUE(-l.p2.y >= 1.1f && -l.p2.y <= 1.5f);
        EXPECT_EQ(l.p1.x, 0.0f);
        EXPECT_LT(l.p1.y, l.p2.y);
        EXPECT_LE(l.p4.y, l.p2.y);
        EXPECT_TRUE(l.p4.x == -l.p5.x && l.p6.x == -l.p7.x) << "mirrored pairs";
        EXPECT_TRUE(style < 9 || style > 12 || l.p6.x < l.p2.x - 0.3f) << "the wings reach outside the rails";
        if (style < 0) continue;
        const TrackSpine spine = Level(0.0f, 0.0f, style);
        ASSERT_EQ(spine.drawnPoints.size(), 21u); // style 13 is traced like the others
        const DrawnPoint& p = spine.drawnPoints[7];
        const Vector3 heart{14.0f, 10.0f, 0.0f};
        // Heading +x: local right (+x) is world +z and local up is world +y.
        const std::pair<Vector3, Vector3> pairs[] = {{p.p1, l.p1}, {p.p2, l.p2}, {p.p3, l.p3}, {p.p4, l.p4},
                                                     {p.p5, l.p5}, {p.p6, l.p6}, {p.p7, l.p7}};
        for (const auto& [world, local] : pairs)
            EXPECT_NEAR(Distance(world, {heart.x, heart.y + local.y, heart.z + local.x}), 0.0, 1e-3);
    }
    EXPECT_LT(RailLayoutOf(5).p1.y, RailLayoutOf(0).p1.y); // the truss reaches deeper than the spine
    EXPECT_NE(RailLayoutOf(2).p2.x, RailLayoutOf(7).p2.x);
}

TEST(Guidelines, StartAtTheStyleOffsetCarriedThroughTheFrame) {
    const std::pair<int, float> offsets[] = {{0, -0.3f},  {1, -0.6f}, {2, 0.6f},  {3, -0.3f}, {4, 0.3f},
                                             {5, -1.0f},  {6, -0.3f}, {7, -0.3f}, {8, -0.3f}, {9, -0.2f},
                                             {12, -0.2f}, {13, 0.0f}, {-1, 0.0f}, {400, 0.0f}};
    for (const auto& [style, offset] : offsets)
        EXPECT_EQ(GuidelineOffset(style), offset) << style;

    const TrackSpine level = Level();
    Vector3 top;
    GuidelineTop(top, level.segments[0].points[3], 2);
    EXPECT_NEAR(Distance(top, {6.0f, 10.6f, 0.0f}), 0.0, 1e-4);
    // Banked a quarter turn to the right, local down points to the left (-z when heading +x).
    const TrackSpine banked = Level(90.0f, 90.0f);
    GuidelineTop(top, banked.segments[0].points[3], 5);
    EXPECT_NEAR(Distance(top, {6.0f, 10.0f, -1.0f}), 0.0, 1e-4);
}

TEST(TraceTrack, ALoopKeepsItsRightSideAndTurnsTheRidersOverAtTheTop) {
    // A vertical loop of radius 20 in the x-y plane, entered heading +x.
    const float k = 0.5523f * 20.0f;
    const Vector3 up{0, 1, 0}, down{0, -1, 0}, west{-1, 0, 0};
    const TrackSpine spine = Traced(Track(
        {Vertex({-40, 10, 0}, kEast, 10, 13), Vertex({0, 10, 0}, kEast, 13, k), Vertex({20, 30, 0}, up, k, k),
         Vertex({0, 50, 0}, west, k, k), Vertex({-20, 30, 0}, down, k, k), Vertex({0, 10, 0}, kEast, k, 13),
         Vertex({40, 10, 0}, kEast, 13, 10)}));
    const std::vector<TracedPoint> points = InDrawnOrder(spine);
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_GT(Column(points[i].frame, 0).z, 0.99f) << i; // local right stays world +z
        if (i > 0) {
            EXPECT_GT(DotProduct(Column(points[i].frame, 1), Column(points[i - 1].frame, 1)), 0.9) << i;
        }
    }
    const TracedPoint& top = spine.segments[2].points.back();
    EXPECT_NEAR(top.position.y, 50.0f, 1e-4f);
    EXPECT_NEAR(Column(top.frame, 1).y, -1.0f, 1e-4f);
    const std::size_t topIndex = spine.segments[0].points.size() + spine.segments[1].points.size() +
                                 spine.segments[2].points.size() - 3;
    EXPECT_GT(spine.drawnPoints.at(topIndex).p2.y, 51.0f); // the rails run above the riders' heads
}

TEST(TraceDemo, TheCircuitClosesWithRailsNearItsHeartlineBanksTowardsTheLowRailAndHoldsItsConnectors) {
    const TrackDocument doc = MakeDemoTrack();
    const TrackSpine spine = Traced(doc);
    ASSERT_EQ(spine.segments.size(), doc.bezier.vertices.size() - 1);
    const std::vector<TracedPoint> points = InDrawnOrder(spine);
    ASSERT_EQ(points.size(), spine.drawnPoints.size());
    ASSERT_GT(points.size(), 100u);
    EXPECT_EQ(Distance(points.front().position, points.back().position), 0.0);
    EXPECT_LT(Distance(spine.drawnPoints.front().p2, spine.drawnPoints.back().p2), 1e-3);
    EXPECT_LT(Distance(spine.drawnPoints.front().p3, spine.drawnPoints.back().p3), 1e-3);
    for (std::size_t k = 0; k < points.size(); ++k) {
        const DrawnPoint& p = spine.drawnPoints[k];
        for (const Vector3& v : {p.p1, p.p2, p.p3, p.p4, p.p5, p.p6, p.p7}) {
            ASSERT_TRUE(Finite(v)) << k;
            EXPECT_LT(Distance(v, points[k].position), 3.0) << k;
        }
        if (k == 0) continue;
        EXPECT_LT(Distance(p.p2, spine.drawnPoints[k - 1].p2), 1.5 * kTraceStep) << k;
        EXPECT_GT(Column(points[k].frame, 1).y, 0.3f) << k; // no part of this circuit runs upside down
    }
    int banked = 0;
    for (std::size_t i = 0; i < spine.segments.size(); ++i) {
        const float roll = doc.bezier.vertices[i].Roll();
        if (std::abs(roll) < 10.0f) continue;
        ++banked;
        const TracedPoint& p = spine.segments[i].points.front();
        Vector3 left, right;
        TransformPoint(left, p.frame, RailLayoutOf(doc.track.trackStyle).p2);
        TransformPoint(right, p.frame, RailLayoutOf(doc.track.trackStyle).p3);
        EXPECT_EQ(right.y<left.y, roll> 0.0f) << i;
    }
    EXPECT_GT(banked, 3);
    const std::vector<BezierVertex>& v = doc.bezier.vertices;
    const auto value = [&](std::size_t i, std::size_t f) {
        return Vector3{v[i].values[f], v[i].values[f + 1], v[i].values[f + 2]};
    };
    int checked = 0; // rail connectors land on the traced curve
    for (const std::vector<RailConnector>& group : doc.railConnectors.groups)
        for (const RailConnector& c : group) {
            Vector3 at, expected;
            ASSERT_TRUE(RailConnectorPosition(spine, c.stretch, c.parameter, at));
            const auto s = static_cast<std::size_t>(c.stretch);
            CubicBezierPoint(expected, value(s, 0), value(s, 6), value(s + 1, 0), value(s + 1, 3),
                             c.parameter);
            EXPECT_LT(Distance(at, expected), 0.05) << c.stretch << " " << c.parameter;
            ++checked;
        }
    EXPECT_GT(checked, 20);
}

TEST(RailConnectors, MissingStretchesFailAndParametersAreClamped) {
    const TrackSpine spine = Level();
    Vector3 at{7.0f, 7.0f, 7.0f};
    for (const auto& [stretch, parameter] :
         {std::pair{-1, 0.5f}, std::pair{1, 0.5f}, std::pair{0, std::numeric_limits<float>::quiet_NaN()}})
        EXPECT_FALSE(RailConnectorPosition(spine, stretch, parameter, at)) << stretch << " " << parameter;
    EXPECT_EQ(Distance(at, {7.0f, 7.0f, 7.0f}), 0.0) << "a failed lookup leaves the output alone";
    const struct {
        float parameter, x;
        double tolerance;
    } cases[] = {{1.5f, 40.0f, 1e-5}, {-0.2f, 0.0f, 1e-5}, {0.3f, 12.0f, 1e-3}};
    for (const auto& c : cases) {
        ASSERT_TRUE(RailConnectorPosition(spine, 0, c.parameter, at));
        EXPECT_LT(Distance(at, {c.x, 10.0f, 0.0f}), c.tolerance) << c.parameter;
    }
}
