#include "Sculpt.h"

#include <cmath>

namespace {

// Calls step(h) for every point of the area and stores what it returns.
template <typename Step> void ForEachPoint(HeightGrid& grid, const GridRect& area, Step step) {
    for (int z = area.firstRow; z <= area.lastRow; ++z)
        for (int x = area.firstColumn; x <= area.lastColumn; ++x) {
            float& h = grid.At(z, x);
            h = static_cast<float>(step(static_cast<double>(h)));
        }
}

// Every point at or below the top moves up by a share of its distance to the top plus k, and
// never past the top. A flat area has no top to rise towards, so the top is lifted by delta first
// and the area rises as a whole.
void RaiseRelational(HeightGrid& grid, const GridRect& area, double delta) {
    HeightRange range = ScanHeightRange(grid, area);
    if (range.top == range.bottom) range.top += delta;
    const double k = delta * 0.1;
    const double top = range.top;
    ForEachPoint(grid, area, [top, k](double h) {
        if (!(h <= top)) return h;
        double raised = (top - h) * k + h + k;
        if (raised > top) raised = top;
        if (raised > kHeightCeiling) raised = kHeightCeiling;
        return raised;
    });
}

// The mirror of RaiseRelational: points at or above the bottom sink towards it, never below it
// nor below the floor.
void LowerRelational(HeightGrid& grid, const GridRect& area, double delta, double floor) {
    HeightRange range = ScanHeightRange(grid, area);
    if (range.bottom == range.top) range.bottom += delta;
    const double k = delta * 0.1;
    const double bottom = range.bottom;
    ForEachPoint(grid, area, [bottom, k, floor](double h) {
        if (!(h >= bottom)) return h;
        double lowered = (h - bottom) * k + h + k;
        if (lowered < bottom) lowered = bottom;
        if (lowered < floor) lowered = floor;
        return lowered;
    });
}

void MoveAbsolute(HeightGrid& grid, const GridRect& area, double delta, double floor) {
    ForEachPoint(grid, area, [delta, floor](double h) {
        double moved = h + delta;
        if (moved < floor) moved = floor;
        if (moved > kHeightCeiling) moved = kHeightCeiling;
        return moved;
    });
}

} // namespace

GridRect ApplySculpt(TerrainData& terrain, float cursorX, float cursorZ, SculptTool tool, SculptMode mode,
                     int radius, float delta) {
    if (tool != SculptTool::Square) return {};
    // A step that is not a number would spread through the whole area; it changes nothing instead.
    if (!std::isfinite(delta)) return {};
    const GridRect area = SculptArea(terrain, cursorX, cursorZ, radius);
    if (area.Empty()) return {};
    const double step = delta;
    const double floor = SculptFloor(terrain);
    if (mode == SculptMode::Relational) {
        if (step >= 0.0)
            RaiseRelational(terrain.heights, area, step);
        else
            LowerRelational(terrain.heights, area, step, floor);
    } else if (mode == SculptMode::Absolute) {
        MoveAbsolute(terrain.heights, area, step, floor);
    } else {
        return {};
    }
    return area;
}
