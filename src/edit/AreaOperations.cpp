#include "AreaOperations.h"

#include <vector>

namespace {

int Width(const GridRect& area) {
    return area.lastColumn - area.firstColumn + 1;
}
int Height(const GridRect& area) {
    return area.lastRow - area.firstRow + 1;
}

// The heights of the area, row by row, before an operation rearranges them.
std::vector<float> CopyOut(const HeightGrid& grid, const GridRect& area) {
    std::vector<float> scratch;
    scratch.reserve(static_cast<std::size_t>(Width(area)) * static_cast<std::size_t>(Height(area)));
    for (int z = area.firstRow; z <= area.lastRow; ++z)
        for (int x = area.firstColumn; x <= area.lastColumn; ++x)
            scratch.push_back(grid.At(z, x));
    return scratch;
}

// Old height of area point (x, z), read from the scratch copy.
float OldAt(const std::vector<float>& scratch, const GridRect& area, int x, int z) {
    const std::size_t row = static_cast<std::size_t>(z - area.firstRow);
    return scratch[row * static_cast<std::size_t>(Width(area)) +
                   static_cast<std::size_t>(x - area.firstColumn)];
}

} // namespace

float GroundLevel(const TerrainData& terrain) {
    return terrain.waterEnabled ? 0.5f : 0.0f;
}

float WaterLevel(const TerrainData& terrain) {
    return terrain.waterEnabled ? -10.0f : 0.0f;
}

GridRect FlipArea(TerrainData& terrain, float cursorX, float cursorZ, int radius) {
    const GridRect area = OperationArea(terrain, cursorX, cursorZ, radius);
    if (area.Empty()) return {};
    const std::vector<float> scratch = CopyOut(terrain.heights, area);
    for (int z = area.firstRow; z <= area.lastRow; ++z)
        for (int x = area.firstColumn; x <= area.lastColumn; ++x)
            terrain.heights.At(z, x) = OldAt(scratch, area, x, area.firstRow + area.lastRow - z);
    return area;
}

GridRect MirrorArea(TerrainData& terrain, float cursorX, float cursorZ, int radius) {
    const GridRect area = OperationArea(terrain, cursorX, cursorZ, radius);
    if (area.Empty()) return {};
    const std::vector<float> scratch = CopyOut(terrain.heights, area);
    for (int z = area.firstRow; z <= area.lastRow; ++z)
        for (int x = area.firstColumn; x <= area.lastColumn; ++x)
            terrain.heights.At(z, x) = OldAt(scratch, area, area.firstColumn + area.lastColumn - x, z);
    return area;
}

GridRect InvertArea(TerrainData& terrain, float cursorX, float cursorZ, int radius) {
    const GridRect area = OperationArea(terrain, cursorX, cursorZ, radius);
    if (area.Empty()) return {};
    const HeightRange range = ScanHeightRange(terrain.heights, area);
    for (int z = area.firstRow; z <= area.lastRow; ++z)
        for (int x = area.firstColumn; x <= area.lastColumn; ++x) {
            float& h = terrain.heights.At(z, x);
            h = static_cast<float>(range.top - h + range.bottom);
        }
    return area;
}

GridRect FlattenArea(TerrainData& terrain, float cursorX, float cursorZ, int radius, float level) {
    const GridRect area = OperationArea(terrain, cursorX, cursorZ, radius);
    for (int z = area.firstRow; z <= area.lastRow; ++z)
        for (int x = area.firstColumn; x <= area.lastColumn; ++x)
            terrain.heights.At(z, x) = level;
    return area;
}

GridRect FlattenToArea(TerrainData& terrain, float cursorX, float cursorZ, int radius, SculptMode mode) {
    // The height range comes from the stroke's area, which is clipped on all four sides; the
    // flattening itself covers the operation area.
    const GridRect stroke = SculptArea(terrain, cursorX, cursorZ, radius);
    if (stroke.Empty()) return {};
    const HeightRange range = ScanHeightRange(terrain.heights, stroke);
    const double level =
        mode == SculptMode::Relational ? range.bottom + (range.top - range.bottom) * 0.5 : range.bottom;
    return FlattenArea(terrain, cursorX, cursorZ, radius, static_cast<float>(level));
}

GridRect ResetTerrain(TerrainData& terrain) {
    if (terrain.heights.Empty()) return {};
    terrain.heights.Fill(GroundLevel(terrain));
    return GridRect::Whole();
}

GridRect AdjustHeights(TerrainData& terrain, float amount, AdjustMode mode) {
    if (terrain.heights.Empty()) return {};
    const double by = amount;
    float* h = terrain.heights.Data();
    for (std::size_t i = 0; i < terrain.heights.Size(); ++i) {
        double adjusted = by;
        if (mode == AdjustMode::Raise) adjusted = h[i] + by;
        if (mode == AdjustMode::Lower) adjusted = h[i] - by;
        h[i] = static_cast<float>(LimitToToolRange(adjusted));
    }
    return GridRect::Whole();
}
