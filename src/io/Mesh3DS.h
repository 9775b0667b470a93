#pragma once
// What a 3DS export holds: the terrain cut into mesh objects that keep within the 16-bit counts,
// the traced track as solid rails and cross-pieces, and the materials that colour them.
//
// Axes: the editor's world is y up; 3DS files are z up. A point (x, y, z) of the world is written
// as (x, -z, y), a quarter turn about x, so the terrain lies upright in other programs, the
// triangles keep their winding (fronts facing up and out) and the track stays where it stands
// over the terrain. World units are kept as they are.

#include "TerrainModel.h"
#include "mCV_TraceTrack.h"
#include "mSave3DSObject.h"

#include <string>
#include <vector>

Vector3 To3DSAxes(const Vector3& world);

// The most vertices and faces one object may take.
struct MeshLimits {
    std::size_t vertices = kMax3DSCount;
    std::size_t faces = kMax3DSCount;
};

// "TERA0000", "TRCK0012": prefix and the number in four digits.
std::string NumberedObjectName(const std::string& prefix, std::size_t number);

// How many grid rows one terrain object holds for a grid `columns` wide: as many as keep both
// counts within the limits (at least 2); 0 when not even two rows fit.
int TerrainRowsPerObject(int columns, const MeshLimits& limits = {});

// The terrain as objects "TERA0000", ... of consecutive rows, each sharing its last row with the
// next object's first so the surface has no gaps. Every cell gives two triangles (split along the
// same diagonal as the view draws). Mapping coordinates run 0..1 across the whole terrain, u with
// the column and v with the row, so one picture laid on the objects covers the terrain once, its
// bottom row along grid row 0. A grid without a cell gives no object.
std::vector<Object3DS> BuildTerrainObjects(const TerrainData& terrain, const std::string& material,
                                           const MeshLimits& limits = {});

// The traced track as objects "TRCK0000", ...: the spine and both running rails as thin square
// tubes along the drawn points, and the cross-piece of the coaster style at every drawn point as a
// thin square bar. Each object carries mapping coordinates (u around a tube, v along it). A track
// of fewer than two drawn points gives no object.
std::vector<Object3DS> BuildTrackObjects(const TrackSpine& spine, const std::string& material,
                                         const MeshLimits& limits = {});

struct Export3DSOptions {
    Colour24 terrainColour;
    Colour24 trackColour;
    bool includeTrack = true;
};

// The whole export: material MATER000 in the terrain colour with the terrain objects and, when the
// track is included and spine has one, MATER001 in the track colour with the track objects.
// spine may be null (no track).
Scene3DS Build3DSScene(const TerrainData& terrain, const TrackSpine* spine, const Export3DSOptions& options);
