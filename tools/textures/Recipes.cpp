#include "Recipes.h"

#include "Noise.h"

#include <cmath>

Rgb Bytes(int r, int g, int b) {
    return {static_cast<float>(r) / 255.0f, static_cast<float>(g) / 255.0f, static_cast<float>(b) / 255.0f};
}

float Grain(int x, int y, int size, std::uint32_t seed) {
    const auto wx = static_cast<std::uint32_t>(((x % size) + size) % size);
    const auto wy = static_cast<std::uint32_t>(((y % size) + size) % size);
    return static_cast<float>(2.0 * HashUnit(wx, wy, seed) - 1.0);
}

void ApplyLight(Canvas& canvas, const Field& light) {
    for (int y = 0; y < canvas.Size(); ++y)
        for (int x = 0; x < canvas.Size(); ++x)
            canvas.At(x, y) = canvas.At(x, y) * light.At(x, y);
}

void AddBump(Field& height, double cx, double cy, double radius, float peak) {
    ForDisc(cx, cy, radius, [&](int x, int y, double distance) {
        const double t = distance / radius;
        height.At(x, y) += peak * static_cast<float>(std::sqrt(std::max(0.0, 1.0 - t * t)));
    });
}

Canvas PaintTexture(TextureRecipe recipe, int size) {
    switch (recipe) {
    case TextureRecipe::GrassTerrain:
        return PaintGrass(size);
    case TextureRecipe::DirtTerrain:
        return PaintDirt(size);
    case TextureRecipe::RockTerrain:
        return PaintRock(size);
    case TextureRecipe::SandTerrain:
        return PaintSand(size);
    case TextureRecipe::SnowTerrain:
        return PaintSnow(size);
    case TextureRecipe::MudTerrain:
        return PaintMud(size);
    case TextureRecipe::SandstoneTerrain:
        return PaintSandstone(size);
    case TextureRecipe::LunarTerrain:
        return PaintLunar(size);
    case TextureRecipe::LavarockTerrain:
        return PaintLavarock(size);
    case TextureRecipe::GrassDetail:
        return PaintGrassDetail(size);
    case TextureRecipe::DirtDetail:
        return PaintDirtDetail(size);
    case TextureRecipe::RockDetail:
        return PaintRockDetail(size);
    case TextureRecipe::SandDetail:
        return PaintSandDetail(size);
    case TextureRecipe::MultiDetail:
        return PaintMultiDetail(size);
    case TextureRecipe::TropicalWater:
        return PaintTropicalWater(size);
    case TextureRecipe::DeepseaWater:
        return PaintDeepseaWater(size);
    case TextureRecipe::MurkyWater:
        return PaintMurkyWater(size);
    case TextureRecipe::IceWater:
        return PaintIceWater(size);
    case TextureRecipe::FrozenWater:
        return PaintFrozenWater(size);
    case TextureRecipe::PoolWater:
        return PaintPoolWater(size);
    case TextureRecipe::BubblesWater:
        return PaintBubblesWater(size);
    case TextureRecipe::SlimeWater:
        return PaintSlimeWater(size);
    case TextureRecipe::LavaWater:
        return PaintLavaWater(size);
    }
    return Canvas(size);
}
