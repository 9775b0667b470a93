#pragma once
// Writing 24-bit Targa files: an 18-byte header (uncompressed true colour, 24 bits per pixel,
// descriptor 0 so the rows run bottom-up), the pixels blue-green-red without row padding, bottom
// row first, and one extra zero byte after them, which other tools expect.

#include "cDIBSection.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

// The file image for height rows of width * 3 bytes (blue, green, red), row 0 (the bottom) first.
// Empty when the size cannot be written (a side <= 0 or above 65535) or rows is too short.
std::vector<std::uint8_t> EncodeTGA(std::span<const std::uint8_t> rows, int width, int height);

// Write the file atomically, replacing any file of that name; false with a reason in error.
bool SaveTGA(const std::string& path, std::span<const std::uint8_t> rows, int width, int height,
             std::string& error);
bool SaveTGA(const std::string& path, const cDIBSection& image, std::string& error);
