#include "mHeightMap.h"

#include <algorithm>
#include <cmath>

namespace {

// A fresh terrain of columns x rows spanning the 1024 units, heights zero, without textures.
TerrainData EmptyTerrain(int columns, int rows, bool water) {
    TerrainData terrain;
    terrain.columns = columns;
    terrain.rows = rows;
    terrain.spacingX = kTerrainExtent / static_cast<float>(columns);
    terrain.spacingZ = kTerrainExtent / static_cast<float>(rows);
    terrain.waterEnabled = water;
    terrain.heights.Resize(columns, rows);
    return terrain;
}

// The sample nearest to grid point i when count samples are stepped through at count / side per
// point (halves to even, as every rounding here).
int NearestSample(int i, int count, int side) {
    const double step = static_cast<double>(count) / static_cast<double>(side);
    const long nearest = std::lrint(static_cast<double>(i) * step);
    return static_cast<int>(std::clamp<long>(nearest, 0, count - 1));
}

} // namespace

int GreyOf(const std::uint8_t* bgr) {
    // A sum divided by 3 ends in .0, .33 or .67, never in a half: adding 1 before the integer
    // division rounds it to the nearest whole number.
    return (bgr[0] + bgr[1] + bgr[2] + 1) / 3;
}

TerrainData HeightMapToTerrain(const cDIBSection& picture) {
    if (picture.IsEmpty()) return {};
    const int columns = std::min(picture.Width(), kHeightMapMaxSide);
    const int rows = std::min(picture.Height(), kHeightMapMaxSide);
    TerrainData terrain = EmptyTerrain(columns, rows, false);
    for (int r = 0; r < rows; ++r) {
        const std::uint8_t* pixel = picture.Row(r);
        for (int c = 0; c < columns; ++c, pixel += 3) {
            const int height = std::clamp(GreyOf(pixel) - kHeightMapGreyOffset,
                                          static_cast<int>(kImportFloor), static_cast<int>(kImportCeiling));
            terrain.heights.At(r, c) = static_cast<float>(height);
        }
    }
    return terrain;
}

cDIBSection TerrainToHeightMap(const TerrainData& terrain) {
    cDIBSection picture;
    const HeightGrid& heights = terrain.heights;
    if (heights.Empty() || !picture.Create(heights.Columns(), heights.Rows())) return {};
    for (int r = 0; r < heights.Rows(); ++r) {
        std::uint8_t* pixel = picture.Row(r);
        for (int c = 0; c < heights.Columns(); ++c, pixel += 3) {
            // Compared as a double so that heights beyond the int range clamp too.
            const double grey = std::trunc(static_cast<double>(heights.At(r, c))) + kHeightMapGreyOffset;
            const auto value =
                static_cast<std::uint8_t>(std::isnan(grey) ? 0.0 : std::clamp(grey, 0.0, 255.0));
            std::fill_n(pixel, 3, value);
        }
    }
    return picture;
}

SampleGrid PictureGreys(const cDIBSection& picture) {
    SampleGrid greys;
    greys.Resize(picture.Width(), picture.Height());
    for (int r = 0; r < picture.Height(); ++r) {
        const std::uint8_t* pixel = picture.Row(r);
        for (int c = 0; c < picture.Width(); ++c, pixel += 3)
            greys.At(r, c) = static_cast<float>(GreyOf(pixel));
    }
    return greys;
}

int PictureDetailSide(PictureDetail detail) {
    switch (detail) {
    case PictureDetail::Low:
        return 102;
    case PictureDetail::High:
        return 409;
    case PictureDetail::Normal:
        break;
    }
    return 205;
}

TerrainData PictureToTerrain(const SampleGrid& greys, const PictureImportOptions& options) {
    if (greys.Empty()) return {};
    const int side = PictureDetailSide(options.detail);
    TerrainData terrain = EmptyTerrain(side, side, options.water);
    const float water = options.water ? options.waterHeight : 0.0f;
    for (int r = 0; r < side; ++r) {
        const int sampleRow = NearestSample(r, greys.rows, side);
        for (int c = 0; c < side; ++c) {
            float v = greys.At(sampleRow, NearestSample(c, greys.columns, side));
            if (options.invert) v = 255.0f - v;
            float h = v - water;
            if (h < kImportFloor) h = kImportFloor;
            if (h > 0.0f) h /= 1.7f;
            terrain.heights.At(r, c) = h;
        }
    }
    return terrain;
}
