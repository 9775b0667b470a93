#pragma once
// Windows bitmap files (".bmp"), read and written by our own code so that a file's header is
// checked against the bytes it really has before anything is allocated.
//
// Reading takes every kind a user is likely to meet: the 12-byte core header and the 40-byte info
// header with its longer versions (52, 56, 64, 108 and 124 bytes); 1, 4 and 8 bits per pixel with
// a palette, uncompressed or run-length encoded (8 and 4 bits); 16 and 32 bits per pixel plain or
// with channel masks; 24 bits per pixel; rows bottom-up or top-down (a negative height). Alpha is
// dropped. Writing makes a 24-bit bottom-up bitmap with the 40-byte header.

#include "cDIBSection.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

struct BitmapReadResult {
    bool ok = false;
    std::string message; // why the file was refused; empty on success
    explicit operator bool() const { return ok; }
};

// Whether bytes begin as a bitmap file does ("BM").
bool HasBitmapSignature(std::span<const std::uint8_t> bytes);

// Decodes a bitmap file image into image (24-bit, bottom-up); image is untouched on failure. A
// run-length encoded picture may claim at most 128 pixels per byte of its data.
BitmapReadResult DecodeBitmap(std::span<const std::uint8_t> bytes, cDIBSection& image);
BitmapReadResult LoadBitmapFile(const std::string& path, cDIBSection& image);

// The file image of a 24-bit bottom-up bitmap; empty for an empty picture.
std::vector<std::uint8_t> EncodeBitmap(const cDIBSection& image);
// Writes atomically; false with a reason in error.
bool SaveBitmap(const std::string& path, const cDIBSection& image, std::string& error);
