#pragma once
// The terrain as Wavefront OBJ text: one group of the grid's points and triangles, no normals,
// texture coordinates or materials. Lines end in CR LF and every number uses "." as its decimal
// point whatever the locale.
//
// The points are where the 3D view draws them (GridPointPosition: X and Z centred on the origin),
// written "v X Z height", rows from row 0, columns fastest. The triangles follow the exporter's
// long-standing loops: rows 1 .. rows - 2 and columns 1 .. columns - 2, so the band between rows
// 0 and 1 and the last column of cells stay open, and the header's face count is
// (columns - 3) x (rows - 3) x 2, not the number of face lines. Both are kept on purpose so that
// files match the ones the editor has always written.

#include "TerrainModel.h"

#include <string>

// A vertex coordinate: rounded to 6 decimals (ties to even), at least one integer digit, no
// trailing zeros, and always the decimal point ("-512.", "3.25", "0.000001"). Not a number and
// infinities are written "0.".
std::string FormatObjNumber(double value);
// A count with "," between groups of three digits: 10404 -> "10,404".
std::string FormatGroupedCount(long long value);

// The whole file's text for the terrain's height grid.
std::string MakeObjText(const TerrainData& terrain);

// Writes the text atomically (a failure leaves an existing file as it was); false with a reason.
bool WriteObjFile(const std::string& path, const TerrainData& terrain, std::string& error);
