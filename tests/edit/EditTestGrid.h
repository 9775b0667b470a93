#pragma once
// Small terrains for the editing tests. Column and row counts that divide 1024 give whole-unit
// spacings, so the cursor positions below land exactly on the grid point they name.

#include "TerrainModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

inline TerrainData MakeTerrain(int columns, int rows, float level = 0.0f, bool water = false) {
    TerrainData terrain;
    terrain.columns = columns;
    terrain.rows = rows;
    terrain.spacingX = kTerrainExtent / static_cast<float>(columns);
    terrain.spacingZ = kTerrainExtent / static_cast<float>(rows);
    terrain.waterEnabled = water;
    terrain.heights.Resize(columns, rows, level);
    return terrain;
}

// World position of the cursor over column c / row r.
inline float CursorX(const TerrainData& terrain, int column) {
    return static_cast<float>(column) * terrain.spacingX - 512.0f;
}
inline float CursorZ(const TerrainData& terrain, int row) {
    return static_cast<float>(row) * terrain.spacingZ - 512.0f;
}

// Every point a different whole number: row * 100 + column.
inline void NumberPoints(TerrainData& terrain) {
    for (int z = 0; z < terrain.heights.Rows(); ++z)
        for (int x = 0; x < terrain.heights.Columns(); ++x)
            terrain.heights.At(z, x) = static_cast<float>(z * 100 + x);
}

// How many points are not at the given height.
inline int CountNotAt(const TerrainData& terrain, float height) {
    const float* h = terrain.heights.Data();
    return static_cast<int>(
        std::count_if(h, h + terrain.heights.Size(), [height](float v) { return v != height; }));
}

// Checks the listed points, each {row, column, height}.
inline void ExpectHeights(const TerrainData& terrain, std::initializer_list<std::array<float, 3>> points) {
    for (const auto& [row, column, height] : points)
        EXPECT_FLOAT_EQ(terrain.heights.At(static_cast<int>(row), static_cast<int>(column)), height)
            << "row " << row << ", column " << column;
}

inline bool AllFinite(const TerrainData& terrain) {
    const float* h = terrain.heights.Data();
    return std::all_of(h, h + terrain.heights.Size(), [](float v) { return std::isfinite(v); });
}
