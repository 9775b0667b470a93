#pragma once
// 4 x 4 matrices for the 3D view: pure functions without state.
//
// Sixteen single floats stored row by row: element (row r, column c) is at index 4r + c. Points
// are column vectors multiplied on the right (p' = M p), so a translation lives in elements 3, 7
// and 11 and the bottom row is (0, 0, 0, 1). Angles are radians. Sums and products are computed
// in double precision and each stored element is rounded to single precision once.
//
// A camera or track frame with yaw (about y) and pitch (about x) is Identity * RotateY(yaw) *
// RotateX(pitch); a local offset is carried into the world with TransformPoint. Local -z is then
// the forward direction, +y up and +x to the right.

#include "mMath3D.h"

#include <array>

struct Matrix4 {
    std::array<float, 16> m{};

    // The element's place in m: rows of four.
    static std::size_t Index(int row, int column) {
        return 4 * static_cast<std::size_t>(row) + static_cast<std::size_t>(column);
    }
    float At(int row, int column) const { return m[Index(row, column)]; }
};

void MatrixIdentity(Matrix4& out);

// Right-handed rotations for column vectors: a positive angle turns counter-clockwise when looking
// down the axis towards the origin (RotateY(+90 degrees) carries -z to -x).
void MatrixRotateX(Matrix4& out, float angle);
void MatrixRotateY(Matrix4& out, float angle);
void MatrixRotateZ(Matrix4& out, float angle);

// Identity with elements 3, 7, 11 = x, y, z (world units).
void MatrixTranslate(Matrix4& out, float x, float y, float z);

// out = a * b: b is applied first. out may be a or b.
void MatrixMultiply(Matrix4& out, const Matrix4& a, const Matrix4& b);

// out(r, c) = m(c, r). out may be m.
void MatrixTranspose(Matrix4& out, const Matrix4& m);

// out = the upper three rows of m applied to (p, 1): rotation plus translation, no division by w.
// out may be p.
void TransformPoint(Vector3& out, const Matrix4& m, const Vector3& p);
