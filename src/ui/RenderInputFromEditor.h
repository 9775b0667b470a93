#pragma once
// The one place where the 3D view's input is taken from the editing session.

#include "Editor.h"
#include "RenderInput.h"

// What the view draws of editor now: its terrain, mesh, track, spine, camera, cursor, colours and
// view switches. Holds references into editor.
RenderInput MakeRenderInput(const Editor& editor);
