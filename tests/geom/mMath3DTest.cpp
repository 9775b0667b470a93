// Vectors, angles, curve points and 4 x 4 matrices: the conversions, the operand order, the
// quadrants of the arctangent, the curve's ends and argument order, the normals of triangles, the
// matrix layout, rotations turning the right way, the order of a product and transposing in place.
#include "mMath3D.h"
#include "mMatrix3D.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

void ExpectNear(const Vector3& actual, const Vector3& expected, float tolerance = 1e-5f) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

constexpr float kQuarterTurn = static_cast<float>(3.14159265358979 / 2.0);

Vector3 Apply(const Matrix4& m, Vector3 p) {
    TransformPoint(p, m, p);
    return p;
}

Matrix4 Counting() {
    Matrix4 m;
    for (std::size_t i = 0; i < 16; ++i)
        m.m[i] = static_cast<float>(i);
    return m;
}

} // namespace

TEST(Angles, DegreesUseTheFifteenDigitPi) {
    EXPECT_EQ(DegToRad(180.0), 3.14159265358979);
    EXPECT_NE(DegToRad(180.0), std::numbers::pi);
}

TEST(Angles, Atan2MatchesTheLibraryOnTheAxesAndInEveryQuadrant) {
    const double values[] = {-7.5, -1.0, -0.01, 0.0, 0.3, 1.0, 40.0};
    for (double y : values)
        for (double x : values)
            EXPECT_NEAR(Atan2(y, x), std::atan2(y, x), 1e-12) << "y=" << y << " x=" << x;
}

TEST(Vectors, SubtractRunsFromTheFirstPointIntoAnyOperand) {
    Vector3 out, a{1.0f, 2.0f, 3.0f};
    VectorSubtract(out, {1.0f, 1.0f, 1.0f}, {3.0f, 2.0f, 1.0f});
    ExpectNear(out, {2.0f, 1.0f, 0.0f}, 0.0f);
    VectorSubtract(a, a, {0.0f, 0.0f, 0.0f}); // output may be an operand
    ExpectNear(a, {-1.0f, -2.0f, -3.0f}, 0.0f);
}

TEST(Vectors, CrossIsRightHandedAndNormalizeSparesZero) {
    Vector3 out;
    CrossProduct(out, {0.0f, 0.0f, -1.0f}, {0.0f, 1.0f, 0.0f}); // forward x up = right
    ExpectNear(out, {1.0f, 0.0f, 0.0f}, 0.0f);
    Normalize(out, {0.0f, 0.0f, 0.0f});
    ExpectNear(out, {0.0f, 0.0f, 0.0f}, 0.0f);
    Normalize(out, {3.0f, 0.0f, -4.0f});
    ExpectNear(out, {0.6f, 0.0f, -0.8f});
    EXPECT_NEAR(VectorLength({3.0f, 0.0f, -4.0f}), 5.0, 1e-6);
}

TEST(FaceNormals, TerrainTrianglesFaceUpSlopesLeanAwayAndDegenerateOnesGiveZero) {
    // Corners of a grid cell: A = (col - 1, row), B = (col, row), D = (col, row + 1), rows along +z.
    const Vector3 a{0.0f, 0.0f, 0.0f}, b{4.0f, 0.0f, 0.0f}, d{4.0f, 0.0f, 4.0f}, c{0.0f, 0.0f, 4.0f};
    Vector3 n;
    FaceNormal(n, b, a, d);
    ExpectNear(n, {0.0f, 1.0f, 0.0f});
    FaceNormal(n, a, c, d);
    ExpectNear(n, {0.0f, 1.0f, 0.0f});
    FaceNormal(n, {1.0f, 1.0f, 0.0f}, a, {1.0f, 1.0f, 1.0f}); // rising towards +x leans to -x
    ExpectNear(n, {-std::sqrt(0.5f), std::sqrt(0.5f), 0.0f});
    FaceNormal(n, {0.0f, 0.0f, 0.0f}, {1.0f, 1.0f, 1.0f}, {2.0f, 2.0f, 2.0f});
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
    CubicBezierPoint(out, s0, {0.0f, 9.0f, 0.0f}, s3, s2, 0.001);
    EXPECT_GT(out.y, 10.0f * std::abs(out.x)) << "the curve leaves the start towards the first control point";
}

