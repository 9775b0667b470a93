#include "TerrainSettings.h"

#include "PathUtil.h"
#include "TexturePath.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <tuple>

const std::array<LandPreset, kPresetCount> TerrainPresetTable::land{{
    {"Grass", "teratextures\\GrassTerrain.jpg", "teratextures\\GrassDetail.jpg", 10, 160},
    {"Dirt", "teratextures\\DirtTerrain.jpg", "teratextures\\DirtDetail.jpg", 10, 100},
    {"Rock", "teratextures\\RockTerrain.jpg", "teratextures\\RockDetail.jpg", 15, 125},
    {"Sand", "teratextures\\SandTerrain.jpg", "teratextures\\SandDetail.jpg", 15, 80},
    {"Snow", "teratextures\\SnowTerrain.jpg", "", 30, 1},
    {"Mud", "teratextures\\MudTerrain.jpg", "", 100, 1},
    {"SandStone", "teratextures\\SandstoneTerrain.jpg", "", 50, 1},
    {"Lunar", "teratextures\\LunarTerrain.jpg", "", 10, 1},
    {"LavaRock", "teratextures\\LavarockTerrain.jpg", "", 50, 1},
}};

const std::array<SeaPreset, kPresetCount> TerrainPresetTable::sea{{
    {"Tropical", "teratextures\\TropicalWater.jpg", 50, 128},
    {"DeepSea", "teratextures\\DeepseaWater.jpg", 50, 200},
    {"Murky", "teratextures\\MurkyWater.jpg", 50, 215},
    {"IceWater", "teratextures\\IceWater.jpg", 30, 255},
    {"Frozen", "teratextures\\FrozenWater.jpg", 30, 200},
    {"Pool", "teratextures\\PoolWater.jpg", 50, 128},
    {"Bubbles", "teratextures\\BubblesWater.jpg", 150, 240},
    {"Slime", "teratextures\\SlimeWater.jpg", 50, 200},
    {"Lava", "teratextures\\LavaWater.jpg", 50, 224},
}};

namespace {

// A stored tiling as a whole slider value; out-of-range and NaN values from a file land on an end.
int SliderValue(float value, SliderRange range) {
    if (!(value >= static_cast<float>(range.minimum))) return range.minimum;
    if (value >= static_cast<float>(range.maximum)) return range.maximum;
    return static_cast<int>(std::lrint(value));
}

bool UsableSize(int columns, int rows) {
    return columns >= 1 && rows >= 1;
}

} // namespace

void ApplyLandPreset(TerrainSettingsValues& values, std::size_t index) {
    const LandPreset& preset = TerrainPresetTable::land.at(index);
    values.groundTexture = preset.groundTexture;
    values.detailTexture = preset.detailTexture;
    values.groundRepeats = preset.groundRepeats;
    values.detailRepeats = preset.detailRepeats;
}

void ApplySeaPreset(TerrainSettingsValues& values, std::size_t index) {
    const SeaPreset& preset = TerrainPresetTable::sea.at(index);
    values.waterTexture = preset.waterTexture;
    values.waterRepeats = preset.waterRepeats;
    values.reflection = preset.reflection;
}

TerrainStructure StructureForSize(int columns, int rows) {
    if (columns != rows) return TerrainStructure::Custom;
    switch (columns) {
    case kLowDetailSide:
        return TerrainStructure::Low;
    case kNormalDetailSide:
        return TerrainStructure::Normal;
    case kHighDetailSide:
        return TerrainStructure::High;
    default:
        return TerrainStructure::Custom;
    }
}

TerrainSettingsValues SettingsFromTerrain(const TerrainModel& model) {
    TerrainSettingsValues values;
    // The custom labels always show what "Custom" gives when no other size is picked.
    const bool sized = UsableSize(model.columns, model.rows);
    values.customColumns = sized ? model.columns : kNormalDetailSide;
    values.customRows = sized ? model.rows : kNormalDetailSide;
    if (!model.terrainPresent) {
        ApplyLandPreset(values, 0);
        ApplySeaPreset(values, 0);
        return values;
    }
    values.structure = StructureForSize(model.columns, model.rows);
    values.groundTexture = model.groundTexture;
    values.groundRepeats = SliderValue(model.groundTiling, kGroundRepeatsRange);
    values.detailTexture = model.detailTexture;
    values.detailRepeats = SliderValue(model.detailTiling, kDetailRepeatsRange);
    values.waterEnabled = model.waterEnabled;
    values.waterTexture = model.waterTexture;
    values.waterRepeats = SliderValue(model.waterTiling, kWaterRepeatsRange);
    values.reflection = model.reflection;
    return values;
}

