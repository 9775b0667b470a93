#pragma once
// The sky behind the scene: a vertical gradient that depends only on where the horizon is on the
// screen. Light at the horizon, deepening towards the zenith above it and fading into a dim haze
// below it, so that the edge of the terrain meets something like distant land.

#include "AppSettings.h"

#include <vector>

// One colour stop of the gradient at a height on the screen in normalised device coordinates
// (-1 the bottom edge, +1 the top edge). Stops run from the bottom edge to the top edge.
struct SkyStop {
    float screenY = 0.0f;
    RgbColour colour;
};

inline constexpr RgbColour kSkyZenith{0.16f, 0.32f, 0.62f};
inline constexpr RgbColour kSkyHorizon{0.78f, 0.86f, 0.94f};
inline constexpr RgbColour kSkyHaze{0.36f, 0.40f, 0.44f};

// The sky's colour for a direction at elevation degrees above the horizon (negative below it).
RgbColour SkyColourAt(float elevationDegrees);

// The stops of the sky for a camera pitched pitchDegrees (positive looks up) with the given vertical
// field of view: bands stops spread evenly over the screen's height, each with the colour of the
// elevation seen at that height in the middle of the view.
std::vector<SkyStop> SkyGradient(float pitchDegrees, float fieldOfViewDegrees, int bands);
