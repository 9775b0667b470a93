#include "mMatrix3D.h"

#include <cmath>

namespace {

// Identity with the 2 x 2 block at rows and columns (i, j) set to the rotation by angle.
void Rotation(Matrix4& out, int i, int j, float angle) {
    const double c = std::cos(static_cast<double>(angle));
    const double s = std::sin(static_cast<double>(angle));
    MatrixIdentity(out);
    out.m[Matrix4::Index(i, i)] = static_cast<float>(c);
    out.m[Matrix4::Index(i, j)] = static_cast<float>(-s);
    out.m[Matrix4::Index(j, i)] = static_cast<float>(s);
    out.m[Matrix4::Index(j, j)] = static_cast<float>(c);
}

} // namespace

void MatrixIdentity(Matrix4& out) {
    out.m.fill(0.0f);
    out.m[0] = out.m[5] = out.m[10] = out.m[15] = 1.0f;
}

// About x: (1,1) = c, (1,2) = -s, (2,1) = s, (2,2) = c.
void MatrixRotateX(Matrix4& out, float angle) {
    Rotation(out, 1, 2, angle);
}

// About y the sine's signs are the other way round, (0,2) = s and (2,0) = -s, because z x x = y.
void MatrixRotateY(Matrix4& out, float angle) {
    Rotation(out, 2, 0, angle);
}

// About z: (0,0) = c, (0,1) = -s, (1,0) = s, (1,1) = c.
void MatrixRotateZ(Matrix4& out, float angle) {
    Rotation(out, 0, 1, angle);
}

void MatrixTranslate(Matrix4& out, float x, float y, float z) {
    MatrixIdentity(out);
    out.m[3] = x;
    out.m[7] = y;
    out.m[11] = z;
}

void MatrixMultiply(Matrix4& out, const Matrix4& a, const Matrix4& b) {
    Matrix4 product;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += double(a.At(r, k)) * b.At(k, c);
            product.m[Matrix4::Index(r, c)] = static_cast<float>(sum);
        }
    out = product;
}

void MatrixTranspose(Matrix4& out, const Matrix4& m) {
    Matrix4 transposed;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            transposed.m[Matrix4::Index(r, c)] = m.At(c, r);
    out = transposed;
}

void TransformPoint(Vector3& out, const Matrix4& m, const Vector3& p) {
    double row[3];
    for (int r = 0; r < 3; ++r)
        row[r] = double(m.At(r, 0)) * p.x + double(m.At(r, 1)) * p.y + double(m.At(r, 2)) * p.z + m.At(r, 3);
    out = {static_cast<float>(row[0]), static_cast<float>(row[1]), static_cast<float>(row[2])};
}