GridSize RequestedTerrainSize(const TerrainSettingsValues& values, const TerrainModel& model) {
    switch (values.structure) {
    case TerrainStructure::Low:
        return {kLowDetailSide, kLowDetailSide};
    case TerrainStructure::High:
        return {kHighDetailSide, kHighDetailSide};
    case TerrainStructure::Custom:
        if (values.customSizeChosen) {
            if (UsableSize(values.customColumns, values.customRows))
                return {std::min(values.customColumns, kMaxGridSide),
                        std::min(values.customRows, kMaxGridSide)};
        } else if (UsableSize(model.columns, model.rows)) {
            return {model.columns, model.rows};
        }
        break;
    case TerrainStructure::Normal:
        break;
    }
    return {kNormalDetailSide, kNormalDetailSide};
}

std::optional<std::string> StoredTexturePath(const std::string& chosen, const std::string& programFolder) {
    std::string folder = programFolder;
    if (!folder.empty() && folder.back() != '/' && folder.back() != '\\') folder += '/';
    if (folder.empty() || chosen.size() <= folder.size() ||
        !EqualsIgnoreCase(chosen.substr(0, folder.size()), folder))
        return std::nullopt;
    // The file's name is stored as Latin-1 text: a name with other letters cannot be.
    std::optional<std::string> relative = Utf8ToLatin1(chosen.substr(folder.size()));
    if (relative) std::replace(relative->begin(), relative->end(), '/', '\\');
    return relative;
}

std::string InvalidTextureLine(const char* which) {
    return std::string("The ") + which + " Texture is Invalid!\n";
}

std::string SpacingText(int points) {
    if (points < 1) return "";
    char buffer[32];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, 1024.0 / points, std::chars_format::fixed, 2);
    return std::string(buffer, result.ptr);
}

bool SameAppearance(const TerrainData& a, const TerrainData& b) {
    const auto looks = [](const TerrainData& t) {
        return std::tie(t.groundTexture, t.groundTiling, t.detailTexture, t.detailTiling, t.waterEnabled,
                        t.waterTexture, t.waterTiling, t.reflection);
    };
    return looks(a) == looks(b);
}

void StoreTexturesAndWater(TerrainData& terrain, const TerrainSettingsValues& values) {
    terrain.groundTexture = values.groundTexture;
    terrain.groundTiling = static_cast<float>(values.groundRepeats);
    terrain.detailTexture = values.detailTexture;
    terrain.detailTiling = static_cast<float>(values.detailRepeats);
    terrain.waterEnabled = values.waterEnabled;
    if (values.waterEnabled) {
        terrain.waterTexture = values.waterTexture;
        terrain.waterTiling = static_cast<float>(values.waterRepeats);
        terrain.reflection = static_cast<std::uint8_t>(std::clamp(values.reflection, 0, 255));
    } else {
        terrain.waterTexture.clear();
        terrain.waterTiling = 1.0f;
        terrain.reflection = 0;
    }
}

void DefaultEmptyTextures(TerrainData& terrain) {
    if (terrain.groundTexture.empty()) terrain.groundTexture = kDefaultGroundTexture;
    // Without water the path stays empty: the terrain record then carries no water texture.
    if (terrain.waterEnabled && terrain.waterTexture.empty()) terrain.waterTexture = kDefaultWaterTexture;
}

std::string InvalidTextureMessage(const TerrainSettingsValues& values) {
    // An empty path does not count, nor any water path while the water is off.
    std::string lines;
    const auto check = [&lines](const std::string& path, const char* which) {
        if (!path.empty() && !IsRelativeTexturePath(path)) lines += InvalidTextureLine(which);
    };
    check(values.groundTexture, "Ground");
    check(values.detailTexture, "Detail");
    if (values.waterEnabled) check(values.waterTexture, "Water");
    return lines.empty() ? lines : lines + "\n" + kTextureFolderRule;
}

TerrainSettingsValues SettingsForDialog(const TerrainModel& model, TerrainSettingsPurpose purpose) {
    if (purpose == TerrainSettingsPurpose::Edit) return SettingsFromTerrain(model);
    TerrainModel replaced = model;
    replaced.terrainPresent = false;
    return SettingsFromTerrain(replaced);
}
