// The 3DS export of the demo scene with its track, at 513 x 513: building the objects, building the
// whole file in memory, and the export as the editor runs it (objects, file, atomic write).
#include "DemoTrack.h"
#include "Mesh3DS.h"
#include "mCV_TraceTrack.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

struct DemoScene {
    TerrainData terrain;
    TrackSpine spine;
    explicit DemoScene(int side) {
        DemoOptions options;
        options.terrainSide = side;
        const TrackDocument track = MakeDemoTrack(options);
        terrain = track.terrain.terrain;
        TraceTrack(track, spine);
    }
};

const DemoScene& Demo() {
    static const DemoScene scene(513);
    return scene;
}

Export3DSOptions Colours() {
    Export3DSOptions options;
    options.terrainColour = {90, 140, 60};
    options.trackColour = {220, 40, 40};
    return options;
}

void BuildObjects(benchmark::State& state) {
    const DemoScene& demo = Demo();
    for (auto _ : state) {
        Scene3DS scene = Build3DSScene(demo.terrain, &demo.spine, Colours());
        benchmark::DoNotOptimize(scene.objects.data());
    }
}

void BuildFileInMemory(benchmark::State& state) {
    const DemoScene& demo = Demo();
    std::vector<std::uint8_t> bytes;
    for (auto _ : state) {
        Build3DSFile(Build3DSScene(demo.terrain, &demo.spine, Colours()), bytes);
        benchmark::DoNotOptimize(bytes.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(bytes.size()));
}

void ExportToFile(benchmark::State& state) {
    const DemoScene& demo = Demo();
    const std::string path = (std::filesystem::temp_directory_path() / "lw_bench_export.3ds").string();
    for (auto _ : state) {
        const Save3DSResult result = Save3DSObject(path, Build3DSScene(demo.terrain, &demo.spine, Colours()));
        if (!result) state.SkipWithError(result.message.c_str());
    }
    std::filesystem::remove(path);
}

} // namespace

BENCHMARK(BuildObjects)->Unit(benchmark::kMillisecond);
BENCHMARK(BuildFileInMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportToFile)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
