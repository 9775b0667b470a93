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

TEST(Angles, DegreesConvertWithTheFifteenDigitPi) {
    EXPECT_EQ(DegToRad(180.0), 3.14159265358979);
    EXPECT_NE(DegToRad(180.0), std::numbers::pi);
    EXPECT_DOUBLE_EQ(DegToRad(-90.0), -3.14159265358979 / 2.0);
    EXPECT_EQ(DegToRad(0.0), 0.0);
}

TEST(Angles, Atan2GivesTheAxesAndTheOrigin) {
    EXPECT_NEAR(Atan2(1.0, 0.0), std::numbers::pi / 2.0, 1e-12);
    EXPECT_NEAR(Atan2(-1.0, 0.0), -std::numbers::pi / 2.0, 1e-12);
    EXPECT_NEAR(Atan2(0.0, -1.0), std::numbers::pi, 1e-12);
    EXPECT_EQ(Atan2(0.0, 1.0), 0.0);
    EXPECT_EQ(Atan2(0.0, 0.0), 0.0);
}

TEST(Angles, Atan2AgreesWithTheLibraryInEveryQuadrant) {
    const double values[] = {-7.5, -1.0, -0.01, 0.3, 2.0, 40.0};
    for (double y : values)
        for (double x : values)
            EXPECT_NEAR(Atan2(y, x), std::atan2(y, x), 1e-12) << "y=" << y << " x=" << x;
}

TEST(Vectors, SubtractGivesTheVectorFromTheFirstPointToTheSecond) {
    Vector3 out;
    VectorSubtract(out, {1.0f, 1.0f, 1.0f}, {3.0f, 2.0f, 1.0f});
    ExpectNear(out, {2.0f, 1.0f, 0.0f}, 0.0f);
    Vector3 a{1.0f, 2.0f, 3.0f};
    VectorSubtract(a, a, {0.0f, 0.0f, 0.0f}); // output may be an operand
    ExpectNear(a, {-1.0f, -2.0f, -3.0f}, 0.0f);
}

TEST(Vectors, CrossProductIsRightHanded) {
    Vector3 out;
    CrossProduct(out, {1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f});
    ExpectNear(out, {0.0f, 0.0f, 1.0f}, 0.0f);
    CrossProduct(out, {0.0f, 0.0f, -1.0f}, {0.0f, 1.0f, 0.0f}); // forward x up = right
    ExpectNear(out, {1.0f, 0.0f, 0.0f}, 0.0f);
}

TEST(Vectors, NormalizeLeavesAZeroVectorUndivided) {
    Vector3 out{9.0f, 9.0f, 9.0f};
    Normalize(out, {0.0f, 0.0f, 0.0f});
    ExpectNear(out, {0.0f, 0.0f, 0.0f}, 0.0f);
    Normalize(out, {3.0f, 0.0f, -4.0f});
    ExpectNear(out, {0.6f, 0.0f, -0.8f});
    EXPECT_NEAR(VectorLength(out), 1.0, 1e-6);
}

TEST(FaceNormals, ATerrainTriangleFacesUpWithUnitLength) {
    // Corners of a grid cell: A = (col - 1, row), B = (col, row), D = (col, row + 1), rows along +z.
    const Vector3 a{0.0f, 0.0f, 0.0f}, b{4.0f, 0.0f, 0.0f}, d{4.0f, 0.0f, 4.0f}, c{0.0f, 0.0f, 4.0f};
    Vector3 first, second;
    FaceNormal(first, b, a, d);
    FaceNormal(second, a, c, d);
    ExpectNear(first, {0.0f, 1.0f, 0.0f});
    ExpectNear(second, {0.0f, 1.0f, 0.0f});
    FaceNormal(first, a, b, d); // the other winding faces down
    ExpectNear(first, {0.0f, -1.0f, 0.0f});
}

TEST(FaceNormals, ASlopeLeansAwayFromTheRiseAndADegenerateTriangleGivesZero) {
    // Ground rising towards +x: the normal leans towards -x.
    const Vector3 a{0.0f, 0.0f, 0.0f}, b{1.0f, 1.0f, 0.0f}, d{1.0f, 1.0f, 1.0f};
    Vector3 n;
    FaceNormal(n, b, a, d);
    ExpectNear(n, {-std::sqrt(0.5f), std::sqrt(0.5f), 0.0f});
    FaceNormal(n, {0.0f, 0.0f, 0.0f}, {1.0f, 1.0f, 1.0f}, {2.0f, 2.0f, 2.0f});
    EXPECT_FALSE(std::isnan(n.x) || std::isnan(n.y) || std::isnan(n.z));
    ExpectNear(n, {0.0f, 0.0f, 0.0f}, 0.0f);
}

TEST(BezierCurve, EndsExactlyOnItsEndPointsWhateverTheControls) {
    const Vector3 p0{1.25f, -3.5f, 7.0f}, p1{-40.0f, 12.75f, 0.1f};
    const Vector3 c1{1000.0f, -999.0f, 3.3f}, c2{-0.7f, 55.5f, -321.0f};
    Vector3 out;
    CubicBezierPoint(out, p0, c1, p1, c2, 0.0);
    ExpectNear(out, p0, 0.0f);
    CubicBezierPoint(out, p0, c1, p1, c2, 1.0);
    ExpectNear(out, p1, 0.0f);
}

TEST(BezierCurve, TakesStartFirstControlEndSecondControl) {
    // Controls at a third and two thirds of a straight line give a point moving evenly with t;
    // any other reading of the arguments bends or reverses it.
    const Vector3 p0{0.0f, 0.0f, 0.0f}, c1{10.0f, 0.0f, 0.0f}, c2{20.0f, 0.0f, 0.0f}, p1{30.0f, 0.0f, 0.0f};
    for (double t : {0.1, 0.25, 0.5, 0.8}) {
        Vector3 out;
        CubicBezierPoint(out, p0, c1, p1, c2, t);
        ExpectNear(out, {static_cast<float>(30.0 * t), 0.0f, 0.0f}, 1e-4f);
    }
    // The curve leaves the start towards the first control point.
    const Vector3 up{0.0f, 9.0f, 0.0f};
    Vector3 early;
    CubicBezierPoint(early, p0, up, p1, c2, 0.001);
    EXPECT_GT(early.y, 0.0f);
    EXPECT_GT(early.y, 10.0f * std::abs(early.x));
}
