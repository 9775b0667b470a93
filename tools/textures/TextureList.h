#pragma once
// Every texture the terrain presets and defaults name, with its size and the recipe that paints
// it. make-textures writes them into the program's "teratextures" folder; the tests read the
// same list. Header-only so that the tests need nothing else from here.

#include <array>
#include <string_view>

enum class TextureRecipe {
    GrassTerrain,
    DirtTerrain,
    RockTerrain,
    SandTerrain,
    SnowTerrain,
    MudTerrain,
    SandstoneTerrain,
    LunarTerrain,
    LavarockTerrain,
    GrassDetail,
    DirtDetail,
    RockDetail,
    SandDetail,
    MultiDetail,
    TropicalWater,
    DeepseaWater,
    MurkyWater,
    IceWater,
    FrozenWater,
    PoolWater,
    BubblesWater,
    SlimeWater,
    LavaWater,
};

enum class TextureKind { Ground, Detail, Water };

struct TextureEntry {
    std::string_view fileName; // inside "teratextures", exactly as the presets spell it
    int size;                  // pixels per side, a power of two
    TextureKind kind;
    TextureRecipe recipe;
};

inline constexpr std::array<TextureEntry, 23> kTextures{{
    {"GrassTerrain.jpg", 512, TextureKind::Ground, TextureRecipe::GrassTerrain},
    {"DirtTerrain.jpg", 512, TextureKind::Ground, TextureRecipe::DirtTerrain},
    {"RockTerrain.jpg", 512, TextureKind::Ground, TextureRecipe::RockTerrain},
    {"SandTerrain.jpg", 512, TextureKind::Ground, TextureRecipe::SandTerrain},
    {"SnowTerrain.jpg", 512, TextureKind::Ground, TextureRecipe::SnowTerrain},
    {"MudTerrain.jpg", 512, TextureKind::Ground, TextureRecipe::MudTerrain},
    {"SandstoneTerrain.jpg", 512, TextureKind::Ground, TextureRecipe::SandstoneTerrain},
    {"LunarTerrain.jpg", 512, TextureKind::Ground, TextureRecipe::LunarTerrain},
    {"LavarockTerrain.jpg", 512, TextureKind::Ground, TextureRecipe::LavarockTerrain},
    {"GrassDetail.jpg", 256, TextureKind::Detail, TextureRecipe::GrassDetail},
    {"DirtDetail.jpg", 256, TextureKind::Detail, TextureRecipe::DirtDetail},
    {"RockDetail.jpg", 256, TextureKind::Detail, TextureRecipe::RockDetail},
    {"SandDetail.jpg", 256, TextureKind::Detail, TextureRecipe::SandDetail},
    {"MultiDetail.jpg", 256, TextureKind::Detail, TextureRecipe::MultiDetail},
    {"TropicalWater.jpg", 256, TextureKind::Water, TextureRecipe::TropicalWater},
    {"DeepseaWater.jpg", 256, TextureKind::Water, TextureRecipe::DeepseaWater},
    {"MurkyWater.jpg", 256, TextureKind::Water, TextureRecipe::MurkyWater},
    {"IceWater.jpg", 256, TextureKind::Water, TextureRecipe::IceWater},
    {"FrozenWater.jpg", 256, TextureKind::Water, TextureRecipe::FrozenWater},
    {"PoolWater.jpg", 256, TextureKind::Water, TextureRecipe::PoolWater},
    {"BubblesWater.jpg", 256, TextureKind::Water, TextureRecipe::BubblesWater},
    {"SlimeWater.jpg", 256, TextureKind::Water, TextureRecipe::SlimeWater},
    {"LavaWater.jpg", 256, TextureKind::Water, TextureRecipe::LavaWater},
}};
