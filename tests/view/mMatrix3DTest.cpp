// 4 x 4 matrices: the storage layout, rotations turning the right way, the order of a product,
// double-precision sums and transposing in place.
#include "mMatrix3D.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr float kQuarterTurn = static_cast<float>(3.14159265358979 / 2.0);

Vector3 Apply(const Matrix4& m, Vector3 p) {
    TransformPoint(p, m, p);
    return p;
}

void ExpectNear(const Vector3& actual, const Vector3& expected, float tolerance = 1e-5f) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

Matrix4 Counting() {
    Matrix4 m;
    for (std::size_t i = 0; i < 16; ++i)
        m.m[i] = static_cast<float>(i);
    return m;
}

} // namespace

TEST(MatrixLayout, TranslationLivesInTheLastColumnAndTheBottomRowIsIgnored) {
    Matrix4 t;
    MatrixTranslate(t, 1.0f, 2.0f, 3.0f);
    EXPECT_EQ(t.m[3], 1.0f);
    EXPECT_EQ(t.m[7], 2.0f);
    EXPECT_EQ(t.m[11], 3.0f);
    EXPECT_EQ(t.At(3, 3), 1.0f);
    ExpectNear(Apply(t, {0.0f, 0.0f, 0.0f}), {1.0f, 2.0f, 3.0f}, 0.0f);
    ExpectNear(Apply(t, {-1.0f, 0.5f, 10.0f}), {0.0f, 2.5f, 13.0f}, 0.0f);
    MatrixIdentity(t);
    t.m[12] = 5.0f; // a w that is never divided by
    t.m[15] = 2.0f;
    ExpectNear(Apply(t, {1.0f, 2.0f, 3.0f}), {1.0f, 2.0f, 3.0f}, 0.0f);
}

TEST(Rotations, PositiveAnglesTurnCounterClockwiseSeenFromThePositiveAxis) {
    Matrix4 r;
    MatrixRotateY(r, kQuarterTurn);
    ExpectNear(Apply(r, {0.0f, 0.0f, -1.0f}), {-1.0f, 0.0f, 0.0f}); // turning left by yaw
    ExpectNear(Apply(r, {0.0f, 0.0f, 1.0f}), {1.0f, 0.0f, 0.0f});
    MatrixRotateX(r, kQuarterTurn);
    ExpectNear(Apply(r, {0.0f, 0.0f, -1.0f}), {0.0f, 1.0f, 0.0f}); // pitching the nose up
    ExpectNear(Apply(r, {0.0f, 1.0f, 0.0f}), {0.0f, 0.0f, 1.0f});
    MatrixRotateZ(r, kQuarterTurn);
    ExpectNear(Apply(r, {1.0f, 0.0f, 0.0f}), {0.0f, 1.0f, 0.0f});
    ExpectNear(Apply(r, {0.0f, 1.0f, 0.0f}), {-1.0f, 0.0f, 0.0f});
}

TEST(MatrixProduct, TheRightFactorActsFirstIdentityIsNeutralAndTheOutputMayBeAFactor) {
    Matrix4 move, turn, product;
    MatrixTranslate(move, 5.0f, 0.0f, 0.0f);
    MatrixRotateY(turn, kQuarterTurn);
    MatrixMultiply(product, move, turn);
    ExpectNear(Apply(product, {0.0f, 0.0f, -1.0f}), {4.0f, 0.0f, 0.0f});
    MatrixMultiply(product, turn, move);
    ExpectNear(Apply(product, {0.0f, 0.0f, -1.0f}), {-1.0f, 0.0f, -5.0f});

    const Matrix4 m = Counting();
    Matrix4 identity;
    MatrixIdentity(identity);
    MatrixMultiply(product, identity, m);
    EXPECT_EQ(product.m, m.m);
    MatrixMultiply(product, m, identity);
    EXPECT_EQ(product.m, m.m);
    Matrix4 aliased = m;
    MatrixMultiply(product, m, m);
    MatrixMultiply(aliased, aliased, aliased);
    EXPECT_EQ(aliased.m, product.m);
    EXPECT_EQ(product.At(0, 0), 0 * 0 + 1 * 4 + 2 * 8 + 3 * 12);
    EXPECT_EQ(product.At(3, 1), 12 * 1 + 13 * 5 + 14 * 9 + 15 * 13);
}

TEST(MatrixProduct, SumsInDoublePrecision) {
    // 1e8 + 1 - 1e8 is 0 when summed in single precision and 1 in double.
    Matrix4 a, b, product;
    a.m = {1e8f, 1.0f, -1e8f, 0.0f, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1.0f};
    b.m = {1.0f, 0, 0, 0, 1.0f, 0, 0, 0, 1.0f, 0, 0, 0, 0, 0, 0, 1.0f};
    MatrixMultiply(product, a, b);
    EXPECT_EQ(product.At(0, 0), 1.0f);
}

TEST(MatrixTranspose, SwapsRowsAndColumnsEvenInPlaceAndUndoesARotation) {
    const Matrix4 m = Counting();
    Matrix4 t, inPlace = m;
    MatrixTranspose(t, m);
    MatrixTranspose(inPlace, inPlace);
    EXPECT_EQ(inPlace.m, t.m);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            EXPECT_EQ(t.At(r, c), m.At(c, r));
    MatrixTranspose(inPlace, inPlace);
    EXPECT_EQ(inPlace.m, m.m);
    Matrix4 r, both;
    MatrixRotateY(r, 0.9f);
    MatrixTranspose(t, r);
    MatrixMultiply(both, t, r);
    ExpectNear(Apply(both, {1.0f, 2.0f, 3.0f}), {1.0f, 2.0f, 3.0f});
}