TEST(MatrixLayout, TranslationLivesInTheLastColumnAndTheBottomRowIsIgnored) {
    Matrix4 t;
    MatrixTranslate(t, 1.0f, 2.0f, 3.0f);
    EXPECT_TRUE(t.m[3] == 1.0f && t.m[7] == 2.0f && t.m[11] == 3.0f && t.At(3, 3) == 1.0f);
    ExpectNear(Apply(t, {-1.0f, 0.5f, 10.0f}), {0.0f, 2.5f, 13.0f}, 0.0f);
    MatrixIdentity(t);
    t.m[12] = 5.0f; // a w that is never divided by
    t.m[15] = 2.0f;
    ExpectNear(Apply(t, {1.0f, 2.0f, 3.0f}), {1.0f, 2.0f, 3.0f}, 0.0f);
}

TEST(Rotations, PositiveAnglesTurnCounterClockwiseSeenFromThePositiveAxis) {
    Matrix4 r;
    MatrixRotateY(r, kQuarterTurn);
    ExpectNear(Apply(r, {1.0f, 2.0f, 3.0f}), {3.0f, 2.0f, -1.0f}); // yaw turns -z to -x: left
    MatrixRotateX(r, kQuarterTurn);
    ExpectNear(Apply(r, {1.0f, 2.0f, 3.0f}), {1.0f, -3.0f, 2.0f}); // pitch turns -z to +y: nose up
    MatrixRotateZ(r, kQuarterTurn);
    ExpectNear(Apply(r, {1.0f, 2.0f, 3.0f}), {-2.0f, 1.0f, 3.0f});
}

TEST(MatrixProduct, TheRightFactorActsFirst) {
    Matrix4 move, turn, product;
    MatrixTranslate(move, 5.0f, 0.0f, 0.0f);
    MatrixRotateY(turn, kQuarterTurn);
    MatrixMultiply(product, move, turn);
    ExpectNear(Apply(product, {0.0f, 0.0f, -1.0f}), {4.0f, 0.0f, 0.0f});
    MatrixMultiply(product, turn, move);
    ExpectNear(Apply(product, {0.0f, 0.0f, -1.0f}), {-1.0f, 0.0f, -5.0f});
}

TEST(MatrixProduct, IdentityIsNeutralAndTheOutputMayBeAFactor) {
    Matrix4 product, identity;
    const Matrix4 m = Counting();
    MatrixIdentity(identity);
    MatrixMultiply(product, identity, m);
    EXPECT_EQ(product.m, m.m);
    MatrixMultiply(product, m, identity);
    EXPECT_EQ(product.m, m.m);
    Matrix4 aliased = m;
    MatrixMultiply(product, m, m);
    MatrixMultiply(aliased, aliased, aliased);
    EXPECT_EQ(aliased.m, product.m);
    EXPECT_EQ(product.At(3, 1), 12 * 1 + 13 * 5 + 14 * 9 + 15 * 13);
}

TEST(MatrixProduct, SumsAreTakenInDoublePrecision) {
    Matrix4 product;
    // 1e8 + 1 - 1e8 is 0 when summed in single precision and 1 in double.
    Matrix4 a, b;
    a.m = {1e8f, 1.0f, -1e8f, 0.0f, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1.0f};
    b.m = {1.0f, 0, 0, 0, 1.0f, 0, 0, 0, 1.0f, 0, 0, 0, 0, 0, 0, 1.0f};
    MatrixMultiply(product, a, b);
    EXPECT_EQ(product.At(0, 0), 1.0f);
}

TEST(MatrixTranspose, SwapsRowsAndColumnsEvenInPlaceAndUndoesARotation) {
    const Matrix4 m = Counting();
    Matrix4 t, inPlace = m, r, both;
    MatrixTranspose(t, m);
    MatrixTranspose(inPlace, inPlace);
    EXPECT_EQ(inPlace.m, t.m);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(t.At(row, column), m.At(column, row));
    MatrixRotateY(r, 0.9f);
    MatrixTranspose(t, r);
    MatrixMultiply(both, t, r);
    ExpectNear(Apply(both, {1.0f, 2.0f, 3.0f}), {1.0f, 2.0f, 3.0f});
}
