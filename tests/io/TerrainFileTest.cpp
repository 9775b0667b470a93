#include "TerrainFile.h"
#include "SampleTrack.h"
#include "TestSupport.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(TerrainFile, IsTheTerrainChunkOfATrackAndAnExportImportsWithEveryValue) {
    const TrackDocument doc = MakeSampleTrack(11, 6);
    const std::vector<std::uint8_t> track = SerializeTrack(doc), terrain = SerializeTerrainFile(doc.terrain);
    ASSERT_GE(terrain.size(), 8u);
    EXPECT_EQ(std::string(terrain.begin(), terrain.begin() + 4), "TERA");
    EXPECT_NE(std::search(track.begin(), track.end(), terrain.begin(), terrain.end()), track.end());
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

namespace {

std::vector<std::uint8_t> Bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

std::vector<std::uint8_t> Joined(std::initializer_list<std::vector<std::uint8_t>> parts) {
    std::vector<std::uint8_t> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

TerrainRecord RecordOf(int columns, int rows) {
    TerrainRecord record;
    record.terrain = MakeSampleTerrain(columns, rows);
    record.terrainInTrack = true;
    return record;
}

} // namespace

TEST(TerrainScan, TakesTheFirstTeraBytesAfterTheMagicEvenInsideAnotherChunk) {
    const std::vector<std::uint8_t> first = SerializeTerrainFile(RecordOf(3, 2));
    const std::vector<std::uint8_t> second = SerializeTerrainFile(RecordOf(5, 4));
    TerrainRecord read;
    ASSERT_TRUE(ScanTrackForTerrain(Joined({Bytes("CRVTxxNAME"), first, Bytes("ENVC"), second}), read));
    EXPECT_EQ(read.terrain, RecordOf(3, 2).terrain);
    // "TERA" standing right after the magic counts; in the magic's own place it does not.
    ASSERT_TRUE(ScanTrackForTerrain(Joined({Bytes("CRVT"), second}), read));
    EXPECT_EQ(read.terrain.columns, 5);
}

TEST(TerrainScan, RefusesWhatIsNoTrackOrHoldsNoWholeTerrain) {
    const std::vector<std::uint8_t> chunk = SerializeTerrainFile(RecordOf(3, 2));
    TerrainRecord read;
    read.terrain.columns = 77;
    EXPECT_EQ(ScanTrackForTerrain(Joined({Bytes("CRVX"), chunk}), read).status, TerrainReadStatus::NotATrack);
    EXPECT_EQ(ScanTrackForTerrain(Bytes("CR"), read).status, TerrainReadStatus::NotATrack);
    EXPECT_EQ(ScanTrackForTerrain(Bytes("CRVTTER"), read).status, TerrainReadStatus::NoTerrain);
    EXPECT_EQ(ScanTrackForTerrain(Joined({Bytes("CRVTxx"), {chunk.begin(), chunk.end() - 3}}), read).status,
              TerrainReadStatus::Corrupt);
    EXPECT_EQ(read.terrain.columns, 77);
}

TEST(TerrainSplice, ReplacesTheTrackTerrainAndKeepsEveryOtherByte) {
    const TrackDocument doc = MakeSampleTrack(4, 3);
    const std::vector<std::uint8_t> before = SerializeTrack(doc);
    const std::vector<std::uint8_t> oldChunk = SerializeTerrainFile(doc.terrain);
    const auto at = static_cast<std::size_t>(
        std::search(before.begin(), before.end(), oldChunk.begin(), oldChunk.end()) - before.begin());
    ASSERT_LT(at, before.size());

    std::vector<std::uint8_t> image = before;
    std::string error;
    ASSERT_TRUE(ReplaceTerrainInTrackImage(image, RecordOf(9, 7), error)) << error;
    TrackDocument expected = doc;
    expected.terrain.terrain = RecordOf(9, 7).terrain;
    EXPECT_EQ(image, SerializeTrack(expected)) << "the same file the writer makes for that terrain";
    const std::size_t newChunk = SerializeTerrainFile(RecordOf(9, 7)).size();
    EXPECT_TRUE(
        std::equal(before.begin() + 8, before.begin() + static_cast<std::ptrdiff_t>(at), image.begin() + 8));
    EXPECT_TRUE(std::equal(before.begin() + static_cast<std::ptrdiff_t>(at + oldChunk.size()), before.end(),
                           image.begin() + static_cast<std::ptrdiff_t>(at + newChunk)));
}

TEST(TerrainSplice, GivesATrackWithoutTerrainOneBeforeItsEnvironment) {
    TrackDocument doc = MakeSampleTrack(4, 3);
    doc.terrain.terrainInTrack = false;
    std::vector<std::uint8_t> image = SerializeTrack(doc);
    std::string error;
    ASSERT_TRUE(ReplaceTerrainInTrackImage(image, RecordOf(6, 5), error)) << error;
    doc.terrain = RecordOf(6, 5);
    EXPECT_EQ(image, SerializeTrack(doc));

    std::vector<std::uint8_t> broken = Bytes("CRVT and then nothing a track needs");
    const std::vector<std::uint8_t> kept = broken;
    EXPECT_FALSE(ReplaceTerrainInTrackImage(broken, RecordOf(6, 5), error));
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(broken, kept);
}
