#pragma once
// Pictures for the image tests, made here: random pixels with stretches of repeated colour (so
// run-length packets of both kinds occur), Targa files built by hand, and pixel comparisons.

#include "cDIBSection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

// A width x height picture of seeded random colours in which every third row repeats one colour
// and the row above it copies the start of the one below, so runs cross row boundaries.
inline cDIBSection MakePattern(int width, int height, std::uint32_t seed) {
    cDIBSection image;
    image.Create(width, height);
    RandomSource random(seed);
    image.RandomiseBits(false, random);
    for (int row = 0; row < height; row += 3)
        for (int x = 1; x < width; ++x)
            std::copy_n(image.Row(row), 3, image.Row(row) + 3 * x);
    return image;
}

// A Targa file: the header our reader expects (fields not given are zero), then the data.
inline Bytes Targa(std::uint8_t type, int width, int height, std::uint8_t bits, const Bytes& data = {},
                   std::uint8_t descriptor = 0) {
    Bytes file = {0, 0, type, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    for (const int value : {width & 0xFF, width >> 8, height & 0xFF, height >> 8, int{bits}, int{descriptor}})
        file.push_back(static_cast<std::uint8_t>(value));
    file.insert(file.end(), data.begin(), data.end());
    return file;
}

// Pixels of bytesPerPixel bytes each, bottom row first; a fourth byte (alpha) is filled with a
// pattern the reader must drop.
inline Bytes PixelsOf(const cDIBSection& image, int bytesPerPixel) {
    Bytes out;
    for (int row = 0; row < image.Height(); ++row)
        for (int x = 0; x < image.Width(); ++x) {
            out.insert(out.end(), image.Row(row) + 3 * x, image.Row(row) + 3 * x + 3);
            if (bytesPerPixel == 4) out.push_back(static_cast<std::uint8_t>(x * 37 + row));
        }
    return out;
}

// Run-length packets written independently of any reader: a repeat packet for two or more equal
// pixels, raw packets otherwise, at most 128 pixels per packet.
inline Bytes EncodeRuns(const Bytes& pixels, std::size_t pixelBytes) {
    const std::size_t count = pixels.size() / pixelBytes;
    const auto at = [&](std::size_t i) {
        return pixels.begin() + static_cast<std::ptrdiff_t>(i * pixelBytes);
    };
    const auto repeats = [&](std::size_t i) {
        return i + 1 < count && std::equal(at(i), at(i + 1), at(i + 1));
    };
    Bytes out;
    for (std::size_t i = 0, run = 1; i < count; i += run, run = 1) {
        const bool repeat = repeats(i);
        while (i + run < count && run < 128 && (repeat ? repeats(i + run - 1) : !repeats(i + run)))
            ++run;
        out.push_back(static_cast<std::uint8_t>(repeat ? 127 + run : run - 1));
        out.insert(out.end(), at(i), at(repeat ? i + 1 : i + run));
    }
    return out;
}

// Equal size and equal pixels; the row padding is not compared.
inline ::testing::AssertionResult SamePixels(const cDIBSection& a, const cDIBSection& b) {
    bool same = a.Width() == b.Width() && a.Height() == b.Height();
    for (int row = 0; same && row < a.Height(); ++row)
        same = std::equal(a.Row(row), a.Row(row) + 3 * a.Width(), b.Row(row));
    if (same) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the pictures differ";
}
