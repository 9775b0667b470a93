#pragma once
// Everything one frame of the 3D view is drawn from. The drawing code reads only this, never the
// editing session, so any owner of a terrain, a track and a camera (the editor, a preview, a
// texture viewer) can have them drawn. The references must outlive the frame.

#include "AppSettings.h"
#include "RenderMesh.h"
#include "TerrainModel.h"
#include "TrackDocument.h"
#include "mCV_TraceTrack.h"
#include "mCamera.h"

#include <string>

// What the frame shows and how.
struct ViewSwitches {
    bool terrain = true;
    bool water = true;
    bool textures = true;
    bool track = true;
    bool guidelines = false;
    bool supports = true;
    bool trees = true;
    bool skybox = true;       // a sky gradient behind the scene instead of the plain background
    bool clipTerrain = false; // only the central 440 x 440 units
    bool lights = true;
    bool waterTranslucent = true;
    float waterAlpha = 0.75f; // used when waterTranslucent
    int brushSize = 2;        // the brush radius in grid points, for the highlight and brush points
};

struct RenderInput {
    const TerrainModel& terrain; // its heights, textures, water and the scene flags
    const RenderMesh& mesh;      // the terrain as drawn, built from terrain
    const TrackDocument& track;  // supports and trees
    const TrackSpine& spine;     // the traced track
    const CameraState& camera;
    const CursorState& cursor;
    const ColourTable& colours;
    const std::string& programFolder; // stored texture paths are relative to it
    ViewSwitches view;
};
