#pragma once
// Noise that tiles: every function here takes texture coordinates u, v in [0, 1) and repeats
// with period 1 along both axes, because every lattice is an integer number of cells per tile and
// its points are hashed modulo that number. Results depend only on the arguments and the seed.

#include <cstdint>

// A deterministic random stream (splitmix64) for placing strokes, craters and bubbles.
class TextureRandom {
public:
    explicit TextureRandom(std::uint64_t seed) : state_(seed) {}
    std::uint64_t Next();
    // Uniform in [0, 1).
    double Unit();
    double Range(double low, double high) { return low + (high - low) * Unit(); }

private:
    std::uint64_t state_;
};

// Gradient noise with cellsU x cellsV lattice cells per tile; about -1 .. 1, 0 at lattice points.
double GradientNoise(double u, double v, int cellsU, int cellsV, std::uint32_t seed);

// Fractal sum of gradient noise: octave k has cells * 2^k cells and weight gain^k; the sum is
// divided by the total weight, so it stays about -1 .. 1 (most values within -0.5 .. 0.5).
struct FbmParams {
    int cellsU = 4;
    int cellsV = 4;
    int octaves = 5;
    double gain = 0.5;
    std::uint32_t seed = 1;
};
double Fbm(double u, double v, const FbmParams& params);

// Ridged fractal: sharp crests where the noise crosses zero; 0 .. 1, crests near 1.
double RidgedFbm(double u, double v, const FbmParams& params);

// Distances to the nearest and second-nearest feature point of a cellular pattern with cells x
// cells cells per tile, one jittered point per cell, measured across the tile's wrap; in units of
// one cell. id identifies the nearest point's cell.
struct CellDistances {
    double nearest = 0;
    double second = 0;
    std::uint32_t id = 0;
};
CellDistances Cellular(double u, double v, int cells, std::uint32_t seed);

// A hash of integers to [0, 1), for per-cell values.
double HashUnit(std::uint32_t a, std::uint32_t b, std::uint32_t seed);

// The shortest signed difference a - b on a circle of circumference 1.
double WrapDelta(double a, double b);
