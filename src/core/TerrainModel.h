#pragma once
// The terrain the user edits and the scene flags held beside it.
//
// World units, y up. The terrain always spans 1024 x 1024 units in the x-z plane, centred on the
// origin: grid point (row r, column c) stands at X = spacingX * (c - (columns - 1) / 2),
// Z = spacingZ * (r - (rows - 1) / 2), Y = heights[r][c]. Heights are single precision and are
// stored row by row (the column index varies fastest), exactly as the track file carries them.

#include <cstdint>
#include <string>
#include <vector>

// Largest grid side any terrain may have: the undo store keeps snapshots of this size, so readers
// refuse anything bigger.
inline constexpr int kMaxGridSide = 513;

// The extent of the terrain along each axis, in world units.
inline constexpr float kTerrainExtent = 1024.0f;

inline constexpr const char* kDefaultGroundTexture = "teratextures\\GrassTerrain.jpg";
inline constexpr const char* kDefaultDetailTexture = "teratextures\\GrassDetail.jpg";
inline constexpr const char* kDefaultWaterTexture = "teratextures\\TropicalWater.jpg";
inline constexpr float kDefaultGroundTiling = 10.0f;
inline constexpr float kDefaultDetailTiling = 150.0f;
inline constexpr float kDefaultWaterTiling = 50.0f;
inline constexpr std::uint8_t kDefaultReflection = 128;

// A row-major grid of heights. Kept as one flat vector so that whole-grid copies (undo, the track
// record) are single memcpy-sized operations.
class HeightGrid {
public:
    HeightGrid() = default;
    HeightGrid(int columns, int rows, float value = 0.0f) { Resize(columns, rows, value); }

    void Resize(int columns, int rows, float value = 0.0f);
    void Clear() { Resize(0, 0); }

    int Columns() const { return columns_; }
    int Rows() const { return rows_; }
    bool Empty() const { return values_.empty(); }
    bool Contains(int row, int column) const {
        return row >= 0 && row < rows_ && column >= 0 && column < columns_;
    }

    float& At(int row, int column) { return values_[Index(row, column)]; }
    float At(int row, int column) const { return values_[Index(row, column)]; }
    void Fill(float value);

    float* Data() { return values_.data(); }
    const float* Data() const { return values_.data(); }
    std::size_t Size() const { return values_.size(); }

    bool operator==(const HeightGrid&) const = default;

private:
    std::size_t Index(int row, int column) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
               static_cast<std::size_t>(column);
    }
    int columns_ = 0;
    int rows_ = 0;
    std::vector<float> values_;
};

// The thirteen values that describe a terrain, in the order the track file stores them. The same
// struct is the track document's terrain record payload, so copying between the two is plain
// assignment of this part.
struct TerrainData {
    std::int32_t columns = 0;
    std::int32_t rows = 0;
    float spacingX = 0.0f;
    float spacingZ = 0.0f;
    std::string groundTexture; // relative to the program folder, backslashes kept
    float groundTiling = 0.0f;
    std::string detailTexture;
    float detailTiling = 0.0f;
    bool waterEnabled = false;
    std::string waterTexture;
    float waterTiling = 0.0f;
    std::uint8_t reflection = 0; // strength of the water reflection, 0..255
    HeightGrid heights;          // rows x columns

    bool operator==(const TerrainData&) const = default;
};

// The one terrain of the editing session plus the scene flags.
struct TerrainModel : TerrainData {
    bool terrainPresent = false; // when false the terrain values are ignored
    bool trackPresent = false;   // a track was opened and traced
    bool terrainChanged = false; // edited since created, opened or saved
    std::string trackFilePath;
    std::string trackFolder; // start folder of the next track file dialog
};

// Empties the terrain: no terrain present, sizes, spacings, tilings and reflection zero, paths and
// heights empty. The scene flags other than terrainPresent are left alone.
void ClearTerrain(TerrainModel& model);

// Fills in what an imported or loaded terrain lacks: default ground and detail textures when the
// ground path is empty, default water when the water path is empty, and any tiling below 1 reset
// to its default.
void ApplyTerrainDefaults(TerrainData& terrain);

// Creates a fresh grid of columns x rows for a new structure: spacings 1024 / count, every height
// 1.0 with water and 0.0 without; without water the water texture is emptied, its tiling becomes
// 1.0 and the reflection 0. The scene flags and the undo history are the editor's part.
void NewTerrainGrid(TerrainData& terrain, int columns, int rows);
