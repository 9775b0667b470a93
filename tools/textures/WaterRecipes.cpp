// Water surfaces: waves lit from the upper left, caustic light networks, ice, bubbles and lava.
#include "Noise.h"
#include "Recipes.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double kPi = 3.141592653589793;

// A sum of travelling waves with whole wave numbers per tile (so the sum tiles), mostly running
// one way, plus a little noise so the crests are not too regular. Heights in pixels.
Field WaveField(int size, std::uint32_t seed, int minWave, int maxWave, double amplitude) {
    struct Wave {
        int ku, kv;
        double weight, phase;
    };
    TextureRandom random(seed);
    std::vector<Wave> waves;
    for (int i = 0; i < 14; ++i) {
        const double angle = 0.6 + random.Range(-0.7, 0.7);
        const double number = random.Range(minWave, maxWave);
        const auto ku = static_cast<int>(std::lround(std::cos(angle) * number));
        const auto kv = static_cast<int>(std::lround(std::sin(angle) * number));
        waves.push_back({ku, kv, 1.0 / std::max(1.0, std::hypot(ku, kv)), random.Range(0, 2 * kPi)});
    }
    const FbmParams chop{4, 4, 4, 0.5, seed + 1};
    return MakeField(size, [&](double u, double v) {
        double h = 0;
        for (const Wave& w : waves)
            h += w.weight * std::sin(2 * kPi * (w.ku * u + w.kv * v) + w.phase);
        return static_cast<float>(amplitude * (h * minWave / 3.0 + 1.5 * Fbm(u, v, chop)));
    });
}

// Bright lines where sunlight focused by the waves falls on the bottom: the borders of a warped
// cellular pattern, 0 .. 1.
float Caustic(double u, double v, int cells, std::uint32_t seed, double width) {
    const FbmParams warp{3, 3, 3, 0.5, seed + 1};
    const double wu = u + 0.08 * Fbm(u, v, warp);
    const double wv = v + 0.08 * Fbm(u + 0.4, v + 0.7, warp);
    const CellDistances d = Cellular(wu, wv, cells, seed);
    return 1.0f - SmoothStep(0.0f, static_cast<float>(width), static_cast<float>(d.second - d.nearest));
}

// Colours water from a ramp over the wave heights, lights it and adds highlights.
Canvas LitWater(const Field& height, std::initializer_list<RampStop> ramp, float shading, float glintStrength,
                float shininess) {
    const int size = height.Size();
    const Field light = Shade(height, shading);
    const Field glint = Glint(height, shading, shininess);
    Canvas canvas(size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const Rgb body = Ramp(ramp, 0.5f + 0.08f * height.At(x, y));
            canvas.At(x, y) =
                body * (0.75f + 0.25f * light.At(x, y)) + Rgb{1, 1, 1} * (glintStrength * glint.At(x, y));
        }
    }
    return canvas;
}

void AddLines(Canvas& canvas, Rgb colour, float strength,
              const std::function<float(double u, double v)>& lines) {
    const int size = canvas.Size();
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            canvas.At(x, y) = canvas.At(x, y) + colour * (strength * lines(static_cast<double>(x) / size,
                                                                           static_cast<double>(y) / size));
}

} // namespace

Canvas PaintTropicalWater(int size) {
    const Field height = WaveField(size, 201, 3, 9, 3.0);
    Canvas canvas =
        LitWater(height, {{0, Bytes(10, 120, 150)}, {0.5f, Bytes(30, 168, 180)}, {1, Bytes(90, 210, 200)}},
                 0.6f, 0.45f, 30.0f);
    AddLines(canvas, Bytes(150, 235, 220), 0.24f, [](double u, double v) {
        return 0.7f * Caustic(u, v, 6, 202, 0.12) + 0.4f * Caustic(u, v, 11, 203, 0.08);
    });
    return canvas;
}

Canvas PaintDeepseaWater(int size) {
    const Field height = WaveField(size, 211, 5, 14, 2.0);
    return LitWater(height, {{0, Bytes(4, 22, 52)}, {0.5f, Bytes(10, 44, 88)}, {1, Bytes(26, 74, 122)}}, 0.8f,
                    0.6f, 50.0f);
}

