// Reading a 513 x 513 Terragen file (in memory and from the disk, with the conversion into a
// terrain) and exporting a 513 x 513 terrain as OBJ text (in memory and through the atomic file
// write).
#include "ObjExport.h"
#include "TerragenFile.h"
#include "TerragenSample.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

constexpr int kSide = 513;

const std::vector<std::uint8_t>& TerragenImage() {
    static const std::vector<std::uint8_t> image =
        MakeTerragenFile({kSide, kSide, false, true}, RollingTerragenElevations(kSide));
    return image;
}

const TerrainData& Terrain() {
    static const TerrainData terrain = [] {
        TerrainData t;
        NewTerrainGrid(t, kSide, kSide);
        for (int r = 0; r < kSide; ++r)
            for (int c = 0; c < kSide; ++c)
                t.heights.At(r, c) =
                    static_cast<float>(40.0 * std::sin(r * 0.031) * std::cos(c * 0.047) + 20.0);
        return t;
    }();
    return terrain;
}

std::string TempPath(const char* name) {
    return (std::filesystem::temp_directory_path() / name).string();
}

void TerragenParse(benchmark::State& state) {
    for (auto _ : state) {
        SampleGrid samples;
        if (!ParseTerragenFile(TerragenImage(), samples)) state.SkipWithError("refused");
        benchmark::DoNotOptimize(samples.values.data());
    }
}

void TerragenReadAndConvert(benchmark::State& state) {
    const std::string path = TempPath("landwright-bench.ter");
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(TerragenImage().data()),
               static_cast<std::streamsize>(TerragenImage().size()));
    for (auto _ : state) {
        SampleGrid samples;
        if (!ReadTerragenFile(path, samples)) state.SkipWithError("refused");
        TerrainData terrain = TerrainFromTerragen(samples, true, 128.0f);
        benchmark::DoNotOptimize(terrain.heights.Data());
    }
    std::filesystem::remove(path);
}

void ObjText(benchmark::State& state) {
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string text = MakeObjText(Terrain());
        bytes = text.size();
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void ObjFile(benchmark::State& state) {
    const std::string path = TempPath("landwright-bench.obj");
    std::string error;
    for (auto _ : state)
        if (!WriteObjFile(path, Terrain(), error)) state.SkipWithError(error.c_str());
    std::filesystem::remove(path);
}

} // namespace

BENCHMARK(TerragenParse)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(TerragenReadAndConvert)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ObjText)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ObjFile)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
