#pragma once
// The text `landwright-cli info` prints for a track or terrain file.

#include "TrackDocument.h"
#include "TrackFile.h"

#include <string>
#include <vector>

// Summary of a terrain: size, spacing, textures with tilings, water, reflection and the height
// range, one item per line, each line indented by two spaces.
std::string DescribeTerrain(const TerrainData& terrain);

// Summary of a whole track: the chunks as read, then terrain, track style, vertices, segments per
// type, supports, trees and scenery objects.
std::string DescribeTrack(const TrackDocument& doc, const std::vector<ChunkListing>& chunks);

// A number with a fixed count of decimals and "." as the separator whatever the locale.
std::string FormatFixed(double value, int decimals);
