#pragma once
// The terrain settings without their dialog: the preset table, the slider ranges, the size a
// confirm asks for, texture path checks, the values the dialog hands to
// Editor::ApplyTerrainSettings and how they are stored into a terrain. Texture paths are relative to the
// program folder and keep their backslashes ("teratextures\GrassTerrain.jpg"), as the simulator reads them.

#include "TerrainModel.h"

#include <array>
#include <optional>
#include <string>

// Why the dialog is open: to change the terrain in the editor, or for "New", which starts from the
// presets and always makes a new grid, replacing any terrain only when it is confirmed.
enum class TerrainSettingsPurpose { Edit, New };

// The structure options of the dialog, in the order it shows them.
enum class TerrainStructure { Low, Normal, High, Custom };

inline constexpr int kLowDetailSide = 102;
inline constexpr int kNormalDetailSide = 205;
inline constexpr int kHighDetailSide = 409;

struct GridSize {
    int columns = 0;
    int rows = 0;
    bool operator==(const GridSize&) const = default;
};

// The lowest and highest value a slider of the dialogs offers.
struct SliderRange {
    int minimum;
    int maximum;
};

// Wide enough for every preset and the model's default tilings.
inline constexpr SliderRange kGroundRepeatsRange{1, 200};
inline constexpr SliderRange kDetailRepeatsRange{1, 500};
inline constexpr SliderRange kWaterRepeatsRange{1, 300};
inline constexpr SliderRange kReflectionRange{0, 255};
// A grid needs two points per side to span anything; the undo store limits the other end.
inline constexpr SliderRange kCustomSideRange{2, kMaxGridSide};

// One button of the "Land Textures" row. An empty detail path means no detail texture.
struct LandPreset {
    const char* caption;
    const char* groundTexture;
    const char* detailTexture;
    int groundRepeats;
    int detailRepeats;
};

// One button of the "Water Texture" row.
struct SeaPreset {
    const char* caption;
    const char* waterTexture;
    int waterRepeats;
    int reflection;
};

inline constexpr std::size_t kPresetCount = 9;

struct TerrainPresetTable {
    static const std::array<LandPreset, kPresetCount> land;
    static const std::array<SeaPreset, kPresetCount> sea;
};

// Everything the terrain settings dialog holds when it is confirmed.
struct TerrainSettingsValues {
    TerrainStructure structure = TerrainStructure::Normal;
    int customColumns = 0; // the custom size as the dialog shows it
    int customRows = 0;
    bool customSizeChosen = false; // a custom size was picked since the settings were last applied
    std::string groundTexture;
    int groundRepeats = 0;
    std::string detailTexture;
    int detailRepeats = 0;
    bool waterEnabled = true;
    std::string waterTexture;
    int waterRepeats = 0;
    int reflection = 0;
};

void ApplyLandPreset(TerrainSettingsValues& values, std::size_t index);
void ApplySeaPreset(TerrainSettingsValues& values, std::size_t index);

// What the dialog shows on opening: the model's textures, water and structure when a terrain is
// present (tilings rounded to whole repeats), else the "Grass" and "Tropical" presets with water on
// and the normal structure.
TerrainSettingsValues SettingsFromTerrain(const TerrainModel& model);

// What the dialog shows on opening for purpose: for a new terrain, what it shows without one (the
// custom size still the editor's).
TerrainSettingsValues SettingsForDialog(const TerrainModel& model, TerrainSettingsPurpose purpose);

// The structure option that matches a grid size; Custom for any size other than the three offered.
TerrainStructure StructureForSize(int columns, int rows);

// The grid size a confirm asks for. Custom takes the custom size only when one was chosen since
// the last apply (and then only when both counts are at least 1), else the model's size; anything
// that yields no usable size falls back to the normal structure.
GridSize RequestedTerrainSize(const TerrainSettingsValues& values, const TerrainModel& model);

// A file chosen in the open dialog as the stored relative path: the program folder removed
// (ignoring case), "/" turned into "\" and the UTF-8 name turned into Latin-1 text. Nothing when
// the file is not below the program folder or its name has letters Latin-1 lacks.
std::optional<std::string> StoredTexturePath(const std::string& chosen, const std::string& programFolder);

// The explanation shown under the "Invalid Texture" title after the lines naming the bad paths.
inline constexpr const char* kTextureFolderRule =
    "Textures must be in the TeraTextures folder or a sub-folder of it.";
inline constexpr const char* kInvalidTextureTitle = "Invalid Texture";

// The line of that message naming one texture ("Ground", "Detail", "Water"), ending in a line break.
std::string InvalidTextureLine(const char* which);

// The "Invalid Texture" message for the filled-in paths that are absolute (the water path only with
// the water on); empty when every path is acceptable.
std::string InvalidTextureMessage(const TerrainSettingsValues& values);

// The textures, tilings, water switch and reflection of values; without water the water texture is
// emptied, its tiling 1 and the reflection 0.
void StoreTexturesAndWater(TerrainData& terrain, const TerrainSettingsValues& values);
// An empty ground path takes the default ground texture, an empty water path (with the water on)
// the default water texture; an empty detail path stays empty (no detail texture).
void DefaultEmptyTextures(TerrainData& terrain);
// Whether two terrains show the same textures, tilings, water and reflection.
bool SameAppearance(const TerrainData& a, const TerrainData& b);

// The spacing of a custom side in metres, with two decimals: 1024 / points.
std::string SpacingText(int points);

// How a confirm ended. Only the first two let the dialog close.
enum class TerrainApplyResult { NewGrid, SameGrid, InvalidTexture, Cancelled };

inline bool DialogMayClose(TerrainApplyResult result) {
    return result == TerrainApplyResult::NewGrid || result == TerrainApplyResult::SameGrid;
}
