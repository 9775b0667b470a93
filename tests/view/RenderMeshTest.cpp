// The render mesh: placement, normals, texture repeats, drawn ranges, the brush highlight and
// partial refreshes that match a full rebuild.
#include "RenderMesh.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

TerrainData Grid(int columns, int rows, float height = 0.0f) {
    TerrainData t;
    t.columns = columns;
    t.rows = rows;
    t.spacingX = 1024.0f / static_cast<float>(columns);
    t.spacingZ = 1024.0f / static_cast<float>(rows);
    t.groundTiling = 10.0f;
    t.waterTiling = 50.0f;
    t.heights.Resize(columns, rows, height);
    return t;
}

// Whether the triangle a, b, c faces up (+y) when seen from above with counter-clockwise fronts:
// the y component of (b - a) x (c - a) is positive in a right-handed, y-up world viewed from +y.
bool FacesUpFromAbove(const Vector3& a, const Vector3& b, const Vector3& c) {
    const double ux = b.x - a.x, uz = b.z - a.z, vx = c.x - a.x, vz = c.z - a.z;
    return uz * vx - ux * vz > 0.0;
}

std::array<int, 4> Bounds(const CellRange& r) {
    return {r.firstColumn, r.lastColumn, r.firstRow, r.lastRow};
}

} // namespace

TEST(RenderMesh, PointsAreCentredCellsFaceUpInDrawingOrderAndNormalsLeanAwayFromTheRise) {
    TerrainData t = Grid(5, 3, 2.0f);
    RenderMesh mesh;
    mesh.Build(t);
    EXPECT_FLOAT_EQ(mesh.Vertex(0, 0).x, -2.0f * 1024.0f / 5.0f);
    EXPECT_FLOAT_EQ(mesh.Vertex(4, 2).z, 1024.0f / 3.0f);
    EXPECT_FLOAT_EQ(mesh.Vertex(2, 1).x, 0.0f);
    EXPECT_EQ(mesh.Vertex(3, 1).y, 2.0f);
    EXPECT_EQ(mesh.Vertex(5, 3).y, 0.0f) << "the extra row and column stand at height 0";
    for (int row = 0; row <= 1; ++row)
        for (int column = 1; column <= 4; ++column)
            for (int which = 0; which < 2; ++which) {
                const Vector3& n = mesh.Normal(column, row, which);
                EXPECT_NEAR(n.y, 1.0, 1e-6) << column << "," << row << "," << which;
                EXPECT_NEAR(n.x, 0.0, 1e-6);
            }
    // The renderer draws B, A, D and A, C, D: both must be front-facing from above.
    const Vector3 &a = mesh.Vertex(0, 0), &b = mesh.Vertex(1, 0), &c = mesh.Vertex(0, 1),
                  &d = mesh.Vertex(1, 1);
    EXPECT_TRUE(FacesUpFromAbove(b, a, d));
    EXPECT_TRUE(FacesUpFromAbove(a, c, d));
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 5; ++column)
            t.heights.At(row, column) = static_cast<float>(column) * 10.0f;
    mesh.Build(t);
    EXPECT_LT(mesh.Normal(2, 1, 0).x, 0.0f) << "ground rising towards +x faces -x";
    EXPECT_GT(mesh.Normal(2, 1, 0).y, 0.0f);
    EXPECT_NEAR(mesh.Normal(2, 1, 0).x, mesh.Normal(2, 1, 1).x, 1e-6);
}

TEST(RenderMesh, TextureRepeatsCoverTheRoundedNumberOfPointsAndDrawnCellsTheGridOrTheCentre) {
    TerrainData t = Grid(205, 205); // ground tiling 10: one repeat per round(20.5) = 20 points, water 50: 4
    RenderMesh mesh;
    mesh.Build(t);
    EXPECT_FLOAT_EQ(mesh.GroundUV(20, 0).u, 1.0f);
    EXPECT_FLOAT_EQ(mesh.GroundUV(0, 40).v, 2.0f);
    EXPECT_FLOAT_EQ(mesh.WaterUV(4, 8).u, 1.0f);
    EXPECT_FLOAT_EQ(mesh.WaterUV(4, 8).v, 2.0f);
    t.groundTiling = 1000.0f; // more repeats than points: one point per repeat
    mesh.Build(t);
    EXPECT_FLOAT_EQ(mesh.GroundUV(3, 0).u, 3.0f);
    EXPECT_EQ(Bounds(DrawnCells(t, false)), (std::array{1, 204, 0, 203}));
    const CellRange clipped = DrawnCells(Grid(256, 256), true); // cells of 4 units
    EXPECT_EQ(clipped.lastColumn - clipped.firstColumn + 1, 110);
    EXPECT_EQ(clipped.firstColumn + clipped.lastColumn, 255) << "centred";
    EXPECT_EQ(clipped.lastRow - clipped.firstRow + 1, 109);
}

