// Hard ground: rock, sandstone, the lunar surface and lava rock.
#include "Noise.h"
#include "Recipes.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;

// How close (u, v) is to a crack: 1 on the border between two cells, 0 beyond width.
float CrackAt(double u, double v, int cells, std::uint32_t seed, double width) {
    const CellDistances d = Cellular(u, v, cells, seed);
    return 1.0f - SmoothStep(0.0f, static_cast<float>(width), static_cast<float>(d.second - d.nearest));
}

// Adds a crater: a bowl below the ground and a raised rim, in pixels, across the wrap.
void AddCrater(Field& height, double cx, double cy, double radius) {
    ForDisc(cx, cy, radius * 1.8, [&](int x, int y, double distance) {
        const double t = distance / radius;
        const double bowl = t < 1.0 ? -(1.0 - t * t) * 0.45 : 0.0;
        const double rim = 0.16 * std::exp(-std::pow((t - 1.0) / 0.22, 2.0));
        height.At(x, y) += static_cast<float>(radius * (bowl + rim));
    });
}

// The colour of sedimentary bed number index (taken modulo count, so the beds repeat).
Rgb BedColour(int index, int count) {
    const auto wrapped = static_cast<std::uint32_t>(((index % count) + count) % count);
    const auto t = static_cast<float>(HashUnit(wrapped, 0, 83));
    return Ramp({{0, Bytes(150, 72, 42)},
                 {0.3f, Bytes(184, 98, 54)},
                 {0.6f, Bytes(208, 130, 76)},
                 {1, Bytes(230, 172, 114)}},
                t);
}

} // namespace

Canvas PaintRock(int size) {
    const FbmParams warp{3, 3, 4, 0.5, 71};
    const FbmParams body{4, 4, 7, 0.55, 72};
    const FbmParams tone{5, 5, 5, 0.5, 73};
    const FbmParams tint{3, 3, 3, 0.5, 74};
    Field height(size);
    Canvas canvas(size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double u = static_cast<double>(x) / size;
            const double v = static_cast<double>(y) / size;
            const double wu = u + 0.06 * Fbm(u, v, warp);
            const double wv = v + 0.06 * Fbm(u + 0.37, v + 0.11, warp);
            // Cracks come and go along their length, so they read as fissures, not as a net.
            const float fade =
                SmoothStep(-0.05f, 0.2f, static_cast<float>(Fbm(u + 0.7, v + 0.2, tint)) + 0.1f);
            const float crack =
                fade * std::max(CrackAt(wu, wv, 4, 75, 0.035), 0.5f * CrackAt(wu, wv, 9, 76, 0.03));
            height.At(x, y) = static_cast<float>(26.0 * Fbm(wu, wv, body)) - 4.0f * crack;
            const auto t = static_cast<float>(0.5 + 1.2 * Fbm(wu, wv, tone)) + 0.05f * Grain(x, y, size, 77);
            const Rgb grey =
                Ramp({{0, Bytes(84, 84, 82)}, {0.5f, Bytes(128, 126, 120)}, {1, Bytes(170, 166, 158)}}, t);
            const float warm = SmoothStep(-0.1f, 0.35f, static_cast<float>(Fbm(u, v, tint)));
            const Rgb stone = Mix(grey, grey * Bytes(255, 232, 205), 0.6f * warm);
            canvas.At(x, y) = Mix(stone, Bytes(52, 50, 47), 0.7f * crack);
        }
    }
    ApplyLight(canvas, Shade(height, 0.9f));
    return canvas;
}

Canvas PaintSandstone(int size) {
    const FbmParams warp{2, 3, 4, 0.5, 81};
    const FbmParams grain{12, 12, 3, 0.5, 82};
    const FbmParams stain{3, 3, 4, 0.5, 85};
    constexpr int kBeds = 7;
    Field height(size);
    Canvas canvas(size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double u = static_cast<double>(x) / size;
            const double v = static_cast<double>(y) / size;
            // Beds run across the picture, bent a little, thick and thin; their count per tile is
            // whole and the thickness variation periodic, so they tile.
            double w = v + 0.035 * Fbm(u, v, warp) + 0.012 * std::sin(2 * kPi * (2 * u + v));
            w += 0.6 * std::sin(2 * kPi * 2 * w) / (2 * kPi * 2);
            const double bed = w * kBeds + 0.5; // boundaries inside the picture, not along its edge
            const auto inBed = static_cast<float>(bed - std::floor(bed));
            const int index = static_cast<int>(std::floor(bed));
            const Rgb here = BedColour(index, kBeds);
            const Rgb below = BedColour(index + 1, kBeds);
            const float fine =
                static_cast<float>(0.04 * std::sin(2 * kPi * bed * 9) + 0.2 * Fbm(u, v, grain));
            const Rgb c = Mix(here, below, SmoothStep(0.9f, 1.0f, inBed));
            const float dark =
                1.0f + fine + 0.05f * Grain(x, y, size, 84) - 0.15f * static_cast<float>(Fbm(u, v, stain));
            canvas.At(x, y) = c * dark;
            // Each bed weathers into a ledge: a gentle slope, then a short drop into the next.
            const float ledge = inBed < 0.88f ? std::pow(inBed / 0.88f, 0.7f) : (1.0f - inBed) / 0.12f;
            height.At(x, y) = 7.0f * ledge + static_cast<float>(8.0 * Fbm(u, v, grain));
        }
    }
    ApplyLight(canvas, Shade(height, 0.6f));
    return canvas;
}

