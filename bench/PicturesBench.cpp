// Height maps and pictures of a 513 x 513 demo terrain: the 8-bit height map read and written
// through the file system (as the menu commands do) and in memory, the terrain picture, and the
// 16-bit RAW and its conversion.
#include "DemoTrack.h"
#include "mBitmapFile.h"
#include "mHeightMap.h"
#include "mHeightMap16.h"
#include "mPictureLoader.h"
#include "mTerrainPicture.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace {

const TerrainData& Terrain() {
    static const TerrainData terrain = [] {
        DemoOptions options;
        options.terrainSide = 513;
        return MakeDemoTrack(options).terrain.terrain;
    }();
    return terrain;
}

std::string BenchPath(const char* name) {
    return (std::filesystem::temp_directory_path() / name).string();
}

void HeightMapImportFromFile(benchmark::State& state) {
    const std::string path = BenchPath("landwright-bench-heightmap.bmp");
    std::string error;
    if (!SaveBitmap(path, TerrainToHeightMap(Terrain()), error)) state.SkipWithError(error.c_str());
    for (auto _ : state) {
        cDIBSection picture;
        if (!LoadPictureFile(path, picture)) state.SkipWithError("the height map did not load");
        TerrainData terrain = HeightMapToTerrain(picture);
        benchmark::DoNotOptimize(terrain.heights.Data());
    }
}

void HeightMapExportToFile(benchmark::State& state) {
    const std::string path = BenchPath("landwright-bench-heightmap-out.bmp");
    std::string error;
    for (auto _ : state)
        if (!SaveBitmap(path, TerrainToHeightMap(Terrain()), error)) state.SkipWithError(error.c_str());
}

void HeightMapImportInMemory(benchmark::State& state) {
    const std::vector<std::uint8_t> file = EncodeBitmap(TerrainToHeightMap(Terrain()));
    for (auto _ : state) {
        cDIBSection picture;
        if (!DecodeBitmap(file, picture)) state.SkipWithError("the height map did not decode");
        TerrainData terrain = HeightMapToTerrain(picture);
        benchmark::DoNotOptimize(terrain.heights.Data());
    }
}

void HeightMapExportInMemory(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<std::uint8_t> file = EncodeBitmap(TerrainToHeightMap(Terrain()));
        benchmark::DoNotOptimize(file.data());
    }
}

void TerrainPictureInMemory(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<std::uint8_t> file = EncodeBitmap(RenderTerrainPicture(Terrain()));
        benchmark::DoNotOptimize(file.data());
    }
}

void HeightMap16RawRoundTrip(benchmark::State& state) {
    for (auto _ : state) {
        const std::vector<std::uint8_t> raw = EncodeRaw16(TerrainToGrey16(Terrain()));
        Grey16Image image;
        if (!DecodeRaw16(raw, 0, image)) state.SkipWithError("the RAW file did not decode");
        TerrainData terrain = Grey16ToTerrain(image, {});
        benchmark::DoNotOptimize(terrain.heights.Data());
    }
}

} // namespace

BENCHMARK(HeightMapImportFromFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(HeightMapExportToFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(HeightMapImportInMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(HeightMapExportInMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(TerrainPictureInMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(HeightMap16RawRoundTrip)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
