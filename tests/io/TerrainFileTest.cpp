#include "TerrainFile.h"
#include "SampleTrack.h"
#include "TestSupport.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(TerrainFile, IsTheTerrainChunkOfATrack) {
    const TrackDocument doc = MakeSampleTrack(11, 6);
    const std::vector<std::uint8_t> track = SerializeTrack(doc), terrain = SerializeTerrainFile(doc.terrain);
    ASSERT_GE(terrain.size(), 8u);
    EXPECT_EQ(std::string(terrain.begin(), terrain.begin() + 4), "TERA");
    EXPECT_NE(std::search(track.begin(), track.end(), terrain.begin(), terrain.end()), track.end());
}

TEST(TerrainFile, AWrittenFileReadsBackWithEveryValue) {
    ScratchFolder folder;
    TerrainRecord record, read;
    record.terrain = MakeSampleTerrain(13, 9);
    record.terrain.waterEnabled = false;
    record.terrain.reflection = 0;
    std::string error;
    ASSERT_TRUE(WriteTerrainFile(folder.File("t.cvtera"), record, error)) << error;
    ASSERT_TRUE(ReadTerrainFile(folder.File("t.cvtera"), read));
    EXPECT_TRUE(read.terrainInTrack);
    EXPECT_EQ(read.terrain, record.terrain);
}

TEST(TerrainFile, DamagedFilesAreRefusedAndLeaveTheRecordAlone) {
    TerrainRecord record, target;
    record.terrain = MakeSampleTerrain(4, 4);
    std::vector<std::uint8_t> bytes = SerializeTerrainFile(record);
    target.terrain.columns = 77;
    for (std::size_t size = 4; size < bytes.size(); ++size)
        ASSERT_EQ(ParseTerrainFile(std::span(bytes.data(), size), target).status, TerrainReadStatus::Corrupt)
            << size;
    bytes[0] = 'X';
    EXPECT_EQ(ParseTerrainFile(bytes, target).status, TerrainReadStatus::NotATerrain);
    EXPECT_EQ(target.terrain.columns, 77);
    EXPECT_FALSE(target.terrainInTrack);
    EXPECT_EQ(ReadTerrainFile("/nonexistent/x.cvtera", target).status, TerrainReadStatus::Unreadable);
}