Canvas PaintMurkyWater(int size) {
    const Field height = WaveField(size, 221, 4, 10, 1.6);
    Canvas canvas =
        LitWater(height, {{0, Bytes(40, 48, 28)}, {0.5f, Bytes(64, 74, 42)}, {1, Bytes(92, 98, 60)}}, 0.8f,
                 0.25f, 25.0f);
    // Clouds of silt under the surface and specks of floating debris on it.
    const FbmParams silt{3, 3, 5, 0.6, 222};
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const auto cloud =
                static_cast<float>(Fbm(static_cast<double>(x) / size, static_cast<double>(y) / size, silt));
            canvas.At(x, y) = Mix(canvas.At(x, y), Bytes(104, 86, 52), Clamp01(0.1f + 1.2f * cloud));
        }
    }
    TextureRandom random(223);
    for (int i = 0; i < size * size / 900; ++i) {
        const Rgb speck = Mix(Bytes(60, 50, 30), Bytes(120, 110, 70), static_cast<float>(random.Unit()));
        ForDisc(random.Range(0, size), random.Range(0, size), random.Range(0.6, 1.8),
                [&](int x, int y, double) { Blend(canvas, x, y, speck, 0.7f); });
    }
    return canvas;
}

Canvas PaintIceWater(int size) {
    const Field height = WaveField(size, 231, 4, 10, 1.2);
    Canvas canvas =
        LitWater(height, {{0, Bytes(36, 78, 102)}, {0.5f, Bytes(58, 106, 130)}, {1, Bytes(92, 140, 160)}},
                 0.6f, 0.35f, 40.0f);
    // Slush: floes of every shape where the noise is high, split by narrow leads of water, with
    // a pale rim of submerged ice around them.
    const FbmParams floes{4, 4, 6, 0.55, 232};
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double u = static_cast<double>(x) / size;
            const double v = static_cast<double>(y) / size;
            const auto n = static_cast<float>(Fbm(u, v, floes));
            const CellDistances d = Cellular(u, v, 7, 233);
            const float lead = 1.0f - SmoothStep(0.02f, 0.06f, static_cast<float>(d.second - d.nearest));
            const float submerged = SmoothStep(-0.02f, 0.06f, n) * 0.35f;
            const float floe = SmoothStep(0.06f, 0.09f, n) * (1.0f - 0.6f * lead);
            const Rgb ice = Mix(Bytes(186, 212, 224), Bytes(236, 244, 248), SmoothStep(0.1f, 0.35f, n));
            Rgb c = Mix(canvas.At(x, y), Bytes(120, 170, 190), submerged);
            canvas.At(x, y) = Mix(c, ice * (1.0f + 0.04f * Grain(x, y, size, 235)), floe);
        }
    }
    return canvas;
}

Canvas PaintFrozenWater(int size) {
    const FbmParams cloud{3, 3, 5, 0.55, 241};
    Canvas canvas = MakeCanvas(size, [&](double u, double v) {
        const auto t = static_cast<float>(0.5 + 1.0 * Fbm(u, v, cloud));
        return Ramp({{0, Bytes(150, 188, 214)}, {0.5f, Bytes(194, 220, 236)}, {1, Bytes(234, 244, 250)}}, t);
    });
    AddLines(canvas, Bytes(-70, -50, -30), 1.0f, [](double u, double v) {
        return std::max(Caustic(u, v, 4, 242, 0.03), 0.5f * Caustic(u, v, 9, 243, 0.025));
    });
    // Bubbles of air caught in the ice.
    TextureRandom random(244);
    for (int i = 0; i < size * size / 700; ++i) {
        ForDisc(random.Range(0, size), random.Range(0, size), random.Range(0.8, 2.2),
                [&](int x, int y, double) { Blend(canvas, x, y, Bytes(250, 252, 255), 0.6f); });
    }
    return canvas;
}

Canvas PaintPoolWater(int size) {
    const Field height = WaveField(size, 251, 3, 8, 1.5);
    Canvas canvas =
        LitWater(height, {{0, Bytes(20, 110, 200)}, {0.5f, Bytes(40, 150, 225)}, {1, Bytes(90, 190, 240)}},
                 0.5f, 0.3f, 30.0f);
    // Tiles on the bottom, wobbling through the waves, under a bright caustic net.
    const FbmParams wobble{3, 3, 3, 0.5, 252};
    AddLines(canvas, Bytes(-30, -40, -30), 1.0f, [&](double u, double v) {
        const double wu = u * 8 + 0.5 + 0.25 * Fbm(u, v, wobble);
        const double wv = v * 8 + 0.5 + 0.25 * Fbm(u + 0.5, v, wobble);
        const double du = std::abs(wu - std::round(wu));
        const double dv = std::abs(wv - std::round(wv));
        return 1.0f - SmoothStep(0.01f, 0.04f, static_cast<float>(std::min(du, dv)));
    });
    AddLines(canvas, Bytes(200, 240, 255), 0.5f, [](double u, double v) {
        return Caustic(u, v, 6, 253, 0.12) * 0.7f + 0.5f * Caustic(u, v, 11, 254, 0.08);
    });
    return canvas;
}

