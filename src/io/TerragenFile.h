#pragma once
// Terragen terrain files (".ter"), read only, and what their elevations become in the editor.
//
// Only one fixed layout is accepted (offsets from the start, numbers little-endian): the text
// "TERRAGENTERRAIN" at 0, "XPTS" at 24 with the point count along x at 28 (32 bits), "YPTS" at 32
// with the count along y at 36, "ALTW" at 72, and the samples from 81 on as byte pairs. A file
// whose blocks come in another order (for example without the scale, radius and curvature blocks)
// is refused, as are counts below 2 or above kMaxGridSide.
//
// The samples start one byte after the elevations of the format and are decoded with the
// editor's long-standing rule (DecodeTerragenSample); both are kept on purpose, since they decide
// which heights a given file has always produced.

#include "SampleGrid.h"
#include "TerrainModel.h"

#include <cstdint>
#include <span>
#include <string>

inline constexpr const char* kTerragenInvalidMessage =
    "Error Loading Terragen File.\nThe file does not appear to be a valid Terragen Terrain file.";

struct TerragenReadResult {
    bool ok = false;
    // Why the file was refused, in a few words for the command line; empty on success.
    std::string reason;
    // The file itself could not be read (missing, unreadable, too large), as opposed to refused.
    bool unreadable = false;
    explicit operator bool() const { return ok; }
};

// Decodes one sample from its byte pair: a, plus 1 / b when b is not 0, then moved by 128 (up when
// at most 128, down otherwise). The result lies between about 1 and 256.
float DecodeTerragenSample(std::uint8_t a, std::uint8_t b);

// Reads a file image into samples: columns x rows values, the file's first pairs going to the
// last row (rows - 1) and its last pairs to row 0. samples is untouched unless the file was
// accepted. The final byte of the last pair may lie just past the end of the file (files that end
// right after their elevations, without the "EOF " marker); it then counts as 0.
TerragenReadResult ParseTerragenFile(std::span<const std::uint8_t> bytes, SampleGrid& samples);
TerragenReadResult ReadTerragenFile(const std::string& path, SampleGrid& samples);

// The slider of the import dialog covers the whole decoded range.
inline constexpr int kTerragenWaterMin = 0;
inline constexpr int kTerragenWaterMax = 256;
// Water at the format's sea level (elevation 0 decodes to 128).
inline constexpr int kTerragenWaterDefault = 128;

// The terrain the samples become: the file's point counts, spacings 1024 / count, heights
// value - W (W the water height with water, else 0), at least -10, and above 0 divided by 1.7.
// Textures are left empty for the defaults to fill.
TerrainData TerrainFromTerragen(const SampleGrid& samples, bool water, float waterHeight);

// One preview pixel, 0xRRGGBB: with water on and the value below W, water whose intensity is
// 255 - (W - value) * 3 (at least 0); otherwise the grey of the value (at most 255).
std::uint32_t TerragenPreviewColour(float value, bool water, float waterHeight);
