// Soft ground: grass, dirt, sand, snow and mud.
#include "Noise.h"
#include "Recipes.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;

// Blades of grass seen from above: short tapering strokes whose direction follows a slowly
// changing "lie" of the grass, drawn dark first so that lighter blades sit on top.
void DrawBlades(Canvas& canvas, double scale, std::uint64_t seed) {
    const int size = canvas.Size();
    TextureRandom random(seed);
    const FbmParams lie{2, 2, 3, 0.5, 31};
    const FbmParams dry{3, 3, 3, 0.5, 32};
    const int count = size * size / 4;
    for (int i = 0; i < count; ++i) {
        const float layer = static_cast<float>(i) / static_cast<float>(count);
        const double x = random.Range(0, size);
        const double y = random.Range(0, size);
        const double u = x / size;
        const double v = y / size;
        const double angle = kPi * Fbm(u, v, lie) * 2.5 + random.Range(-0.7, 0.7);
        const double length = random.Range(5, 11) * scale;
        const float dryness = Clamp01(0.5f + 1.6f * static_cast<float>(Fbm(u, v, dry)));
        const float light = Clamp01(0.15f + 0.85f * layer + static_cast<float>(random.Range(-0.25, 0.25)));
        const Rgb lush =
            Ramp({{0, Bytes(26, 52, 14)}, {0.6f, Bytes(70, 118, 32)}, {1, Bytes(128, 172, 60)}}, light);
        const Rgb straw =
            Ramp({{0, Bytes(60, 64, 22)}, {0.6f, Bytes(122, 128, 52)}, {1, Bytes(176, 170, 92)}}, light);
        const Rgb colour = Mix(lush, straw, 0.55f * dryness);
        Stroke(canvas, x, y, x + std::cos(angle) * length, y + std::sin(angle) * length,
               random.Range(1.3, 2.2) * scale, colour, static_cast<float>(random.Range(0.55, 0.9)));
    }
}

// A flat, irregular stone half sunk in the ground: its outline wobbles with the angle.
void AddStone(Field& height, Canvas& canvas, TextureRandom& random, double radius, Rgb colour) {
    const double cx = random.Range(0, height.Size());
    const double cy = random.Range(0, height.Size());
    const double p1 = random.Range(0, 2 * kPi);
    const double p2 = random.Range(0, 2 * kPi);
    const double stretch = random.Range(0.0, 0.3);
    ForDisc(cx, cy, radius * 1.4, [&](int x, int y, double distance) {
        const double angle = std::atan2(y + 0.5 - cy, x + 0.5 - cx);
        const double edge =
            radius * (1.0 + stretch * std::sin(2 * angle + p1) + 0.12 * std::sin(3 * angle + p2));
        if (distance >= edge) return;
        const double t = distance / edge;
        height.At(x, y) += static_cast<float>(0.45 * radius * std::sqrt(1.0 - t * t));
        Blend(canvas, x, y, colour * (1.0f + 0.1f * Grain(x, y, canvas.Size(), 25)),
              static_cast<float>(0.9 - 0.3 * t * t));
    });
}

} // namespace

Canvas PaintGrass(int size) {
    const FbmParams patches{3, 3, 4, 0.5, 11};
    const FbmParams mottle{16, 16, 3, 0.5, 12};
    Canvas canvas = MakeCanvas(size, [&](double u, double v) {
        const auto t = static_cast<float>(0.45 + 0.8 * Fbm(u, v, patches) + 0.4 * Fbm(u, v, mottle));
        return Ramp({{0, Bytes(26, 44, 14)}, {0.5f, Bytes(50, 82, 24)}, {1, Bytes(86, 108, 38)}}, t);
    });
    DrawBlades(canvas, size / 512.0, 13);
    // Clumps cast soft shadows between them.
    const FbmParams clumps{24, 24, 2, 0.5, 14};
    const Field shade = MakeField(
        size, [&](double u, double v) { return static_cast<float>(0.92 + 0.35 * Fbm(u, v, clumps)); });
    ApplyLight(canvas, shade);
    return canvas;
}

Canvas PaintDirt(int size) {
    const double scale = size / 512.0;
    const FbmParams lumps{6, 6, 6, 0.55, 21};
    const FbmParams tone{3, 3, 4, 0.5, 22};
    Field height =
        MakeField(size, [&](double u, double v) { return static_cast<float>(9.0 * Fbm(u, v, lumps)); });
    Canvas canvas = MakeCanvas(size, [&](double u, double v) {
        const auto t = static_cast<float>(0.5 + 0.6 * Fbm(u, v, tone) + 0.5 * Fbm(u, v, lumps));
        return Ramp({{0, Bytes(74, 52, 34)}, {0.5f, Bytes(108, 80, 54)}, {1, Bytes(142, 112, 80)}}, t);
    });
    TextureRandom random(23);
    for (int i = 0; i < 650; ++i) {
        const double radius = (1.5 + 7.0 * std::pow(random.Unit(), 3.0)) * scale;
        const auto tint = static_cast<float>(random.Unit());
        const Rgb stone =
            Ramp({{0, Bytes(84, 70, 56)}, {0.5f, Bytes(128, 114, 96)}, {1, Bytes(156, 140, 116)}}, tint);
        AddStone(height, canvas, random, radius, stone);
    }
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            canvas.At(x, y) = canvas.At(x, y) * (1.0f + 0.08f * Grain(x, y, size, 24));
    ApplyLight(canvas, Shade(height, 0.6f));
    return canvas;
}

