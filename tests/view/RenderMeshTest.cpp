// The render mesh: placement, normals, texture repeats, drawn ranges, the brush highlight and
// partial refreshes that match a full rebuild.
#include "RenderMesh.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace {

// A grid of the given size; rolling heights dip below the water line in places.
TerrainData Grid(int columns, int rows, bool rolling = false) {
    TerrainData t;
    t.columns = columns;
    t.rows = rows;
    t.spacingX = 1024.0f / static_cast<float>(columns);
    t.spacingZ = 1024.0f / static_cast<float>(rows);
    t.groundTiling = 10.0f;
    t.waterTiling = 50.0f;
    t.heights.Resize(columns, rows, 0.0f);
    for (int row = 0; rolling && row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            t.heights.At(row, column) = 12.0f * std::sin(0.37f * static_cast<float>(column)) +
                                        9.0f * std::cos(0.23f * static_cast<float>(row)) - 4.0f;
    return t;
}

std::array<int, 4> Bounds(const CellRange& r) {
    return {r.firstColumn, r.lastColumn, r.firstRow, r.lastRow};
}

// What the block arrays send, cell by cell in block order: each corner's position and texture
// coordinates, the normal on each triangle's last corner, then the water corners of wet cells.
std::vector<float> Sent(const RenderMesh& mesh) {
    std::vector<float> sent;
    for (std::size_t b = 0; b < mesh.Blocks().size(); ++b) {
        const CellRange& cells = mesh.Blocks()[b].cells;
        for (int row = cells.firstRow; row <= cells.lastRow; ++row)
            for (int column = cells.firstColumn; column <= cells.lastColumn; ++column) {
                const int slot = (row - cells.firstRow) * kMeshBlockCells + column - cells.firstColumn;
                for (int k = 0; k < 6; ++k) {
                    const GroundVertex& v = mesh.GroundVertices(b)[RenderMesh::GroundIndices()[6 * slot + k]];
                    sent.insert(sent.end(), {v.position.x, v.position.y, v.position.z, v.uv.u, v.uv.v});
                    if (k % 3 == 2) sent.insert(sent.end(), {v.normal.x, v.normal.y, v.normal.z});
                }
            }
        for (int k = 0; k < 6 * mesh.WetCellsBefore(b, kBlockCellSlots); ++k) {
            const WaterVertex& v = mesh.WaterVertices(b)[mesh.WaterIndices(b)[k]];
            sent.insert(sent.end(), {v.position.x, v.position.y, v.position.z, v.uv.u, v.uv.v});
        }
    }
    return sent;
}

} // namespace

TEST(RenderMesh, PointsAreCentredOnTheOriginWithNormalsLeaningAwayFromTheRise) {
    TerrainData t = Grid(5, 3);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 5; ++column)
            t.heights.At(row, column) = static_cast<float>(column) * 10.0f; // rising towards +x
    RenderMesh mesh;
    mesh.Build(t);
    EXPECT_FLOAT_EQ(mesh.Vertex(0, 0).x, -2.0f * 1024.0f / 5.0f);
    EXPECT_FLOAT_EQ(mesh.Vertex(4, 2).z, 1024.0f / 3.0f);
    EXPECT_EQ(mesh.Vertex(3, 1).y, 30.0f);
    for (int which = 0; which < 2; ++which) {
        const Vector3& n = mesh.Normal(2, 1, which);
        EXPECT_TRUE(n.x < 0.0f && n.y > 0.0f && std::abs(n.z) < 1e-6f) << which << ": up, leaning to -x";
    }
}

TEST(RenderMesh, TexturesRepeatEveryRoundedNumberOfPointsButAtLeastOne) {
    RenderMesh mesh;
    TerrainData t = Grid(205, 205); // ground tiling 10: one repeat per round(20.5) = 20 points, water 50: 4
    mesh.Build(t);
    EXPECT_FLOAT_EQ(mesh.GroundUV(20, 0).u, 1.0f);
    EXPECT_FLOAT_EQ(mesh.GroundUV(0, 40).v, 2.0f);
    EXPECT_TRUE(mesh.WaterUV(4, 8).u == 1.0f && mesh.WaterUV(4, 8).v == 2.0f);
    t.groundTiling = 1000.0f; // more repeats than points: one point per repeat
    mesh.Build(t);
    EXPECT_FLOAT_EQ(mesh.GroundUV(3, 0).u, 3.0f);
}

