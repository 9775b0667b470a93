#pragma once
// 16-bit height maps, the form terrain tools exchange: greyscale PNG pictures (16 bits per pixel)
// and headerless RAW files of little-endian 16-bit values (".r16", ".raw").
//
// Both hold a grey picture with its rows top first, as a picture is seen: the top row is the
// terrain's +z edge (grid row rows - 1), the bottom row its -z edge (grid row 0), as in the
// 8-bit height maps. A terrain is written with -10 .. 150 spread linearly over 0 .. 65535, and
// read back with 0 .. 65535 spread over a range the user chooses (by default the same).
//
// PNG files need a picture codec: the program registers one (lw_io_qt) so that this library
// stays free of any image toolkit. RAW files are read and written here.

#include "TerrainModel.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

// The heights an exported value 0 and 65535 stand for.
inline constexpr float kHeight16Low = -10.0f;
inline constexpr float kHeight16High = 150.0f;

// A grey picture of 16-bit values, row 0 the top row, the column varying fastest.
struct Grey16Image {
    int width = 0;
    int height = 0;
    std::vector<std::uint16_t> values;

    bool Empty() const { return values.empty(); }
    std::uint16_t At(int row, int column) const {
        return values[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(column)];
    }
};

struct Height16Range {
    float low = kHeight16Low;   // what value 0 becomes
    float high = kHeight16High; // what value 65535 becomes
};

struct Grey16ReadResult {
    bool ok = false;
    std::string message; // why it was refused; empty on success
    explicit operator bool() const { return ok; }
};

// -10 .. 150 onto 0 .. 65535, rounded to the nearest value; heights outside are clamped.
std::uint16_t HeightToGrey16(float height);
Grey16Image TerrainToGrey16(const TerrainData& terrain);
// Each value mapped onto range, then kept within -10 .. 150. The terrain carries its size,
// spacings and heights; no water, no textures.
TerrainData Grey16ToTerrain(const Grey16Image& image, const Height16Range& range);

// Refuses a picture wider or taller than 513 (the largest terrain) or without pixels, with a
// message naming its size.
Grey16ReadResult CheckGrey16Size(std::int64_t width, std::int64_t height);

// RAW files. The side of a square file of byteCount bytes, or 0 when the bytes make no square
// (an odd count, or a count of values that is not a square number).
int SquareRaw16Side(std::size_t byteCount);
// Decodes a RAW file image of rows of width values; width 0 takes the square side. Refuses an odd
// byte count, a width that does not divide the values into whole rows, and sizes beyond 513.
Grey16ReadResult DecodeRaw16(std::span<const std::uint8_t> bytes, int width, Grey16Image& image);
std::vector<std::uint8_t> EncodeRaw16(const Grey16Image& image);

// PNG files through the registered codec. The decoder checks the picture's size against 513
// before it decodes the pixels; the encoder returns the file image (empty on failure).
using Png16Decoder = std::function<Grey16ReadResult(std::span<const std::uint8_t>, Grey16Image&)>;
using Png16Encoder = std::function<std::vector<std::uint8_t>(const Grey16Image&)>;
void SetPng16Codec(Png16Decoder decoder, Png16Encoder encoder);
// Registers the QImage-based codec; defined in lw_io_qt, only programs linking it may call it.
void InstallQtPng16Codec();

// Whether path names a PNG file (".png", any case); every other name is taken as RAW.
bool IsPng16Path(const std::string& path);
// Reads the file at path: a PNG, or a RAW with rows of width values (0: square).
Grey16ReadResult ReadHeightMap16(const std::string& path, int width, Grey16Image& image);
// Reads the whole file for a later DecodeRaw16 or PNG decode; refuses files beyond the largest.
Grey16ReadResult ReadHeightMap16Bytes(const std::string& path, std::vector<std::uint8_t>& bytes);
Grey16ReadResult DecodeHeightMap16(std::span<const std::uint8_t> bytes, bool png, int width,
                                   Grey16Image& image);
// Writes the terrain as a PNG or RAW file by the name's extension, atomically.
bool WriteHeightMap16(const std::string& path, const TerrainData& terrain, std::string& error);
