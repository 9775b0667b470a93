#include "Canvas.h"

#include <algorithm>
#include <cmath>

Rgb operator+(Rgb a, Rgb b) {
    return {a.r + b.r, a.g + b.g, a.b + b.b};
}

Rgb operator*(Rgb a, float k) {
    return {a.r * k, a.g * k, a.b * k};
}

Rgb operator*(Rgb a, Rgb b) {
    return {a.r * b.r, a.g * b.g, a.b * b.b};
}

Rgb Mix(Rgb a, Rgb b, float t) {
    return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}

float Luminance(Rgb c) {
    return 0.299f * c.r + 0.587f * c.g + 0.114f * c.b;
}

float Clamp01(float value) {
    return std::clamp(value, 0.0f, 1.0f);
}

float SmoothStep(float edge0, float edge1, float x) {
    const float t = Clamp01((x - edge0) / (edge1 - edge0));
    return t * t * (3 - 2 * t);
}

Rgb Ramp(std::initializer_list<RampStop> stops, float t) {
    const RampStop* previous = stops.begin();
    if (t <= previous->at) return previous->colour;
    for (const RampStop* stop = stops.begin() + 1; stop != stops.end(); previous = stop++) {
        if (t <= stop->at)
            return Mix(previous->colour, stop->colour, (t - previous->at) / (stop->at - previous->at));
    }
    return previous->colour;
}

Field MakeField(int size, const std::function<float(double u, double v)>& value) {
    Field field(size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            field.At(x, y) = value(static_cast<double>(x) / size, static_cast<double>(y) / size);
    return field;
}

Canvas MakeCanvas(int size, const std::function<Rgb(double u, double v)>& colour) {
    Canvas canvas(size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            canvas.At(x, y) = colour(static_cast<double>(x) / size, static_cast<double>(y) / size);
    return canvas;
}

namespace {

struct Vec3 {
    float x, y, z;
};

Vec3 Normalised(Vec3 v) {
    const float length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    return {v.x / length, v.y / length, v.z / length};
}

const Vec3 kLight = Normalised({-1.0f, -1.0f, 1.3f});

Vec3 NormalAt(const Field& height, int x, int y, float strength) {
    const float dx = (height.At(x + 1, y) - height.At(x - 1, y)) * 0.5f * strength;
    const float dy = (height.At(x, y + 1) - height.At(x, y - 1)) * 0.5f * strength;
    return Normalised({-dx, -dy, 1.0f});
}

} // namespace

Field Shade(const Field& height, float strength) {
    Field light(height.Size());
    for (int y = 0; y < height.Size(); ++y) {
        for (int x = 0; x < height.Size(); ++x) {
            const Vec3 n = NormalAt(height, x, y, strength);
            const float lambert = n.x * kLight.x + n.y * kLight.y + n.z * kLight.z;
            light.At(x, y) = std::max(0.0f, lambert) / kLight.z;
        }
    }
    return light;
}

Field Glint(const Field& height, float strength, float shininess) {
    const Vec3 half = Normalised({kLight.x, kLight.y, kLight.z + 1.0f});
    Field glint(height.Size());
    for (int y = 0; y < height.Size(); ++y) {
        for (int x = 0; x < height.Size(); ++x) {
            const Vec3 n = NormalAt(height, x, y, strength);
            const float cosine = std::max(0.0f, n.x * half.x + n.y * half.y + n.z * half.z);
            glint.At(x, y) = std::pow(cosine, shininess);
        }
    }
    return glint;
}

void Blend(Canvas& canvas, int x, int y, Rgb colour, float opacity) {
    Rgb& pixel = canvas.At(x, y);
    pixel = Mix(pixel, colour, Clamp01(opacity));
}

void ForDisc(double cx, double cy, double radius,
             const std::function<void(int x, int y, double distance)>& paint) {
    const int x0 = static_cast<int>(std::floor(cx - radius));
    const int x1 = static_cast<int>(std::ceil(cx + radius));
    const int y0 = static_cast<int>(std::floor(cy - radius));
    const int y1 = static_cast<int>(std::ceil(cy + radius));
    for (int y = y0; y <= y1; ++y) {
        for (int x = x0; x <= x1; ++x) {
            const double d = std::hypot(x + 0.5 - cx, y + 0.5 - cy);
            if (d <= radius) paint(x, y, d);
        }
    }
}

void Stroke(Canvas& canvas, double x0, double y0, double x1, double y1, double width, Rgb colour,
            float opacity) {
    const double length = std::hypot(x1 - x0, y1 - y0);
    if (length <= 0) return;
    const double ux = (x1 - x0) / length;
    const double uy = (y1 - y0) / length;
    const int left = static_cast<int>(std::floor(std::min(x0, x1) - width));
    const int right = static_cast<int>(std::ceil(std::max(x0, x1) + width));
    const int top = static_cast<int>(std::floor(std::min(y0, y1) - width));
    const int bottom = static_cast<int>(std::ceil(std::max(y0, y1) + width));
    for (int y = top; y <= bottom; ++y) {
        for (int x = left; x <= right; ++x) {
            const double px = x + 0.5 - x0;
            const double py = y + 0.5 - y0;
            const double along = px * ux + py * uy;
            if (along < 0 || along > length) continue;
            const double across = std::abs(px * uy - py * ux);
            const double halfWidth = 0.5 * width * (1.0 - along / length) + 0.35;
            const float cover = Clamp01(static_cast<float>(halfWidth - across + 0.5));
            if (cover > 0) Blend(canvas, x, y, colour, opacity * cover);
        }
    }
}

void NormaliseGray(Canvas& canvas, float mean, float spread) {
    const int size = canvas.Size();
    double sum = 0;
    double squares = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double l = Luminance(canvas.At(x, y));
            sum += l;
            squares += l * l;
        }
    }
    const double count = static_cast<double>(size) * size;
    const double average = sum / count;
    const double deviation = std::sqrt(std::max(1e-12, squares / count - average * average));
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const auto l =
                static_cast<float>(mean + (Luminance(canvas.At(x, y)) - average) / deviation * spread);
            canvas.At(x, y) = {l, l, l};
        }
    }
}
