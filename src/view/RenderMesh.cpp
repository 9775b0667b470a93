#include "RenderMesh.h"

#include "TerrainGrid.h"

#include <algorithm>
#include <cmath>

namespace {

// How many grid points one repeat of a texture covers: points / tiling, to the nearest whole
// number, at least one.
double RepeatPoints(int points, float tiling) {
    const double repeat = std::nearbyint(static_cast<double>(points) / static_cast<double>(tiling));
    return std::isfinite(repeat) && repeat >= 1.0 ? repeat : 1.0;
}

} // namespace

void RenderMesh::Clear() {
    *this = RenderMesh{};
}

void RenderMesh::Build(const TerrainData& terrain) {
    columns_ = terrain.heights.Columns();
    rows_ = terrain.heights.Rows();
    if (columns_ == 0 || rows_ == 0) {
        Clear();
        return;
    }
    const std::size_t points = static_cast<std::size_t>(columns_ + 1) * static_cast<std::size_t>(rows_ + 1);
    // Resized, not refilled: every point is written below.
    vertices_.resize(points);
    groundUV_.resize(points);
    waterUV_.resize(points);
    const double groundX = RepeatPoints(columns_, terrain.groundTiling);
    const double groundZ = RepeatPoints(rows_, terrain.groundTiling);
    const double waterX = RepeatPoints(columns_, terrain.waterTiling);
    const double waterZ = RepeatPoints(rows_, terrain.waterTiling);
    for (int row = 0; row <= rows_; ++row) {
        const float z = GridCoordinate(row, rows_, terrain.spacingZ);
        for (int column = 0; column <= columns_; ++column) {
            const std::size_t i = PointIndex(column, row);
            // The extra row and column stay at the origin with no texture offset.
            if (row == rows_ || column == columns_) {
                vertices_[i] = {};
                groundUV_[i] = waterUV_[i] = {};
                continue;
            }
            vertices_[i] = {GridCoordinate(column, columns_, terrain.spacingX),
                            terrain.heights.At(row, column), z};
            groundUV_[i] = {static_cast<float>(column / groundX), static_cast<float>(row / groundZ)};
            waterUV_[i] = {static_cast<float>(column / waterX), static_cast<float>(row / waterZ)};
        }
    }
    BuildBlocks();
    BuildArrays();
    UpdateNormals(1, 0, columns_ - 1, rows_ - 2);
}

void RenderMesh::UpdateArea(const TerrainData& terrain, int firstColumn, int firstRow, int lastColumn,
                            int lastRow) {
    if (Empty() || terrain.heights.Columns() != columns_ || terrain.heights.Rows() != rows_) {
        Build(terrain);
        return;
    }
    firstColumn = std::max(firstColumn, 0);
    firstRow = std::max(firstRow, 0);
    lastColumn = std::min(lastColumn, columns_ - 1);
    lastRow = std::min(lastRow, rows_ - 1);
    if (lastColumn < firstColumn || lastRow < firstRow) return;
    for (int row = firstRow; row <= lastRow; ++row)
        for (int column = firstColumn; column <= lastColumn; ++column)
            vertices_[PointIndex(column, row)].y = terrain.heights.At(row, column);
    // A point belongs to the cells on both sides of it: widen by one cell each way.
    UpdateNormals(std::max(1, firstColumn - 1), std::max(0, firstRow - 1),
                  std::min(columns_ - 1, lastColumn + 1), std::min(rows_ - 2, lastRow + 1));
    for (MeshBlock& block : blocks_) {
        const CellRange& c = block.cells;
        if (c.lastColumn >= firstColumn && c.firstColumn - 1 <= lastColumn && c.lastRow + 1 >= firstRow &&
            c.firstRow <= lastRow)
            UpdateBlockBounds(block);
    }
    RefreshArrays(firstColumn, firstRow, lastColumn, lastRow);
}

