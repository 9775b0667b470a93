// Reading and writing a track with a 409 x 409 terrain: in memory, and through the file system.
#include "DemoTrack.h"
#include "TrackFile.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace {

const TrackDocument& Demo(int side) {
    static TrackDocument cached;
    static int cachedSide = 0;
    if (cachedSide != side) {
        DemoOptions options;
        options.terrainSide = side;
        cached = MakeDemoTrack(options);
        cachedSide = side;
    }
    return cached;
}

void SerializeInMemory(benchmark::State& state) {
    const TrackDocument& doc = Demo(static_cast<int>(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state) {
        std::vector<std::uint8_t> image = SerializeTrack(doc);
        bytes = image.size();
        benchmark::DoNotOptimize(image.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(static_cast<std::size_t>(state.iterations()) * bytes));
}

void ParseInMemory(benchmark::State& state) {
    const std::vector<std::uint8_t> image = SerializeTrack(Demo(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        TrackDocument doc;
        if (!ParseTrack(image, doc)) state.SkipWithError("the demo track did not parse");
        benchmark::DoNotOptimize(doc.terrain.terrain.heights.Data());
    }
    state.SetBytesProcessed(
        static_cast<std::int64_t>(static_cast<std::size_t>(state.iterations()) * image.size()));
}

std::string BenchPath() {
    return (std::filesystem::temp_directory_path() / "landwright-bench.cvtrack").string();
}

void WriteFile(benchmark::State& state) {
    const TrackDocument& doc = Demo(static_cast<int>(state.range(0)));
    const std::string path = BenchPath();
    for (auto _ : state)
        if (!WriteTrackFile(path, doc)) state.SkipWithError("write failed");
    state.SetBytesProcessed(static_cast<std::int64_t>(static_cast<std::size_t>(state.iterations()) *
                                                      std::filesystem::file_size(path)));
}

void ReadFile(benchmark::State& state) {
    const std::string path = BenchPath();
    WriteTrackFile(path, Demo(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        TrackDocument doc;
        if (!ReadTrackFile(path, doc)) state.SkipWithError("read failed");
        benchmark::DoNotOptimize(doc.terrain.terrain.heights.Data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(static_cast<std::size_t>(state.iterations()) *
                                                      std::filesystem::file_size(path)));
}

} // namespace

BENCHMARK(SerializeInMemory)->Arg(409)->Arg(513)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ParseInMemory)->Arg(409)->Arg(513)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(WriteFile)->Arg(409)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ReadFile)->Arg(409)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
