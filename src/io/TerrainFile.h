#pragma once
// Terrain files (".cvtera"): exactly one "TERA" chunk, byte for byte as a track file carries it,
// and nothing before or after it.

#include "TrackDocument.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

enum class TerrainReadStatus { Ok, Unreadable, NotATerrain, Corrupt, NotATrack, NoTerrain };

struct TerrainReadResult {
    TerrainReadStatus status = TerrainReadStatus::Ok;
    std::string message;
    explicit operator bool() const { return status == TerrainReadStatus::Ok; }
};

// Parses a terrain file image into record; record is untouched unless the whole chunk was read.
TerrainReadResult ParseTerrainFile(std::span<const std::uint8_t> bytes, TerrainRecord& record);
TerrainReadResult ReadTerrainFile(const std::string& path, TerrainRecord& record);

// Takes the terrain out of a track file image without walking its chunks: the image must begin
// with "CRVT"; the first place from byte 4 on where the four bytes "TERA" stand is taken as the
// terrain chunk, even when those bytes lie inside an earlier chunk's data. A plain byte scan on
// purpose: it is how terrains have always been taken from tracks, so every track gives the terrain
// it always gave. record is untouched unless a whole chunk was read there.
TerrainReadResult ScanTrackForTerrain(std::span<const std::uint8_t> bytes, TerrainRecord& record);

// Gives the track file image a new terrain and keeps every other byte: the "TERA" chunk is
// replaced (or, in a track without one, put before the environment chunk, or at the end), and the
// file's length and top-level chunk count are brought in line. False with a reason in error when
// the image is not a readable track.
bool ReplaceTerrainInTrackImage(std::vector<std::uint8_t>& image, const TerrainRecord& record,
                                std::string& error);

std::vector<std::uint8_t> SerializeTerrainFile(const TerrainRecord& record);
// Writes atomically; returns false with a reason in error.
bool WriteTerrainFile(const std::string& path, const TerrainRecord& record, std::string& error);
