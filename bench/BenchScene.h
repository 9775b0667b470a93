#pragma once
// What the GL benchmarks share: the demo scene at a chosen terrain size, made once per size, and
// one 1024 x 768 view to draw it in; and their main, which sets up Qt as the editor does.
#include "DemoTrack.h"
#include "Editor.h"
#include "RenderInputFromEditor.h"
#include "ScriptedShellForBench.h"
#include "mPictureLoader.h"
#include "pbOpenGL.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

struct Scene {
    BenchShell shell;
    Editor editor{shell, shell, LW_BIN_DIR};
    explicit Scene(int side) {
        DemoOptions options;
        options.terrainSide = side;
        // As if opened: the demo's terrain is taken, the track traced, the camera at its start.
        editor.OpenTrackDocument(MakeDemoTrack(options), "Demo.cvtrack");
    }
};

inline Scene& SceneOf(int side) {
    static std::map<int, std::unique_ptr<Scene>> scenes;
    auto& scene = scenes[side];
    if (!scene) scene = std::make_unique<Scene>(side);
    return *scene;
}

inline pbOpenGL& View() {
    static pbOpenGL* view = [] {
        auto* v = new pbOpenGL;
        v->resize(1024, 768);
        v->show();
        QApplication::processEvents();
        return v;
    }();
    return *view;
}

// Shows scene in the view with its textures loaded and leaves the view's context current.
inline pbOpenGL& ViewShowing(Scene& scene) {
    pbOpenGL& view = View();
    view.SetInputSource([&scene] { return MakeRenderInput(scene.editor); });
    view.makeCurrent();
    view.RequestTextureReload();
    // A frame drawn by the widget itself loads the textures.
    view.repaint();
    QApplication::processEvents();
    view.makeCurrent();
    return view;
}

inline int RunGlBenchmarks(int argc, char** argv) {
    SetDefaultViewFormat();
    QApplication app(argc, argv);
    // As the main window does, so that the ground and water textures load.
    InstallQtPictureDecoder();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
