#include "SampleTrack.h"

#include "TrackChunks.h"

TerrainData MakeNumberedTerrain(int columns, int rows, float spacing) {
    TerrainData t;
    t.spacingX = t.spacingZ = spacing;
    t.heights.Resize(columns, rows);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            t.heights.At(row, column) = static_cast<float>(10 * row + column);
    return t;
}

TerrainData MakeSampleTerrain(int columns, int rows) {
    TerrainData t;
    t.columns = columns;
    t.rows = rows;
    t.spacingX = 1024.0f / static_cast<float>(columns);
    t.spacingZ = 1024.0f / static_cast<float>(rows);
    t.groundTexture = "teratextures\\GrassTerrain.jpg";
    t.groundTiling = 10.0f;
    t.detailTexture = "teratextures\\GrassDetail.jpg";
    t.detailTiling = 150.0f;
    t.waterEnabled = true;
    t.waterTexture = "teratextures\\TropicalWater.jpg";
    t.waterTiling = 50.0f;
    t.reflection = 200;
    t.heights.Resize(columns, rows);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            t.heights.At(r, c) = static_cast<float>(r * 100 + c) * 0.25f - 3.0f;
    return t;
}

namespace {

Segment MakeSegment(std::int32_t type, std::uint32_t seed) {
    Segment s;
    s.type = type;
    s.flag1 = (seed & 1) != 0;
    s.colours = {0x123456u + seed, 0x00FF00u, 0x0000FFu};
    s.flag2 = true;
    for (int i = 0; i < SegmentPartValues(type); ++i)
        s.details.push_back((seed * 31u + static_cast<unsigned>(i)) & 1u);
    return s;
}

} // namespace

TrackDocument MakeSampleTrack(int terrainColumns, int terrainRows) {
    TrackDocument d;
    d.track.trackStyle = 9;
    d.track.trackValue = -77;
    d.track.entries = {{true, "Blue Train", {1, 2, 3, 0xABCDEFu}}, {false, "", {4, 5, 6, 7}}};
    d.track.colours = {0x010203u, 0x040506u, 0x070809u, 0x0A0B0Cu,
                       0x0D0E0Fu, 0x101112u, 0x131415u, 0xFFFFFFu};
    d.info.description = "A small sample track.";
    for (int i = 0; i < 6; ++i) {
        BezierVertex v;
        for (int k = 0; k < 10; ++k)
            v.values[static_cast<std::size_t>(k)] = static_cast<float>(i * 10 + k) * 1.5f;
        v.flags = {i % 2 == 0, true, false};
        d.bezier.vertices.push_back(v);
    }
    d.segments.flag = true;
    for (std::int32_t type : {0, 1, 2, 3, 4, 7})
        d.segments.segments.push_back(MakeSegment(type, 7u + static_cast<unsigned>(type)));
    // Give every kind of kept value a distinctive pattern so a misplaced field shows.
    d.segments.segments[1].details[0] = 0x3F800000u; // 1.0f
    d.segments.segments[1].details[4] = 200;         // a byte
    d.footers.footers = {{1, 2.5f, 3, -4.5f, {10.0f, 0.5f, -20.0f}},
                         {9, 0.0f, 255, 1.0f, {-5.0f, 2.0f, 6.0f}}};
    d.railConnectors.groups = {{{0, 0.25f}, {1, 0.75f}}, {}, {{3, 0.5f}}};
    d.freeNodes.nodes = {{{1.0f, 2.0f, 3.0f}}, {{-1.0f, 20.0f, 30.0f}}};
    d.tubes.tubes = {{{0, 0, 0}, {2, 0, 1}, {11, 12}, 0.75f}, {{1, 1, 0}, {2, 2, 0}, {0, -1}, 1.25f}};
    d.catwalks.catwalks = {{{1, 2, 3, 4, 5, 6}, 12}, {{-1, -2, -3, -4, -5, -6}, 0}};
    d.scene.entries = {{{10.0f, 0.0f, 20.0f}, 1084227584, 1.0f}, {{-30.0f, 0.0f, 40.5f}, 0, 3.0f}};
    SceneryObject object;
    object.name1 = "Scenery\\Hut.x";
    object.name2 = "Hut";
    for (int k = 0; k < 15; ++k)
        object.values[static_cast<std::size_t>(k)] = static_cast<float>(k) - 7.0f;
    d.sceneryObjects.objects = {object, SceneryObject{}};
    d.terrain.terrain = MakeSampleTerrain(terrainColumns, terrainRows);
    d.terrain.terrainInTrack = true;
    d.environment.name1 = "Meadow";
    d.environment.name2 = "Clear Day";
    return d;
}