Canvas PaintLunar(int size) {
    const double scale = size / 512.0;
    const FbmParams ground{4, 4, 6, 0.5, 91};
    const FbmParams maria{2, 2, 4, 0.5, 92};
    Field height =
        MakeField(size, [&](double u, double v) { return static_cast<float>(8.0 * Fbm(u, v, ground)); });
    TextureRandom random(93);
    for (int i = 0; i < 320; ++i) {
        const double radius = (2.0 + 45.0 * std::pow(random.Unit(), 9.0)) * scale;
        AddCrater(height, random.Range(0, size), random.Range(0, size), radius);
    }
    const Field light = Shade(height, 0.9f);
    Canvas canvas(size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double u = static_cast<double>(x) / size;
            const double v = static_cast<double>(y) / size;
            const auto t = static_cast<float>(0.55 + 0.9 * Fbm(u, v, maria)) + 0.05f * Grain(x, y, size, 94);
            const Rgb dust =
                Ramp({{0, Bytes(86, 86, 88)}, {0.5f, Bytes(130, 129, 126)}, {1, Bytes(168, 166, 160)}}, t);
            canvas.At(x, y) = dust * light.At(x, y);
        }
    }
    return canvas;
}

Canvas PaintLavarock(int size) {
    const double scale = size / 512.0;
    const FbmParams body{6, 6, 6, 0.55, 101};
    const FbmParams warp{3, 3, 4, 0.5, 102};
    const FbmParams rust{2, 2, 4, 0.5, 103};
    const FbmParams heat{3, 3, 3, 0.5, 104};
    Field height(size);
    Field glow(size);
    Canvas canvas(size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double u = static_cast<double>(x) / size;
            const double v = static_cast<double>(y) / size;
            const double wu = u + 0.1 * Fbm(u, v, warp);
            const double wv = v + 0.1 * Fbm(u + 0.5, v + 0.3, warp);
            // Seams between slabs; only some stretches of them are still hot.
            const float seam = CrackAt(wu, wv, 4, 105, 0.06);
            const float hot = SmoothStep(0.0f, 0.25f, static_cast<float>(Fbm(u, v, heat)));
            glow.At(x, y) = seam * seam * hot;
            height.At(x, y) = static_cast<float>(14.0 * Fbm(u, v, body)) - 5.0f * seam;
            const auto t = static_cast<float>(0.5 + 1.2 * Fbm(u, v, body)) + 0.08f * Grain(x, y, size, 106);
            const Rgb basalt =
                Ramp({{0, Bytes(18, 15, 15)}, {0.5f, Bytes(44, 38, 37)}, {1, Bytes(74, 64, 60)}}, t);
            const float red = SmoothStep(0.0f, 0.3f, static_cast<float>(Fbm(u, v, rust)));
            canvas.At(x, y) =
                Mix(basalt, basalt * Bytes(255, 150, 120) * 1.5f, 0.6f * red) * (1.0f - 0.6f * seam);
        }
    }
    // Gas bubbles leave pits of every size in the rock.
    TextureRandom random(107);
    for (int i = 0; i < size * size / 120; ++i) {
        const double radius = (0.8 + 3.0 * std::pow(random.Unit(), 3.0)) * scale;
        ForDisc(random.Range(0, size), random.Range(0, size), radius, [&](int x, int y, double distance) {
            height.At(x, y) -= static_cast<float>(radius - distance);
            canvas.At(x, y) = canvas.At(x, y) * 0.55f;
        });
    }
    // The hot seams give their own light; the rock takes the sun's.
    ApplyLight(canvas, Shade(height, 0.8f));
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const float g = glow.At(x, y);
            const Rgb fire =
                Ramp({{0, Bytes(120, 20, 6)}, {0.7f, Bytes(220, 70, 12)}, {1, Bytes(255, 170, 60)}}, g);
            canvas.At(x, y) = Mix(canvas.At(x, y), fire, Clamp01(1.4f * g));
        }
    }
    return canvas;
}
