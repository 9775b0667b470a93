// Detail textures: fine gray structure repeated many times over the ground to give it grain up
// close. Each ends at a mean of middle gray, so that modulating by it keeps the ground's brightness.
#include "Noise.h"
#include "Recipes.h"

#include <cmath>

namespace {

constexpr float kMiddle = 0.5f;
constexpr double kPi = 3.141592653589793;

Canvas GrayField(const Field& field) {
    Canvas canvas(field.Size());
    for (int y = 0; y < field.Size(); ++y)
        for (int x = 0; x < field.Size(); ++x)
            canvas.At(x, y) = {field.At(x, y), field.At(x, y), field.At(x, y)};
    return canvas;
}

} // namespace

Canvas PaintGrassDetail(int size) {
    const FbmParams soft{8, 8, 3, 0.5, 111};
    Canvas canvas = MakeCanvas(size, [&](double u, double v) {
        const auto l = static_cast<float>(0.5 + 0.5 * Fbm(u, v, soft));
        return Rgb{l, l, l};
    });
    TextureRandom random(112);
    for (int i = 0; i < size * size / 6; ++i) {
        const double x = random.Range(0, size);
        const double y = random.Range(0, size);
        const double angle = random.Range(0, 2 * kPi);
        const double length = random.Range(3, 7);
        const auto l = static_cast<float>(random.Range(0.15, 0.95));
        Stroke(canvas, x, y, x + std::cos(angle) * length, y + std::sin(angle) * length,
               random.Range(1.0, 1.6), {l, l, l}, 0.8f);
    }
    NormaliseGray(canvas, kMiddle, 0.085f);
    return canvas;
}

Canvas PaintDirtDetail(int size) {
    const FbmParams lumps{16, 16, 3, 0.5, 121};
    Field height =
        MakeField(size, [&](double u, double v) { return static_cast<float>(4.0 * Fbm(u, v, lumps)); });
    TextureRandom random(122);
    for (int i = 0; i < size * size / 90; ++i)
        AddBump(height, random.Range(0, size), random.Range(0, size), random.Range(1.0, 3.0), 2.0f);
    const Field light = Shade(height, 0.8f);
    Field gray(size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            gray.At(x, y) = light.At(x, y) * (1.0f + 0.15f * Grain(x, y, size, 123));
    Canvas canvas = GrayField(gray);
    NormaliseGray(canvas, kMiddle, 0.08f);
    return canvas;
}

Canvas PaintRockDetail(int size) {
    const FbmParams body{8, 8, 5, 0.55, 131};
    const Field height = MakeField(size, [&](double u, double v) {
        const CellDistances d = Cellular(u, v, 10, 132);
        const float crack = 1.0f - SmoothStep(0.0f, 0.04f, static_cast<float>(d.second - d.nearest));
        const float fade = SmoothStep(-0.1f, 0.2f, static_cast<float>(Fbm(u + 0.5, v, body)));
        return static_cast<float>(8.0 * Fbm(u, v, body)) - 1.5f * crack * fade;
    });
    const Field light = Shade(height, 0.9f);
    Field gray(size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            gray.At(x, y) = light.At(x, y) * (1.0f + 0.08f * Grain(x, y, size, 133));
    Canvas canvas = GrayField(gray);
    NormaliseGray(canvas, kMiddle, 0.09f);
    return canvas;
}

Canvas PaintSandDetail(int size) {
    const FbmParams warp{4, 4, 3, 0.5, 141};
    const Field height = MakeField(size, [&](double u, double v) {
        return static_cast<float>(0.7 * std::sin(2 * kPi * (9 * u + 20 * v) + 3.0 * Fbm(u, v, warp)));
    });
    const Field light = Shade(height, 0.6f);
    Field gray(size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            gray.At(x, y) = light.At(x, y) + 0.3f * Grain(x, y, size, 142);
    Canvas canvas = GrayField(gray);
    NormaliseGray(canvas, kMiddle, 0.065f);
    return canvas;
}

Canvas PaintMultiDetail(int size) {
    const FbmParams body{8, 8, 5, 0.55, 151};
    const FbmParams fine{32, 32, 2, 0.5, 152};
    Field height = MakeField(size, [&](double u, double v) {
        return static_cast<float>(5.0 * Fbm(u, v, body) + 1.5 * Fbm(u, v, fine));
    });
    TextureRandom random(153);
    for (int i = 0; i < size * size / 160; ++i)
        AddBump(height, random.Range(0, size), random.Range(0, size), random.Range(1.0, 2.5), 1.5f);
    const Field light = Shade(height, 0.8f);
    Field gray(size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            gray.At(x, y) = light.At(x, y) + 0.12f * Grain(x, y, size, 154);
    Canvas canvas = GrayField(gray);
    NormaliseGray(canvas, kMiddle, 0.075f);
    return canvas;
}
