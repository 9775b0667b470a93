// The render mesh: placement, normals, texture repeats, drawn ranges, the brush highlight and
// partial refreshes that match a full rebuild.
#include "RenderMesh.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>
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

std::array<int, 4> Bounds(const CellRange& r) {
    return {r.firstColumn, r.lastColumn, r.firstRow, r.lastRow};
}

} // namespace

TEST(RenderMesh, PointsAreCentredOnTheOriginAndNormalsFaceUpLeaningAwayFromTheRise) {
    TerrainData t = Grid(5, 3);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 5; ++column)
            t.heights.At(row, column) = static_cast<float>(column) * 10.0f; // rising towards +x
    RenderMesh mesh;
    mesh.Build(t);
    EXPECT_FLOAT_EQ(mesh.Vertex(0, 0).x, -2.0f * 1024.0f / 5.0f);
    EXPECT_FLOAT_EQ(mesh.Vertex(4, 2).z, 1024.0f / 3.0f);
    EXPECT_FLOAT_EQ(mesh.Vertex(2, 1).x, 0.0f);
    EXPECT_EQ(mesh.Vertex(3, 1).y, 30.0f);
    EXPECT_EQ(mesh.Vertex(5, 3).y, 0.0f) << "the extra row and column stand at height 0";
    for (int which = 0; which < 2; ++which) {
        const Vector3& n = mesh.Normal(2, 1, which);
        EXPECT_TRUE(n.x < 0.0f && n.y > 0.0f && std::abs(n.z) < 1e-6f) << which << ": up, leaning to -x";
    }
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
    EXPECT_EQ(Bounds(clipped), (std::array{73, 182, 73, 181})) << "110 x 109 cells in the centre";
}

TEST(RenderMesh, BrushHighlightIsLopsidedClampedAndEmptyAtSizeZeroAndGridIndexRoundsTiesToEven) {
    const TerrainData t = Grid(101, 101);
    // The cursor at (5, 5) stands over point (51, 51): 517 / (1024 / 101) = 50.99.
    EXPECT_EQ(Bounds(BrushCells(t, 5.0f, 5.0f, 2)), (std::array{50, 53, 49, 52}));
    EXPECT_TRUE(BrushCells(t, 0.0f, 0.0f, 0).Empty());
    EXPECT_EQ(Bounds(BrushCells(t, -600.0f, -600.0f, 3)), (std::array{1, 3, 0, 2}))
        << "the corner clamps first";
    const std::pair<float, int> under[] = {{-512.0f, 0}, {-502.0f, 2}, {-498.0f, 4}}; // 2.5 and 3.5 to even
    for (const auto& [position, index] : under)
        EXPECT_EQ(GridIndexUnder(position, 4.0f), index) << position;
    EXPECT_EQ(GridIndexUnder(-511.5f, 1.0f), 0) << "0.5 rounds to 0 first";
    EXPECT_EQ(GridIndexUnder(0.0f, std::nanf("")), 1000000);
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

// What the blocks draw, cell by cell in block order: each corner's position and texture
// coordinates, the ground normal on each triangle's last corner, then the water corners of wet
// cells. fromArrays reads the block arrays; otherwise the points, normals and water test of the
// cell-by-cell path.
std::vector<float> Sent(const RenderMesh& mesh, bool fromArrays) {
    std::vector<float> sent;
    const auto put = [&sent](std::initializer_list<float> values) { sent.insert(sent.end(), values); };
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
                    const Vector3& p = fromArrays ? v.position : mesh.Vertex(corners[k][0], corners[k][1]);
                    const TexCoord& uv = fromArrays ? v.uv : mesh.GroundUV(corners[k][0], corners[k][1]);
                    const Vector3& n = fromArrays ? v.normal : mesh.Normal(column, row, k / 3);
                    put({p.x, p.y, p.z, uv.u, uv.v});
                    if (k % 3 == 2) put({n.x, n.y, n.z});
                    dry = dry && p.y >= 0.0f;
                }
                if (fromArrays ? mesh.WetCellsBefore(b, slot + 1) == mesh.WetCellsBefore(b, slot) : dry)
                    continue;
                for (int k = 0; k < 6; ++k) {
                    const WaterVertex& v = mesh.WaterVertices(b)[mesh.WaterIndices(b)[6 * wet + k]];
                    const Vector3& p = mesh.Vertex(corners[k][0], corners[k][1]);
                    const Vector3 at = fromArrays ? v.position : Vector3{p.x, 0.0f, p.z};
                    const TexCoord& uv = fromArrays ? v.uv : mesh.WaterUV(corners[k][0], corners[k][1]);
                    put({at.x, at.y, at.z, uv.u, uv.v});
                }
                ++wet;
            }
    }
    return sent;
}

} // namespace

TEST(RenderMeshArrays,
     BlocksCoverEveryDrawnCellOnceBoundTheirPointsAndSendWhatTheCellByCellPathSendsAfterARefresh) {
    TerrainData t = Rolling(50, 45); // narrower blocks at the right and bottom edges
    RenderMesh mesh, fresh;
    mesh.Build(t);
    std::vector<int> covered(50 * 45, 0);
    for (const MeshBlock& block : mesh.Blocks())
        for (int row = block.cells.firstRow; row <= block.cells.lastRow; ++row)
            for (int column = block.cells.firstColumn; column <= block.cells.lastColumn; ++column) {
                ++covered[static_cast<std::size_t>(row * 50 + column)];
                for (const Vector3* p : {&mesh.Vertex(column - 1, row), &mesh.Vertex(column, row + 1)})
                    EXPECT_TRUE(p->y >= block.low.y && p->y <= block.high.y && p->x >= block.low.x &&
                                p->z <= block.high.z);
            }
    const CellRange all = DrawnCells(t, false);
    for (int row = 0; row < 45; ++row)
        for (int column = 0; column < 50; ++column)
            EXPECT_EQ(covered[static_cast<std::size_t>(row * 50 + column)],
                      all.Contains(column, row) ? 1 : 0);
    // Refreshes across block edges (points 16 and 32 sit on them), in and out of the water.
    for (int row = 12; row <= 20; ++row)
        for (int column = 13; column <= 19; ++column)
            t.heights.At(row, column) = static_cast<float>(column - 16) * 3.0f - 6.0f;
    mesh.UpdateArea(t, 13, 12, 19, 20);
    t.heights.At(32, 32) = -40.0f;
    mesh.UpdateArea(t, 32, 32, 32, 32);
    EXPECT_EQ(Sent(mesh, true), Sent(mesh, false));
    fresh.Build(t);
    EXPECT_EQ(Sent(mesh, true), Sent(fresh, true));
    ASSERT_EQ(mesh.Blocks().size(), fresh.Blocks().size());
    for (std::size_t i = 0; i < fresh.Blocks().size(); ++i)
        EXPECT_TRUE(mesh.Blocks()[i].high.y == fresh.Blocks()[i].high.y &&
                    mesh.Blocks()[i].low.y == fresh.Blocks()[i].low.y)
            << i;
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
    CellSpans(narrow, narrow, CellRange{}, spans);
    EXPECT_EQ(spans.size(), 16u) << "rows of a narrow block are not contiguous";
    const struct {
        CellRange block, part, brush;
    } cases[] = {{full, {20, 30, 18, 25}, {22, 24, 19, 20}},
                 {full, {17, 32, 20, 20}, {10, 40, 20, 20}},
                 {full, full, {30, 40, 30, 40}},
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
}
