#pragma once
// The painters of the textures in TextureList.h. Each paints a square canvas of the given size
// that tiles seamlessly; the same recipe and size always give the same picture.

#include "Canvas.h"
#include "TextureList.h"

#include <cstdint>

Canvas PaintTexture(TextureRecipe recipe, int size);

// Ground textures.
Canvas PaintGrass(int size);
Canvas PaintDirt(int size);
Canvas PaintSand(int size);
Canvas PaintSnow(int size);
Canvas PaintMud(int size);
Canvas PaintRock(int size);
Canvas PaintSandstone(int size);
Canvas PaintLunar(int size);
Canvas PaintLavarock(int size);

// Detail textures: gray around the middle, so that multiplying a ground by them keeps its
// brightness on average.
Canvas PaintGrassDetail(int size);
Canvas PaintDirtDetail(int size);
Canvas PaintRockDetail(int size);
Canvas PaintSandDetail(int size);
Canvas PaintMultiDetail(int size);

// Water textures.
Canvas PaintTropicalWater(int size);
Canvas PaintDeepseaWater(int size);
Canvas PaintMurkyWater(int size);
Canvas PaintIceWater(int size);
Canvas PaintFrozenWater(int size);
Canvas PaintPoolWater(int size);
Canvas PaintBubblesWater(int size);
Canvas PaintSlimeWater(int size);
Canvas PaintLavaWater(int size);

// Shared by the painters.
Rgb Bytes(int r, int g, int b);
// Per-pixel hash noise in -1 .. 1 that repeats with the canvas.
float Grain(int x, int y, int size, std::uint32_t seed);
// Multiplies every pixel by the light field.
void ApplyLight(Canvas& canvas, const Field& light);
// Adds a shallow bump (a rounded stone) of the given radius and height to the field.
void AddBump(Field& height, double cx, double cy, double radius, float peak);
