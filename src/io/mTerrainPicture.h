#pragma once
// The picture of a terrain, as the picture export writes it and the picture import previews it:
// one pixel per grid point (picture row 0 = grid row 0, the -z edge), coloured by height from
// low green through brown and grey rock to white at the ceiling, lit from the picture's upper
// left (the -x, +z corner) so slopes show, and blue water, darker with depth, where the ground
// lies below 0 on a terrain with water.

#include "TerrainModel.h"
#include "cDIBSection.h"

// Empty for a terrain without heights.
cDIBSection RenderTerrainPicture(const TerrainData& terrain);
