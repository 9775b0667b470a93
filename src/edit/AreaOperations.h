#pragma once
// One-shot operations on the area around the cursor (Flip, Mirror, Invert, the flatten commands)
// and on the whole grid (Reset, Adjust Height). Each returns the points it changed.

#include "GridRect.h"
#include "Sculpt.h"

// Ground level of Reset and "Flatten to Ground": 0.5 with water, else 0.
float GroundLevel(const TerrainData& terrain);
// Level of "Flatten to Water": -10 with water, else 0.
float WaterLevel(const TerrainData& terrain);

// Reverses the rows of the area (north to south).
GridRect FlipArea(TerrainData& terrain, float cursorX, float cursorZ, int radius);
// Reverses the columns of the area (west to east).
GridRect MirrorArea(TerrainData& terrain, float cursorX, float cursorZ, int radius);
// Turns the area upside down within its own height range: h becomes top - h + bottom.
GridRect InvertArea(TerrainData& terrain, float cursorX, float cursorZ, int radius);
// Sets every point of the area to level.
GridRect FlattenArea(TerrainData& terrain, float cursorX, float cursorZ, int radius, float level);
// Flattens the area to the middle of its height range (relational) or to its lowest point
// (absolute); the range is measured over the sculpt stroke's area.
GridRect FlattenToArea(TerrainData& terrain, float cursorX, float cursorZ, int radius, SculptMode mode);

// Every point of the grid to the ground level.
GridRect ResetTerrain(TerrainData& terrain);

enum class AdjustMode { Raise = 0, Lower = 1, Set = 2 };
// Raises, lowers or sets every point by amount, then limits it to -10 .. 150.
GridRect AdjustHeights(TerrainData& terrain, float amount, AdjustMode mode);
