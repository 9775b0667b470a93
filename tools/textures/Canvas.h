#pragma once
// Square pictures and height fields that wrap around at their edges, so that anything drawn
// across an edge continues on the opposite side and the result tiles. Colours are linear-ish
// floats 0 .. 1 per channel; x runs right and y runs down, as in the saved file.

#include <functional>
#include <initializer_list>
#include <vector>

struct Rgb {
    float r = 0;
    float g = 0;
    float b = 0;
};

Rgb operator+(Rgb a, Rgb b);
Rgb operator*(Rgb a, float k);
Rgb operator*(Rgb a, Rgb b);
Rgb Mix(Rgb a, Rgb b, float t);
float Luminance(Rgb c);
float Clamp01(float value);
float SmoothStep(float edge0, float edge1, float x);

// A colour ramp: stops at increasing positions, linear between them, clamped at the ends.
struct RampStop {
    float at;
    Rgb colour;
};
Rgb Ramp(std::initializer_list<RampStop> stops, float t);

// A square grid of values addressed with wrapping indices.
template <typename T> class WrapGrid {
public:
    explicit WrapGrid(int size)
        : size_(size), cells_(static_cast<std::size_t>(size) * static_cast<std::size_t>(size)) {}
    int Size() const { return size_; }
    T& At(int x, int y) { return cells_[Index(x, y)]; }
    const T& At(int x, int y) const { return cells_[Index(x, y)]; }

private:
    std::size_t Index(int x, int y) const {
        const int wx = ((x % size_) + size_) % size_;
        const int wy = ((y % size_) + size_) % size_;
        return static_cast<std::size_t>(wy) * static_cast<std::size_t>(size_) + static_cast<std::size_t>(wx);
    }

    int size_;
    std::vector<T> cells_;
};

using Canvas = WrapGrid<Rgb>;
using Field = WrapGrid<float>;

// Fills a field or canvas from a function of the texture coordinates u = x / size, v = y / size.
Field MakeField(int size, const std::function<float(double u, double v)>& value);
Canvas MakeCanvas(int size, const std::function<Rgb(double u, double v)>& colour);

// Lambert lighting of a height field (heights in pixels) by a light from the upper left, scaled so
// that flat ground gives 1; relief makes values above and below.
Field Shade(const Field& height, float strength);

// How much a light from the upper left glints off the height field, 0 .. 1, sharper with a
// higher shininess: the highlights of wet mud and waves.
Field Glint(const Field& height, float strength, float shininess);

// Blends colour over the canvas with the given opacity at one pixel.
void Blend(Canvas& canvas, int x, int y, Rgb colour, float opacity);

// Calls paint(x, y, distance) for every pixel within radius of (cx, cy), across the wrap.
void ForDisc(double cx, double cy, double radius,
             const std::function<void(int x, int y, double distance)>& paint);

// Draws a soft stroke from (x0, y0) to (x1, y1) that narrows from width to a point at the end.
void Stroke(Canvas& canvas, double x0, double y0, double x1, double y1, double width, Rgb colour,
            float opacity);

// Moves the canvas' luminance to the given mean and spread and removes its colour: for detail
// textures, which the renderer multiplies over the ground.
void NormaliseGray(Canvas& canvas, float mean, float spread);
