#pragma once
// Drawing one frame of the 3D view: terrain, water, trees, supports, guidelines, the track and the
// terrain cursor, each under its view switch.

#include "modOpenGL.h"

class Editor;

struct RenderOptions {
    // Send only the blocks of terrain cells the camera can see. The picture is the same either
    // way; off draws every cell, which the benchmarks compare against.
    bool cullBlocks = true;
};

void RenderScene(const Editor& editor, const GLViewState& state, const RenderOptions& options = {});

// Parts of the frame, used by RenderScene.
void DrawTerrain(const Editor& editor, const GLViewState& state, const RenderOptions& options);
void DrawWater(const Editor& editor, const GLViewState& state, const RenderOptions& options);
void DrawTrees(const Editor& editor);
void DrawSupports(const Editor& editor, const GLViewState& state);
void DrawGuidelines(const Editor& editor);
void DrawTrack(const Editor& editor);
void DrawCursor(const Editor& editor, const GLViewState& state);
