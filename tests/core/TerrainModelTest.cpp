#include "TerrainModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(TerrainModel, GridIsCentredOnTheOrigin) {
    TerrainModel model;
    model.waterEnabled = false;
    NewTerrainGrid(model, 409, 409);
    EXPECT_FLOAT_EQ(model.spacingX, 1024.0f / 409.0f);
    EXPECT_NEAR(model.spacingX, 2.5036, 1e-4);
    EXPECT_FLOAT_EQ(model.PointX(0), -204.0f * model.spacingX);
    EXPECT_FLOAT_EQ(model.PointX(408), 204.0f * model.spacingX);
    EXPECT_FLOAT_EQ(model.PointX(204), 0.0f);
    // An even count has no point at the centre: the middle two straddle it.
    NewTerrainGrid(model, 4, 2);
    EXPECT_FLOAT_EQ(model.PointX(1), -128.0f);
    EXPECT_FLOAT_EQ(model.PointX(2), 128.0f);
    EXPECT_FLOAT_EQ(model.PointZ(0), -256.0f);
}

TEST(TerrainModel, NewGridStartsAtWaterLevelOrGround) {
    TerrainModel model;
    model.waterEnabled = true;
    model.waterTexture = "teratextures\\TropicalWater.jpg";
    model.waterTiling = 50.0f;
    model.reflection = 128;
    model.terrainChanged = true;
    NewTerrainGrid(model, 6, 3);
    ASSERT_EQ(model.heights.Size(), 18u);
    for (std::size_t i = 0; i < model.heights.Size(); ++i) EXPECT_EQ(model.heights.Data()[i], 1.0f);
    EXPECT_EQ(model.waterTexture, "teratextures\\TropicalWater.jpg");
    EXPECT_FALSE(model.terrainChanged);
    EXPECT_TRUE(model.terrainPresent);

    model.waterEnabled = false;
    NewTerrainGrid(model, 3, 6);
    EXPECT_EQ(model.heights.Rows(), 6);
    for (std::size_t i = 0; i < model.heights.Size(); ++i) EXPECT_EQ(model.heights.Data()[i], 0.0f);
    EXPECT_TRUE(model.waterTexture.empty());
    EXPECT_EQ(model.waterTiling, 1.0f);
    EXPECT_EQ(model.reflection, 0);
}

TEST(TerrainModel, ClearEmptiesTheTerrainButKeepsTheTrackFlags) {
    TerrainModel model;
    NewTerrainGrid(model, 5, 5);
    model.groundTexture = "x";
    model.trackPresent = true;
    model.trackFilePath = "/t/a.cvtrack";
    ClearTerrain(model);
    EXPECT_FALSE(model.terrainPresent);
    EXPECT_EQ(model.columns, 0);
    EXPECT_EQ(model.spacingZ, 0.0f);
    EXPECT_TRUE(model.heights.Empty());
    EXPECT_TRUE(model.groundTexture.empty());
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
    EXPECT_EQ(t.groundTexture, "teratextures\\GrassTerrain.jpg");
    EXPECT_EQ(t.groundTiling, 10.0f);
    EXPECT_EQ(t.detailTexture, "teratextures\\GrassDetail.jpg");
    EXPECT_EQ(t.detailTiling, 150.0f);
    EXPECT_EQ(t.waterTexture, "teratextures\\DeepWater.jpg");
    EXPECT_EQ(t.waterTiling, 20.0f);
    EXPECT_EQ(t.reflection, 3);

    TerrainData low;
    low.groundTexture = "g";
    low.groundTiling = 0.99f;
    low.detailTexture = "d";
    low.detailTiling = 0.5f;
    low.waterTexture = "w";
    low.waterTiling = std::numeric_limits<float>::quiet_NaN();
    ApplyTerrainDefaults(low);
    EXPECT_EQ(low.groundTexture, "g");
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
