#include "TerrainModel.h"

#include <algorithm>
#include <cmath>

void HeightGrid::Resize(int columns, int rows, float value) {
    columns_ = std::max(columns, 0);
    rows_ = std::max(rows, 0);
    values_.assign(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_), value);
}

void HeightGrid::Fill(float value) {
    std::fill(values_.begin(), values_.end(), value);
}

void ClearTerrain(TerrainModel& model) {
    static_cast<TerrainData&>(model) = TerrainData{};
    model.terrainPresent = false;
}

void ApplyTerrainDefaults(TerrainData& terrain) {
    if (terrain.groundTexture.empty()) {
        terrain.groundTexture = kDefaultGroundTexture;
        terrain.groundTiling = kDefaultGroundTiling;
        terrain.detailTexture = kDefaultDetailTexture;
        terrain.detailTiling = kDefaultDetailTiling;
    }
    if (terrain.waterTexture.empty()) {
        terrain.waterTexture = kDefaultWaterTexture;
        terrain.waterTiling = kDefaultWaterTiling;
        terrain.reflection = kDefaultReflection;
    }
    // Written as "not at least 1" so that a NaN tiling from a damaged file is also replaced.
    if (!(terrain.groundTiling >= 1.0f)) terrain.groundTiling = kDefaultGroundTiling;
    if (!(terrain.detailTiling >= 1.0f)) terrain.detailTiling = kDefaultDetailTiling;
    if (!(terrain.waterTiling >= 1.0f)) terrain.waterTiling = kDefaultWaterTiling;
}

void NewTerrainGrid(TerrainData& model, int columns, int rows) {
    columns = std::clamp(columns, 1, kMaxGridSide);
    rows = std::clamp(rows, 1, kMaxGridSide);
    model.columns = columns;
    model.rows = rows;
    model.spacingX = kTerrainExtent / static_cast<float>(columns);
    model.spacingZ = kTerrainExtent / static_cast<float>(rows);
    model.heights.Resize(columns, rows, model.waterEnabled ? 1.0f : 0.0f);
    if (!model.waterEnabled) {
        model.waterTexture.clear();
        model.waterTiling = 1.0f;
        model.reflection = 0;
    }
}
