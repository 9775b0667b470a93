#pragma once
// Builds the demo track document deterministically: a closed coaster circuit with hills, a
// turn-around and banked curves, every segment type, supports, trees, scenery objects, a
// description, environment names and (optionally) a terrain with hills, a valley and a lake.

#include "TrackDocument.h"

struct DemoOptions {
    int terrainSide = 205;   // grid points per side of the terrain
    bool withTerrain = true; // false: the same track without a TERA chunk
};

TrackDocument MakeDemoTrack(const DemoOptions& options = {});
