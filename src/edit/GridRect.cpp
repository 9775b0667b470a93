#include "GridRect.h"

#include <algorithm>
#include <cstdint>

namespace {

// Sizes come from the height grid itself, so that no area can reach past the stored heights even
// if the terrain's column and row fields disagree with it.
int ColumnCount(const TerrainData& terrain) {
    return terrain.heights.Columns();
}
int RowCount(const TerrainData& terrain) {
    return terrain.heights.Rows();
}

// An area with nothing in it, normalised so that every empty result compares equal.
GridRect Normalised(const GridRect& rect) {
    return rect.Empty() ? GridRect{} : rect;
}

} // namespace

GridPoint CursorGridPoint(const TerrainData& terrain, float cursorX, float cursorZ) {
    return GridPointUnder(terrain, cursorX, cursorZ, GridClamp::ToLastPoint);
}

GridRect SculptArea(const TerrainData& terrain, float cursorX, float cursorZ, int radius) {
    if (terrain.heights.Empty() || radius < 0) return {};
    const GridPoint centre = CursorGridPoint(terrain, cursorX, cursorZ);
    // 64-bit so that any radius a caller passes cannot overflow; the result is clipped to the grid.
    const std::int64_t r = radius;
    GridRect rect;
    rect.firstColumn = static_cast<int>(std::max<std::int64_t>(0, centre.column - r));
    rect.firstRow = static_cast<int>(std::max<std::int64_t>(0, centre.row - r));
    rect.lastColumn = static_cast<int>(std::min<std::int64_t>(ColumnCount(terrain) - 1, centre.column + r));
    rect.lastRow = static_cast<int>(std::min<std::int64_t>(RowCount(terrain) - 1, centre.row + r));
    return rect;
}

GridRect OperationArea(const TerrainData& terrain, float cursorX, float cursorZ, int radius) {
    return OperationArea(terrain, cursorX, cursorZ, radius, radius);
}

GridRect OperationArea(const TerrainData& terrain, float cursorX, float cursorZ, int radiusX, int radiusZ) {
    if (terrain.heights.Empty() || radiusX < 0 || radiusZ < 0) return {};
    const std::int64_t columns = ColumnCount(terrain);
    const std::int64_t rows = RowCount(terrain);
    // The centre may sit one past the last point on either axis.
    const GridPoint centre = GridPointUnder(terrain, cursorX, cursorZ, GridClamp::OnePastLast);
    const std::int64_t cx = centre.column;
    const std::int64_t cz = centre.row;
    std::int64_t x1 = cx + radiusX;
    std::int64_t z1 = cz + radiusZ;
    // Lopsided on purpose: reaching past the last column ends the rows at columns - 1.
    if (x1 >= columns) z1 = columns - 1;
    if (z1 >= rows) z1 = rows - 1;
    // Columns past the last one are not terrain.
    x1 = std::min(x1, columns - 1);
    GridRect rect;
    rect.firstColumn = static_cast<int>(std::max<std::int64_t>(0, cx - radiusX));
    rect.firstRow = static_cast<int>(std::max<std::int64_t>(0, cz - radiusZ));
    rect.lastColumn = static_cast<int>(x1);
    rect.lastRow = static_cast<int>(z1);
    return Normalised(rect);
}

float SculptFloor(const TerrainData& terrain) {
    return terrain.waterEnabled ? -10.0f : 0.0f;
}

HeightRange ScanHeightRange(const HeightGrid& grid, const GridRect& area) {
    HeightRange range;
    for (int z = area.firstRow; z <= area.lastRow; ++z)
        for (int x = area.firstColumn; x <= area.lastColumn; ++x) {
            const double h = grid.At(z, x);
            range.top = std::max(range.top, h);
            range.bottom = std::min(range.bottom, h);
        }
    return range;
}

double LimitToToolRange(double height) {
    if (height < kToolFloor) return kToolFloor;
    if (height > kHeightCeiling) return kHeightCeiling;
    return height;
}