Canvas PaintSand(int size) {
    const FbmParams warp{3, 3, 4, 0.5, 41};
    const FbmParams dunes{2, 2, 5, 0.5, 42};
    const FbmParams tone{4, 4, 4, 0.5, 43};
    const Field height = MakeField(size, [&](double u, double v) {
        // Ripples across the wind: an integer wave vector keeps them periodic.
        const double phase = 2 * kPi * (11 * u + 4 * v) + 5.0 * Fbm(u, v, warp);
        const double ripple = std::pow(0.5 + 0.5 * std::sin(phase + 0.6 * std::sin(phase)), 1.6);
        return static_cast<float>(2.2 * ripple + 14.0 * Fbm(u, v, dunes));
    });
    Canvas canvas = MakeCanvas(size, [&](double u, double v) {
        const auto t = static_cast<float>(0.5 + 0.9 * Fbm(u, v, tone));
        return Ramp({{0, Bytes(182, 150, 104)}, {0.5f, Bytes(208, 182, 134)}, {1, Bytes(226, 206, 162)}}, t);
    });
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const float grain = Grain(x, y, size, 44);
            const float speck = grain > 0.93f ? 0.78f : (grain < -0.95f ? 1.12f : 1.0f);
            canvas.At(x, y) = canvas.At(x, y) * (speck + 0.05f * Grain(x, y, size, 45));
        }
    }
    ApplyLight(canvas, Shade(height, 0.55f));
    return canvas;
}

Canvas PaintSnow(int size) {
    const FbmParams drifts{3, 3, 6, 0.5, 51};
    const FbmParams wind{5, 5, 3, 0.5, 52};
    const Field height = MakeField(size, [&](double u, double v) {
        const double crust = std::sin(2 * kPi * (3 * u + 9 * v) + 4.0 * Fbm(u, v, wind));
        return static_cast<float>(20.0 * Fbm(u, v, drifts) + 0.8 * crust);
    });
    const Field light = Shade(height, 0.7f);
    Canvas canvas(size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            // Snow in shadow takes the blue of the sky.
            const float l = light.At(x, y) + 0.03f * Grain(x, y, size, 53);
            Rgb c = Ramp(
                {{0.55f, Bytes(150, 172, 212)}, {0.9f, Bytes(218, 228, 242)}, {1.1f, Bytes(250, 251, 254)}},
                l);
            if (Grain(x, y, size, 54) > 0.985f) c = Bytes(255, 255, 255);
            canvas.At(x, y) = c;
        }
    }
    return canvas;
}

Canvas PaintMud(int size) {
    const FbmParams lumps{4, 4, 6, 0.55, 61};
    const FbmParams wet{3, 3, 4, 0.5, 62};
    const FbmParams sky{2, 2, 3, 0.5, 64};
    Field water(size);
    Field height =
        MakeField(size, [&](double u, double v) { return static_cast<float>(12.0 * Fbm(u, v, lumps)); });
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            // Puddles fill the hollows: where the ground dips below the local water level.
            const double u = static_cast<double>(x) / size;
            const double v = static_cast<double>(y) / size;
            const float level = -1.5f + 14.0f * static_cast<float>(Fbm(u, v, wet));
            water.At(x, y) = SmoothStep(0.0f, 3.0f, level - height.At(x, y));
            height.At(x, y) = std::max(height.At(x, y), level);
        }
    }
    const Field light = Shade(height, 0.8f);
    const Field glint = Glint(height, 0.8f, 40.0f);
    Canvas canvas(size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const float t = 0.5f + 0.04f * height.At(x, y) + 0.06f * Grain(x, y, size, 63);
            const Rgb dry =
                Ramp({{0, Bytes(50, 36, 24)}, {0.5f, Bytes(80, 59, 40)}, {1, Bytes(106, 82, 58)}}, t);
            const float w = water.At(x, y);
            // Wet mud is darker and shines; puddles mirror a dull sky.
            const auto cloud =
                static_cast<float>(Fbm(static_cast<double>(x) / size, static_cast<double>(y) / size, sky));
            const Rgb overcast = Mix(Bytes(60, 52, 44), Bytes(112, 106, 98), Clamp01(0.5f + 1.5f * cloud));
            const Rgb mirror = Mix(overcast, dry * 0.55f, 0.45f);
            Rgb c = Mix(dry * Bytes(200, 200, 200) * light.At(x, y), mirror, w);
            c = c + Bytes(190, 180, 165) * (0.25f * (1.0f - w) * glint.At(x, y));
            canvas.At(x, y) = c;
        }
    }
    return canvas;
}
