#pragma once
// The terrain as the 3D view draws it, derived from the terrain model: a vertex per grid point
// (world units, y up, centred on the origin), two face normals per cell (one per triangle, for
// flat shading), ground and water texture coordinates per point, and per-block height bounds for
// culling.
//
// Cell (col, row) is the square between points col - 1..col and row..row + 1, with corners
// A = (col - 1, row), B = (col, row), C = (col - 1, row + 1), D = (col, row + 1); its two triangles
// share the diagonal A-D. The vertex and texture arrays have one extra row and column (indices
// 0..rows and 0..columns) so that every cell can read its corners without a bounds test.

#include "TerrainModel.h"
#include "mMath3D.h"

#include <vector>

// An inclusive range of cells.
struct CellRange {
    int firstColumn = 1;
    int lastColumn = 0;
    int firstRow = 0;
    int lastRow = -1;
    bool Empty() const { return lastColumn < firstColumn || lastRow < firstRow; }
    bool Contains(int column, int row) const {
        return column >= firstColumn && column <= lastColumn && row >= firstRow && row <= lastRow;
    }
};

struct TexCoord {
    float u = 0.0f;
    float v = 0.0f;
};

// Cells are grouped into square blocks for culling against the view.
inline constexpr int kMeshBlockCells = 16;

struct MeshBlock {
    CellRange cells;
    Vector3 low;  // bounding box of the block's corner points
    Vector3 high;
};

class RenderMesh {
public:
    // Rebuilds everything from the terrain.
    void Build(const TerrainData& terrain);
    // Refreshes the heights of the points in the rectangle of grid points (inclusive, clamped) and
    // the normals and block bounds around it.
    void UpdateArea(const TerrainData& terrain, int firstColumn, int firstRow, int lastColumn, int lastRow);
    void Clear();

    int Columns() const { return columns_; }
    int Rows() const { return rows_; }
    bool Empty() const { return columns_ == 0 || rows_ == 0; }

    const Vector3& Vertex(int column, int row) const { return vertices_[PointIndex(column, row)]; }
    const TexCoord& GroundUV(int column, int row) const { return groundUV_[PointIndex(column, row)]; }
    const TexCoord& WaterUV(int column, int row) const { return waterUV_[PointIndex(column, row)]; }
    // Normal of the first (which = 0) or second (which = 1) triangle of cell (column, row).
    const Vector3& Normal(int column, int row, int which) const {
        return normals_[static_cast<std::size_t>(row) * NormalStride() + 2 * static_cast<std::size_t>(column) +
                        static_cast<std::size_t>(which)];
    }
    const std::vector<MeshBlock>& Blocks() const { return blocks_; }

private:
    std::size_t PointIndex(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_ + 1) + static_cast<std::size_t>(column);
    }
    std::size_t NormalStride() const { return 2 * static_cast<std::size_t>(columns_) + 1; }
    void UpdateNormals(int firstColumn, int firstRow, int lastColumn, int lastRow);
    void BuildBlocks();
    void UpdateBlockBounds(MeshBlock& block) const;

    int columns_ = 0;
    int rows_ = 0;
    std::vector<Vector3> vertices_;
    std::vector<Vector3> normals_;
    std::vector<TexCoord> groundUV_;
    std::vector<TexCoord> waterUV_;
    std::vector<MeshBlock> blocks_;
};

// The cells drawn for terrain and water: all of them, or with clip only the central 440 x 440
// units (the simulator's scene area).
CellRange DrawnCells(const TerrainData& terrain, bool clip);

// The cells highlighted under the brush of size (radius) s around the cursor. The bounds are
// deliberately lopsided: exclusive low and inclusive high for columns, the reverse for rows; they
// match the cells the sculpt tools change.
CellRange BrushCells(const TerrainData& terrain, float cursorX, float cursorZ, int size);
