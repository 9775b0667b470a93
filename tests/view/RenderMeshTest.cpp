// The render mesh: placement, normals, texture repeats, drawn ranges, the brush highlight and
// partial refreshes that match a full rebuild.
#include "RenderMesh.h"

#include <gtest/gtest.h>

#include <cmath>

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

} // namespace

TEST(RenderMesh, PointsAreCentredAndNormalsOfFlatGroundPointUp) {
    RenderMesh mesh;
    mesh.Build(Grid(5, 3, 2.0f));
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
}

TEST(RenderMesh, TheTwoTrianglesOfACellFaceUpInTheirDrawingOrder) {
    // The renderer draws B, A, D and A, C, D: both must be front-facing from above.
    RenderMesh mesh;
    mesh.Build(Grid(4, 4));
    const Vector3& a = mesh.Vertex(0, 0);
    const Vector3& b = mesh.Vertex(1, 0);
    const Vector3& c = mesh.Vertex(0, 1);
    const Vector3& d = mesh.Vertex(1, 1);
    EXPECT_TRUE(FacesUpFromAbove(b, a, d));
    EXPECT_TRUE(FacesUpFromAbove(a, c, d));
}

TEST(RenderMesh, ASlopeTiltsTheNormalsAwayFromTheRise) {
    TerrainData t = Grid(4, 4);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) t.heights.At(row, column) = static_cast<float>(column) * 10.0f;
    RenderMesh mesh;
    mesh.Build(t);
    EXPECT_LT(mesh.Normal(2, 1, 0).x, 0.0f) << "ground rising towards +x faces -x";
    EXPECT_GT(mesh.Normal(2, 1, 0).y, 0.0f);
    EXPECT_NEAR(mesh.Normal(2, 1, 0).x, mesh.Normal(2, 1, 1).x, 1e-6);
}

TEST(RenderMesh, TextureRepeatsCoverTheRoundedNumberOfPoints) {
    TerrainData t = Grid(205, 205);
    t.groundTiling = 10.0f; // one repeat per round(20.5) = 20 points
    t.waterTiling = 50.0f;  // one repeat per round(4.1) = 4 points
    RenderMesh mesh;
    mesh.Build(t);
    EXPECT_FLOAT_EQ(mesh.GroundUV(20, 0).u, 1.0f);
    EXPECT_FLOAT_EQ(mesh.GroundUV(0, 40).v, 2.0f);
    EXPECT_FLOAT_EQ(mesh.WaterUV(4, 8).u, 1.0f);
    EXPECT_FLOAT_EQ(mesh.WaterUV(4, 8).v, 2.0f);
    t.groundTiling = 1000.0f; // more repeats than points: one point per repeat
    mesh.Build(t);
    EXPECT_FLOAT_EQ(mesh.GroundUV(3, 0).u, 3.0f);
}

TEST(RenderMesh, DrawnCellsCoverTheGridOrTheCentralSceneArea) {
    TerrainData t = Grid(205, 205);
    const CellRange all = DrawnCells(t, false);
    EXPECT_EQ(all.firstColumn, 1);
    EXPECT_EQ(all.lastColumn, 204);
    EXPECT_EQ(all.firstRow, 0);
    EXPECT_EQ(all.lastRow, 203);
    TerrainData four = Grid(256, 256); // cells of 4 units
    const CellRange clipped = DrawnCells(four, true);
    EXPECT_EQ(clipped.lastColumn - clipped.firstColumn + 1, 110);
    EXPECT_EQ(clipped.firstColumn + clipped.lastColumn, 255) << "centred";
    EXPECT_EQ(clipped.lastRow - clipped.firstRow + 1, 109);
}

TEST(RenderMesh, BrushHighlightIsLopsidedAndEmptyAtSizeZero) {
    TerrainData t = Grid(101, 101);
    // The cursor at (5, 5) stands over point (51, 51): 517 / (1024 / 101) = 50.99.
    CellRange cells = BrushCells(t, 5.0f, 5.0f, 2);
    EXPECT_EQ(cells.firstColumn, 50);
    EXPECT_EQ(cells.lastColumn, 53);
    EXPECT_EQ(cells.firstRow, 49);
    EXPECT_EQ(cells.lastRow, 52);
    EXPECT_TRUE(BrushCells(t, 0.0f, 0.0f, 0).Empty());
    // At the grid's corner the bounds are clamped first.
    cells = BrushCells(t, -600.0f, -600.0f, 3);
    EXPECT_EQ(cells.firstColumn, 1);
    EXPECT_EQ(cells.lastColumn, 3);
    EXPECT_EQ(cells.firstRow, 0);
    EXPECT_EQ(cells.lastRow, 2);
}

TEST(RenderMesh, GridIndexRoundsTiesToEven) {
    EXPECT_EQ(GridIndexUnder(-512.0f, 4.0f), 0);
    EXPECT_EQ(GridIndexUnder(-502.0f, 4.0f), 2) << "10 / 4 = 2.5 rounds to 2";
    EXPECT_EQ(GridIndexUnder(-498.0f, 4.0f), 4) << "14 / 4 = 3.5 rounds to 4";
    EXPECT_EQ(GridIndexUnder(-511.5f, 1.0f), 0) << "0.5 rounds to 0 first";
    EXPECT_EQ(GridIndexUnder(0.0f, std::nanf("")), 1000000);
}

TEST(RenderMesh, AnAreaRefreshGivesWhatAFullRebuildGives) {
    TerrainData t = Grid(40, 30);
    RenderMesh partial;
    partial.Build(t);
    for (int row = 10; row <= 14; ++row)
        for (int column = 20; column <= 23; ++column) t.heights.At(row, column) = 30.0f + row - column;
    partial.UpdateArea(t, 20, 10, 23, 14);
    RenderMesh full;
    full.Build(t);
    for (int row = 0; row <= 28; ++row)
        for (int column = 1; column <= 39; ++column)
            for (int which = 0; which < 2; ++which) {
                const Vector3& a = partial.Normal(column, row, which);
                const Vector3& b = full.Normal(column, row, which);
                ASSERT_TRUE(a.x == b.x && a.y == b.y && a.z == b.z) << column << "," << row;
            }
    ASSERT_EQ(partial.Blocks().size(), full.Blocks().size());
    for (std::size_t i = 0; i < full.Blocks().size(); ++i) {
        EXPECT_EQ(partial.Blocks()[i].high.y, full.Blocks()[i].high.y) << i;
        EXPECT_EQ(partial.Blocks()[i].low.y, full.Blocks()[i].low.y) << i;
    }
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
            EXPECT_EQ(covered[static_cast<std::size_t>(row * 50 + column)], all.Contains(column, row) ? 1 : 0);
}
