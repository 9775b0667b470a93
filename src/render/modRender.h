#pragma once
// Drawing one frame of the 3D view from a RenderInput: terrain, water, trees, supports,
// guidelines, the track and the terrain cursor, each under its view switch.

#include "RenderInput.h"
#include "modOpenGL.h"

struct RenderOptions {
    // Send only the blocks of terrain cells the camera can see. The picture is the same either
    // way; off draws every cell, which the benchmarks compare against.
    bool cullBlocks = true;
};

void RenderScene(const RenderInput& in, const GLViewState& state, const RenderOptions& options = {});

// Parts of the frame, used by RenderScene.
void DrawTerrain(const RenderInput& in, const GLViewState& state, const RenderOptions& options);
void DrawWater(const RenderInput& in, const GLViewState& state, const RenderOptions& options);
void DrawTrees(const RenderInput& in);
void DrawSupports(const RenderInput& in, const GLViewState& state);
void DrawGuidelines(const RenderInput& in);
void DrawTrack(const RenderInput& in);
void DrawCursor(const RenderInput& in, const GLViewState& state);
