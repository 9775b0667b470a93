#pragma once
// Terrain files (".cvtera"): exactly one "TERA" chunk, byte for byte as a track file carries it,
// and nothing before or after it.

#include "TrackDocument.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

enum class TerrainReadStatus { Ok, Unreadable, NotATerrain, Corrupt };

struct TerrainReadResult {
    TerrainReadStatus status = TerrainReadStatus::Ok;
    std::string message;
    explicit operator bool() const { return status == TerrainReadStatus::Ok; }
};

// Parses a terrain file image into record; record is untouched unless the whole chunk was read.
TerrainReadResult ParseTerrainFile(std::span<const std::uint8_t> bytes, TerrainRecord& record);
TerrainReadResult ReadTerrainFile(const std::string& path, TerrainRecord& record);

std::vector<std::uint8_t> SerializeTerrainFile(const TerrainRecord& record);
// Writes atomically; returns false with a reason in error.
bool WriteTerrainFile(const std::string& path, const TerrainRecord& record, std::string& error);
