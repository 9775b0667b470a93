#include "SkyGradient.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr float kDegrees = 180.0f / std::numbers::pi_v<float>;

RgbColour Mix(const RgbColour& a, const RgbColour& b, float t) {
    // Weighted so that t = 0 and t = 1 give a and b exactly.
    const float u = 1.0f - t;
    return {a.r * u + b.r * t, a.g * u + b.g * t, a.b * u + b.b * t};
}

} // namespace

RgbColour SkyColourAt(float elevationDegrees) {
    if (elevationDegrees >= 0.0f) {
        // Most of the change happens in the lowest part of the sky, as in a clear day's sky.
        const float t = std::sqrt(std::min(elevationDegrees, 90.0f) / 90.0f);
        return Mix(kSkyHorizon, kSkyZenith, t);
    }
    const float t = std::min(-elevationDegrees, 20.0f) / 20.0f;
    return Mix(kSkyHorizon, kSkyHaze, t);
}

std::vector<SkyStop> SkyGradient(float pitchDegrees, float fieldOfViewDegrees, int bands) {
    bands = std::max(bands, 1);
    const float halfHeight = std::tan(fieldOfViewDegrees * 0.5f / kDegrees);
    std::vector<SkyStop> stops;
    stops.reserve(static_cast<std::size_t>(bands) + 1);
    for (int i = 0; i <= bands; ++i) {
        const float y = -1.0f + 2.0f * static_cast<float>(i) / static_cast<float>(bands);
        // The ray through this height in the middle column, turned by the camera's pitch.
        const float elevation = pitchDegrees + std::atan(y * halfHeight) * kDegrees;
        stops.push_back({y, SkyColourAt(elevation)});
    }
    return stops;
}
