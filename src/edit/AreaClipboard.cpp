#include "AreaClipboard.h"

#include <algorithm>

namespace {

// A radius beyond the largest grid covers the same points as the largest grid's side does, so
// the block never grows past that.
int BlockRadius(int radius) {
    return std::min(radius, kMaxGridSide);
}

std::size_t BlockIndex(int radius, int x, int z) {
    const std::size_t side = 2 * static_cast<std::size_t>(radius) + 1;
    return static_cast<std::size_t>(z) * side + static_cast<std::size_t>(x);
}

// The part of the area that the block covers. Reaching past the last column can make the area
// taller than the block (its rows then end at columns - 1); those extra rows are left alone.
GridRect BlockPart(GridRect area, int radiusX, int radiusZ) {
    if (area.Empty()) return {};
    area.lastColumn = std::min(area.lastColumn, area.firstColumn + 2 * radiusX);
    area.lastRow = std::min(area.lastRow, area.firstRow + 2 * radiusZ);
    return area;
}

} // namespace

void AreaClipboard::CopyArea(const TerrainData& terrain, float cursorX, float cursorZ, int radius) {
    if (terrain.heights.Empty() || radius < 0) return;
    const int r = BlockRadius(radius);
    const GridRect area = BlockPart(OperationArea(terrain, cursorX, cursorZ, r), r, r);
    const std::size_t side = 2 * static_cast<std::size_t>(r) + 1;
    block_.assign(side * side, 0.0f);
    radiusX_ = r;
    radiusZ_ = r;
    for (int z = area.firstRow; z <= area.lastRow; ++z)
        for (int x = area.firstColumn; x <= area.lastColumn; ++x)
            block_[BlockIndex(r, x - area.firstColumn, z - area.firstRow)] = terrain.heights.At(z, x);
    has_ = true;
}

GridRect AreaClipboard::PasteArea(TerrainData& terrain, float cursorX, float cursorZ) const {
    if (terrain.heights.Empty() || !has_) return {};
    const GridRect area =
        BlockPart(OperationArea(terrain, cursorX, cursorZ, radiusX_, radiusZ_), radiusX_, radiusZ_);
    for (int z = area.firstRow; z <= area.lastRow; ++z)
        for (int x = area.firstColumn; x <= area.lastColumn; ++x)
            terrain.heights.At(z, x) = At(x - area.firstColumn, z - area.firstRow);
    return area;
}

float AreaClipboard::At(int x, int z) const {
    if (!has_ || x < 0 || z < 0 || x > 2 * radiusX_ || z > 2 * radiusZ_) return 0.0f;
    return block_[BlockIndex(radiusX_, x, z)];
}
