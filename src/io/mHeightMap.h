#pragma once
// Terrains to and from 8-bit pictures: height-map bitmaps (one grey pixel per grid point, both
// ways) and pictures of any kind turned into a terrain of a preset structure.
//
// Pictures are cDIBSections: rows bottom-up, pixels blue, green, red. Picture row r is grid row r
// and pixel column c grid column c, so the picture's bottom edge is the terrain's -z edge. The
// terrains returned carry their size, spacings (1024 / count), heights and water flag; their
// textures are empty for the importer's defaults to fill.

#include "SampleGrid.h"
#include "TerrainModel.h"
#include "cDIBSection.h"

#include <cstdint>

// A height map's grid is at most this many points along each side; pixels beyond are ignored.
inline constexpr int kHeightMapMaxSide = 512;
// Imported heights are kept within these.
inline constexpr float kImportFloor = -10.0f;
inline constexpr float kImportCeiling = 150.0f;
// A grey value is a height this much above it.
inline constexpr int kHeightMapGreyOffset = 50;

// The grey of a pixel: (blue + green + red) / 3 rounded to the nearest whole number.
int GreyOf(const std::uint8_t* bgr);

// One grid point per pixel (at most 512 x 512): height = grey - 50, within -10 .. 150. Empty
// (no columns) for an empty picture.
TerrainData HeightMapToTerrain(const cDIBSection& picture);

// One pixel per grid point: grey = the height's whole part (towards zero) + 50, kept within
// 0 .. 255, in all three channels. Empty for a terrain without heights.
cDIBSection TerrainToHeightMap(const TerrainData& terrain);

// The greys of every pixel, row 0 the bottom row.
SampleGrid PictureGreys(const cDIBSection& picture);

// The three structures a picture can become: 102, 205 or 409 points square.
enum class PictureDetail { Low, Normal, High };
int PictureDetailSide(PictureDetail detail);

struct PictureImportOptions {
    PictureDetail detail = PictureDetail::Normal;
    bool water = false;
    // Subtracted from every grey when water is on: greys below it end up under water.
    float waterHeight = 50.0f;
    bool invert = false;
};

// The terrain a picture's greys become: each grid point takes the nearest sample, stepping through
// the samples at (sample count / side) per point along each axis. A grey v (255 - v when inverted)
// gives h = v - waterHeight (with water) or v; h below -10 becomes -10, h above 0 is divided by 1.7,
// so the brightest grey stands at 150.
TerrainData PictureToTerrain(const SampleGrid& greys, const PictureImportOptions& options);
