#include "TerrainModel.h"

#include <gtest/gtest.h>

#include <limits>

TEST(TerrainModel, GridIsCentredOnTheOrigin) {
    TerrainModel model;
    NewTerrainGrid(model, 409, 409);
    EXPECT_FLOAT_EQ(model.spacingX, 1024.0f / 409.0f);
    EXPECT_FLOAT_EQ(model.PointX(0), -204.0f * model.spacingX);
    EXPECT_FLOAT_EQ(model.PointX(408), 204.0f * model.spacingX);
    EXPECT_FLOAT_EQ(model.PointX(204), 0.0f);
    // An even count has no point at the centre: the middle two straddle it.
    NewTerrainGrid(model, 4, 2);
    EXPECT_FLOAT_EQ(model.PointX(1), -128.0f);
    EXPECT_FLOAT_EQ(model.PointX(2), 128.0f);
    EXPECT_FLOAT_EQ(model.PointZ(0), -256.0f);
}

TEST(TerrainModel, NewGridStartsAtWaterLevelOrAtTheGroundWithoutWater) {
    TerrainModel model;
    model.waterEnabled = true;
    model.waterTexture = "teratextures\\TropicalWater.jpg";
    model.waterTiling = 50.0f;
    model.reflection = 128;
    model.terrainChanged = true;
    NewTerrainGrid(model, 6, 3);
    EXPECT_EQ(model.heights, HeightGrid(6, 3, 1.0f));
    EXPECT_EQ(model.waterTexture, "teratextures\\TropicalWater.jpg");
    EXPECT_FALSE(model.terrainChanged);
    EXPECT_TRUE(model.terrainPresent);
    model.waterEnabled = false;
    NewTerrainGrid(model, 3, 6);
    EXPECT_EQ(model.heights, HeightGrid(3, 6, 0.0f));
    EXPECT_EQ(model.waterTexture + "/" + std::to_string(model.reflection), "/0");
    EXPECT_EQ(model.waterTiling, 1.0f);
}

TEST(TerrainModel, ClearEmptiesTheTerrainButKeepsTheTrackFlags) {
    TerrainModel model;
    NewTerrainGrid(model, 5, 5);
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
    TerrainData t;
    t.detailTexture = "teratextures\\RockDetail.jpg"; // replaced: the ground path is empty
    t.detailTiling = 0.5f;
    t.waterTexture = "teratextures\\DeepWater.jpg";
    t.waterTiling = 20.0f;
    t.reflection = 3;
    ApplyTerrainDefaults(t);
    EXPECT_EQ(t.groundTexture + " " + t.detailTexture,
              "teratextures\\GrassTerrain.jpg teratextures\\GrassDetail.jpg");
    EXPECT_EQ(t.groundTiling, 10.0f);
    EXPECT_EQ(t.detailTiling, 150.0f);
    EXPECT_EQ(t.waterTexture, "teratextures\\DeepWater.jpg");
    EXPECT_EQ(t.waterTiling, 20.0f);
    EXPECT_EQ(t.reflection, 3);
    // Paths present are kept; tilings below 1 or not a number take their defaults.
    TerrainData low;
    low.groundTexture = "g";
    low.groundTiling = 0.99f;
    low.detailTexture = "d";
    low.detailTiling = 0.5f;
    low.waterTexture = "w";
    low.waterTiling = std::numeric_limits<float>::quiet_NaN();
    ApplyTerrainDefaults(low);
    EXPECT_EQ(low.groundTexture + low.detailTexture + low.waterTexture, "gdw");
    EXPECT_EQ(low.groundTiling, 10.0f);
    EXPECT_EQ(low.detailTiling, 150.0f);
    EXPECT_EQ(low.waterTiling, 50.0f);
    EXPECT_EQ(low.reflection, 0) << "a water path present keeps its reflection";
    TerrainData empty;
    ApplyTerrainDefaults(empty);
    EXPECT_EQ(empty.waterTexture, "teratextures\\TropicalWater.jpg");
    EXPECT_EQ(empty.waterTiling, 50.0f);
    EXPECT_EQ(empty.reflection, 128);
}
