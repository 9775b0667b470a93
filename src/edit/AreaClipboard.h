#pragma once
// The program's own terrain clipboard: the heights of the area around the cursor, kept by Copy and
// written back by Paste at the cursor's new position. Not the system clipboard.

#include "GridRect.h"

#include <vector>

class AreaClipboard {
public:
    // Keeps the heights of the area of the given radius around the cursor (OperationArea). Each
    // point (x, z) goes to block position (x - x0, z - z0) counted from the area's clipped low
    // corner. Nothing happens on an empty grid.
    void CopyArea(const TerrainData& terrain, float cursorX, float cursorZ, int radius);
    // Writes the block back into the area around the cursor, using the radius stored at copy time;
    // block position (x - x0, z - z0) goes to point (x, z), so near the grid's low edge the block's
    // far side is dropped. Heights are copied as they are. Returns the points written (empty
    // before the first copy or on an empty grid).
    //
    // Both directions keep to the block: where the area's rows end at columns - 1 and so reach
    // past the block's 2r + 1 rows, those further rows are neither copied nor written.
    GridRect PasteArea(TerrainData& terrain, float cursorX, float cursorZ) const;

    bool HasTerrainClipboard() const { return has_; }
    int RadiusX() const { return radiusX_; }
    int RadiusZ() const { return radiusZ_; }
    // Block height at (x, z), 0 <= x, z <= 2 * radius.
    float At(int x, int z) const;

private:
    std::vector<float> block_; // (2r + 1) x (2r + 1), row by row
    int radiusX_ = 0;
    int radiusZ_ = 0;
    bool has_ = false;
};
