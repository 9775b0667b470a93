#include "mMath3D.h"

#include <cmath>

namespace {

Vector3 Rounded(double x, double y, double z) {
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

} // namespace

double DegToRad(double degrees) {
    return degrees * kPi / 180.0;
}

void VectorSubtract(Vector3& out, const Vector3& a, const Vector3& b) {
    out = Rounded(double(b.x) - a.x, double(b.y) - a.y, double(b.z) - a.z);
}

double Atan2(double y, double x) {
    if (x == 0.0) {
        if (y > 0.0) return kPi / 2.0;
        if (y < 0.0) return -kPi / 2.0;
        return 0.0;
    }
    const double angle = std::atan(y / x);
    if (x > 0.0) return angle;
    return y >= 0.0 ? angle + kPi : angle - kPi;
}

void CubicBezierPoint(Vector3& out, const Vector3& p0, const Vector3& c1, const Vector3& p1,
                      const Vector3& c2, double t) {
    const double s = 1.0 - t;
    const double w0 = s * s * s;
    const double w1 = 3.0 * t * s * s;
    const double w2 = 3.0 * t * t * s;
    const double w3 = t * t * t;
    out =
        Rounded(w0 * p0.x + w1 * c1.x + w2 * c2.x + w3 * p1.x, w0 * p0.y + w1 * c1.y + w2 * c2.y + w3 * p1.y,
                w0 * p0.z + w1 * c1.z + w2 * c2.z + w3 * p1.z);
}

void CrossProduct(Vector3& out, const Vector3& a, const Vector3& b) {
    out = Rounded(double(a.y) * b.z - double(a.z) * b.y, double(a.z) * b.x - double(a.x) * b.z,
                  double(a.x) * b.y - double(a.y) * b.x);
}

double DotProduct(const Vector3& a, const Vector3& b) {
    return double(a.x) * b.x + double(a.y) * b.y + double(a.z) * b.z;
}

double VectorLength(const Vector3& v) {
    return std::sqrt(DotProduct(v, v));
}

void Normalize(Vector3& out, const Vector3& v) {
    const double length = VectorLength(v);
    if (length == 0.0) {
        out = v;
        return;
    }
    out = Rounded(v.x / length, v.y / length, v.z / length);
}

void FaceNormal(Vector3& out, const Vector3& a, const Vector3& b, const Vector3& c) {
    // The cross product is kept in double precision so that the division rounds only once.
    const double ux = double(a.x) - c.x, uy = double(a.y) - c.y, uz = double(a.z) - c.z;
    const double vx = double(b.x) - c.x, vy = double(b.y) - c.y, vz = double(b.z) - c.z;
    const double nx = uy * vz - uz * vy, ny = uz * vx - ux * vz, nz = ux * vy - uy * vx;
    const double length = std::sqrt(nx * nx + ny * ny + nz * nz);
    if (length == 0.0) {
        out = Rounded(nx, ny, nz);
        return;
    }
    out = Rounded(nx / length, ny / length, nz / length);
}
