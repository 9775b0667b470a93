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
//
// For drawing, each block also keeps its own run of vertices (see RenderMeshArrays.cpp), so that
// the view sends a block with one indexed draw instead of a call per vertex.

#include "TerrainModel.h"
#include "mMath3D.h"

#include <cstdint>
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
    Vector3 low; // bounding box of the block's corner points
    Vector3 high;
};

// A block's vertices, laid out as GL's interleaved formats T2F_N3F_V3F (ground) and T2F_V3F
// (water).
struct GroundVertex {
    TexCoord uv;
    Vector3 normal;
    Vector3 position;
};
struct WaterVertex {
    TexCoord uv;
    Vector3 position;
};
static_assert(sizeof(GroundVertex) == 8 * sizeof(float) && sizeof(WaterVertex) == 5 * sizeof(float));

// Every block has room for a full block whatever its size. Its points (column i, row j counted
// from the block's corner A) are at j * kBlockRowPoints + i; after them the ground keeps a second
// copy of each cell's corner D. A cell's slot is its local row * kMeshBlockCells + local column.
inline constexpr int kBlockRowPoints = kMeshBlockCells + 1;
inline constexpr int kBlockPoints = kBlockRowPoints * kBlockRowPoints;
inline constexpr int kBlockCellSlots = kMeshBlockCells * kMeshBlockCells;
inline constexpr int kBlockGroundVertices = kBlockPoints + kBlockCellSlots;

// Cell slots first..end - 1 of a block, all in the plain colour or all highlighted.
struct CellSpan {
    int first = 0;
    int end = 0;
    bool highlighted = false;
    bool operator==(const CellSpan&) const = default;
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
    // Normal of the first (which = 0) or second (which = 1) triangle of cell (column, row), column
    // 1..columns - 1 and row 0..rows - 2; kept in the block arrays (below).
    const Vector3& Normal(int column, int row, int which) const {
        return ground_[NormalSlot(column, row, which)].normal;
    }
    const std::vector<MeshBlock>& Blocks() const { return blocks_; }

    // Block arrays. Ground: kBlockGroundVertices per block; GroundIndices() holds six indices per
    // cell slot, the same for every block, in the order B, A, D, A, C, D. Under flat shading the
    // last point of a triangle gives its colour, so each triangle's normal rides on its D: the
    // first triangle's on the point itself, the second's on the point's second copy.
    const GroundVertex* GroundVertices(std::size_t block) const {
        return &ground_[block * kBlockGroundVertices];
    }
    static const std::uint16_t* GroundIndices();
    // Water: kBlockPoints per block at height 0. WaterIndices holds six indices per cell under
    // water (any corner below 0), in slot order; the cells in slots before s have
    // WetCellsBefore(block, s) of them.
    const WaterVertex* WaterVertices(std::size_t block) const { return &water_[block * kBlockPoints]; }
    const std::uint16_t* WaterIndices(std::size_t block) const {
        return &wetIndices_[block * 6 * kBlockCellSlots];
    }
    int WetCellsBefore(std::size_t block, int slot) const {
        return wetBefore_[block * (kBlockCellSlots + 1) + static_cast<std::size_t>(slot)];
    }

private:
    std::size_t PointIndex(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_ + 1) +
               static_cast<std::size_t>(column);
    }
    // Where in ground_ the normal of a triangle of cell (column, row) is kept: on the cell's D,
    // or its second copy.
    std::size_t NormalSlot(int column, int row, int which) const {
        const int i = (column - 1) % kMeshBlockCells, j = row % kMeshBlockCells;
        const std::size_t block =
            static_cast<std::size_t>(row / kMeshBlockCells) * static_cast<std::size_t>(blocksAcross_) +
            static_cast<std::size_t>((column - 1) / kMeshBlockCells);
        const int local =
            which == 0 ? (j + 1) * kBlockRowPoints + i + 1 : kBlockPoints + j * kMeshBlockCells + i;
        return block * kBlockGroundVertices + static_cast<std::size_t>(local);
    }
    void UpdateNormals(int firstColumn, int firstRow, int lastColumn, int lastRow);
    void BuildBlocks();
    void UpdateBlockBounds(MeshBlock& block) const;
    // RenderMeshArrays.cpp: the block arrays' points and water cells, all of them or where the
    // points in the rectangle (inclusive, in the grid) moved. (The normals are written in place by
    // UpdateNormals.)
    void BuildArrays();
    void RefreshArrays(int firstColumn, int firstRow, int lastColumn, int lastRow);
    void WritePoints(std::size_t block, const CellRange& points);
    void WriteWetCells(std::size_t block);
    bool BlockAboveWater(const CellRange& cells) const;

    int columns_ = 0;
    int rows_ = 0;
    int blocksAcross_ = 0;
    std::vector<Vector3> vertices_;
    std::vector<TexCoord> groundUV_;
    std::vector<TexCoord> waterUV_;
    std::vector<MeshBlock> blocks_;
    std::vector<GroundVertex> ground_;
    std::vector<WaterVertex> water_;
    std::vector<std::uint16_t> wetIndices_;
    std::vector<std::uint16_t> wetBefore_;
};

// The cells drawn for terrain and water: all of them, or with clip only the central 440 x 440
// units (the simulator's scene area).
CellRange DrawnCells(const TerrainData& terrain, bool clip);

// The cells highlighted under the brush of size (radius) s around the cursor. The bounds are
// deliberately lopsided: exclusive low and inclusive high for columns, the reverse for rows; they
// match the cells the sculpt tools change.
CellRange BrushCells(const TerrainData& terrain, float cursorX, float cursorZ, int size);

// The runs of slots that draw the cells of part (inside block, in block's slot numbering) in the
// order of rows, then columns, split where the brush highlight starts or ends; neighbouring runs of
// the same colour are joined. Replaces the contents of spans.
void CellSpans(const CellRange& block, const CellRange& part, const CellRange& brush,
               std::vector<CellSpan>& spans);
