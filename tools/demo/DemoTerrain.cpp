// The demo landscape: one smooth height function of world (x, z), sampled onto a grid of any size,
// so that every grid size shows the same hills, valley and lake.
#include "DemoParts.h"

#include <algorithm>
#include <numbers>

namespace demo {
namespace {

// The plain the circuit stands on stays within about 0.9..2.1 units so that the lowest track
// (5 units at the station and the brakes) keeps well clear of the ground.
constexpr double kPlainHeight = 1.5;

// The lake: a bowl south-east of the centre, its middle about 8 units below the water plane
// (height 0); the shore lies some 40 to 50 units from the middle.
constexpr double kLakeX = 50.0;
constexpr double kLakeZ = 115.0;
constexpr double kLakeRadius = 60.0; // where the bowl meets the plain
constexpr double kLakeDepth = 9.5;

// The ranges start beyond the scene's central square and reach full height near the edges.
constexpr double kRangeStart = 255.0;
constexpr double kRangeWidth = 220.0;

// Grid heights stay inside the limits the simulator accepts (water floor -10, ceiling 150).
constexpr double kLowest = -9.5;
constexpr double kHighest = 140.0;

double SmoothStep(double edge0, double edge1, double v) {
    const double t = std::clamp((v - edge0) / (edge1 - edge0), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

double Bump(double x, double z, double cx, double cz, double radius) {
    const double dx = (x - cx) / radius;
    const double dz = (z - cz) / radius;
    return std::exp(-(dx * dx + dz * dz));
}

double Plain(double x, double z) {
    return kPlainHeight + 0.4 * std::sin(x / 41.0 + 0.3) * std::cos(z / 57.0 - 0.8) +
           0.2 * std::sin((x + z) / 29.0);
}

// Rounded hills placed in the open ground between the legs of the circuit, far enough from the
// track that their flanks have died away under it.
double RollingHills(double x, double z) {
    return 9.0 * Bump(x, z, -85.0, 60.0, 32.0) + 14.0 * Bump(x, z, 150.0, 50.0, 38.0) +
           6.0 * Bump(x, z, -95.0, -105.0, 24.0) + 11.0 * Bump(x, z, 120.0, 205.0, 30.0);
}

// 1 along the valley floor, which runs from the lake out towards the south-east corner.
double ValleyFloor(double x, double z) {
    constexpr double kDirX = 0.743; // unit direction of the valley, about 42 degrees south of east
    constexpr double kDirZ = 0.669;
    const double dx = x - kLakeX;
    const double dz = z - kLakeZ;
    const double along = dx * kDirX + dz * kDirZ;
    const double across = (dz * kDirX - dx * kDirZ) / 45.0;
    return std::exp(-across * across) * SmoothStep(0.0, 80.0, along);
}

// A ring of ranges whose foot wobbles around the scene, with a few higher peaks standing on it.
double Ranges(double x, double z) {
    const double angle = std::atan2(z, x);
    const double foot = kRangeStart + 25.0 * std::sin(2.0 * angle + 1.0);
    const double rise = SmoothStep(foot, foot + kRangeWidth, std::hypot(x, z));
    if (rise <= 0.0) return 0.0;
    const double crest = 55.0 + 15.0 * std::sin(3.0 * angle + 0.7) + 8.0 * std::sin(5.0 * angle - 1.3) +
                         4.0 * std::sin(x / 53.0 + 0.4) * std::sin(z / 71.0 - 0.2);
    const double peaks = 25.0 * Bump(x, z, -420.0, -380.0, 90.0) + 28.0 * Bump(x, z, 430.0, -300.0, 80.0) +
                         22.0 * Bump(x, z, -460.0, 250.0, 85.0) + 18.0 * Bump(x, z, 0.0, -480.0, 70.0);
    return rise * (crest + peaks) * (1.0 - 0.85 * ValleyFloor(x, z));
}

// The bowl is stretched a little differently in each direction so that the shore is not a circle.
double LakeBowl(double x, double z) {
    const double dx = x - kLakeX;
    const double dz = z - kLakeZ;
    const double angle = std::atan2(dz, dx);
    const double d =
        std::hypot(dx, dz) * (1.0 + 0.15 * std::sin(2.0 * angle + 0.5) + 0.08 * std::sin(3.0 * angle - 1.0));
    if (d >= kLakeRadius) return 0.0;
    return kLakeDepth * 0.5 * (1.0 + std::cos(std::numbers::pi * d / kLakeRadius));
}

} // namespace

double GroundHeight(double x, double z) {
    const double h = Plain(x, z) + RollingHills(x, z) + Ranges(x, z) - LakeBowl(x, z);
    return std::clamp(h, kLowest, kHighest);
}

TerrainData MakeDemoTerrain(int side) {
    side = std::clamp(side, 1, kMaxGridSide);
    TerrainData t;
    t.columns = side;
    t.rows = side;
    t.spacingX = kTerrainExtent / static_cast<float>(side);
    t.spacingZ = t.spacingX;
    t.groundTexture = kDefaultGroundTexture;
    t.groundTiling = kDefaultGroundTiling;
    t.detailTexture = kDefaultDetailTexture;
    t.detailTiling = kDefaultDetailTiling;
    t.waterEnabled = true;
    t.waterTexture = kDefaultWaterTexture;
    t.waterTiling = kDefaultWaterTiling;
    t.reflection = kDefaultReflection;
    t.heights.Resize(side, side);
    const double middle = (side - 1) / 2.0;
    for (int r = 0; r < side; ++r) {
        const double z = t.spacingZ * (r - middle);
        for (int c = 0; c < side; ++c)
            t.heights.At(r, c) = static_cast<float>(GroundHeight(t.spacingX * (c - middle), z));
    }
    return t;
}

} // namespace demo