void RenderMesh::UpdateNormals(int firstColumn, int firstRow, int lastColumn, int lastRow) {
    for (int row = firstRow; row <= lastRow; ++row) {
        for (int column = firstColumn; column <= lastColumn; ++column) {
            const Vector3& a = Vertex(column - 1, row);
            const Vector3& b = Vertex(column, row);
            const Vector3& c = Vertex(column - 1, row + 1);
            const Vector3& d = Vertex(column, row + 1);
            FaceNormal(ground_[NormalSlot(column, row, 0)].normal, b, a, d);
            FaceNormal(ground_[NormalSlot(column, row, 1)].normal, a, c, d);
        }
    }
}

void RenderMesh::BuildBlocks() {
    blocks_.clear();
    blocksAcross_ = (columns_ - 1 + kMeshBlockCells - 1) / kMeshBlockCells;
    for (int row = 0; row <= rows_ - 2; row += kMeshBlockCells) {
        for (int column = 1; column <= columns_ - 1; column += kMeshBlockCells) {
            MeshBlock block;
            block.cells = {column, std::min(column + kMeshBlockCells - 1, columns_ - 1), row,
                           std::min(row + kMeshBlockCells - 1, rows_ - 2)};
            UpdateBlockBounds(block);
            blocks_.push_back(block);
        }
    }
}

void RenderMesh::UpdateBlockBounds(MeshBlock& block) const {
    const CellRange& c = block.cells;
    float low = Vertex(c.firstColumn - 1, c.firstRow).y;
    float high = low;
    for (int row = c.firstRow; row <= c.lastRow + 1; ++row)
        for (int column = c.firstColumn - 1; column <= c.lastColumn; ++column) {
            low = std::min(low, Vertex(column, row).y);
            high = std::max(high, Vertex(column, row).y);
        }
    // Water is drawn at height 0 over the same cells, so the box always reaches 0.
    low = std::min(low, 0.0f);
    high = std::max(high, 0.0f);
    const Vector3& first = Vertex(c.firstColumn - 1, c.firstRow);
    const Vector3& last = Vertex(c.lastColumn, c.lastRow + 1);
    block.low = {first.x, low, first.z};
    block.high = {last.x, high, last.z};
}

CellRange DrawnCells(const TerrainData& terrain, bool clip) {
    const int columns = terrain.heights.Columns();
    const int rows = terrain.heights.Rows();
    CellRange range{1, columns - 1, 0, rows - 2};
    if (!clip || columns < 2 || rows < 2) return range;
    const auto nx = static_cast<int>(std::nearbyint(440.0 / static_cast<double>(terrain.spacingX)));
    const auto nz = static_cast<int>(std::nearbyint(440.0 / static_cast<double>(terrain.spacingZ)));
    range.firstColumn = static_cast<int>(std::nearbyint((columns - nx) * 0.5));
    range.lastColumn = range.firstColumn + nx - 1;
    range.firstRow = static_cast<int>(std::nearbyint((rows - nz) * 0.5));
    range.lastRow = range.firstRow + nz - 2;
    // A grid narrower than the scene area is drawn whole.
    range.firstColumn = std::max(range.firstColumn, 1);
    range.lastColumn = std::min(range.lastColumn, columns - 1);
    range.firstRow = std::max(range.firstRow, 0);
    range.lastRow = std::min(range.lastRow, rows - 2);
    return range;
}

CellRange BrushCells(const TerrainData& terrain, float cursorX, float cursorZ, int size) {
    const int columns = terrain.heights.Columns();
    const int rows = terrain.heights.Rows();
    if (columns == 0 || rows == 0) return {};
    const GridPoint centre = GridPointUnder(terrain, cursorX, cursorZ, GridClamp::ToLastPoint);
    const int cc = centre.column, cr = centre.row;
    // Columns: cc - s < col <= cc + s; rows: cr - s <= row < cr + s; bounds clamped into the grid.
    const int lowColumn = std::clamp(cc - size, 0, columns - 1);
    const int highColumn = std::clamp(cc + size, 0, columns - 1);
    const int lowRow = std::clamp(cr - size, 0, rows - 1);
    const int highRow = std::clamp(cr + size, 0, rows - 1);
    return {lowColumn + 1, highColumn, lowRow, highRow - 1};
}
