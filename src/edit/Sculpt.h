#pragma once
// Sculpting: raising and lowering the EffectArea around the terrain cursor as the mouse is dragged.

#include "GridRect.h"

// The sculpt tools and modes, numbered as the settings file stores them.
enum class SculptTool { Square = 0, Pyramid = 1, Curve = 2 };
enum class SculptMode { Relational = 0, Absolute = 1 };

// One sculpt step of delta units (positive raises) at the cursor with the given tool, mode and
// radius. Relational mode pulls every point towards the area's highest (raising) or lowest
// (lowering) point; Absolute mode adds delta to every point. Heights stay within the floor
// (SculptFloor) and the ceiling 150 on the path that could cross them. The Pyramid and Curve tools
// can be chosen but change nothing. Returns the points changed (empty when nothing changed).
GridRect ApplySculpt(TerrainData& terrain, float cursorX, float cursorZ, SculptTool tool, SculptMode mode,
                     int radius, float delta);
