#include "Noise.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kTwoPi = 6.283185307179586;

std::uint32_t Hash(std::uint32_t a, std::uint32_t b, std::uint32_t seed) {
    std::uint32_t h = seed * 0x9E3779B9u ^ a * 0x85EBCA6Bu ^ b * 0xC2B2AE35u;
    h ^= h >> 16;
    h *= 0x7FEB352Du;
    h ^= h >> 15;
    h *= 0x846CA68Bu;
    h ^= h >> 16;
    return h;
}

int WrapIndex(int i, int period) {
    const int m = i % period;
    return m < 0 ? m + period : m;
}

double Fade(double t) {
    return t * t * t * (t * (t * 6 - 15) + 10);
}

double CornerDot(int ix, int iy, int cellsU, int cellsV, double dx, double dy, std::uint32_t seed) {
    const std::uint32_t h = Hash(static_cast<std::uint32_t>(WrapIndex(ix, cellsU)),
                                 static_cast<std::uint32_t>(WrapIndex(iy, cellsV)), seed);
    const double angle = (h >> 8) * (kTwoPi / 16777216.0);
    return std::cos(angle) * dx + std::sin(angle) * dy;
}

} // namespace

std::uint64_t TextureRandom::Next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

double TextureRandom::Unit() {
    return static_cast<double>(Next() >> 11) * (1.0 / 9007199254740992.0);
}

double HashUnit(std::uint32_t a, std::uint32_t b, std::uint32_t seed) {
    return (Hash(a, b, seed) >> 8) * (1.0 / 16777216.0);
}

double WrapDelta(double a, double b) {
    double d = a - b;
    return d - std::floor(d + 0.5);
}

double GradientNoise(double u, double v, int cellsU, int cellsV, std::uint32_t seed) {
    const double x = u * cellsU;
    const double y = v * cellsV;
    const int ix = static_cast<int>(std::floor(x));
    const int iy = static_cast<int>(std::floor(y));
    const double fx = x - ix;
    const double fy = y - iy;
    const double n00 = CornerDot(ix, iy, cellsU, cellsV, fx, fy, seed);
    const double n10 = CornerDot(ix + 1, iy, cellsU, cellsV, fx - 1, fy, seed);
    const double n01 = CornerDot(ix, iy + 1, cellsU, cellsV, fx, fy - 1, seed);
    const double n11 = CornerDot(ix + 1, iy + 1, cellsU, cellsV, fx - 1, fy - 1, seed);
    const double sx = Fade(fx);
    const double sy = Fade(fy);
    const double bottom = n00 + (n10 - n00) * sx;
    const double top = n01 + (n11 - n01) * sx;
    return 1.4 * (bottom + (top - bottom) * sy);
}

double Fbm(double u, double v, const FbmParams& params) {
    double sum = 0;
    double weight = 1;
    double total = 0;
    for (int k = 0; k < params.octaves; ++k) {
        sum += weight * GradientNoise(u, v, params.cellsU << k, params.cellsV << k,
                                      params.seed + 7919u * static_cast<unsigned>(k));
        total += weight;
        weight *= params.gain;
    }
    return sum / total;
}

double RidgedFbm(double u, double v, const FbmParams& params) {
    double sum = 0;
    double weight = 1;
    double total = 0;
    for (int k = 0; k < params.octaves; ++k) {
        const double n = GradientNoise(u, v, params.cellsU << k, params.cellsV << k,
                                       params.seed + 104729u * static_cast<unsigned>(k));
        const double ridge = 1.0 - std::min(1.0, std::abs(n));
        sum += weight * ridge * ridge;
        total += weight;
        weight *= params.gain;
    }
    return sum / total;
}

CellDistances Cellular(double u, double v, int cells, std::uint32_t seed) {
    const double x = u * cells;
    const double y = v * cells;
    const int ix = static_cast<int>(std::floor(x));
    const int iy = static_cast<int>(std::floor(y));
    CellDistances result{1e9, 1e9, 0};
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const auto cu = static_cast<std::uint32_t>(WrapIndex(ix + dx, cells));
            const auto cv = static_cast<std::uint32_t>(WrapIndex(iy + dy, cells));
            const double px = ix + dx + 0.1 + 0.8 * HashUnit(cu, cv, seed);
            const double py = iy + dy + 0.1 + 0.8 * HashUnit(cu, cv, seed ^ 0xA511E9B3u);
            const double d = std::hypot(px - x, py - y);
            if (d < result.nearest) {
                result.second = result.nearest;
                result.nearest = d;
                result.id = cu + cv * static_cast<std::uint32_t>(cells);
            } else if (d < result.second) {
                result.second = d;
            }
        }
    }
    return result;
}
