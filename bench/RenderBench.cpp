// Frame times of the 3D view under the real GL driver, at 1024 x 768: the demo scene with terrains
// of 205, 409 and 513 points per side, from the camera's start position and from a high overview,
// drawing every cell or only the blocks the camera can see; and the time to rebuild the whole mesh.
// Run under a display (xvfb-run -a build/bench/bench_render).
#include "DemoTrack.h"
#include "Editor.h"
#include "ScriptedShellForBench.h"
#include "pbOpenGL.h"

#include <QApplication>

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace {

struct Scene {
    BenchShell shell;
    Editor editor{shell, LW_BIN_DIR};
    explicit Scene(int side) {
        DemoOptions options;
        options.terrainSide = side;
        editor.track = MakeDemoTrack(options);
        editor.terrain.trackPresent = TraceTrack(editor.track, editor.spine);
        editor.CopyTerrainFromTrack();
        editor.mesh.Build(editor.terrain);
        editor.ResetView();
    }
};

Scene& SceneOf(int side) {
    static std::map<int, std::unique_ptr<Scene>> scenes;
    auto& scene = scenes[side];
    if (!scene) scene = std::make_unique<Scene>(side);
    return *scene;
}

pbOpenGL& View() {
    static pbOpenGL* view = [] {
        auto* v = new pbOpenGL;
        v->resize(1024, 768);
        v->show();
        QApplication::processEvents();
        return v;
    }();
    return *view;
}

// range(0): side; range(1): 0 start position, 1 overview, 2 looking up at the sky from the centre
// (what a frame costs when no terrain is in view); range(2): 1 culled blocks, 0 every cell;
// range(3): 1 the whole scene, 0 the terrain alone.
void Frame(benchmark::State& state) {
    Scene& scene = SceneOf(static_cast<int>(state.range(0)));
    AppSettings& s = scene.editor.settings;
    s.viewWater = s.viewTrack = s.viewSupports = s.viewTrees = state.range(3) == 1;
    pbOpenGL& view = View();
    view.SetEditor(&scene.editor);
    if (state.range(1) == 1) scene.editor.camera = {0.0f, 330.0f, 480.0f, -38.0f, 0.0f, 0.0f};
    else if (state.range(1) == 2) scene.editor.camera = {0.0f, 10.0f, 0.0f, 70.0f, 0.0f, 0.0f};
    else scene.editor.ResetView();
    view.Options().cullBlocks = state.range(2) == 1;
    view.makeCurrent();
    view.RequestTextureReload();
    view.update();
    QApplication::processEvents();
    view.makeCurrent();
    for (auto _ : state) {
        RenderScene(scene.editor, view.ViewState(), view.Options());
        glFinish();
    }
    view.doneCurrent();
}

void RebuildMesh(benchmark::State& state) {
    Scene& scene = SceneOf(static_cast<int>(state.range(0)));
    RenderMesh mesh;
    for (auto _ : state) {
        mesh.Build(scene.editor.terrain);
        benchmark::DoNotOptimize(mesh.Blocks().data());
    }
}

} // namespace

BENCHMARK(Frame)
    ->ArgNames({"side", "overview", "culled", "scene"})
    ->ArgsProduct({{205, 409, 513}, {0, 1}, {0, 1}, {1}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(Frame)
    ->ArgNames({"side", "overview", "culled", "scene"})
    ->ArgsProduct({{513}, {0, 2}, {0, 1}, {0}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(RebuildMesh)->Arg(205)->Arg(409)->Arg(513)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char** argv) {
    SetDefaultViewFormat();
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
