// What one sculpt step costs as the user drags: the step with the mesh refresh around it (no
// display needed), and the whole cycle of a step plus the redraw of the 3D view at 1024 x 768 from
// the camera's start position. Run under a display (xvfb-run -a build/bench/bench_sculpt).
#include "BenchScene.h"
#include "Sculpt.h"

#include <GL/gl.h>

namespace {

// The camera's start position with the cursor ahead of it and the "Gigantic" brush.
Scene& SculptScene(int side) {
    Scene& scene = SceneOf(side);
    scene.editor.MoveCursorTo(20.0f, -60.0f);
    scene.editor.SetSculptSize(5);
    return scene;
}

// Alternating up and down moves keep the heights in range however long the benchmark runs.
int NextMove() {
    static int sign = 1;
    sign = -sign;
    return 3 * sign;
}

// range(0): side; range(1): 0 relational, 1 absolute. The step and the refresh of the mesh points,
// normals and block bounds it touched.
void StrokeStep(benchmark::State& state) {
    Scene& scene = SculptScene(static_cast<int>(state.range(0)));
    scene.editor.SetSculptMode(static_cast<SculptMode>(state.range(1)));
    for (auto _ : state)
        scene.editor.StrokeMove(NextMove());
}

// The sculpt step alone, without the mesh.
void SculptOnly(benchmark::State& state) {
    Scene& scene = SculptScene(static_cast<int>(state.range(0)));
    TerrainData terrain = scene.editor.Terrain();
    const CursorState& cursor = scene.editor.Cursor();
    for (auto _ : state) {
        const GridRect changed = ApplySculpt(terrain, cursor.x, cursor.z, SculptTool::Square,
                                             SculptMode::Absolute, 5, static_cast<float>(NextMove()) * 0.1f);
        benchmark::DoNotOptimize(changed);
    }
}

// A stroke step followed by the frame it causes, finished on the GPU side.
void StepAndFrame(benchmark::State& state) {
    Scene& scene = SculptScene(static_cast<int>(state.range(0)));
    pbOpenGL& view = ViewShowing(scene);
    for (auto _ : state) {
        scene.editor.StrokeMove(NextMove());
        RenderScene(MakeRenderInput(scene.editor), view.ViewState(), view.Options());
        glFinish();
    }
    view.doneCurrent();
}

} // namespace

BENCHMARK(SculptOnly)->Arg(409)->Arg(513)->Unit(benchmark::kMicrosecond);
BENCHMARK(StrokeStep)
    ->ArgNames({"side", "absolute"})
    ->ArgsProduct({{409, 513}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(StepAndFrame)->Arg(205)->Arg(409)->Arg(513)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char** argv) {
    return RunGlBenchmarks(argc, argv);
}
