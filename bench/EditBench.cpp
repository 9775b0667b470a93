// The editing algorithms at the largest grid, 513 x 513: one sculpt step at the biggest brush, a
// push onto a full undo stack, and a whole-terrain filter pass.
#include "Sculpt.h"
#include "TerrainFilter.h"
#include "UndoHistory.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace {

constexpr int kSide = kMaxGridSide;
constexpr int kGiganticRadius = 5;

// Rolling hills with a fine ripple, so no area is flat.
TerrainData VariedTerrain() {
    TerrainData terrain;
    terrain.columns = kSide;
    terrain.rows = kSide;
    terrain.spacingX = kTerrainExtent / kSide;
    terrain.spacingZ = kTerrainExtent / kSide;
    terrain.heights.Resize(kSide, kSide);
    for (int z = 0; z < kSide; ++z)
        for (int x = 0; x < kSide; ++x)
            terrain.heights.At(z, x) = static_cast<float>(
                40.0 + 30.0 * std::sin(x * 0.05) * std::cos(z * 0.07) + ((x * 7 + z * 13) % 11) * 0.3);
    return terrain;
}

// One step per iteration, alternately raising and lowering so the area keeps its relief.
void SculptStep(benchmark::State& state) {
    TerrainData terrain = VariedTerrain();
    const auto mode = static_cast<SculptMode>(state.range(0));
    float delta = 1.0f;
    for (auto _ : state) {
        const GridRect changed =
            ApplySculpt(terrain, 10.0f, -20.0f, SculptTool::Square, mode, kGiganticRadius, delta);
        benchmark::DoNotOptimize(changed);
        delta = -delta;
    }
    state.SetLabel(mode == SculptMode::Relational ? "relational" : "absolute");
}

void PushOntoFullUndoStack(benchmark::State& state) {
    const TerrainData terrain = VariedTerrain();
    UndoHistory history;
    for (int step = 0; step < UndoHistory::kSteps; ++step)
        history.PushUndo(terrain.heights);
    for (auto _ : state) {
        history.PushUndo(terrain.heights);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(static_cast<std::size_t>(state.iterations()) *
                                                      terrain.heights.Size() * sizeof(float)));
}

void FilterWholeTerrain(benchmark::State& state) {
    TerrainData terrain = VariedTerrain();
    const FilterMatrix soften = PresetMatrix(0); // "Soften Sharp Edges"
    for (auto _ : state) {
        FilterTerrain(terrain, soften, false, 0.0f, 0.0f, 0);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(
        static_cast<std::int64_t>(static_cast<std::size_t>(state.iterations()) * terrain.heights.Size()));
}

} // namespace

BENCHMARK(SculptStep)->Arg(0)->Arg(1);
BENCHMARK(PushOntoFullUndoStack)->Unit(benchmark::kMicrosecond);
BENCHMARK(FilterWholeTerrain)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
