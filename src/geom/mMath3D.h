#pragma once
// Vectors, angles and curve points for the 3D view: pure functions without state.
//
// World units, y up, right-handed (the terrain lies in the x-z plane). Components are single
// precision; every function computes in double precision and rounds each stored component once.
// Results go to an output argument the caller owns (which may be one of the inputs); nothing
// allocates.

// pi to 15 digits: the value the product has always used for angle conversions.
inline constexpr double kPi = 3.14159265358979;

struct Vector3 {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
};

// degrees x pi / 180.
double DegToRad(double degrees);

// out = b - a: the vector from a to b (the second operand is subtracted from the third).
void VectorSubtract(Vector3& out, const Vector3& a, const Vector3& b);

// Four-quadrant arctangent of y / x in radians (-pi .. pi), built on a plain arctangent with
// +-pi corrections by the signs; x = 0 gives +-pi/2 by the sign of y, and (0, 0) gives 0.
double Atan2(double y, double x);

// The point at t (0..1) of the cubic Bézier curve from p0 to p1, with c1 the control point near
// p0 and c2 the one near p1. The argument order start, first control, end, second control is the
// one every caller uses.
void CubicBezierPoint(Vector3& out, const Vector3& p0, const Vector3& c1, const Vector3& p1,
                      const Vector3& c2, double t);

// out = a x b.
void CrossProduct(Vector3& out, const Vector3& a, const Vector3& b);
double DotProduct(const Vector3& a, const Vector3& b);
double VectorLength(const Vector3& v);

// out = v / |v|; a zero length leaves the vector undivided.
void Normalize(Vector3& out, const Vector3& v);

// The unit normal of the triangle a, b, c: (a - c) x (b - c) normalised (zero length kept as is).
// Counter-clockwise points seen from the front give the normal towards the viewer.
void FaceNormal(Vector3& out, const Vector3& a, const Vector3& b, const Vector3& c);
