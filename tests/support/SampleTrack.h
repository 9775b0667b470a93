#pragma once
// A small track document with every record kind filled and the awkward cases present: all five
// segment types plus one without a type-specific part, a catwalk with trailing bytes, empty and
// non-empty strings, colours, flags and a terrain grid.

#include "TrackDocument.h"

TrackDocument MakeSampleTrack(int terrainColumns = 5, int terrainRows = 4);

// A terrain of the given size with distinct heights and the default textures.
TerrainData MakeSampleTerrain(int columns, int rows);

// A terrain grid only: point (column, row) at height 10 * row + column, both spacings `spacing`.
TerrainData MakeNumberedTerrain(int columns, int rows, float spacing);
