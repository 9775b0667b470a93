#include "RenderInputFromEditor.h"

RenderInput MakeRenderInput(const Editor& editor) {
    const AppSettings& s = editor.Settings();
    ViewSwitches view;
    view.terrain = s.viewTerrain;
    view.water = s.viewWater;
    view.textures = s.viewTextures;
    view.track = s.viewTrack;
    view.guidelines = s.viewGuidelines;
    view.supports = s.viewSupports;
    view.trees = s.viewTrees;
    view.skybox = s.viewSkybox;
    view.clipTerrain = s.clipTerrain;
    view.lights = !s.noLights;
    view.waterTranslucent = s.useWaterTrans;
    view.waterAlpha = s.waterTrans;
    view.brushSize = s.sculptSize;
    return {editor.Terrain(), editor.Mesh(),          editor.Track(),
            editor.Spine(),   editor.Camera(),        editor.Cursor(),
            s.colorTable,     editor.ProgramFolder(), view};
}