TEST(RenderMesh, BrushHighlightIsLopsidedClampedAndEmptyAtSizeZeroAndGridIndexRoundsTiesToEven) {
    const TerrainData t = Grid(101, 101);
    // The cursor at (5, 5) stands over point (51, 51): 517 / (1024 / 101) = 50.99.
    EXPECT_EQ(Bounds(BrushCells(t, 5.0f, 5.0f, 2)), (std::array{50, 53, 49, 52}));
    EXPECT_TRUE(BrushCells(t, 0.0f, 0.0f, 0).Empty());
    EXPECT_EQ(Bounds(BrushCells(t, -600.0f, -600.0f, 3)), (std::array{1, 3, 0, 2}))
        << "the corner clamps first";
    EXPECT_EQ(GridIndexUnder(-512.0f, 4.0f), 0);
    EXPECT_EQ(GridIndexUnder(-502.0f, 4.0f), 2) << "10 / 4 = 2.5 rounds to 2";
    EXPECT_EQ(GridIndexUnder(-498.0f, 4.0f), 4) << "14 / 4 = 3.5 rounds to 4";
    EXPECT_EQ(GridIndexUnder(-511.5f, 1.0f), 0) << "0.5 rounds to 0 first";
    EXPECT_EQ(GridIndexUnder(0.0f, std::nanf("")), 1000000);
}

TEST(RenderMesh, BlocksCoverEveryCellOnceAndBoundTheirPoints) {
    TerrainData t = Grid(50, 37);
    t.heights.At(20, 20) = 90.0f;
    t.heights.At(5, 45) = -8.0f;
    RenderMesh mesh;
    mesh.Build(t);
    std::vector<int> covered(50 * 37, 0);
    for (const MeshBlock& block : mesh.Blocks())
        for (int row = block.cells.firstRow; row <= block.cells.lastRow; ++row)
            for (int column = block.cells.firstColumn; column <= block.cells.lastColumn; ++column) {
                ++covered[static_cast<std::size_t>(row * 50 + column)];
                for (const Vector3* p : {&mesh.Vertex(column - 1, row), &mesh.Vertex(column, row + 1)}) {
                    EXPECT_GE(p->y, block.low.y);
                    EXPECT_LE(p->y, block.high.y);
                    EXPECT_GE(p->x, block.low.x);
                    EXPECT_LE(p->z, block.high.z);
                }
            }
    const CellRange all = DrawnCells(t, false);
    for (int row = 0; row < 37; ++row)
        for (int column = 0; column < 50; ++column)
            EXPECT_EQ(covered[static_cast<std::size_t>(row * 50 + column)],
                      all.Contains(column, row) ? 1 : 0);
}

namespace {

// Heights that roll over the grid and dip below the water line in places.
TerrainData Rolling(int columns, int rows) {
    TerrainData t = Grid(columns, rows);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            t.heights.At(row, column) = 12.0f * std::sin(0.37f * static_cast<float>(column)) +
                                        9.0f * std::cos(0.23f * static_cast<float>(row)) - 4.0f;
    return t;
}

void Append(std::vector<float>& out, const Vector3& v) {
    out.insert(out.end(), {v.x, v.y, v.z});
}
void Append(std::vector<float>& out, const TexCoord& t) {
    out.insert(out.end(), {t.u, t.v});
}

// What the ground and water of every block look like, cell by cell in block order: each corner's
// position and texture coordinates, and for the ground the normal on each triangle's last corner.
// fromArrays reads the block arrays; otherwise the points, normals and water test of the
// cell-by-cell path.
std::vector<float> Sent(const RenderMesh& mesh, bool fromArrays) {
    std::vector<float> sent;
    for (std::size_t b = 0; b < mesh.Blocks().size(); ++b) {
        const CellRange& cells = mesh.Blocks()[b].cells;
        int wet = 0;
        for (int row = cells.firstRow; row <= cells.lastRow; ++row)
            for (int column = cells.firstColumn; column <= cells.lastColumn; ++column) {
                const int slot = (row - cells.firstRow) * kMeshBlockCells + column - cells.firstColumn;
                const int corners[6][2] = {{column, row},     {column - 1, row},     {column, row + 1},
                                           {column - 1, row}, {column - 1, row + 1}, {column, row + 1}};
                bool dry = true;
                for (int k = 0; k < 6; ++k) {
                    const GroundVertex& v = mesh.GroundVertices(b)[RenderMesh::GroundIndices()[6 * slot + k]];
                    const Vector3& p = mesh.Vertex(corners[k][0], corners[k][1]);
                    Append(sent, fromArrays ? v.position : p);
                    Append(sent, fromArrays ? v.uv : mesh.GroundUV(corners[k][0], corners[k][1]));
                    if (k % 3 == 2) Append(sent, fromArrays ? v.normal : mesh.Normal(column, row, k / 3));
                    dry = dry && p.y >= 0.0f;
                }
                const bool listed = mesh.WetCellsBefore(b, slot + 1) > mesh.WetCellsBefore(b, slot);
                if (fromArrays ? !listed : dry) continue;
                for (int k = 0; k < 6; ++k) {
                    const WaterVertex& v = mesh.WaterVertices(b)[mesh.WaterIndices(b)[6 * wet + k]];
                    const Vector3& p = mesh.Vertex(corners[k][0], corners[k][1]);
                    Append(sent, fromArrays ? v.position : Vector3{p.x, 0.0f, p.z});
                    Append(sent, fromArrays ? v.uv : mesh.WaterUV(corners[k][0], corners[k][1]));
                }
                ++wet;
            }
    }
    return sent;
}

} // namespace

