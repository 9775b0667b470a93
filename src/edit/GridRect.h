#pragma once
// Rectangles of grid points and the areas around the terrain cursor that the editing tools act on.
//
// Columns run along x, rows along z; every bound is inclusive. An algorithm returns the rectangle
// of points it changed (or `whole` when it touched the entire grid) so that the caller refreshes
// only that part of the view; it never redraws anything itself.

#include "TerrainGrid.h"
#include "TerrainModel.h"

struct GridRect {
    int firstColumn = 0;
    int firstRow = 0;
    int lastColumn = -1;
    int lastRow = -1;
    bool whole = false; // every point of the grid may have changed

    bool Empty() const { return !whole && (lastColumn < firstColumn || lastRow < firstRow); }
    static GridRect Whole() {
        GridRect r;
        r.whole = true;
        return r;
    }
    bool operator==(const GridRect&) const = default;
};

// The grid point under the cursor (cursorX, cursorZ in world units), clamped into the grid.
GridPoint CursorGridPoint(const TerrainData& terrain, float cursorX, float cursorZ);

// The sculpt stroke's EffectArea: the square of the given radius around the grid point under the
// cursor, clipped to the grid on all four sides.
GridRect SculptArea(const TerrainData& terrain, float cursorX, float cursorZ, int radius);

// The area of Flip, Mirror, Invert, the flatten commands, Copy, Paste and the area filter. The
// centre is clamped to 0 .. count (one past the last point), the low bounds to 0, and the high
// bounds are clipped lopsidedly on purpose: when the square reaches past the last column, the last
// row becomes columns - 1 (then at most rows - 1). Columns past the last one are not part of the
// terrain and are cut off here, so callers never read or write outside the grid.
GridRect OperationArea(const TerrainData& terrain, float cursorX, float cursorZ, int radius);
// The same with its own radius along the columns and along the rows (Paste keeps both from Copy).
GridRect OperationArea(const TerrainData& terrain, float cursorX, float cursorZ, int radiusX, int radiusZ);

// Lowest height a sculpt stroke may leave: -10 with water, else 0.
float SculptFloor(const TerrainData& terrain);
inline constexpr float kHeightCeiling = 150.0f;
// Floor of the filter and of Adjust Height, with or without water.
inline constexpr float kToolFloor = -10.0f;

// The highest and lowest height within an area of the grid. The scan starts from top -999 and
// bottom 999, so heights beyond those never count.
struct HeightRange {
    double top = -999.0;
    double bottom = 999.0;
};
HeightRange ScanHeightRange(const HeightGrid& grid, const GridRect& area);

// A height limited to kToolFloor .. kHeightCeiling.
double LimitToToolRange(double height);