Canvas PaintBubblesWater(int size) {
    const Field height = WaveField(size, 261, 3, 8, 1.5);
    Canvas canvas =
        LitWater(height, {{0, Bytes(16, 70, 140)}, {0.5f, Bytes(30, 100, 172)}, {1, Bytes(64, 138, 200)}},
                 0.6f, 0.3f, 30.0f);
    TextureRandom random(262);
    for (int i = 0; i < size * size / 420; ++i) {
        const double cx = random.Range(0, size);
        const double cy = random.Range(0, size);
        const double radius = 1.5 + 8.0 * std::pow(random.Unit(), 2.0);
        ForDisc(cx, cy, radius, [&](int x, int y, double distance) {
            const double t = distance / radius;
            // A thin bright film at the rim, a clear inside and a spark of the light upper left.
            const double rim = std::pow(t, 6.0);
            const double spark = std::exp(
                -(std::pow(x + 0.5 - (cx - 0.4 * radius), 2) + std::pow(y + 0.5 - (cy - 0.4 * radius), 2)) /
                (0.04 * radius * radius + 0.3));
            Blend(canvas, x, y, Bytes(200, 230, 255), static_cast<float>(0.15 + 0.65 * rim));
            Blend(canvas, x, y, Bytes(255, 255, 255), static_cast<float>(0.9 * spark));
        });
    }
    return canvas;
}

Canvas PaintSlimeWater(int size) {
    const FbmParams swirl{3, 3, 5, 0.55, 271};
    const FbmParams warp{2, 2, 4, 0.5, 272};
    Field height = MakeField(size, [&](double u, double v) {
        const double wu = u + 0.15 * Fbm(u, v, warp);
        const double wv = v + 0.15 * Fbm(u + 0.3, v + 0.6, warp);
        return static_cast<float>(10.0 * Fbm(wu, wv, swirl));
    });
    TextureRandom random(273);
    for (int i = 0; i < 40; ++i)
        AddBump(height, random.Range(0, size), random.Range(0, size), random.Range(2.0, 7.0), 4.0f);
    return LitWater(height, {{0, Bytes(34, 78, 10)}, {0.45f, Bytes(84, 150, 20)}, {1, Bytes(170, 220, 50)}},
                    0.6f, 0.5f, 25.0f);
}

Canvas PaintLavaWater(int size) {
    const FbmParams warp{2, 2, 4, 0.5, 281};
    const FbmParams flow{3, 3, 5, 0.55, 282};
    const FbmParams plates{3, 3, 5, 0.55, 284};
    return MakeCanvas(size, [&](double u, double v) {
        const double wu = u + 0.12 * Fbm(u, v, warp);
        const double wv = v + 0.12 * Fbm(u + 0.2, v + 0.8, warp);
        const auto t = static_cast<float>(0.55 + 1.3 * Fbm(wu, wv, flow));
        const Rgb molten = Ramp({{0, Bytes(170, 30, 6)},
                                 {0.4f, Bytes(236, 90, 14)},
                                 {0.75f, Bytes(255, 160, 36)},
                                 {1, Bytes(255, 224, 120)}},
                                t);
        // Cooled crust floats on it in cracked plates that still glow at their edges.
        const auto n = static_cast<float>(Fbm(u, v, plates));
        const CellDistances d = Cellular(wu, wv, 9, 283);
        const float crack = 1.0f - SmoothStep(0.0f, 0.05f, static_cast<float>(d.second - d.nearest));
        const float crust = SmoothStep(0.0f, 0.08f, n) * (1.0f - crack);
        const Rgb rock = Ramp({{0, Bytes(26, 12, 10)}, {0.6f, Bytes(58, 22, 14)}, {1, Bytes(96, 34, 16)}},
                              0.5f + 2.0f * static_cast<float>(Fbm(u * 1.0, v * 1.0, flow)));
        const float rim = SmoothStep(0.0f, 0.08f, n) - SmoothStep(0.08f, 0.2f, n);
        return Mix(molten, rock, crust) + Bytes(90, 24, 0) * (0.6f * rim);
    });
}
