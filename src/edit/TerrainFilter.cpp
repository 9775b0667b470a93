#include "TerrainFilter.h"

#include <algorithm>

namespace {

// Weighted sum of the 3 x 3 neighbourhood of (x, z); points outside the grid count as height 0.
double WeightedSumAtEdge(const HeightGrid& grid, const FilterMatrix& matrix, int x, int z) {
    double sum = 0.0;
    for (int i = 0; i < 9; ++i) {
        const int nz = z + i / 3 - 1;
        const int nx = x + i % 3 - 1;
        const double h = grid.Contains(nz, nx) ? grid.At(nz, nx) : 0.0;
        sum += matrix.m[static_cast<std::size_t>(i)] * h;
    }
    return sum;
}

// The same for a point whose neighbours all lie inside the grid, without the bounds tests. The
// terms are added in the same order, so both give identical results.
double WeightedSumInside(const HeightGrid& grid, const FilterMatrix& matrix, int x, int z) {
    const std::ptrdiff_t stride = grid.Columns();
    const float* centre = grid.Data() + static_cast<std::ptrdiff_t>(z) * stride + x;
    const float* rows[3] = {centre - stride, centre, centre + stride};
    double sum = 0.0;
    for (int i = 0; i < 9; ++i)
        sum += matrix.m[static_cast<std::size_t>(i)] * static_cast<double>(rows[i / 3][i % 3 - 1]);
    return sum;
}

// Filters the points of the rectangle in place, rows first.
void FilterRect(HeightGrid& grid, const FilterMatrix& matrix, const GridRect& rect) {
    const int columns = grid.Columns();
    const int rows = grid.Rows();
    for (int z = rect.firstRow; z <= rect.lastRow; ++z) {
        const bool innerRow = z > 0 && z < rows - 1;
        for (int x = rect.firstColumn; x <= rect.lastColumn; ++x) {
            const bool inside = innerRow && x > 0 && x < columns - 1;
            const double sum =
                inside ? WeightedSumInside(grid, matrix, x, z) : WeightedSumAtEdge(grid, matrix, x, z);
            grid.At(z, x) = static_cast<float>(LimitToToolRange(sum / matrix.factor));
        }
    }
}

} // namespace

const std::array<FilterPreset, 6>& FilterPresets() {
    static const std::array<FilterPreset, 6> presets = {{
        {"Soften Sharp Edges", {{0, 1, 0, 1, 5, 1, 0, 1, 0}, 9}},
        {"Smooth Features", {{0, 1, 0, 1, 1, 1, 0, 1, 0}, 5}},
        {"Soft Flowing Features", {{1, 2, 1, 2, 2, 2, 1, 2, 1}, 14}},
        {"Raise Features", {{0, 0, 0, 0, 3, 0, 0, 0, 0}, 2}},
        {"Lower Features", {{0, 0, 0, 0, 2, 0, 0, 0, 0}, 3}},
        {"Enhance Roughness!", {{0, -1, 0, -1, 10, -1, 0, -1, 0}, 6}},
    }};
    return presets;
}

FilterMatrix PresetMatrix(int index) {
    if (index < 0 || index >= static_cast<int>(FilterPresets().size())) return {};
    return FilterPresets()[static_cast<std::size_t>(index)].matrix;
}

GridRect FilterTerrain(TerrainData& terrain, const FilterMatrix& matrix, bool onlyInArea, float cursorX,
                       float cursorZ, int radius) {
    if (terrain.heights.Empty() || matrix.factor == 0) return {};
    if (onlyInArea) {
        const GridRect area = OperationArea(terrain, cursorX, cursorZ, radius);
        FilterRect(terrain.heights, matrix, area);
        return area;
    }
    // The whole-grid pass runs its columns up to the row count, like its rows, so a grid wider
    // than it is long keeps its last columns unfiltered; a narrower one stops at its last column.
    const int rows = terrain.heights.Rows();
    GridRect pass;
    pass.lastRow = rows - 1;
    pass.lastColumn = std::min(rows, terrain.heights.Columns()) - 1;
    FilterRect(terrain.heights, matrix, pass);
    return GridRect::Whole();
}
