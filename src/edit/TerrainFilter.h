#pragma once
// The 3 x 3 convolution filter over the heights, and its presets.

#include "GridRect.h"

#include <array>
#include <string>

// m[0..2] weigh the row before the point (z - 1), m[3..5] its own row, m[6..8] the row after;
// within a row the columns x - 1, x, x + 1. The weighted sum is divided by factor.
struct FilterMatrix {
    std::array<int, 9> m{};
    int factor = 0;
    bool operator==(const FilterMatrix&) const = default;
};

struct FilterPreset {
    const char* text;
    FilterMatrix matrix;
};

// "Soften Sharp Edges", "Smooth Features", "Soft Flowing Features", "Raise Features",
// "Lower Features", "Enhance Roughness!".
const std::array<FilterPreset, 6>& FilterPresets();
// The preset's matrix and factor; any other index gives all zeros.
FilterMatrix PresetMatrix(int index);

// Filters the whole terrain or only the area around the cursor (OperationArea). Points are
// filtered in place, rows first, so each point already sees the new values of the points before it;
// neighbours outside the grid count as height 0; results are limited to -10 .. 150. The whole-grid
// pass bounds its columns by the row count as well, leaving the columns from `rows` on untouched.
// A factor of 0 divides by nothing sensible: the terrain is left unchanged and an empty rectangle
// returned (the dialog refuses such a factor before it gets here).
GridRect FilterTerrain(TerrainData& terrain, const FilterMatrix& matrix, bool onlyInArea, float cursorX,
                       float cursorZ, int radius);
