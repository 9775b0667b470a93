#include "TerrainModel.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

TEST(TerrainModel, ANewGridStandsAtTheWaterLevelOrWithoutWaterAtZero) {
    TerrainModel model;
    model.waterEnabled = model.terrainChanged = true;
    model.waterTexture = "teratextures\\TropicalWater.jpg";
    model.waterTiling = 50.0f;
    model.reflection = 128;
    NewTerrainGrid(model, 6, 3);
    EXPECT_EQ(model.heights, HeightGrid(6, 3, 1.0f));
    EXPECT_EQ(model.waterTexture, "teratextures\\TropicalWater.jpg");
    model.waterEnabled = false;
    NewTerrainGrid(model, 3, 6);
    EXPECT_EQ(model.heights, HeightGrid(3, 6, 0.0f));
    EXPECT_EQ(std::tie(model.waterTexture, model.reflection, model.waterTiling),
              std::make_tuple(std::string(), std::uint8_t{0}, 1.0f));
}

TEST(TerrainModel, ClearingTheTerrainKeepsTheTrack) {
    TerrainModel model;
    NewTerrainGrid(model, 6, 3);
    model.groundTexture = "x";
    model.trackPresent = true;
    model.trackFilePath = "/t/a.cvtrack";
    ClearTerrain(model);
    EXPECT_FALSE(model.terrainPresent);
    EXPECT_EQ(static_cast<const TerrainData&>(model), TerrainData{});
    EXPECT_TRUE(model.trackPresent);
    EXPECT_EQ(model.trackFilePath, "/t/a.cvtrack");
}

TEST(TerrainModel, DefaultsFillOnlyWhatIsMissing) {
    const auto filled = [](std::string ground, std::string detail, std::string water, float tiling) {
        TerrainData t;
        t.groundTexture = ground;
        t.detailTexture = detail;
        t.waterTexture = water;
        t.groundTiling = t.detailTiling = t.waterTiling = tiling;
        t.reflection = 3;
        ApplyTerrainDefaults(t);
        return std::make_tuple(t.groundTexture, t.groundTiling, t.detailTexture, t.detailTiling,
                               t.waterTexture, t.waterTiling, int{t.reflection});
    };
    // Without a ground path the detail path goes too; a water path present keeps its reflection.
    EXPECT_EQ(filled("", "d", "w", 20.0f),
              std::make_tuple(std::string(kDefaultGroundTexture), 10.0f, std::string(kDefaultDetailTexture),
                              150.0f, "w", 20.0f, 3));
    EXPECT_EQ(filled("g", "d", "", 1.0f),
              std::make_tuple("g", 1.0f, "d", 1.0f, std::string(kDefaultWaterTexture), 50.0f, 128));
    // Tilings below 1 or not a number take their defaults.
    for (const float bad : {0.99f, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_EQ(filled("g", "d", "w", bad), std::make_tuple("g", 10.0f, "d", 150.0f, "w", 50.0f, 3)) << bad;
}
