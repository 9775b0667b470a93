#pragma once
// Where the terrain's grid points stand in the world, and which grid point lies under a world
// position.
//
// World units, y up. The grid spans the terrain centred on the origin: point (row r, column c) of a
// grid of `columns` x `rows` points stands at X = spacingX * (c - (columns - 1) / 2),
// Z = spacingZ * (r - (rows - 1) / 2), Y = heights[r][c]. Columns run along x, rows along z.

#include "TerrainModel.h"
#include "mMath3D.h"

struct GridPoint {
    int column = 0;
    int row = 0;
    bool operator==(const GridPoint&) const = default;
};

// How GridPointUnder keeps its answer inside the grid.
enum class GridClamp {
    // 0 .. count - 1: always a point of the grid (for reading a height). A grid with no points
    // gives 0.
    ToLastPoint,
    // 0 .. count: one past the last point is allowed. The render mesh keeps an extra row and
    // column there, and the area operations let their centre sit there.
    OnePastLast,
    // Not clamped: positions beyond the grid give indices beyond it, negative ones below 0.
    None,
};

// The one rule for the grid point under the world position (x, z): along each axis
// round(round(position + 512) / spacing), both roundings to the nearest with ties to even, then
// clamped as asked. A spacing of zero or not a number gives a point far outside the grid (before
// clamping) rather than an undefined conversion.
GridPoint GridPointUnder(float x, float z, float spacingX, float spacingZ, int columns, int rows,
                         GridClamp clamp);
// The same over a terrain's height grid (its stored columns and rows).
GridPoint GridPointUnder(const TerrainData& terrain, float x, float z, GridClamp clamp);

// The position along one axis of point `index` of `count` points `spacing` apart, centred on the
// origin; computed in double precision and rounded once.
float GridCoordinate(int index, int count, float spacing);

// The world position of grid point (row, column) of the terrain's height grid, at its height.
// The point must lie in the grid.
Vector3 GridPointPosition(const TerrainData& terrain, int row, int column);

// The height of the grid point under (x, z), clamped to the last point; 0 when the grid is empty.
float HeightUnder(const TerrainData& terrain, float x, float z);