TEST(RenderMeshArrays, TheBlocksSendWhatTheCellByCellPathSendsAfterEveryChange) {
    TerrainData t = Rolling(50, 45); // narrower blocks at the right and bottom edges
    RenderMesh mesh;
    mesh.Build(t);
    const std::vector<float> before = Sent(mesh, true);
    EXPECT_EQ(before, Sent(mesh, false));
    // Refreshes across block edges (points 16 and 32 sit on them), in and out of the water.
    for (int row = 12; row <= 20; ++row)
        for (int column = 13; column <= 19; ++column)
            t.heights.At(row, column) = static_cast<float>(column - 16) * 3.0f - 6.0f;
    mesh.UpdateArea(t, 13, 12, 19, 20);
    t.heights.At(32, 32) = -40.0f;
    mesh.UpdateArea(t, 32, 32, 32, 32);
    EXPECT_EQ(Sent(mesh, true), Sent(mesh, false));
    EXPECT_NE(Sent(mesh, true), before);
    RenderMesh fresh;
    fresh.Build(t);
    EXPECT_EQ(Sent(mesh, true), Sent(fresh, true)) << "a refresh leaves what a rebuild leaves";
    ASSERT_EQ(mesh.Blocks().size(), fresh.Blocks().size());
    for (std::size_t i = 0; i < fresh.Blocks().size(); ++i) {
        EXPECT_EQ(mesh.Blocks()[i].high.y, fresh.Blocks()[i].high.y) << i;
        EXPECT_EQ(mesh.Blocks()[i].low.y, fresh.Blocks()[i].low.y) << i;
    }
    // A smaller terrain built over the old one keeps nothing of it.
    mesh.Build(Rolling(40, 37));
    EXPECT_EQ(Sent(mesh, true), Sent(mesh, false));
    for (int column = 0; column <= 40; ++column)
        EXPECT_EQ(mesh.Vertex(column, 37).y, 0.0f);
    for (int row = 0; row <= 37; ++row)
        EXPECT_EQ(mesh.GroundUV(40, row).u, 0.0f);
}

TEST(RenderMeshArrays, CellSpansKeepTheCellOrderAndSplitOnlyWhereTheHighlightChanges) {
    const CellRange full{17, 32, 16, 31};
    const CellRange narrow{33, 39, 0, 15}; // a block at the grid's right edge
    std::vector<CellSpan> spans;
    CellSpans(full, full, CellRange{}, spans);
    EXPECT_EQ(spans, (std::vector<CellSpan>{{0, kBlockCellSlots, false}})) << "a whole block is one draw";
    CellSpans(full, full, {22, 24, 19, 20}, spans);
    EXPECT_EQ(spans, (std::vector<CellSpan>{
                         {0, 53, false}, {53, 56, true}, {56, 69, false}, {69, 72, true}, {72, 256, false}}));
    const struct {
        CellRange block, part, brush;
    } cases[] = {{full, {20, 30, 18, 25}, {22, 24, 19, 20}},
                 {full, {17, 32, 20, 20}, {10, 40, 20, 20}},
                 {full, full, {30, 40, 30, 40}},
                 {narrow, narrow, CellRange{}},
                 {narrow, {34, 39, 3, 9}, {36, 36, 0, 5}}};
    for (const auto& c : cases) {
        CellSpans(c.block, c.part, c.brush, spans);
        std::vector<std::pair<int, bool>> expected, got;
        for (int row = c.part.firstRow; row <= c.part.lastRow; ++row)
            for (int column = c.part.firstColumn; column <= c.part.lastColumn; ++column)
                expected.emplace_back((row - c.block.firstRow) * kMeshBlockCells + column -
                                          c.block.firstColumn,
                                      c.brush.Contains(column, row));
        for (const CellSpan& span : spans)
            for (int slot = span.first; slot < span.end; ++slot)
                got.emplace_back(slot, span.highlighted);
        EXPECT_EQ(got, expected) << c.part.firstColumn << "," << c.part.firstRow;
    }
    CellSpans(narrow, narrow, CellRange{}, spans);
    EXPECT_EQ(spans.size(), 16u) << "rows of a narrow block are not contiguous";
}
