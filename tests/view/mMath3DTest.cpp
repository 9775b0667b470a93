// Vectors, angles and curve points: the conversions, the operand order, the quadrants of the
// arctangent, the curve's ends and argument order, and the normals of triangles.
#include "mMath3D.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

void ExpectNear(const Vector3& actual, const Vector3& expected, float tolerance = 1e-5f) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

} // namespace

TEST(Angles, DegreesUseTheFifteenDigitPiAndAtan2MatchesTheLibraryOnAxesAndInEveryQuadrant) {
    EXPECT_EQ(DegToRad(180.0), 3.14159265358979);
    EXPECT_NE(DegToRad(180.0), std::numbers::pi);
    EXPECT_DOUBLE_EQ(DegToRad(-90.0), -3.14159265358979 / 2.0);
    EXPECT_EQ(DegToRad(0.0), 0.0);
    const double values[] = {-7.5, -1.0, -0.01, 0.0, 0.3, 1.0, 40.0};
    for (double y : values)
        for (double x : values)
            EXPECT_NEAR(Atan2(y, x), std::atan2(y, x), 1e-12) << "y=" << y << " x=" << x;
    EXPECT_EQ(Atan2(0.0, 0.0), 0.0);
}

TEST(Vectors, SubtractRunsFromTheFirstPointCrossIsRightHandedAndNormalizeSparesZero) {
    Vector3 out;
    VectorSubtract(out, {1.0f, 1.0f, 1.0f}, {3.0f, 2.0f, 1.0f});
    ExpectNear(out, {2.0f, 1.0f, 0.0f}, 0.0f);
    Vector3 a{1.0f, 2.0f, 3.0f};
    VectorSubtract(a, a, {0.0f, 0.0f, 0.0f}); // output may be an operand
    ExpectNear(a, {-1.0f, -2.0f, -3.0f}, 0.0f);
    CrossProduct(out, {1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f});
    ExpectNear(out, {0.0f, 0.0f, 1.0f}, 0.0f);
    CrossProduct(out, {0.0f, 0.0f, -1.0f}, {0.0f, 1.0f, 0.0f}); // forward x up = right
    ExpectNear(out, {1.0f, 0.0f, 0.0f}, 0.0f);
    out = {9.0f, 9.0f, 9.0f};
    Normalize(out, {0.0f, 0.0f, 0.0f});
    ExpectNear(out, {0.0f, 0.0f, 0.0f}, 0.0f);
    Normalize(out, {3.0f, 0.0f, -4.0f});
    ExpectNear(out, {0.6f, 0.0f, -0.8f});
    EXPECT_NEAR(VectorLength(out), 1.0, 1e-6);
}

TEST(FaceNormals, TerrainTrianglesFaceUpSlopesLeanAwayAndDegenerateOnesGiveZero) {
    // Corners of a grid cell: A = (col - 1, row), B = (col, row), D = (col, row + 1), rows along +z.
    const Vector3 a{0.0f, 0.0f, 0.0f}, b{4.0f, 0.0f, 0.0f}, d{4.0f, 0.0f, 4.0f}, c{0.0f, 0.0f, 4.0f};
    Vector3 n;
    FaceNormal(n, b, a, d);
    ExpectNear(n, {0.0f, 1.0f, 0.0f});
    FaceNormal(n, a, c, d);
    ExpectNear(n, {0.0f, 1.0f, 0.0f});
    FaceNormal(n, a, b, d); // the other winding faces down
    ExpectNear(n, {0.0f, -1.0f, 0.0f});
    FaceNormal(n, {1.0f, 1.0f, 0.0f}, a, {1.0f, 1.0f, 1.0f}); // rising towards +x leans to -x
    ExpectNear(n, {-std::sqrt(0.5f), std::sqrt(0.5f), 0.0f});
    FaceNormal(n, {0.0f, 0.0f, 0.0f}, {1.0f, 1.0f, 1.0f}, {2.0f, 2.0f, 2.0f});
    EXPECT_FALSE(std::isnan(n.x) || std::isnan(n.y) || std::isnan(n.z));
    ExpectNear(n, {0.0f, 0.0f, 0.0f}, 0.0f);
}

TEST(BezierCurve, EndsOnItsEndPointsAndTakesStartFirstControlEndSecondControl) {
    const Vector3 p0{1.25f, -3.5f, 7.0f}, p1{-40.0f, 12.75f, 0.1f};
    const Vector3 c1{1000.0f, -999.0f, 3.3f}, c2{-0.7f, 55.5f, -321.0f};
    Vector3 out;
    CubicBezierPoint(out, p0, c1, p1, c2, 0.0);
    ExpectNear(out, p0, 0.0f);
    CubicBezierPoint(out, p0, c1, p1, c2, 1.0);
    ExpectNear(out, p1, 0.0f);
    // Controls at a third and two thirds of a straight line give a point moving evenly with t;
    // any other reading of the arguments bends or reverses it.
    const Vector3 s0{0.0f, 0.0f, 0.0f}, s1{10.0f, 0.0f, 0.0f}, s2{20.0f, 0.0f, 0.0f}, s3{30.0f, 0.0f, 0.0f};
    for (double t : {0.1, 0.25, 0.5, 0.8}) {
        CubicBezierPoint(out, s0, s1, s3, s2, t);
        ExpectNear(out, {static_cast<float>(30.0 * t), 0.0f, 0.0f}, 1e-4f);
    }
    // The curve leaves the start towards the first control point.
    CubicBezierPoint(out, s0, {0.0f, 9.0f, 0.0f}, s3, s2, 0.001);
    EXPECT_GT(out.y, 0.0f);
    EXPECT_GT(out.y, 10.0f * std::abs(out.x));
}
