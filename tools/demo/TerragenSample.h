#pragma once
// Builds Terragen terrain file images for tests, benchmarks and fuzzer seeds: the 16-byte
// signature, the size, point count, scale, planet radius and curvature blocks, then "ALTW" with
// its height scale and base height, the elevations as little-endian 16-bit values, and the "EOF "
// marker. Every number is little-endian.

#include <cstdint>
#include <vector>

struct TerragenSampleOptions {
    int columns = 4; // XPTS
    int rows = 4;    // YPTS
    // Leave out the scale, planet radius and curvature blocks (they are optional in the format, so
    // other programs may write files without them).
    bool omitOptionalBlocks = false;
    bool withEofMarker = true;
};

// The file image with the given elevations (columns x rows of them, in file order; missing ones
// are 0, extra ones are written too).
std::vector<std::uint8_t> MakeTerragenFile(const TerragenSampleOptions& options,
                                           const std::vector<std::int16_t>& elevations);

// A file image whose bytes from offset 81 on are exactly the given pairs: pair k is (a, b) at
// 81 + 2k, 81 + 2k + 1. The byte at 80 is 0. No "EOF " marker follows.
std::vector<std::uint8_t> MakeTerragenFileFromPairs(int columns, int rows,
                                                    const std::vector<std::uint8_t>& pairBytes);

// A rolling landscape of side x side points, for benchmarks and seeds.
std::vector<std::int16_t> RollingTerragenElevations(int side);
