#pragma once
// Pictures for the image tests, made here: random pixels with stretches of repeated colour (so
// run-length packets of both kinds occur), Targa files built by hand, and pixel comparisons.

#include "cDIBSection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

// A width x height picture of seeded random colours in which every third row repeats one colour
// and the row above it copies the start of the one below, so runs cross row boundaries.
inline cDIBSection MakePattern(int width, int height, std::uint32_t seed) {
    cDIBSection image;
    image.Create(width, height);
    XorShiftRandom random(seed);
    image.RandomiseBits(false, std::ref(random));
    for (int row = 0; row < height; row += 3) {
        std::uint8_t* p = image.Row(row);
        for (int x = 1; x < width; ++x)
            std::copy_n(p, 3, p + 3 * x);
    }
    return image;
}

// The Targa header our reader expects; fields the caller does not set are zero.
inline std::vector<std::uint8_t> TargaHeader(std::uint8_t type, int width, int height, std::uint8_t bits,
                                             std::uint8_t descriptor = 0) {
    std::vector<std::uint8_t> header(18, 0);
    header[2] = type;
    header[12] = static_cast<std::uint8_t>(width & 0xFF);
    header[13] = static_cast<std::uint8_t>(width >> 8);
    header[14] = static_cast<std::uint8_t>(height & 0xFF);
    header[15] = static_cast<std::uint8_t>(height >> 8);
    header[16] = bits;
    header[17] = descriptor;
    return header;
}

// Pixels of bytesPerPixel bytes each, bottom row first; a fourth byte (alpha) is filled with a
// pattern the reader must drop.
inline std::vector<std::uint8_t> PixelsOf(const cDIBSection& image, int bytesPerPixel) {
    std::vector<std::uint8_t> out;
    for (int row = 0; row < image.Height(); ++row) {
        const std::uint8_t* p = image.Row(row);
        for (int x = 0; x < image.Width(); ++x, p += 3) {
            out.insert(out.end(), p, p + 3);
            if (bytesPerPixel == 4) out.push_back(static_cast<std::uint8_t>(x * 37 + row));
        }
    }
    return out;
}

// Run-length packets written the way the format describes them, independently of any reader:
// a repeat packet for two or more equal pixels, raw packets otherwise, at most 128 per packet.
inline std::vector<std::uint8_t> EncodeRuns(const std::vector<std::uint8_t>& pixels, std::size_t pixelBytes) {
    const std::size_t count = pixels.size() / pixelBytes;
    auto same = [&](std::size_t a, std::size_t b) {
        return std::equal(pixels.begin() + a * pixelBytes, pixels.begin() + (a + 1) * pixelBytes,
                          pixels.begin() + b * pixelBytes);
    };
    std::vector<std::uint8_t> out;
    std::size_t i = 0;
    while (i < count) {
        std::size_t run = 1;
        while (i + run < count && run < 128 && same(i, i + run))
            ++run;
        if (run >= 2) {
            out.push_back(static_cast<std::uint8_t>(127 + run));
            out.insert(out.end(), pixels.begin() + i * pixelBytes, pixels.begin() + (i + 1) * pixelBytes);
            i += run;
            continue;
        }
        std::size_t raw = 1;
        while (i + raw < count && raw < 128 && !(i + raw + 1 < count && same(i + raw, i + raw + 1)))
            ++raw;
        out.push_back(static_cast<std::uint8_t>(raw - 1));
        out.insert(out.end(), pixels.begin() + i * pixelBytes, pixels.begin() + (i + raw) * pixelBytes);
        i += raw;
    }
    return out;
}

inline std::vector<std::uint8_t> Joined(std::vector<std::uint8_t> a, const std::vector<std::uint8_t>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// Equal size and equal pixels; the row padding is not compared.
inline ::testing::AssertionResult SamePixels(const cDIBSection& a, const cDIBSection& b) {
    if (a.Width() != b.Width() || a.Height() != b.Height())
        return ::testing::AssertionFailure()
               << "sizes " << a.Width() << "x" << a.Height() << " and " << b.Width() << "x" << b.Height();
    for (int row = 0; row < a.Height(); ++row) {
        for (int i = 0; i < a.Width() * 3; ++i) {
            if (a.Row(row)[i] != b.Row(row)[i])
                return ::testing::AssertionFailure() << "row " << row << " byte " << i << ": "
                                                     << int(a.Row(row)[i]) << " and " << int(b.Row(row)[i]);
        }
    }
    return ::testing::AssertionSuccess();
}
