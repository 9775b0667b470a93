#include "mTerrainPicture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Colour {
    float r, g, b;
};

struct Stop {
    float height;
    Colour colour;
};

// Low meadow, grass, dry grass, earth, rock, snow at the ceiling.
constexpr std::array<Stop, 6> kLand{{{-10.0f, {92, 110, 60}},
                                     {0.0f, {104, 142, 66}},
                                     {40.0f, {142, 164, 84}},
                                     {80.0f, {150, 122, 82}},
                                     {120.0f, {138, 130, 122}},
                                     {150.0f, {250, 250, 250}}}};
constexpr Colour kShallowWater{64, 140, 200};
constexpr Colour kDeepWater{16, 52, 120};
// Water this deep or deeper shows the deep colour.
constexpr float kFullDepth = 10.0f;
// Towards the light: up, to -x and to +z (the picture's upper left).
constexpr float kLightX = -1.0f, kLightY = 1.4f, kLightZ = 1.0f;
constexpr float kDarkest = 0.35f, kBrightest = 1.35f;

Colour Mix(Colour a, Colour b, float t) {
    return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}

Colour LandColour(float height) {
    if (height <= kLand.front().height) return kLand.front().colour;
    for (std::size_t i = 1; i < kLand.size(); ++i)
        if (height <= kLand[i].height) {
            const float t = (height - kLand[i - 1].height) / (kLand[i].height - kLand[i - 1].height);
            return Mix(kLand[i - 1].colour, kLand[i].colour, t);
        }
    return kLand.back().colour;
}

// The slope along one axis at point i of n, by central differences (one-sided at the edges).
template <typename HeightAt> float Slope(const HeightAt& at, int i, int n, float spacing) {
    if (n < 2) return 0.0f;
    const int before = std::max(i - 1, 0), after = std::min(i + 1, n - 1);
    return (at(after) - at(before)) / (static_cast<float>(after - before) * spacing);
}

// How brightly the ground at (r, c) is lit, 1 on level ground.
float Lighting(const HeightGrid& h, int r, int c, float spacingX, float spacingZ) {
    const float dx = Slope([&](int i) { return h.At(r, i); }, c, h.Columns(), spacingX);
    const float dz = Slope([&](int i) { return h.At(i, c); }, r, h.Rows(), spacingZ);
    // The surface normal (-dx, 1, -dz) against the light, relative to level ground.
    const float lit = (-dx * kLightX + kLightY - dz * kLightZ) / std::sqrt(dx * dx + 1.0f + dz * dz);
    return std::clamp(lit / kLightY, kDarkest, kBrightest);
}

void Put(std::uint8_t* pixel, Colour colour, float light) {
    const auto channel = [light](float value) {
        return static_cast<std::uint8_t>(std::clamp(std::lrint(value * light), 0L, 255L));
    };
    pixel[0] = channel(colour.b);
    pixel[1] = channel(colour.g);
    pixel[2] = channel(colour.r);
}

} // namespace

cDIBSection RenderTerrainPicture(const TerrainData& terrain) {
    cDIBSection picture;
    const HeightGrid& h = terrain.heights;
    if (h.Empty() || !picture.Create(h.Columns(), h.Rows())) return {};
    const float spacingX = terrain.spacingX > 0.0f ? terrain.spacingX : 1.0f;
    const float spacingZ = terrain.spacingZ > 0.0f ? terrain.spacingZ : 1.0f;
    for (int r = 0; r < h.Rows(); ++r) {
        std::uint8_t* pixel = picture.Row(r);
        for (int c = 0; c < h.Columns(); ++c, pixel += 3) {
            const float height = h.At(r, c);
            if (terrain.waterEnabled && height < 0.0f)
                Put(pixel, Mix(kShallowWater, kDeepWater, std::min(-height / kFullDepth, 1.0f)), 1.0f);
            else
                Put(pixel, LandColour(height), Lighting(h, r, c, spacingX, spacingZ));
        }
    }
    return picture;
}
