// Frame times of the 3D view under the real GL driver, at 1024 x 768: the demo scene with terrains
// of 205, 409 and 513 points per side, from the camera's start position and from a high overview,
// drawing every cell one call at a time or only the visible blocks from the mesh's block arrays;
// the ground plain (as earlier figures were taken) and textured (as the program shows it); the
// time to rebuild the whole mesh and to refresh it after one sculpt step.
// Run under a display (xvfb-run -a build/bench/bench_render). Real time is the measure. The CPU
// column is the whole process, the GL driver's rasteriser threads included; with Mesa's llvmpipe,
// LP_NUM_THREADS=0 rasterises on the calling thread, which gives steadier figures on a busy
// machine.
#include "BenchScene.h"

#include <GL/gl.h>

namespace {

// range(0): side; range(1): 0 start position, 1 overview, 2 looking up at the sky from the centre
// (what a frame costs when no terrain is in view); range(2): 1 visible blocks from the block
// arrays, 0 every cell one call at a time; range(3): 1 the whole scene, 0 the terrain alone;
// range(4): 1 textured ground and water, 0 plain colours.
void Frame(benchmark::State& state) {
    Scene& scene = SceneOf(static_cast<int>(state.range(0)));
    Editor& editor = scene.editor;
    const bool whole = state.range(3) == 1;
    for (ViewSwitch part : {ViewSwitch::Water, ViewSwitch::Track, ViewSwitch::Supports, ViewSwitch::Trees})
        editor.SetViewSwitch(part, whole);
    editor.SetViewSwitch(ViewSwitch::Textures, state.range(4) == 1);
    if (state.range(1) == 1)
        editor.SetCamera({0.0f, 330.0f, 480.0f, -38.0f, 0.0f, 0.0f});
    else if (state.range(1) == 2)
        editor.SetCamera({0.0f, 10.0f, 0.0f, 70.0f, 0.0f, 0.0f});
    else
        scene.editor.ResetView();
    View().Options().cullBlocks = state.range(2) == 1;
    pbOpenGL& view = ViewShowing(scene);
    for (auto _ : state) {
        RenderScene(MakeRenderInput(scene.editor), view.ViewState(), view.Options());
        glFinish();
    }
    state.counters["textured"] =
        view.ViewState().terrainTexture != 0 && editor.Settings().viewTextures ? 1 : 0;
    view.doneCurrent();
}

void RebuildMesh(benchmark::State& state) {
    Scene& scene = SceneOf(static_cast<int>(state.range(0)));
    RenderMesh mesh;
    for (auto _ : state) {
        mesh.Build(scene.editor.Terrain());
        benchmark::DoNotOptimize(mesh.Blocks().data());
    }
}

// What one sculpt step costs the mesh: the heights of a 13 x 13 point square refreshed, at a new
// place each time.
void RefreshSculptedArea(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    Scene& scene = SceneOf(side);
    RenderMesh mesh;
    mesh.Build(scene.editor.Terrain());
    int step = 0;
    for (auto _ : state) {
        const int column = 6 + (step * 37) % (side - 12);
        const int row = 6 + (step * 53) % (side - 12);
        mesh.UpdateArea(scene.editor.Terrain(), column - 6, row - 6, column + 6, row + 6);
        benchmark::DoNotOptimize(mesh.Blocks().data());
        ++step;
    }
}

} // namespace

BENCHMARK(Frame)
    ->ArgNames({"side", "overview", "culled", "scene", "textured"})
    ->ArgsProduct({{205, 409, 513}, {0, 1}, {0, 1}, {1}, {0}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK(Frame)
    ->ArgNames({"side", "overview", "culled", "scene", "textured"})
    ->ArgsProduct({{513}, {0, 2}, {0, 1}, {0}, {0}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK(Frame)
    ->ArgNames({"side", "overview", "culled", "scene", "textured"})
    ->ArgsProduct({{513}, {0}, {0, 1}, {1}, {1}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK(RebuildMesh)->Arg(205)->Arg(409)->Arg(513)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(RefreshSculptedArea)->Arg(513)->Unit(benchmark::kMicrosecond)->UseRealTime();

int main(int argc, char** argv) {
    return RunGlBenchmarks(argc, argv);
}