TEST(RenderMesh, DrawnCellsAndTheBrushHighlightClampToTheGrid) {
    const TerrainData t = Grid(101, 101);
    EXPECT_EQ(Bounds(DrawnCells(Grid(205, 205), false)), (std::array{1, 204, 0, 203}));
    EXPECT_EQ(Bounds(DrawnCells(Grid(256, 256), true)), (std::array{73, 182, 73, 181})) << "cells of 4 units";
    // The cursor at (5, 5) stands over point (51, 51): 517 / (1024 / 101) = 50.99.
    EXPECT_EQ(Bounds(BrushCells(t, 5.0f, 5.0f, 2)), (std::array{50, 53, 49, 52}));
    EXPECT_TRUE(BrushCells(t, 0.0f, 0.0f, 0).Empty());
    EXPECT_EQ(Bounds(BrushCells(t, -600.0f, -600.0f, 3)), (std::array{1, 3, 0, 2}))
        << "the corner clamps first";
}

TEST(RenderMeshArrays, BlocksCoverEveryDrawnCellOnceAndBoundTheirPoints) {
    TerrainData t = Grid(50, 45, true); // narrower blocks at the right and bottom edges
    RenderMesh mesh, fresh;
    mesh.Build(t);
    std::vector<int> covered(50 * 45, 0);
    for (const MeshBlock& b : mesh.Blocks())
        for (int row = b.cells.firstRow; row <= b.cells.lastRow; ++row)
            for (int column = b.cells.firstColumn; column <= b.cells.lastColumn; ++column) {
                ++covered[static_cast<std::size_t>(row * 50 + column)];
                for (const Vector3* p : {&mesh.Vertex(column - 1, row), &mesh.Vertex(column, row + 1)})
                    EXPECT_TRUE(p->y >= b.low.y && p->y <= b.high.y && p->x >= b.low.x && p->z <= b.high.z);
            }
    for (int k = 0; k < 50 * 45; ++k)
        EXPECT_EQ(covered[static_cast<std::size_t>(k)], DrawnCells(t, false).Contains(k % 50, k / 50) ? 1 : 0)
            << k;
}

TEST(RenderMeshArrays, APartialRefreshSendsWhatAFullRebuildSends) {
    TerrainData t = Grid(50, 45, true);
    RenderMesh mesh, fresh;
    mesh.Build(t);
    // Refreshes across block edges (points 16 and 32 sit on them), in and out of the water.
    for (int row = 12; row <= 20; ++row)
        for (int column = 13; column <= 19; ++column)
            t.heights.At(row, column) = static_cast<float>(column - 16) * 3.0f - 6.0f;
    mesh.UpdateArea(t, 13, 12, 19, 20);
    t.heights.At(32, 32) = -40.0f;
    mesh.UpdateArea(t, 32, 32, 32, 32);
    fresh.Build(t);
    EXPECT_EQ(Sent(mesh), Sent(fresh));
    ASSERT_EQ(mesh.Blocks().size(), fresh.Blocks().size());
    for (std::size_t i = 0; i < fresh.Blocks().size(); ++i)
        EXPECT_TRUE(mesh.Blocks()[i].high.y == fresh.Blocks()[i].high.y &&
                    mesh.Blocks()[i].low.y == fresh.Blocks()[i].low.y)
            << i;
}

TEST(RenderMeshArrays, ASmallerTerrainBuiltOverTheOldKeepsNothingOfIt) {
    RenderMesh mesh, fresh;
    mesh.Build(Grid(50, 45, true));
    mesh.Build(Grid(40, 37, true));
    fresh.Build(Grid(40, 37, true));
    EXPECT_EQ(Sent(mesh), Sent(fresh));
    for (int k = 0; k <= 40; ++k) // the extra row and column stay at 0
        EXPECT_TRUE(mesh.Vertex(k, 37).y == 0.0f && mesh.GroundUV(40, k % 38).u == 0.0f) << k;
}

TEST(RenderMeshArrays, CellSpansKeepTheCellOrderSplittingOnlyWhereTheHighlightChanges) {
    const CellRange full{17, 32, 16, 31}, none{};
    const CellRange narrow{33, 39, 0, 15}; // a block at the grid's right edge: its rows are not contiguous
    const struct {
        CellRange block, part, brush;
        std::size_t spans;
    } cases[] = {{full, full, none, 1},
                 {full, full, {22, 24, 19, 20}, 5},
                 {narrow, narrow, none, 16},
                 {full, {20, 30, 18, 25}, {22, 24, 19, 20}, 12},
                 {full, {17, 32, 20, 20}, {10, 40, 20, 20}, 1},
                 {full, full, {30, 40, 30, 40}, 4},
                 {narrow, {34, 39, 3, 9}, {36, 36, 0, 5}, 13}};
    std::vector<CellSpan> spans;
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
        EXPECT_EQ(spans.size(), c.spans) << c.part.firstColumn << "," << c.part.firstRow;
    }
}
