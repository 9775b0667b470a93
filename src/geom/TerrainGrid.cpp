#include "TerrainGrid.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kFarOutside = 1000000;

// The grid index under one coordinate, not clamped.
int IndexUnder(float position, float spacing) {
    const double snapped = std::nearbyint(static_cast<double>(position) + 0.5 * kTerrainExtent);
    const double index = std::nearbyint(snapped / static_cast<double>(spacing));
    if (!std::isfinite(index) || std::abs(index) > kFarOutside) return index < 0 ? -kFarOutside : kFarOutside;
    return static_cast<int>(index);
}

int Clamped(int index, int count, GridClamp clamp) {
    switch (clamp) {
    case GridClamp::ToLastPoint:
        return std::clamp(index, 0, std::max(count - 1, 0));
    case GridClamp::OnePastLast:
        return std::clamp(index, 0, std::max(count, 0));
    case GridClamp::None:
        break;
    }
    return index;
}

} // namespace

GridPoint GridPointUnder(float x, float z, float spacingX, float spacingZ, int columns, int rows,
                         GridClamp clamp) {
    return {Clamped(IndexUnder(x, spacingX), columns, clamp), Clamped(IndexUnder(z, spacingZ), rows, clamp)};
}

GridPoint GridPointUnder(const TerrainData& terrain, float x, float z, GridClamp clamp) {
    return GridPointUnder(x, z, terrain.spacingX, terrain.spacingZ, terrain.heights.Columns(),
                          terrain.heights.Rows(), clamp);
}

float GridCoordinate(int index, int count, float spacing) {
    return static_cast<float>(static_cast<double>(spacing) * (index - 0.5 * (count - 1)));
}

Vector3 GridPointPosition(const TerrainData& terrain, int row, int column) {
    return {GridCoordinate(column, terrain.heights.Columns(), terrain.spacingX),
            terrain.heights.At(row, column), GridCoordinate(row, terrain.heights.Rows(), terrain.spacingZ)};
}

float HeightUnder(const TerrainData& terrain, float x, float z) {
    if (terrain.heights.Empty()) return 0.0f;
    const GridPoint p = GridPointUnder(terrain, x, z, GridClamp::ToLastPoint);
    return terrain.heights.At(p.row, p.column);
}
